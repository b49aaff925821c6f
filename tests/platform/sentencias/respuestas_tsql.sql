# A statement a line; behind it, indented, its answer: cells by |, rows by /. Without an answer it must run.
CREATE TABLE t1 (id int, nom varchar(20), imp decimal(10,2), fec datetime, flag bit)
CREATE TABLE t2 (id int, cod char(5), cant int)
INSERT INTO t1 (id,nom,imp,fec,flag) VALUES (1,'Ana',10.5,'20261124',1)
INSERT t1 VALUES (2,N'ÑATO',20,CONVERT(DATETIME,'25/11/2026 10:30:00',103),0)
INSERT INTO t1 VALUES (3,'beto ',NULL,NULL,NULL)
INSERT INTO t2 VALUES (1,'A1',3),(1,'B2',4),(2,'a1',5)
SELECT CONVERT(char(10),fec,103) FROM t1 WHERE id=1
  24/11/2026
SELECT CONVERT(varchar(10),fec,120) FROM t1 WHERE id=2
  2026-11-25
SELECT CONVERT(varchar(8),fec,112) FROM t1 WHERE id=2
  20261125
SELECT CONVERT(varchar,fec,101) FROM t1 WHERE id=2
  11/25/2026
SELECT CONVERT(int,'000123')
  123
SELECT CONVERT(int,12.9)
  12
SELECT CONVERT(int,'12.9')
  error
SELECT CAST('5' AS int)+1
  6
SELECT CAST(12.345 AS decimal(10,2))
  12.35
SELECT CAST(12.345 AS numeric(13,1))
  12.3
SELECT CAST(5 AS varchar(3))+'x'
  5x
SELECT CONVERT(varchar(2),'abcdef')
  ab
SELECT CONVERT(datetime,'24/11/2026',103)
  <2026-11-24 00:00:00>
SELECT CONVERT(datetime,'20261124',112)
  <2026-11-24 00:00:00>
SELECT CONVERT(datetime,'2026-11-24 17:05:30',120)
  <2026-11-24 17:05:30>
SELECT CONVERT(datetime,'x',103)
  error
SELECT ISNULL(NULL,5)
  5
SELECT ISNULL(imp,0) FROM t1 WHERE id=3
  0
SELECT ISNULL(MAX(id),0)+1 FROM t1 WHERE id>9
  1
SELECT COALESCE(NULL,NULL,'x')
  x
SELECT NULLIF(1,1)
  Null
SELECT TOP 2 id FROM t1 ORDER BY id DESC
  3/2
SELECT TOP (1) id FROM t1 ORDER BY id
  1
SELECT 'a'+'b'
  ab
SELECT 'a'+NULL
  Null
SELECT N'ñ'+'x'
  ñx
SELECT 'n: '+CAST(id AS varchar) FROM t1 WHERE id=2
  n: 2
SELECT CASE WHEN id>1 THEN 'x' ELSE 'y' END FROM t1 ORDER BY id
  y/x/x
SELECT CASE id WHEN 1 THEN 'u' WHEN 2 THEN 'd' END FROM t1 ORDER BY id
  u/d/Null
SELECT CASE nom WHEN 'ANA' THEN 1 ELSE 0 END FROM t1 WHERE id=1
  1
SELECT LEN('ab  ')
  2
SELECT LEN(NULL)
  Null
SELECT SUBSTRING('abcdef',2,3)
  bcd
SELECT SUBSTRING('abc',0,2)
  a
SELECT LEFT('abc',2)+RIGHT('abc',1)
  abc
SELECT RTRIM('a  ')+'|'
  a|
SELECT LTRIM('  a')
  a
SELECT UPPER('ñ')
  Ñ
SELECT LOWER('Á')
  á
SELECT REPLACE('aXa','x','-')
  a-a
SELECT REPLICATE('0',3)+'5'
  0005
SELECT RIGHT('000000'+CAST(33 AS varchar),6)
  000033
SELECT CHARINDEX('b','abc')
  2
SELECT CHARINDEX('B','abc',1)
  2
SELECT STUFF('abcdef',2,3,'X')
  aXef
SELECT REVERSE('abc')
  cba
SELECT SPACE(2)+'x'
    x
