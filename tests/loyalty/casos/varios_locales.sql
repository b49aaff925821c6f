# Card 7 of one site; card 8 that two sites have issued to different customers.
INSERT INTO Cliente (cClieCode, IdLocal, iTipo, nPuntCant) VALUES (7, 1, 1, 0)
INSERT INTO Cliente (cClieCode, IdLocal, iTipo, nPuntCant) VALUES (8, 1, 1, 0)
INSERT INTO Cliente (cClieCode, IdLocal, iTipo, nPuntCant) VALUES (9, 2, 1, 0)
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (7, 1, '00000007')
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (8, 1, '00000008')
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (9, 2, '00000008')
