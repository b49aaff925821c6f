# A statement a line; behind it, indented, its answer: cells by |, rows by /. Without an answer it must run.
SELECT IIF(1=1,'a','b')
  a
SELECT IIF(Null,'a','b')
  b
SELECT IIF(1>2,1,2) AS x
  2
SELECT IIf(ISNULL(Null),'si','no')
  si
SELECT IIf(ISNULL(3)=True,'si','no')
  no
SELECT IIf(ISNULL(Null)=True,'si','no')
  si
SELECT IIf(ISNULL(Null)=False,'si','no')
  no
SELECT IIf((1=1)=True,'si','no')
  si
SELECT (1=1)
  -1
SELECT (1=2)
  0
SELECT True
  -1
SELECT False
  0
SELECT Not True
  0
SELECT Not False
  -1
SELECT ISNULL(Null)
  -1
SELECT IsNumeric('12')
  -1
SELECT IsNumeric('x')
  0
SELECT 3 IN (1,3)
  -1
SELECT 'a' LIKE 'A'
  -1
SELECT 5/2
  2.5
SELECT 4/2
  2
SELECT 7\2
  3
SELECT -7\2
  -3
SELECT 7 MOD 3
  1
SELECT 8.6 MOD 3
  0
SELECT 2^3
  8
SELECT 2^0.5 > 1.41
  -1
SELECT -2^2
  -4
SELECT 1/0
  error
SELECT 1\0
  error
SELECT 5 MOD 0
  error
SELECT 'a' & 'b'
  ab
SELECT 'a' & Null
  a
SELECT Null & Null
  Null
SELECT 'a' + Null
  Null
SELECT 'a' & 1
  a1
SELECT 'a' & 1.5
  a1.5
SELECT 1 & 2
  12
SELECT 1 + 2 & 3
  33
SELECT Mid('abcdef',2,3)
  bcd
SELECT Mid('abcdef',4)
  def
SELECT Mid('abc',10,2)
  
SELECT Left('abc',2)
  ab
SELECT Right('abc',2)
  bc
SELECT Left('abc',10)
  abc
SELECT Left('abc',0)
  
SELECT InStr('abcabc','c')
  3
SELECT InStr(4,'abcabc','c')
  6
SELECT InStr('abc','C')
  3
SELECT InStr('abc','x')
  0
SELECT InStr('abc','')
  1
SELECT InStr('','x')
  0
SELECT InStr(1,'abcABC','A',0)
  4
SELECT InStr(1,'abcABC','A',1)
  1
SELECT InStrRev('abcabc','b')
  5
SELECT Val('12abc')
  12
SELECT Val('  3.5')
  3.5
SELECT Val('x')
  0
SELECT Val('')
  0
SELECT Val('-4.5-')
  -4.5
SELECT CStr(5)
  5
SELECT CStr(5.0)
  5
SELECT CStr(1.25)
  1.25
SELECT CDbl('1.5')
  1.5
SELECT CDbl('x')
  error
SELECT CInt(2.4)
  2
SELECT CLng('7')
  7
SELECT CInt(-2.7)
  -3
SELECT CBool(5)
  -1
SELECT CBool(0)
  0
SELECT CByte(5)
  5
SELECT Str(5)
   5
SELECT Str(-5)
  -5
SELECT Len('abc ')
  4
SELECT Len(Null)
  Null
SELECT Len(12345)
  5
SELECT UCase('ñandú')
  ÑANDÚ
SELECT LCase('ÑANDÚ')
  ñandú
SELECT Trim('  a b ')
  a b
SELECT LTrim('  a ')
  a 
SELECT RTrim('  a ')
    a
SELECT Trim(Null)
  Null
SELECT Chr(39)
  '
SELECT Chr(241)
  ñ
SELECT Asc('A')
  65
SELECT Asc('ñ')
  241
SELECT Space(3)
     
SELECT String(3,'x')
  xxx
SELECT Replace('a-b-c','-','+')
  a+b+c
SELECT StrComp('a','A')
  0
SELECT StrComp('a','b')
  -1
SELECT StrReverse('abc')
  cba
SELECT Int(2.7)
  2
SELECT Int(-2.1)
  -3
SELECT Fix(-2.7)
  -2
SELECT Round(2.345,2)
  2.35
SELECT Round(2.4)
  2
SELECT Abs(-3)
  3
SELECT Abs(-3.5)
  3.5
SELECT Sgn(-5)
  -1
SELECT Sqr(9)
  3
SELECT Exp(0)
  1
SELECT Log(1)
  0
SELECT Switch(1=2,'a',2=2,'b')
  b
SELECT Switch(1=2,'a')
  Null
SELECT Choose(2,'a','b','c')
  b
SELECT Choose(5,'a','b')
  Null
SELECT Format(1234.5,'###,###,##0.00')
  1,234.50
SELECT Format(0,'###,##0.00')
  0.00
SELECT Format(5,'000000')
  000005
SELECT Format(0.256,'0%')
  26%
SELECT Format(-1234.567,'#,##0.00')
  -1,234.57