SELECT STR(12.5,6,1)
    12.5
SELECT STR(5)
           5
SELECT CHAR(65)
  A
SELECT ASCII('A')
  65
SELECT CONCAT('a',NULL,1)
  a1
SELECT ISNUMERIC('12')
  1
SELECT ISDATE('20261124')
  1
SELECT 5/2
  2
SELECT 5.0/2
  2.5
SELECT -7/2
  -3
SELECT 7%3
  1
SELECT 1/0
  error
SELECT 5%0
  error
SELECT ROUND(2.345,2)
  2.35
SELECT ROUND(125,-1)
  130
SELECT FLOOR(-2.1)
  -3
SELECT CEILING(2.1)
  3
SELECT ABS(-2)
  2
SELECT SIGN(-2)
  -1
SELECT POWER(2,3)
  8
SELECT SQRT(9)
  3
SELECT cant/2 FROM t2 WHERE cant=5
  2
SELECT imp/2 FROM t1 WHERE id=1
  5.25
SELECT 7/2*1.0
  3
SELECT 1 & 3
  1
SELECT 1 | 2
  3
SELECT YEAR(fec),MONTH(fec),DAY(fec) FROM t1 WHERE id=2
  2026|11|25
SELECT DATEADD(day,-1,fec) FROM t1 WHERE id=2
  <2026-11-24 10:30:00>
SELECT DATEADD(dd,1,'20261130')
  <2026-12-01 00:00:00>
SELECT DATEADD(mm,1,'20260131')
  <2026-02-28 00:00:00>
SELECT DATEADD(hour,2,'2026-11-24 23:00:00')
  <2026-11-25 01:00:00>
SELECT DATEADD(mi,5,'20261124')
  <2026-11-24 00:05:00>
SELECT DATEDIFF(dd,'20261124','20261201')
  7
SELECT DATEDIFF(minute,'2026-11-24 10:00','2026-11-24 11:30')
  90
SELECT DATEDIFF(yy,'20251231','20260101')
  1
SELECT DATEPART(dw,'20261124')
  3
SELECT DATEPART(month,'20261124')
  11
SELECT DATEDIFF(dd,0,'19000102')
  1
SELECT DATEADD(dd,DATEDIFF(dd,0,'2026-11-24 17:00'),0)
  <2026-11-24 00:00:00>
SELECT id FROM t1 WHERE fec='20261124'
  1
SELECT id FROM t1 WHERE fec>='2026-11-24' AND fec<'2026-11-26'
  1/2
SELECT id FROM t1 WHERE CONVERT(varchar(10),fec,103)='25/11/2026'
  2
SELECT id FROM t1 WHERE fec BETWEEN '20261124' AND '20261125 23:59:59'
  1/2
SELECT id FROM t1 WHERE nom LIKE 'b%'
  3
SELECT id FROM t1 WHERE nom LIKE '[a-b]%' ORDER BY id
  1/3
SELECT id FROM t1 WHERE nom LIKE '_na'
  1
SELECT id FROM t1 WHERE nom LIKE '[^a-m]%'
  2
SELECT id FROM t1 WHERE nom LIKE 'a*'
  
SELECT id FROM t2 WHERE cod='A1' ORDER BY id
  1/2
SELECT total=id, nom AS n, 'x y'=imp FROM t1 WHERE id=1
  1|Ana|10.5
SELECT t.id 'mi id', t.nom "otro", t.imp [tres] FROM t1 t WHERE t.id=1
  1|Ana|10.5
SELECT COUNT(1) TOTAL FROM t1
  3
SELECT id FROM dbo.t1 WITH (NOLOCK) WHERE id=1
  1
SELECT a.id FROM t1 a (nolock) WHERE a.id=1
  1
SELECT id FROM central.dbo.t1 WHERE id=1
  1
SELECT dbo.t1.id FROM dbo.t1 WHERE dbo.t1.id=1
  1
SELECT [t1].[id] FROM [dbo].[t1] WHERE [id]=1
  1
UPDATE t1 SET imp = b.cant FROM t1 a INNER JOIN t2 b ON a.id=b.id WHERE b.cod='a1' AND a.id=2
SELECT imp FROM t1 ORDER BY id
  10.5/5/Null
