#pragma once
// The pattern that searches use nearly always, "%text%", without the general matcher's cost.
#include <optional>
#include <string>
#include <string_view>

// UTF-8 throughout. Case doesn't count, by the same folding as in the general matcher.
class Contiene {
 public:
  // Nothing for a pattern of any other shape, and for letters beyond Latin-1. `especiales` are the dialect's wildcards.
  static std::optional<Contiene> de(std::string_view patron, std::string_view especiales);

  // Nothing for a text with letters beyond Latin-1, whose folding is the general matcher's business.
  std::optional<bool> en(std::string_view texto) const;

 private:
  std::string buscado_;
};

// Negative, zero or positive, case aside; nothing when letters beyond ASCII stand before the first that differs.
std::optional<int> compararAscii(std::string_view a, std::string_view b);
