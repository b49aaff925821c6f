// The list of a SELECT, its order, and how much of it TOP leaves.
#include <algorithm>
#include <limits>

#include "platform/sql/reescritor.h"

namespace {

const QString kSoloFuera = QStringLiteral("TOP PERCENT y TOP WITH TIES solo valen para la consulta entera.");

}  // namespace

void Reescritor::listaDeSalida(int fin, std::vector<Columna>& salida, const std::vector<Columna>* destino) {
  while (p_ < fin && !rendido_) {
    const int ini = p_;
    if (tk(p_).op(u"*")) {
      todasLasColumnas(QString(), salida);
      ++p_;
    } else if (tk(p_).nombre() && tk(p_ + 1).op(u".") && tk(p_ + 2).op(u"*")) {
      todasLasColumnas(contenido(tk(p_)), salida);
      nombrar(p_);
      p_ += 3;
    } else {
      unaColumna(fin, salida, destino);
    }
    while (p_ < fin && !tk(p_).op(u",") && !rendido_) {  // something unknown: on to the next item
      malEscrita(p_);
      if (tk(p_).op(u"(")) hastaCerrar(0);
      else ++p_;
    }
    if (!comeOp(u",") && p_ == ini) ++p_;
  }
  p_ = fin;
}

// An expression of the list, and what it is called.
void Reescritor::unaColumna(int fin, std::vector<Columna>& salida, const std::vector<Columna>* destino) {
  // In T-SQL `name = expression` names the column; Jet compares.
  int alias = -1;
  if (!jet_ && (tk(p_).nombre() || tk(p_).tipo == TipoToken::Texto) && tk(p_ + 1).op(u"=")) {
    alias = p_;
    p_ += 2;
  }
  Nodo n = expresion();
  if (n.vacio()) {
    avanza();
    return;
  }
  if (destino && salida.size() < destino->size()) asignar((*destino)[salida.size()], n);
  comoNumero(n);
  Columna c{n.nombre, n.tipo, n.sinCaso, n.columna};
  if (es(u"OVER") && tk(p_ + 1).op(u"(")) {
    ventana();
    n.fin = p_;
  }
  // What is put in order by its name or its place takes its comparison along.
  if (m_.tipado && n.tipo == Tipo::Texto && !n.columna && n.literal < 0) colacion(n);
  if (ambito().distinto && pideColacion(n)) {
    colacion(n);
    const bool conNombre = alias >= 0 || es(u"AS") || (tk(p_).nombre() && !finDeExpresion(p_));
    if (n.columna && !conNombre) e_.despues(n.fin - 1, QStringLiteral(" AS ") + tk(n.fin - 1).texto.toString());
  }
  if (alias >= 0) {
    c.nombre = contenido(tk(alias));
    e_.borrar(alias);
    e_.borrar(alias + 1);
    e_.despues(n.fin - 1, QStringLiteral(" AS ") + m_.citado(c.nombre));
  } else if (const bool conAs = come(u"AS"); conAs || tk(p_).nombre() || tk(p_).tipo == TipoToken::Texto) {
    if (conAs && (p_ >= fin || !(tk(p_).nombre() || tk(p_).tipo == TipoToken::Texto))) malEscrita(p_);
    if (p_ < fin) {
      nombrar(p_);
      if (m_.tipado) e_.reemplazar(p_, (conAs ? QString() : QStringLiteral("AS ")) + m_.citado(contenido(tk(p_))));
      c.nombre = contenido(tk(p_++));
    }
  }
  salida.push_back(std::move(c));
}

