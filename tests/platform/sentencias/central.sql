select nmonto1 from parametro where cCodParam='IGV'
 SELECT cCodAlmac, vDscAlmac FROM Almacen where cCodAlmac='01'
select isnull(max(cast(NroDoc as int)),0) as maximo from venta01  WHERE cCodCaja='00012' AND TipoDoc in ('01','02')
select CDocSerie, MAX(cDoccodigo) as nDoccodigo From operacion where cCajaCodi='00012' and ltrim(rtrim(isnull(CDocSerie,''))) <> '' group by CDocSerie
SELECT MAX(cOperCode) as ncOperCode From operacion where cCajaCodi='00012' and CDocSerie = '012'
SELECT idlocal,dsclocal FROM local
select cCodTipoCredito,vDscTipoCredito from TipoCredito
select cCodTipoPago,vDscTipoPago from tipoformapago order by vDscTipoPago
SELECT isnull(max(CAST(cCodVta AS INT)),0) as maximo FROM venta01
INSERT INTO venta01 (cCodVta,TipoDoc,cSerieDoc,NroDoc,cCodCaja,cClienteCode,IdLocal,DscCliente,NroRuc,ValorVta,Igv,Serv,TotVta,nPorcIGV,TotVtaUSD,cCodMoneda,nTipoCambio,cCodTipoCredito,fechaemision,FechaAnulacion,FechaVencimiento,cCodCabVtaRef,bTieneDetraccion) VALUES (900,'01','012','000033','00012','00000005',1,'Ñahui','20123456789',100,18,0,118,0.18,33.7,'N',3.5,'01','20261124',null,null,null,0)
select cSerieDocPago,NroDocPago,fechapago,FormaPagoDsc=(select vDscTipoPago from tipoformapago where cCodTipoPago=P.FormaPago), DocFormaPago= Case FormaPago when '02' then (select descrip from tipo_tarjeta where cod_tar=P.IdTarjeta) when '03' then P.NroCertificadoRetencion when '04' then(select vDscBanco from banco where cCodBanco= P.IdBanco) Else '' end, monto, moneda= Case moneda when 'N' then 'Soles' Else 'Dolares' End, P.IdTarjeta,P.IdBanco,P.NroCtaBancaria,P.NroOperacion,P.NroCertificadoRetencion,P.NroDepositoDetraccion,P.cClieCode,p.idLocal from pagos P Where P.TipoDoc='01' and P.cSerieDoc='012' and P.NroDoc='000033' and P.FechaAnulacion is null order by P.NroItem 
select MontoDetracc from detraccion where SerieDoc='012' and NroDoc='000033' and estado='P' 
select nroitem,cCodArtic,sProdDscCrta,nPrecioOrig,nQtdVendida,nDescuento,nServicio from venta02 where ccodvta='900' order by nroitem
Select cCodVta,v.TipoDoc, v.cSerieDoc,v.NroDoc,v.FechaEmision,Local=case v.IdLocal when 1 then 'SUR' when 2 then 'NORTE' end, v.DscCliente,v.cClienteCode,v.IdLocal, Moneda= Case v.cCodMoneda when 'N' then 'SOLES' when 'E' then 'DOLARES' end, v.TotVta,v.TotVtaUSD from venta01 v where v.TipoDoc='01'  and  v.fechaanulacion is null and v.bLiquidado=0 
SELECT v.cClienteCode,v.IdLocal,v.DscCliente,'Local'=case when IdLocal =1 then 'Sur' when IdLocal =2 then 'Norte' end,'Tot.Ventas'=sum(v.TotVta),'Tot.Pagos'=cast(isnull((select sum(case p.moneda when 'N' then p.monto when 'E' then p.monto*p.ntipocambio end)  from pagos p Where p.cClieCode =v.cClienteCode and p.IdLocal=v.IdLocal),0) as numeric(13,2)),'Tot.Deuda'=sum(v.TotVta)-isnull((select sum(case p.moneda when 'N' then p.monto when 'E' then p.monto*p.ntipocambio end)  from pagos p Where p.cClieCode =v.cClienteCode and p.IdLocal=v.IdLocal),0) FROM venta01 v  WHERE FechaAnulacion is null  group by v.cClienteCode,v.IdLocal,v.DscCliente ORDER BY v.DscCliente 
SELECT v.cSerieDoc,v.NroDoc,v.cClienteCode,v.IdLocal,'Vta Soles'=v.TotVta,'Vta USD'=v.TotVtaUSD,Moneda=case v.cCodMoneda when 'N' then 'Soles' when 'E' then 'Dolares' end, Credito=(select vDscTipoCredito from tipocredito where ccodtipocredito=v.cCodTipoCredito),'Fec Emision'=v.fechaemision, 'Pag Sol'=cast(isnull((select sum(case p.moneda when 'N' then p.monto when 'E' then p.monto*p.ntipocambio end) from pagos p where p.cSerieDoc=v.cSerieDoc and p.NroDoc=v.NroDoc and p.fechaanulacion is null),0) as numeric(13,2)), Estado=case when v.TotVta-round(0.004,2)=0 then 'Cancelado' else 'Pendiente' end FROM venta01 v WHERE FechaAnulacion is null ORDER BY fechaemision 
SELECT cSerieDoc,NroDoc,cSerieDocPago,NroDocPago,'Fec Pago'=FechaPago,'Forma Pago'=(select vDscTipoPago from tipoformapago  where cCodTipoPago=pagos.FormaPago), Moneda=case Moneda when 'N' then 'Soles' else 'Dolares' end,  'Pag Sol'=cast(case Moneda when 'N' then Monto   else Monto*nTipoCambio  end as numeric(13,2)) , 'Pag USD'=cast(case Moneda when 'E' then Monto   else Monto/nTipoCambio  end as numeric(13,2))  from pagos where fechaanulacion is null order by fechapago 
select v.DscCliente as Cliente, 'Local'=case v.idLocal when 1 then 'Sur' when 2 then 'Norte' end,Moneda=case v.cCodMoneda  when 'N' then 'Soles' when 'E' then 'Dolares' end, v.TotVta,v.TotVtaUSD,v.FechaEmision, TotalPagos=round(isnull((select sum(case p.moneda when 'N' then p.monto when 'E' then p.monto*p.ntipocambio end)from pagos p Where p.cSerieDoc = v.cSerieDoc and p.nrodoc=v.NroDoc and p.TipoDoc=v.TipoDoc and p.fechaanulacion is null),0),2) from venta01  v Where v.fechaanulacion Is Null and cSerieDoc='012' and CONVERT(INT,NroDoc)=33 and TipoDoc = '01' 
select cSerieDoc,NroDoc,'Forma Pago'=(select vDscTipoPago from tipoformapago where cCodTipoPago=pagos.FormaPago), FechaPago as Fecha,Monto,Moneda=case Moneda  when 'N' then 'Soles' when 'E' then 'Dolares' end From pagos where fechaanulacion Is Null and cSerieDocPago='PA1'  and CONVERT(INT,NroDocPago)= 33 
SELECT COUNT(1) TOTAL FROM venta01 WHERE FechaAnulacion IS NOT NULL AND cSerieDoc='012' AND CONVERT(INT,NroDoc)=33 AND TipoDoc='01' 
UPDATE venta01 SET FechaAnulacion = getdate() WHERE cSerieDoc='012' AND CONVERT(INT,NroDoc)=33 AND TipoDoc='01' 
UPDATE pagos SET FechaAnulacion = getdate() WHERE cSerieDocPago='PA1' AND CONVERT(INT,NroDocPago)=33
 UPDATE TCABECERAZ1 SET nidEstado = 0 WHERE nidEstado = -1 AND cCajaCodi = '00012'
