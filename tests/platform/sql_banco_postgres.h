#pragma once
// A small database on a PostgreSQL server, and what tells its answers from those of the embedded engine.
#include "apoyo/servidor_postgres.h"
#include "platform/sql_banco.h"

class BancoPostgres : public Preguntas {
 public:
  explicit BancoPostgres(const QStringList& sentencias = {}, const QString& guion = {}, int espera_ms = 20'000)
      : base(ServidorPostgres::uno().crearBase()) {
    EXPECT_TRUE(guion.isEmpty() || ServidorPostgres::uno().correr(base, guion));
    motores = motoresDelSistema(QString());
    cadena = ServidorPostgres::uno().cadena(base);
    const auto e = cnn.abrir(*motores, cadena, espera_ms);
    EXPECT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString();
    for (const QString& s : sentencias) {
      const auto error = cnn.ejecutar(Sql::crudo(s));
      EXPECT_FALSE(error) << s.toStdString() << error.value_or(ErrorBD{}).descripcion.toStdString();
    }
  }
  ~BancoPostgres() {
    cnn.cerrar();
    ServidorPostgres::uno().borrarBase(base);
  }

  QString base;
};

// An answer with all that a caller can see of it: names of the columns, kinds and texts of the cells; of an error its
// numbers. Whole numbers and others are one kind: a column of the one engine is declared as the other's, not held so.
inline QString respuestaEntera(Preguntas& b, const QString& sql, QString* palabras = nullptr) {
  Recordset rs;
  if (const auto e = b.cnn.consultar(Sql::crudo(sql), rs)) {
    if (palabras) *palabras += e->descripcion + u'\n';
    return QStringLiteral("error %1 %2").arg(e->numero, 0, 16).arg(e->claveDuplicada());
  }
  QString t = rs.campos().join(u'|').toLower() + u'\n';
  for (const auto fila : rs) {
    for (int i = 0; i < rs.campos().size(); ++i) {
      const QVariant v = fila[i];
      const bool numero = v.typeId() == QMetaType::LongLong || v.typeId() == QMetaType::Double;
      t += (numero ? u'#' : v.typeId() == QMetaType::QString ? u'"' : u' ') + celdaComoTexto(v) + u'|';
    }
    t += u'\n';
  }
  return t;
}
