#include "platform/sql/reescritor.h"

namespace {

// Tightness of the operators; what stands higher binds tighter.
enum Precedencia { kO = 1, kY, kNo, kComparar, kUnir, kSuma, kModulo, kDivisionEntera, kProducto, kPotencia };

}  // namespace

bool Reescritor::finDeExpresion(int i) const {
  const Token& t = tk(i);
  if (t.tipo == TipoToken::Fin) return true;
  if (t.tipo != TipoToken::Nombre) return false;
  if ((t.es(u"LEFT") || t.es(u"RIGHT") || t.es(u"ASC")) && tk(i + 1).op(u"(")) return false;
  for (const QStringView palabra :
       {u"FROM",   u"WHERE",   u"GROUP",  u"ORDER", u"HAVING", u"UNION", u"EXCEPT", u"INTERSECT", u"LIMIT", u"ON",
        u"AS",     u"SET",     u"VALUES", u"INNER", u"LEFT",   u"RIGHT", u"FULL",   u"CROSS",     u"JOIN",  u"NATURAL",
        u"WHEN",   u"THEN",    u"ELSE",   u"END",   u"ASC",    u"DESC",  u"INTO",   u"BY",        u"AND",   u"OR",
        u"SELECT", u"BETWEEN", u"LIKE",   u"IN",    u"IS",     u"WITH",  u"USING",  u"ESCAPE"}) {
    if (t.es(palabra)) return true;
  }
  return false;
}

// The tightness of the operator at `i`, 0 for none. `predicado`: LIKE, IN, BETWEEN, IS, with NOT or without.
int Reescritor::precedencia(int i, bool& predicado) const {
  predicado = false;
  const Token& t = tk(i);
  if (t.tipo == TipoToken::Operador) {
    for (const QStringView s : {u"=", u"<>", u"<", u">", u"<=", u">=", u"!=", u"==", u"!<", u"!>"}) {
      if (t.texto == s) return kComparar;
    }
    if (t.texto == u"&") return jet_ ? kUnir : kSuma;
    if (t.texto == u"+" || t.texto == u"-" || t.texto == u"||" || (t.texto == u"|" && !jet_)) return kSuma;
    if (t.texto == u"*" || t.texto == u"/" || (t.texto == u"%" && !jet_)) return kProducto;
    if (t.texto == u"\\" && jet_) return kDivisionEntera;
    if (t.texto == u"^" && jet_) return kPotencia;
    return 0;
  }
  if (t.tipo != TipoToken::Nombre) return 0;
  if (t.es(u"OR") || (jet_ && t.es(u"XOR"))) return kO;
  if (t.es(u"AND")) return kY;
  if (jet_ && t.es(u"MOD")) return kModulo;
  const Token& p = t.es(u"NOT") ? tk(i + 1) : t;
  predicado = p.es(u"LIKE") || p.es(u"IN") || p.es(u"BETWEEN") || t.es(u"IS");
  return predicado ? kComparar : 0;
}

Nodo Reescritor::expresion(int minima) {
  const Nivel nivel(*this);
  if (rendido_) return {p_, p_};
  Nodo izq = unario();
  while (!rendido_ && !izq.vacio()) {
    bool esPredicado = false;
    const int prec = precedencia(p_, esPredicado);
    if (prec == 0 || prec < minima) break;
    const int op = p_;
    izq = esPredicado ? predicado(izq, op) : binario(izq, op, prec);
  }
  return izq;
}

Nodo Reescritor::unario() {
  const int ini = p_;
  if (es(u"NOT")) {
    ++p_;
    expresion(kNo);
    return {ini, p_, Tipo::Logico};
  }
  if (tk(p_).op(u"-") || tk(p_).op(u"+")) {
    ++p_;
    Nodo n = expresion(kProducto + 1);
    comoNumero(n);
    return {ini, p_, esNumerico(n.tipo) ? n.tipo : Tipo::Numero};
  }
  return primario();
}

// Two operands and what stands between them as a call of a function.
Nodo Reescritor::llamadaEntre(const Nodo& izq, int op, QStringView funcion, Tipo tipo) {
  e_.envolver(izq.ini, p_, funcion.toString() + u'(');
  e_.reemplazar(op, QStringLiteral(","));
  return {izq.ini, p_, tipo, true};
}

