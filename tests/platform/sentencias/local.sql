# Start, settings, login
select iCierreCaja from configuracion
update configuracion set iCierreCaja=0
SELECT sImpresora, sImpresoraAlterna, cCodiTurno, nFlagCortaPapel, nFlagCortaPapelALT FROM Configuracion
SELECT sUserDesc FROM Usuario WHERE cUserFlag = 1
SELECT * FROM Usuario WHERE TRIM(sUserDesc) = 'D' + Chr(39) + 'Onofrio'
UPDATE Usuario SET cUserFlag = 0
UPDATE Usuario SET cUserFlag = 1 WHERE TRIM(sUserDesc) = 'ñandú'
SELECT 1 as Orden,Max(dOperFech) AS FechaMaximaOperacion FROM Operacion UNION SELECT 2 as Orden,  Max(dOperFech) AS FechaMaximaOperacionPar From Operacionparalela ORDER BY orden
SELECT DataBase FROM CONFIGURACION
SELECT UserName FROM CONFIGURACION
SELECT PassWord FROM CONFIGURACION
SELECT PRINTER FROM CONFIGURACION
UPDATE CONFIGURACION SET CONFIGURACION.DataBase='logistica'
UPDATE CONFIGURACION SET CONFIGURACION.cOpeB=''
# Numbering
SELECT MAX(cOperCode) AS maximo FROM Operacion
SELECT  * FROM Config_Documento WHERE cTipoDoc='02'
INSERT INTO Config_Documento (cTipoDoc,cOperCode,nDocCodigo,cSerieDoc,cUserDesc,dUltAct,observacion)  VALUES ('77',0, 0, 'F01','',#24/11/2026#,'Primer Registro') 
SELECT MAX(cDocCodigo) AS maximo FROM OperacionParalela WHERE cDocTipo = '10'
SELECT MAX(cDocCodigo) AS maximo FROM Operacion WHERE cDocTipo IN ('01','02')
UPDATE Config_Documento  SET cSerieDoc='012', nDocCodigo=15  WHERE cTipodoc='02'
UPDATE Config_Documento  SET cOperCode=12, nDocCodigo=13,  cUserDesc='ana'  WHERE cTipodoc='10'
select nDocCodigo, cTipoDoc from config_documento where cSerieDoc='012'
SELECT MAX(cOperCode) + 1 as ncOperCode From operacionparalela 
INSERT INTO OPERACION (cOperCode,cUserDesc,dOperFech,cOperFlagAnula,cOperCodeAnula, cOperFlagAbierto,cCajaCodi,cFlagSincronizacion,cAlmaCode,cDocCodigo,cDocSerie,cDocTipo)VALUES (45,'rovel','24/11/2026 17:05',0,0,0,'00012','0','01',33,'012','02')
INSERT INTO OPERACIONPARALELA (cOperCode,cOperTipo,dOperFech,cEstado,cCajaCodi,cFlagSincronizacion,cTurnoCodi,cUserDesc,cOperFlagAbierto,cDoccodigo,cdocSerie, cDocTipo) VALUES (9,'0','24/11/2026 17:05','0','00012','0','01','ROVEL','0','7','OC1','10')
UPDATE CONFIG_DOCUMENTO set copercode='45', ndoccodigo= '33' where cseriedoc='012'
# Registers
SELECT * FROM Regla_Punto
 UPDATE Regla_Punto     SET nImpoMaxi = 100,        nPuntImpo = 10,        nPuntCant = 1
 SELECT sProdDescCrta, nProdPrecUnit, cProdEstd, cFlagCanje, nPuntos, cFlagServicio, nActivo, ccodcatalogo FROM Producto WHERE cAlmaCode = '01' AND cProdCode = 000012
 SELECT b.cOperCode, b.nTarjNumb, C.cClieCode, c.sName, b.nMoneda, b.nMontoDolares, b.dOperFech, b.nMontoSoles, b.cOperTipo, b.sGlosa, cOpercodeRela, cdocserie, cdoccodigo FROM OperacionParalela b LEFT JOIN (SELECT Cliente.cClieCode, Tarjeta.nTarjNumb, sClieApel + ' ' + sClieName as sName FROM CLIENTE inner join Tarjeta ON Cliente.cClieCode = Tarjeta.cClieCode) c ON b.nTarjNumb = c.nTarjNumb WHERE cOperCode = 5 AND b.cEstado = '1'
 SELECT b.cOperCode, b.nTarjNumb, C.cClieCode, c.sName, b.nMoneda, b.nMontoDolares, b.dOperFech, b.nMontoSoles, b.cOperTipo, b.sGlosa, b.cDocSerie, b.cDocCodigo FROM OperacionParalela b LEFT JOIN (SELECT Cliente.cClieCode, Tarjeta.nTarjNumb, sClieApel + ' ' + sClieName as sName FROM CLIENTE inner join Tarjeta ON Cliente.cClieCode = Tarjeta.cClieCode) c ON b.nTarjNumb = c.nTarjNumb WHERE b.cOperTipo IN (22, 23) and b.cEstado = '1'
 SELECT cAlmaCode, cProdCode, nProdCant as Cant, nProdPrecUnit as Precio, nDscto As Dscto, nServicio as Servicio From OperacionParalelaProducto WHERE cOperCode IN( Select cOpercode From Operacionparalela Where cOperTipo= 21 and cOperflagAbierto=1 and cEstado = '2' and cOpercodeRela = 5)
 INSERT INTO OPERACIONPARALELA (cOperCode, cOperTipo, dOperFech, nTarjNumb, nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles, nVueltoSoles, sGlosa, cEstado, cCajaCodi, cFlagSincronizacion, cTurnoCodi, cUserDesc, cOpercodeRela,  nEfectivoDolares, nVueltoDolares, cDocSerie, cDocCodigo, cDocTipo )  VALUES (9, 20, '24/11/2026 17:05', '00001234', 0, 118.5, 33.86, 120, 1.5, 'x', '1', '00012', '0', '01', 'ana', 0 ,0 ,0,'OC1',7,'10')
 INSERT INTO OPERACIONPARALELAPRODUCTO (cAlmaCode, cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio,cSupervisor) VALUES ('01', 9, 12, 2, 5.5, -10,10,'jefe')
 INSERT INTO OPERACION (cOperCode, cUserDesc, nTarjNumb, cProdCode, nProdCant, nProdPrecUnit, nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nmontosoles, nVueltoDolares,  cDocSerie, cDoccodigo, cdocTipo, cOpercodeAnula, IdLocal)  VALUES (9, 'ana', '', 0, 1, -1.5, 0, '24/11/2026 17:05', 1, '00012', '01',120 ,0, '012', 7, '10', 0, Null)
 UPDATE OPERACIONPARALELA SET cEstado = 2 WHERE cOperCode = 9
 UPDATE OPERACIONPARALELA SET cOpercodeRela = 9, cEstado = 2 WHERE cOperCode = 8
 INSERT INTO OPERACION (cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nDscto, nServicio, cDocCodigo, cRuc, cDocSerie, cDocTipo, cEmisor, cOpercodeanula, idLocal,cSupervisor)  VALUES (45, 'ana', '00001234', '01', 12, 2, 5.5, 0, '24/11/2026 17:05', 1, '00012', '01', 0, 10, 33, '', '012', '02', '', 0, 1,'')
 SELECT C.cTeclCode, C.sTeclDesc, C.cProdCode, P.sProdDescCrta FROM ConfiguracionTeclado AS C INNER JOIN Producto AS P ON C.cProdCode = P.cProdCode WHERE C.cTeclCode BETWEEN 1 AND 24 AND P.cAlmaCode = '01' ORDER BY C.cTeclCode
 SELECT sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo FROM Producto WHERE cProdCode = 12 AND cAlmaCode = '01'
INSERT INTO OPERACION (cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit,nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nServicio, cDocCodigo, cRuc, cDocSerie, cDocTipo, IdLocal) VALUES (46, 'ana', '', '01', 12, 1, 5.5, 0, '24/11/2026 17:05', 1, '00012', '01', 10, 34, '', '012', '02', Null)
select cod_tar,descrip from tipo_tarjeta order by descrip
 SELECT cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, vDescProv, cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo, sDescLinea FROM Producto WHERE cProdEstd = 1 AND nActivo = 1 AND (sProdDesc like '%lomo%' OR sProdDescCrta like '%lomo%' OR cCodCatalogo like '%lomo%' OR vDescProv like '%lomo%') ORDER BY sProdDesc
INSERT INTO OPERACION (cOperCode, cUserDesc, nProdCant, nProdPrecUnit, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi) VALUES(47, 'ana', 1, 50, '24/11/2026 17:05', 5, '00012', '01')
 SELECT SUM(nProdCant*nProdPrecUnit) AS Monto FROM Operacion WHERE cOperFlagAbierto=1 AND cOperTipo=1
 SELECT SUM(nMontoSoles) AS Monto FROM OperacionParalela  WHERE cOperFlagAbierto=1 AND cOperCodeAnul=0 
 SELECT O.cOperCode, O.cProdCode, O.nProdCant, O.nProdPrecUnit, O.nDscto,P.sProdDesc, P.sProdDescCrta, O.nProdCant * O.nProdPrecUnit As TotalMonto, c.cTeclCode , c.sTeclDesc FROM OperacionParalelaProducto O INNER JOIN (Producto P LEFT JOIN ConfiguracionTeclado AS C ON P.cProdCode = C.cProdCode) ON O.cProdCode = P.cProdCode AND O.cAlmaCode = P.cAlmaCode Where cOperCode = 9
SELECT idct + 1 as cod, maxid FROM _tmp1 WHERE prn=1
UPDATE _tmp1 set idct=17 WHERE prn=1
 SELECT * FROM CABECERA_IMPRESION ORDER BY 1
SELECT MAX(cCabeLinea) AS Linea FROM Cabecera_Impresion
INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES (3, 'Casa Ñandú')
SELECT * FROM Cabecera_Impresion WHERE TRIM(cCabeLinea) = TRIM(3)
UPDATE Cabecera_Impresion SET sCabeDescripcion = 'x'WHERE cCabeLinea = 3
DELETE * FROM cabecera_impresion WHERE cCabeLinea = 3
UPDATE Configuracion SET sImpresora = 'A', sImpresoraAlterna = 'B', nFlagCortaPapel=1, nFlagCortaPapelALT=0
# Credit, void, reprint
SELECT  cFlagDetracc FROM Producto WHERE cProdCode=12
Select distinct cdocTipo, cdocSerie, cDocCodigo, cOpercode From OperacionParalela Where (cOperFlagAbierto = 1 OR cestado='1')   And cdocSerie = 'OC1'  And cDocCodigo = 7
UPDATE OPERACIONPARALELA SET cEstado = '0', cOpercodeAnul = 10 WHERE cOperCode = 9
DELETE FROM Operacion WHERE cOpercode= 9 AND cOperFlagAbierto=1 AND cDocTipo in ('10', '14')
 SELECT * FROM OperacionParalela WHERE 1 = 1 AND cOperTipo = 22 AND cEstado = '1' AND FORMAT(dOperFech, 'YYYY.MM.DD') >= '2026.11.01' AND FORMAT(dOperFech, 'YYYY.MM.DD') <= '2026.11.30'
 SELECT OPP.cAlmaCode, OPP.cProdCode, P.cCodCatalogo, P.sProdDesc, P.sProdDescCrta, OPP.nProdCant, OPP.nProdPrecUnit, OPP.nDscto, OPP.nServicio, P.cProdEstd, P.cProdFlagFicha, P.cProdFichaCant, P.cProdFlagCanje, P.cProdFlagControl, P.cFlagCanje, P.nPuntos, P.cFlagServicio, P.cUndSalida, UM.vDscUndMd FROM (OperacionParalelaProducto OPP LEFT JOIN Producto P ON (OPP.cProdCode = P.cProdCode) AND (OPP.cAlmaCode = P.cAlmaCode)) LEFT JOIN UnidadMedida UM ON P.cUndSalida = UM.cUndMedid WHERE OPP.cOperCode = 9
 SELECT MAX(cOpercode) as max  FROM Operacion WHERE cDocTipo in ('02', '01')
SELECT  count(*) as nulo FROM Operacion WHERE cOperFlagAnula= 1 and cOperFlagAbierto=1 AND cOperCodeAnula= 7
SELECT max(cOperCode) AS MAX FROM OperacionParalela WHERE  (cOperCodeAnul = 0 OR cOperTipo=3 )  AND cEstado = '1' 
Select distinct cdocTipo, cdocSerie, cDocCodigo, cOpercode  FROM Operacion WHERE  cOperFlagAnula = 0   AND cOperFlagAbierto = 1  AND cDocTipo='02' AND cDocCodigo=33
SELECT O.cOperCode, O.cUserDesc, O.nTarjNumb, O.cProdCode, O.cAlmaCode, O.nProdCant, O.nProdPrecUnit, O.dOperFech, O.cOperTipo, O.cOperFlagAnula, P.sProdDesc, P.sProdDescCrta, 0 as nDscto, O.nServicio FROM Operacion AS O inner join Producto AS P ON O.cProdCode = P.cProdCode WHERE O.cOperCode =7 AND O.cOperFlagAbierto = 1 ORDER BY O.cOperID
SELECT O.cOperCode, O.cUserDesc, O.nTarjNumb, O.dOperFech, O.cOperTipo, O.cOperCodeRela, O.nVueltoSoles, O.nEfectivoSoles, B.cAlmaCode, B.cProdCode, B.nProdCant, B.nProdPrecUnit, B.nDscto, B.sProdDescCrta, B.nServicio FROM OperacionParalela AS O LEFT JOIN (SELECT A.cOperCode, A.cAlmaCode, A.cProdCode, A.nProdCant, A.nProdPrecUnit, A.nDscto, P.sProdDescCrta, A.nServicio FROM OperacionParalelaProducto AS A inner join Producto AS P ON A.cProdCode = P.cProdCode) AS B ON O.cOperCode = B.cOperCode WHERE O.cOperCode = 9 AND O.cEstado IN ('1') and o.cOperFlagAbierto=1 
 SELECT nTipoCambMont FROM Tipo_Cambio WHERE FORMAT(dTipoCambFech, 'yyyy/mm/dd') = '2026/11/24'
Select nTarjNumb, dOperFech  FROM OperacionParalela WHERE cOperCode= 9
 SELECT nMontoSoles, nMontoDolares, nMoneda FROM OperacionParalela Where cOperCode = 9
SELECT  * FROM OperacionParalela WHERE cDocSerie='LQ1' AND cDocCodigo=3
 SELECT count(*) as TOTAL FROM Operacion WHERE cOperCodeAnula =7 AND cOperFlagAbierto = 1
 UPDATE OPERACION  SET cOperFlagAnula = 1  WHERE cOperCode = 7
 SELECT cOperCodeRela as CodRela FROM OperacionParalela WHERE cOperCode = 9   AND cOperFlagAbierto = 1 
UPDATE OperacionParalela SET cEstado= '1', cOperCodeRela=0 WHERE cOperTipo <> 20 AND cOpercodeRela= 9 
DELETE FROM OperacionParalela WHERE cOpercode= 9 AND cOperFlagAbierto=1
SELECT  cdocTipo, cdocSerie, cDocCodigo, cOpercode, IdLocal FROM Operacion WHERE cOperCode= 7
# Cash day
SELECT IIF(ISNULL(MAX(cOperID)),0, MAX(cOperID)) as cOperIDx FROM Operacion Where coperflagabierto = 0 
SELECT IIF(ISNULL(MAX(cOperCode)),0, MAX(cOperCode)) as cOperCodex FROM OperacionParalela Where coperflagabierto = 0 
UPDATE Configuracion SET cCodiTurno = '01' , nImporApertSol=100.00, nImporApertDol=0.00, cOperId = 3, cOperIdP = 4
SELECT Count(*) As nCount FROM Operacion Where coperflagabierto = 1 AND dOperFech < (SELECT max(fec) FROM _Tmp)
UPDATE Operacion SET coperflagabierto = '0' WHERE dOperFech < (SELECT max(fec) FROM _Tmp)
 SELECT count(*) AS TOTAL FROM Operacion o WHERE o.cOperTipo in (1,2,3,4,5)   and o.cOperId > 3 
 UPDATE OPERACION SET cOperFlagAbierto = 0 WHERE cOperFlagAbierto = 1
UPDATE Configuracion SET cOperId = 5, cOperIdP = 6
INSERT INTO OPERACION (cOperCode, cUserDesc, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi) VALUES(48, 'ana', '24/11/2026 17:05', 10, '00012', '01')
SELECT cOperId, cOperIdP FROM Configuracion
SELECT MIN(o.dOperFech) AS Fecha, COUNT(*) AS Filas   FROM Operacion o  WHERE o.nMontoDolares > 0 And o.cOperFlagAnula= 0    and o.cOperId > 3 
 SELECT  nImporApertSol, nImporApertDol  FROM Configuracion 
 SELECT SUM(O.nProdCant)AS TotItem, sum ((O.nProdCant * O.nProdPrecUnit) + ((O.nProdCant * O.nProdPrecUnit) * O.nDscto/100))  AS TotMonto    FROM Operacion AS O  WHERE cOperTipo in (1,2,3)     and o.cOperflagabierto = 1     AND cprodcode <> 0 AND cOperflaganula= 0  AND cTurnoCodi = '01'
 SELECT P.cProdCode as codigo, SUM(O.nProdCant) AS TotalItem,  max(P.SProdDescCrta) as Producto, max(P.cCodCatalogo) as Catalogo  FROM Producto AS P  LEFT outer JOIN Operacion AS O    ON P.cProdCode = O.cProdCode AND P.cAlmaCode = O.cAlmaCode  WHERE cOperflagAnula= 0    and o.cOperId > 3  AND cTurnoCodi = '01' GROUP BY P.cProdCode Having  SUM(O.nProdCant) > 0 ORDER BY 1
 SELECT SUM((o.nProdCant * o.nProdPrecUnit) + ( (o.nProdCant * o.nProdPrecUnit) * o.nDscto/100)) AS TOTAL  FROM Operacion o  WHERE o.cOperTipo = 2   AND o.cOperFlagAnula = 0 
 SELECT SUM(o.nMontosoles) AS TOTAL FROM Operacion o  WHERE o.cOperTipo = 1 AND TRIM(o.cEmisor) <> ''  AND o.cDoctipo in ('01', '02')  AND o.cOperFlagAnula = 0 
SELECT distinct(o.cOpercode + 0)  FROM operacion o WHERE  (o.cdoctipo='02' or o.cdoctipo='01')  AND o.cOperTipo in (1,2,3)  AND o.cOperFlaganula=0 
SELECT distinct(o.cOpercode + 0)  FROM operacion o WHERE  (o.cemisor <> ''  or o.cOperTipo=2)  AND o.cOperFlaganula=0 
 SELECT SUM((o.nProdPrecUnit * o.nProdCant)  + ((o.nProdPrecUnit * o.nProdCant)  * o.nDscto/100)) as TKMontPago, COUNT(*) as TKPago    FROM Operacion o   WHERE o.cOperflaganula= 0     AND o.cOpercodeanula = 0     AND o.cOpertipo= 5 
 SELECT SUM(o.nMontoDolares-o.nVueltoDolares) AS TOTAL FROM Operacion o WHERE o.cOperTipo in (1, 3)  AND o.cDoctipo in ('01','02')  AND o.cOperFlaganula= 0 
 SELECT SUM(((o.nProdCant * o.nProdPrecUnit) + (o.nProdCant * o.nProdPrecUnit * o.nDscto/100)) / (1 + 0.18 +  (o.nServicio /100) )  * (o.nServicio/100) ) as Servicio,          SUM(((o.nProdCant * o.nProdPrecUnit) + (o.nProdCant * o.nProdPrecUnit * o.nDscto/100)) / (1 + 0.18 + (o.nServicio / 100)) * 0.18) As Igv    FROM Operacion o    WHERE o.cDoctipo= '01'    AND o.cOperFlaganula= 0    AND o.cProdcode <> 0    and o.cOperId > 3 
  SELECT SUM(((nProdCant * nProdPrecUnit) + (nProdCant * nProdPrecUnit * nDscto/100)) / (1 + (0.18 +  (nServicio /100) ) ) * (nServicio/100)) as Servicio      FROM OperacionParalelaProducto p , OperacionParalela o    WHERE p.cOpercode = o.cOpercode      AND o.cOperTipo + 0= 20 and cProdCode <> 0      and  o.cOpercodeAnul=0    and o.cOperCode > 4 
SELECT IIF(ISNULL(MAX(CodigoRep)),1, MAX(CodigoRep)) as CodigoRepX   FROM CabeceraZ  WHERE FORMAT(Fecha, 'dd/mm/yyyy') = '24/11/2026' 
select max(copercode) as CodigoUltimo from operacion o where o.copertipo=10 and o.dOperFech >= #11/24/2026# and o.dOperFech < #11/25/2026# 
 SELECT o.cCajaCodi, Format(o.dOperFech, 'dd/mm/yyyy') as dOperFech, o.cAlmaCode, o.cDocTipo       , o.cProdCode, sum(o.nProdCant) as cant, sum ((O.nProdCant * O.nProdPrecUnit)+ ((O.nProdCant * O.nProdPrecUnit) * O.nDscto/100)) as precio  FROM Operacion o, Producto p  Where o.cProdcode = p.cProdcode    and o.cAlmaCode = p.cAlmaCode    and o.cProdcode <> 0    and o.cOperId > 3    and o.cOperFlaganula = 0  GROUP BY o.cCajaCodi, Format(o.dOperFech, 'dd/mm/yyyy'), o.cAlmaCode, o.cDocTipo, o.cProdCode 
 SELECT o.cCajaCodi, Format(o.dOperFech, 'dd/mm/yyyy') as dOperFech, d.cAlmaCode, o.cDocTipo       , d.cProdCode, sum(d.nProdCant) as cant, sum((d.nProdPrecUnit * d.nProdCant) + ((d.nProdPrecUnit * d.nProdCant) * d.nDscto/100)) as precio  FROM OperacionParalelaProducto as d, OperacionParalela as o, Producto as p  Where d.cOperCode = o.cOperCode    and d.cProdCode = p.cProdCode    and d.cAlmaCode = p.cAlmaCode    and o.cOperCode > 4    and o.cOperCodeanul= 0    and ( (TRIM(o.cEstado) = '1' and o.cOpertipo + 0 in (20, 21)) or (TRIM(o.cdocTipo) = '11') )  GROUP BY o.cCajaCodi, Format(o.dOperFech, 'dd/mm/yyyy'), d.cAlmaCode, o.cDocTipo, d.cProdCode 
 SELECT min(o.cdoccodigo) as mini,max(o.cdoccodigo) as maxi FROM Operacion o WHERE o.cOperTipo in (1,2,3,4,5) and o.cdoctipo IN ('01','02')   and o.cOperId > 3 
SELECT COUNT(*)AS TotDoc, sum ((O.nProdCant * O.nProdPrecUnit)+ ((O.nProdCant * O.nProdPrecUnit) * O.nDscto/100))  AS TotMonto FROM Operacion AS O WHERE cOperTipo in (1,2,3) AND cprodcode <> 0 AND cOperflaganula= 0 AND cdoctipo='02'    and o.cOperId > 3 
SELECT idz + 1 as cod, maxid , Imac   FROM _tmp1  WHERE prn=1
 UPDATE _Tmp1 SET idz=4 , Imac= Imac + 118.5 WHERE prn=1 
INSERT INTO _Tmp (idz, tvd, fec, prn) VALUES(4 , 118.5, '24/11/2026 17:05', 1 )
SELECT p.cCodCatalogo as Catal, p.sProdDescCrta as Descrip, Sum(d.nProdCant) AS Cant FROM (OperacionParalela o INNER JOIN OperacionParalelaProducto d ON o.cOperCode = d.cOperCode) INNER JOIN Producto p ON d.cProdCode = p.cProdCode AND d.cAlmaCode = p.cAlmaCode Where o.cdocTipo = '11' And o.cOperCodeAnul=0 GROUP BY p.cCodCatalogo, p.sProdDescCrta ORDER BY 1, 2
select max(copercode) from operacionParalela
INSERT INTO CabeceraZ(IdZ,Caja,CantidadTotal,MontoTotal,Fecha,RangoTKBOL,RangoTKFAC,CodigoRep,cOperIdIni,cOperIdFin,cOperIdPIni,cOperIdPFin) VALUES (7,'00012',12,118.5,'24/11/2026 17:05','1-5','','000004',0,7,0,9)
INSERT INTO DetalleZ(IdZ,Caja,nItem,CodProd,DscProd,Cantidad) VALUES (7,'00012',1,12,'Lomo',2)
SELECT cSerieDoc FROM Config_Documento WHERE cTipoDoc IN('01','02')
SELECT Sum(Operacion.nProdCant) AS SumaDeProdCant From Operacion WHERE (((Year([dOperFech]))=Year(Now())) AND ((Month([dOperFech]))=Month(Now())) AND ((Day([dOperFech]))=Day(Now())) AND ((Operacion.cProdCode)<>0) AND ((Operacion.cDocSerie) in ('012','F01')) AND ((Operacion.cOperFlagAnula)=0)) 
SELECT Operacion.cDocSerie, Count(Operacion.cDocSerie) AS Cantidad, Sum(nProdCant*nProdPrecUnit/1.18) AS Monto From Operacion WHERE Year(dOperFech)=Year(Now()) AND Month(dOperFech)=Month(Now()) AND Day(dOperFech)=Day(Now()) AND Operacion.cProdCode<>0 AND Operacion.cDocSerie = '012' AND Operacion.cOperFlagAnula=0 GROUP BY Operacion.cDocSerie
 SELECT SUM(nMontosoles + nProdPrecUnit) AS TOTAL FROM Operacion WHERE cOperFlagAbierto = 1  AND cOperTipo = 1 AND TRIM(cEmisor) <> ''  AND cOperFlagAnula = 0 
 SELECT nEfectivosoles as padliqs, nEfectivoDolares as padliqd, nMoneda FROM OperacionParalela  WHERE cOperTipo in (22) and cOperFlagAbierto=1 and cEstado in ('2') and cOperCodeAnul=0 
 SELECT MAX(dCuadreID) AS TOTAL FROM CUADRE_CAJA
 INSERT INTO CUADRE_CAJA(dCuadreFecha, dCuadreID, dCuadreLinea, dCuadreDetalle) VALUES ('24/11/2026 17:05', 1, 2, '=====')
 DELETE FROM CUADRE_CAJA WHERE format(dCuadreFecha,'dd/mm/yyyy') = '24/11/2026' AND dCuadreID = 1
SELECT cProdcode, sum(cantidad) as Cant ,  max(catalogo) as Catal, max(descripcion) as Descrip  FROM        ( SELECT 1, CProdCode,  sum(cant) as Cantidad , max(catal) as Catalogo, max(Descrip) as Descripcion           FROM    (SELECT  d.cProdCode,  sum( d.nProdCant) as cant ,  max(p.cCodcatalogo)  as catal, max( p.sProdDesc)  as Descrip     FROM  Operacion d, Producto p                     WHERE d.cProdcode = p.cProdcode And d.cProdcode <> 0 And d.cOperflagabierto = 1 And d.cOperFlaganula = 0                     GROUP BY d.cProdCode  )        GROUP BY CPRODCODE           UNION         SELECT 2, d.cProdCode,  sum( d.nProdCant) as cantidad ,  max(p.cCodcatalogo)  as catalogo, max( p.sProdDesc)  as Descripcion          FROM  OperacionParalelaProducto  d, OperacionParalela o,   Producto  p WHERE d.cOpercode = o.cOpercode AND d.cProdCode = p.cProdCode AND d.cProdcode <> 0 AND o.cOperCodeanul = 0 AND cEstado= '1' AND o.cOpertipo in (20, 21)   GROUP BY d.cProdCode   )  GROUP BY  cProdcode   order by 3
 SELECT O.cOperCode, O.cProdCode, O.nProdCant, O.nProdPrecUnit, O.nDscto, P.sProdDescCrta, O.nProdCant * O.nProdPrecUnit * (100 - O.nDscto) / 100 As TotalMonto, c.cTeclCode , c.sTeclDesc FROM Operacion O INNER JOIN (Producto P LEFT JOIN ConfiguracionTeclado AS C ON P.cProdCode = C.cProdCode) ON O.cProdCode = P.cProdCode AND P.cAlmaCode = O.cAlmaCode Where cOperTipo = 10    and o.cOperId > 3  ORDER BY 1
 SELECT o.cOperTipo, o.cOperCode, SUM(o.nProdCant * o.nProdPrecUnit * (100 - o.nDscto) / 100) AS TotMonto FROM Operacion o  WHERE ((o.cOperTipo = 3 AND o.cProdCode <> 0) OR (o.cOperTipo = 10 AND o.cOperFlagAnula = 1) OR (o.cOperTipo = 10 AND o.cOperFlagAnula = 0 AND o.nProdPrecUnit > 0)) AND o.cOperTipo = 10   and o.cOperId > 3  GROUP BY o.cOperTipo, o.cOperCode ORDER BY 1
UPDATE Operacion SET cOperFlagAbierto = 0 WHERE cOperTipo = '20' and cOperFlagAbierto = 1
 SELECT SUM(O.nProdCant) AS TotItem, SUM(O.nProdCant * O.nProdPrecUnit * (100 - O.nDscto) /100) AS TotMonto FROM (ConfiguracionTeclado AS C RIGHT JOIN Producto as P ON C.cProdCode = P.cProdCode) INNER JOIN Operacion AS O ON P.cProdCode = O.cProdCode AND P.cAlmaCode = O.cAlmaCode WHERE cProdFlagCanje <> 1  AND cOperTipo = 10   and o.cOperId > 3 
 SELECT  cOperTipo,  p.sProdDescCrta, P.nProdPrecUnit, o.nProdCant, o.cDocSerie, o.cDocCodigo, o.cDocTipo, o.cOpercodeAnula,  o.nProdCant * o.nProdPrecUnit AS TotalMonto, cemisor  FROM operacion o  Left Outer Join producto p   on o.cprodcode= p.cprodcode  WHERE cdoctipo in ('01', '02') and o.cprodcode <> 0    and o.cOperId > 3  AND not copercode in (select copercodeanula from operacion where cOperflaganula=1 )
SELECT a.cEstado, a.cOperTipo, a.cDocSerie, a.cDocCodigo, a.cDocTipo,a.cOperCodeAnul, d.nProdCant AS  sProdCant ,  d.nProdPrecUnit  AS Precio, d.nDscto, p.sproddesccrta as producto ,  p.cprodcode,  p.ccodcatalogo AS Codigo FROM  operacionparalelaproducto d, operacionparalela a , producto p WHERE d.copercode in       (select o.copercode  FROM OperacionParalela o        WHERE 1=1    and o.cOperCode > 4  ) AND d.cOpercode=a.COperCode and   d.cProdCode=p.cProdCode and  a.cdoccodigo <> 0 AND a.cOpertipo in (20,21,24) 
 SELECT cDocserie, cDoccodigo, cOperCode, cOperTipo, nTarjNumb, sGlosa, nMontosoles FROM OperacionParalela  WHERE cOperTipo in (22) and cOperFlagAbierto=0 and cEstado in ('2')  AND cOperCodeRela in (SELECT o.cOperCode from OperacionParalela o WHERE 1 = 1    and o.cOperCode > 4 ) AND cOpercodeAnul = 0 
 SELECT o.cEstado, o.cOperTipo, o.cDocSerie, o.cDocCodigo, o.cDocTipo,o.cOperCodeAnul, o.sglosa, o.nmontosoles   FROM Operacionparalela o  WHERE o.copercodeanul <>  0 AND not o.cOpertipo in (20,21,24)    and o.cOperCode > 4 
 SELECT  C.sTeclDesc, P.sProdDescCrta, MAX(P.nProdPrecUnit) AS PrecioUnit, SUM(O.nProdCant) AS TotalItem, SUM(O.nProdCant * O.nProdPrecUnit) AS TotalMonto FROM (ConfiguracionTeclado AS C RIGHT JOIN Producto as P ON C.cProdCode = P.cProdCode) INNER JOIN Operacion AS O ON P.cProdCode = O.cProdCode  WHERE cOperTipo in (1,2,3,4,5)   and o.cOperId > 3  GROUP BY C.cTeclCode, C.sTeclDesc, P.sProdDescCrta ORDER BY 1
Select a.cprodcode,sum(a.nProdCant) as  sProdCant , max(a.nProdPrecUnit)  as Precio,a.nDscto, max(p.sproddesccrta) as producto , max(p.ccodcatalogo) as Codigo  from operacionparalelaproducto a  left outer join producto p on  a.cProdCode=p.cProdCode  where copercode in (select o.copercode  from operacionparalela o  where o.cestado='1' and o.cOperTipo in (20)    and o.cOperCode > 4  ) group by a.cprodcode, a.nDscto  ORDER BY  max(p.sproddesccrta)
 Select sum(nProdCant) as items  , sum(nProdCant * (nProdPrecUnit * ( ( 100 - nDscto)/100)) ) as precio  From operacionparalelaproducto  where copercode in (select o.copercode  from operacionparalela o  where o.cestado='1' and o.cOperTipo in (20)    and o.cOperCode > 4  ) 
 SELECT SUM(o.nMontoDolares-o.nVueltoDolares) AS TOTAL FROM Operacion o  WHERE o.cOperTipo in (1)    and o.cOperId > 3  AND ( o.coperCode not in (SELECT cOperCodeanula                           FROM Operacion WHERE cOperFlagAnula=1    and cOperId > 3  )                           OR  cdocTipo NOT in ('02', '01'))  AND (o.cOperCode NOT in (Select cOperCode FROM OperacionParalela WHERE cOperCodeAnul <> 0 ) OR  cDocTipo in ('02', '01')) 
 SELECT SUM(o.nProdCant * o.nProdPrecUnit * (100 - o.nDscto) /100) AS TOTAL  FROM Operacion o  WHERE o.cOperTipo = 2     and o.cOperId > 3  AND NOT o.cOperFlagAnula = 1  AND o.cOperCode Not In (Select cOperCodeAnula                          From Operacion                         Where cOperFlagAnula = 1    and cOperId > 3  )
SELECT MAX(IdZ) as MAXIMO FROM CabeceraZ
 SELECT d.cProdCode , sum(d.nProdCant) as Cantidad ,  max(p.cCodcatalogo) as Catalogo, max(p.sProdDesc) as Descripcion  FROM OperacionParalelaProducto  d, OperacionParalela o,   Producto  p  WHERE d.cOpercode = o.cOpercode    AND d.cProdCode = p.cProdCode    AND d.cAlmaCode = p.cAlmaCode    AND d.cProdcode <> 0    and o.cOperCode > 4    AND o.cOperCodeanul =  0 AND TRIM(o.cEstado)= '1' AND o.cOpertipo + 0 in (21)  GROUP BY d.cprodcode  ORDER BY  4
 SELECT o.cOperCode, o.cOperTipo, o.nTarjNumb, u.sUserName + ' ' + u.sUserApel as sGlosa, o.nMontosoles, o.nMontoDolares, o.nMoneda, o.cDocCodigo, o.cDocSerie FROM OperacionParalela o, usuario u  WHERE o.cOperTipo + 0 in (22) and TRIM(o.cEstado) in ('1')     and o.cOperCode > 4  AND o.cOpercodeAnul = 0 AND o.cUserDesc = u.sUserDesc ORDER BY o.cOperCode
 SELECT sum(o.nmontoSoles) as nulooc, count(*) as item  FROM operacionparalela o WHERE o.copercodeanul <> 0 AND TRIM(o.cdoctipo)='10'    and o.cOperCode > 4 
 SELECT cOperCode, cOperTipo, nTarjNumb, sGlosa, nMontosoles, nMontoDolares, nMoneda FROM OperacionParalela  WHERE cOperTipo + 0 in (22) and cOperFlagAbierto + 0=0 and TRIM(cEstado) in ('2')  AND cOperCodeRela in (SELECT o.cOperCode from OperacionParalela o WHERE o.cOpercodeAnul = 0    and o.cOperCode > 4  AND o.cTurnoCodi = '01')  AND cOpercodeAnul = 0  ORDER BY cOperCode
DELETE FROM DetalleZ WHERE IdZ=7 AND Caja='00012'
# Synchronisation
SELECT dFechSincro FROM Sincronizacion
 INSERT INTO UNIDADMEDIDA (cUndmedid, vDscundmd, vDscCrta) VALUES ('XX','Kilo','KG')
 UPDATE UNIDADMEDIDA SET vDscundmd = 'Kilo', vDscCrta = 'K' WHERE cUndmedid = 'KG'
 INSERT INTO PRODUCTO (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, vDescProv, cFlagCanje, nPuntos, cFlagServicio, cUndSalida, cCodCatalogo, sDescLinea,cFlagDetracc) VALUES ('01',000777,'Ají','Ají',5.5,1,'x',0,0,1,'KG','A-1','L',0)
 UPDATE PRODUCTO SET sProdDesc = 'x', sProdDescCrta = 'y', nProdPrecUnit = 5, cProdEstd = 1, vDescProv = '', cFlagCanje = 0, nPuntos = 1, cFlagServicio = 1, cUndSalida = 'KG', cCodCatalogo = 'c', sDescLinea = 'l', cFlagDetracc=0 WHERE cProdCode = 12
 INSERT INTO Tarjeta (cClieCode, nTarjNumb, cTarjActi, dEmisDate, sUserDesc,dUltOper) VALUES (5,'00000555',1,'24/11/2026','ana','24/11/2026 17:05')
 UPDATE Tarjeta SET cClieCode = 5, cTarjActi = 1, dEmisDate = '24/11/2026', sUserDesc = 'ana', dUltOper = '24/11/2026' WHERE nTarjNumb = 00000555
 UPDATE producto    SET nActivo = 0  WHERE cProdCode = 12
 UPDATE configuracionTeclado     SET cProdCode = 0, cTeclFlagAsig='0'  where cProdCode IN (SELECT cProdCode FROM Producto WHERE nActivo =0) 
 Select nActivo from producto where cProdCode=000012
select idlocal from operacion where cOperCode=7 and year(dOperFech)=2026 and month(dOperFech)=11 and day(dOperFech)=24
select * from CabeceraZ where bflagsincro=0
 SELECT * FROM Operacion WHERE cOperFlagAbierto = 0  AND cProdCode <> 0  and coperid > 0 and coperid <= 7  ORDER BY cOperCode
UPDATE OPERACION SET cFlagSincronizacion = '1' WHERE cOperCOde = 7 AND cOperId=3
 SELECT * FROM OperacionParalela WHERE cOperFlagAbierto= 0  AND cOperCodeAnul = 0  AND cOperCode > 0 AND cOperCode <= 9 AND NOT cOperCode in  (Select cOperCodeAnul from operacionParalela )  ORDER BY cOpercode
SELECT IdZ,Caja,nItem,CodProd,DscProd,Cantidad FROM DetalleZ WHERE bFlagSincro=0 AND IdZ=7 AND Caja='00012' ORDER BY IdZ,nItem
UPDATE CabeceraZ SET bFlagSincro=1 WHERE bFlagSincro=0
SELECT distinct cdate(FORMAT( DOPERFECH  , 'DD/MM/YYYY')) as fechalimite   FROM OPERACION  WHERE DOPERFECH <> #23/11/2026# ORDER BY 1  desc
INSERT INTO OPERACIONPARALELAPRODUCTOHIST SELECT * FROM  OPERACIONPARALELAPRODUCTO WHERE cOperCode IN  (SELECT cOpercode FROM OPERACIONPARALELA WHERE cFlagSincronizacion ='1' AND dOperFech < #2026/11/15# AND  not(cEstado='1') AND not (cDocTipo in('12','13'))) 
DELETE from OPERACIONPARALELAPRODUCTO WHERE cOperCode IN  (SELECT cOpercode FROM OPERACIONPARALELA WHERE cFlagSincronizacion ='1' AND dOperFech < #2026/11/15# AND  not(cEstado='1') AND not (cDocTipo in('12','13'))) 
INSERT INTO OPERACIONPARALELA_HISTORICO   SELECT * FROM OPERACIONPARALELA WHERE cFlagSincronizacion ='1' AND dOperFech < #2026/11/15#  AND  NOT(cEstado='1') AND not (cDocTipo in('12','13')) 
INSERT INTO OPERACION_HISTORICO   SELECT  * FROM OPERACION WHERE cFlagSincronizacion ='1' AND cDoctipo<>'01' AND dOperFech < #2026/11/15# 
DELETE FROM OPERACIONPARALELAPRODUCTOHIST WHERE cOpercode in (SELECT copercode FROM OPERACIONPARALELA WHERE DOPERFECH <  dateadd( 'm', -3, date()))
DELETE FROM OPERACION_HISTORICO WHERE DOPERFECH <  dateadd( 'm', -3, date())
UPDATE Sincronizacion SET dFechSincro = '2026/11/24'
 UPDATE Sincronizacion     SET dFechSincro = '01/01/1900'
SELECT cOperCode   FROM OperacionParalela  WHERE dOperFech > #11/01/2026#   AND dOperFech < #11/30/2026#
DELETE FROM canje_punto  WHERE dCanjDate > #11/01/2026#   AND dCanjDate < #11/30/2026#
DELETE FROM producto 
 SELECT * FROM Operacion  WHERE cProdCode <> 0  AND FORMAT(dOperFech, 'dd/mm/yyyy') = '24/11/2026' UNION  SELECT * FROM Operacion_Historico  WHERE cProdCode <> 0  AND FORMAT(dOperFech, 'dd/mm/yyyy') = '24/11/2026'
 SELECT * FROM OperacionParalelaProducto WHERE cOperCode = 9 and cProdCode <> 0  UNION  SELECT * FROM OperacionParalelaProductoHist WHERE cOperCode = 9 and cProdCode <> 0 
# Points and back office
INSERT INTO Acumulacion_Punto (cClieCode, cAcumCode, nTarjNumb, nAcumImpo, nPuntCant, sUserDesc, dAcumDate, cSincroFlag, cDocTipo, cDocSerie, cDocCodigo, IdLocal) VALUES (5, 1, '00000005', 118, 11, 'ana', '24/11/2026 17:05:30', 0, '02', '012', 33, 1)
UPDATE Cliente SET nPuntCant = nPuntCant + 11,        dUltTDate = #11/24/2026 17:05:30#, cTranCode = 2, cSincroFlag = 0  WHERE cClieCode = 5    AND IdLocal = 1
SELECT * FROM Cliente WHERE cSincroFlag = 0 ORDER BY dUltTDate
 UPDATE Acumulacion_Punto    SET cSincroFlag = 1  WHERE cClieCode = 5    AND cAcumCode = 1    AND IdLocal = 1
UPDATE Configuracion SET nUFotNumb = 12
 SELECT cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, cProdFlagFicha, cProdFlagCanje, cProdFlagControl FROM Producto where cAlmaCode = '01' ORDER BY cProdCode
UPDATE Producto SET cProdEstd = 0 WHERE cProdCode = 12 and cAlmaCode = '01'
SELECT MAX(cProdCode) AS CODIGO FROM Producto where cAlmaCode='01'
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, cProdFlagFicha, cProdFichaCant, cProdFlagCanje, cProdFlagControl) VALUES ('01', 888, 'D' + Chr(39) + 'Onofrio', 'x', 12.50, 1, 0, 0, 0, 1)
UPDATE Producto SET sProdDesc = 'x', sProdDescCrta = 'y', nProdPrecUnit = 1, cProdEstd = 1, cProdFlagFicha = 0, cProdFichaCant = 0, cProdFlagCanje = 0, cProdFlagControl = 0 WHERE cProdCode = 12 AND cAlmaCode = '01'
DELETE * FROM Producto WHERE cProdCode = 12 and cAlmaCode ='01'
 SELECT C.cTeclCode, C.sTeclDesc, C.sTeclRapd, C.cTeclFlagAsig, C.cProdCode, P.sProdDescCrta FROM ConfiguracionTeclado AS C LEFT JOIN Producto AS P ON C.cProdCode = P.cProdCode WHERE C.cTeclCode between 1 and 24 AND P.cAlmaCode ='01' ORDER BY cTeclCode
 SELECT dTipoCambFech, nTipoCambMont FROM Tipo_Cambio ORDER BY dTipoCambFech
INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('30/11/2026', '3.50')
UPDATE Tipo_Cambio SET nTipoCambMont = '3.55' WHERE FORMAT(dTipoCambFech,'dd/mm/yyyy') = '24/11/2026'
DELETE * FROM Tipo_Cambio WHERE format(dTipoCambFech,'dd/mm/yyyy') = '24/11/2026'
SELECT sUserDesc, sPerfDesc, sUserApel, sUserName, cUserActi FROM Usuario a, Perfil b WHERE a.cPerfCode = b.cPerfCode Order by sUserName, sPerfDesc
INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, sUserApel, sUserName, cUserActi) VALUES ('nuevo', 'x', 2, 'ÑAHUI', 'ANA', 1)
UPDATE Usuario SET cUserActi = 0 WHERE TRIM(sUserDesc) = TRIM('nuevo')
DELETE * FROM Usuario WHERE TRIM(sUserDesc) = TRIM('nuevo')
select max(cod_TAR) as cod from tipo_tarjeta
INSERT INTO tipo_tarjeta (cod_tar, Descrip) VALUES('009','VISA')
UPDATE tipo_tarjeta SET  Descrip = 'VISA'  WHERE cod_tar = '009'
 INSERT INTO Operacion(cOperCode) VALUES ('500')
UPDATE Producto set cAlmaCode='02'
# The rest of voids and reprints
 SELECT MAX(cOperCode) AS maximo FROM OperacionParalela
Select * FROM Operacion WHERE cOperCode= 45
Select * FROM OperacionParalela WHERE cOperCode= 5
Select nTarjNumb, dOperFech  FROM OperacionParalela WHERE cOperCode= 5
SELECT  * FROM OperacionParalela WHERE cOperCode=5
SELECT  * FROM OperacionParalela WHERE cDocSerie='OC1' AND cDocCodigo=7
SELECT cOperCodeAnula as CodRela FROM Operacion WHERE cOperCode = 45   AND cOperFlagAbierto = 1 
SELECT cOperCodeRela as CodRela FROM OperacionParalela WHERE cOperCode = 5   AND cOperFlagAbierto = 1 
# The rest of the day
SELECT count(*) as nCount FROM Operacionparalela Where coperflagabierto = 1 AND  dOperFech < (SELECT max(fec) FROM _Tmp)
UPDATE Operacionparalela SET coperflagabierto = '0' WHERE dOperFech < (SELECT max(fec) FROM _Tmp)
SELECT cOperId FROM Configuracion
 SELECT count(*) AS TOTAL FROM Operacion o WHERE o.cOperTipo in (1,2,3,4,5)   and o.cOperId > 12 
update configuracion set icierrecaja=1
update configuracion set icierrecaja=6
 UPDATE OPERACIONPARALELA SET cOperFlagAbierto = 0 WHERE cOperFlagAbierto = 1
UPDATE Configuracion SET cOperId = 12, cOperIdP = NULL
select coperid from Configuracion
select coperidP from Configuracion
select max(coperid) from operacion
select max(copercode) from operacionParalela
# The rest of the reports
 SELECT SUM(o.nmontosoles +  o.nprodprecunit ) as TOTAL   FROM operacion o   WHERE o.cOperTipo = 2 and o.cDocTipo='14'     AND o.cOperFlagAnula = 0   and o.cOperId > 12  AND cTurnoCodi = '01'
SELECT distinct(o.cOpercode)  FROM operacion o WHERE  (o.cdoctipo='02' or o.cdoctipo='01')  AND o.cOperFlaganula=0    and o.cOperId > 12 
SELECT distinct(o.cOpercode)  FROM operacion o WHERE  (o.cemisor <> ''  or o.cOperTipo=2)  AND o.cOperFlaganula=0    and o.cOperId > 12 
 SELECT SUM((o.nProdPrecUnit * o.nProdCant) + ((o.nProdPrecUnit * o.nProdCant) * o.nDscto/100)) as TKMontNulos   FROM Operacion o   WHERE o.cOperflaganula= 1     AND o.cProdcode <>  0     AND o.cOpercodeanula <> 0    and o.cOperId > 12 
 SELECT distinct o.cOperCode   FROM Operacion o   WHERE o.cOperflaganula= 1     AND o.cProdcode <>  0     AND o.cOpercodeanula <> 0    and o.cOperId > 12 
 SELECT SUM(o.nMontoSoles + o.nProdPrecUnit) AS TOTAL FROM Operacion o  WHERE (o.cOperTipo in( 1, 3))  AND o.cDoctipo in ('01','02')  AND o.cProdCode = 0  AND o.cOperFlaganula= 0    and o.cOperId > 12 
select max(copercode) as CodigoUltimo from operacion where format(doperfech,'dd/mm/yyyy')='24/11/2026' and copertipo=10
 Select sum(nProdCant) as items  , sum((nProdPrecUnit *  nProdCant) + ((nProdPrecUnit *  nProdCant) * nDscto/100) ) as precio     FROM OperacionParalelaProducto p , OperacionParalela o    WHERE p.cOpercode = o.cOpercode      AND o.cOpercodeAnul=0    and o.cOperCode > 5      AND o.cEstado='1' AND o.cOperTipo in (20)   AND o.cTurnoCodi = '01' 
 Select sum(p.nProdCant) as items  , sum((p.nProdPrecUnit * p.nProdCant)  + ((p.nProdPrecUnit * p.nProdCant) * nDscto/100) ) as precio     FROM OperacionParalelaProducto p , OperacionParalela o    WHERE p.cOpercode = o.cOpercode      AND o.cOpercodeAnul=0    and o.cOperCode > 5      AND o.cEstado='1' AND cOperTipo in (21)  
 SELECT d.cProdCode , sum(d.nProdCant) as Cantidad ,  max(p.cCodcatalogo) as Catalogo, max(p.sProdDesc) as Descripcion  FROM OperacionParalelaProducto  d, OperacionParalela o,   Producto  p  WHERE d.cOpercode = o.cOpercode    AND d.cProdCode = p.cProdCode    AND d.cProdcode <> 0    and o.cOperCode > 5    AND o.cOperCodeanul =  0 AND cEstado= '1' AND o.cOpertipo in (21)  GROUP BY d.cprodcode  ORDER BY  4
 SELECT Sum(o.nMontosoles) as PADE, count(*) as items FROM OperacionParalela o  WHERE o.cOperTipo in (22) and o.cEstado in ('1')  AND o.cOpercodeAnul = 0    and o.cOperCode > 5 
 SELECT sum(o.nMontosoles) as padliq, Count(*) as item  FROM OperacionParalela o  WHERE o.cOperTipo in (22) and o.cEstado in ('2')  AND o.cOpercodeAnul = 0    and o.cOperCode > 5 
 SELECT o.cOperCode, o.cOperTipo, o.nTarjNumb, o.sGlosa, o.nMontosoles, o.nMontoDolares, o.nMoneda FROM OperacionParalela o  WHERE o.cOperTipo in (22) and o.cEstado in ('2')  AND o.cOpercodeAnul = 0    and o.cOperCode > 5 
 SELECT sum(nMontosoles) as padliq, count(*) as item FROM OperacionParalela  WHERE cOperTipo in (22) and cOperFlagAbierto=0 and cEstado in ('2')  AND cOperCodeRela in (SELECT o.cOperCode from OperacionParalela o WHERE o.cOpercodeAnul = 0    and o.cOperCode > 5 ) AND cOpercodeAnul = 0 
 SELECT cOperCode, cOperTipo, nTarjNumb, sGlosa, nMontosoles, nMoneda, nMontoDolares FROM OperacionParalela  WHERE cOperTipo in (23) and cOperFlagAbierto=0 and cEstado in ('2')  AND cOperCodeRela in (SELECT o.cOperCode from OperacionParalela o WHERE o.cOpercodeAnul = 0    and o.cOperCode > 5 ) AND cOpercodeAnul = 0 
 SELECT SUM((o.nProdPrecUnit * o.nProdCant) +  ((o.nProdPrecUnit * o.nProdCant) * o.nDscto/100)) AS TOTAL FROM Operacion o  WHERE o.cOperTipo = 2 AND o.cOperFlagAnula = 0  AND o.cOpercodeAnula=0    and o.cOperId > 12 
 SELECT SUM(o.nMontoSoles + o.nProdPrecUnit) AS TOTAL FROM Operacion o  WHERE (o.cOperTipo in( 1))  AND o.cDoctipo in ('01','02','10', '14')  AND o.cProdCode = 0  AND o.cOperFlaganula= 0    and o.cOperId > 12 
# The rest of the cash count
 SELECT SUM(nProdPrecUnit) AS TOTAL FROM Operacion WHERE cOperFlagAbierto = 1  AND cOperTipo = 5  AND cOperFlagAnula = 0 
 SELECT SUM(nMontosoles) AS TOTAL FROM Operacion WHERE cOperFlagAbierto = 1  AND cOperTipo = 1 AND TRIM(cEmisor) <> ''  AND cOperFlagAnula = 0 
 SELECT SUM((nProdPrecUnit * nProdCant) +  ((nProdPrecUnit * nProdCant) * nDscto/100)) AS TOTAL FROM Operacion WHERE cOperFlagAbierto = 1  AND cOperTipo = 2 AND cOperFlagAnula = 0  AND cOpercodeAnula=0 
SELECT SUM(nmontosoles +  nprodprecunit ) as TOTAL   FROM operacion  WHERE cOperFlagAbierto = 1  AND cOperTipo = 2 and cDocTipo='14'  AND cOperFlagAnula = 0
 SELECT SUM(nMontoDolares - nVueltoDolares) AS TOTAL FROM Operacion WHERE cOperFlagAbierto = 1  AND cOperTipo in (1, 3)  AND cDoctipo in ('01','02')  AND cOperFlaganula= 0 
 SELECT SUM(nMontoDolares-nVueltoDolares) AS TOTAL FROM Operacion WHERE cOperFlagAbierto = 1  AND cOperTipo in (1)  AND cDoctipo in ('01','02', '14', '10')  AND cOperFlaganula= 0 
 SELECT Sum(nEfectivosoles) as PADES, Sum(nEfectivoDolares) as PADED FROM OperacionParalela  WHERE cOperTipo in (22) and cOperFlagAbierto=1 and cEstado in ('1') and cOpercodeAnul=0
 SELECT Sum(nEfectivosoles) as PADVS, Sum(nEfectivoDolares) as PADVD FROM OperacionParalela  WHERE cOperTipo in (23) and cOperFlagAbierto=1 and cEstado in ('1') and cOpercodeAnul=0
# Parallel documents reports
 SELECT count(*) AS TOTAL FROM OperacionParalela o  WHERE o.cOperTipo = 20   and o.cOperCode > 5 
 SELECT O.cOperCode, O.cProdCode, O.nProdCant, O.nProdPrecUnit, O.nDscto, P.sProdDescCrta, O.nProdCant * O.nProdPrecUnit * (100 - O.nDscto) / 100 As TotalMonto, c.cTeclCode , c.sTeclDesc FROM Operacion O INNER JOIN (Producto P LEFT JOIN ConfiguracionTeclado AS C ON P.cProdCode = C.cProdCode) ON O.cProdCode = P.cProdCode AND P.cAlmaCode = O.cAlmaCode Where cOperTipo = 10    and o.cOperId > 12  ORDER BY 1
 SELECT o.cOperTipo, o.cOperCode, SUM(o.nProdCant * o.nProdPrecUnit * (100 - o.nDscto) / 100) AS TotMonto FROM Operacion o  WHERE ((o.cOperTipo = 3 AND o.cProdCode <> 0) OR (o.cOperTipo = 10 AND o.cOperFlagAnula = 1) OR (o.cOperTipo = 10 AND o.cOperFlagAnula = 0 AND o.nProdPrecUnit > 0)) AND o.cOperTipo = 10   and o.cOperId > 12  GROUP BY o.cOperTipo, o.cOperCode ORDER BY 1
 SELECT SUM(O.nProdCant) AS TotItem, SUM(O.nProdCant * O.nProdPrecUnit * (100 - O.nDscto) /100) AS TotMonto FROM (ConfiguracionTeclado AS C RIGHT JOIN Producto as P ON C.cProdCode = P.cProdCode) INNER JOIN Operacion AS O ON P.cProdCode = O.cProdCode AND P.cAlmaCode = O.cAlmaCode WHERE cProdFlagCanje <> 1  AND cOperTipo = 10   and o.cOperId > 12 
UPDATE Operacion SET cOperFlagAbierto = 0 WHERE cOperTipo = '20' and cOperFlagAbierto = 1
# Report X-1 on a sheet
 SELECT  cOperTipo,  p.sProdDescCrta, P.nProdPrecUnit, o.nProdCant, o.cDocSerie, o.cDocCodigo, o.cDocTipo, o.cOpercodeAnula,  o.nProdCant * o.nProdPrecUnit AS TotalMonto, cemisor  FROM operacion o  Left Outer Join producto p   on o.cprodcode= p.cprodcode  WHERE cdoctipo in ('01', '02') and o.cprodcode <> 0    and o.cOperId > 12  AND not copercode in (select copercodeanula from operacion where cOperflaganula=1 )
SELECT a.cEstado, a.cOperTipo, a.cDocSerie, a.cDocCodigo, a.cDocTipo,a.cOperCodeAnul, d.nProdCant AS  sProdCant ,  d.nProdPrecUnit  AS Precio, d.nDscto, p.sproddesccrta as producto ,  p.cprodcode,  p.ccodcatalogo AS Codigo FROM  operacionparalelaproducto d, operacionparalela a , producto p WHERE d.copercode in       (select o.copercode  FROM OperacionParalela o        WHERE 1=1    and o.cOperCode > 5  ) AND d.cOpercode=a.COperCode and   d.cProdCode=p.cProdCode and  a.cdoccodigo <> 0 AND a.cOpertipo in (20,21,24) 
 SELECT o.cDocserie, o.cDoccodigo, o.cOperCodeAnul, o.cOperCode, o.cOperTipo, o.cestado, o.nTarjNumb, o.sGlosa, o.nMontosoles FROM OperacionParalela o  WHERE o.cOperTipo in (22,23) and o.cEstado in ('1')    and o.cOperCode > 5 
 SELECT o.cDocserie, o.cDoccodigo, o.cOperCode, o.cOperTipo, o.nTarjNumb, o.sGlosa, o.nMontosoles FROM OperacionParalela o  WHERE o.cOperTipo in (22) and o.cEstado in ('2')    and o.cOperCode > 5  AND o.cOpercodeAnul = 0 
 SELECT cDocserie, cDoccodigo, cOperCode, cOperTipo, nTarjNumb, sGlosa, nMontosoles FROM OperacionParalela  WHERE cOperTipo in (22) and cOperFlagAbierto=0 and cEstado in ('2')  AND cOperCodeRela in (SELECT o.cOperCode from OperacionParalela o WHERE 1 = 1    and o.cOperCode > 5 ) AND cOpercodeAnul = 0 
 SELECT o.cEstado, o.cOperTipo, o.cDocSerie, o.cDocCodigo, o.cDocTipo,o.cOperCodeAnul, o.sglosa, o.nmontosoles   FROM Operacionparalela o  WHERE o.copercodeanul <>  0 AND not o.cOpertipo in (20,21,24)    and o.cOperCode > 5 
 SELECT  C.sTeclDesc, P.sProdDescCrta, MAX(P.nProdPrecUnit) AS PrecioUnit, SUM(O.nProdCant) AS TotalItem, SUM(O.nProdCant * O.nProdPrecUnit) AS TotalMonto FROM (ConfiguracionTeclado AS C RIGHT JOIN Producto as P ON C.cProdCode = P.cProdCode) INNER JOIN Operacion AS O ON P.cProdCode = O.cProdCode  WHERE cOperTipo in (1,2,3,4,5)   and o.cOperId > 12  GROUP BY C.cTeclCode, C.sTeclDesc, P.sProdDescCrta ORDER BY 1
Select a.cprodcode,sum(a.nProdCant) as  sProdCant , max(a.nProdPrecUnit)  as Precio,a.nDscto, max(p.sproddesccrta) as producto , max(p.ccodcatalogo) as Codigo  from operacionparalelaproducto a  left outer join producto p on  a.cProdCode=p.cProdCode  where copercode in (select o.copercode  from operacionparalela o  where o.cestado='1' and o.cOperTipo in (20)    and o.cOperCode > 5  ) group by a.cprodcode, a.nDscto  ORDER BY  max(p.sproddesccrta)
Select o.cprodcode, sum(o.nProdCant) as  sProdCant , max(o.nProdPrecUnit)  as Precio,o.nDscto, max(p.sproddesccrta) as producto , max(p.ccodcatalogo) as Codigo  from operacionparalelaproducto o  left outer join producto p on  o.cProdCode=p.cProdCode and  o.cAlmaCode=p.cAlmaCode  where copercode in (select copercode  from operacionparalela  where cestado='1' and cOperTipo in (21) ) group by o.cprodcode, o.nDscto  ORDER BY  max(p.sproddesccrta)
 Select sum(nProdCant) as items  , sum(nProdCant * (nProdPrecUnit * ( ( 100 - nDscto)/100)) ) as precio  From operacionparalelaproducto  where copercode in (select o.copercode  from operacionparalela o  where o.cestado='1' and o.cOperTipo in (20)    and o.cOperCode > 5  ) 
 SELECT SUM(o.nProdCant * o.nProdPrecUnit * (100 - o.nDscto) /100) AS TOTAL  FROM Operacion o  WHERE o.cOperTipo = 2     and o.cOperId > 12  AND NOT o.cOperFlagAnula = 1  AND o.cOperCode Not In (Select cOperCodeAnula                          From Operacion                         Where cOperFlagAnula = 1    and cOperId > 12  )
SELECT SUM(o.nmontosoles + o.nprodprecunit ) as TOTAL   FROM operacion o  WHERE o.cOperTipo = 2 and o.cDocTipo='14'    and o.cOperId > 12  AND NOT o.cOperFlagAnula = 1
 SELECT SUM(o.nMontoDolares-o.nVueltoDolares) AS TOTAL FROM Operacion o  WHERE o.cOperTipo in (1)    and o.cOperId > 12  AND ( o.coperCode not in (SELECT cOperCodeanula                           FROM Operacion WHERE cOperFlagAnula=1    and cOperId > 12  )                           OR  cdocTipo NOT in ('02', '01'))  AND (o.cOperCode NOT in (Select cOperCode FROM OperacionParalela WHERE cOperCodeAnul <> 0 ) OR  cDocTipo in ('02', '01')) 
 SELECT SUM((o.nProdPrecUnit * o.nProdCant)+o.nMontoSoles) AS TOTAL FROM Operacion o WHERE (o.cOperTipo in (1))    and o.cOperId > 12  AND o.cProdCode = 0 AND ( o.coperCode not in (SELECT cOperCodeanula                           FROM Operacion WHERE cOperFlagAnula=1    and cOperId > 12  )                           OR  cdocTipo NOT in ('02', '01'))  AND (o.cOperCode NOT in (Select cOperCode FROM OperacionParalela WHERE cOperCodeAnul <> 0 ) OR  cDocTipo in ('02', '01')) 
# The cross-check with the central database
SELECT cSerieDoc FROM Config_Documento WHERE cTipoDoc IN('01','02')
SELECT Count(Operacion.cProdCode) AS CuentaDeProdCode From Operacion WHERE (((Year([dOperFech]))=Year(Now())) AND ((Month([dOperFech]))=Month(Now())) AND ((Day([dOperFech]))=Day(Now())) AND ((Operacion.cProdCode)<>0) AND ((Operacion.cDocSerie) in ('012','F01')) AND ((Operacion.cOperFlagAnula)=0)) 
# The rest of what is sent
UPDATE operacion SET cFlagSincronizacion = '1' WHERE cOperCode = 45
UPDATE OPERACION SET cFlagSincronizacion = '1' WHERE cOperCOde = 45 AND cOperId=13
UPDATE  operacionparalela SET cFlagSincronizacion = '1' WHERE cOperCode = 5
UPDATE OPERACIONParalela SET cFlagSincronizacion = '1' WHERE cOpercode = 5
 SELECT * FROM Operacion WHERE cOperFlagAbierto = 0  AND cProdCode <> 0  and coperid > 1 and coperid <= 12  ORDER BY cOperCode
 SELECT * FROM OperacionParalela WHERE cOperFlagAbierto= 0  AND cOperCodeAnul = 0  AND cOperCode > 1 AND cOperCode <= 12 AND NOT cOperCode in  (Select cOperCodeAnul from operacionParalela )  ORDER BY cOpercode
 SELECT * FROM OperacionParalelaProducto WHERE cOperCode = 5 and cProdCode <> 0 
select idlocal from operacion where cOperCode=5 and year(dOperFech)=2026 and month(dOperFech)=11 and day(dOperFech)=24
select * from CabeceraZ where bflagsincro=0
SELECT IdZ,Caja,CantidadTotal,MontoTotal,Fecha,RangoTKBOL,RangoTKFAC,CodigoRep,cOperIdIni,cOperIdFin,cOperIdPIni,cOperIdPFin FROM CabeceraZ WHERE bFlagSincro=0
SELECT IdZ,Caja,nItem,CodProd,DscProd,Cantidad FROM DetalleZ WHERE bFlagSincro=0 AND IdZ=7 AND Caja='00012' ORDER BY IdZ,nItem
UPDATE CabeceraZ SET bFlagSincro=1 WHERE bFlagSincro=0
UPDATE DetalleZ SET bFlagSincro=1 WHERE bFlagSincro=0
# The rest of the purge
DELETE from OPERACIONPARALELAPRODUCTO WHERE cOperCode IN  (SELECT cOpercode FROM OPERACIONPARALELA WHERE cFlagSincronizacion ='1' AND dOperFech < #2026/11/16# AND  not(cEstado='1') AND not (cDocTipo in('12','13'))) 
DELETE FROM OPERACIONPARALELA WHERE cFlagSincronizacion ='1' AND dOperFech < #2026/11/16# AND  NOT (cEstado='1') AND not (cDocTipo in('12','13')) 
DELETE FROM OPERACION WHERE cFlagSincronizacion ='1' AND cDoctipo<>'01' AND dOperFech < #2026/11/16# 
DELETE FROM OPERACIONPARALELAPRODUCTOHIST WHERE cOpercode in (SELECT copercode FROM OPERACIONPARALELA WHERE DOPERFECH <  dateadd( 'm', -3, date()))
DELETE FROM OPERACIONPARALELA_HISTORICO WHERE DOPERFECH <  dateadd( 'm', -3, date())
DELETE FROM OPERACION_HISTORICO WHERE DOPERFECH <  dateadd( 'm', -3, date())
DELETE FROM canje_punto  WHERE dCanjDate > #2026/11/01#   AND dCanjDate < #2026/11/16#
DELETE FROM canje_ticket  WHERE dCanjDate > #2026/11/01#   AND dCanjDate < #2026/11/16#
DELETE FROM cuadre_caja  WHERE dCuadreFecha > #2026/11/01#   AND dCuadreFecha < #2026/11/16#
SELECT cOperCode   FROM OperacionParalela  WHERE dOperFech > #2026/11/01#   AND dOperFech < #2026/11/16#
 UPDATE Sincronizacion     SET dFechSincro = '01/01/1900'
# The rest of a day sent again
 SELECT * FROM Operacion  WHERE cProdCode <> 0  AND FORMAT(dOperFech, 'dd/mm/yyyy') = '24/11/2026' UNION  SELECT * FROM Operacion_Historico  WHERE cProdCode <> 0  AND FORMAT(dOperFech, 'dd/mm/yyyy') = '24/11/2026'
 SELECT * FROM OperacionParalela  WHERE cOperCodeAnul = 0  AND FORMAT(dOperFech, 'dd/mm/yyyy') = '24/11/2026' AND NOT cOperCode in  (Select cOperCodeAnul from OperacionParalela )  UNION  SELECT * FROM OperacionParalela_Historico  WHERE cOperCodeAnul = 0  AND FORMAT(dOperFech, 'dd/mm/yyyy') = '24/11/2026' AND NOT cOperCode in  (Select cOperCodeAnul from OperacionParalela_Historico ) 
 SELECT * FROM OperacionParalelaProducto WHERE cOperCode = 5 and cProdCode <> 0  UNION  SELECT * FROM OperacionParalelaProductoHist WHERE cOperCode = 5 and cProdCode <> 0 
# The rest of customers and users
 SELECT cClieCode FROM Tarjeta WHERE nTarjNumb='00001234'
UPDATE Usuario SET sUserPass = 'x', cPerfCode = 2, sUserApel = 'Ñahui', sUserName = 'Ana', cUserActi = 1 WHERE TRIM(sUserDesc) = TRIM('ana')
# Master data
 INSERT INTO UNIDADMEDIDA (cUndmedid, vDscundmd, vDscCrta) VALUES ('ZZZ','Zeta','ZZ')
 UPDATE UNIDADMEDIDA SET vDscundmd = 'Zeta', vDscCrta = 'ZZ' WHERE cUndmedid = 'ZZZ'
 UPDATE configuracionTeclado     SET cProdCode = 0, cTeclFlagAsig='0'  where cProdCode IN (SELECT cProdCode FROM Producto WHERE nActivo =0) 
 Select nActivo from producto where cProdCode=12
 UPDATE producto  SET nActivo = 1,  sProdDesc = 'x',  sProdDescCrta = 'x',  cCodCatalogo = 'x'  WHERE cProdCode = 12
 SELECT o.cOperCode, d.nProdCant, d.nProdPrecUnit, d.nDscto, (SELECT MIN(c.sTeclDesc) FROM ConfiguracionTeclado c WHERE c.cProdCode = d.cProdCode) AS sTeclDesc FROM OperacionParalela o INNER JOIN OperacionParalelaProducto d ON d.cOperCode = o.cOperCode WHERE o.cOperTipo + 0 = 20    and o.cOperCode > 3  AND TRIM(o.cEstado) <> '0' ORDER BY o.cOperCode
 SELECT o.cOperCode, o.nEfectivoSoles - o.nVueltoSoles AS nSoles, (SELECT SUM(t.nMontoSoles + t.nProdPrecUnit) FROM Operacion t WHERE t.cOperCode = o.cOperCode AND t.cOperTipo = 2 AND t.cDocTipo = o.cDocTipo AND t.cOperFlagAnula = 0) AS nTarjetas FROM OperacionParalela o WHERE o.cOperTipo + 0 = 24 ORDER BY o.cOperCode
SELECT SUM(o.nMontoDolares - o.nVueltoDolares) AS TOTAL FROM Operacion o WHERE o.cOperTipo in (1)    and o.cOperId > 3  AND (o.cDocTipo in ('01', '02') OR o.cOperCode NOT in (SELECT x.cOperCode FROM (SELECT o.cOperCode FROM OperacionParalela o WHERE o.cOperCodeAnul <> 0    and o.cOperCode > 3 ) x))
 SELECT * FROM OperacionParalela WHERE dOperFech >= #11/17/2026# AND dOperFech < #11/25/2026# AND cOperTipo + 0 <> 30 AND cOperTipo + 0 = 22 AND TRIM(cEstado) = '1' ORDER BY dOperFech, cOperCode
select * from CabeceraZ where bflagsincro=0 AND Caja='00001'
select MAX(cOperIdFin) as nFin, MAX(cOperIdPFin) as nFinP from CabeceraZ
SELECT cOperIdIni, cOperIdFin, cOperIdPIni, cOperIdPFin FROM DetalleEnviado
SELECT COUNT(*) AS nFilas, MIN(dOperFech) AS dDesde, MAX(dOperFech) AS dHasta FROM Operacion WHERE cOperFlagAbierto = 0 AND cOperID <= 1 AND cProdCode <> 0 AND cFlagSincronizacion = '0'
SELECT COUNT(*) AS nFilas, MIN(dOperFech) AS dDesde, MAX(dOperFech) AS dHasta FROM Operacion WHERE cOperFlagAbierto = 0 AND cOperID <= 1 AND cFlagSincronizacion = '1' AND ((cOperID > 0 AND cOperID <= 1))
SELECT COUNT(*) AS nFilas, MIN(dOperFech) AS dDesde, MAX(dOperFech) AS dHasta FROM OperacionParalela WHERE cOperFlagAbierto = 0 AND cOperCode <= 2 AND (NOT cOperTipo IN (0, 30) AND (cFlagSincronizacion = '0' OR NOT cOperCode IN (SELECT cOperCode FROM ParalelaEnviada)))
SELECT COUNT(*) AS nFilas, MIN(dOperFech) AS dDesde, MAX(dOperFech) AS dHasta FROM OperacionParalela WHERE cOperFlagAbierto = 0 AND cOperCode <= 2 AND cFlagSincronizacion = '1' AND ((cOperCode > 0 AND cOperCode <= 2))
 SELECT TOP 2000 * FROM Operacion WHERE cOperFlagAbierto = 0  AND cProdCode <> 0  and coperid > 0 and coperid <= 1 AND cFlagSincronizacion = '0' ORDER BY cOperID
 SELECT TOP 2000 * FROM OperacionParalela WHERE cOperFlagAbierto= 0  AND cOperCodeAnul = 0  AND cOperCode > 0 AND cOperCode <= 2 AND NOT cOperTipo IN (0, 30) AND ((NOT cOperTipo IN (0, 30) AND (cFlagSincronizacion = '0' OR NOT cOperCode IN (SELECT cOperCode FROM ParalelaEnviada))) OR ((cOperCode > 0 AND cOperCode <= 2))) AND NOT cOperCode in  (Select cOperCodeAnul from operacionParalela )  ORDER BY cOpercode
select idlocal from operacion where cOperCode=1 and year(dOperFech)=2026 and month(dOperFech)=11 and day(dOperFech)=20 and cDocTipo='10'
 SELECT * FROM OperacionParalelaProducto WHERE cOperCode IN (1) and cProdCode <> 0  ORDER BY cOperCode
UPDATE OPERACIONParalela SET cFlagSincronizacion = '1' WHERE cOpercode IN (1)
DELETE FROM ParalelaEnviada WHERE cOperCode IN (1)
INSERT INTO ParalelaEnviada (cOperCode, cEstado, cOperCodeRela, cOperCodeAnul) VALUES (1, '1', 0, 0)
SELECT o.cOperCode, o.cEstado, o.cOperCodeRela, o.cOperCodeAnul, o.cDocCodigo FROM OperacionParalela o INNER JOIN ParalelaEnviada e ON e.cOperCode = o.cOperCode WHERE o.cFlagSincronizacion = '1' AND (o.cEstado <> e.cEstado OR o.cOperCodeRela <> e.cOperCodeRela OR o.cOperCodeAnul <> e.cOperCodeAnul) ORDER BY o.cOperCode
SELECT IdZ,Caja,nItem,CodProd,DscProd,Cantidad FROM DetalleZ WHERE IdZ=1 AND Caja='00001' AND bFlagSincro=0 ORDER BY IdZ,nItem
SELECT Caja, cOperIdIni, cOperIdFin FROM CabeceraZ WHERE bFlagSincro = 0 OR IdZ > (SELECT MAX(IdZ) FROM CabeceraZ) - 8 ORDER BY IdZ
SELECT SUM(IIF(cFlagSincronizacion = '1', 0, 1)), MIN(dOperFech), MAX(dOperFech) FROM Operacion WHERE cOperFlagAbierto = 0 AND cProdCode <> 0 AND cOperID > 0 AND cOperID <= 1
SELECT MIN(cOperIdIni) AS nIni, MIN(cOperIdPIni) AS nIniP FROM CabeceraZ WHERE bFlagSincro = 0
SELECT distinct TOP 8 cdate(FORMAT( DOPERFECH  , 'DD/MM/YYYY')) as fechalimite   FROM OPERACION  WHERE DOPERFECH < #11/23/2026# OR DOPERFECH >= #11/24/2026# ORDER BY 1  desc
SELECT distinct TOP 8 cdate(FORMAT( DOPERFECH  , 'DD/MM/YYYY')) as fechalimite   FROM OPERACIONPARALELA  WHERE DOPERFECH < #11/23/2026# OR DOPERFECH >= #11/24/2026# ORDER BY 1  desc
INSERT INTO OPERACIONPARALELAPRODUCTOHIST SELECT * FROM  OPERACIONPARALELAPRODUCTO WHERE cOperCode IN (SELECT cOpercode FROM OPERACIONPARALELA WHERE ((cFlagSincronizacion ='1' AND dOperFech < #11/20/2026# AND  not(cEstado='1') AND not (cDocTipo in('12', '13')) AND cOperCode IN (SELECT o.cOperCode FROM OPERACIONPARALELA o INNER JOIN ParalelaEnviada e ON e.cOperCode = o.cOperCode WHERE o.cEstado = e.cEstado AND o.cOperCodeRela = e.cOperCodeRela AND o.cOperCodeAnul = e.cOperCodeAnul)) OR (cOperTipo = 30 AND cOperFlagAbierto = 0 AND dOperFech < #11/20/2026#))) 
DELETE from OPERACIONPARALELAPRODUCTO WHERE cOperCode IN (SELECT cOpercode FROM OPERACIONPARALELA WHERE ((cFlagSincronizacion ='1' AND dOperFech < #11/20/2026# AND  not(cEstado='1') AND not (cDocTipo in('12', '13')) AND cOperCode IN (SELECT o.cOperCode FROM OPERACIONPARALELA o INNER JOIN ParalelaEnviada e ON e.cOperCode = o.cOperCode WHERE o.cEstado = e.cEstado AND o.cOperCodeRela = e.cOperCodeRela AND o.cOperCodeAnul = e.cOperCodeAnul)) OR (cOperTipo = 30 AND cOperFlagAbierto = 0 AND dOperFech < #11/20/2026#))) 
INSERT INTO OPERACIONPARALELA_HISTORICO   SELECT * FROM OPERACIONPARALELA WHERE ((cFlagSincronizacion ='1' AND dOperFech < #11/20/2026# AND  not(cEstado='1') AND not (cDocTipo in('12', '13')) AND cOperCode IN (SELECT o.cOperCode FROM OPERACIONPARALELA o INNER JOIN ParalelaEnviada e ON e.cOperCode = o.cOperCode WHERE o.cEstado = e.cEstado AND o.cOperCodeRela = e.cOperCodeRela AND o.cOperCodeAnul = e.cOperCodeAnul)) OR (cOperTipo = 30 AND cOperFlagAbierto = 0 AND dOperFech < #11/20/2026#))
DELETE FROM OPERACIONPARALELA WHERE ((cFlagSincronizacion ='1' AND dOperFech < #11/20/2026# AND  not(cEstado='1') AND not (cDocTipo in('12', '13')) AND cOperCode IN (SELECT o.cOperCode FROM OPERACIONPARALELA o INNER JOIN ParalelaEnviada e ON e.cOperCode = o.cOperCode WHERE o.cEstado = e.cEstado AND o.cOperCodeRela = e.cOperCodeRela AND o.cOperCodeAnul = e.cOperCodeAnul)) OR (cOperTipo = 30 AND cOperFlagAbierto = 0 AND dOperFech < #11/20/2026#))
DELETE FROM ParalelaEnviada WHERE NOT cOperCode IN (SELECT cOperCode FROM OPERACIONPARALELA)
INSERT INTO OPERACION_HISTORICO   SELECT  * FROM OPERACION WHERE cFlagSincronizacion ='1' AND cDoctipo<>'01' AND dOperFech < #11/20/2026# AND cProdCode <> 0
DELETE FROM OPERACION WHERE cFlagSincronizacion ='1' AND cDoctipo<>'01' AND dOperFech < #11/20/2026# AND cProdCode <> 0
INSERT INTO OPERACION_HISTORICO   SELECT  * FROM OPERACION WHERE cProdCode = 0 AND cOperFlagAbierto = 0 AND dOperFech < #11/20/2026# AND ((cDocTipo = '02' AND NOT cOperCode IN (SELECT cOperCode FROM OPERACION WHERE cProdCode <> 0 AND cFlagSincronizacion <> '1' AND dOperFech < #11/20/2026# AND cDocTipo = '02')) OR (cDocTipo IN ('10', '11', '12', '13') AND NOT cOperCode IN (SELECT cOperCode FROM OPERACIONPARALELA)))
DELETE FROM OPERACION WHERE cProdCode = 0 AND cOperFlagAbierto = 0 AND dOperFech < #11/20/2026# AND ((cDocTipo = '02' AND NOT cOperCode IN (SELECT cOperCode FROM OPERACION WHERE cProdCode <> 0 AND cFlagSincronizacion <> '1' AND dOperFech < #11/20/2026# AND cDocTipo = '02')) OR (cDocTipo IN ('10', '11', '12', '13') AND NOT cOperCode IN (SELECT cOperCode FROM OPERACIONPARALELA)))
DELETE FROM OPERACIONPARALELAPRODUCTOHIST WHERE cOpercode in (SELECT copercode FROM OPERACIONPARALELA_HISTORICO WHERE DOPERFECH <  dateadd( 'm', -3, date()) AND cOperCode < (SELECT MAX(cOperCode) FROM OPERACIONPARALELA_HISTORICO) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('10') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACIONPARALELA_HISTORICO WHERE cDocTipo IN ('10'))) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('11') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACIONPARALELA_HISTORICO WHERE cDocTipo IN ('11'))) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('12') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACIONPARALELA_HISTORICO WHERE cDocTipo IN ('12'))) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('13') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACIONPARALELA_HISTORICO WHERE cDocTipo IN ('13'))) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('14') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACIONPARALELA_HISTORICO WHERE cDocTipo IN ('14'))))
DELETE FROM OPERACIONPARALELA_HISTORICO WHERE DOPERFECH <  dateadd( 'm', -3, date()) AND cOperCode < (SELECT MAX(cOperCode) FROM OPERACIONPARALELA_HISTORICO) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('10') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACIONPARALELA_HISTORICO WHERE cDocTipo IN ('10'))) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('11') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACIONPARALELA_HISTORICO WHERE cDocTipo IN ('11'))) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('12') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACIONPARALELA_HISTORICO WHERE cDocTipo IN ('12'))) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('13') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACIONPARALELA_HISTORICO WHERE cDocTipo IN ('13'))) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('14') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACIONPARALELA_HISTORICO WHERE cDocTipo IN ('14')))
DELETE FROM OPERACION_HISTORICO WHERE DOPERFECH <  dateadd( 'm', -3, date()) AND cOperCode < (SELECT MAX(cOperCode) FROM OPERACION_HISTORICO) AND (cDocCodigo IS NULL OR NOT cDocTipo IN ('01', '02') OR cDocCodigo < (SELECT MAX(cDocCodigo) FROM OPERACION_HISTORICO WHERE cDocTipo IN ('01', '02')))
 SELECT TOP 2000 * FROM OperacionParalela WHERE cOperFlagAbierto= 0  AND cOperCodeAnul = 0  AND cOperCode > 0 AND cOperCode <= 15 AND NOT cOperTipo IN (0, 30) AND (NOT cOperTipo IN (0, 30) AND (cFlagSincronizacion = '0' OR NOT cOperCode IN (SELECT cOperCode FROM ParalelaEnviada))) AND NOT cOperCode in  (Select cOperCodeAnul from operacionParalela )  ORDER BY cOpercode
