#pragma once
// A small database in a temporary folder, and its answers as text: cells of a row joined by "|", rows by "/".
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/sql/conexion.h"
#include "platform/sql/crear_sqlite.h"
#include "platform/sql/procedimientos.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

inline QString u8(const char* s) { return QString::fromUtf8(s); }

inline QString celdaComoTexto(const QVariant& v) {
  switch (v.typeId()) {
    case QMetaType::UnknownType: return QStringLiteral("Null");
    case QMetaType::Double: return TextoDe(v.toDouble());
    case QMetaType::QDateTime: return u'<' + FechaISO(v.toDateTime()) + u'>';
    default: return v.toString();
  }
}

// What is asked over an open connection.
class Preguntas {
 public:
  // The answer of a statement, or "error: " and its words.
  QString respuesta(const QString& sql) {
    Recordset rs;
    if (const auto e = cnn.consultar(Sql::crudo(sql), rs)) return QStringLiteral("error: ") + e->descripcion;
    QStringList filas;
    for (const auto fila : rs) {
      QStringList celdas;
      for (int i = 0; i < rs.campos().size(); ++i) celdas << celdaComoTexto(fila[i]);
      filas << celdas.join(u'|');
    }
    return filas.join(u'/');
  }
  QString respuesta(const char* sql) { return respuesta(u8(sql)); }

  std::unique_ptr<Motores> motores;
  QString cadena;
  Conexion cnn;
};

class Banco : public Preguntas {
 public:
  Banco(bool jet, const QStringList& sentencias, OpcionesMotores opciones = {}) {
    const auto error = crearBaseSqlite(archivo(), sentencias);
    EXPECT_FALSE(error) << error.value_or(ErrorBD{}).descripcion.toStdString();
    if (!opciones.ahora) {
      opciones.ahora = [] { return QDateTime(QDate(2026, 11, 24), QTime(17, 5, 30)); };
    }
    motores = motoresDelSistema(carpeta.path(), opciones);
    cadena = jet ? QStringLiteral("driver={Microsoft Access Driver (*.mdb)};Password=x;DBQ=") + archivo()
                 : QStringLiteral("Provider=SQLOLEDB.1;User ID=u;Data Source=sqlite:prueba.db");
    const auto e = cnn.abrir(*motores, cadena, 1000);
    EXPECT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString();
  }
  // On a database that is there already.
  explicit Banco(const QString& cual) {
    motores = motoresDelSistema(carpeta.path());
    cadena = cual;
    const auto e = cnn.abrir(*motores, cadena, 20000);
    EXPECT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString();
  }
  QString archivo() const { return carpeta.filePath(QStringLiteral("prueba.db")); }

  QTemporaryDir carpeta;
};
