#include <algorithm>

#include "platform/sql/comparacion.h"
#include "platform/sql/reescritor.h"

const Columna* Reescritor::columna(const QString& alias, const QString& nombre) const {
  for (auto a = ambitos_.rbegin(); a != ambitos_.rend(); ++a) {
    for (const Fuente& f : a->fuentes) {
      if (!alias.isEmpty() && f.alias.compare(alias, Qt::CaseInsensitive) != 0) continue;
      for (const Columna& c : f.columnas) {
        if (c.nombre.compare(nombre, Qt::CaseInsensitive) == 0) return &c;
      }
    }
  }
  return nullptr;
}

// A name that is no column: a typed engine gives a whole row for a table's, and has columns of its own in every one.
bool Reescritor::esAjena(const QString& alias, const QString& nombre) const {
  for (const QStringView propia : {u"ctid", u"xmin", u"xmax", u"cmin", u"cmax", u"tableoid"}) {
    if (nombre.compare(propia, Qt::CaseInsensitive) == 0) return true;
  }
  for (const Ambito& a : ambitos_) {
    for (const Fuente& f : a.fuentes) {
      if (alias.isEmpty() && f.alias.compare(nombre, Qt::CaseInsensitive) == 0) return true;
    }
  }
  return false;
}

Tipo Reescritor::comun(Tipo a, Tipo b) const {
  if (a == b || b == Tipo::Nulo) return a;
  if (a == Tipo::Nulo) return b;
  return esNumerico(a) && esNumerico(b) ? Tipo::Numero : Tipo::Desconocido;
}

bool Reescritor::asciiLiteral(const Nodo& n) const {
  if (m_.tipado) return true;
  if (n.literal < 0) return false;
  for (const QChar c : tk(n.literal).texto) {
    if (c.unicode() >= 0x80) return false;
  }
  return true;
}

void Reescritor::colacion(const Nodo& n) {
  const QString c = m_.colacion.toString();
  if (m_.tipado && n.tipo != Tipo::Texto) return;  // numbers have none there
  if (n.primario) e_.despues(n.fin - 1, c);
  else e_.envolver(n.ini, n.fin, QStringLiteral("("), QStringLiteral(")") + c);
}

// True is -1 in Jet, wherever a condition is taken for its value.
void Reescritor::comoNumero(Nodo& n) {
  if (!jet_ || n.tipo != Tipo::Logico) return;
  e_.envolver(n.ini, n.fin, QStringLiteral("-("));
  n.tipo = Tipo::Entero;
  n.primario = false;
}

// The engine gives Null for a division by zero, the dialects an error. A number that stands there says what it is; it
// stays in the statement, since one of the same shape may have a zero.
void Reescritor::divisor(const Nodo& n) {
  if (m_.divisor.isEmpty()) return;
  if (n.literal >= 0) e_.literal(n.literal)->ligado = false;
  if (n.literal >= 0 && leerNumero(contenido(tk(n.literal))).toDouble() != 0) return;
  e_.envolver(n.ini, n.fin, m_.divisor.toString());
}

// Beside a number a date is its day, counted from the dialect's day 0, and the time of the day as a fraction.
void Reescritor::fechaComoNumero(Nodo& n) {
  if (n.tipo != Tipo::Fecha) return;
  e_.envolver(n.ini, n.fin, QStringLiteral("tp_dias("),
              jet_ ? QStringLiteral(",'1899-12-30 00:00:00')") : QStringLiteral(",'1900-01-01 00:00:00')"));
  n.tipo = Tipo::Real;
  n.primario = true;
  n.columna = false;
}

// Of several values one is given: in T-SQL a date among them makes dates of the texts. In Jet each stays what it is.
void Reescritor::igualarRamas(std::vector<Nodo>& ramas) {
  if (jet_ || std::none_of(ramas.begin(), ramas.end(), [](const Nodo& n) { return n.tipo == Tipo::Fecha; })) return;
  for (Nodo& n : ramas) {
    if (n.tipo == Tipo::Texto) haciaFecha(n);
  }
}

