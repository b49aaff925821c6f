// UPDATE and DELETE, also those that find their rows through a join. The engine joins in a SELECT of its own, which
// gives the rows to change and their new values: there every name means what it meant in the dialect's statement.
#include "platform/sql/reescritor.h"

const Reescritor::Fuente* Reescritor::fuenteLlamada(const QString& nombre) const {
  const auto& todas = ambito().fuentes;
  for (const Fuente& f : todas) {
    if (f.alias.compare(nombre, Qt::CaseInsensitive) == 0) return &f;
  }
  for (const Fuente& f : todas) {
    if (!f.tabla.isEmpty() && f.tabla.compare(nombre, Qt::CaseInsensitive) == 0) return &f;
  }
  return nullptr;
}

// The table of the column that is set at token `i`; null for none.
const Reescritor::Fuente* Reescritor::fuenteDeColumna(int i) const {
  if (tk(i + 1).op(u".")) {
    while (tk(i + 3).op(u".")) i += 2;
    return fuenteLlamada(contenido(tk(i)));
  }
  for (const Fuente& f : ambito().fuentes) {
    for (const Columna& c : f.columnas) {
      if (c.nombre.compare(contenido(tk(i)), Qt::CaseInsensitive) == 0) return &f;
    }
  }
  return nullptr;
}

// Reads the tables that stand beside the one to change, before SET in Jet and behind it in T-SQL. False for none.
bool Reescritor::fuentesDeCambio(int ini, const QString& nombre) {
  if (jet_) {
    if (es(u"SET")) return false;
    p_ = ini;
    ambito().fuentes.clear();
    fuentes();
    return true;
  }
  const int lista = p_;
  const int desde = buscarDesde(p_);
  if (!tk(desde).es(u"FROM")) return false;
  std::vector<Fuente> sola = std::move(ambito().fuentes);
  ambito().fuentes.clear();
  p_ = desde + 1;
  fuentes();
  p_ = lista;
  if (fuenteLlamada(nombre)) return true;
  auto& todas = ambito().fuentes;  // a table apart from those behind FROM, as the engine has it too
  todas.insert(todas.begin(), sola.begin(), sola.end());
  return false;
}

// What tells a row of a table from all others.
QList<QStringView> Reescritor::columnasDeFila() const {
  QList<QStringView> columnas{m_.fila};
  if (!m_.parte.isEmpty()) columnas.prepend(m_.parte);
  return columnas;
}

void Reescritor::actualizar() {
  const int verbo = p_++;
  ambitos_.emplace_back();
  const int ini = p_;
  const QString nombre = nombreDeTabla();
  agregarFuente(nombre, aliasDeFuente(true));
  const bool junta = fuentesDeCambio(ini, nombre);
  const int set = p_;
  if (!come(u"SET")) return;
  ambito().ligable = true;
  const Fuente* destino = !junta ? fuenteLlamada(nombre) : jet_ ? fuenteDeColumna(p_) : fuenteLlamada(nombre);
  if (junta && (!destino || destino->tabla.isEmpty())) {
    rendido_ = true;
    return;
  }
  const Fuente elegida = destino ? *destino : Fuente();
  const QStringList pone = asignaciones(destino ? &elegida : nullptr, junta);
  const int ultima = p_ - 1;
  if (come(u"FROM")) {
    const auto conocidas = ambito().fuentes;
    fuentes();
    ambito().fuentes = conocidas;
  }
  clausulas();
  if (!junta || rendido_) return;

  QString busca, cierra;
  for (const QStringView columna : columnasDeFila()) {
    busca += QStringLiteral("%1.%2 AS fila_%2,").arg(m_.citado(elegida.alias), columna);
    cierra += QStringLiteral("%1 %2.%3 = tp_cambio.fila_%3")
                  .arg(cierra.isEmpty() ? QStringLiteral(") AS tp_cambio WHERE") : QStringLiteral(" AND"),
                       m_.citado(elegida.tabla), columna);
  }
  e_.reemplazar(
      verbo, QStringLiteral("UPDATE %1 SET %2 FROM (SELECT %3").arg(m_.citado(elegida.tabla), pone.join(u','), busca));
  const bool sinMas = p_ - 1 == ultima;  // no WHERE: what closes it stands behind the tables that were moved
  if (jet_) {
    e_.antes(ini, QStringLiteral(" FROM "));
    e_.mover(ini, set, ultima, sinMas ? cierra : QString());
  } else {
    for (int i = ini; i < set; ++i) e_.borrar(i);
  }
  e_.borrar(set);
  if (!jet_ || !sinMas) e_.despues(p_ - 1, cierra);
}

