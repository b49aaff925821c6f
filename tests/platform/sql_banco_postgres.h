#pragma once
// A small database on a PostgreSQL server, and what tells its answers from those of the embedded engine.
#include "apoyo/servidor_prueba.h"
#include "platform/sql_banco.h"
#include "postgres/base_postgres.h"

class BancoPostgres : public Preguntas {
 public:
  // With nothing but the dialect, and what `guion` (the server's own language) and `sentencias` make.
  explicit BancoPostgres(const QStringList& sentencias, const QString& guion = {})
      : donde(ServidorPrueba::uno().sinBase()) {
    ServidorPrueba::uno().crudo(
        enComun(),
        QStringLiteral("CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8' LOCALE 'C'").arg(donde.catalogo));
    crudo(dialectoDePostgres() + guion);
    abrir();
    for (const QString& s : sentencias) {
      const auto error = cnn.ejecutar(Sql::crudo(s));
      EXPECT_FALSE(error) << s.toStdString() << error.value_or(ErrorBD{}).descripcion.toStdString();
    }
  }
  // With the tables and procedures of a server.
  explicit BancoPostgres(BaseServidor clase) : donde(ServidorPrueba::uno().base(clase)) { abrir(); }

  CadenaConexion enComun() const {
    CadenaConexion c = donde;
    c.catalogo = u8("postgres");
    return c;
  }
  void crudo(const QString& guion) { ServidorPrueba::uno().crudo(donde, guion); }

  CadenaConexion donde;

 private:
  // The clock stands still, as the embedded engine's.
  void abrir() {
    crudo(u8("CREATE OR REPLACE FUNCTION dbo.tp_ahora() RETURNS timestamp LANGUAGE sql STABLE AS "
             "$$ SELECT timestamp '2026-11-24 17:05:30' $$"));
    motores = motoresDelSistema(QString());
    cadena = cadenaDe(donde);
    const auto e = cnn.abrir(*motores, cadena, 20'000);
    EXPECT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString();
  }
};

// An answer with all that a caller can see of it: names of the columns, kinds and texts of the cells; of an error its
// numbers, and `palabras` gets its words. Whole numbers and others are one kind: a column of the one engine is declared
// as the other's, not held so.
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
