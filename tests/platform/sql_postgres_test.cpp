#include "apoyo/casos.h"
#include "platform/sql_banco_postgres.h"
#include "servidores.h"
#include "sql_sentencias.h"

namespace {

const QStringList kCentral = leerLineas(u8("platform/casos/central.sql"));

TEST(Postgres, AnswersAsTheEmbeddedEngine) {
  BancoPostgres b;
  comprobarRespuestas(b, leerSentencias("respuestas_tsql"));
}

TEST(Postgres, AnswersTheCases) {
  BancoPostgres b(kCentral);
  for (const auto& c : leerCasos("platform/tsql")) {
    SCOPED_TRACE(c.donde());
    EXPECT_EQ(c["sale"], b.respuesta(c["sql"])) << b.cnn.traducir(c["sql"]).toStdString();
    EXPECT_EQ(c["sale"], b.respuesta(c["sql"])) << "from the cache";
  }
  for (const auto& c : leerCasos("platform/tsql_alias")) {
    SCOPED_TRACE(c.donde());
    Recordset rs;
    const auto e = b.cnn.consultar(Sql::crudo(c["sql"]), rs);
    ASSERT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString() << b.cnn.traducir(c["sql"]).toStdString();
    EXPECT_EQ(c["campos"], rs.campos().join(u'|'));
    EXPECT_EQ(c["sale"], b.respuesta(c["sql"]));
  }
}

// What the program says to its servers, on the real tables of both engines: rows, kinds of values, how many rows.
TEST(Postgres, TheStatementsOfTheProgram) {
  OpcionesMotores opciones;
  opciones.procedimientos = procedimientosDeServidores();
  const struct {
    const char* base;
    QStringList tablas;
  } kBases[] = {{"central", tablasDelCentral()}, {"cliente", tablasDelCliente()}};
  for (const auto& k : kBases) {
    SCOPED_TRACE(k.base);
    Banco embebido(false, k.tablas, opciones);
    BancoPostgres servidor(k.tablas);
    for (const QString& s : leerSentencias(k.base)) {
      if (leerLlamada(s) || s.contains(u8("fnRetornarIGV"))) continue;
      SCOPED_TRACE(s.toStdString() + "\n" + servidor.cnn.traducir(s).toStdString());
      const QString sale = embebido.respuesta(s);
      EXPECT_FALSE(sale.startsWith(u"error")) << sale.toStdString();
      EXPECT_EQ(sale, servidor.respuesta(s));
    }
  }
}

}  // namespace
