#include "platform/sql/reescritor.h"

#include <algorithm>

Reescritura reescribir(Edicion& edicion, const Catalogo& catalogo) { return Reescritor(edicion, catalogo).correr(); }

Reescritura Reescritor::correr() {
  Reescritura r;
  if (t_.back().abierto) {
    r.error = ErrorBD{kErrorSentencia, 0, QStringLiteral("La sentencia tiene un comentario sin fin.")};
    return r;
  }
  if (e_.incompleta()) return r;
  if (pideParametros()) {
    r.error = ErrorBD{kErrorSentencia, 0, QStringLiteral("La sentencia espera valores que no se han dado.")};
    return r;
  }
  if (jet_ || m_.tipado) separarSignos();
  if (const QString ajeno = m_.tipado ? signoAjeno() : QString(); !ajeno.isEmpty()) {
    r.error = ErrorBD{kErrorSentencia, 0, QStringLiteral("Sintaxis incorrecta cerca de '%1'.").arg(ajeno)};
    return r;
  }
  if (es(u"WITH")) {
    if (jet_) {
      r.error = ErrorBD{kErrorSentencia, 0, QStringLiteral("La sentencia no puede empezar con WITH.")};
      return r;
    }
    comunes();
  }
  if (es(u"SELECT") || tk(0).op(u"(")) {
    r.salida = seleccion();
  } else if (es(u"INSERT")) {
    insertar();
  } else if (es(u"UPDATE")) {
    actualizar();
  } else if (es(u"DELETE")) {
    borrarFilas();
  } else if (!jet_ && es(u"TRUNCATE") && tk(1).es(u"TABLE")) {
    e_.reemplazar(0, QStringLiteral("DELETE"));
    e_.reemplazar(1, QStringLiteral("FROM"));
    p_ = 2;
    nombreDeTabla();
  } else if (!jet_ && es(u"SET") && ajusteDeSesion()) {
    for (int i = 0; tk(i).tipo != TipoToken::Fin; ++i) e_.borrar(i);
    e_.reemplazar(0, m_.nada.toString());
    return r;
  } else {
    if (!jet_ && tk(1).es(u"TRAN")) e_.reemplazar(1, QStringLiteral("TRANSACTION"));
    r.cambiaEsquema = es(u"CREATE") || es(u"ALTER") || es(u"DROP");
    if (!jet_ && m_.declarado && r.cambiaEsquema) crear();
    return r;
  }
  if (!error_.isEmpty()) {
    r.error = ErrorBD{kErrorSentencia, 0, error_};
    return r;
  }
  if (rendido_) {
    r.error = ErrorBD{kErrorSentencia, 0, QStringLiteral("La sentencia es demasiado compleja.")};
    return r;
  }
  if (tablaNueva_.startsWith(u'#')) {
    r.error = ErrorBD{kErrorSentencia, 0, QStringLiteral("No hay tablas temporales: '%1'.").arg(tablaNueva_)};
  }
  r.tablaNueva = tablaNueva_;
  r.serie = serie_;
  r.conPatron = conPatron_;
  r.tope = tope_;
  return r;
}

void Reescritor::nombrar(int token) {
  static constexpr QStringView kReservadas[] = {
      u"ADD",     u"ALL",    u"ALTER",       u"AND",        u"AS",         u"BETWEEN", u"CASE",     u"CHECK",
      u"COLLATE", u"COMMIT", u"CREATE",      u"CONSTRAINT", u"DEFAULT",    u"DELETE",  u"DISTINCT", u"DROP",
      u"ELSE",    u"ESCAPE", u"EXISTS",      u"FOREIGN",    u"FROM",       u"GROUP",   u"HAVING",   u"IN",
      u"INDEX",   u"INSERT", u"INTO",        u"IS",         u"JOIN",       u"LIKE",    u"NOT",      u"NULL",
      u"ON",      u"OR",     u"ORDER",       u"PRIMARY",    u"REFERENCES", u"SELECT",  u"SET",      u"TABLE",
      u"THEN",    u"TO",     u"TRANSACTION", u"UNION",      u"UNIQUE",     u"UPDATE",  u"USING",    u"VALUES",
      u"WHEN",    u"WHERE",  u"LIMIT",       u"RETURNING",  u"ISNULL",     u"NOTNULL", u"TOP"};
  if (!m_.tipado || tk(token).tipo != TipoToken::Nombre) return;
  const bool ajena =
      tk(token).texto.contains(u'#') || tk(token).texto.contains(u'@') ||
      std::any_of(std::begin(kReservadas), std::end(kReservadas), [&](QStringView r) { return tk(token).es(r); });
  if (ajena) malEscrita(token);
  e_.reemplazar(token, m_.citado(tk(token).texto.toString()));
}