UPDATE a SET a.imp = 7 FROM t1 a INNER JOIN t2 b ON a.id=b.id WHERE b.cod='B2'
SELECT imp FROM t1 ORDER BY id
  7/5/Null
UPDATE t1 SET imp=t2.cant FROM t2 WHERE t1.id=t2.id AND t2.cod='B2'
SELECT imp FROM t1 ORDER BY id
  4/5/Null
UPDATE t1 SET imp=ISNULL(imp,0)+1
UPDATE t1 SET fec='24/11/2026' WHERE id=3
SELECT * INTO t4 FROM t1 WHERE id<3
INSERT INTO t4 (id,nom) SELECT id, cod FROM t2 WHERE cant=4
DELETE t4 WHERE nom='B2'
DELETE a FROM t4 a INNER JOIN t2 b ON a.id=b.id WHERE b.cant=5
DELETE FROM t4 FROM t4 INNER JOIN t2 ON t4.id=t2.id
SELECT COUNT(*) FROM t4
  0
SELECT id, SUM(cant) s FROM t2 GROUP BY id HAVING SUM(cant)>3 ORDER BY id
  1|7/2|5
SELECT COUNT(DISTINCT cod) FROM t2
  2
SELECT id FROM t1 UNION SELECT id FROM t2 ORDER BY id
  1/2/3
SELECT x.s FROM (SELECT SUM(cant) s FROM t2) x
  12
SELECT a.id, s=(SELECT SUM(cant) FROM t2 b WHERE b.id=a.id) FROM t1 a ORDER BY a.id
  1|7/2|5/3|Null
SELECT a.id FROM t1 a LEFT OUTER JOIN t2 b ON a.id=b.id WHERE b.id IS NULL
  3
SELECT a.id FROM t1 a WHERE EXISTS(SELECT * FROM t2 b WHERE b.id=a.id) ORDER BY 1
  1/2
SELECT id FROM t1 -- comentario
SELECT /* c */ id FROM t1 WHERE id=1
  1
SELECT IIF(1=1,'a','b')
  a
SELECT id FROM t1 WHERE id!=1 ORDER BY id
  2/3
SELECT id FROM t1 WHERE id!<2 ORDER BY id
  2/3
SELECT ROW_NUMBER() OVER (ORDER BY id DESC) r, id FROM t1
  1|3/2|2/3|1
SELECT flag FROM t1 WHERE flag=1
  1
SELECT SUM(cant)/2 FROM t2
  6
SELECT AVG(cant) FROM t2
  4
SELECT SUM(imp) FROM t1 WHERE id>9
  Null
SELECT MAX(fec) FROM t1 WHERE id<3
  <2026-11-25 10:30:00>
SELECT CAST(imp AS int) FROM t1 WHERE id=1
  5
SELECT CAST('abc' AS int)
  error
SELECT id FROM t1 WHERE id='1'
  1
SELECT id FROM t1 WHERE id='x'
  error
SELECT CONVERT(numeric(9,2),'12.345')
  12.35
SELECT CONVERT(money,'12.5')
  12.5
SELECT CONVERT(bit,5)
  1
DROP TABLE t1
DROP TABLE t2
DROP TABLE t4
CREATE TABLE t7 (id int, cod varchar(5))
INSERT INTO t7 VALUES (1,'a'),(2,'b'),(4,'A')
SELECT AVG(id) FROM t7
  2
SELECT id FROM t7 WHERE id = ANY (SELECT 4 UNION SELECT 9)
  4
SELECT id FROM t7 WHERE id <> ALL (SELECT id FROM t7 WHERE cod='a')
  2
SELECT CONVERT(varchar(19),CONVERT(datetime,'20261124 10:11:12'),126)
  2026-11-24T10:11:12
BEGIN TRAN
ROLLBACK TRAN
# Divisors of one shape, numbers beside codes, days, dates among other values, named queries.
CREATE TABLE d1 (id int, cod varchar(6), nom varchar(20), tot decimal(10,2), f datetime, g datetime, n int)
INSERT INTO d1 VALUES (1,'000007','ÁLVAREZ',118,'24/11/2026 10:00:00',NULL,35)
SELECT COUNT(*) FROM d1 WHERE tot/2 > 1
  1
