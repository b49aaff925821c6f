# A cashier, the supervisor who came last, one who left, and a name with a quote.
INSERT INTO Usuario (sUserDesc, suserPass, cUserActi, cUserFlag, cPerfCode) VALUES ('ANA', 'Secreta', 1, 0, '2')
INSERT INTO Usuario (sUserDesc, suserPass, cUserActi, cUserFlag, cPerfCode) VALUES ('JEFE', 'jefe', 1, 1, '1')
INSERT INTO Usuario (sUserDesc, suserPass, cUserActi, cUserFlag, cPerfCode) VALUES ('BAJA', 'x', 0, 0, '1')
INSERT INTO Usuario (sUserDesc, suserPass, cUserActi, cUserFlag, cPerfCode) VALUES ('O''HARA', 'q', 1, 0, '2')