SELECT TipoDoc, sum(igv)  AS SumaIgv FROM VENTA01 WHERE cSerieDoc ='B12' or  cSerieDoc ='F12'  GROUP BY TipoDoc
exec dbo.spr_insertar_cabecera_z1 '00012', -1
INSERT INTO TDETALLEZ1(nidZ1,cCajaCodi,dOperFech,cAlmaCode,cdocTipo,cProdCode,nProdCant,nMonto) VALUES(7,'00012',CONVERT(DATETIME,'24/11/2026',103),'01','02','12',2,11)
select count(NroDoc)-1 as cantidad from (select distinct cDocCodigo as NroDoc from operacion where  cDocSerie ='012' and year(doperfech)=2026 and month(doperfech)=11 and day(doperfech)=24 Union select NroDoc from venta01 where cSerieDoc='012' and year(fechaemision)=2026 and month(fechaemision)=11 and day(fechaemision)=24) o 
select cast(min(NroDoc)as int)as nromin from (select distinct cDocCodigo as NroDoc from operacion where  cDocSerie ='012' Union select NroDoc from venta01 where cSerieDoc='012') o 
INSERT INTO MsgErrorRegistroVentas VALUES ('20261124','Error Comparativo RegVta Correlativos SQL - Caja: Caja 12','Error en correlativo SQL Tipo Doc: 012')
SELECT SUM(NPRODCANT) as SumaDeProdCant FROM OPERACION WHERE YEAR(DOPERFECH)=2026 AND MONTH(DOPERFECH)=11 AND DAY(DOPERFECH)=24 AND COPERFLAGANULA=0 AND CDOCSERIE IN ('012','F01')
SELECT count (CPRODCODE) as CuentaDeProdCode FROM OPERACION WHERE YEAR(DOPERFECH)=2026
select cDocSerie as SerieDoc, count(cDocCodigo) as CantNroDoc,ValVta = Sum(Round(Abs(nProdCant) * nProdPrecUnit / (1 + dbo.fnRetornarIGV()), 2)) From operacion Where cDocSerie in ('012','F01') and year(dOperFech)=2026 and month(dOperFech)=11 and day(dOperFech)=24 and   case cOperFlagAnula when 0 then 'N' when 1 then 'S' end='N' group by cDocSerie 
select vdscalmac  from almacen where ccodalmac='01'
SELECT COUNT(1) AS EXISTE FROM PAGOS WHERE FechaAnulacion is not null and cSerieDocPago='PA1' AND convert(int,NroDocPago)=33
 SELECT cUndmedid, vDscundmd, vDscCrta FROM UnidadMedida WHERE dFechModi > CONVERT(DATETIME, '20261120',112) AND dFechCrea <= CONVERT(DATETIME, '20261120',112)
