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

// Both engines with the tables, the procedures and the clock of a central or client database.
struct Pareja {
  explicit Pareja(BaseServidor base)
      : embebido(false, tablasDelServidor(base, LenguajeMotor::Sqlite), opciones()), servidor({}, guion(base)) {}
  static OpcionesMotores opciones() {
    OpcionesMotores o;
    o.procedimientos = procedimientosDeServidores();
    return o;
  }
  static QString guion(BaseServidor base) {
    return u8("SET search_path = dbo;\n") + tablasDelServidor(base, LenguajeMotor::Postgres).join(u8(";\n")) +
           u8(";\n") + procedimientosDePostgres(base);
  }
  // Runs it on both and holds the answers against each other.
  void comparar(const QString& sql) {
    SCOPED_TRACE(sql.toStdString() + "\n" + servidor.cnn.traducir(sql).toStdString());
    QString sale[2];
    qint64 afectadas[2] = {};
    int i = 0;
    for (Preguntas* b : {static_cast<Preguntas*>(&embebido), static_cast<Preguntas*>(&servidor)}) {
      if (!leerLlamada(sql)) {  // a server gives no number out twice, whatever becomes of the first
        ASSERT_FALSE(b->cnn.iniciar());
        (void)b->cnn.ejecutar(Sql::crudo(sql), &afectadas[i]);
        ASSERT_FALSE(b->cnn.deshacer());
      }
      sale[i++] = respuestaEntera(*b, sql);
    }
    EXPECT_EQ(sale[0].toStdString(), sale[1].toStdString());
    EXPECT_EQ(afectadas[0], afectadas[1]);
  }

  Banco embebido;
  BancoPostgres servidor;
};

// What the program says to its servers, on the tables of both engines; twice, so that keys are broken too.
TEST(Postgres, TheStatementsOfTheProgram) {
  for (const auto& [base, nombre] : {std::pair{BaseServidor::Central, "central"}, {BaseServidor::Cliente, "cliente"}}) {
    SCOPED_TRACE(nombre);
    Pareja p(base);
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
      for (const QString& s : leerSentencias(nombre)) p.comparar(s);
    }
  }
}

TEST(Postgres, CallsInEveryForm) {
  Pareja p(BaseServidor::Central);
  for (const char* s :
       {"exec dbo.spr_insertar_cabecera_z1 '00012', -1", "dbo.spr_insertar_cabecera_z1 '00012',-2",
        "SPR_INSERTAR_CABECERA_Z1 'O''x', -1;", "EXECUTE base..[spr_insertar_cabecera_z1] @a = 'D', @b = -2",
        "exec dbo.spr_promediar_montos_z1 1", "dbo.spr_limpiar_caja_dia '00012','24/11/2026'",
        "dbo.spr_limpiar_caja_dia '00012','24/24/2026'", "usp_sel_CtaCtexCliente 5, 1", "exec dbo.nada 'x'",
        "exec tp_len 'x'", "exec fnRetornarIGV", "exec dbo.spr_promediar_montos_z1", "exec spr_agrupar_z1 1, 2",
        "exec spr_agrupar_z1 (", "SELECT 1 + dbo.fnRetornarIGV()", "SELECT version()", "SELECT pg_sleep(0)"}) {
    p.comparar(u8(s));
  }
}

}  // namespace
