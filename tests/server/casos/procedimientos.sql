# Each "## name" begins on an empty central database; a moment of just now reads as <ahora>. A statement a line; behind
# it, indented, its answer: cells by |, rows by /. Without an answer it must run; (nada) is no row.

## each closing has a head of its own
exec spr_insertar_cabecera_z1 '00001', -1
  1
exec SPR_Insertar_Cabecera_Z1 '00002', -2
  2
SELECT idZ1, cCajaCodi, nidEstado, dFecha FROM TCABECERAZ1 ORDER BY 1
  1|00001|-1|<ahora>/2|00002|-2|<ahora>

## a closing that is begun again drops what it left
exec spr_insertar_cabecera_z1 '00001', -1
  1
exec spr_insertar_cabecera_z1 '00002', -1
  2
exec spr_insertar_cabecera_z1 '00001', -2
  3
INSERT INTO TDETALLEZ1 (nidZ1) VALUES (1), (1), (2), (3)
exec spr_insertar_cabecera_z1 '00001', -1
  4
SELECT idZ1, cCajaCodi, nidEstado FROM TCABECERAZ1 ORDER BY 1
  2|00002|-1/3|00001|-2/4|00001|-1
SELECT nidZ1 FROM TDETALLEZ1 ORDER BY 1
  2/3

## detail is grouped and averaged
INSERT INTO TDETALLEZ1 (nidZ1, cCajaCodi, dOperFech, cAlmaCode, cdocTipo, cProdCode, nProdCant, nMonto) VALUES (1,'00001','2026-11-24 10:00:00','01','02','000101',2,20), (1,'00001','2026-11-24 11:00:00','01','02','000101',1,13)
INSERT INTO TDETALLEZ1 (nidZ1, cCajaCodi, dOperFech, cAlmaCode, cdocTipo, cProdCode, nProdCant, nMonto) VALUES (1,'00001','2026-11-24 11:00:00','01','01','000101',1,12), (1,'00001','2026-11-24 11:00:00','01',NULL,'000102',1,5)
INSERT INTO TDETALLEZ1 (nidZ1, cCajaCodi, dOperFech, cAlmaCode, cdocTipo, cProdCode, nProdCant, nMonto) VALUES (1,'00001','2026-11-24 12:00:00','01',NULL,'000102',-1,-5), (2,'00001','2026-11-24 10:00:00','01','02','000101',9,9)
exec spr_promediar_montos_z1 1
  (nada)
SELECT DISTINCT cProdCode, nPrecioProm FROM TDETALLEZ1 WHERE nidZ1 = 1 ORDER BY 1
  000101|11.25/000102|Null
exec spr_agrupar_z1 1
  (nada)
SELECT nidZ1, cdocTipo, cProdCode, nProdCant, nMonto FROM TDETALLEZ1 ORDER BY 1, 3, 2
  1|01|000101|1|12/1|02|000101|3|33/1|Null|000102|0|0/2|02|000101|9|9

## cleaning takes one day of one till
INSERT INTO Operacion (cOperID, cCajaCodi, dOperFech) VALUES (1,'00001','2026-11-23 23:59:59'), (2,'00001','2026-11-24 00:00:00'), (3,'00001','2026-11-24 23:59:59'), (4,'00001','2026-11-25 00:00:00')
INSERT INTO Operacion (cOperID, cCajaCodi, dOperFech) VALUES (1,'00002','2026-11-24 10:00:00')
INSERT INTO OperacionParalela (cOperCode, cCajaCodi, dOperFech) VALUES (7,'00001','2026-11-24 10:00:00'), (8,'00001','2026-11-25 10:00:00'), (7,'00002','2026-11-24 10:00:00')
INSERT INTO OperacionParalelaProducto (cOperCode, cCajaCodi) VALUES (7,'00001'), (8,'00001'), (7,'00002')
exec spr_limpiar_caja_dia '00001', '31/31/2026'
  error: «31/31/2026» no es una fecha.
exec spr_limpiar_caja_dia '00001', '24/11/2026'
  (nada)
SELECT cCajaCodi, cOperID FROM Operacion ORDER BY 1, 2
  00001|1/00001|4/00002|1
SELECT cCajaCodi, cOperCode FROM OperacionParalela ORDER BY 1, 2
  00001|8/00002|7
SELECT cCajaCodi, cOperCode FROM OperacionParalelaProducto ORDER BY 1, 2
  00001|8/00002|7

## the accounts list what is open
# Two facturas in soles, one of them half paid, a third in dollars that is paid in its own currency, a fourth voided.
INSERT INTO TipoCredito VALUES ('01','30 DIAS')
INSERT INTO Venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, cCodCaja, cClienteCode, IdLocal, DscCliente, TotVta, TotVtaUSD, cCodMoneda, cCodTipoCredito, fechaemision, FechaAnulacion, bLiquidado) VALUES (1,'01','001','000001','00001','00000005',1,'ANA',100,33.33,'N','01','2026-11-20 00:00:00',NULL,1)
INSERT INTO Venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, cCodCaja, cClienteCode, IdLocal, DscCliente, TotVta, TotVtaUSD, cCodMoneda, cCodTipoCredito, fechaemision, FechaAnulacion, bLiquidado) VALUES (2,'01','001','000002','00001','00000005',1,'ANA',60,20,'N','01','2026-11-21 00:00:00',NULL,0)
INSERT INTO Venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, cCodCaja, cClienteCode, IdLocal, DscCliente, TotVta, TotVtaUSD, cCodMoneda, cCodTipoCredito, fechaemision, FechaAnulacion, bLiquidado) VALUES (3,'01','001','000003','00001','00000006',2,'LUZ',301,100,'E','01','2026-11-22 00:00:00',NULL,0)
INSERT INTO Venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, cCodCaja, cClienteCode, IdLocal, DscCliente, TotVta, TotVtaUSD, cCodMoneda, cCodTipoCredito, fechaemision, FechaAnulacion, bLiquidado) VALUES (4,'01','001','000004','00001','00000005',1,'ANA',10,3,'N','01','2026-11-22 00:00:00','2026-11-23 00:00:00',0)
INSERT INTO Pagos (TipoDoc, cSerieDoc, NroDoc, Monto, Moneda, nTipoCambio, FechaAnulacion) VALUES ('01','001','000001',40,'N',3,NULL), ('01','001','000001',60,'N',3,'2026-11-23 00:00:00'), ('01','001','000003',100,'E',3,NULL)
exec usp_sel_ListadoDocumentosPendientesPago '01'
  01|001|000001|<2026-11-20 00:00:00>|SUR|ANA|00000005|1|SOLES|100|33.33|60|20/01|001|000002|<2026-11-21 00:00:00>|SUR|ANA|00000005|1|SOLES|60|20|60|20
