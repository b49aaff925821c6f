#pragma once
// The numbers that decide a day out of a seed. The same seed gives the same day on every machine, so none of the
// library's own.
#include <cstdint>
#include <vector>

class Azar {
 public:
  explicit Azar(std::uint64_t semilla) : estado_(semilla) {}

  // From `a` to `b`, both included.
  int entre(int a, int b) { return a + static_cast<int>(siguiente() % static_cast<std::uint64_t>(b - a + 1)); }
  // True once in `n` times.
  bool unoDe(int n) { return entre(1, n) == 1; }
  template <class T>
  const T& de(const std::vector<T>& lista) {
    return lista[static_cast<size_t>(entre(0, static_cast<int>(lista.size()) - 1))];
  }

 private:
  std::uint64_t siguiente() {
    std::uint64_t z = estado_ += 0x9E3779B97F4A7C15u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }
  std::uint64_t estado_;
};
