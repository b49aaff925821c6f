#include "platform/sql/reescritor.h"

#include <algorithm>
#include <limits>
#include <utility>

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
  if (jet_) separarSignos();
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
  } else {
    if (!jet_ && tk(1).es(u"TRAN")) e_.reemplazar(1, QStringLiteral("TRANSACTION"));
    r.cambiaEsquema = es(u"CREATE") || es(u"ALTER") || es(u"DROP");
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
  r.tope = tope_;
  return r;
}

// WITH name [(columns)] AS (SELECT ...), ...: tables that the statement behind them names.
void Reescritor::comunes() {
  ++p_;
  do {
    const QString nombre = contenido(tk(p_)).toLower();
    ++p_;
    std::vector<Columna> columnas;
    if (comeOp(u"(")) {
      for (; !fin() && !comeOp(u")"); comeOp(u",")) columnas.push_back({contenido(tk(p_++))});
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

// Nothing is ever bound to a statement's own parameters, which the engine would take for Null.
bool Reescritor::pideParametros() const {
  for (int i = 0; tk(i).tipo != TipoToken::Fin; ++i) {
    const Token& t = tk(i);
    if (t.op(u"?") || t.op(u":")) return true;
    if (t.tipo == TipoToken::Nombre && (t.texto[0] == u'@' || t.texto[0] == u'$')) return true;
  }
  return false;
}

// Two signs in a row begin a comment in the engine, and would take the rest of the statement away.
void Reescritor::separarSignos() {
  for (int i = 0; tk(i).tipo != TipoToken::Fin; ++i) {
    const bool juntos = tk(i).ini + tk(i).largo == tk(i + 1).ini;
    const bool comentario = (tk(i).op(u"-") && tk(i + 1).op(u"-")) || (tk(i).op(u"/") && tk(i + 1).op(u"*"));
    if (juntos && comentario) e_.despues(i, QStringLiteral(" "));
  }
}

// SELECT ... [UNION [ALL] SELECT ...] [ORDER BY ...], and the closing parenthesis stays for the caller.
std::vector<Columna> Reescritor::seleccion(const std::vector<Columna>* destino) {
  const Nivel nivel(*this);
  std::vector<Columna> salida;
  bool primera = true;
  const auto deFuera = std::exchange(primera_, nullptr);
  while (!rendido_) {
    if (!primera) primera_ = &salida;
    if (tk(p_).op(u"(")) {
      ++p_;
      std::vector<Columna> de = seleccion(destino);
      comeOp(u")");
      if (primera) salida = std::move(de);
    } else if (es(u"SELECT")) {
      std::vector<Columna> de = nucleo(destino);
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
  primera_ = deFuera;
  return salida;
}

std::vector<Columna> Reescritor::nucleo(const std::vector<Columna>* destino) {
  const int ini = p_++;
  Tope tope;
  bool distinto = come(u"DISTINCT");
  if (jet_ && es(u"DISTINCTROW")) e_.borrar(p_++);  // whole rows of the tables, which are distinct as they are
  if (!distinto) come(u"ALL");
  const bool conTope = leerTope(tope);
  const int lista = p_;
  const int desde = buscarDesde(p_);
  // The columns of the first SELECT say how the rows of all are told apart.
  for (int i = desde, abiertos = 0; !distinto && tk(i).tipo != TipoToken::Fin && abiertos >= 0; ++i) {
    if (tk(i).op(u"(")) ++abiertos;
    if (tk(i).op(u")")) --abiertos;
    distinto = abiertos == 0 && tk(i).es(u"UNION") && !tk(i + 1).es(u"ALL");
  }

  const bool ligableDeFuera = ligable_;
  ambitos_.emplace_back();
  std::vector<Columna> salida;
  const bool distintoDeFuera = std::exchange(distinto_, distinto);
  const int ordenDeFuera = std::exchange(orden_, -1);
  nucleoCompleto(lista, desde, salida, destino);
  const int orden = std::exchange(orden_, ordenDeFuera);
  distinto_ = distintoDeFuera;
  ambitos_.pop_back();
  ligable_ = ligableDeFuera;

  if (conTope && p_ > lista) ponerTope(tope, ini, lista, desde, orden, distinto);
  return salida;
}

// TOP becomes LIMIT behind the whole. What that can't tell is left to who reads the rows, of the outermost SELECT only.
void Reescritor::ponerTope(Tope tope, int ini, int lista, int desde, int orden, bool distinto) {
  const bool porciento = tope.porciento >= 0;
  QString limite = QStringLiteral(" LIMIT ") + QString::number(tope.filas);
  const bool sigueOtro = es(u"UNION") || es(u"EXCEPT") || es(u"INTERSECT");
  if (primera_ || sigueOtro) {  // of one SELECT among several; the last one's ORDER BY is of all
    e_.antes(ini, QStringLiteral("SELECT * FROM ("));
    e_.despues((orden > lista && !sigueOtro ? orden : p_) - 1, limite + u')');
    return;
  }
  const bool fuera = std::any_of(claves_.begin(), claves_.end(), [](const Clave& k) { return k.columna < 0; });
  tope.empates = tope.empates && orden > lista && !(distinto && fuera);
  const bool deFuera = ini == 0 && tablaNueva_.isEmpty() && (tk(p_).tipo == TipoToken::Fin || tk(p_).op(u";"));
  if (!deFuera || !(tope.empates || porciento)) {
    const bool noSeSabe = porciento || (!jet_ && tope.empates);  // the engine says that it doesn't know it
    e_.despues(p_ - 1, noSeSabe ? QStringLiteral(" LIMIT PERCENT, TIES") : limite);
    return;
  }
  for (const Clave& k : claves_) {
    if (tope.empates && k.columna < 0) e_.despues(desde - 1, QStringLiteral(", ") + e_.trozo(k.ini, k.fin));
    tope.claves.push_back(k.columna >= 0 ? k.columna : -++tope.agregadas);
  }
  if (!tope.empates) tope.agregadas = 0;
  if (!porciento) tope.limite = QStringLiteral(" LIMIT ") + QString::number(tope.filas + 1);
  e_.despues(p_ - 1, tope.limite);
  tope_ = tope;
}

// The tables come first, since the list that stands before them speaks of their columns.
void Reescritor::nucleoCompleto(int lista, int desde, std::vector<Columna>& salida,
                                const std::vector<Columna>* destino) {
  ligable_ = true;
  p_ = desde;
  if (come(u"FROM")) fuentes();
  const int tras = p_;
  p_ = lista;
  ligable_ = false;
  int fin = desde;
  if (ambitos_.size() == 1) separarDestino(lista, fin);
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

// TOP n [PERCENT] [WITH TIES] before the list. In Jet rows that equal the last one always come with it.
bool Reescritor::leerTope(Tope& tope) {
  if (!es(u"TOP")) return false;
  const bool parentesis = tk(p_ + 1).op(u"(");
  const int numero = parentesis ? p_ + 2 : p_ + 1;
  if (tk(numero).tipo != TipoToken::Numero) return false;
  int fin = parentesis ? numero + 2 : numero + 1;
  const QString cuanto = tk(numero).texto.toString();
  bool entero = false;
  if (tk(fin).es(u"PERCENT")) {
    ++fin;
    tope.porciento = cuanto.toDouble(&entero);
  } else {
    tope.filas = cuanto.toLongLong(&entero);
  }
  if (!entero || tope.filas == std::numeric_limits<qint64>::max()) return false;
  tope.empates = jet_ || (tk(fin).es(u"WITH") && tk(fin + 1).es(u"TIES"));
  if (tk(fin).es(u"WITH") && tk(fin + 1).es(u"TIES")) fin += 2;
  for (int i = p_; i < fin; ++i) e_.borrar(i);
  p_ = fin;
  return true;
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

void Reescritor::listaDeSalida(int fin, std::vector<Columna>& salida, const std::vector<Columna>* destino) {
  while (p_ < fin && !rendido_) {
    const int ini = p_;
    // In T-SQL `name = expression` names the column; Jet compares.
    int alias = -1;
    if (!jet_ && (tk(p_).nombre() || tk(p_).tipo == TipoToken::Texto) && tk(p_ + 1).op(u"=")) {
      alias = p_;
      p_ += 2;
    }
    if (tk(p_).op(u"*")) {
      todasLasColumnas(QString(), salida);
      ++p_;
    } else if (tk(p_).nombre() && tk(p_ + 1).op(u".") && tk(p_ + 2).op(u"*")) {
      todasLasColumnas(contenido(tk(p_)), salida);
      p_ += 3;
    } else {
      Nodo n = expresion();
      if (n.vacio()) {
        avanza();
      } else {
        if (destino && salida.size() < destino->size()) asignar((*destino)[salida.size()], n);
        comoNumero(n);
        Columna c{n.nombre, n.tipo, n.sinCaso, n.columna};
        if (distinto_ && pideColacion(n)) {
          colacion(n);
          const bool conNombre = alias >= 0 || es(u"AS") || (tk(p_).nombre() && !finDeExpresion(p_));
          if (n.columna && !conNombre) e_.despues(n.fin - 1, QStringLiteral(" AS ") + tk(n.fin - 1).texto.toString());
        }
        if (alias >= 0) {
          c.nombre = contenido(tk(alias));
          QString citado = c.nombre;
          citado.replace(u'"', QStringLiteral("\"\""));
          e_.borrar(alias);
          e_.borrar(alias + 1);
          e_.despues(n.fin - 1, QStringLiteral(" AS \"") + citado + u'"');
        } else if (come(u"AS") || tk(p_).nombre() || tk(p_).tipo == TipoToken::Texto) {
          if (p_ < fin) c.nombre = contenido(tk(p_++));
        }
        salida.push_back(std::move(c));
      }
    }
    while (p_ < fin && !tk(p_).op(u",") && !rendido_) {  // something unknown: on to the next item
      if (tk(p_).op(u"(")) hastaCerrar(0);
      else ++p_;
    }
    if (!comeOp(u",") && p_ == ini) ++p_;
  }
  p_ = fin;
}

void Reescritor::todasLasColumnas(const QString& alias, std::vector<Columna>& salida) const {
  for (const Fuente& f : ambitos_.back().fuentes) {
    if (!alias.isEmpty() && f.alias.compare(alias, Qt::CaseInsensitive) != 0) continue;
    salida.insert(salida.end(), f.columnas.begin(), f.columnas.end());
  }
}

// What follows the tables, up to the end of this selection.
void Reescritor::clausulas(const std::vector<Columna>& salida) {
  while (!fin() && !tk(p_).op(u")") && !tk(p_).op(u";")) {
    if (es(u"UNION") || es(u"EXCEPT") || es(u"INTERSECT")) return;
    if (come(u"WHERE")) {
      ligable_ = true;
      expresion();
    } else if (come(u"HAVING")) {
      ligable_ = false;
      expresion();
    } else if (es(u"GROUP") || es(u"ORDER")) {
      ordenYGrupo(salida);
    } else if (tk(p_).op(u"(")) {
      hastaCerrar(0);
    } else {
      ++p_;
    }
  }
}

// The column of the list that an ORDER BY means by its place or its name; null for none.
const Columna* Reescritor::columnaDeOrden(const Nodo& n, const std::vector<Columna>& salida) const {
  if (n.fin != n.ini + 1) return nullptr;
  if (n.literal >= 0) {
    const qsizetype i = tk(n.literal).texto.toString().toLongLong();
    return i > 0 && i <= static_cast<qsizetype>(salida.size()) ? &salida[static_cast<size_t>(i - 1)] : nullptr;
  }
  for (const Columna& c : salida) {
    if (!n.nombre.isEmpty() && c.nombre.compare(n.nombre, Qt::CaseInsensitive) == 0) return &c;
  }
  return nullptr;
}

void Reescritor::ordenYGrupo(const std::vector<Columna>& salida) {
  const bool orden = es(u"ORDER");
  if (orden) orden_ = p_;
  std::vector<Clave> claves;
  ++p_;
  come(u"BY");
  ligable_ = false;
  do {
    Nodo n = expresion();
    if (n.vacio()) return;
    if (orden) comoNumero(n);
    const Columna* c = orden ? columnaDeOrden(n, primera_ ? *primera_ : salida) : nullptr;
    claves.push_back({c && !primera_ ? static_cast<int>(c - salida.data()) : -1, n.ini, n.fin});
    if (c) {
      if (c->tipo == Tipo::Texto) e_.despues(n.fin - 1, QStringLiteral(" COLLATE TARVO"));
    } else if (orden ? n.tipo == Tipo::Texto && n.literal < 0 : pideColacion(n)) {
      e_.despues(n.fin - 1, QStringLiteral(" COLLATE TARVO"));
    }
    if (!come(u"ASC")) come(u"DESC");
  } while (comeOp(u","));
  if (orden) claves_ = std::move(claves);
}

void Reescritor::insertar() {
  ++p_;
  if (!come(u"INTO") && tk(p_).nombre()) e_.antes(p_, QStringLiteral("INTO "));
  const Tabla* tabla = c_.tabla(nombreDeTabla());
  const std::vector<Columna> columnas = columnasDeInsercion(tabla);
  if (come(u"VALUES")) {
    filasDeValores(columnas);
  } else if (es(u"SELECT") || tk(p_).op(u"(")) {
    seleccion(&columnas);
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
    ++p_;
    comeOp(u",");
  }
  comeOp(u")");
  return columnas;
}

void Reescritor::filasDeValores(const std::vector<Columna>& columnas) {
  do {
    if (!comeOp(u"(")) return;
    ligable_ = true;
    for (size_t i = 0; !fin() && !tk(p_).op(u")"); ++i) {
      Nodo n = expresion();
      if (n.vacio()) ++p_;
      else if (i < columnas.size()) asignar(columnas[i], n);
      comeOp(u",");
    }
    comeOp(u")");
  } while (comeOp(u","));
}
