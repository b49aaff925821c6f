# Two keys, 5 with the coffee; the tea stands in warehouse 02 only, the cake in 02 and 03.
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 101, 'CAFE', 'CAFE', 10, 1, 1, 0, 0, 0, '')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('02', 7, 'TE', 'TE', 5, 1, 1, 0, 0, 0, '')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('02', 8, 'TORTA', 'TORTA', 5, 1, 1, 0, 0, 0, '')
INSERT INTO Producto (cAlmaCode, cProdCode) VALUES ('03', 8)
INSERT INTO ConfiguracionTeclado (cTeclCode, sTeclDesc, cTeclFlagAsig, cProdCode) VALUES (5, 'DEP 5', '1', 101)
INSERT INTO ConfiguracionTeclado (cTeclCode, sTeclDesc, cTeclFlagAsig, cProdCode) VALUES (13, 'DEP 13', '0', 0)
