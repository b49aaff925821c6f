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

Tipo Reescritor::comun(Tipo a, Tipo b) const {
  if (a == b || b == Tipo::Nulo) return a;
  if (a == Tipo::Nulo) return b;
  return esNumerico(a) && esNumerico(b) ? Tipo::Numero : Tipo::Desconocido;
}

bool Reescritor::asciiLiteral(const Nodo& n) const {
  if (n.literal < 0) return false;
  for (const QChar c : tk(n.literal).texto) {
    if (c.unicode() >= 0x80) return false;
  }
  return true;
}

void Reescritor::colacion(const Nodo& n, bool propia) {
  const QString c = propia ? QStringLiteral(" COLLATE TARVO") : QStringLiteral(" COLLATE NOCASE");
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

// The engine gives Null for a division by zero, the dialects an error. A number that stands there says what it is.
void Reescritor::divisor(const Nodo& n) {
  if (n.literal >= 0 && leerNumero(contenido(tk(n.literal))).toDouble() != 0) return;
  e_.envolver(n.ini, n.fin, QStringLiteral("tp_divisor("));
}

void Reescritor::comparar(Nodo& a, Nodo& b) {
  if (a.tipo != b.tipo) {
    comoNumero(a);
    comoNumero(b);
  }
  if (a.tipo == Tipo::Fecha && b.tipo == Tipo::Texto) return unaFechaUnTexto(b);
  if (b.tipo == Tipo::Fecha && a.tipo == Tipo::Texto) return unaFechaUnTexto(a);
  if (esNumerico(a.tipo) && b.tipo == Tipo::Texto) return unNumeroUnTexto(b);
  if (esNumerico(b.tipo) && a.tipo == Tipo::Texto) return unNumeroUnTexto(a);
  const bool puedeTexto = [](Tipo t) { return t == Tipo::Texto || t == Tipo::Desconocido; }(a.tipo) &&
                          (b.tipo == Tipo::Texto || b.tipo == Tipo::Desconocido);
  if (puedeTexto && (a.tipo == Tipo::Texto || b.tipo == Tipo::Texto)) compararTextos(a, b);
}

// NOCASE is what an index serves, and enough where no letter lies outside of its reach: beside a plain literal or
// between two columns that hold codes. Anything else is compared by the collation that knows Ñ and accents.
void Reescritor::compararTextos(Nodo& a, Nodo& b) {
  const bool literalLlano = (a.columna && asciiLiteral(b)) || (b.columna && asciiLiteral(a));
  const bool columnas = a.columna && b.columna;
  if (!literalLlano && !columnas) return colacion(b, true);
  if ((a.columna && a.sinCaso) || (!a.columna && b.sinCaso)) return;  // the engine takes the left column's own
  colacion(b, false);
}

void Reescritor::unaFechaUnTexto(Nodo& otro) {
  if (otro.literal >= 0) e_.literal(otro.literal)->lectura = Lectura::FechaDiaMes;
  else e_.envolver(otro.ini, otro.fin, QStringLiteral("tp_cdate("));
  otro.tipo = Tipo::Fecha;
}

void Reescritor::unNumeroUnTexto(Nodo& texto) {
  if (texto.literal >= 0) e_.literal(texto.literal)->lectura = Lectura::NumeroEstricto;
  else e_.envolver(texto.ini, texto.fin, QStringLiteral("tp_num("));
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

// A value on its way into a column.
void Reescritor::asignar(const Columna& destino, Nodo& n) {
  comoNumero(n);
  if (destino.tipo == Tipo::Fecha && (n.tipo == Tipo::Texto || n.tipo == Tipo::Desconocido)) {
    unaFechaUnTexto(n);
  } else if (esNumerico(destino.tipo) && n.tipo == Tipo::Texto && n.literal >= 0) {
    unNumeroUnTexto(n);
  } else if (destino.tipo == Tipo::Texto && (n.tipo == Tipo::Real || n.tipo == Tipo::Numero || n.tipo == Tipo::Fecha)) {
    comoTexto(n);
  }
}