SELECT * FROM Cliente where dFechCrea > CONVERT(DATETIME, '20261120',112)
 SELECT A.cCodartic, A.vDscartic, A.cCodCatal, A.vDscartCt, A.bSwActivo, A.bswensamb, A.bswCtrlStck, P.vRazSocPrv, cFlagCanje, nPtosxItem, nFlagServ, cUndSalida, Linea = (SELECT L.vDscLinea FROM LINEA L WHERE L.CCODLINEA = A.CCODLINEA), nCostoArt = ISNULL((SELECT nPrecioVtaNew FROM ArticuloPrecioVenta B WHERE B.cCodArtic = A.cCodArtic AND nNumItem =  (SELECT MAX(nNumItem) FROM ArticuloPrecioVenta C WHERE C.cCodArtic = B.cCodArtic)),0),bFlagDetracc  FROM Articulo A LEFT JOIN Proveedor P ON A.cCodProve = P.cCodProve WHERE 1=1    AND bFlagVenta = 1   AND NOT bFlagDesc = 1 AND  ((convert(datetime,convert(varchar,A.dFechCrea,103),103) >= convert(datetime,CONVERT(varchar, '20261120',103),103)) or  (convert(datetime,convert(varchar,A.dFechModi,103),103) >= convert(datetime,CONVERT(varchar, '20261120',103),103))) 
 SELECT cCodArtic   FROM Articulo   WHERE bFlagVenta = 0    OR bFlagDesc = 1