Nodo Reescritor::binario(Nodo izq, int op, int prec) {
  ++p_;
  // Equal to any of them is in them; apart from all of them is not in them.
  const bool alguno = tk(op).op(u"=") && (es(u"ANY") || es(u"SOME")), ninguno = tk(op).op(u"<>") && es(u"ALL");
  if ((alguno || ninguno) && tk(p_ + 1).op(u"(")) {
    e_.reemplazar(op, alguno ? QStringLiteral(" IN") : QStringLiteral(" NOT IN"));
    e_.borrar(p_++);
    return enLista(izq, op);
  }
  Nodo der = expresion(prec + 1);
  const Nodo logico{izq.ini, p_, der.vacio() ? Tipo::Desconocido : Tipo::Logico};
  if (der.vacio()) return malEscrita(p_), logico;
  switch (prec) {
    case kO:
    case kY:
      if (tk(op).es(u"XOR")) e_.reemplazar(op, QStringLiteral("<>"));
      return logico;
    case kComparar:
      if (tk(op).op(u"!<")) e_.reemplazar(op, QStringLiteral(">="));
      if (tk(op).op(u"!>")) e_.reemplazar(op, QStringLiteral("<="));
      comparar(izq, der, !(tk(op).op(u"=") || tk(op).op(u"<>") || tk(op).op(u"!=")));
      return logico;
    case kUnir:
      for (Nodo* lado : {&izq, &der}) {
        comoNumero(*lado);
        if (lado->tipo == Tipo::Fecha) comoTexto(*lado);
      }
      return llamadaEntre(izq, op, u"tp_une", Tipo::Texto);
    case kSuma: return sumar(izq, op, der);
    default: break;
  }
  for (Nodo* lado : {&izq, &der}) {
    comoNumero(*lado);
    fechaComoNumero(*lado);
    if (m_.tipado) unValor(*lado);
  }
  switch (prec) {
    case kModulo: return llamadaEntre(izq, op, u"tp_resto", Tipo::Entero);
    case kDivisionEntera: return llamadaEntre(izq, op, u"tp_dividir", Tipo::Entero);
    case kPotencia: return llamadaEntre(izq, op, u"tp_potencia", Tipo::Real);
    default: return producto(izq, op, der);
  }
}

// * and /, in T-SQL also %, between numbers.
Nodo Reescritor::producto(Nodo& izq, int op, Nodo& der) {
  if (!tk(op).op(u"*")) divisor(der);
  const bool enteros = izq.tipo == Tipo::Entero && der.tipo == Tipo::Entero;
  // The engine's own drops what is behind the point.
  if (tk(op).op(u"%") && !enteros) return llamadaEntre(izq, op, u"tp_modulo", Tipo::Numero);
  Nodo n{izq.ini, p_};
  const bool reales = izq.tipo == Tipo::Real || der.tipo == Tipo::Real;
  const bool conParte = jet_ || izq.tipo == Tipo::Numero || der.tipo == Tipo::Numero;  // decimals held as whole numbers
  if (tk(op).op(u"/") && conParte) {
    if (!reales) e_.reemplazar(op, m_.dividir.toString());
    n.tipo = Tipo::Real;
  } else {
    n.tipo = enteros ? Tipo::Entero : reales ? Tipo::Real : Tipo::Numero;
  }
  return n;
}

Nodo Reescritor::predicado(Nodo izq, int op) {
  Nodo n{izq.ini, p_, Tipo::Logico};
  const bool negado = es(u"NOT");
  if (negado) ++p_;
  if (come(u"IS")) {
    come(u"NOT");
    primario();
  } else if (come(u"BETWEEN")) {
    Nodo desde = expresion(kUnir);
    comparar(izq, desde, true);
    if (desde.vacio() || !es(u"AND")) malEscrita(p_);
    if (come(u"AND")) {
      Nodo hasta = expresion(kUnir);
      if (hasta.vacio()) malEscrita(p_);
      comparar(izq, hasta, true);
    }
  } else if (come(u"IN")) {
    return enLista(izq, op);
  } else if (come(u"LIKE")) {
    const int signo = p_ - 1;
    const Nodo patron = expresion(kUnir);
    if (patron.vacio()) return malEscrita(p_), Nodo{izq.ini, p_, Tipo::Logico};
    if (izq.tipo == Tipo::Fecha || (m_.tipado && izq.tipo != Tipo::Texto)) comoTexto(izq);
    const QString tramo = negado || es(u"ESCAPE") ? QString() : tramoDePatron(izq, patron);
    const bool conEscape = es(u"ESCAPE");
    if (conEscape) {
      e_.reemplazar(p_, QStringLiteral(","));
      ++p_;
      expresion(kUnir);
    }
    const bool porIndice = !m_.empieza.isEmpty() && !negado && !conEscape && empieza(izq, patron);
    conPatron_ = conPatron_ || !(porIndice || (patron.literal >= 0 && !e_.literal(patron.literal)->ligado));
    e_.antes(izq.ini, tramo + (negado ? m_.noParece : porIndice ? m_.empieza : m_.parece).toString());
    if (negado) e_.borrar(op);
    e_.reemplazar(signo, QStringLiteral(","));
    e_.despues(p_ - 1, negado || !tramo.isEmpty() ? QStringLiteral("))") : QStringLiteral(")"));
    n.primario = true;
  }
  n.fin = p_;
  return n;
}

