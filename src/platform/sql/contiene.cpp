#include "platform/sql/contiene.h"

#include <algorithm>
#include <array>

namespace {

using Byte = unsigned char;

constexpr Byte kLatin = 0xC3;   // in front of the letters of Latin-1
constexpr Byte kSignos = 0xC2;  // in front of its signs

Byte minuscula(Byte b) { return b >= 'A' && b <= 'Z' ? static_cast<Byte>(b + 0x20) : b; }

// The second byte of an accented capital (À to Þ, but not the sign of multiplication) becomes its small letter's.
Byte latinMinuscula(Byte b) { return b >= 0x80 && b <= 0x9E && b != 0x97 ? static_cast<Byte>(b + 0x20) : b; }

// Folds `texto` into `a`, which has room for it. False for letters beyond Latin-1.
bool plegar(std::string_view texto, char* a) {
  Byte todos = 0, antes = 0;
  for (size_t i = 0; i < texto.size(); ++i) {  // plain ASCII, as nearly all texts are: without a branch
    const Byte b = static_cast<Byte>(texto[i]);
    todos |= b;
    a[i] = static_cast<char>(b + (static_cast<Byte>(b - 'A') < 26 ? 0x20 : 0));
  }
  if (todos < 0x80) return true;
  for (const char c : texto) {
    Byte b = static_cast<Byte>(c);
    if (b < 0x80) b = minuscula(b);
    else if (antes == kLatin) b = latinMinuscula(b);
    else if (b >= 0xC0 && b != kLatin && b != kSignos) return false;
    antes = b;
    *a++ = static_cast<char>(b);
  }
  return true;
}

}  // namespace

std::optional<Contiene> Contiene::de(std::string_view patron, std::string_view especiales) {
  if (patron.size() < 2 || patron.front() != '%' || patron.back() != '%') return {};
  const std::string_view medio = patron.substr(1, patron.size() - 2);
  // A sign such as µ folds to a letter elsewhere; left to the general matcher.
  if (medio.find_first_of(especiales) != medio.npos || medio.find('\xC2') != medio.npos) return {};
  Contiene c;
  c.buscado_.resize(medio.size());
  if (!plegar(medio, c.buscado_.data())) return {};
  return c;
}

std::optional<bool> Contiene::en(std::string_view texto) const {
  constexpr size_t kCorto = 256;
  std::array<char, kCorto> corto;
  std::string largo;
  if (texto.size() > kCorto) largo.resize(texto.size());
  char* a = texto.size() > kCorto ? largo.data() : corto.data();
  if (!plegar(texto, a)) return {};
  return std::string_view(a, texto.size()).find(buscado_) != std::string_view::npos;
}

std::optional<int> compararAscii(std::string_view a, std::string_view b) {
  const size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    const Byte x = static_cast<Byte>(a[i]), y = static_cast<Byte>(b[i]);
    if ((x | y) >= 0x80) return {};
    const int d = minuscula(x) - minuscula(y);
    if (d != 0) return d;
  }
  return static_cast<int>(a.size()) - static_cast<int>(b.size());
}