SELECT  Count(*) as nroreg   FROM  Cuentacte  WHERE  cSerieDoc = '012'   AND  cNroDoc  = '000033'   AND  cCodCaja = '00012' 
SELECT ISNULL(MAX(cOperId),0) + 1 cOperId FROM operacion WHERE cCajaCodi='00012'
 INSERT INTO Operacion (cOperID, cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, dOperFech, cOperTipo, cOperFlagAnula, cOperCodeAnula, cOperFlagAbierto, nMontoDolares, cCajacodi, cFlagSincronizacion, cTurnoCodi, nDscto, nServicio, cCodiCLie, vDescClie, cDocCodigo, cdocserie, cdoctipo, cruc, iTipoCliente, idlocal) VALUES (1,45,'ana','','01','000012',2,5.5,CONVERT(DATETIME,'2026-11-24 17:05:00',120),1,0,0,0,0,'00012','0','01',0,10,'0','Público en General','000033','012','02','',0,1)
DELETE FROM operacionparalelaproducto WHERE cOperCOde = 9 AND cCajaCodi='00012'
Select * from CabeceraZ where IdZ=7 and caja='00012'
UPDATE CabeceraZ SET obs='Ya existe registro' WHERE IdZ=7
SELECT FECHA = GETDATE()
exec dbo.spr_promediar_montos_z1 1
dbo.spr_limpiar_caja_dia '00012','24/11/2026'
dbo.ZANKEBMOVIVNTA_REPROCESA '24/11/2026'
usp_sel_ListadoDocumentosPendientesPago '01'
usp_sel_ListadoDocumentosPendientesNC '02'
usp_sel_CtaCtexCliente 5, 1
 usp_Log_Saldos '20261024',                '20261124',                '*',                '',                0,               0,                '01'
exec sp_send_cdosysmail 'caja@local','uno@local;dos@local','Error','Detalle'
select cCodBanco,vDscBanco from banco order by vDscBanco
select isnull(max(cast(NroDoc as int)),0) as maximo from venta01 WHERE TipoDoc = '02'
select nmonto1 from parametro where cCodParam='DETRS'
select nmonto1 from parametro where cCodParam='DETRP'
select vtexto1 from parametro where cCodParam='CTABN'
SELECT COUNT(1) TOTAL FROM pagos WHERE FechaAnulacion IS NULL AND cSerieDocPago='PA1' AND CONVERT(INT,NroDocPago)=33
select cast(max(NroDoc)as int)as nromax from (select distinct cDocCodigo as NroDoc from operacion where  cDocSerie ='012' and year(doperfech)=2026 and month(doperfech)=11 and day(doperfech)=24 Union select NroDoc from venta01 where cSerieDoc='012' and year(fechaemision)=2026 and month(fechaemision)=11 and day(fechaemision)=24) o 
 SELECT * FROM Cliente WHERE dFechModi > CONVERT(DATETIME, '20261120',112) and dFechCrea <= CONVERT(DATETIME, '20261120',112)
SELECT * FROM Tarjeta
 SELECT * FROM Tarjeta WHERE dFechModi > CONVERT(DATETIME, '20261120',112) and dFechCrea <= CONVERT(DATETIME, '20261120',112)
 SELECT cCodArtic   FROM Articulo   WHERE cCodArtic = '000012'
 SELECT cCodArtic, cCodCatal, vDscartic,  vDscartCt   FROM Articulo   WHERE cCodArtic = '000012'    AND bFlagVenta = 1    AND NOT bFlagDesc = 1