// WITH name [(columns)] AS (SELECT ...), ...: tables that the statement behind them names.
void Reescritor::comunes() {
  if (!m_.recursiva.isEmpty()) e_.despues(p_, m_.recursiva.toString());
  ++p_;
  do {
    const QString nombre = contenido(tk(p_)).toLower();
    nombrar(p_++);
    std::vector<Columna> columnas;
    if (comeOp(u"(")) {
      for (; !fin() && !comeOp(u")"); comeOp(u",")) {
        columnas.push_back({contenido(tk(p_))});
        nombrar(p_++);
      }
    }
    come(u"AS");
    if (!comeOp(u"(")) return;
    comunes_[nombre] = columnas;  // one that names itself knows no types
    std::vector<Columna> de = seleccion();
    for (size_t i = 0; i < de.size(); ++i) {
      de[i].real = false;
      if (i < columnas.size()) de[i].nombre = columnas[i].nombre;
    }
    comunes_[nombre] = de;
    if (!comeOp(u")")) hastaCerrar();
  } while (comeOp(u","));
}

// SET LANGUAGE Spanish and what else of a session means nothing here: a text of a date is read day first whatever it
// says.
bool Reescritor::ajusteDeSesion() const {
  // clang-format off
  static const struct { QStringView ajuste; std::initializer_list<QStringView> valores; } kAjustes[] = {
      {u"LANGUAGE", {u"Spanish", u"Español", u"us_english", u"English", u"British"}},
      {u"DATEFORMAT", {u"dmy", u"mdy", u"ymd"}}, {u"NOCOUNT", {u"ON", u"OFF"}}, {u"XACT_ABORT", {u"ON", u"OFF"}},
      {u"ANSI_NULLS", {u"ON", u"OFF"}}, {u"ANSI_WARNINGS", {u"ON", u"OFF"}}, {u"QUOTED_IDENTIFIER", {u"ON", u"OFF"}}};
  // clang-format on
  const int tras = tk(3).op(u";") ? 4 : 3;
  if (tk(tras).tipo != TipoToken::Fin) return false;
  const QString valor = contenido(tk(2));
  return std::any_of(std::begin(kAjustes), std::end(kAjustes), [&](const auto& a) {
    return tk(1).es(a.ajuste) && std::any_of(a.valores.begin(), a.valores.end(),
                                             [&](QStringView v) { return valor.compare(v, Qt::CaseInsensitive) == 0; });
  });
}

// Nothing is ever bound to a statement's own parameters, which the engine would take for Null.
bool Reescritor::pideParametros() const {
  for (int i = 0; tk(i).tipo != TipoToken::Fin; ++i) {
    const Token& t = tk(i);
    if (t.op(u"?") || t.op(u":")) return true;
    if (t.tipo == TipoToken::Nombre && (t.texto[0] == u'@' || t.texto[0] == u'$')) return true;
  }
  return false;
}

// Two signs in a row begin a comment in the engine, and would take the rest of the statement away; or they are one
// operator of its own.
void Reescritor::separarSignos() {
  static constexpr QStringView kSignos = u"+-*/<>=~!%&|";
  for (int i = 0; tk(i).tipo != TipoToken::Fin; ++i) {
    const bool juntos = tk(i).ini + tk(i).largo == tk(i + 1).ini;
    const bool comentario = (tk(i).op(u"-") && tk(i + 1).op(u"-")) || (tk(i).op(u"/") && tk(i + 1).op(u"*"));
    const bool signos = m_.tipado && tk(i).tipo == TipoToken::Operador && tk(i + 1).tipo == TipoToken::Operador &&
                        kSignos.contains(tk(i).texto[0]) && kSignos.contains(tk(i + 1).texto[0]);
    if (juntos && (comentario || signos)) e_.despues(i, QStringLiteral(" "));
  }
}