exec usp_sel_ListadoDocumentosPendientesNC '01'
  2|00001|01|001|000002|00000005|1|SUR|ANA|Null|60|20|N|30 DIAS|<2026-11-21 00:00:00>/3|00001|01|001|000003|00000006|2|NORTE|LUZ|Null|301|100|E|30 DIAS|<2026-11-22 00:00:00>
exec usp_sel_CtaCtexCliente 6, 2
  3|01|FACTURA|001|000003|<2026-11-22 00:00:00>|DOLARES|301|100|1|0

## stock is the last count less what was sold since
INSERT INTO Articulo (cCodartic, vDscartic, cUndSalida, bSwActivo) VALUES ('000101','CAFE','UND',1), ('000102','TORTA','UND',1), ('000103','FUERA','UND',0)
INSERT INTO SaldoArticulo VALUES ('01','000101','2026-11-01 00:00:00',90), ('01','000101','2026-11-20 00:00:00',50)
INSERT INTO Operacion (cOperID, cCajaCodi, dOperFech, cAlmaCode, cDocTipo, cDocSerie, cProdCode, nProdCant, nProdPrecUnit, cOperFlagAnula) VALUES (1,'00001','2026-11-24 09:00:00','01','02','001','000101',3,2,0), (2,'00001','2026-11-24 10:00:00','01','02','001','000101',4,2,0)
INSERT INTO Operacion (cOperID, cCajaCodi, dOperFech, cAlmaCode, cDocTipo, cDocSerie, cProdCode, nProdCant, nProdPrecUnit, cOperFlagAnula) VALUES (3,'00001','2026-11-24 10:00:00','01','02','001','000101',9,2,1), (4,'00001','2026-11-24 10:00:00','01','02','001','0',1,0,0)
INSERT INTO Operacion (cOperID, cCajaCodi, dOperFech, cAlmaCode, cDocTipo, cDocSerie, cProdCode, nProdCant, nProdPrecUnit, cOperFlagAnula) VALUES (5,'00001','2026-11-25 10:00:00','01','02','001','000101',8,2,0)
exec zankebmovivnta_reprocesa '24/11/2026'
  (nada)
exec zankebmovivnta_reprocesa '24/11/2026'
  (nada)
SELECT * FROM ZANKEBMOVIVNTA
  <2026-11-24 00:00:00>|00001|01|02|001|000101|7|14
exec usp_Log_Saldos '20261024', '20261124', '*', '', 0, 0, '01'
  CAFE|UND|000101|50|7/TORTA|UND|000102|0|0
exec usp_Log_Saldos '20261024', '20261115', '*', '', 0, 0, '01'
  CAFE|UND|000101|90|0/TORTA|UND|000102|0|0
exec usp_Log_Saldos '20261024', 'x', '*', '', 0, 0, '01'
  error: «x» no es una fecha.

## the rest and wrong calls
exec sp_send_cdosysmail 'a', 'b;c', 'Error', 'Detalle'
  (nada)
SELECT * FROM CorreoSalida
  <ahora>|a|b;c|Error|Detalle
exec spr_inserta_sincronizacion '00001'
  (nada)
SELECT * FROM SincronizacionCaja
  00001|<ahora>
exec spr_agrupar_z1
  error: El procedimiento spr_agrupar_z1 lleva 1 argumentos y recibió 0.
# No rate, no answer.
SELECT dbo.fnRetornarIGV()
  Null
INSERT INTO parametro (cCodParam, nmonto1) VALUES ('IGV', 18)
SELECT dbo.fnRetornarIGV()
  0.18

## blanks at the end and case of a text do not count
INSERT INTO Venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, cClienteCode, IdLocal, DscCliente, TotVta, TotVtaUSD, cCodMoneda, cCodTipoCredito) VALUES (1,'0a','F1','000001','5',1,'ANA',100,33,'n','x')
INSERT INTO Pagos (TipoDoc, cSerieDoc, NroDoc, Monto, Moneda, nTipoCambio) VALUES ('0A','f1 ','000001 ',10,'e ',3), ('0a ','F1','000001',3,'N',3)
INSERT INTO TipoCredito VALUES ('X ','30 DIAS')
exec usp_sel_ListadoDocumentosPendientesPago '0A  '
  0a|F1|000001|Null|SUR|ANA|5|1|SOLES|100|33|67|22
exec usp_sel_ListadoDocumentosPendientesNC '0A '
  1|Null|0a|F1|000001|5|1|SUR|ANA|Null|100|33|n|30 DIAS|Null