UPDATE OperacionParalela SET cEstado = '2', cOperCodeRela = 9, cOperCodeAnul = 0, cFlagSincronizacion = '0' WHERE cCajaCodi = '00001' AND cOperCode = 1 AND cDocCodigo = '000001'
UPDATE ParalelaEnviada SET cEstado = '2', cOperCodeRela = 9, cOperCodeAnul = 0 WHERE cOperCode = 1
SELECT COUNT(*) AS nFilas, MIN(dOperFech) AS dDesde, MAX(dOperFech) AS dHasta FROM Operacion WHERE cOperFlagAbierto = 0 AND cOperID <= 54 AND cFlagSincronizacion = '1' AND ((cOperID > 0 AND cOperID <= 6) OR (cOperID > 6 AND cOperID <= 12) OR (cOperID > 12 AND cOperID <= 18) OR (cOperID > 18 AND cOperID <= 24) OR (cOperID > 24 AND cOperID <= 30) OR (cOperID > 30 AND cOperID <= 36) OR (cOperID > 36 AND cOperID <= 42) OR (cOperID > 42 AND cOperID <= 48) OR (cOperID > 48 AND cOperID <= 54))
SELECT COUNT(*) AS nFilas, MIN(dOperFech) AS dDesde, MAX(dOperFech) AS dHasta FROM OperacionParalela WHERE cOperFlagAbierto = 0 AND cOperCode <= 95 AND cFlagSincronizacion = '1' AND ((cOperCode > 0 AND cOperCode <= 15) OR (cOperCode > 15 AND cOperCode <= 25) OR (cOperCode > 25 AND cOperCode <= 35) OR (cOperCode > 35 AND cOperCode <= 45) OR (cOperCode > 45 AND cOperCode <= 55) OR (cOperCode > 55 AND cOperCode <= 65) OR (cOperCode > 65 AND cOperCode <= 75) OR (cOperCode > 75 AND cOperCode <= 85) OR (cOperCode > 85 AND cOperCode <= 95))
UPDATE OPERACION SET cFlagSincronizacion = '1' WHERE cOperId IN (1, 2, 4, 5)
 SELECT * FROM Operacion WHERE dOperFech >= #11/20/2026# AND dOperFech < #11/21/2026# AND cProdCode <> 0 UNION ALL  SELECT * FROM Operacion_Historico WHERE dOperFech >= #11/20/2026# AND dOperFech < #11/21/2026# AND cProdCode <> 0
 SELECT * FROM OperacionParalela WHERE dOperFech >= #11/20/2026# AND dOperFech < #11/21/2026# AND cOperCodeAnul = 0 AND NOT cOperTipo IN (0, 30) AND NOT cOperCode in  (Select cOperCodeAnul from OperacionParalela ) UNION ALL  SELECT * FROM OperacionParalela_Historico WHERE dOperFech >= #11/20/2026# AND dOperFech < #11/21/2026# AND cOperCodeAnul = 0 AND NOT cOperTipo IN (0, 30) AND NOT cOperCode in  (Select cOperCodeAnul from OperacionParalela_Historico )