void Reescritor::comparar(Nodo& a, Nodo& b, bool orden) {
  if (a.tipo != b.tipo) {
    comoNumero(a);
    comoNumero(b);
  }
  const auto comoFecha = [](const Nodo& n) { return n.tipo == Tipo::Texto || esNumerico(n.tipo); };
  if (a.tipo == Tipo::Fecha && comoFecha(b)) return haciaFecha(b);
  if (b.tipo == Tipo::Fecha && comoFecha(a)) return haciaFecha(a);
  if (esNumerico(a.tipo) && b.tipo == Tipo::Texto) return unNumeroUnTexto(b);
  if (esNumerico(b.tipo) && a.tipo == Tipo::Texto) return unNumeroUnTexto(a);
  const bool puedeTexto = [](Tipo t) { return t == Tipo::Texto || t == Tipo::Desconocido; }(a.tipo) &&
                          (b.tipo == Tipo::Texto || b.tipo == Tipo::Desconocido);
  if (puedeTexto && (a.tipo == Tipo::Texto || b.tipo == Tipo::Texto)) compararTextos(a, b, orden);
}

// The engine's own comparison is what an index serves, and enough where no letter lies outside of its reach: beside a
// plain literal or between two columns that hold codes. Anything else is compared by the collation that knows Ñ and
// accents, and so is every order.
void Reescritor::compararTextos(Nodo& a, Nodo& b, bool orden) {
  sinFinales(a);
  sinFinales(b);
  if (m_.tipado) {
    for (const Nodo* n : {&a, &b}) {
      if (n->tipo == Tipo::Texto && !n->columna && n->literal < 0)
        e_.envolver(n->ini, n->fin, QStringLiteral("rtrim("));
    }
    if ((a.columna && a.sinCaso) || (b.columna && b.sinCaso)) return;
    return colacion(b.tipo == Tipo::Texto ? b : a);
  }
  const bool literalLlano = (a.columna && asciiLiteral(b)) || (b.columna && asciiLiteral(a));
  const bool sinCaso = (a.columna && a.sinCaso) || (!a.columna && b.sinCaso);  // the engine takes the left column's own
  if (!orden && sinCaso && (literalLlano || (esCodigo(a) && esCodigo(b)))) return;
  if (!orden && porVariantes(a, b)) return;
  colacion(b);
  // Of several such terms between ORs the engine makes an IN, by the column's own comparison.
  for (const Nodo* n : {&a, &b}) {
    if (n->columna && !orden) e_.antes(n->ini, m_.suelta.toString());
  }
  if (!orden && tk(a.fin).op(u"=")) porInicio(a, b);
}

// An index serves a text with few letters beyond ASCII, too: as a list of all ways to write them. Gives false, and
// changes nothing, where that is not so.
bool Reescritor::porVariantes(const Nodo& columna, const Nodo& literal) {
  const int op = columna.fin;
  const bool igual = tk(op).op(u"=");
  const bool seguidos = literal.literal == op + 1 && literal.ini == op + 1 && literal.fin == op + 2;
  if (m_.tipado || !columna.columna || !columna.sinCaso || !seguidos) return false;
  if (!igual && !tk(op).op(u"<>") && !tk(op).op(u"!=")) return false;
  Literal& l = *e_.literal(literal.literal);
  QStringList lista;
  for (const QString& v : variantesDeCaso(leerLiteral(tk(op + 1), l.lectura, e_.dialecto()).valor.toString())) {
    lista << m_.literal(v);
  }
  if (lista.isEmpty()) return false;
  e_.reemplazar(op, igual ? QStringLiteral(" IN ") : QStringLiteral(" NOT IN "));
  e_.reemplazar(op + 1, u'(' + lista.join(u',') + u')');
  l.ligado = false;
  return true;
}

// Whether the pattern begins with letters, which the shape's key tells, and an index can find them.
bool Reescritor::empieza(const Nodo& columna, const Nodo& patron) const {
  if (!columna.columna || !columna.sinCaso || patron.literal < 0) return false;
  const QString todo = contenido(tk(patron.literal));
  return !todo.isEmpty() && !QStringView(u"%*_?#[").contains(todo[0]);
}

// The same for the texts of a list.
bool Reescritor::listaPorVariantes(const Nodo& columna, const std::vector<Nodo>& valores) {
  if (m_.tipado || !columna.columna || !columna.sinCaso) return false;
  std::vector<QString> listas;
  for (const Nodo& v : valores) {
    if (v.literal < 0 || v.tipo != Tipo::Texto || v.fin != v.ini + 1) return false;
    const Literal& l = *e_.literal(v.literal);
    QStringList lista;
    for (const QString& t : variantesDeCaso(leerLiteral(tk(v.literal), l.lectura, e_.dialecto()).valor.toString())) {
      lista << m_.literal(t);
    }
    if (lista.isEmpty()) return false;
    listas.push_back(lista.join(u','));
  }
  for (size_t i = 0; i < valores.size(); ++i) {
    if (asciiLiteral(valores[i])) continue;
    e_.reemplazar(valores[i].literal, listas[i]);
    e_.literal(valores[i].literal)->ligado = false;
  }
  return true;
}

