SELECT * FROM Regla_Punto
 SELECT nTarjNumb, a.cClieCode, sClieApel , sClieName , dNacmDate, c.IdLocal,  nPuntCant , nTickCant, dUltTDate FROM Cliente a, Tarjeta c WHERE c.cTarjActi=1 AND dcadudate >= CONVERT(DATETIME,CONVERT(VARCHAR(10),GETDATE(),103),103) AND a.cClieCode = c.cClieCode AND a.IdLocal = c.IdLocal AND (sClieApel  LIKE '%ñahui%' OR nTarjNumb LIKE '%ñahui%')
 SELECT a.cClieCode, sClieApel , sClieName , dNacmDate, a.IdLocal,  nPuntCant, nTickCant, dUltTDate FROM Cliente a, Tarjeta c  WHERE a.cClieCode = c.cClieCode AND c.cTarjActi=1 AND dcadudate>='2026/11/24 00:00:00'    AND nTarjNumb = '00000005'    AND a.IdLocal = 1 
 SELECT cClieCode AS Codigo    FROM Tarjeta   WHERE nTarjNumb = '00000005'     AND IdLocal = 1 
 SELECT nPuntcant FROM CLIENTE   WHERE iTipo=1 AND cClieCode = 5     AND IdLocal = 1
 SELECT Cliente.cClieCode, Cliente.sClieApel, Cliente.sClieName, Cliente.iTipo  FROM Cliente INNER JOIN Tarjeta ON Cliente.cClieCode = Tarjeta.cClieCode WHERE Tarjeta.nTarjNumb = '00000005' AND Cliente.IdLocal='1'
SELECT iTipo AS Tipo FROM Cliente WHERE cClieCode = 5 AND IdLocal=1 
SELECT MAX(cAcumCode) AS Codigo FROM Acumulacion_Punto WHERE cClieCode = 5 AND IdLocal= 1 
INSERT INTO Acumulacion_Punto (cClieCode, cAcumCode, nTarjNumb, nAcumImpo, nPuntCant, sUserDesc, dAcumDate, cDocTipo, cDocSerie, cDocCodigo, IdLocal) VALUES (5, 1, '00000005', 118, 11, 'ana', convert(datetime,'2026-11-24 17:05:30',120), '02', '012', 33, 1)
UPDATE Cliente SET nPuntCant = ISNULL(nPuntCant,0) + 11, dUltTDate = convert(datetime,'2026-11-24 17:05:30',120), cTranCode = 2,bFlagSincro= 0 WHERE cClieCode = 5 AND IdLocal= 1 
Delete From Acumulacion_Punto where cDocTipo='02' and cDocSerie='012' and cDocCodigo=33
 Update Cliente set  nPuntCant= (nPuntCant - 11)  Where cClieCode=5 AND IdLocal = 1
