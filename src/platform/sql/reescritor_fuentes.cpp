#include "platform/sql/reescritor.h"

void Reescritor::agregarFuente(const QString& tabla, const QString& alias) {
  Fuente f;
  f.tabla = tabla;
  f.alias = alias.isEmpty() ? tabla : alias;
  if (const auto comun = comunes_.find(tabla.toLower()); comun != comunes_.end()) f.columnas = comun->second;
  else if (const Tabla* t = c_.tabla(tabla)) f.columnas = t->columnas;
  ambito().fuentes.push_back(std::move(f));
}

// A table's name without its owner or database: dbo.x and base..x are x. Gives the name, "" for none.
QString Reescritor::nombreDeTabla() {
  if (!tk(p_).nombre()) return {};
  int ultimo = p_;
  while (tk(ultimo + 1).op(u".")) {
    int siguiente = ultimo + 2;
    while (tk(siguiente).op(u".")) ++siguiente;
    if (!tk(siguiente).nombre()) break;
    ultimo = siguiente;
  }
  if (!jet_) {
    for (int i = p_; i < ultimo; ++i) e_.borrar(i);
  }
  nombrar(ultimo);
  p_ = ultimo + 1;
  if (tk(p_).op(u"*")) malEscrita(p_);
  return contenido(tk(ultimo));
}

// The alias that may follow a table. `enCambio`: of the table that is changed, where an engine may want an AS.
QString Reescritor::aliasDeFuente(bool enCambio) {
  const bool conAs = come(u"AS");
  if (!tk(p_).nombre() || (!conAs && finDeExpresion(p_))) return {};
  if (!conAs && enCambio && m_.asEnCambios) e_.antes(p_, QStringLiteral("AS "));
  nombrar(p_);
  return contenido(tk(p_++));
}

// Lock hints, which say nothing to this engine: WITH (NOLOCK), (NOLOCK).
void Reescritor::sinPistas() {
  const int ini = es(u"WITH") ? p_ + 1 : p_;
  if (jet_ || !tk(ini).op(u"(") || !tk(ini + 1).nombre() || !tk(ini + 2).op(u")")) return;
  for (int i = p_; i < ini + 3; ++i) e_.borrar(i);
  p_ = ini + 3;
}

bool Reescritor::sigueJuntura() const {
  for (const QStringView palabra : {u"INNER", u"LEFT", u"RIGHT", u"FULL", u"CROSS", u"JOIN", u"OUTER", u"NATURAL"}) {
    if (tk(p_).es(palabra)) return true;
  }
  return false;
}

void Reescritor::fuentes() {
  const Nivel nivel(*this);
  fuente();
  while (!fin()) {
    if (comeOp(u",")) {
      fuente();
    } else if (sigueJuntura()) {
      while (sigueJuntura()) ++p_;
      fuente();
    } else if (come(u"ON")) {
      ambito().ligable = true;
      expresion();
    } else {
      return;
    }
  }
}

void Reescritor::fuente() {
  if (tk(p_).op(u"(")) {
    fuenteEntreParentesis();
    return;
  }
  const QString tabla = nombreDeTabla();
  if (tabla.isEmpty()) return;
  sinPistas();
  const QString alias = aliasDeFuente();
  sinPistas();
  agregarFuente(tabla, alias);
}

void Reescritor::fuenteEntreParentesis() {
  const int abre = p_++;
  if (!es(u"SELECT")) {
    fuentes();
    if (!tk(p_).op(u")")) return;
    // Joins lean to the left, so the parentheses round the first of them say nothing.
    const bool primera = tk(abre - 1).es(u"FROM") || tk(abre - 1).op(u"(");
    if (primera) {
      e_.borrar(abre);
      e_.borrar(p_);
    }
    ++p_;
    return;
  }
  Fuente f;
  f.columnas = seleccion();
  for (Columna& c : f.columnas) c.real = false;
  const int cierra = p_;
  comeOp(u")");
  f.alias = aliasDeFuente();
  if (f.alias.isEmpty() && !m_.sinNombre.isEmpty()) e_.despues(p_ - 1, m_.sinNombre.toString() + QString::number(p_));
  if (m_.tipado && soloLiterales(abre + 1, cierra)) comoValores(abre + 1, cierra, f);
  ambito().fuentes.push_back(std::move(f));
}

// SELECT 1 AS a, 'x' AS b UNION ALL SELECT 2, 'y': rows that stand in the statement.
bool Reescritor::soloLiterales(int ini, int fin) const {
  for (bool varias = false; tk(ini).es(u"SELECT"); varias = true) {
    do {
      ++ini;  // the SELECT, or a comma
      if (tk(ini).op(u"-")) ++ini;
      if (!tk(ini++).literal()) return false;
      if (tk(ini).es(u"AS") && tk(ini + 1).nombre()) ini += 2;
      else if (!varias) return false;
    } while (tk(ini).op(u","));
    if (ini == fin) return varias;
    if (!tk(ini).es(u"UNION") || !tk(ini + 1).es(u"ALL")) return false;
    ini += 2;
  }
  return false;
}

// A plan for each SELECT costs more than all that the statement does with the rows.
void Reescritor::comoValores(int ini, int fin, const Fuente& f) {
  for (int i = ini; i < fin; ++i) {
    if (tk(i).es(u"SELECT")) e_.reemplazar(i, i == ini ? QStringLiteral("VALUES (") : QStringLiteral("("));
    else if (tk(i).es(u"UNION")) e_.reemplazar(i, QStringLiteral(")"));
    else if (tk(i).es(u"ALL")) e_.reemplazar(i, QStringLiteral(","));
    else if (tk(i).es(u"AS") || tk(i - 1).es(u"AS")) e_.borrar(i);
  }
  e_.antes(fin, QStringLiteral(")"));
  QStringList nombres;
  for (const Columna& c : f.columnas) nombres << m_.citado(c.nombre);
  e_.despues(p_ - 1, u'(' + nombres.join(u',') + u')');
}