SELECT COUNT(*) FROM d1 WHERE tot/0 > 1
  error
SELECT COUNT(*) FROM d1 WHERE id%2 = 1
  1
SELECT COUNT(*) FROM d1 WHERE id%0 = 1
  error
SELECT COUNT(*) FROM d1 WHERE cod IN (7,8)
  1
SELECT COUNT(*) FROM d1 WHERE cod NOT IN (7,'8')
  0
SELECT COUNT(*) FROM d1 WHERE cod IN (SELECT id+6 FROM d1)
  1
SELECT CASE cod WHEN 7 THEN 'siete' ELSE 'otro' END FROM d1
  siete
SELECT COUNT(*) FROM d1 WHERE CONVERT(date,f)='20261124' AND CAST(f AS date)='24/11/2026'
  1
SELECT COUNT(*) FROM d1 WHERE f > 46000 AND f < 46400 AND f IN (46348.416666666664,0)
  1
SELECT CONVERT(datetime,FLOOR(CONVERT(float,f))) FROM d1
  <2026-11-24 00:00:00>
UPDATE d1 SET g=0
SELECT g FROM d1
  <1900-01-01 00:00:00>
UPDATE d1 SET n=n*0.5, g=NULL
SELECT n FROM d1
  17
UPDATE d1 SET n=nom
  error
INSERT INTO d1 (id,tot) SELECT id, nom FROM d1
  error
INSERT INTO d1 (id,n) SELECT id+1, cod FROM d1
SELECT n FROM d1 WHERE id=2
  7
SELECT COUNT(*) FROM d1 WHERE ISNULL(g,'01/12/2030') > f
  1
SELECT COUNT(*) FROM d1 WHERE CASE WHEN g IS NULL THEN '01/12/2030' ELSE g END > GETDATE()
  2
SELECT MAX(ISNULL(g,'05/11/2026')), MAX(COALESCE(g,'06/12/2026')) FROM d1
  <2026-11-05 00:00:00>|<2026-12-06 00:00:00>
SELECT ISNULL(cod,0)+'x' FROM d1 ORDER BY id
  000007x/0x
WITH x AS (SELECT id, nom AS quien, f FROM d1 WHERE nom='álvarez') SELECT COUNT(*) FROM x WHERE quien='ÁLVAREZ' AND f>='24/11/2026'
  1
WITH x (a, b) AS (SELECT id, cod FROM d1), y AS (SELECT a FROM x WHERE b=7) SELECT TOP 1 ISNULL(a,0) FROM y
  1
WITH x AS (SELECT 5/0 AS a) SELECT * FROM x
  error
WITH n (i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<4) SELECT MAX(i) FROM n
  4
SELECT * INTO #t FROM d1
  error
SELECT CONVERT(varchar,f,8)+'|'+CONVERT(varchar,f,5)+'|'+CONVERT(varchar,f,12)+'|'+CONVERT(varchar,f,4) FROM d1 WHERE id=1
  10:00:00|24-11-26|261124|24.11.26
SELECT CONVERT(varchar,f,106)+'|'+CONVERT(varchar,f,107)+'|'+CONVERT(varchar,f,100)+'|'+CONVERT(varchar,f,6) FROM d1 WHERE id=1
  24 Nov 2026|Nov 24, 2026|Nov 24 2026 10:00AM|24 Nov 26
SELECT CONVERT(varchar,f,77) FROM d1 WHERE id=1
  error
# Places and names in ORDER BY, blanks at the end, dates without a style, TOP in all its forms.
CREATE TABLE o1 (id int, nom varchar(20) COLLATE NOCASE, otro varchar(20), imp decimal(10,2), f datetime)
INSERT INTO o1 VALUES (1,'Zoila','b ',35,'24/11/2026 09:05:00'),(2,'ÑATO','B',10,NULL),(3,'Núñez','a',35,NULL)
SELECT nom FROM o1 ORDER BY 1
  Núñez/ÑATO/Zoila
SELECT quien=nom FROM o1 ORDER BY quien
  Núñez/ÑATO/Zoila
SELECT id FROM o1 WHERE nom = 'zoila  ' OR nom IN ('ñato ','x')
  1/2
