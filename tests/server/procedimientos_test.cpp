#include "platform/sql_sentencias.h"
#include "servidores.h"

namespace {

TEST(Procedimientos, AnswerAsTheirServerDoes) {
  OpcionesMotores opciones;
  opciones.procedimientos = procedimientosDeServidores();
  opciones.ahora = [] { return QDateTime(QDate(2026, 11, 24), QTime(22, 15)); };
  const QStringList lineas = leerLineas(u8("server/casos/procedimientos.sql"));
  int escenas = 0;
  for (qsizetype desde = 0, hasta; desde < lineas.size(); desde = hasta, ++escenas) {
    hasta = desde + 1;
    while (hasta < lineas.size() && !lineas[hasta].startsWith(u'#')) ++hasta;
    SCOPED_TRACE(qPrintable(lineas[desde]));
    Banco b(false, tablasDelCentral(), opciones);
    comprobarRespuestas(b, lineas.mid(desde + 1, hasta - desde - 1));
  }
  EXPECT_EQ(7, escenas);
}

}  // namespace
