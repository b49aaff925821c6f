#include "sql_sentencias.h"
#include "servidores.h"
#include "store/tablas.h"

namespace {

// What the program says to its three databases, each statement on the tables that the program makes.
TEST(Sentencias, AllOfThemRunOnTheirTables) {
  OpcionesMotores opciones;
  opciones.procedimientos = procedimientosDeServidores();
  // clang-format off
  const struct { const char* base; bool jet; QStringList tablas; qsizetype almenos; } kBases[] = {
      {"local", true, tablasDelPuesto(), 140}, {"central", false, tablasDelCentral(), 45}, {"cliente", false,
          tablasDelCliente(), 20}};
  for (const auto& k : kBases) {
    SCOPED_TRACE(k.base);
    Banco b(k.jet, k.tablas, opciones);
    const QStringList sentencias = leerSentencias(k.base);
    EXPECT_GE(sentencias.size(), k.almenos);
    for (const QString& s : sentencias) {
      Recordset rs;
      ASSERT_FALSE(b.cnn.iniciar());
      const auto e = b.cnn.consultar(Sql::crudo(s), rs);
      EXPECT_FALSE(e) << s.toStdString() << "\n" << b.cnn.traducir(s).toStdString() << "\n"
          << e.value_or(ErrorBD{}).descripcion.toStdString();
      ASSERT_FALSE(b.cnn.deshacer());
    }
  }
  // clang-format on
}

// What the dialects answer: the files alternate statements and answers, in one database each.
TEST(Sentencias, TheDialectsAnswerAsTheirEngines) {
  for (const bool jet : {true, false}) {
    Banco b(jet, {});
    comprobarRespuestas(b, leerSentencias(jet ? "respuestas_jet" : "respuestas_tsql"));
  }
}

}  // namespace