SELECT COUNT(*) FROM o1 WHERE otro = 'B'
  2
SELECT id FROM o1 WHERE nom > 'nz' ORDER BY id
  1/2
SELECT imp/2, imp/4*2 FROM o1 WHERE id=1
  17.5|17.5
SELECT ISNULL(imp,0)/id, 5.5%2, 7%3 FROM o1 WHERE id=2
  5|1.5|1
SELECT CONVERT(varchar(20),f), CAST(f AS varchar(11)), CONVERT(varchar,f,121), CONVERT(varchar(30),f,23), CONVERT(varchar,f,10) FROM o1 WHERE id=1
  Nov 24 2026  9:05AM|Nov 24 2026|2026-11-24 09:05:00.000|2026-11-24|11-24-26
SELECT CAST('ab' AS char(4))+'|', CONVERT(char(2),'abc')
  ab  ||ab
SELECT DATENAME(month,f)+' '+DATENAME(dw,f)+' '+DATENAME(year,f), DATEDIFF(dw,f,'20261126'), DATEADD(ms,-3,'20261125') FROM o1 WHERE id=1
  November Tuesday 2026|2|<2026-11-24 23:59:59>
SELECT CURRENT_TIMESTAMP
  <2026-11-24 17:05:30>
SELECT TOP 1 WITH TIES id FROM o1 ORDER BY imp DESC
  1/3
SELECT TOP 1 id FROM o1 ORDER BY imp DESC, id
  1
SELECT TOP (50) PERCENT id FROM o1 ORDER BY id
  1/2
SELECT ISNULL(imp,''), ISNULL(CAST(NULL AS int),'') FROM o1 WHERE id=2
  10|0
SELECT SUBSTRING('abcdef',-1,4), SUBSTRING('abc',2,9), DATALENGTH('ab '), CHARINDEX('','abc'), REPLICATE('x',-1), ROUND(1.259,2,1), ROUND(-1.259,2,1)
  ab|bc|3|0|Null|1.25|-1.25
SELECT PATINDEX('%[0-9]%','ab12'), PATINDEX('b%','ab'), PATINDEX('%b','ab'), CASE WHEN '!b' LIKE '[!a]b' THEN 1 ELSE 0 END
  3|0|2|1
TRUNCATE TABLE dbo.o1
SELECT COUNT(*) FROM o1
  0
DROP TABLE o1
SELECT CONVERT(varchar(3),12345), CONVERT(datetime,'24 Nov 2026',106), CAST('Nov 24 2026  9:05AM' AS datetime), CONVERT(datetime,'10:05:09',108)
  *|<2026-11-24 00:00:00>|<2026-11-24 09:05:00>|<1900-01-01 10:05:09>
# Letters beyond ASCII between columns, between ORs and in lists; blanks that are stored; what a session sets; types that
# there aren't; numbers in a list of texts.
CREATE TABLE x1 (id int, sNom varchar(20) COLLATE NOCASE, cNum varchar(5) COLLATE NOCASE)
CREATE INDEX x1_nom ON x1 (sNom)
CREATE TABLE x2 (id int, sQuien varchar(20) COLLATE NOCASE)
INSERT INTO x1 VALUES (1,'ÑATO  ','1'),(2,'Ángel','7'),(3,'beto' + '  ','x'),(4,NULL,NULL)
INSERT INTO x2 VALUES (1,'ñato'),(2,'ÁNGEL '),(3,'BETO')
SELECT id FROM x1 WHERE sNom = 'ñato' OR sNom = 'ángel' ORDER BY id
  1/2
SELECT id FROM x1 WHERE sNom = 'BETO' OR sNom = 'beto ' OR sNom = 'ángel' ORDER BY id
  2/3
SELECT a.id FROM x1 a INNER JOIN x2 b ON a.sNom = b.sQuien ORDER BY a.id
  1/2/3
SELECT id FROM x1 WHERE sNom IN (SELECT sQuien FROM x2) ORDER BY id
  1/2/3
SELECT id FROM x1 a WHERE NOT EXISTS (SELECT 1 FROM x2 WHERE sQuien = a.sNom) ORDER BY id
  4
