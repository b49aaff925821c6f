#include "sql_banco.h"

namespace {

const QStringList kCentral = {
    u8("CREATE TABLE venta01 (cCodVta TEXT COLLATE NOCASE PRIMARY KEY, TipoDoc TEXT COLLATE NOCASE, NroDoc TEXT COLLATE "
       "NOCASE, FechaEmision DATETIME, TotVta REAL, IdLocal INTEGER, DscCliente TEXT COLLATE NOCASE, cCodMoneda TEXT COLLATE NOCASE)"),
    u8("CREATE TABLE pagos (NroDoc TEXT COLLATE NOCASE, moneda TEXT COLLATE NOCASE, monto REAL, ntipocambio REAL, "
       "FechaAnulacion DATETIME, n INTEGER)"),
    u8("INSERT INTO venta01 VALUES ('1','01','000012','2025-04-03 10:05:00',100,1,'Ñáñez','N'),"
       "('2','01','000013','2025-12-25 00:00:00',50.5,2,'Perez ','E')"),
    u8("INSERT INTO pagos VALUES ('000012','N',30,3.5,NULL,7),('000012','E',10,3.5,NULL,2),('000013','N',1,3.5,'2025-12-26 08:00:00',1)"),
};

const struct { const char *porque, *sql, *sale; } kTSql[] = {
    {"ISNULL of two", "select isnull(max(cast(NroDoc as int)),0) as maximo from venta01 WHERE TipoDoc in ('01','02')", "13"},
    {"... over no rows", "select isnull(max(cast(NroDoc as int)),0) as maximo from venta01 WHERE TipoDoc = '09'", "0"},
    {"owner before a table", "SELECT COUNT(1) TOTAL FROM dbo.pagos WHERE FechaAnulacion IS NULL", "2"},
    {"base and owner", "SELECT COUNT(*) FROM logistica..venta01 v WITH (NOLOCK)", "2"},
    {"CONVERT INT", "SELECT COUNT(1) FROM pagos WHERE CONVERT(INT,NroDoc)=12", "2"},
    {"style 103", "SELECT CONVERT(VARCHAR(10), FechaEmision, 103) FROM venta01 WHERE cCodVta='1'", "03/04/2025"},
    {"style 112 without a length", "SELECT CONVERT(varchar, FechaEmision, 112) FROM venta01 WHERE cCodVta='1'", "20250403"},
    {"there and back", "SELECT convert(datetime,convert(varchar,FechaEmision,103),103) FROM venta01 WHERE cCodVta='1'",
     "<2025-04-03 00:00:00>"},
    {"date literal by style", "SELECT COUNT(*) FROM venta01 WHERE FechaEmision >= CONVERT(DATETIME,'25/12/2025',103)", "1"},
    {"style 120", "SELECT COUNT(*) FROM venta01 WHERE FechaEmision = CONVERT(DATETIME,'2025-04-03 10:05:00',120)", "1"},
    {"style 112", "SELECT COUNT(*) FROM venta01 WHERE FechaEmision > CONVERT(DATETIME, '20250404',112)", "1"},
    {"bare date text", "SELECT COUNT(*) FROM venta01 WHERE FechaEmision > '2025/04/04 10:00:00'", "1"},
    {"month first by style", "SELECT CONVERT(DATETIME,'03/04/2025',101)", "<2025-03-04 00:00:00>"},
    {"clock", "SELECT FECHA = GETDATE()", "<2026-11-24 17:05:30>"},
    {"add to dates", "SELECT dateadd(day, -1, (dateadd(year, 1, FechaEmision) )) FROM venta01 WHERE cCodVta='2'",
     "<2026-12-24 00:00:00>"},
    {"whole division", "SELECT 5/2, 5/2.0, n/2 FROM pagos WHERE n=7", "2|2.5|3"},
    {"plus joins", "SELECT DscCliente + '/' + NroDoc FROM venta01 WHERE cCodVta='1'", "Ñáñez/000012"},
    {"plus with Null", "SELECT 'a' + NULL", "Null"},
    {"unicode texts", "SELECT N'ñandú'", "ñandú"},
    {"no case, expression", "SELECT COUNT(*) FROM venta01 WHERE ltrim(rtrim(DscCliente)) = 'ÑÁÑEZ'", "1"},
    {"blanks at the end", "SELECT COUNT(*) FROM venta01 WHERE rtrim(DscCliente) + '' = 'perez  '", "1"},
    {"case of moneda", "select sum(case moneda when 'n' then monto when 'E' then monto*ntipocambio end) from pagos WHERE NroDoc='000012'",
     "65"},
    {"cast numeric", "SELECT cast(10/3.0 as numeric(13,2)), CAST(2.5 AS INT), cast('7' as float)", "3.33|2|7"},
    {"cut", "SELECT LEN('ab  '), SUBSTRING('ñandú',2,3), UPPER('ñ'), LEFT('abc',2)", "2|and|Ñ|ab"},
    {"like", "SELECT COUNT(*) FROM venta01 WHERE DscCliente LIKE '%ÑEZ'", "1"},
    {"a star is a star", "SELECT COUNT(*) FROM venta01 WHERE DscCliente LIKE '*'", "0"},
    {"first n", "select top 1 cCodVta from venta01 order by FechaEmision desc", "2"},
    {"comments", "SELECT 1 -- 'x\n /* y' */ + 1", "2"},
    {"a comment without end", "SELECT COUNT(*) FROM pagos /* WHERE n=7", "error: La sentencia tiene un comentario sin fin."},
    {"blank text is zero beside a number", "SELECT COUNT(*) FROM venta01 WHERE IdLocal = ''", "0"},
    {"no such procedure", "exec dbo.nada 'x'", "error: No se encuentra el procedimiento almacenado 'nada'."},
};

TEST(TSql, AnswersAsItsEngineDid) {
  Banco b(false, kCentral);
  for (const auto& c : kTSql) {
    SCOPED_TRACE(c.porque);
    EXPECT_EQ(u8(c.sale), b.respuesta(c.sql)) << b.cnn.traducir(u8(c.sql)).toStdString();
    EXPECT_EQ(u8(c.sale), b.respuesta(c.sql)) << "from the cache";
  }
}

TEST(TSql, AliasesBeforeAnEqualsSign) {
  const struct { const char *porque, *sql, *campos, *sale; } kCasos[] = {
      {"a name", "SELECT Total=TotVta FROM venta01 WHERE cCodVta='1'", "Total", "100"},
      {"a text", "SELECT v.cCodVta,'Tot.Ventas'=sum(v.TotVta) FROM venta01 v GROUP BY v.cCodVta ORDER BY 1", "cCodVta|Tot.Ventas", "1|100/2|50.5"},
      {"a bracketed name", "SELECT [Fec Emision]=FechaEmision FROM venta01 WHERE cCodVta='2'", "Fec Emision", "<2025-12-25 00:00:00>"},
      {"a subselect, whose own equals compares", "SELECT P=(select sum(monto) from pagos p where p.NroDoc=v.NroDoc) FROM venta01 v WHERE cCodVta='1'", "P", "40"},
      {"a case, whose own equals compares", "SELECT 'Local'=case when IdLocal =1 then 'Sur' when IdLocal =2 then 'Norte' end FROM venta01 ORDER BY cCodVta", "Local", "Sur/Norte"},
      {"behind AS as well", "SELECT TotVta AS 'Mi Total', IdLocal Sitio FROM venta01 WHERE cCodVta='1'", "Mi Total|Sitio", "100|1"},
      {"a date keeps being one", "SELECT F=max(FechaAnulacion) FROM pagos", "F", "<2025-12-26 08:00:00>"},
      {"inside a derived table", "SELECT x.Suma FROM (SELECT Suma=sum(monto) FROM pagos) x", "Suma", "41"},
  };
  Banco b(false, kCentral);
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    Recordset rs;
    const auto e = b.cnn.consultar(u8(c.sql), rs);
    ASSERT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString() << b.cnn.traducir(u8(c.sql)).toStdString();
    EXPECT_EQ(u8(c.campos), rs.campos().join(u'|'));
    EXPECT_EQ(u8(c.sale), b.respuesta(c.sql));
  }
}

