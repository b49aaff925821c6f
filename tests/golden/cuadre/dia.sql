UPDATE Configuracion SET nImporApertSol = 100, nImporApertDol = 50
# A boleta of 38.00 paid with 50, and one paid with 30 dollars of which 5 and 3.50 soles went back.
INSERT INTO Operacion (cProdCode, nProdCant, nProdPrecUnit, cOperTipo, cDocTipo, cAlmaCode) VALUES (101, 2, 19, 1, '02', '01')
INSERT INTO Operacion (cProdCode, nProdCant, nProdPrecUnit, nMontoSoles, cOperTipo, cDocTipo) VALUES (0, 1, -12, 50, 1, '02')
INSERT INTO Operacion (cProdCode, nProdCant, nProdPrecUnit, nMontoDolares, nVueltoDolares, cOperTipo, cDocTipo) VALUES (0, 1, -3.5, 30, 5, 1, '02')
# By card: 200 less a tenth, 60 of it in cash.
INSERT INTO Operacion (cProdCode, nProdCant, nProdPrecUnit, nDscto, cOperTipo, cDocTipo, cEmisor, cAlmaCode) VALUES (102, 1, 200, -10, 2, '01', ',01', '01')
INSERT INTO Operacion (cProdCode, nProdCant, nMontoSoles, cOperTipo, cDocTipo, cEmisor) VALUES (0, 1, 60, 1, '01', ',01')
# A withdrawal, a sale against a liquidation, cash of an O/C, the card part of a liquidation.
INSERT INTO Operacion (nProdCant, nProdPrecUnit, cOperTipo) VALUES (1, 25.4, 5)
INSERT INTO Operacion (cProdCode, nProdCant, nMontoSoles, cOperTipo, cDocTipo) VALUES (0, 1, 10, 3, '02')
INSERT INTO Operacion (cProdCode, nProdCant, nMontoSoles, cOperTipo, cDocTipo) VALUES (0, 1, 15, 1, '10')
INSERT INTO Operacion (cProdCode, nProdCant, nMontoSoles, cOperTipo, cDocTipo) VALUES (0, 1, 40, 2, '14')
# Voided, and of a closed day: neither counts.
INSERT INTO Operacion (cProdCode, nProdCant, nMontoSoles, nMontoDolares, cOperTipo, cDocTipo, cOperFlagAnula) VALUES (0, 1, 900, 900, 1, '02', 1)
INSERT INTO Operacion (cProdCode, nProdCant, nMontoSoles, nMontoDolares, cOperTipo, cDocTipo, cOperFlagAbierto) VALUES (0, 1, 900, 900, 1, '02', 0)
# PADE active and liquidated in dollars; PADV active and liquidated in soles; one voided.
INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado, nMoneda, nEfectivoSoles) VALUES (1, 22, '1', 1, 70)
INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado, nMoneda, nEfectivoSoles, nEfectivoDolares) VALUES (2, 22, '2', 2, 999, 20)
INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado, nMoneda, nEfectivoSoles, nEfectivoDolares) VALUES (3, 23, '1', 1, 80, 5)
INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado, nMoneda, nEfectivoSoles, nEfectivoDolares) VALUES (4, 23, '2', 1, 30, 888)
INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado, nEfectivoSoles, cOperCodeAnul) VALUES (5, 22, '1', 700, 9)
# An order and a consumption note of article 101.
INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado) VALUES (6, 20, '1')
INSERT INTO OperacionParalelaProducto (cOperCode, cProdCode, nProdCant, cAlmaCode) VALUES (6, 101, 1203, '01')
INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES (1, 'LA FINCA')
INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES (2, ' ')
INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES (3, 'RUC 20100000001')
# Articles; the same code of another warehouse stays out.
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc) VALUES ('01', 101, 'CAFE')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc) VALUES ('01', 102, 'ACEITE')
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc) VALUES ('02', 101, 'CAFE AJENO')
