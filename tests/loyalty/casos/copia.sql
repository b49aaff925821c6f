# The copies as the pull brings them: without site and kind.
INSERT INTO Regla_Punto (nImpoMaxi, nPuntImpo, nPuntCant) VALUES (0, 10, 1)
INSERT INTO Cliente (cClieCode) VALUES (5)
INSERT INTO Cliente (cClieCode) VALUES (6)
INSERT INTO Tarjeta (cClieCode, nTarjNumb) VALUES (5, '00000005')
INSERT INTO Tarjeta (cClieCode, nTarjNumb) VALUES (6, '00000006')