SELECT idlocal, dsclocal FROM local
SELECT IdLocal FROM local WHERE Activo=1
SELECT MAX(cClieCode) + 1  AS nume FROM Cliente WHERE IdLocal=1
SELECT * FROM Localidad WHERE RTRIM(LTRIM(cDepaCode)) = RTRIM(LTRIM('15')) AND cProvCode <> 0 AND cDistCode = 0  UNION SELECT 999, 999, 999, 'OTRO' ORDER BY sLocaName
Select count(*)  as existe from Cliente   where (sClieApel + ' ' + sClieName) LIKE '%D' + Chr(39) + 'Onofrio Ana%'  
SELECT MAX(cClieCode) AS Codigo FROM Cliente where idLocal = 1
INSERT INTO Cliente (cClieCode, sClieApel, sClieName, sClieAddr, cDepaCode, cProvCode, cDistCode, sDepaDesc, sProvDesc, sDistDesc, sClieTelf, sClieMail, dNacmDate, dUltTDate, cTranCode, sClieRout, itipo, IdLocal, nPuntCant, bFlagSincro) VALUES (900,'Ñahui','Ana','','15','01','01','','','','','','1990/05/31 00:00:00','2026/11/24 00:00:00',1,'',1,1,0,0)
INSERT INTO Tarjeta (cClieCode, nTarjNumb, cTarjActi, dEmisDate, dCaduDate, sUserDesc, IdLocal,dUltOper) VALUES (900,'00000900',1,'2026/11/24 00:00:00','2026/11/24 00:00:00','ana',1,'2026/11/24 17:05:30')
Update Tarjeta SET dCaduDate=dateadd(day, -1, (dateadd(year, 1, dEmisDate) )), bFlagSincro=0,dUltOper='2026/11/24 17:05:30' where ntarjnumb='00000900' AND IdLocal=1
UPDATE Cliente    SET dUltTDate = '11/24/2026',        cTranCode = 2 WHERE cClieCode = 5   AND IdLocal = 1
UPDATE local SET Activo = Activo WHERE idlocal = 1
SELECT sClieApel, sClieName FROM Cliente WHERE sClieApel LIKE 'M__ _Z' AND sClieName LIKE 'R_S_'
INSERT INTO Tarjeta (cClieCode, nTarjNumb, cTarjActi, dEmisDate, dCaduDate, sUserDesc, IdLocal, dUltOper, bFlagSincro) VALUES (987, '00000987', 1, convert(datetime,'2026-11-24 00:00:00',120), convert(datetime,'2027-11-23 00:00:00',120), 'CAJERO', 1, convert(datetime,'2026-11-24 10:30:15',120), 0)
DELETE FROM Diario_Acto WHERE cCajaCodi = '00001' AND cActo = 'cliente 1 8'
INSERT INTO Cliente (cClieCode, sClieApel, sClieName, sClieAddr, cDepaCode, cProvCode, cDistCode, sDepaDesc, sProvDesc, sDistDesc, sClieTelf, sClieMail, dNacmDate, dUltTDate, cTranCode, sClieRout, iTipo, IdLocal, nPuntCant, bFlagSincro) VALUES (9, 'MUÑOZ IBÁÑEZ', 'PILAR', '', 15, 1, 1, '', '', '', '', '', Null, convert(datetime,'2026-11-24 00:00:00',120), 1, '', 1, 1, 0, 0)
INSERT INTO Cliente (cClieCode, sClieApel, sClieName, sClieAddr, cDepaCode, cProvCode, cDistCode, sDepaDesc, sProvDesc, sDistDesc, sClieTelf, sClieMail, dNacmDate, dUltTDate, cTranCode, sClieRout, iTipo, IdLocal, nPuntCant, bFlagSincro) VALUES (8, 'O''BRIEN PAZ', 'ANA MARÍA', 'JR. LUNA 123', 15, 1, 999, '', '', 'EL MOLLE', '555-0142', 'Ana@molle.pe', convert(datetime,'1990-03-05 00:00:00',120), convert(datetime,'2026-11-24 00:00:00',120), 1, '/tmp/qt_temp-nqkEst/puesto/Fotos/cli007.jpg', 2, 1, 0, 0)
INSERT INTO Diario_Acto (cCajaCodi, cActo, cServidor, cEstado, sFecha, tTermina, tDeshace) VALUES ('00001', 'cliente 1 9', 'cliente', 'P', '24/11/2026 09:00:03', '["DELETE FROM Cliente WHERE cClieCode = 9 AND IdLocal = 1","INSERT INTO Cliente (cClieCode, sClieApel, sClieName, sClieAddr, cDepaCode, cProvCode, cDistCode, sDepaDesc, sProvDesc, sDistDesc, sClieTelf, sClieMail, dNacmDate, dUltTDate, cTranCode, sClieRout, iTipo, IdLocal, nPuntCant, bFlagSincro) VALUES (9, ''MUÑOZ IBÁÑEZ'', ''PILAR'', '''', 15, 1, 1, '''', '''', '''', '''', '''', Null, ''24/11/2026 00:00:00'', 1, '''', 1, 1, 0, 0)","DELETE FROM Tarjeta WHERE nTarjNumb = ''00000009'' AND IdLocal = 1","INSERT INTO Tarjeta (cClieCode, nTarjNumb, cTarjActi, dEmisDate, dCaduDate, sUserDesc, IdLocal, dUltOper, bFlagSincro) VALUES (9, ''00000009'', 1, ''24/11/2026 00:00:00'', ''23/11/2027 00:00:00'', ''CAJERO'', 1, ''24/11/2026 09:00:03'', 0)"]', '[]')
 SELECT a.cClieCode, a.IdLocal, a.sClieApel, a.sClieName FROM Cliente a INNER JOIN Tarjeta b ON a.cClieCode = b.cClieCode AND a.IdLocal = b.IdLocal WHERE b.cTarjActi = 1 AND b.dcadudate >= CONVERT(DATETIME,'2026-11-24 00:00:00',120)    AND nTarjNumb = '00000007'
 SELECT a.cClieCode, a.IdLocal, a.sClieApel, a.sClieName FROM Cliente a INNER JOIN Tarjeta b ON a.cClieCode = b.cClieCode AND a.IdLocal = b.IdLocal WHERE b.cTarjActi = 1 AND b.dcadudate >= CONVERT(DATETIME,'2026-11-24 00:00:00',120)    AND nTarjNumb = '00000001'    AND a.IdLocal = 1 
SELECT cClieCode, IdLocal FROM Tarjeta WHERE nTarjNumb = '00000007' AND IdLocal = 2 ORDER BY IdLocal
SELECT cClieCode, IdLocal FROM Tarjeta WHERE nTarjNumb = '99990000' ORDER BY IdLocal
 SELECT Cliente.cClieCode, Cliente.sClieApel, Cliente.sClieName, Cliente.iTipo  FROM Cliente INNER JOIN Tarjeta ON Cliente.cClieCode = Tarjeta.cClieCode AND Cliente.IdLocal = Tarjeta.IdLocal WHERE Tarjeta.nTarjNumb = '00000001' AND Cliente.IdLocal='1'
SELECT COUNT(*) AS nCuenta FROM Acumulacion_Punto where cDocTipo='02' and cDocSerie='001' and cDocCodigo=1 and cClieCode=1 and IdLocal=1
SELECT IdLocal FROM Cliente WHERE cClieCode = 1
SELECT nTarjNumb FROM Tarjeta WHERE nTarjNumb = '00000008' AND IdLocal = 1
SELECT TOP 18 * FROM (SELECT c.nTarjNumb, a.cClieCode, a.sClieApel , a.sClieName , a.dNacmDate, c.IdLocal,  a.nPuntCant , a.nTickCant, a.dUltTDate FROM Cliente k CROSS JOIN Cliente a CROSS JOIN Tarjeta c WHERE k.sClieApel LIKE '%a%' AND a.cClieCode = k.cClieCode AND a.IdLocal = k.IdLocal AND c.cTarjActi = 1 AND c.dcadudate >= CONVERT(DATETIME,'2026-11-24 00:00:00',120) AND a.cClieCode = c.cClieCode AND a.IdLocal = c.IdLocal UNION ALL SELECT c.nTarjNumb, a.cClieCode, a.sClieApel , a.sClieName , a.dNacmDate, c.IdLocal,  a.nPuntCant , a.nTickCant, a.dUltTDate FROM Tarjeta k CROSS JOIN Tarjeta c CROSS JOIN Cliente a WHERE k.nTarjNumb LIKE '%a%' AND c.nTarjNumb = k.nTarjNumb AND c.IdLocal = k.IdLocal AND c.cTarjActi = 1 AND c.dcadudate >= CONVERT(DATETIME,'2026-11-24 00:00:00',120) AND a.cClieCode = c.cClieCode AND a.IdLocal = c.IdLocal AND NOT (ISNULL(a.sClieApel,'') LIKE '%a%')) x
SELECT * FROM Localidad WHERE cProvCode = 0 AND cDistCode = 0  UNION SELECT 999, 999, 999, 'OTRO' ORDER BY sLocaName
SELECT * FROM Localidad WHERE RTRIM(LTRIM(cDepaCode)) = RTRIM(LTRIM('15')) AND RTRIM(LTRIM(cProvCode)) = RTRIM(LTRIM('1')) AND cDistCode <> 0  UNION SELECT 999, 999, 999, 'OTRO' ORDER BY sLocaName
UPDATE Cliente    SET dUltTDate = CONVERT(DATETIME,'11/24/2026',101),        cTranCode = 2  WHERE cClieCode = 1   AND IdLocal = 1
 Update Cliente set  nPuntCant= (nPuntCant - 3)  Where cClieCode=1 AND IdLocal = 1 AND iTipo=1
 UPDATE Cliente    SET nPuntCant = ISNULL(nPuntCant,0) + 3  WHERE cClieCode = 1    AND IdLocal = 1
