#include "platform/text/texto.h"

#include <algorithm>
#include <array>

namespace {

// Windows-1252 from 0x80 to 0x9F; the rest of the code page is Latin-1. 0 marks a byte without a character.
constexpr std::array<char16_t, 32> kAltos = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                             0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// The place of a letter in the alphabet: accents aside, Ñ between N and O.
int ordenDeLetra(QChar c) {
  const QChar m = c.toLower();
  if (m == u'ñ') return u'n' * 2 + 1;
  const QString base = m.decomposition();
  return (base.isEmpty() ? m.unicode() : base.at(0).unicode()) * 2;
}

// Long lists are sorted by names: the letters that those have are looked up once.
int orden(QChar c) {
  static const auto latinas = [] {
    std::array<int, 0x250> lugares{};
    for (char16_t letra = 0; letra < lugares.size(); ++letra) lugares[letra] = ordenDeLetra(letra);
    return lugares;
  }();
  return c.unicode() < latinas.size() ? latinas[c.unicode()] : ordenDeLetra(c);
}

}  // namespace

QString Izquierda(const QString& texto, int n) { return n <= 0 ? QString() : texto.left(n); }

QString Derecha(const QString& texto, int n) { return n <= 0 ? QString() : texto.right(n); }

QString Rellenar(const QString& texto, int largo, QChar caracter) {
  return texto.rightJustified(largo, caracter, false);
}

QString Espacios(int n) { return QString(std::max(n, 0), u' '); }

QString Recortar(const QString& texto) {
  qsizetype i = 0;
  qsizetype j = texto.size();
  while (i < j && texto[i] == u' ') ++i;
  while (j > i && texto[j - 1] == u' ') --j;
  return texto.mid(i, j - i);
}

QString Ceros(const QString& texto, int largo) { return Derecha(QString(largo, u'0') + texto, largo); }

QByteArray AUnByte(const QString& texto) {
  QByteArray sale(texto.size(), Qt::Uninitialized);
  char* s = sale.data();
  for (qsizetype i = 0; i < texto.size(); ++i) {
    const char16_t c = texto[i].unicode();
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
      *s++ = static_cast<char>(c);
      continue;
    }
    if (texto[i].isHighSurrogate()) {  // one character of two units is one "?"
      if (i + 1 < texto.size() && texto[i + 1].isLowSurrogate()) ++i;
      *s++ = '?';
      continue;
    }
    const auto p = std::find(kAltos.begin(), kAltos.end(), c);
    if (p != kAltos.end()) {
      *s++ = static_cast<char>(0x80 + (p - kAltos.begin()));
    } else {
      const bool sinCaracter = c >= 0x80 && c < 0xA0 && kAltos[c - 0x80] == 0;
      *s++ = sinCaracter ? static_cast<char>(c) : '?';
    }
  }
  sale.truncate(s - sale.constData());
  return sale;
}

QString DeUnByte(const QByteArray& bytes) {
  QString sale;
  sale.reserve(bytes.size());
  for (char b : bytes) {
    const auto u = static_cast<unsigned char>(b);
    const char16_t alto = u >= 0x80 && u < 0xA0 ? kAltos[u - 0x80] : 0;
    sale += QChar(alto != 0 ? alto : char16_t(u));
  }
  return sale;
}

int CompararEspanol(const QString& a, const QString& b) {
  const qsizetype n = std::min(a.size(), b.size());
  for (qsizetype i = 0; i < n; ++i) {
    if (a[i] == b[i]) continue;
    const int d = orden(a[i]) - orden(b[i]);
    if (d != 0) return d;
  }
  return static_cast<int>(a.size() - b.size());
}
