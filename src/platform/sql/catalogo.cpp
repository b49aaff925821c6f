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

void Catalogo::olvidar() { tablas_.clear(); }

const Tabla* Catalogo::tabla(const QString& nombre) const {
  const QString clave = nombre.toLower();
  if (const auto t = tablas_.find(clave); t != tablas_.end()) return &t->second;
  Tabla t = leer(nombre);
  return t.columnas.empty() ? nullptr : &tablas_.emplace(clave, std::move(t)).first->second;
}

Tabla Catalogo::leer(const QString& nombre) const {
  Tabla t{nombre, {}};
  if (!base_ || nombre.isEmpty()) return t;
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
