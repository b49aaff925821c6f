# A customer of two sites with a card for both, and one that has expired.
INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName) VALUES (7, 1, 'ROJAS 07', 'ANA')
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) VALUES (7, 1, '00000007', 1, '2027-01-01 00:00:00')
INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName) VALUES (7, 2, 'ROJAS 07', 'ANA')
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) VALUES (7, 2, '00000007', 1, '2027-01-01 00:00:00')
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) VALUES (7, 1, '00000070', 1, '2026-11-23 00:00:00')