// What lies between texts that begin so, which an index finds: a condition to stand before the exact one, with a
// parenthesis that is closed behind that; "" where a text begins with nothing of use.
QString Reescritor::tramoDe(const QString& columna, const QString& inicio) const {
  const QStringList inicios = iniciosDeCaso(inicio);
  if (inicios[0].isEmpty()) return {};
  QStringList tramos;
  for (const QString& i : inicios) {
    tramos << QStringLiteral("%1 >= %2 AND %1 < %3")
                  .arg(columna, m_.literal(i), m_.literal(i + QString::fromUcs4(U"\U0010FFFF", 1)));
  }
  const QString todos = tramos.join(QStringLiteral(" OR "));
  return u'(' + (tramos.size() == 1 ? todos : u'(' + todos + u')') + QStringLiteral(" AND ");
}

// Of a text with many letters beyond ASCII an index finds the beginning.
void Reescritor::porInicio(const Nodo& columna, const Nodo& literal) {
  if (!columna.columna || !columna.sinCaso || literal.literal < 0 || literal.fin != literal.ini + 1) return;
  Literal& l = *e_.literal(literal.literal);
  QString c;  // as it stands in the statement, without what was just put before it
  for (int i = columna.ini; i < columna.fin; ++i) c += tk(i).texto;
  const QString tramo = tramoDe(c, leerLiteral(tk(literal.literal), l.lectura, e_.dialecto()).valor.toString());
  if (tramo.isEmpty()) return;
  l.ligado = false;
  e_.antes(columna.ini, tramo);
  e_.despues(literal.fin - 1, QStringLiteral(")"));
}

// The same of a pattern.
QString Reescritor::tramoDePatron(const Nodo& columna, const Nodo& patron) {
  if (m_.tipado || !columna.columna || !columna.sinCaso || patron.literal < 0 || patron.fin != patron.ini + 1)
    return {};
  Literal& l = *e_.literal(patron.literal);
  const QString todo = leerLiteral(tk(patron.literal), l.lectura, e_.dialecto()).valor.toString();
  const QString tramo = tramoDe(e_.trozo(columna.ini, columna.fin), inicioFijo(todo, e_.dialecto()));
  if (!tramo.isEmpty()) l.ligado = false;
  return tramo;
}

// Columns that hold codes, which have no Ñ: by their names, c... and numbers that stand as texts, n...
bool Reescritor::esCodigo(const Nodo& n) const {
  if (m_.tipado) return n.columna && n.sinCaso;
  const QChar inicial = n.nombre.isEmpty() ? QChar() : n.nombre[0].toLower();
  return n.columna && n.sinCaso && (inicial == u'c' || inicial == u'n');
}

// To tell texts apart or to find the highest: NOCASE knows no Ñ. Codes, whose columns are named c..., have none, and an
// index serves them.
bool Reescritor::pideColacion(const Nodo& n) const {
  if (m_.tipado) return false;
  return n.tipo == Tipo::Texto && n.literal < 0 && !(n.sinCaso && n.nombre.startsWith(u'c', Qt::CaseInsensitive));
}

// In T-SQL blanks at the end of a text that is compared don't count.
void Reescritor::sinFinales(const Nodo& n) {
  if (!jet_ && n.literal >= 0 && n.tipo == Tipo::Texto) e_.literal(n.literal)->lectura = Lectura::SinFinales;
}

// A text or a number beside a date.
void Reescritor::haciaFecha(Nodo& otro) {
  if (otro.literal >= 0 && otro.tipo == Tipo::Texto) e_.literal(otro.literal)->lectura = Lectura::FechaDiaMes;
  else e_.envolver(otro.ini, otro.fin, QStringLiteral("tp_cdate("));
  otro.tipo = Tipo::Fecha;
}

void Reescritor::unNumeroUnTexto(Nodo& texto) {
  if (texto.literal >= 0) e_.literal(texto.literal)->lectura = Lectura::NumeroEstricto;
  else e_.envolver(texto.ini, texto.fin, QStringLiteral("tp_num("));
  texto.tipo = Tipo::Numero;
}

