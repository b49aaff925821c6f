// Every procedure on both engines: the same calls, the same answers.
#include "apoyo/servidor_prueba.h"
#include "platform/sql_sentencias.h"
#include "postgres/base_postgres.h"

namespace {

// The clock of a server can't be set: a moment of just now reads as <ahora>.
class BancoServidor : public Banco {
 public:
  using Banco::Banco;
  QString respuesta(const QString& sql) {
    QStringList partes = Banco::respuesta(cruda(sql)).split(u'<');
    for (QString& p : partes) {
      const auto momento = LeerFecha(QStringView(p).left(19));
      if (momento && qAbs(momento->secsTo(QDateTime::currentDateTime())) < 120)
        p.replace(0, 19, QStringLiteral("ahora"));
    }
    return partes.join(u'<');
  }

 private:
  QString cruda(const QString& sql) {
    if (!cadena.contains(u"postgres:") || !sql.startsWith(u"exec ")) return sql;
    const QString nombre = sql.section(u' ', 1, 1), args = sql.section(u' ', 2);
    const bool procedimiento =
        Banco::respuesta(
            QStringLiteral("SELECT 1 FROM pg_proc WHERE prokind = 'p' AND proname = lower('%1')").arg(nombre)) == u"1";
    return (procedimiento ? QStringLiteral("CALL dbo.%1(%2)") : QStringLiteral("SELECT * FROM dbo.%1(%2)"))
        .arg(nombre, args);
  }
};

struct Escena {
  QString nombre;
  QStringList lineas;
};

std::vector<Escena> escenas() {
  std::vector<Escena> todas;
  for (const QString& linea : leerLineas(u8("server/casos/procedimientos.sql"))) {
    if (linea.startsWith(u'#')) todas.push_back({linea, {}});
    else todas.back().lineas << linea;
  }
  return todas;
}

TEST(Procedimientos, AnswerAsTheirServerDoes) {
  OpcionesMotores opciones;
  opciones.procedimientos = procedimientosDeServidores();
  opciones.ahora = [] { return QDateTime::currentDateTime(); };
  for (const Escena& e : escenas()) {
    SCOPED_TRACE(qPrintable(e.nombre));
    BancoServidor b(false, tablasDelCentral(), opciones);
    comprobarRespuestas(b, e.lineas);
  }
  EXPECT_EQ(8u, escenas().size());
}

TEST(Procedimientos, AnswerTheSameOnPostgres) {
  for (const Escena& e : escenas()) {
    SCOPED_TRACE(qPrintable(e.nombre));
    if (e.nombre.contains(u"wrong calls") || e.nombre.contains(u"blanks")) continue;  // the dialect's part
    BancoServidor b(cadenaDe(ServidorPrueba::uno().base(BaseServidor::Central)));
    comprobarRespuestas(b, e.lineas);
  }
}

}  // namespace
