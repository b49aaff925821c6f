# Customer 5 of site 1 earns, customer 6 is a company, customer 5 of site 2 is another person.
INSERT INTO Regla_Punto (nImpoMaxi, nPuntImpo, nPuntCant) VALUES (0, 10, 1)
INSERT INTO Cliente (cClieCode, IdLocal, iTipo, nPuntCant) VALUES (5, 1, 1, 20)
INSERT INTO Cliente (cClieCode, IdLocal, iTipo, nPuntCant) VALUES (6, 1, 3, 0)
INSERT INTO Cliente (cClieCode, IdLocal, iTipo, nPuntCant) VALUES (5, 2, 1, 70)
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (5, 1, '00000005')
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (6, 1, '00000006')
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (5, 2, '00000005')