// The list behind SET. With a join each value is a column of the SELECT, and what sets the table's comes back.
QStringList Reescritor::asignaciones(const Fuente* destino, bool junta) {
  QStringList pone;
  do {
    if (junta && fuenteDeColumna(p_) && fuenteDeColumna(p_)->alias != destino->alias) rendido_ = true;
    while (tk(p_ + 1).op(u".") && tk(p_).nombre()) {  // no prefix before the column that is set
      e_.borrar(p_);
      e_.borrar(p_ + 1);
      p_ += 2;
    }
    if (!tk(p_).nombre() || !tk(p_ + 1).op(u"=")) break;
    const QString col = contenido(tk(p_));
    nombrar(p_);
    if (junta) {
      e_.borrar(p_);
      e_.borrar(p_ + 1);
    }
    p_ += 2;
    Nodo valor = expresion();
    if (valor.vacio()) continue;
    for (size_t i = 0; destino && i < destino->columnas.size(); ++i) {
      const Columna& c = destino->columnas[i];
      if (c.nombre.compare(col, Qt::CaseInsensitive) != 0) continue;
      asignar(c, valor);
      if (junta && m_.tipado && valor.tipo == Tipo::Nulo)
        e_.despues(valor.fin - 1, QStringLiteral("::") + m_.tipo(c.tipo).toString());
    }
    if (!junta) continue;
    const QString v = QStringLiteral("v%1").arg(pone.size() + 1);
    e_.despues(valor.fin - 1, QStringLiteral(" AS ") + v);
    pone << m_.citado(col) + QStringLiteral(" = tp_cambio.") + v;
  } while (comeOp(u","));
  return pone;
}

void Reescritor::borrarFilas() {
  const int verbo = p_++;
  ambitos_.emplace_back();
  if (jet_ && es(u"DISTINCTROW")) e_.borrar(p_++);
  const int ini = p_;
  QString pedida;
  if (tk(p_).op(u"*")) {
    e_.borrar(p_++);
  } else if (tk(p_).nombre() && tk(p_ + 1).op(u".") && tk(p_ + 2).op(u"*")) {
    pedida = contenido(tk(p_));
    for (int i = 0; i < 3; ++i) e_.borrar(p_++);
  }
  const bool conFrom = come(u"FROM");
  const int nombreEn = p_;
  const QString nombre = nombreDeTabla();
  const QString alias = aliasDeFuente(true);
  bool junta = false;
  if (jet_) {
    junta = sigueJuntura() || tk(p_).op(u",") || nombre.isEmpty();
    if (junta) p_ = nombreEn;
  } else {
    junta = es(u"FROM");
    if (junta) ++p_;
    pedida = nombre;
  }
  if (!junta) {
    if (!conFrom && !nombre.isEmpty()) e_.antes(nombreEn, QStringLiteral("FROM "));
    agregarFuente(nombre, alias);
    clausulas();
    return;
  }
  const int tablas = p_;
  fuentes();
  const Fuente* f = fuenteLlamada(pedida);
  if (!f || f->tabla.isEmpty()) return;
  QStringList una, otra;
  for (const QStringView columna : columnasDeFila()) {
    una << columna.toString();
    otra << m_.citado(f->alias) + u'.' + columna.toString();
  }
  e_.reemplazar(verbo, QStringLiteral("DELETE FROM %1 WHERE (%2) IN (SELECT %3")
                           .arg(m_.citado(f->tabla), una.join(u','), otra.join(u',')));
  for (int i = ini; i < tablas - 1; ++i) {  // all but the FROM that leads the tables
    if (!jet_) e_.borrar(i);
  }
  clausulas();
  e_.despues(p_ - 1, QStringLiteral(")"));
}