// Brings a subject and the values that it is held against to one type. Tells whether all of them are plain texts.
bool Reescritor::alinear(Nodo& sujeto, std::vector<Nodo>& valores) {
  bool ascii = true, numeros = esNumerico(sujeto.tipo);
  for (const Nodo& v : valores) {
    ascii = ascii && asciiLiteral(v);
    numeros = numeros || esNumerico(v.tipo);
  }
  for (Nodo& v : valores) {
    if (sujeto.tipo == Tipo::Fecha && (v.tipo == Tipo::Texto || esNumerico(v.tipo))) haciaFecha(v);
    else if (numeros && v.tipo == Tipo::Texto) unNumeroUnTexto(v);
    else sinFinales(v);
  }
  if (numeros && sujeto.tipo == Tipo::Texto) unNumeroUnTexto(sujeto);
  return ascii;
}

Nodo Reescritor::enLista(Nodo izq, int op) {
  Nodo n{izq.ini, p_, Tipo::Logico};
  if (!comeOp(u"(")) return malEscrita(p_), n;
  if (es(u"SELECT") || tk(p_).op(u"(")) {
    const int dentro = p_;
    const std::vector<Columna> de = seleccion();
    const Tipo otro = de.empty() ? Tipo::Desconocido : de[0].tipo;
    if (izq.tipo == Tipo::Texto && otro == Tipo::Texto) {
      const Nodo elegida{0, 0, otro, true, -1, de[0].real, de[0].sinCaso, de[0].nombre};
      if (!esCodigo(izq) || !esCodigo(elegida)) e_.despues(op - 1, m_.colacion.toString());
    } else if (izq.tipo == Tipo::Texto && esNumerico(otro)) {
      unNumeroUnTexto(izq);
    } else if (esNumerico(izq.tipo) && otro == Tipo::Texto) {
      e_.envolver(dentro, p_, QStringLiteral("WITH tp_lista(valor) AS ("),
                  QStringLiteral(") SELECT tp_num(valor) FROM tp_lista"));
    }
  } else {
    std::vector<Nodo> valores;
    while (!fin() && !tk(p_).op(u")")) {
      const Nodo v = expresion();
      if (v.vacio()) ++p_;
      else valores.push_back(v);
      comeOp(u",");
    }
    const bool soloAscii = alinear(izq, valores);
    if (izq.tipo == Tipo::Texto && !(izq.sinCaso && soloAscii) && !listaPorVariantes(izq, valores)) {
      e_.despues(op - 1, m_.colacion.toString());
    }
  }
  comeOp(u")");
  n.fin = p_;
  return n;
}

Nodo Reescritor::primario() {
  if (fin() || finDeExpresion(p_)) return {p_, p_};
  const int ini = p_;
  const Token& t = tk(p_);
  switch (t.tipo) {
    case TipoToken::Texto:
    case TipoToken::Fecha:
    case TipoToken::Numero: {
      ++p_;
      ligar(ini);
      Tipo tipo = t.tipo == TipoToken::Texto ? Tipo::Texto : Tipo::Fecha;
      if (t.tipo == TipoToken::Numero) {
        const bool entero = leerNumero(t.texto.toString()).typeId() == QMetaType::LongLong;
        tipo = entero ? Tipo::Entero : Tipo::Real;
      }
      return {ini, p_, tipo, true, ini};
    }
    case TipoToken::Nombre:
    case TipoToken::NombreCitado: return nombreOLlamada();
    default: break;
  }
  if (t.op(u"(")) return parentesis();
  if (t.op(u")") || t.op(u",") || t.op(u";")) return {p_, p_};
  if (bool predicado = false; precedencia(p_, predicado) > 0) return {p_, p_};
  ++p_;
  return {ini, p_};
}

void Reescritor::ligar(int token) {
  if (Literal* l = e_.literal(token); l && ambito().ligable && !tk(token).abierto) l->ligado = true;
}