// A text that is reckoned with.
void Reescritor::unValor(Nodo& texto) {
  if (texto.tipo != Tipo::Texto) return;
  if (texto.literal >= 0) e_.literal(texto.literal)->lectura = Lectura::NumeroEstricto;
  else e_.envolver(texto.ini, texto.fin, QStringLiteral("tp_valor("));
  texto.tipo = Tipo::Numero;
}

void Reescritor::comoTexto(const Nodo& n) {
  if (n.tipo == Tipo::Fecha) {
    e_.envolver(n.ini, n.fin, QStringLiteral("tp_textofecha("));
  } else if (n.tipo != Tipo::Texto && n.tipo != Tipo::Nulo) {
    e_.envolver(n.ini, n.fin, QStringLiteral("tp_texto("));
  }
}

Nodo Reescritor::sumar(Nodo a, int op, Nodo b) {
  Nodo n{a.ini, b.fin};
  comoNumero(a);
  comoNumero(b);
  const bool mas = tk(op).op(u"+");
  if (tk(op).op(u"||") || (mas && (a.tipo == Tipo::Texto || b.tipo == Tipo::Texto))) {
    comoTexto(a);
    comoTexto(b);
    if (mas) e_.reemplazar(op, QStringLiteral("||"));
    n.tipo = Tipo::Texto;
    return n;
  }
  if (m_.tipado) {
    for (Nodo* lado : {&a, &b}) {
      const Nodo& otro = lado == &a ? b : a;
      if (lado->tipo == Tipo::Texto && otro.tipo != Tipo::Fecha) unValor(*lado);
      else if (lado->tipo == Tipo::Texto) haciaFecha(*lado);
    }
  }
  if (a.tipo == Tipo::Fecha && b.tipo == Tipo::Fecha && !mas) {
    e_.envolver(n.ini, n.fin, QStringLiteral("tp_dias("));
    e_.reemplazar(op, QStringLiteral(","));
    n.tipo = Tipo::Real;
    n.primario = true;
    return n;
  }
  if (a.tipo == Tipo::Fecha || (mas && b.tipo == Tipo::Fecha)) {
    e_.envolver(n.ini, n.fin, mas ? QStringLiteral("tp_masdias(") : QStringLiteral("tp_menosdias("));
    e_.reemplazar(op, QStringLiteral(","));
    n.tipo = Tipo::Fecha;
    n.primario = true;
    return n;
  }
  n.tipo = a.tipo == Tipo::Entero && b.tipo == Tipo::Entero ? Tipo::Entero
           : a.tipo == Tipo::Real || b.tipo == Tipo::Real   ? Tipo::Real
                                                            : Tipo::Numero;
  return n;
}

// A value on its way into a column. A whole-number column takes none but whole numbers: Jet rounds, T-SQL cuts.
void Reescritor::asignar(const Columna& destino, Nodo& n) {
  comoNumero(n);
  // Blanks at the end of a text don't count in T-SQL: one that is stored has none, so that an index finds it.
  if (!jet_ && destino.tipo == Tipo::Texto && n.tipo == Tipo::Texto && !n.columna) {
    if (n.literal >= 0) sinFinales(n);
    else e_.envolver(n.ini, n.fin, QStringLiteral("rtrim("));
  }
  if (n.tipo == Tipo::Nulo || n.tipo == destino.tipo) return;
  if (esNumerico(destino.tipo)) fechaComoNumero(n);
  const bool textoLibre = n.literal < 0 && (n.tipo == Tipo::Texto || n.tipo == Tipo::Desconocido);
  if (destino.tipo == Tipo::Fecha) {
    haciaFecha(n);
  } else if (destino.tipo == Tipo::Entero) {
    if (n.tipo == Tipo::Texto && n.literal >= 0) unNumeroUnTexto(n);
    e_.envolver(n.ini, n.fin, jet_ ? QStringLiteral("tp_aentero(") : QStringLiteral("tp_convint("));
  } else if (esNumerico(destino.tipo) && n.tipo == Tipo::Texto && n.literal >= 0) {
    unNumeroUnTexto(n);
  } else if (esNumerico(destino.tipo) && textoLibre) {
    e_.envolver(n.ini, n.fin, QStringLiteral("tp_valor("));
  } else if (destino.tipo == Tipo::Texto && (n.tipo == Tipo::Real || n.tipo == Tipo::Numero || n.tipo == Tipo::Fecha)) {
    comoTexto(n);
  }
}
