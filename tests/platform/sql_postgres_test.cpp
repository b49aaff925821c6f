#include "apoyo/casos.h"
#include "platform/sql_banco_postgres.h"
#include "servidores.h"
#include "sql_mutar.h"
#include "sql_sentencias.h"

namespace {

const QStringList kCentral = leerLineas(u8("platform/casos/central.sql"));

TEST(Postgres, AnswersAsTheEmbeddedEngine) {
  BancoPostgres b(QStringList{});
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
  explicit Pareja(BaseServidor base, const std::function<bool()>& interrumpir = {})
      : embebido(false, tablasDelServidor(base, LenguajeMotor::Sqlite), opciones(interrumpir)), servidor(base) {}
  static OpcionesMotores opciones(const std::function<bool()>& interrumpir) {
    OpcionesMotores o;
    o.interrumpir = interrumpir;
    o.procedimientos = procedimientosDeServidores();
    return o;
  }
  // Runs it on both and holds the answers against each other.
  void comparar(const QString& sql) {
    SCOPED_TRACE(sql.toStdString() + "\n" + servidor.cnn.traducir(sql).toStdString());
    QString sale[2];
    qint64 afectadas[2] = {};
    int i = 0;
    for (Preguntas* b : {static_cast<Preguntas*>(&embebido), static_cast<Preguntas*>(&servidor)}) {
      // A server gives no number out twice, whatever becomes of the first.
      const bool inserta = sql.trimmed().startsWith(u8("insert"), Qt::CaseInsensitive);
      if (inserta) {
        const auto e = b->cnn.ejecutar(Sql::crudo(sql), &afectadas[i]);
        if (e) sale[i] = QStringLiteral("error %1 %2").arg(e->numero, 0, 16).arg(e->claveDuplicada());
      } else if (!leerLlamada(sql)) {
        ASSERT_FALSE(b->cnn.iniciar());
        (void)b->cnn.ejecutar(Sql::crudo(sql), &afectadas[i]);
        ASSERT_FALSE(b->cnn.deshacer());
      }
      if (!inserta) sale[i] = respuestaEntera(*b, sql);
      ++i;
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

// Rows in any order, and only their number where the engine may choose which of equal ones it gives.
QString sinOrden(const QString& respuesta, const QString& sql) {
  QStringList filas = respuesta.split(u'\n');
  std::sort(filas.begin() + 1, filas.end());
  if (sql.contains(u8("top"), Qt::CaseInsensitive)) return QString::number(filas.size());
  return filas.join(u'\n');
}

// Mutated statements: no crash, no hang, no answer where the embedded engine gives an error, and none that differs.
TEST(Postgres, MutatedStatementsAnswerTheSameOrNot) {
  const int cuantas = cuantasMutaciones(1500, 20'000);
  Azar azar(semillaDeMutaciones(cuantas));
  qint64 vueltas = 0;
  Pareja p(BaseServidor::Central, [&] { return ++vueltas > 200; });
  const QStringList sentencias = leerSentencias("central");
  for (const QString& s : sentencias) {
    vueltas = 0;
    if (s.trimmed().startsWith(u8("insert"), Qt::CaseInsensitive)) p.comparar(s);  // rows to ask for
  }
  p.servidor.crudo(QStringLiteral("ALTER DATABASE %1 SET statement_timeout = 2000").arg(p.servidor.donde.catalogo));
  ASSERT_FALSE(p.servidor.cnn.abrir(*p.servidor.motores, p.servidor.cadena, 20'000));
  int contestadas = 0, soloEmbebido = 0;
  // The server's tables of letters know more than case: a soft hyphen that is none, ª beside a.
  const QRegularExpression kOtrasLetras(u8("[^\\x20-\\x7eáéíóúüñÁÉÍÓÚÜÑ\\s]"));
  const bool todas = qEnvironmentVariableIsSet("TARVOPOS_VER");
  for (int i = 0; i < cuantas && (todas || !testing::Test::HasFailure()); ++i) {
    const QString sql = mutar(sentencias[hasta(azar, sentencias.size())], Dialecto::TSql, azar);
    if (noSeMuta(sql) || leerLlamada(sql)) continue;
    SCOPED_TRACE(QStringLiteral("%1: %2\n%3").arg(i).arg(sql, p.servidor.cnn.traducir(sql)).toStdString());
    QString sale[2], palabras;
    int k = 0;
    vueltas = 0;
    for (Preguntas* b : {static_cast<Preguntas*>(&p.embebido), static_cast<Preguntas*>(&p.servidor)}) {
      ASSERT_FALSE(b->cnn.iniciar());
      sale[k++] = respuestaEntera(*b, sql, &palabras);
      ASSERT_FALSE(b->cnn.deshacer());
    }
    if (vueltas > 200) continue;  // stopped for its length
    if (sale[1].startsWith(u"error")) {
      if (!sale[0].startsWith(u"error")) ++soloEmbebido;
      if (!sale[0].startsWith(u"error") && qEnvironmentVariableIsSet("TARVOPOS_VER")) {
        std::printf("only embedded: %s\n  %s\n", sql.toUtf8().constData(), palabras.toUtf8().constData());
      }
      continue;
    }
    ++contestadas;
    if (sql.contains(kOtrasLetras)) continue;
    EXPECT_EQ(sinOrden(sale[0], sql).toStdString(), sinOrden(sale[1], sql).toStdString()) << palabras.toStdString();
  }
  std::printf("%d answered by both, %d by the embedded engine alone\n", contestadas, soloEmbebido);
  EXPECT_GT(contestadas, cuantas / 20) << "mutations must not break all of them";
}

}  // namespace