SELECT a.id FROM x1 a, x2 b WHERE a.id = b.id AND NULLIF(a.sNom, b.sQuien) IS NULL ORDER BY a.id
  1/2/3
UPDATE x1 SET sNom = 'beto   ' WHERE id = 3
SELECT COUNT(*) FROM x1 WHERE sNom = 'beto'
  1
UPDATE a SET sNom = b.sQuien FROM x1 a INNER JOIN x2 b ON a.sNom = b.sQuien
SELECT sNom FROM x1 ORDER BY id
  ñato/ÁNGEL/BETO/Null
SELECT id FROM x2 WHERE id IN (SELECT cNum FROM x1) ORDER BY id
  1
SELECT COUNT(*) FROM x2 WHERE 7 IN (SELECT cNum FROM x1 WHERE id = x2.id)
  1
SELECT COUNT(*) FROM x2 WHERE 7 NOT IN (SELECT cNum FROM x1 WHERE id < 3)
  0
SET LANGUAGE Spanish
SET LANGUAGE us_english;
SET NOCOUNT ON
SET LANGUAGE Klingon
  error
SET sNom = 'x'
  error
SELECT CAST(1 AS )
  error
SELECT CAST('1' AS foo)
  error
SELECT CONVERT(foo, '1')
  error
SELECT AVG(id), AVG(id * 1.0) FROM x2 WHERE id < 3
  1|1.5
DELETE FROM x2 WHERE sQuien = 'nadie'
DELETE FROM x2 WHERE sQuien = 'ñato
  error
SELECT COUNT(*) AS "n" FROM x2
  3
SELECT COUNT(*) AS "n FROM x2
  error
SELECT COUNT(*) FROM x2 WHERE id > 5 /* todo */
  0
SELECT COUNT(*) FROM x2 /* WHERE id > 5
  error
exec dbo.nada 'x' /* sin fin
  error
DROP TABLE x1
DROP TABLE x2
CREATE TABLE x3 (id int, sNom varchar(20) COLLATE NOCASE)
CREATE INDEX x3_nom ON x3 (sNom)
INSERT INTO x3 VALUES (1,'MUÑOZ  '),(2,'muñoz'),(3,'Muñiz'),(4,'Núñez'),(5,NULL),(6,'mu*z')
SELECT id FROM x3 WHERE sNom = 'Muñoz ' ORDER BY id
  1/2
SELECT id FROM x3 WHERE sNom <> N'NÚÑEZ' ORDER BY id
  1/2/3/6
SELECT id FROM dbo.x3 t WHERE t.sNom LIKE 'mu*%' OR t.sNom LIKE N'núñ%' ORDER BY id
  4/6
SELECT id FROM x3 WHERE sNom LIKE 'mu!*z' ESCAPE '!' OR sNom LIKE 'm_ñ[a-n]z' ORDER BY id
  3/6
DROP TABLE x3
# Lists and texts with many letters beyond ASCII, as an index finds them.
CREATE TABLE x4 (id int, sNom varchar(40) COLLATE NOCASE)
CREATE INDEX x4_nom ON x4 (sNom)
INSERT INTO x4 VALUES (1,'Muñoz'),(2,'PÉREZ ÑÁÑEZ Í'),(3,'beto'),(4,'ÁNGEL'),(5,'peru'),(6,'Pérez Ñáñez'),(7,NULL)
SELECT id FROM x4 WHERE sNom IN ('muñoz','BETO','ángel','x') ORDER BY id
  1/3/4
SELECT id FROM x4 WHERE sNom NOT IN ('MUÑOZ','ángel ') ORDER BY id
  2/3/5/6
SELECT id FROM x4 WHERE sNom = 'pérez ñáñez í' OR sNom = 'péréz ñáñéz í' ORDER BY id
  2
SELECT x.id FROM x4 x WHERE x.sNom = N'pérez ñáñez í ' AND x.id < 5
  2
SELECT id FROM x4 WHERE sNom IN ('muñoz', sNom) ORDER BY id
  1/2/3/4/5/6
INSERT INTO x4 VALUES (99)
  error
INSERT INTO x4 SELECT 99
  error
SELECT (id, 0) FROM x4
  error
SELECT ( ~ ( id ) , 0 ) FROM x4
  error
DROP TABLE x4
