#include "platform/sql/catalogo.h"

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

Tipo tipoDeclarado(const QString& declaracion) {
  // clang-format off
  static const struct { Tipo tipo; std::initializer_list<QStringView> palabras; } kTipos[] = {
      {Tipo::Fecha, {u"DATE", u"TIME"}},
      {Tipo::Entero, {u"INT", u"BIT", u"BOOL", u"LONG", u"SHORT", u"BYTE", u"COUNTER", u"YESNO"}},
      {Tipo::Texto, {u"CHAR", u"TEXT", u"CLOB", u"MEMO"}},
      {Tipo::Real, {u"REAL", u"FLOA", u"DOUB", u"SINGLE"}},
      {Tipo::Numero, {u"NUMERIC", u"DECIMAL", u"MONEY", u"CURRENCY"}},
  };
  // clang-format on
  const QString d = declaracion.toUpper();
  for (const auto& t : kTipos) {
    for (const QStringView palabra : t.palabras) {
      if (d.contains(palabra)) return t.tipo;
    }
  }
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