SELECT COUNT(*) FROM Operacion WHERE cOperFlagAbierto = 1 AND dOperFech >= #11/20/2026# AND dOperFech < #11/21/2026#
SELECT COUNT(*) FROM OperacionParalela WHERE cOperFlagAbierto = 1 AND dOperFech >= #11/20/2026# AND dOperFech < #11/21/2026#
SELECT COUNT(*) FROM CabeceraZ z, Operacion o WHERE z.bFlagSincro = 0 AND o.cOperID > z.cOperIdIni AND o.cOperID <= z.cOperIdFin AND o.dOperFech >= #11/20/2026# AND o.dOperFech < #11/21/2026#
 SELECT * FROM OperacionParalelaProducto WHERE cOperCode = 1 and cProdCode <> 0  UNION ALL  SELECT * FROM OperacionParalelaProductoHist WHERE cOperCode = 1 and cProdCode <> 0 AND NOT cOperCode IN (SELECT cOperCode FROM OperacionParalelaProducto)
UPDATE Operacion SET cFlagSincronizacion = '1' WHERE cOperID = 1
DELETE FROM ParalelaEnviada WHERE cOperCode = 1
INSERT INTO ParalelaEnviada (cOperCode, cEstado, cOperCodeRela, cOperCodeAnul) SELECT cOperCode, cEstado, cOperCodeRela, cOperCodeAnul FROM OperacionParalela WHERE cOperCode = 1
 SELECT cProdCode   FROM producto   WHERE cProdCode = 101
 INSERT INTO PRODUCTO (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, vDescProv, cFlagCanje, nPuntos, cFlagServicio, cUndSalida, cCodCatalogo, sDescLinea,cFlagDetracc, nActivo) VALUES ('01', 101, 'QUESO', 'QUESO', 38, 1, 'GRANJA D' + Chr(39) + 'ORO', 0, 0, 1, '', 'C000101', 'QUESOS', 0, 1)
