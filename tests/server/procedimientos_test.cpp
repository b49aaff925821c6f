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
    QStringList partes = Banco::respuesta(sql).split(u'<');
    for (QString& p : partes) {
      const auto momento = LeerFecha(QStringView(p).left(19));
      if (momento && qAbs(momento->secsTo(QDateTime::currentDateTime())) < 120)
        p.replace(0, 19, QStringLiteral("ahora"));
    }
    return partes.join(u'<');
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
    BancoServidor b(cadenaDe(ServidorPrueba::uno().base(BaseServidor::Central)));
    comprobarRespuestas(b, e.lineas);
  }
}

}  // namespace