std::shared_ptr<Procedimientos> procedimientosDePrueba() {
  auto p = std::make_shared<Procedimientos>();
  p->agregar(u8("spr_anota"), [](AccesoMotor& m, const QVariantList& a, Recordset& rs) -> std::optional<ErrorBD> {
    if (auto e = m.ejecutar(u8("INSERT INTO pagos (NroDoc, n, FechaAnulacion) VALUES (?, ?, ?)"), {a.value(0), a.value(1), m.ahora()})) return e;
    if (a.value(1).toInt() == 99) return ErrorBD{kErrorSentencia, 50000, u8("No se anota.")};
    return m.consultar(u8("SELECT NroDoc, n, FechaAnulacion FROM pagos WHERE NroDoc = ?"), {a.value(0)}, rs);
  });
  p->agregarFuncion(u8("fnRetornarIGV"), [](AccesoMotor& m, const QVariantList&, QVariant& v) -> std::optional<ErrorBD> {
    Recordset rs;
    if (auto e = m.consultar(u8("SELECT ntipocambio FROM pagos LIMIT 1"), {}, rs)) return e;
    v = rs[0].toDouble() / 10;
    return {};
  });
  return p;
}

TEST(TSql, CallsProceduresInEveryForm) {
  OpcionesMotores opciones;
  opciones.procedimientos = procedimientosDePrueba();
  Banco b(false, kCentral, opciones);
  EXPECT_EQ("A|-1|<2026-11-24 17:05:30>", b.respuesta("exec dbo.spr_anota 'A', -1"));
  EXPECT_EQ("B|2|<2026-11-24 17:05:30>", b.respuesta("dbo.spr_anota 'B',2"));
  EXPECT_EQ("O'x|Null|<2026-11-24 17:05:30>", b.respuesta("SPR_ANOTA 'O''x', Null;"));
  EXPECT_EQ("D|4|<2026-11-24 17:05:30>", b.respuesta("EXECUTE base..[spr_anota] @a = 'D', @b = 4"));
  EXPECT_FALSE(b.cnn.ejecutar(u8("exec spr_anota 'E', 5")));
  EXPECT_EQ("1", b.respuesta("SELECT COUNT(*) FROM pagos WHERE NroDoc='E'"));
  EXPECT_EQ("error: No se anota.", b.respuesta("exec spr_anota 'F', 99"));
  EXPECT_EQ("0", b.respuesta("SELECT COUNT(*) FROM pagos WHERE NroDoc='F'")) << "a failed call leaves nothing";
  EXPECT_TRUE(b.respuesta("exec spr_anota 'F', (").startsWith(u8("error: Línea 1")));
  EXPECT_EQ("1.35", b.respuesta("SELECT 1 + dbo.fnRetornarIGV()"));
}

}  // namespace
