# Parallel documents of three days, one of them the mark of a report, and the lines of the first.
INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, cEstado, cDocSerie, cDocCodigo) VALUES (1, 20, '23/11/2026 00:00', '1', '12', 7)
INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, cEstado, cDocSerie, cDocCodigo) VALUES (2, 22, '24/11/2026 23:59', '2', '12', 7)
INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, cEstado, cDocSerie, cDocCodigo) VALUES (3, 22, '24/11/2026 08:00', '0', '12', 7)
INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, cEstado, cDocSerie, cDocCodigo) VALUES (4, 24, '25/11/2026 00:00', '2', '12', 7)
INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, cEstado, cDocSerie, cDocCodigo) VALUES (5, 30, '24/11/2026 09:00', '1', '12', 7)
INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, cEstado, cDocSerie, cDocCodigo) VALUES (6, 21, '22/11/2026 23:59', '1', '12', 7)
INSERT INTO OperacionParalelaProducto (cOperCode, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit) VALUES (1, '01', 101, 2, 10)
INSERT INTO OperacionParalelaProducto (cOperCode, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit) VALUES (1, '01', 999, 1, 5)
