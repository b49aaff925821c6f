# Two keys with articles, the second with service, and one whose article is not on sale.
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 101, 'Cafe', 'Cafe', 10, 1, 1, 0, 0, 0, '')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 102, 'Torta de chocolate entera con crema', 'Torta de chocolate entera con crema', 12.5, 1, 1, 0, 0, 1, '')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 103, 'Agua', 'Agua', 2, 1, 0, 0, 0, 0, '')
INSERT INTO ConfiguracionTeclado (cTeclCode, sTeclDesc, cProdCode) VALUES (1, 'BEBIDAS', 101)
INSERT INTO ConfiguracionTeclado (cTeclCode, sTeclDesc, cProdCode) VALUES (2, '', 102)
INSERT INTO ConfiguracionTeclado (cTeclCode, sTeclDesc, cProdCode) VALUES (24, 'DEP 24', 103)
INSERT INTO ConfiguracionTeclado (cTeclCode, sTeclDesc, cProdCode) VALUES (25, 'DEP 25', 101)
INSERT INTO ConfiguracionTeclado (cTeclCode, sTeclDesc, cProdCode) VALUES (3, 'DEP 3', 0)