SELECT Format(#11/24/2026#,'dd/mm/yyyy')
  24/11/2026
SELECT Format(#11/24/2026 17:05:09#,'dd/mm/yyyy hh:nn:ss')
  24/11/2026 17:05:09
SELECT Format(#11/24/2026 17:05:09#,'hh:mm')
  17:05
SELECT Format(#11/24/2026#,'yyyy/mm/dd')
  2026/11/24
SELECT Format(#11/24/2026#,'ddd')
  mar
SELECT Format(#11/24/2026#,'yyyymmdd')
  20261124
SELECT Format(#3/4/2026#,'d/m/yy')
  4/3/26
SELECT Format('24/11/2026','yyyy/mm/dd')
  2026/11/24
SELECT Format('abc','>')
  ABC
SELECT Format('ABC','<')
  abc
SELECT Format(Null,'0.00')
  
SELECT Format(12)
  12
SELECT Format(#11/24/2026#)
  24/11/2026
SELECT Format('12.5','0.00')
  12.50
SELECT Format(#11/24/2026 14:05#,'hh:nn AM/PM')
  02:05 PM
SELECT Format(#11/24/2026#,'Short Date')
  24/11/2026
SELECT Format(1234.5,'Standard')
  1,234.50
SELECT Format(3.456,'Fixed')
  3.46
SELECT Year(#11/24/2026#)
  2026
SELECT Month(#11/24/2026#)
  11
SELECT Day(#11/24/2026#)
  24
SELECT Hour(#11/24/2026 17:05#)
  17
SELECT Minute(#11/24/2026 17:05#)
  5
SELECT Second(#11/24/2026 17:05:09#)
  9
SELECT Weekday(#11/24/2026#)
  3
SELECT Weekday(#11/24/2026#,2)
  2
SELECT #11/24/2026#
  <2026-11-24 00:00:00>
SELECT #24/11/2026#
  <2026-11-24 00:00:00>
SELECT #2026-11-24#
  <2026-11-24 00:00:00>
SELECT #11/24/2026 5:05:00 PM#
  <2026-11-24 17:05:00>
SELECT #01/02/2026#
  <2026-01-02 00:00:00>
SELECT #13/40/2026#
  error
SELECT DateAdd('d',1,#11/30/2026#)
  <2026-12-01 00:00:00>
SELECT DateAdd('m',1,#1/31/2026#)
  <2026-02-28 00:00:00>
SELECT DateAdd('yyyy',-1,#2/29/2024#)
  <2023-02-28 00:00:00>
SELECT DateAdd('h',2,#1/31/2026 23:00#)
  <2026-02-01 01:00:00>
SELECT DateAdd('n',90,#1/31/2026#)
  <2026-01-31 01:30:00>
SELECT DateAdd('ww',1,#1/31/2026#)
  <2026-02-07 00:00:00>
SELECT DateAdd('q',1,#1/31/2026#)
  <2026-04-30 00:00:00>
SELECT DateAdd('z',1,#1/31/2026#)
  error
SELECT DateDiff('d',#11/24/2026#,#12/1/2026#)
  7
SELECT DateDiff('m',#1/31/2026#,#2/1/2026#)
  1
SELECT DateDiff('yyyy',#12/31/2025#,#1/1/2026#)
  1
SELECT DateDiff('n',#1/1/2026 10:00#,#1/1/2026 11:30#)
  90
SELECT DateDiff('s',#1/1/2026#,#1/1/2026 0:01#)
  60
SELECT DateDiff('h',#1/1/2026 0:59#,#1/1/2026 1:00#)
  1
SELECT DateDiff('d',Null,#1/1/2026#)
  Null
SELECT DatePart('q',#11/24/2026#)
  4
SELECT DatePart('ww',#1/1/2026#)
  1
SELECT DatePart('y',#2/1/2026#)
  32
SELECT DateSerial(2026,1,32)
  <2026-02-01 00:00:00>
SELECT DateSerial(2026,13,1)
  <2027-01-01 00:00:00>
SELECT DateSerial(2026,3,0)
  <2026-02-28 00:00:00>
SELECT DateValue('24/11/2026 10:00')
  <2026-11-24 00:00:00>
SELECT CDate('24/11/2026')
  <2026-11-24 00:00:00>
SELECT CDate('x')
  error
SELECT TimeSerial(17,5,0) > 0
  -1
SELECT IsDate('24/11/2026')
  -1
SELECT IsDate('x')
  0
SELECT #11/24/2026# + 1
  <2026-11-25 00:00:00>
SELECT #11/24/2026# - #11/20/2026#
  4
SELECT #11/24/2026 12:00# - 1
  <2026-11-23 12:00:00>
SELECT #11/24/2026# & ''
  24/11/2026
SELECT 'Fecha ' & #11/24/2026 17:05:00#
  Fecha 24/11/2026 17:05:00
SELECT #11/24/2026# < #12/1/2026#
  -1
SELECT IIf(#11/24/2026# = #11/24/2026 00:00:00#,1,0)
  1
SELECT Null = Null
  Null
SELECT Null + 1
  Null
SELECT Null And False
  0
SELECT Null Or True
  -1
SELECT Not Null
  Null
SELECT Null IN (1,2)
  Null
SELECT IIf('abc' LIKE 'a*',1,0)
  1
SELECT IIf('abc' LIKE 'a%',1,0)
  1
SELECT IIf('abc' LIKE 'a?c',1,0)
  1
SELECT IIf('abc' LIKE '[a-c]bc',1,0)
  1
SELECT IIf('abc' LIKE '[!a-c]bc',1,0)
  0
SELECT IIf('a1c' LIKE 'a#c',1,0)
  1
SELECT IIf('abc' LIKE 'a#c',1,0)
  0
SELECT IIf('a*c' LIKE 'a[*]c',1,0)
  1
SELECT IIf('ab' NOT LIKE 'a?',1,0)
  0
SELECT IIf(Null LIKE 'a*',1,0)
  0
SELECT IIf('ÑANDU' LIKE 'ñ*',1,0)
  1
SELECT IIf('a]c' LIKE 'a]c',1,0)
  1
SELECT IIf(12 LIKE '1*',1,0)
  1
SELECT IIf('a'='A',1,0)
  1
SELECT IIf('Ñ'='ñ',1,0)
  1
SELECT IIf('a'='á',1,0)
  0
SELECT IIf('a'<'B',1,0)
  1
SELECT IIf('n'<'ñ',1,0)
  1
SELECT IIf('ñ'<'o',1,0)
  1
SELECT 10 - 3 - 2
  5
SELECT 2 + 3 * 4
  14
SELECT (2+3)*4
  20
SELECT 1 BETWEEN 0 AND 2
  -1
SELECT 5 NOT BETWEEN 0 AND 2
  -1
SELECT 1 AND 0
  0
SELECT NOT 1=2
  -1
SELECT True AND True
  -1
SELECT True XOR True
  0
SELECT - - 3
  3
SELECT 1.5E2
  150
SELECT .5
  0.5
SELECT 'it''s'
  it's
SELECT "dos"
  dos
SELECT 'a' AS [mi nombre]
  a
SELECT 1 AS x, 2 AS y
  1|2
SELECT 'D' + Chr(39) + 'Onofrio'
  D'Onofrio
SELECT 100000 * 100000
  10000000000
SELECT 3000000000 + 1
  3000000001
CREATE TABLE T1 (id INTEGER, nom TEXT(20), imp DOUBLE, fec DATETIME, flag INTEGER)
CREATE TABLE T2 (id INTEGER, cod TEXT(5), cant INTEGER)
CREATE TABLE T3 (cod TEXT(5), des TEXT(20))
INSERT INTO T1 (id,nom,imp,fec,flag) VALUES (1,'Ana',10.5,'24/11/2026',1)
INSERT INTO T1 (id,nom,imp,fec,flag) VALUES (2,'ÑATO',20,#11/25/2026 10:30#,0)
INSERT INTO T1 VALUES (3,'Óscar',Null,Null,1)
INSERT INTO T1 (id,nom,imp) VALUES (4,'beto','7.25')
INSERT INTO T2 VALUES (1,'A1',3)
INSERT INTO T2 VALUES (1,'B2',4)
INSERT INTO T2 VALUES (2,'a1',5)
INSERT INTO T2 VALUES (9,'Z9',1)
INSERT INTO T3 VALUES ('A1','Alfa')
INSERT INTO T3 VALUES ('B2','Beta')
SELECT id FROM T1 WHERE nom = 'ana'
  1
SELECT id FROM T1 WHERE nom = 'ñato'
  2
SELECT id FROM T1 WHERE TRIM(nom) = 'ÓSCAR'
  3
SELECT id FROM T1 WHERE nom LIKE 'a*'
  1
SELECT id FROM T1 WHERE nom LIKE '*o'
  2/4
SELECT id FROM T1 WHERE nom LIKE 'ñ%'
  2
SELECT id FROM T1 WHERE nom NOT LIKE '*a*' ORDER BY id
  4
SELECT nom FROM T1 ORDER BY nom
  Ana/beto/ÑATO/Óscar
SELECT nom FROM T1 ORDER BY nom DESC
  Óscar/ÑATO/beto/Ana
SELECT id FROM T1 WHERE fec = #11/24/2026#
  1
SELECT id FROM T1 WHERE fec >= #11/24/2026# AND fec < #11/26/2026#
  1/2
SELECT id FROM T1 WHERE fec = '24/11/2026'
  1
SELECT id FROM T1 WHERE FORMAT(fec,'dd/mm/yyyy') = '25/11/2026'
  2
SELECT id FROM T1 WHERE fec BETWEEN #11/24/2026# AND #11/25/2026 23:59:59#
  1/2
SELECT id FROM T1 WHERE fec IS NULL ORDER BY id
  3/4
SELECT id FROM T1 WHERE ISNULL(imp)
  3
SELECT id FROM T1 WHERE NOT ISNULL(imp) ORDER BY id
  1/2/4
SELECT id FROM T1 WHERE imp IS NOT NULL AND imp > '8' ORDER BY id
  1/2
SELECT SUM(imp) FROM T1 WHERE id=99
  Null
SELECT COUNT(*) FROM T1 WHERE id=99
  0
SELECT MAX(nom) FROM T1
  Óscar
SELECT MAX(fec) FROM T1
  <2026-11-25 10:30:00>
SELECT MIN(fec) AS m FROM T1
  <2026-11-24 00:00:00>
SELECT First(nom), Last(nom) FROM T1
  Ana|beto
SELECT TOP 2 id FROM T1 ORDER BY id DESC
  4/3
SELECT DISTINCT cod FROM T2 ORDER BY cod
  A1/B2/Z9
SELECT DISTINCTROW id FROM T2 ORDER BY id
  1/1/2/9
SELECT DISTINCT id FROM T2 ORDER BY id
  1/2/9
SELECT cod, SUM(cant) AS s FROM T2 GROUP BY cod ORDER BY cod
  A1|8/B2|4/Z9|1
SELECT cod, SUM(cant) FROM T2 GROUP BY cod HAVING SUM(cant) > 3 ORDER BY 2 DESC
  A1|8/B2|4
SELECT cod FROM T2 GROUP BY cod HAVING COUNT(*)>1
  A1
SELECT T1.nom, T2.cod FROM T1 INNER JOIN T2 ON T1.id = T2.id ORDER BY T2.cod, T1.nom
  Ana|A1/ÑATO|a1/Ana|B2
SELECT a.nom, b.cod FROM T1 a LEFT JOIN T2 b ON a.id=b.id WHERE a.id>2 ORDER BY a.id
  Óscar|Null/beto|Null
SELECT a.nom, b.cod FROM T1 AS a RIGHT JOIN T2 AS b ON a.id=b.id ORDER BY b.cant
  Null|Z9/Ana|A1/Ana|B2/ÑATO|a1
SELECT a.nom, b.cod, c.des FROM (T1 AS a INNER JOIN T2 AS b ON a.id=b.id) INNER JOIN T3 AS c ON b.cod=c.cod ORDER BY a.id, c.des
  Ana|A1|Alfa/Ana|B2|Beta/ÑATO|a1|Alfa
SELECT a.nom, x.des FROM T1 AS a LEFT JOIN (T2 AS b INNER JOIN T3 AS x ON b.cod=x.cod) ON a.id=b.id ORDER BY a.id, x.des
  Ana|Alfa/Ana|Beta/ÑATO|Alfa/Óscar|Null/beto|Null
SELECT O.id, B.cod FROM T1 AS O LEFT JOIN (SELECT T2.id, T2.cod FROM T2 INNER JOIN T3 ON T2.cod=T3.cod) AS B ON O.id=B.id WHERE O.id=1 ORDER BY B.cod
  1|A1/1|B2
SELECT T1.nom FROM T1, T2 WHERE T1.id=T2.id AND T2.cant=5
  ÑATO
SELECT nom FROM T1 WHERE id IN (SELECT id FROM T2)
  Ana/ÑATO
SELECT nom FROM T1 WHERE id NOT IN (SELECT id FROM T2) ORDER BY id
  Óscar/beto
SELECT nom FROM T1 WHERE EXISTS (SELECT * FROM T2 WHERE T2.id=T1.id AND cant>4)
  ÑATO
SELECT nom, (SELECT SUM(cant) FROM T2 WHERE T2.id=T1.id) AS tot FROM T1 ORDER BY id
  Ana|7/ÑATO|5/Óscar|Null/beto|Null
SELECT cod FROM T2 WHERE cod IN ('a1') ORDER BY id
  A1/a1
SELECT cod FROM T2 WHERE cod NOT IN ('a1','b2')
  Z9
SELECT nom FROM T1 WHERE nom IN ('ñato')
  ÑATO
SELECT id FROM T1 UNION SELECT id FROM T2
  1/2/3/4/9
SELECT id FROM T1 WHERE id=1 UNION ALL SELECT id FROM T2 WHERE id=1
  1/1/1
SELECT cod FROM T2 UNION SELECT cod FROM T3
  A1/B2/Z9
SELECT id, nom FROM T1 WHERE id<3 UNION SELECT 0, 'Todos' FROM T1 ORDER BY nom
  1|Ana/2|ÑATO/0|Todos
SELECT 1 as Orden, Max(fec) AS F FROM T1 UNION SELECT 2 as Orden, Min(fec) FROM T1 ORDER BY orden
  1|<2026-11-25 10:30:00>/2|<2026-11-24 00:00:00>
UPDATE T1 SET imp = imp * 2 WHERE nom LIKE 'ana'
UPDATE T1 SET T1.imp = 1, T1.nom = 'Ana ' & id WHERE T1.id = 1
SELECT nom, imp FROM T1 WHERE id=1
  Ana 1|1
UPDATE T1 INNER JOIN T2 ON T1.id = T2.id SET T1.imp = T2.cant WHERE T2.cod = 'a1' AND T1.id=2
SELECT imp FROM T1 WHERE id=2
  5
UPDATE T1 AS a INNER JOIN (T2 AS b INNER JOIN T3 AS c ON b.cod=c.cod) ON a.id=b.id SET a.nom = c.des WHERE b.cod='B2'
SELECT nom FROM T1 WHERE id=1
  Beta
UPDATE T1, T2 SET T1.imp = T2.cant + 100 WHERE T1.id=T2.id AND T2.cod='B2'
SELECT imp FROM T1 WHERE id=1
  104
UPDATE T2 SET cant = Null WHERE id=9
UPDATE T1 SET fec = '01/02/2026 08:15' WHERE id=4
SELECT fec FROM T1 WHERE id=4
  <2026-02-01 08:15:00>
UPDATE T1 SET fec = #01/02/2026# WHERE id=4
SELECT fec FROM T1 WHERE id=4
  <2026-01-02 00:00:00>
UPDATE T1 SET fec = Date() WHERE id=4
UPDATE T1 SET fec = '99/99/2026' WHERE id=4
  error
UPDATE T1 SET imp = 'abc' WHERE id=4
  error
INSERT INTO T1 (id) VALUES ('x')
  error
SELECT * INTO T4 FROM T1 WHERE id < 3
SELECT id, nom AS nombre INTO T5 FROM T1 ORDER BY id
SELECT COUNT(*) FROM T4
  2
SELECT fec FROM T4 WHERE id=2
  <2026-11-25 10:30:00>
SELECT fec + 1 AS m FROM T4 WHERE id=2
  <2026-11-26 10:30:00>
SELECT nombre FROM T5 WHERE id=2
  ÑATO
INSERT INTO T4 SELECT * FROM T1 WHERE id > 2
INSERT INTO T4 (id, nom) SELECT id, cod FROM T2 WHERE id = 9
SELECT COUNT(*) FROM T4
  5
INSERT INTO T4 (id,nom) SELECT 77 AS a, 'x' AS b
DELETE * FROM T4 WHERE id = 9
DELETE T4.* FROM T4 WHERE id=77
DELETE FROM T4 WHERE nom='ñato'
DELETE T4.* FROM T4 INNER JOIN T1 ON T4.id = T1.id WHERE T1.nom='Óscar'
SELECT id FROM T4 ORDER BY id
  1/4
DELETE DISTINCTROW T4.* FROM T4 INNER JOIN T1 ON T4.id=T1.id
SELECT COUNT(*) FROM T4
  0
DELETE FROM T5 WHERE id IN (SELECT id FROM T2)
SELECT [T1].[id], [nom] FROM [T1] WHERE [T1].[id]=2
  2|ÑATO
SELECT T1.* FROM T1 WHERE id=99
  
SELECT T2.*, T3.des FROM T2 INNER JOIN T3 ON T2.cod = T3.cod WHERE T2.id=2
  2|a1|5|Alfa
SELECT id x, nom y FROM T1 z WHERE z.id=2
  2|ÑATO
SELECT id AS [El Id] FROM T1 WHERE id=2
  2
SELECT Count(*) FROM T1
SELECT T1.id FROM T1 WHERE id=2
  2
SELECT IIF(ISNULL(MAX(id)),0, MAX(id)) as m FROM T1 WHERE id>100
  0
SELECT IIf(flag=1,'S','N') AS f, id FROM T1 ORDER BY 2
  S|1/N|2/S|3/N|4
SELECT nom & ' (' & imp & ')' FROM T1 WHERE id=3
  Óscar ()
SELECT nom + ' ' + cod FROM T1 INNER JOIN T2 ON T1.id=T2.id WHERE cant=5
  ÑATO a1
SELECT id & '-' & nom FROM T1 WHERE id=2
  2-ÑATO
SELECT 'x' & fec FROM T1 WHERE id=2
  x25/11/2026 10:30:00
SELECT imp/2, id/2, id\2, id mod 2 FROM T1 WHERE id=3
  Null|1.5|1|1
SELECT cant/2 FROM T2 WHERE id=2
  2.5
SELECT id FROM T1 WHERE id = '2'
  2
SELECT id FROM T1 WHERE '2' = id
  2
SELECT id FROM T2 WHERE cod = 5
  
SELECT id FROM T1 WHERE nom > 'ñ' ORDER BY id
  2/3
SELECT id FROM T1 WHERE nom BETWEEN 'A' AND 'C' ORDER BY id
  1/4
SELECT Year(fec), Month(fec), Day(fec) FROM T1 WHERE id=2
  2026|11|25
SELECT DateDiff('d', fec, #12/1/2026#) FROM T1 WHERE id=2
  6
SELECT DateAdd('d',1,fec) FROM T1 WHERE id=2
  <2026-11-26 10:30:00>
SELECT Format(fec,'hh:nn') FROM T1 WHERE id=2
  10:30
SELECT Max(Format(fec,'yyyymm')) FROM T1 WHERE id<3
  202611
SELECT Sum(IIf(flag=1,1,0)) FROM T1
  2
SELECT Sum(flag=1) FROM T1
  -2
SELECT id FROM T1 WHERE (flag=1) = True ORDER BY id
  1/3
SELECT id FROM T1 WHERE flag
  1/3
SELECT id FROM T1 WHERE NOT flag ORDER BY id
  2
SELECT Mid(nom,2,2) AS m FROM T1 WHERE id=2
  AT
SELECT id FROM T1 WHERE nom = 'be' & 'to'
  4
SELECT id FROM T1 WHERE UCase(nom)='ÑATO'
  2
SELECT id FROM T1 WHERE LEN(nom) = 4 ORDER BY id
  1/2/4
ALTER TABLE T5 ADD COLUMN extra TEXT(10)
SELECT extra FROM T5
  Null/Null
ALTER TABLE T5 DROP COLUMN extra
CREATE INDEX ix ON T5 (id)
CREATE UNIQUE INDEX ix2 ON T5 (id)
INSERT INTO T5 (id) VALUES (3)
  error
SELECT T1.nom FROM T1 LEFT JOIN T2 ON T1.id=T2.id AND T2.cant>3 WHERE T2.id IS NULL ORDER BY T1.id
  Óscar/beto
SELECT A.s FROM (SELECT id, SUM(cant) AS s FROM T2 GROUP BY id) A WHERE A.id=1
  7
SELECT s FROM (SELECT SUM(cant) AS s FROM T2)
  12
SELECT COUNT(*) FROM (SELECT DISTINCT cod FROM T2)
  3
SELECT T1.id FROM T1 WHERE T1.nom = (SELECT MAX(nom) FROM T1)
  3
SELECT id FROM T1;
  1/2/3/4
SELECT Switch(id=1,'uno',id=2,'dos') AS w FROM T1 ORDER BY id
  uno/dos/Null/Null
SELECT id FROM T1 WHERE nom LIKE '[a-c]*' ORDER BY id
  1/4
SELECT id FROM T1 WHERE nom LIKE '?eto'
  4
SELECT id FROM T1 WHERE nom LIKE '%'
  1/2/3/4
SELECT id FROM T1 WHERE id LIKE '1'
  1
SELECT cod FROM T2 WHERE cod LIKE '[A-Z]#' ORDER BY id
  A1/B2/a1/Z9
DROP TABLE T1
DROP TABLE T2
DROP TABLE T3
DROP TABLE T4
DROP TABLE T5
CREATE TABLE T1 (id INTEGER, nom TEXT(20), imp DOUBLE, fec DATETIME, flag INTEGER, est TEXT(1))
INSERT INTO T1 VALUES (1,'Ana',10.5,'24/11/2026 10:00',1,'1')
INSERT INTO T1 VALUES (2,'ÑATO',20,#11/25/2026 10:30#,0,'2')
INSERT INTO T1 VALUES (3,'Óscar',Null,Null,1,'1')
INSERT INTO T1 VALUES (4,'ana','7',#1/2/2026#,0,Null)
SELECT id FROM T1 WHERE id = ANY (SELECT id FROM T1 WHERE flag=0) ORDER BY id
  2/4
SELECT id FROM T1 WHERE id <> ALL (SELECT id FROM T1 WHERE flag=0) ORDER BY id
  1/3
SELECT COUNT(*) FROM T1 WHERE est = 1
  2
SELECT id FROM T1 WHERE est IN (1,2) ORDER BY id
  1/2/3
SELECT id FROM T1 WHERE id IN ('1','2') ORDER BY id
  1/2
SELECT id FROM T1 WHERE fec IN (#11/25/2026 10:30#)
  2
SELECT nom, COUNT(*) FROM T1 GROUP BY nom ORDER BY 1
  Ana|2/ÑATO|1/Óscar|1
SELECT DISTINCT nom FROM T1 ORDER BY nom
  Ana/ÑATO/Óscar
SELECT FORMAT(fec,'yyyymm') AS m, COUNT(*) AS n FROM T1 WHERE NOT fec IS NULL GROUP BY FORMAT(fec,'yyyymm') ORDER BY FORMAT(fec,'yyyymm')
  202601|1/202611|2
SELECT IIf(flag=1,'a',IIf(imp>10,'b','c')) AS k, SUM(imp) AS s FROM T1 GROUP BY IIf(flag=1,'a',IIf(imp>10,'b','c')) ORDER BY 1
  a|10.5/b|20/c|7
SELECT id FROM T1 WHERE (fec >= #11/24/2026# And fec < #11/25/2026#) Or id = 4 ORDER BY id
  1/4
SELECT id FROM T1 WHERE Year(fec)=2026 And Month(fec)=11 ORDER BY id
  1/2
SELECT id FROM T1 WHERE DateValue(fec)=#11/24/2026#
  1
SELECT id FROM T1 WHERE Int(fec)=#11/24/2026#
  1
SELECT id FROM T1 WHERE fec > Date()-60 And fec < #11/25/2026#
SELECT MAX(id)+1 AS n FROM T1
  5
SELECT IIF(ISNULL(MAX(id)),1,MAX(id)+1) FROM T1 WHERE id>9
  1
SELECT SUM(imp*IIf(flag=1,1,-1)) FROM T1
  -16.5
SELECT SUM(imp)/COUNT(imp) FROM T1
  12.5
SELECT Round(SUM(imp)/3,2) FROM T1
  12.5
SELECT AVG(id) FROM T1
  2.5
SELECT TOP 1 id FROM T1 ORDER BY imp DESC, id
  2
SELECT id, imp FROM T1 ORDER BY imp, id
  3|Null/4|7/1|10.5/2|20
SELECT id FROM T1 ORDER BY (flag=1), id
  1/3/2/4
SELECT id FROM T1 ORDER BY flag=1 DESC, id
  2/4/1/3
SELECT t.id, u.id FROM T1 t, T1 u WHERE t.nom=u.nom AND t.id<u.id
  1|4
SELECT A.n FROM (SELECT COUNT(*) AS n, flag FROM T1 GROUP BY flag) AS A WHERE A.flag=0
  2
SELECT 'T' & Format(id,'000') & '-' & Left(nom,2) FROM T1 WHERE id=2
  T002-ÑA
SELECT Mid(nom,InStr(nom,'t')) FROM T1 WHERE id=2
  TO
SELECT Val(Mid('AB012',3)) + id FROM T1 WHERE id=1
  13
SELECT Trim(Str(id)) & '/' & CStr(imp) FROM T1 WHERE id=1
  1/10.5
SELECT IIf(imp Is Null,0,imp) FROM T1 WHERE id=3
  0
SELECT IIf(IsNull(imp),0,imp)*2 FROM T1 ORDER BY id
  21/40/0/14
SELECT -imp FROM T1 WHERE id=1
  -10.5
SELECT id FROM T1 WHERE -id = -2
  2
SELECT id FROM T1 WHERE Not (id=1 Or id=2) ORDER BY id
  3/4
SELECT id FROM T1 WHERE id Not Between 2 And 3 ORDER BY id
  1/4
SELECT id FROM T1 WHERE imp Between '7' And '11' ORDER BY id
  1/4
SELECT id FROM T1 WHERE nom Like 'ana' And id<>1
  4
SELECT id FROM T1 WHERE nom Like '*a*' AND nom Not Like '*c*' ORDER BY id
  1/2/4
SELECT id FROM T1 WHERE fec Like '*2026*' ORDER BY id
  1/2/4
SELECT id FROM T1 WHERE imp Like '1*'
  1
UPDATE T1 SET imp = imp + 1, nom = UCase(nom) WHERE id IN (SELECT MAX(id) FROM T1)
SELECT nom, imp FROM T1 WHERE id=4
  ANA|8
UPDATE T1 SET imp = (SELECT COUNT(*) FROM T1 AS x WHERE x.flag = T1.flag)
SELECT imp FROM T1 ORDER BY id
  2/2/2/2
UPDATE T1 AS a INNER JOIN T1 AS b ON a.nom=b.nom SET a.imp = b.id*10 WHERE a.id=4 AND b.id=1
SELECT id,imp FROM T1 ORDER BY id
  1|2/2|2/3|2/4|10
UPDATE T1 LEFT JOIN (SELECT id AS k FROM T1 WHERE flag=0) AS q ON T1.id=q.k SET T1.est='X' WHERE q.k IS NULL
SELECT id FROM T1 WHERE est='x' ORDER BY id
  1/3
UPDATE T1 INNER JOIN T1 AS b ON T1.id=b.id SET T1.imp=1, b.imp=2
  error
UPDATE T1 SET fec=Null, est='' WHERE id=1
SELECT fec, est FROM T1 WHERE id=1
  Null|
UPDATE T1 SET noexiste=1
  error
UPDATE T1, NoHay SET T1.id=1
  error
INSERT INTO T1 (id, fec) SELECT id+10, fec FROM T1 WHERE id=2
SELECT fec FROM T1 WHERE id=12
  <2026-11-25 10:30:00>
INSERT INTO T1 (id, fec, nom) SELECT 13, '31/12/2026', 5 FROM T1 WHERE id=1
SELECT fec, nom FROM T1 WHERE id=13
  <2026-12-31 00:00:00>|5
INSERT INTO T1 (id,fec) VALUES (14,Now())
INSERT INTO T1 (id,fec) VALUES (15,Date()-1)
SELECT DateDiff('d',fec,Date()) FROM T1 WHERE id=15
  1
INSERT INTO T1 (id,flag) VALUES (16,True)
SELECT flag FROM T1 WHERE id=16
  -1
SELECT id FROM T1 WHERE flag=True
  16
INSERT INTO T1 (id,flag) VALUES (17,1=1)
SELECT flag FROM T1 WHERE id=17
  -1
DELETE FROM T1 WHERE id>10
DELETE a.* FROM T1 AS a, T1 AS b WHERE a.nom=b.nom AND a.id>b.id
SELECT COUNT(*) FROM T1
  3
DELETE * FROM T1 AS z WHERE z.id=3
DELETE FROM NoHay
  error
SELECT * INTO T1 FROM T1
  error
SELECT 1 AS a INTO T9
SELECT a FROM T9
  1
DROP TABLE T9
DROP TABLE T1
SELECT 1; SELECT 2
  error
SELECT Format(#11/24/2026#,'dddd d mmmm yyyy')
  martes 24 noviembre 2026
SELECT Format(-5,'0.00;(0.00)'), Format(5,'0.00;(0.00)')
  (5.00)|5.00
# Divisors of one shape, numbers beside codes, dates beside numbers and as texts.
CREATE TABLE d1 (id LONG, cod TEXT, nom TEXT, tot DOUBLE, f DATETIME, n LONG)
INSERT INTO d1 VALUES (1,'000007','ÁLVAREZ',118,'24/11/2026',35)
UPDATE d1 SET tot=tot/2
UPDATE d1 SET tot=tot/0
  error
SELECT tot FROM d1
  59
SELECT COUNT(*) FROM d1 WHERE cod IN (7,8) AND cod NOT IN (1,2)
  1
SELECT COUNT(*) FROM d1 WHERE f > 46350
  0
SELECT COUNT(*) FROM d1 WHERE f > 46348 OR f = 46350
  1
SELECT f*1, CLNG(f), CDBL(f) FROM d1
  46350|46350|46350
UPDATE d1 SET f=46351, n=n/2
SELECT f, n FROM d1
  <2026-11-25 00:00:00>|18
UPDATE d1 SET n=nom
  error
UPDATE d1 SET tot=nom
  error
UPDATE d1 SET n='2.5', tot=cod
SELECT n, tot FROM d1
  3|7
SELECT COUNT(*) FROM d1 WHERE f LIKE '25/11*' AND LEFT(f,2)='25' AND RIGHT(f,4)='2026' AND LEN(f)=10
  1
SELECT IIF(id=1,'sin',f) FROM d1
  sin
WITH x AS (SELECT 1) SELECT * FROM x
  error
# Places and names in ORDER BY, Ñ between letters, rows that equal the last one of TOP, masks with words.
CREATE TABLE o1 (id LONG, nom TEXT(20) COLLATE NOCASE, otro TEXT(20), n LONG)
INSERT INTO o1 VALUES (1,'Zoila','b',5)
INSERT INTO o1 VALUES (2,'ÑATO','B',5)
INSERT INTO o1 VALUES (3,'Núñez','a',7)
INSERT INTO o1 VALUES (4,'Álvarez','C',9)
INSERT INTO o1 VALUES (5,'oso','c',9)
SELECT nom FROM o1 ORDER BY 1
  Álvarez/Núñez/ÑATO/oso/Zoila
SELECT nom AS quien FROM o1 ORDER BY quien DESC
  Zoila/oso/ÑATO/Núñez/Álvarez
SELECT otro & nom AS quien, n FROM o1 ORDER BY 1
  aNúñez|7/BÑATO|5/bZoila|5/CÁlvarez|9/coso|9
SELECT nom AS quien FROM o1 WHERE id < 3 UNION SELECT otro & 'ñ' FROM o1 WHERE id = 3 ORDER BY quien
  añ/ÑATO/Zoila
SELECT id FROM o1 WHERE nom < 'O' ORDER BY id
  2/3/4
SELECT id FROM o1 WHERE nom BETWEEN 'A' AND 'B'
  4
SELECT a.id FROM o1 a, o1 b WHERE b.nom = 'oso' AND a.nom > b.nom
  1
SELECT TOP 2 id FROM o1 ORDER BY n DESC, otro
  4/5
SELECT TOP 1 id FROM o1 ORDER BY n
  1/2
SELECT TOP 3 n FROM o1 ORDER BY n DESC
  9/9/7
SELECT TOP 1 * FROM o1 ORDER BY Left(otro,1), n
  3|Núñez|a|7
SELECT TOP 2 otro, nom FROM o1 ORDER BY otro
  a|Núñez/b|Zoila/B|ÑATO
SELECT TOP 40 PERCENT id FROM o1 ORDER BY id
  1/2
SELECT TOP 50 PERCENT n, COUNT(*) AS k FROM o1 GROUP BY n ORDER BY COUNT(*) DESC, n
  5|2/9|2
SELECT id FROM o1 WHERE n IN (SELECT TOP 1 n FROM o1 ORDER BY n DESC) ORDER BY id
  4/5
SELECT TOP 1 id FROM o1 UNION ALL SELECT TOP 2 id FROM o1 ORDER BY id DESC
  2/1/1
SELECT TOP 0 id FROM o1 ORDER BY id
  (nada)
SELECT Format(#11/24/2026#,'d "de" mmmm \de yyyy'), Format(5,'"N" 000'), Format(46350,'dd/mm/yyyy')
  24 de noviembre de 2026|N 005|24/11/2026
SELECT Format(#11/24/2026#,'q') & Format(#11/24/2026#,'ww') & Format(-1,'Yes/No'), CDate('24-nov-26'), Format(#10:30 PM#,'hh:nn')
  448Sí|<2026-11-24 00:00:00>|22:30
SELECT Format(#01/04/2026#,'w') & Format(#01/04/2026#,'w',2) & Format(#01/04/2026#,'ww') & Format(#01/04/2026#,'WW',2)
  1721
SELECT #11/31/2026#
  error
SELECT Left$('abc',2) & Trim$(' x ') & UCase$('y'), Nz(Null,0) + 1, Null & Null
  abxY|1|Null
SELECT DatePart('ww',#1/4/2026#,2), DatePart('w',#1/4/2026#,2), DateDiff('ww',#1/3/2026#,#1/4/2026#), DateDiff('ww',#1/3/2026#,#1/4/2026#,2)
  1|7|1|0
INSERT INTO o1 VALUES (6,'ñato','á',1)
SELECT nom, COUNT(*) FROM o1 WHERE n < 6 GROUP BY nom ORDER BY nom
  ÑATO|2/Zoila|1
SELECT DISTINCT nom FROM o1 WHERE n < 6 ORDER BY nom
  ÑATO/Zoila
SELECT MIN(nom), MAX(nom), COUNT(*) FROM o1
  Álvarez|Zoila|6
SELECT IIF(#11/24/2026 05:00:00 PM# = CDate('24/11/2026 05:00:00 p.m.'),1,0)
  1
DROP TABLE o1
# Letters beyond ASCII between columns, between ORs and in lists; an order whatever ran before; texts and names without end.
CREATE TABLE x1 (id int, sNom varchar(20) COLLATE NOCASE, cCod varchar(5) COLLATE NOCASE)
CREATE INDEX x1_nom ON x1 (sNom)
CREATE TABLE x2 (id int, sQuien varchar(20) COLLATE NOCASE)
INSERT INTO x1 VALUES (1,'ÑATO','A1')
INSERT INTO x1 VALUES (2,'Ángel','B2')
INSERT INTO x1 VALUES (3,'beto','C3')
INSERT INTO x1 VALUES (4,'O','D4')
INSERT INTO x1 VALUES (5,'5','E5')
INSERT INTO x2 VALUES (1,'ñato')
INSERT INTO x2 VALUES (2,'ÁNGEL')
INSERT INTO x2 VALUES (3,'BETO')
SELECT id FROM x1 WHERE sNom = 'ñato' OR sNom = 'ángel' ORDER BY id
  1/2
SELECT id FROM x1 WHERE sNom = 'BETO' OR sNom = 'ángel' ORDER BY id
  2/3
SELECT id FROM x1 WHERE 'ñato' = sNom OR 'ángel' = sNom OR cCod = 'c3' ORDER BY id
  1/2/3
SELECT x1.id FROM x1 INNER JOIN x2 ON x1.sNom = x2.sQuien ORDER BY x1.id
  1/2/3
SELECT x1.id FROM x1, x2 WHERE x2.sQuien = x1.sNom AND x1.cCod <> 'a1' ORDER BY x1.id
  2/3
SELECT id FROM x1 WHERE sNom IN (SELECT sQuien FROM x2) ORDER BY id
  1/2/3
SELECT id FROM x1 WHERE EXISTS (SELECT 1 FROM x2 WHERE x2.sQuien = x1.sNom) ORDER BY id
  1/2/3
SELECT id FROM x1 WHERE sNom > '5' ORDER BY id
  1/2/3/4
SELECT id FROM x1 WHERE sNom > 'N' ORDER BY id
  1/4
SELECT id FROM x1 WHERE sNom BETWEEN '5' AND '6' ORDER BY id
  5
SELECT id FROM x1 WHERE sNom BETWEEN 'a' AND 'c' ORDER BY id
  2/3
UPDATE x1 INNER JOIN x2 ON x1.id = x2.id SET x1.sNom = x2.sQuien
SELECT sNom FROM x1 WHERE id < 5 ORDER BY id
  ñato/ÁNGEL/BETO/O
UPDATE x1, x2 SET x1.sNom = 'x' & x2.id, x1.cCod = x2.id WHERE x1.sNom = x2.sQuien AND x2.id < 3
SELECT sNom & cCod FROM x1 ORDER BY id
  x11/x22/BETOC3/OD4/5E5
DELETE FROM x2 WHERE sQuien = 'nadie'
DELETE FROM x2 WHERE sQuien = 'ñato
  error
DELETE FROM x2 WHERE sQuien = "nadie"
DELETE FROM x2 WHERE sQuien = "ñato
  error
SELECT COUNT(*) AS [n] FROM x2
  3
SELECT COUNT(*) AS [n FROM x2
  error
SELECT Val('1 2 3'), Val('1e3x'), Val('&H1F'), Val('&o17'), Val('&HFFFF'), Val(' -1 . 5 '), Val('x'), Val('1e'), Val('2d2')
  123|1000|31|15|-1|-1.5|0|1|200
SELECT CAST('1' AS foo)
  error
DROP TABLE x1
DROP TABLE x2
CREATE TABLE x3 (id int, sNom varchar(20) COLLATE NOCASE)
CREATE INDEX x3_nom ON x3 (sNom)
INSERT INTO x3 VALUES (1,'MUÑOZ')
INSERT INTO x3 VALUES (2,'muñoz')
INSERT INTO x3 VALUES (3,'Muñiz')
INSERT INTO x3 VALUES (4,'Núñez')
INSERT INTO x3 VALUES (5,'NÚÑEZ')
INSERT INTO x3 VALUES (6,Null)
SELECT id FROM x3 WHERE sNom = 'Muñoz' ORDER BY id
  1/2
SELECT id FROM x3 WHERE sNom = 'núñez' ORDER BY id
  4/5
SELECT id FROM x3 WHERE sNom <> 'NÚÑEZ' ORDER BY id
  1/2/3
SELECT id FROM x3 WHERE NOT sNom = 'muñoz' AND sNom = 'ñáéíóú' OR sNom = 'muñiz' ORDER BY id
  3
SELECT id FROM x3 WHERE sNom LIKE 'MU%' ORDER BY id
  1/2/3
SELECT id FROM x3 AS t WHERE t.sNom LIKE 'mu*z' AND t.sNom LIKE '*ñi*' ORDER BY id
  3
SELECT id FROM x3 WHERE sNom LIKE 'muñ%' OR sNom LIKE 'n?ñ%' ORDER BY id
  1/2/3/4/5
SELECT id FROM x3 WHERE sNom NOT LIKE 'mu%' ORDER BY id
  4/5
SELECT id FROM x3 WHERE sNom LIKE '%z' ORDER BY id
  1/2/3/4/5
DROP TABLE x3
