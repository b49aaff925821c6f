#include "platform/sql/catalogo_sqlite.h"

#include <sqlite3.h>

namespace {

QString textoDeColumna(sqlite3_stmt* s, int i) {
  const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(s, i));
  return t ? QString::fromUtf8(t, sqlite3_column_bytes(s, i)) : QString();
}

bool comparaSinCaso(sqlite3* base, const QByteArray& tabla, const QByteArray& columna) {
  const char* colacion = nullptr;
  const int rc = sqlite3_table_column_metadata(base, "main", tabla.constData(), columna.constData(), nullptr, &colacion,
                                               nullptr, nullptr, nullptr);
  return rc == SQLITE_OK && colacion && qstricmp(colacion, "NOCASE") == 0;
}

}  // namespace

Tabla CatalogoSqlite::leer(const QString& nombre) const {
  Tabla t{nombre, {}};
  if (nombre.isEmpty()) return t;
  const QByteArray tabla = nombre.toUtf8();
  // The PRAGMA itself: its table-valued form costs more than the small statement that a connection may be opened for.
  const QByteArray pragma = "PRAGMA main.table_info(\"" + QByteArray(tabla).replace('"', "\"\"") + "\")";
  sqlite3_stmt* s = nullptr;
  if (sqlite3_prepare_v2(base_, pragma.constData(), -1, &s, nullptr) != SQLITE_OK) return t;
  while (sqlite3_step(s) == SQLITE_ROW) {
    Columna c;
    c.nombre = textoDeColumna(s, 1);
    c.tipo = tipoDeclarado(textoDeColumna(s, 2));
    c.sinCaso = c.tipo == Tipo::Texto && comparaSinCaso(base_, tabla, c.nombre.toUtf8());
    c.real = true;
    t.columnas.push_back(std::move(c));
  }
  sqlite3_finalize(s);
  return t;
}
