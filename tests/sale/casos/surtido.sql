# An article by its code, one whose catalogue code begins like its own, and those that are not for sale.
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 12, 'CAFE PASADO', 'CAFE PASADO', 4.5, 1, 1, 0, 0, 1, 'CAF-01')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 13, 'CAFE CORTADO', 'CAFE CORTADO', 6, 1, 1, 0, 0, 0, 'CAF-010')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 14, 'TORTA', 'TORTA', 9.9, 1, 1, 0, 0, 0, '77.01.23')
# Withdrawn by the server, suspended, exchanged for points.
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 15, 'RETIRADO', 'RETIRADO', 1, 1, 0, 0, 0, 0, 'OLD')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 16, 'SUSPENDIDO', 'SUSPENDIDO', 1, 0, 1, 0, 0, 0, 'SUS')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 17, 'VALE', 'VALE', 20, 1, 1, 1, 50, 0, 'VAL')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 18, 'CHOCOLATE D''ORO', 'CHOCOLATE D''ORO', 3, 1, 1, 0, 0, 0, 'D''ORO')
# By number 701; 7.01 is a part of another code.
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo) VALUES ('01', 19, 'PIE', 'PIE', 5, 1, 1, 0, 0, 0, '0.701')