void Reescritor::todasLasColumnas(const QString& alias, std::vector<Columna>& salida) const {
  for (const Fuente& f : ambitos_.back().fuentes) {
    if (!alias.isEmpty() && f.alias.compare(alias, Qt::CaseInsensitive) != 0) continue;
    salida.insert(salida.end(), f.columnas.begin(), f.columnas.end());
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

// A column that no row lacks needs no word about Nulls, and without one its index gives the order. Only the first
// table of a FROM is looked at: a join to the left leaves the others without rows.
bool Reescritor::nuncaNula(const Nodo& n, const Columna* deLista) const {
  const Ambito& a = ambitos_.back();
  if (!n.columna || a.primera || a.fuentes.empty() || !comunes_.empty()) return false;
  if (deLista && (a.fuentes.size() > 1 || !deLista->real || !deLista->noNula)) return false;
  for (size_t i = 0; i + 1 < t_.size(); ++i) {
    if (t_[i].es(u"FULL") || (t_[i].es(u"RIGHT") && !t_[i + 1].op(u"("))) return false;
  }
  const Fuente& f = a.fuentes.front();
  const bool sola = n.fin == n.ini + 1;
  if (!sola && (n.fin != n.ini + 3 || contenido(tk(n.ini)).compare(f.alias, Qt::CaseInsensitive) != 0)) return false;
  return std::any_of(f.columnas.begin(), f.columnas.end(), [&](const Columna& c) {
    return c.real && c.noNula && c.nombre.compare(n.nombre, Qt::CaseInsensitive) == 0;
  });
}

void Reescritor::ordenYGrupo(const std::vector<Columna>& salida) {
  const bool orden = es(u"ORDER");
  if (orden) ambito().orden = p_;
  else ambito().agrupado = true;
  const std::vector<Columna>* primera = ambito().primera;
  std::vector<Clave> claves;
  ++p_;
  come(u"BY");
  ambito().ligable = false;
  do {
    Nodo n = expresion();
    if (n.vacio()) return;
    if (orden) comoNumero(n);
    const Columna* c = orden ? columnaDeOrden(n, primera ? *primera : salida) : nullptr;
    claves.push_back({c && !primera ? static_cast<int>(c - salida.data()) : -1, n.ini, n.fin});
    bool pide = c ? c->tipo == Tipo::Texto : orden ? n.tipo == Tipo::Texto && n.literal < 0 : pideColacion(n);
    if (m_.tipado) pide = pide && orden && !c && !(n.columna && n.sinCaso);
    if (pide && m_.tipado) colacion(n);
    else if (pide) e_.despues(n.fin - 1, m_.colacion.toString());
    const bool baja = !come(u"ASC") && come(u"DESC");
    if (orden && !nuncaNula(n, c)) e_.despues(p_ - 1, (baja ? m_.nulosBaja : m_.nulosSube).toString());
  } while (comeOp(u","));
  if (orden) ambito().claves = std::move(claves);
}

// TOP becomes LIMIT behind the whole. What that can't tell is left to who reads the rows, of the outermost SELECT only.
void Reescritor::ponerTope(Tope tope, int ini, int lista, int desde) {
  const Ambito& a = ambito();
  const bool porciento = tope.porciento >= 0;
  const QString limite = m_.tope.toString() + QString::number(tope.filas);
  const bool sigueOtro = es(u"UNION") || es(u"EXCEPT") || es(u"INTERSECT");
  if (a.primera || sigueOtro) {  // of one SELECT among several; the last one's ORDER BY is of all
    if (porciento) error_ = kSoloFuera;
    e_.antes(ini, QStringLiteral("SELECT * FROM ("));
    e_.despues((a.orden > lista && !sigueOtro ? a.orden : p_) - 1,
               limite + u')' + m_.sinNombre.toString() + (m_.sinNombre.isEmpty() ? QString() : QString::number(ini)));
    return;
  }
  const bool fuera = std::any_of(a.claves.begin(), a.claves.end(), [](const Clave& k) { return k.columna < 0; });
  tope.empates = tope.empates && a.orden > lista && !(a.distinto && fuera);
  const bool deFuera = ini == 0 && tablaNueva_.isEmpty() && (tk(p_).tipo == TipoToken::Fin || tk(p_).op(u";"));
  if (!deFuera || !(tope.empates || porciento)) {
    if (porciento || (!jet_ && tope.empates)) error_ = kSoloFuera;
    e_.despues(p_ - 1, limite);
    return;
  }
  for (const Clave& k : a.claves) {
    if (tope.empates && k.columna < 0) e_.despues(desde - 1, QStringLiteral(", ") + e_.trozo(k.ini, k.fin));
    tope.claves.push_back(k.columna >= 0 ? k.columna : -++tope.agregadas);
  }
  if (!tope.empates) tope.agregadas = 0;
  if (!porciento) tope.limite = m_.tope.toString() + QString::number(tope.filas + 1);
  e_.despues(p_ - 1, tope.limite);
  tope_ = tope;
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
