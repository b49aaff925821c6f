# What a liquidation settles: an advance payment of 30.00 and a note of 45.00.
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 102, 'Torta', 'Torta', 4.5, 1, 1, 0, 0, 0, '')
INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, nMontoSoles, nMoneda, cEstado, cOperCodeRela, cDocSerie, cDocCodigo, cDocTipo) VALUES (9, 22, '24/11/2026 09:00', 30, 1, '1', 0, 'PA1', 0, '12')
INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, nMontoSoles, nMoneda, cEstado, cOperCodeRela, cDocSerie, cDocCodigo, cDocTipo) VALUES (11, 21, '24/11/2026 09:30', 45, 0, '1', 9, 'NC1', 0, '11')
INSERT INTO OperacionParalelaProducto (cAlmaCode, cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio) VALUES ('01', 11, 102, 10, 4.5, 0, 0)
