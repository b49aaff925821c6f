#include "platform/sql/catalogo.h"

#include <sqlite3.h>

namespace {

QString textoDeColumna(sqlite3_stmt* s, int i) {
  const auto* t = reinterpret_cast<const char*>(sqlite3_column_text(s, i));
  return t ? QString::fromUtf8(t, sqlite3_column_bytes(s, i)) : QString();
}

bool comparaSinCaso(sqlite3* base, const QByteArray& tabla, const QByteArray& columna) {
  const char* colacion = nullptr;
  const int rc = sqlite3_table_column_metadata(base, "main", tabla.constData(), columna.constData(), nullptr,
                                               &colacion, nullptr, nullptr, nullptr);
  return rc == SQLITE_OK && colacion && qstricmp(colacion, "NOCASE") == 0;
}

}  // namespace

Tipo tipoDeclarado(const QString& declaracion) {
  const QString d = declaracion.toUpper();
  if (d.contains(u"DATE") || d.contains(u"TIME")) return Tipo::Fecha;
  if (d.contains(u"INT") || d.contains(u"BIT") || d.contains(u"BOOL")) return Tipo::Entero;
  if (d.contains(u"CHAR") || d.contains(u"TEXT") || d.contains(u"CLOB")) return Tipo::Texto;
  if (d.contains(u"REAL") || d.contains(u"FLOA") || d.contains(u"DOUB")) return Tipo::Real;
  if (d.contains(u"NUMERIC") || d.contains(u"DECIMAL") || d.contains(u"MONEY")) return Tipo::Numero;
  return Tipo::Desconocido;
}

QString declaracionDe(Tipo tipo) {
  switch (tipo) {
    case Tipo::Fecha: return QStringLiteral("DATETIME");
    case Tipo::Logico:
    case Tipo::Entero: return QStringLiteral("INTEGER");
    case Tipo::Texto: return QStringLiteral("TEXT COLLATE NOCASE");
    case Tipo::Real: return QStringLiteral("REAL");
    case Tipo::Numero: return QStringLiteral("NUMERIC");
    default: return {};
  }
}

void Catalogo::leer(sqlite3* base) {
  tablas_.clear();
  static const char kColumnas[] =
      "SELECT m.name, c.name, c.type FROM main.sqlite_schema AS m, pragma_table_info(m.name) AS c "
      "WHERE m.type IN ('table','view') ORDER BY m.name, c.cid";
  sqlite3_stmt* s = nullptr;
  if (sqlite3_prepare_v2(base, kColumnas, -1, &s, nullptr) != SQLITE_OK) return;
  Tabla actual;
  while (sqlite3_step(s) == SQLITE_ROW) {
    const QString nombre = textoDeColumna(s, 0);
    if (nombre != actual.nombre) {
      agregar(std::move(actual));
      actual = {nombre, {}};
    }
    Columna c;
    c.nombre = textoDeColumna(s, 1);
    c.tipo = tipoDeclarado(textoDeColumna(s, 2));
    c.sinCaso = c.tipo == Tipo::Texto && comparaSinCaso(base, nombre.toUtf8(), c.nombre.toUtf8());
    c.real = true;
    actual.columnas.push_back(std::move(c));
  }
  agregar(std::move(actual));
  sqlite3_finalize(s);
}

const Tabla* Catalogo::tabla(const QString& nombre) const {
  const auto t = tablas_.constFind(nombre.toLower());
  return t == tablas_.constEnd() ? nullptr : &*t;
}

void Catalogo::agregar(Tabla tabla) {
  if (!tabla.nombre.isEmpty()) tablas_.insert(tabla.nombre.toLower(), std::move(tabla));
}