dbo.spr_agrupar_z1 1
dbo.spr_inserta_sincronizacion '00012'
dbo.spr_promediar_montos_z1 1
exec dbo.spr_insertar_cabecera_z1 '00012', -2
INSERT INTO TDETALLEZ1(nidZ1,cCajaCodi,dOperFech,cAlmaCode,cdocTipo,cProdCode,nProdCant) VALUES(7,'00012',CONVERT(DATETIME,'24/11/2026',103),'01','02','12',2)
 INSERT INTO OperacionParalela (cCajaCodi, cOpercode , cOperTipo, dOperFech, nTarjNumb, nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles, nEfectivoDolares, nVueltoSoles, nVueltoDolares, sGlosa, cEstado, cTurnoCodi, cUserDesc, cFlagSincronizacion, cOperCodeRela, cOperCodeAnul, cOperFlagAbierto, cDocSerie, cDocCodigo, cDocTipo, cCodiCLie, vDescClie, iTipoCliente) VALUES ('00012',9,20,CONVERT(DATETIME,'2026-11-24 17:05:00',120),'00001234',0,118.5,33.86,120,0,1.5,0,'x','1','01','ana','1',0,0,0,'OC1','0000007','10','5','Ñahui Ana',1)
 INSERT INTO OperacionParalelaProducto (cCajaCodi, cOpercode , cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio, nItem, cSupervisor) VALUES ('00012',9,'01','000012',2,5.5,-10,10,1,'jefe')
INSERT INTO CabeceraZ(IdZ,Caja,CantidadTotal,MontoTotal,Fecha,RangoTKBOL,RangoTKFAC,CodigoRep,cOperIdIni,cOperIdFin,cOperIdPIni,cOperIdPFin) VALUES (99,'00012',12,118.5,'2026-11-24','a','b','Código Rep. Z1: 000007',1,12,1,5)
INSERT INTO DetalleZ(IdZ,Caja,nItem,CodProd,DscProd,Cantidad) VALUES (99,'00012',1,12,'Lomo',2)
SELECT g.cClienteCode, g.IdLocal, v.DscCliente FROM (SELECT x.cClienteCode, x.IdLocal, MAX(x.cCodVta) AS Ultima FROM venta01 x WHERE x.FechaAnulacion IS NULL GROUP BY x.cClienteCode, x.IdLocal) g INNER JOIN venta01 v ON v.cCodVta = g.Ultima
SELECT v.cClienteCode, v.IdLocal, SUM(v.TotVta) FROM venta01 v WHERE v.cClienteCode IN ('00000001', '00000002') AND v.FechaAnulacion IS NULL GROUP BY v.cClienteCode, v.IdLocal
SELECT p.cClieCode, p.idLocal, SUM(CASE p.Moneda WHEN 'E' THEN p.Monto * p.nTipoCambio ELSE p.Monto END) FROM Pagos p WHERE p.cClieCode IN (1, 40000) AND p.FechaAnulacion IS NULL GROUP BY p.cClieCode, p.idLocal
SELECT p.idpago, p.cSerieDocPago, (SELECT vDscTipoPago FROM tipoformapago t WHERE t.cCodTipoPago = p.FormaPago) AS Forma FROM Pagos p WHERE p.cSerieDocPago='PA1' AND CONVERT(INT,p.NroDocPago)=33
UPDATE Venta01 SET bLiquidado = bLiquidado / (CASE WHEN FechaAnulacion IS NULL AND bLiquidado = 0 AND (SELECT COUNT(*) FROM Pagos x WHERE x.TipoDoc = '01' AND x.cSerieDoc = '012' AND x.NroDoc = '000033' AND x.FechaAnulacion IS NULL) = 0 THEN 1 ELSE 0 END), FechaAnulacion = getdate() WHERE cCodVta = 987
UPDATE Pagos SET NroItem = NroItem / (CASE WHEN FechaAnulacion IS NULL AND (SELECT MAX(x.bLiquidado) FROM Venta01 x WHERE x.TipoDoc = '01' AND x.cSerieDoc = '012' AND x.NroDoc = '000033') = 0 THEN 1 ELSE 0 END), FechaAnulacion = getdate() WHERE idpago = 987
SELECT idZ1 FROM TCABECERAZ1 WHERE nidEstado = -1 AND cCajaCodi = '00001'
SELECT MAX(dOperFech) AS dUltima FROM Operacion WHERE cCajaCodi='00001'
SELECT dOperFech, cOperCode, cDocTipo, cDocSerie, cDocCodigo, cOperTipo, nMontoSoles, nMontoDolares FROM OperacionParalela WHERE cCajaCodi = '00001' AND dOperFech >= CONVERT(DATETIME,'2026-11-20 09:02:00',120) AND dOperFech <= CONVERT(DATETIME,'2026-11-20 09:03:00',120)
 INSERT INTO Operacion (cOperID, cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, dOperFech, cOperTipo, cOperFlagAnula, cOperCodeAnula, cOperFlagAbierto, nMontoDolares, cCajacodi, cFlagSincronizacion, cTurnoCodi, nDscto, nServicio, cCodiCLie, vDescClie, cDocCodigo, cdocserie, cdoctipo, cruc, iTipoCliente, idlocal) VALUES (1, 1, '', '', '01', '000101', 2, 38, CONVERT(DATETIME,'2026-11-20 09:01:00',120), 1, 0, 0, 0, 0, '00001', '0', '', 0, 0, '0', 'Público en General', '000001', '001', '02', '', 0, Null)
