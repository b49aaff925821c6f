#pragma once
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "alta/crear_puesto.h"
#include "platform/sql/base_sqlite.h"

inline QString u8(const char* t) { return QString::fromUtf8(t); }

// Gtest shows what it compares as bytes.
inline std::string texto(const QString& t) { return t.toStdString(); }

// The data of a desk in `carpeta`, made on the morning of the demo's day.
inline DatosPuesto datos(const QString& carpeta) {
  DatosPuesto d;
  d.carpeta = carpeta;
  d.clave = u8("secreta");
  d.ahora = QDateTime(QDate(2026, 11, 24), QTime(9, 0));
  return d;
}

inline QByteArray bytes(const QString& archivo) {
  QFile f(archivo);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no hay)");
}

// Rows of a query, cells joined by "|"; "error: ..." when it fails. Several statements need `cambia`.
inline QString filas(const QString& archivo, const char* sql) {
  QString error;
  const BaseSqlite db = AbrirSqlite(archivo, SQLITE_OPEN_READWRITE, error);
  QList<QStringList> f;
  if (!db || !FilasSqlite(db.get(), u8(sql), f, error)) return u8("error: ") + error;
  QStringList lineas;
  for (const QStringList& fila : f) lineas << fila.join(u'|');
  return lineas.join(u'\n');
}

inline void cambia(const QString& archivo, const char* sql) {
  QString error;
  const BaseSqlite db = AbrirSqlite(archivo, SQLITE_OPEN_READWRITE, error);
  ASSERT_TRUE(db) << texto(error);
  ASSERT_EQ(SQLITE_OK, sqlite3_exec(db.get(), sql, nullptr, nullptr, nullptr)) << sql << "\n"
                                                                               << sqlite3_errmsg(db.get());
}

// A desk that must come out well.
inline void creaPuesto(const DatosPuesto& d) {
  const auto error = CrearPuesto(d);
  ASSERT_FALSE(error) << texto(*error);
}

class CarpetaTemporal : public testing::Test {
 protected:
  QString en(const char* nombre) const { return raiz.filePath(u8(nombre)); }
  QTemporaryDir raiz;
};
