#include "apoyo/casos.h"
#include "sql_sentencias.h"

namespace {

const QStringList kCentral = leerLineas(u8("platform/casos/central.sql"));

TEST(TSql, AnswersAsItsEngineDid) {
  Banco b(false, kCentral);
  for (const auto& c : leerCasos("platform/tsql")) {
    SCOPED_TRACE(c.donde());
    EXPECT_EQ(c["sale"], b.respuesta(c["sql"])) << b.cnn.traducir(c["sql"]).toStdString();
    EXPECT_EQ(c["sale"], b.respuesta(c["sql"])) << "from the cache";
  }
}

TEST(TSql, AliasesBeforeAnEqualsSign) {
  Banco b(false, kCentral);
  for (const auto& c : leerCasos("platform/tsql_alias")) {
    SCOPED_TRACE(c.donde());
    Recordset rs;
    const auto e = b.cnn.consultar(Sql::crudo(c["sql"]), rs);
    ASSERT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString() << b.cnn.traducir(c["sql"]).toStdString();
    EXPECT_EQ(c["campos"], rs.campos().join(u'|'));
    EXPECT_EQ(c["sale"], b.respuesta(c["sql"]));
  }
}

std::shared_ptr<Procedimientos> procedimientosDePrueba() {
  auto p = std::make_shared<Procedimientos>();
  p->agregar(u8("spr_anota"), [](AccesoMotor& m, const QVariantList& a, Recordset& rs) -> std::optional<ErrorBD> {
    if (auto e = m.ejecutar(u8("INSERT INTO pagos (NroDoc, n, FechaAnulacion) VALUES (?, ?, ?)"),
                            {a.value(0), a.value(1), m.ahora()}))
      return e;
    if (a.value(1).toInt() == 99) return ErrorBD{kErrorSentencia, 50000, u8("No se anota.")};
    return m.consultar(u8("SELECT NroDoc, n, FechaAnulacion FROM pagos WHERE NroDoc = ?"), {a.value(0)}, rs);
  });
  p->agregarFuncion(u8("fnRetornarIGV"),
                    [](AccesoMotor& m, const QVariantList&, QVariant& v) -> std::optional<ErrorBD> {
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
  EXPECT_FALSE(b.cnn.ejecutar(Sql::crudo(u8("exec spr_anota 'E', 5"))));
  EXPECT_EQ("1", b.respuesta("SELECT COUNT(*) FROM pagos WHERE NroDoc='E'"));
  EXPECT_EQ("error: No se anota.", b.respuesta("exec spr_anota 'F', 99"));
  EXPECT_EQ("0", b.respuesta("SELECT COUNT(*) FROM pagos WHERE NroDoc='F'")) << "a failed call leaves nothing";
  EXPECT_TRUE(b.respuesta("exec spr_anota 'F', (").startsWith(u8("error: Línea 1")));
  EXPECT_EQ("1.35", b.respuesta("SELECT 1 + dbo.fnRetornarIGV()"));
}

}  // namespace
