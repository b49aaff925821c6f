# The rule for points, two sites of which one is closed, a customer of either, their cards.
INSERT INTO Regla_Punto (nImpoMaxi, nPuntImpo, nPuntCant) VALUES (1000, 10, 1)
INSERT INTO local (idlocal, dsclocal, Activo) VALUES (1, 'CENTRO', 1)
INSERT INTO local (idlocal, dsclocal, Activo) VALUES (2, 'NORTE', 0)
INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, iTipo) VALUES (5, 1, 'PÉREZ ', 'ANA', 1)
INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, iTipo) VALUES (5, 2, 'DÍAZ', 'LUZ', 1)
# of the last day
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) VALUES (5, 1, '00000005', 1, CONVERT(DATETIME,'2026-11-24 00:00:00',120))
# expired
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) VALUES (5, 1, '00000006', 1, CONVERT(DATETIME,'2026-11-23 23:59:00',120))
# not active
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) VALUES (5, 1, '00000007', 0, CONVERT(DATETIME,'2027-11-24 00:00:00',120))
# of two sites
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) VALUES (5, 1, '00000008', 1, CONVERT(DATETIME,'2027-11-24 00:00:00',120))
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) VALUES (5, 2, '00000008', 1, CONVERT(DATETIME,'2027-11-24 00:00:00',120))
# of the closed site
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) VALUES (5, 2, '00000009', 1, CONVERT(DATETIME,'2027-11-24 00:00:00',120))
