# Note 8 belongs to a billing document, whose code is the one that a liquidation takes here.
INSERT INTO OperacionParalela (cOperCode, cOperTipo, nMontoSoles, cEstado, cOperCodeRela, dOperFech) VALUES (8, 21, 9, '1', 15, '24/11/2026 08:00')
INSERT INTO OperacionParalelaProducto (cAlmaCode, cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio) VALUES ('01', 8, 102, 2, 4.50, 0, 10)
# What may be liquidated: advance payments 9 in soles and 10 in dollars, notes 11 and 12 of the one and 13 of the other, and 14,
# which is closed.
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 101, 'Lomo', 'Lomo', 12, 1, 1, 0, 0, 1, '')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 102, 'Cafe', 'Cafe', 4.5, 1, 1, 0, 0, 0, '')
INSERT INTO OperacionParalela (cOperCode, cOperTipo, nMoneda, nMontoSoles, nMontoDolares, cEstado, cOperCodeRela, dOperFech, cDocSerie, cDocCodigo, cDocTipo, sGlosa, nTarjNumb) VALUES (9, 22, 1, 30, 10, '1', 0, '24/11/2026 09:00', 'XX1', 7, '99', 'fiesta', '00000007')
INSERT INTO OperacionParalela (cOperCode, cOperTipo, nMoneda, nMontoSoles, nMontoDolares, cEstado, cOperCodeRela, dOperFech, cDocSerie, cDocCodigo, cDocTipo, sGlosa, nTarjNumb) VALUES (10, 23, 2, 60, 20, '1', 0, '24/11/2026 09:00', 'XX1', 7, '99', 'fiesta', '00000007')
INSERT INTO OperacionParalela (cOperCode, cOperTipo, nMoneda, nMontoSoles, nMontoDolares, cEstado, cOperCodeRela, dOperFech, cDocSerie, cDocCodigo, cDocTipo, sGlosa, nTarjNumb) VALUES (11, 21, 0, 27, 9, '1', 9, '24/11/2026 09:00', 'XX1', 7, '99', 'fiesta', '00000007')
INSERT INTO OperacionParalela (cOperCode, cOperTipo, nMoneda, nMontoSoles, nMontoDolares, cEstado, cOperCodeRela, dOperFech, cDocSerie, cDocCodigo, cDocTipo, sGlosa, nTarjNumb) VALUES (12, 21, 0, 9, 3, '1', 9, '24/11/2026 09:00', 'XX1', 7, '99', 'fiesta', '00000007')
INSERT INTO OperacionParalela (cOperCode, cOperTipo, nMoneda, nMontoSoles, nMontoDolares, cEstado, cOperCodeRela, dOperFech, cDocSerie, cDocCodigo, cDocTipo, sGlosa, nTarjNumb) VALUES (13, 21, 0, 18, 6, '1', 10, '24/11/2026 09:00', 'XX1', 7, '99', 'fiesta', '00000007')
INSERT INTO OperacionParalela (cOperCode, cOperTipo, nMoneda, nMontoSoles, nMontoDolares, cEstado, cOperCodeRela, dOperFech, cDocSerie, cDocCodigo, cDocTipo, sGlosa, nTarjNumb) VALUES (14, 22, 1, 5, 1, '2', 0, '24/11/2026 09:00', 'XX1', 7, '99', 'fiesta', '00000007')
INSERT INTO OperacionParalelaProducto (cAlmaCode, cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio) VALUES ('01', 11, 101, 3, 10.00, -10, 10)
INSERT INTO OperacionParalelaProducto (cAlmaCode, cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio) VALUES ('01', 12, 102, 2, 4.50, 0, 10)
INSERT INTO OperacionParalelaProducto (cAlmaCode, cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio) VALUES ('01', 13, 102, 4, 4.50, 20, 10)
# Another customer of the same code, at a site that the card is not of.
INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName) VALUES (7, 0, 'ABAD', 'EVA')
# A card of two customers must not bring a document twice.
INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName) VALUES (7, 1, 'DÍAZ', 'LUZ')
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (7, 1, '00000007')
INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName) VALUES (7, 2, 'DÍAZ', 'LUZ')
INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (7, 2, '00000007')