INSERT INTO TDETALLEZ1(nidZ1,cCajaCodi,dOperFech,cAlmaCode,cdocTipo,cProdCode,nProdCant,nMonto) VALUES (1,'00001',CONVERT(DATETIME,'2026-11-20 09:01:00',120),'01','02','000101',2,76)
 INSERT INTO OperacionParalela (cCajaCodi, cOpercode , cOperTipo, dOperFech, nTarjNumb, nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles, nVueltoSoles, sGlosa, cEstado, cFlagSincronizacion, cTurnoCodi, cUserDesc, cOperCodeRela, cOperCodeAnul, cCodiCLie, vDescClie, iTipocliente, cdoccodigo, cdocserie, cdoctipo) VALUES ('00001', 1, 20, CONVERT(DATETIME,'2026-11-20 09:02:00',120), '', 0, 38, 0, 0, 0, '', '1', '0', '', '', 0, 0, '0', 'Público en General', 0, '000001', 'OC1', '10')
DELETE FROM operacionparalelaproducto WHERE cOperCOde IN (1) AND cCajaCodi = '00001'
 INSERT INTO OperacionParalelaProducto (cCajaCodi, cOpercode , cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio, nitem, cSupervisor) VALUES ('00001', 1, '01', '000101', 1, 38, 0, 0, 0, '')
INSERT INTO CabeceraZ(IdZ,Caja,CantidadTotal,MontoTotal,Fecha,RangoTKBOL,RangoTKFAC,CodigoRep,cOperIdIni,cOperIdFin,cOperIdPIni,cOperIdPFin) VALUES (1,'00001',4,117,CONVERT(DATETIME,'2026-11-20 00:00:00',120),'TICKET','TICKET','Código',0,1,0,2)
INSERT INTO DetalleZ(IdZ,Caja,nItem,CodProd,DscProd,Cantidad) VALUES (1,'00001',1,101,'QUESO D''AMBO',3)
INSERT INTO Cuentacte (cSerieDoc, cNroDoc, cCodCaja, cTipoDoc, dFecha, nMonto) SELECT o.cDocSerie, o.cDocCodigo, o.cCajaCodi, o.cDocTipo, MIN(o.dOperFech), SUM(o.nProdCant * o.nProdPrecUnit * (1 + o.nDscto / 100)) FROM Operacion o WHERE o.cCajaCodi = '00001' AND o.cDocTipo IN ('01','02') AND o.dOperFech >= CONVERT(DATETIME,'2026-11-20 09:01:00',120) AND o.dOperFech <= CONVERT(DATETIME,'2026-11-20 09:01:00',120) AND NOT EXISTS (SELECT 1 FROM Cuentacte c WHERE c.cSerieDoc = o.cDocSerie AND c.cNroDoc = o.cDocCodigo AND c.cCodCaja = o.cCajaCodi) GROUP BY o.cDocSerie, o.cDocCodigo, o.cCajaCodi, o.cDocTipo
SELECT MAX(dOperFech) AS dUltima FROM OperacionParalela WHERE cCajaCodi='00001'
 INSERT INTO Operacion (cOperID, cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, dOperFech, cOperTipo, cOperFlagAnula, cOperCodeAnula, cOperFlagAbierto, nMontoDolares, cCajacodi, cFlagSincronizacion, cTurnoCodi, nDscto, nServicio, cCodiCLie, vDescClie, cDocCodigo, cdocserie, cdoctipo, cruc, iTipoCliente, idlocal) VALUES (6, 14, 'CAJERO', '', '01', '000303', -1, 18.5, CONVERT(DATETIME,'2026-11-21 09:04:00',120), 1, 1, 13, 0, 0, '00001', '0', '01', 0, 0, '0', 'Público en General', '000000', '', '', '', 0, Null)