// An operator that means something to the engine and nothing to the dialect; "" for none.
QString Reescritor::signoAjeno() const {
  for (int i = 0; tk(i).tipo != TipoToken::Fin; ++i) {
    const Token& t = tk(i);
    if (t.tipo != TipoToken::Operador) continue;
    const bool tras = i > 0 && (tk(i - 1).literal() || tk(i - 1).tipo == TipoToken::NombreCitado || tk(i - 1).op(u")"));
    const bool conocido = QStringView(u"(),.;*+-/%=<>&|~!").contains(t.texto[0]) && !(t.op(u"~") && tras);
    if (!conocido) return t.texto.toString();
  }
  return {};
}

// SELECT ... [UNION [ALL] SELECT ...] [ORDER BY ...], and the closing parenthesis stays for the caller.
std::vector<Columna> Reescritor::seleccion(const std::vector<Columna>* destino) {
  const Nivel nivel(*this);
  std::vector<Columna> salida;
  bool primera = true;
  while (!rendido_) {
    if (tk(p_).op(u"(")) {
      ++p_;
      std::vector<Columna> de = seleccion(destino);
      comeOp(u")");
      if (primera) salida = std::move(de);
    } else if (es(u"SELECT")) {
      std::vector<Columna> de = nucleo(destino, primera ? nullptr : &salida);
      if (primera) {
        salida = std::move(de);
      } else if (de.size() == salida.size()) {
        for (size_t i = 0; i < de.size(); ++i) salida[i].tipo = comun(salida[i].tipo, de[i].tipo);
      }
    }
    primera = false;
    if (!(come(u"UNION") || come(u"EXCEPT") || come(u"INTERSECT"))) break;
    come(u"ALL");
  }
  return salida;
}

std::vector<Columna> Reescritor::nucleo(const std::vector<Columna>* destino, const std::vector<Columna>* primera) {
  const int ini = p_++;
  Tope tope;
  bool distinto = come(u"DISTINCT");
  if (jet_ && es(u"DISTINCTROW")) e_.borrar(p_++);  // whole rows of the tables, which are distinct as they are
  if (!distinto) come(u"ALL");
  const bool conTope = leerTope(tope);
  const int lista = p_;
  const int desde = buscarDesde(p_);
  if (desde == lista) malEscrita(desde);
  // The columns of the first SELECT say how the rows of all are told apart.
  for (int i = desde, abiertos = 0; !distinto && tk(i).tipo != TipoToken::Fin && abiertos >= 0; ++i) {
    if (tk(i).op(u"(")) ++abiertos;
    if (tk(i).op(u")")) --abiertos;
    distinto = abiertos == 0 && tk(i).es(u"UNION") && !tk(i + 1).es(u"ALL");
  }

  ambitos_.emplace_back();
  ambito().distinto = distinto;
  ambito().primera = primera;
  std::vector<Columna> salida;
  nucleoCompleto(lista, desde, salida, destino);
  const auto& de = ambito().fuentes;
  if (maximo_ && ambitos_.size() == 2 && de.size() == 1 && !ambito().agrupado) serie_ = de[0].tabla;
  if (conTope && p_ > lista) ponerTope(tope, ini, lista, desde);
  ambitos_.pop_back();
  return salida;
}

// The tables come first, since the list that stands before them speaks of their columns.
void Reescritor::nucleoCompleto(int lista, int desde, std::vector<Columna>& salida,
                                const std::vector<Columna>* destino) {
  ambito().ligable = true;
  p_ = desde;
  if (come(u"FROM")) fuentes();
  const int tras = p_;
  p_ = lista;
  ambito().ligable = false;
  int fin = desde;
  if (ambitos_.size() == 2) separarDestino(lista, fin);
  listaDeSalida(fin, salida, destino);
  p_ = tras > desde ? tras : desde;
  clausulas(salida);
}

