#include "platform/sql/catalogo.h"

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

const Tabla* Catalogo::tabla(const QString& nombre) const {
  const QString clave = nombre.toLower();
  if (const auto t = tablas_->find(clave); t != tablas_->end()) return &t->second;
  Tabla t = leer(nombre);
  return t.columnas.empty() ? nullptr : &tablas_->emplace(clave, std::move(t)).first->second;
}