SELECT cProdCode, nProdPrecUnit, nActivo FROM Producto
 UPDATE configuracionTeclado    SET cProdCode = 0  , cTeclFlagAsig='0' where cProdCode IN (SELECT cProdCode FROM Producto WHERE nActivo =0) 
 INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, sClieAddr, cDistCode, cProvCode, cDepaCode, sClieTelf, sClieMail, dNacmDate, dUltTDate, cTranCode, nPuntCant, nTickCant, sClieRout, sDistDesc, sProvDesc, sDepaDesc, iTipo, cSincroFlag) VALUES (5, 1, 'O' + Chr(39) + 'HIGGINS', 'ANA', '', 0, 0, 0, '', '', Null, Null, 0, 20, 0, '', '', '', '', 1, 1)
 INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, sClieAddr, cDistCode, cProvCode, cDepaCode, sClieTelf, sClieMail, dNacmDate, dUltTDate, cTranCode, nPuntCant, nTickCant, sClieRout, sDistDesc, sProvDesc, sDepaDesc, iTipo, cSincroFlag) VALUES (5, 2, 'RÍOS', '', '', 0, 0, 0, '', '', Null, Null, 0, 0, 0, '', '', '', '', 2, 1)
DELETE FROM Cliente WHERE IdLocal = 0 AND cSincroFlag <> 0 AND EXISTS (SELECT 1 FROM Cliente c WHERE c.cClieCode = Cliente.cClieCode AND c.IdLocal <> 0)
 INSERT INTO Tarjeta (cClieCode, nTarjNumb, cTarjActi, dEmisDate, sUserDesc,dUltOper, IdLocal) VALUES (5, '00000005', 1, '02/11/2026', '', '2026/11/24 10:30:15', 1)
DELETE FROM Tarjeta WHERE IdLocal = 0  AND EXISTS (SELECT 1 FROM Tarjeta c WHERE c.nTarjNumb = Tarjeta.nTarjNumb AND c.IdLocal <> 0)
 UPDATE Cliente SET sClieApel = 'PAZ', sClieName = '', sClieAddr = '', cDistCode = 0, cProvCode = 0, cDepaCode = 0, sClieTelf = '', sClieMail = '', dNacmDate = Null, dUltTDate = Null, cTranCode = 0, nPuntCant = 0, nTickCant = 0, sClieRout = '', sDistDesc = '', sProvDesc = '', sDepaDesc = '', iTipo = 2 WHERE cClieCode = 5 AND IdLocal = 2
 UPDATE Tarjeta SET cClieCode = 5, cTarjActi = 0, dEmisDate = '02/11/2026', sUserDesc = '', dUltOper = '2026/11/24 10:30:15' WHERE nTarjNumb = '00000005' AND IdLocal = 1
UPDATE Cliente    SET cSincroFlag = 1  WHERE cClieCode = 5   AND IdLocal = 1
SELECT *   FROM Acumulacion_Punto  WHERE cSincroFlag = 0