// INTO name behind the list of the outermost SELECT: the engine makes that table apart.
void Reescritor::separarDestino(int lista, int& fin) {
  int i = lista;
  for (int abiertos = 0; i < fin; ++i) {
    if (tk(i).op(u"(")) ++abiertos;
    if (tk(i).op(u")")) --abiertos;
    if (abiertos == 0 && tk(i).es(u"INTO")) break;
  }
  if (i >= fin || !tk(fin - 1).nombre()) return;
  tablaNueva_ = contenido(tk(fin - 1));
  for (int k = i; k < fin; ++k) e_.borrar(k);
  fin = i;
}

// The FROM that belongs to the list at `i`, else where the list ends.
int Reescritor::buscarDesde(int i) const {
  int abiertos = 0;
  for (; tk(i).tipo != TipoToken::Fin; ++i) {
    if (tk(i).op(u"(")) ++abiertos;
    if (tk(i).op(u")") && --abiertos < 0) return i;
    if (abiertos > 0) continue;
    if (tk(i).op(u";")) return i;
    for (const QStringView palabra : {u"FROM", u"WHERE", u"UNION", u"EXCEPT", u"INTERSECT", u"ORDER"}) {
      if (tk(i).es(palabra) && !tk(i - 1).op(u".")) return i;
    }
  }
  return i;
}

// What follows the tables, up to the end of this selection.
void Reescritor::clausulas(const std::vector<Columna>& salida) {
  while (!fin() && !tk(p_).op(u")") && !tk(p_).op(u";")) {
    if (es(u"UNION") || es(u"EXCEPT") || es(u"INTERSECT")) return;
    if (come(u"WHERE")) {
      ambito().ligable = true;
      expresion();
    } else if (come(u"HAVING")) {
      ambito().ligable = false;
      expresion();
    } else if (es(u"GROUP") || es(u"ORDER")) {
      ordenYGrupo(salida);
    } else if (tk(p_).op(u"(")) {
      hastaCerrar(0);
    } else {
      malEscrita(p_);
      ++p_;
    }
  }
}

void Reescritor::insertar() {
  ++p_;
  if (!come(u"INTO") && tk(p_).nombre()) e_.antes(p_, QStringLiteral("INTO "));
  const Tabla* tabla = c_.tabla(nombreDeTabla());
  const std::vector<Columna> columnas = columnasDeInsercion(tabla);
  if (come(u"VALUES")) {
    filasDeValores(columnas);
  } else if (es(u"SELECT") || tk(p_).op(u"(")) {
    const size_t dadas = seleccion(&columnas).size();
    if (dadas > 0 && dadas < columnas.size()) malEscrita(p_ - 1);
  }
}

std::vector<Columna> Reescritor::columnasDeInsercion(const Tabla* tabla) {
  if (!tk(p_).op(u"(") || tk(p_ + 1).es(u"SELECT")) return tabla ? tabla->columnas : std::vector<Columna>();
  std::vector<Columna> columnas;
  ++p_;
  while (!fin() && !tk(p_).op(u")")) {
    // A column may carry its table's name.
    while (tk(p_ + 1).op(u".") && tk(p_).nombre()) {
      e_.borrar(p_);
      e_.borrar(p_ + 1);
      p_ += 2;
    }
    Columna c;
    c.nombre = contenido(tk(p_));
    if (tabla) {
      for (const Columna& de : tabla->columnas) {
        if (de.nombre.compare(c.nombre, Qt::CaseInsensitive) == 0) c = de;
      }
    }
    columnas.push_back(std::move(c));
    nombrar(p_++);
    comeOp(u",");
  }
  comeOp(u")");
  return columnas;
}

void Reescritor::filasDeValores(const std::vector<Columna>& columnas) {
  do {
    if (!comeOp(u"(")) return;
    ambito().ligable = true;
    size_t i = 0;
    for (; !fin() && !tk(p_).op(u")"); ++i) {
      Nodo n = expresion();
      if (n.vacio()) malEscrita(p_++);
      else if (i < columnas.size()) asignar(columnas[i], n);
      comeOp(u",");
    }
    if (i < columnas.size()) malEscrita(p_);  // a typed engine would fill the rest
    comeOp(u")");
  } while (comeOp(u","));
}
