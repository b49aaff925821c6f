#include "platform/sql/formas.h"

#include <algorithm>

namespace {

// What of a literal decides the rewriting: its kind, and for a text whether NOCASE reaches all of its letters.
QChar marca(const Token& t) {
  if (t.tipo == TipoToken::Fecha) return u'D';
  if (t.tipo == TipoToken::Numero) {
    constexpr qsizetype kSeguras = 18;  // so many figures are a whole number that is held as one
    bool cifras = t.texto.size() <= kSeguras;
    for (const QChar c : t.texto) cifras = cifras && c >= u'0' && c <= u'9';
    if (cifras) return u'N';
    return leerNumero(t.texto.toString()).typeId() == QMetaType::LongLong ? u'N' : u'R';
  }
  // ... and whether it may be a pattern that begins with its text.
  const qsizetype comilla = t.texto.size() > 1 && t.texto[0] != u'\'' && t.texto[0] != u'"' ? 2 : 1;
  const bool comodin = t.texto.size() > comilla && QStringView(u"%*_?#[").contains(t.texto[comilla]);
  for (const QChar c : t.texto) {
    if (c.unicode() >= 0x80) return comodin ? u'V' : u'U';
  }
  return comodin ? u'P' : u'T';
}

}  // namespace

QString ClaveDeForma(QStringView sql, const std::vector<Token>& tokens, const std::vector<int>& fijos) {
  QString k(sql.size() + 2 * static_cast<qsizetype>(tokens.size()), Qt::Uninitialized);
  QChar* fin = k.data();
  const auto pegar = [&fin](QStringView t) { fin = std::copy(t.begin(), t.end(), fin); };
  qsizetype hasta = 0;
  int n = 0;
  size_t f = 0;
  for (const Token& t : tokens) {
    if (!t.literal()) continue;
    pegar(sql.mid(hasta, t.ini - hasta));
    *fin++ = QChar(1);
    *fin++ = marca(t);
    if (f < fijos.size() && fijos[f] == n) {
      pegar(t.texto);
      ++f;
    }
    ++n;
    hasta = t.ini + t.largo;
  }
  pegar(sql.mid(hasta));
  k.truncate(fin - k.constData());
  return k;
}