INSERT INTO TDETALLEZ1(nidZ1,cCajaCodi,dOperFech,cAlmaCode,cdocTipo,cProdCode,nProdCant,nMonto) VALUES (2,'00001',CONVERT(DATETIME,'2026-11-21 09:04:00',120),'01','','000303',-1,-18.5)
 INSERT INTO OperacionParalelaProducto (cCajaCodi, cOpercode , cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio, nitem, cSupervisor) VALUES ('00001', 11, '01', '000101', 1, 38, 0, 0, 0, ''), ('00001', 11, '01', '000206', 2, 9.5, 0, 0, 0, '')
SELECT DISTINCT cSerieDoc, cNroDoc FROM Cuentacte WHERE cCodCaja = '00001' AND cNroDoc IN ('000011', '000011', '000012', '000013')
SELECT COUNT(*) FROM Operacion WHERE cCajaCodi = '00001' AND dOperFech >= CONVERT(DATETIME,'2026-11-20 00:00:00',120) AND dOperFech < CONVERT(DATETIME,'2026-11-21 00:00:00',120)
SELECT COUNT(*) FROM OperacionParalela WHERE cCajaCodi = '00001' AND dOperFech >= CONVERT(DATETIME,'2026-11-20 00:00:00',120) AND dOperFech < CONVERT(DATETIME,'2026-11-21 00:00:00',120)
DELETE FROM operacionparalelaproducto WHERE cOperCOde = 1 AND cCajaCodi = '00001'
 SELECT TOP 2000 cUndmedid, vDscundmd, vDscCrta FROM UnidadMedida ORDER BY cUndmedid
 SELECT TOP 2000 A.cCodartic, A.vDscartic, A.cCodCatal, A.vDscartCt, A.bSwActivo, A.bswensamb, A.bswCtrlStck, P.vRazSocPrv, cFlagCanje, nPtosxItem, nFlagServ, cUndSalida, Linea = (SELECT L.vDscLinea FROM LINEA L WHERE L.CCODLINEA = A.CCODLINEA), nCostoArt = ISNULL((SELECT nPrecioVtaNew FROM ArticuloPrecioVenta B WHERE B.cCodArtic = A.cCodArtic AND nNumItem =  (SELECT MAX(nNumItem) FROM ArticuloPrecioVenta C WHERE C.cCodArtic = B.cCodArtic)),0),bFlagDetracc  FROM Articulo A LEFT JOIN Proveedor P ON A.cCodProve = P.cCodProve WHERE 1=1    AND bFlagVenta = 1   AND NOT bFlagDesc = 1 ORDER BY A.cCodartic
SELECT A.cCodartic, CASE WHEN A.bFlagVenta = 1 AND NOT A.bFlagDesc = 1 THEN ISNULL((SELECT TOP 1 B.nPrecioVtaNew FROM ArticuloPrecioVenta B WHERE B.cCodArtic = A.cCodartic ORDER BY B.nNumItem DESC), -1) END AS nPrecio FROM Articulo A
 SELECT TOP 2000 * FROM Cliente ORDER BY cClieCode, IdLocal
 SELECT TOP 2000 * FROM Tarjeta ORDER BY nTarjNumb, IdLocal
