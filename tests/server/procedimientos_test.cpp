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

// The screens find columns by name and place.
TEST(Procedimientos, NameTheirColumnsAlike) {
  OpcionesMotores opciones;
  opciones.procedimientos = procedimientosDeServidores();
  Banco embebido(false, tablasDelCentral(), opciones);
  Banco postgres(cadenaDe(ServidorPrueba::uno().base(BaseServidor::Central)));
  for (const char* llamada :
       {"usp_sel_ListadoDocumentosPendientesPago '01'", "usp_sel_ListadoDocumentosPendientesNC '01'",
        "usp_sel_CtaCtexCliente 1, 1", "usp_Log_Saldos '20261124', '20261124', '*', '', 0, 0, '01'",
        "dbo.spr_insertar_cabecera_z1 '1', -2", "spr_agrupar_z1 1"}) {
    Recordset a, b;
    EXPECT_FALSE(embebido.cnn.consultar(Sql::crudo(u8(llamada)), a));
    EXPECT_FALSE(postgres.cnn.consultar(Sql::crudo(u8(llamada)), b));
    EXPECT_EQ(a.campos().join(u'|').toStdString(), b.campos().join(u'|').toStdString()) << llamada;
  }
}

TEST(Procedimientos, AnswerTheSameOnPostgres) {
  for (const Escena& e : escenas()) {
    SCOPED_TRACE(qPrintable(e.nombre));
    BancoServidor b(cadenaDe(ServidorPrueba::uno().base(BaseServidor::Central)));
    comprobarRespuestas(b, e.lineas);
  }
}

}  // namespace