Nodo Reescritor::parentesis() {
  const int ini = p_++;
  Nodo n{ini, ini};
  if (es(u"SELECT")) {
    const std::vector<Columna> de = seleccion();
    if (!de.empty()) n.tipo = de[0].tipo;
  } else {
    const Nodo dentro = expresion();
    n.tipo = dentro.tipo;
    n.literal = dentro.literal;
    n.nombre = dentro.nombre;
    if (tk(p_).op(u",")) malEscrita(p_);  // rows are no values
    while (comeOp(u",")) expresion();
  }
  if (!comeOp(u")")) {
    const int desde = p_;
    hastaCerrar();
    for (int i = desde, hondo = 0; i < p_; ++i) {
      hondo += tk(i).op(u"(") ? 1 : tk(i).op(u")") ? -1 : 0;
      if (hondo == 0 && tk(i).op(u",")) malEscrita(i);
    }
  }
  n.fin = p_ > ini ? p_ : ini + 1;
  n.primario = true;
  return n;
}

// Behind the parenthesis that closes the one at hand (`abiertos` 1), or the one that opens here (0).
void Reescritor::hastaCerrar(int abiertos) {
  for (; tk(p_).tipo != TipoToken::Fin; ++p_) {
    if (tk(p_).op(u"(")) ++abiertos;
    if (tk(p_).op(u")") && --abiertos <= 0) {
      ++p_;
      return;
    }
  }
}

Nodo Reescritor::nombreOLlamada() {
  const int ini = p_;
  if (tk(p_).tipo == TipoToken::Nombre) {
    if (es(u"CASE")) return caso();
    if (es(u"NULL")) return ++p_, Nodo{ini, p_, Tipo::Nulo, true};
    if (!jet_ && es(u"CURRENT_TIMESTAMP")) {
      e_.reemplazar(p_, QStringLiteral("tp_ahora()"));
      return ++p_, Nodo{ini, p_, Tipo::Fecha, true};
    }
    if (jet_ && (es(u"TRUE") || es(u"FALSE")) && !tk(p_ + 1).op(u".")) {
      e_.reemplazar(p_, es(u"TRUE") ? QStringLiteral("(-1)") : QStringLiteral("0"));
      return ++p_, Nodo{ini, p_, Tipo::Entero, true};
    }
    if (es(u"EXISTS") && tk(p_ + 1).op(u"(")) {
      ++p_;
      parentesis();
      return {ini, p_, Tipo::Logico, true};
    }
  }
  int ultimo = p_;
  while (tk(ultimo + 1).op(u".") && tk(ultimo + 2).nombre()) ultimo += 2;
  const bool llama = tk(ultimo + 1).op(u"(");
  // The owner before a function or a table says nothing here.
  if (!jet_ && ultimo > p_ && (llama || ultimo - p_ > 2)) {
    for (int i = p_; i < (llama ? ultimo : ultimo - 2); ++i) e_.borrar(i);
  }
  p_ = ultimo;
  if (llama && tk(ultimo).tipo == TipoToken::Nombre) {
    Nodo n = llamada(ini);
    n.ini = ini;
    return n;
  }
  if (llama && m_.tipado) e_.reemplazar(ultimo, m_.funciones.toString() + m_.citado(contenido(tk(ultimo))));
  else nombrar(ultimo);
  if (!llama && ultimo > ini) nombrar(ultimo - 2);
  ++p_;
  Nodo n{ini, p_, Tipo::Desconocido, true};
  n.nombre = contenido(tk(ultimo));
  const QString alias = ultimo > ini ? contenido(tk(ultimo - 2)) : QString();
  if (const Columna* c = columna(alias, n.nombre)) {
    n.tipo = c->tipo;
    n.columna = c->real;
    n.sinCaso = c->sinCaso;
  } else if (m_.tipado && esAjena(alias, n.nombre)) {
    malEscrita(ultimo);
  }
  return n;
}

Nodo Reescritor::caso() {
  const int ini = p_++;
  Nodo sujeto{p_, p_};
  if (!es(u"WHEN")) sujeto = expresion();
  std::vector<Nodo> casos, ramas;
  while (come(u"WHEN") && !fin()) {
    casos.push_back(expresion());
    if (come(u"THEN")) ramas.push_back(expresion());
  }
  if (come(u"ELSE")) ramas.push_back(expresion());
  come(u"END");
  igualarRamas(ramas);
  Tipo tipo = Tipo::Nulo;
  for (const Nodo& r : ramas) tipo = comun(tipo, r.tipo);
  const bool ascii = sujeto.vacio() || alinear(sujeto, casos);
  if (sujeto.tipo == Tipo::Texto && !(sujeto.sinCaso && ascii)) colacion(sujeto);
  return {ini, p_, tipo, true};
}