SELECT MAX(dFechCrea) AS dUltima FROM UnidadMedida
SELECT MAX(dFechModi) AS dUltima FROM UnidadMedida
 SELECT TOP 2000 cUndmedid, vDscundmd, vDscCrta FROM UnidadMedida WHERE dFechModi > CONVERT(DATETIME, '20261124',112) and dFechCrea <= CONVERT(DATETIME, '20261124',112) ORDER BY cUndmedid
SELECT MAX(dFechCrea) AS dUltima FROM Articulo
SELECT MAX(dFechModi) AS dUltima FROM Articulo
 SELECT TOP 2000 A.cCodartic, A.vDscartic, A.cCodCatal, A.vDscartCt, A.bSwActivo, A.bswensamb, A.bswCtrlStck, P.vRazSocPrv, cFlagCanje, nPtosxItem, nFlagServ, cUndSalida, Linea = (SELECT L.vDscLinea FROM LINEA L WHERE L.CCODLINEA = A.CCODLINEA), nCostoArt = ISNULL((SELECT nPrecioVtaNew FROM ArticuloPrecioVenta B WHERE B.cCodArtic = A.cCodArtic AND nNumItem =  (SELECT MAX(nNumItem) FROM ArticuloPrecioVenta C WHERE C.cCodArtic = B.cCodArtic)),0),bFlagDetracc  FROM Articulo A LEFT JOIN Proveedor P ON A.cCodProve = P.cCodProve WHERE 1=1    AND bFlagVenta = 1   AND NOT bFlagDesc = 1 AND ((convert(datetime,convert(varchar,A.dFechCrea,103),103) >= convert(datetime,CONVERT(varchar, '20261124',103),103)) or (convert(datetime,convert(varchar,A.dFechModi,103),103) >= convert(datetime,CONVERT(varchar, '20261124',103),103))) ORDER BY A.cCodartic
 SELECT TOP 2000 A.cCodartic, A.vDscartic, A.cCodCatal, A.vDscartCt, A.bSwActivo, A.bswensamb, A.bswCtrlStck, P.vRazSocPrv, cFlagCanje, nPtosxItem, nFlagServ, cUndSalida, Linea = (SELECT L.vDscLinea FROM LINEA L WHERE L.CCODLINEA = A.CCODLINEA), nCostoArt = ISNULL((SELECT nPrecioVtaNew FROM ArticuloPrecioVenta B WHERE B.cCodArtic = A.cCodArtic AND nNumItem =  (SELECT MAX(nNumItem) FROM ArticuloPrecioVenta C WHERE C.cCodArtic = B.cCodArtic)),0),bFlagDetracc  FROM Articulo A LEFT JOIN Proveedor P ON A.cCodProve = P.cCodProve WHERE convert(datetime,convert(varchar,A.dFechModi,103),103) >= convert(datetime,'20261124',103) AND convert(datetime,convert(varchar,A.dFechCrea,103),103) <= convert(datetime,'20261124',103)   AND bFlagVenta = 1   AND NOT bFlagDesc = 1 ORDER BY A.cCodartic
SELECT MAX(dFechCrea) AS dUltima FROM Cliente
SELECT MAX(dFechModi) AS dUltima FROM Cliente
 SELECT TOP 2000 * FROM Cliente where dFechCrea > CONVERT(DATETIME, '20261124',112) ORDER BY cClieCode, IdLocal
 SELECT TOP 2000 * FROM Cliente WHERE dFechModi > CONVERT(DATETIME, '20261124',112) and dFechCrea <= CONVERT(DATETIME, '20261124',112) ORDER BY cClieCode, IdLocal
SELECT MAX(dFechCrea) AS dUltima FROM Tarjeta
SELECT MAX(dFechModi) AS dUltima FROM Tarjeta
 SELECT TOP 2000 * FROM Tarjeta WHERE dFechModi > CONVERT(DATETIME, '20261124',112) and dFechCrea <= CONVERT(DATETIME, '20261124',112) ORDER BY nTarjNumb, IdLocal
