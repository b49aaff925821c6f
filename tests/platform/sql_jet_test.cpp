#include "sql_banco.h"

namespace {

const QStringList kTienda = {
    u8("CREATE TABLE Operacion (cOperID INTEGER PRIMARY KEY AUTOINCREMENT, cOperCode INTEGER, cProdCode INTEGER, "
       "cAlmaCode TEXT COLLATE NOCASE, nProdCant REAL DEFAULT 0, nProdPrecUnit REAL DEFAULT 0, nDscto INTEGER DEFAULT 0, "
       "dOperFech DATETIME, cDocTipo TEXT COLLATE NOCASE, cOperFlagAbierto INTEGER DEFAULT 1)"),
    u8("CREATE TABLE Producto (cProdCode INTEGER PRIMARY KEY, sProdDesc TEXT COLLATE NOCASE, sLibre TEXT, "
       "cEstadoTexto TEXT COLLATE NOCASE, nPrec REAL)"),
    u8("CREATE TABLE Configuracion (cCodiTurno TEXT COLLATE NOCASE, iCierreCaja INTEGER)"),
    u8("INSERT INTO Operacion (cOperCode,cProdCode,cAlmaCode,nProdCant,nProdPrecUnit,nDscto,dOperFech,cDocTipo) VALUES "
       "(7,1,'01',2,5.5,-10,'2025-04-03 10:05:00','02'),(7,0,NULL,1,-1,0,'2025-04-03 10:05:00','02'),"
       "(8,2,'01',1,3,0,'2025-12-25 00:00:00','01')"),
    u8("INSERT INTO Producto VALUES (1,'ÑANDÚ asado','abc','1',5.5),(2,'Lomo','ABC','2',5),(3,'lomo 2','ñu','x',NULL),"
       "(4,'ñandúes','','',0.25)"),
    u8("INSERT INTO Configuracion VALUES ('01',0)"),
};

const struct { const char *porque, *sql, *sale; } kJet[] = {
    // dates
    {"month first between #", "SELECT FORMAT(#03/04/2025#, 'dd/mm/yyyy')", "04/03/2025"},
    {"a literal date is a date", "SELECT #04/03/2025 10:05:00#", "<2025-04-03 10:05:00>"},
    {"date column beside #", "SELECT COUNT(*) FROM Operacion WHERE dOperFech < #04/04/2025#", "2"},
    {"between dates", "SELECT COUNT(*) FROM Operacion WHERE dOperFech BETWEEN #04/03/2025# AND #04/04/2025#", "2"},
    {"date column beside a text", "SELECT COUNT(*) FROM Operacion WHERE dOperFech = '25/12/2025'", "1"},
    {"a highest date stays a date", "SELECT MAX(dOperFech) FROM Operacion", "<2025-12-25 00:00:00>"},
    {"through a union and a subselect",
     "SELECT d FROM (SELECT 1 AS o, MIN(dOperFech) AS d FROM Operacion UNION SELECT 2, MAX(dOperFech) FROM Operacion) "
     "ORDER BY o", "<2025-04-03 10:05:00>/<2025-12-25 00:00:00>"},
    {"IIF of dates", "SELECT IIF(1=1, dOperFech, NULL) FROM Operacion WHERE cOperCode=8", "<2025-12-25 00:00:00>"},
    {"now and today", "SELECT NOW(), DATE()", "<2026-11-24 17:05:30>|<2026-11-24 00:00:00>"},
    {"three months back", "SELECT dateadd( 'm', -3, date())", "<2026-08-24 00:00:00>"},
    {"day minus days", "SELECT date() - 1, date() - #11/20/2026#", "<2026-11-23 00:00:00>|4"},
    {"date back from its text", "SELECT cdate(FORMAT( DOPERFECH  , 'DD/MM/YYYY')) FROM Operacion WHERE cOperCode=8",
     "<2025-12-25 00:00:00>"},
    {"text that looks like a date stays text", "SELECT '2025-12-25 00:00:00'", "2025-12-25 00:00:00"},
    {"parts", "SELECT YEAR(dOperFech), MONTH(dOperFech), DAY(dOperFech) FROM Operacion WHERE cOperCode=8", "2025|12|25"},
    {"difference counts borders", "SELECT DATEDIFF('yyyy', #12/31/2024#, #01/01/2025#), DATEDIFF('d', #1/1/2025#, #3/1/2025#)",
     "1|59"},
    // texts
    {"a text is no statement", "SELECT 'IIF(1,2) #01/02/2025# a+b'", "IIF(1,2) #01/02/2025# a+b"},
    {"double quotes are texts", "SELECT \"it's \"\"so\"\"\"", "it's \"so\""},
    {"texts side by side stay two", "SELECT 'a'\"b\" AS x", "error: near \"AS\": syntax error"},
    {"quote by code", "SELECT 'O' + Chr(39) + 'Neil'", "O'Neil"},
    {"plus joins", "SELECT sProdDesc + '-' + cEstadoTexto FROM Producto WHERE cProdCode=2", "Lomo-2"},
    {"Null joins to Null", "SELECT 'a' + NULL, 'a' & NULL", "Null|a"},
    {"whole REAL as text", "SELECT 'n' & nPrec, 'n' + nPrec, CSTR(nPrec), TRIM(nPrec) FROM Producto WHERE cProdCode=2",
     "n5|n5|5|5"},
    {"& binds looser than +", "SELECT 1 + 2 & 'x'", "3x"},
    {"numbers add", "SELECT 1 + 2, nPrec + 1 FROM Producto WHERE cProdCode=2", "3|6"},
    {"no case in a literal", "SELECT COUNT(*) FROM Producto WHERE sProdDesc = 'LOMO'", "1"},
    {"no case for enye", "SELECT COUNT(*) FROM Producto WHERE sProdDesc = 'ñandú ASADO'", "1"},
    {"no case after TRIM", "SELECT COUNT(*) FROM Producto WHERE TRIM(sLibre) = 'Abc'", "2"},
    {"no case between columns", "SELECT COUNT(*) FROM Producto a, Producto b WHERE a.sLibre = b.sLibre", "6"},
    {"accents count", "SELECT COUNT(*) FROM Producto WHERE sProdDesc = 'nandu asado'", "0"},
    {"no case in lists", "SELECT COUNT(*) FROM Producto WHERE sLibre IN ('ABC','Ñu')", "3"},
    {"no case in a group", "SELECT COUNT(*) FROM (SELECT sLibre FROM Producto GROUP BY sLibre)", "3"},
    {"no case in DISTINCT", "SELECT COUNT(*) FROM (SELECT DISTINCT sLibre FROM Producto WHERE cProdCode < 3)", "1"},
    {"sorted as a reader does", "SELECT cProdCode FROM Producto ORDER BY sProdDesc", "2/3/1/4"},
    {"either wildcard", "SELECT COUNT(*) FROM Producto WHERE sProdDesc LIKE '*ÑANDÚ%'", "2"},
    {"one character", "SELECT COUNT(*) FROM Producto WHERE sLibre LIKE 'a?c' AND sLibre LIKE '_b_'", "2"},
    {"not like", "SELECT COUNT(*) FROM Producto WHERE sProdDesc NOT LIKE 'lomo*'", "2"},
    {"like a class and a digit", "SELECT 'F5' LIKE '[A-F]#', 'Z5' LIKE '[!A-F]#', 'a*' LIKE '?[*]'", "-1|-1|-1"},
    {"cuts", "SELECT LEFT('ñandú',2), RIGHT('ñandú',2), MID('ñandú',2,3), LEN('ñandú '), UCASE('ñú'), LCASE('ÑÚ')",
     "ña|dú|and|6|ÑÚ|ñú"},
    // numbers
    {"division is never whole", "SELECT 5/2, cOperCode/2 FROM Operacion WHERE cOperID=1", "2.5|3.5"},
    {"whole division and rest", "SELECT 7\\2, 7 MOD 4", "3|3"},
    {"discount of a line", "SELECT SUM((nProdCant * nProdPrecUnit) + ((nProdCant * nProdPrecUnit) * nDscto/100)) "
     "FROM Operacion WHERE cProdCode=1", "9.9"},
    {"no rows: SUM is Null", "SELECT IIF(SUM(nProdCant) IS NULL, 'Null', '0') FROM Operacion WHERE 1=0", "Null"},
    {"ISNULL of one", "SELECT IIF(ISNULL(MAX(cOperID)),0, MAX(cOperID)) FROM Operacion WHERE cOperFlagAbierto = 0", "0"},
    {"a minus after a minus", "SELECT 5--3, 5 - -3, --4", "8|8|4"},
    {"True and False", "SELECT True, False, 5-True", "-1|0|6"},
    {"no parameters", "SELECT COUNT(*) FROM Operacion WHERE cOperCode = ? AND cProdCode = 1", "error: La sentencia espera valores que no se han dado."},
    {"a placeholder left over", "SELECT COUNT(*) FROM Operacion WHERE cOperCode = $", "error: La sentencia espera valores que no se han dado."},
    {"no comments", "SELECT 5 /* 2", "error: near \"*\": syntax error"},
    {"masks", "SELECT FORMAT(1234.5,'###,##0.00'), FORMAT(7,'000000'), VAL('12abc'), INT(-2.5), CINT(2.5), ROUND(1.005,2)",
     "1,234.50|000007|12|-3|3|1.01"},
    // a text beside a number
    {"text beside number column", "SELECT COUNT(*) FROM Operacion WHERE cOperCode='7'", "2"},
    {"quoted decimal", "SELECT COUNT(*) FROM Producto WHERE nPrec = '5.0'", "1"},
    {"number beside text column", "SELECT COUNT(*) FROM Producto WHERE cEstadoTexto = 1", "1"},
    {"text beside an expression", "SELECT COUNT(*) FROM Operacion WHERE cOperCode + 1 = '8'", "2"},
    {"blank text is no number", "SELECT COUNT(*) FROM Operacion WHERE cOperCode = ''",
     "error: No coinciden los tipos de datos: '' no es un número."},
    // forms
    {"brackets and owners", "SELECT [O].[cOperCode] FROM [Operacion] AS [O] WHERE O.cOperID=3", "8"},
    {"first n", "SELECT TOP 2 cOperID FROM Operacion ORDER BY cOperID DESC", "3/2"},
    {"joins in parentheses",
     "SELECT o.cOperID, p.sLibre, q.cProdCode FROM (Operacion o INNER JOIN Producto p ON o.cProdCode = p.cProdCode) "
     "LEFT JOIN Producto q ON q.cProdCode = p.cProdCode + 2 ORDER BY o.cOperID", "1|abc|3/3|ABC|4"},
    {"join in parentheses on the right",
     "SELECT o.cOperID, p.cProdCode FROM Operacion o LEFT JOIN (Producto p INNER JOIN Producto q ON p.cProdCode = "
     "q.cProdCode) ON o.cProdCode = p.cProdCode ORDER BY o.cOperID", "1|1/2|Null/3|2"},
    {"NOT before IN", "SELECT COUNT(*) FROM Operacion WHERE NOT cOperCode IN (SELECT cOperCode FROM Operacion WHERE cDocTipo='01')",
     "2"},
    {"comparison, no alias", "SELECT 1=1", "-1"},
    {"the engine has the word", "SELECT NOEXISTE(1)", "error: no such function: NOEXISTE"},
    {"one statement at a time", "SELECT 1; DELETE FROM Operacion", "error: Solo se puede ejecutar una sentencia a la vez."},
    {"a last semicolon says nothing", "SELECT 1 ;", "1"},
    {"nothing is no statement", "   ", "error: La sentencia está vacía."},
};

TEST(Jet, AnswersAsItsEngineDid) {
  Banco b(true, kTienda);
  for (const auto& c : kJet) {
    SCOPED_TRACE(c.porque);
    EXPECT_EQ(u8(c.sale), b.respuesta(c.sql)) << b.cnn.traducir(u8(c.sql)).toStdString();
    EXPECT_EQ(u8(c.sale), b.respuesta(c.sql)) << "from the cache";
  }
}

TEST(Jet, WritesDatesAndNumbersAsTheirColumns) {
  const struct { const char *porque, *sentencia, *pregunta, *sale; } kCasos[] = {
      {"day first in an insert", "INSERT INTO Operacion (cOperCode,dOperFech) VALUES (50,'03/04/2025 10:05')",
       "SELECT dOperFech FROM Operacion WHERE cOperCode=50", "<2025-04-03 10:05:00>"},
      {"month first between #", "INSERT INTO Operacion (cOperCode,dOperFech) VALUES (51,#03/04/2025#)",
       "SELECT dOperFech FROM Operacion WHERE cOperCode=51", "<2025-03-04 00:00:00>"},
      {"day first in an update, prefix", "UPDATE Operacion SET Operacion.dOperFech='01/02/2025', cOperFlagAbierto = '0' WHERE cOperCode=51",
       "SELECT dOperFech, cOperFlagAbierto FROM Operacion WHERE cOperCode=51", "<2025-02-01 00:00:00>|0"},
      {"Null dates", "INSERT INTO Operacion (cOperCode,dOperFech,nProdCant) VALUES (52,Null,'2.50')",
       "SELECT dOperFech, nProdCant FROM Operacion WHERE cOperCode=52", "Null|2.5"},
      {"now", "INSERT INTO Operacion (cOperCode,dOperFech) SELECT 53, NOW()",
       "SELECT dOperFech FROM Operacion WHERE cOperCode=53", "<2026-11-24 17:05:30>"},
      {"selected text to a date", "INSERT INTO Operacion (cOperCode,dOperFech) SELECT 54, '02/01/2025'",
       "SELECT dOperFech FROM Operacion WHERE cOperCode=54", "<2025-01-02 00:00:00>"},
      {"a number into a text", "UPDATE Producto SET sLibre = nPrec * 2 WHERE cProdCode=2",
       "SELECT sLibre FROM Producto WHERE cProdCode=2", "10"},
      {"prefix of another case", "UPDATE CONFIGURACION SET CONFIGURACION.cCodiTurno='02'",
       "SELECT CCODITURNO FROM Configuracion", "02"},
      {"delete with a star", "DELETE * FROM Operacion WHERE cOperCode > 50", "SELECT COUNT(*) FROM Operacion", "4"},
      {"quote inside", "INSERT INTO Producto (cProdCode,sProdDesc) VALUES (9,'D' + Chr(39) + 'Onofrio ''x''')",
       "SELECT sProdDesc FROM Producto WHERE cProdCode=9", "D'Onofrio 'x'"},
  };
  Banco b(true, kTienda);
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    const auto e = b.cnn.ejecutar(u8(c.sentencia));
    EXPECT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString() << b.cnn.traducir(u8(c.sentencia)).toStdString();
    EXPECT_EQ(u8(c.sale), b.respuesta(c.pregunta));
  }
  const auto e = b.cnn.ejecutar(u8("INSERT INTO Operacion (cOperCode,dOperFech) VALUES (60,'31/02/2025')"));
  ASSERT_TRUE(e);
  EXPECT_EQ(kErrorSentencia, e->numero);
  EXPECT_EQ("0", b.respuesta("SELECT COUNT(*) FROM Operacion WHERE cOperCode=60"));
}

