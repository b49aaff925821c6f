#include "platform/sql/formas.h"

namespace {

// What of a literal decides the rewriting: its kind, and for a text whether NOCASE reaches all of its letters.
QChar marca(const Token& t) {
  if (t.tipo == TipoToken::Fecha) return u'D';
  if (t.tipo == TipoToken::Numero) {
    return leerNumero(t.texto.toString()).typeId() == QMetaType::LongLong ? u'N' : u'R';
  }
  for (const QChar c : t.texto) {
    if (c.unicode() >= 0x80) return u'U';
  }
  return u'T';
}

}  // namespace

QString Formas::clave(QStringView sql, const std::vector<Token>& tokens, const std::vector<int>& fijos) {
  QString k;
  k.reserve(sql.size() + 16);
  qsizetype hasta = 0;
  int n = 0;
  size_t f = 0;
  for (const Token& t : tokens) {
    if (!t.literal()) continue;
    k += sql.mid(hasta, t.ini - hasta);
    k += QChar(1);
    k += marca(t);
    if (f < fijos.size() && fijos[f] == n) {
      k += t.texto;
      ++f;
    }
    ++n;
    hasta = t.ini + t.largo;
  }
  k += sql.mid(hasta);
  return k;
}

const std::vector<int>* Formas::fijos(const QString& forma) const {
  const auto i = fijos_.constFind(forma);
  return i == fijos_.constEnd() ? nullptr : &*i;
}

void Formas::recordarFijos(const QString& forma, std::vector<int> fijos) {
  if (fijos_.size() > static_cast<qsizetype>(4 * tope_)) fijos_.clear();
  fijos_.insert(forma, std::move(fijos));
}

std::shared_ptr<Preparada> Formas::buscar(const QString& clave) {
  const auto i = por_clave_.constFind(clave);
  if (i == por_clave_.constEnd()) return {};
  recientes_.splice(recientes_.begin(), recientes_, *i);
  return (*i)->second;
}

void Formas::guardar(const QString& clave, std::shared_ptr<Preparada> p) {
  if (const auto i = por_clave_.constFind(clave); i != por_clave_.constEnd()) {
    recientes_.erase(*i);
    por_clave_.remove(clave);
  }
  recientes_.emplace_front(clave, std::move(p));
  por_clave_.insert(clave, recientes_.begin());
  if (recientes_.size() > tope_) {
    por_clave_.remove(recientes_.back().first);
    recientes_.pop_back();
  }
}

void Formas::vaciar() {
  recientes_.clear();
  por_clave_.clear();
  fijos_.clear();
}
