INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('24/11/2026', '3.00')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta) VALUES ('01', 101, 'CAFE', 'CAFE')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta) VALUES ('01', 102, 'TORTA', 'TORTA')
# A boleta paid with 50.00
INSERT INTO Operacion (cOperCode, cProdCode, nProdCant, nProdPrecUnit, nMontoSoles, cOperTipo, cDocTipo, cDocSerie, cDocCodigo, cAlmaCode, cCajaCodi, cTurnoCodi, dOperFech) VALUES (1, 101, 1, 19, 0, 1, '02', '001', 1, '01', '00001', '01', '24/11/2026 10:00')
INSERT INTO Operacion (cOperCode, cProdCode, nProdCant, nProdPrecUnit, nMontoSoles, cOperTipo, cDocTipo, cDocSerie, cDocCodigo, cAlmaCode, cCajaCodi, cTurnoCodi, dOperFech) VALUES (1, 102, 2, 11.25, 0, 1, '02', '001', 1, '01', '00001', '01', '24/11/2026 10:00')
INSERT INTO Operacion (cOperCode, cProdCode, nProdCant, nProdPrecUnit, nMontoSoles, cOperTipo, cDocTipo, cDocSerie, cDocCodigo, cAlmaCode, cCajaCodi, cTurnoCodi, dOperFech) VALUES (1, 0, 1, -8.5, 50, 1, '02', '001', 1, '01', '00001', '01', '24/11/2026 10:00')
# An order
INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado, cDocTipo, cTurnoCodi, cCajaCodi, dOperFech) VALUES (1, 20, '1', '10', '01', '00001', '24/11/2026 10:00')
INSERT INTO OperacionParalelaProducto (cOperCode, cProdCode, nProdCant, nProdPrecUnit, cAlmaCode) VALUES (1, 101, 3, 19, '01')