TEST(Jet, OneShapeManyLiterals) {
  Banco b(true, kTienda);
  for (int i = 100; i < 140; ++i) {
    const QString sql = u8("INSERT INTO Operacion (cOperCode,nProdCant,dOperFech,cDocTipo) VALUES (%1,%2,'%3/01/2025','%4')")
                            .arg(i).arg(i % 2 ? u8("1") : u8("1.5")).arg(i - 99, 2, 10, QChar(u'0')).arg(i % 3 ? u8("a") : u8("ñ"));
    const auto e = b.cnn.ejecutar(sql);
    EXPECT_EQ(i >= 131, e.has_value()) << i;  // January has 31 days
  }
  EXPECT_EQ("39", b.respuesta("SELECT SUM(nProdCant) FROM Operacion WHERE cOperCode >= 100"));
  EXPECT_EQ("<2025-01-31 00:00:00>", b.respuesta("SELECT MAX(dOperFech) FROM Operacion WHERE cDocTipo = 'A' AND cOperCode >= 100"));
  // Literals that stay in the statement: the same shape with another list, order or count.
  EXPECT_EQ("7|x", b.respuesta("SELECT TOP 1 cOperCode, 'x' FROM Operacion ORDER BY 1"));
  EXPECT_EQ("7|y/7|y", b.respuesta("SELECT TOP 2 cOperCode, 'y' FROM Operacion ORDER BY 1"));
}

}  // namespace
