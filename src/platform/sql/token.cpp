#include "platform/sql/token.h"

#include <array>

namespace {

// Most signs are ASCII, and told by one look.
enum : quint8 { kLetra = 1, kDigito = 2, kBlanco = 4 };
constexpr auto kClases = [] {
  std::array<quint8, 128> clases{};
  for (char c = 'a'; c <= 'z'; ++c) clases[static_cast<size_t>(c)] = clases[static_cast<size_t>(c - 32)] = kLetra;
  for (const char c : {'_', '@', '$'}) clases[static_cast<size_t>(c)] = kLetra;
  for (char c = '0'; c <= '9'; ++c) clases[static_cast<size_t>(c)] = kDigito;
  for (const char c : {' ', '\t', '\n', '\v', '\f', '\r'}) clases[static_cast<size_t>(c)] = kBlanco;
  return clases;
}();
bool esDe(QChar c, int clases) { return (kClases[c.unicode()] & clases) != 0; }
bool ascii(QChar c) { return c.unicode() < kClases.size(); }
bool esLetra(QChar c) { return ascii(c) ? esDe(c, kLetra) : c.isLetter() || c.isSurrogate(); }
bool esDigito(QChar c) { return ascii(c) && esDe(c, kDigito); }
bool esBlanco(QChar c) { return ascii(c) ? esDe(c, kBlanco) : c.isSpace(); }
bool sigueNombre(QChar c) { return ascii(c) ? esDe(c, kLetra | kDigito) : esLetra(c); }

// The operators of two signs.
bool esPar(QChar a, QChar b) {
  if (b == u'=') return a == u'<' || a == u'>' || a == u'!' || a == u'=';
  if (b == u'>') return a == u'<' || a == u'!';
  return (a == u'|' && b == u'|') || (a == u'!' && b == u'<');
}

class Lector {
 public:
  Lector(QStringView s, Dialecto d) : s_(s), jet_(d == Dialecto::Jet) {}

  std::vector<Token> leer() {
    std::vector<Token> sale;
    sale.reserve(static_cast<size_t>(s_.size() / 4 + 2));
    while (saltar()) sale.push_back(uno());
    Token fin;
    fin.ini = s_.size();
    fin.abierto = comentarioAbierto_;
    sale.push_back(fin);
    return sale;
  }

 private:
  QChar en(qsizetype k) const { return k < s_.size() ? s_[k] : QChar(0); }

  // Blanks and, where the dialect has them, comments. False at the end.
  bool saltar() {
    while (i_ < s_.size()) {
      if (esBlanco(s_[i_])) {
        ++i_;
      } else if (!jet_ && s_[i_] == u'-' && en(i_ + 1) == u'-') {
        const qsizetype fin = s_.indexOf(u'\n', i_);
        i_ = fin < 0 ? s_.size() : fin + 1;
      } else if (!jet_ && s_[i_] == u'/' && en(i_ + 1) == u'*') {
        const qsizetype fin = s_.indexOf(QStringView(u"*/"), i_ + 2);
        comentarioAbierto_ = fin < 0;
        i_ = fin < 0 ? s_.size() : fin + 2;
      } else {
        return true;
      }
    }
    return false;
  }

  Token hasta(TipoToken tipo, qsizetype fin, bool abierto = false) {
    Token t;
    t.tipo = tipo;
    t.ini = i_;
    t.largo = fin - i_;
    t.texto = s_.mid(i_, t.largo);
    t.abierto = abierto;
    i_ = fin;
    return t;
  }

  // A quoted run that begins at `desde`; the closing sign written twice stands for itself.
  Token citado(TipoToken tipo, qsizetype desde, QChar cierra) {
    for (qsizetype k = desde + 1; k < s_.size(); ++k) {
      if (s_[k] != cierra) continue;
      if (en(k + 1) == cierra) {
        ++k;
        continue;
      }
      return hasta(tipo, k + 1);
    }
    return hasta(tipo, s_.size(), true);
  }

  // A date closes within a few characters; a lone number sign is an operator.
  bool cierraFecha(qsizetype& fin) const {
    for (qsizetype k = i_ + 1; k < s_.size() && k - i_ < 40; ++k) {
      if (s_[k] == u'#') {
        fin = k + 1;
        return k > i_ + 1;
      }
      if (s_[k] == u'\'' || s_[k] == u'"') return false;
    }
    return false;
  }

  Token numero() {
    qsizetype k = i_;
    while (esDigito(en(k))) ++k;
    if (en(k) == u'.') {
      ++k;
      while (esDigito(en(k))) ++k;
    }
    if (en(k) == u'e' || en(k) == u'E') {
      const qsizetype signo = en(k + 1) == u'+' || en(k + 1) == u'-' ? k + 2 : k + 1;
      if (esDigito(en(signo))) {
        k = signo;
        while (esDigito(en(k))) ++k;
      }
    }
    if (!sigueNombre(en(k))) return hasta(TipoToken::Numero, k);
    while (sigueNombre(en(k))) ++k;  // "5abc" is neither number nor name
    return hasta(TipoToken::Operador, k);
  }

  Token uno() {
    const QChar c = s_[i_];
    if (c == u'\'') return citado(TipoToken::Texto, i_, u'\'');
    if (c == u'"') return citado(jet_ ? TipoToken::Texto : TipoToken::NombreCitado, i_, u'"');
    if (c == u'[') return citado(TipoToken::NombreCitado, i_, u']');
    if (c == u'`') return citado(TipoToken::NombreCitado, i_, u'`');
    if (!jet_ && (c == u'N' || c == u'n') && en(i_ + 1) == u'\'') return citado(TipoToken::Texto, i_ + 1, u'\'');
    qsizetype fin = 0;
    if (jet_ && c == u'#' && cierraFecha(fin)) return hasta(TipoToken::Fecha, fin);
    if (esDigito(c) || (c == u'.' && esDigito(en(i_ + 1)))) return numero();
    if (esLetra(c) || (!jet_ && c == u'#')) {
      qsizetype k = i_ + 1;
      while (sigueNombre(en(k))) ++k;
      return hasta(TipoToken::Nombre, k);
    }
    return hasta(TipoToken::Operador, i_ + (esPar(c, en(i_ + 1)) ? 2 : 1));
  }

  QStringView s_;
  bool jet_;
  qsizetype i_ = 0;
  bool comentarioAbierto_ = false;
};

}  // namespace

std::vector<Token> separar(QStringView sql, Dialecto dialecto) { return Lector(sql, dialecto).leer(); }

QString contenido(const Token& token) {
  QStringView t = token.texto;
  if (token.tipo == TipoToken::Texto && !t.isEmpty() && (t[0] == u'N' || t[0] == u'n')) t = t.mid(1);
  if (token.tipo != TipoToken::Texto && token.tipo != TipoToken::Fecha && token.tipo != TipoToken::NombreCitado) {
    return t.toString();
  }
  if (t.size() < 2) return QString();
  const QChar cierra = t[0] == u'[' ? QChar(u']') : t[0];
  QString dentro = t.mid(1, t.size() - (token.abierto ? 1 : 2)).toString();
  if (token.tipo != TipoToken::Fecha && dentro.contains(cierra)) dentro.replace(QString(2, cierra), QString(cierra));
  return dentro;
}
