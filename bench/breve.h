#pragma once
// What all measurements share.
//
// The short run that the tests make of each measurement, so that none rots: TARVOPOS_BREVE asks for one turn over
// little data. Its figures mean nothing.
#include <QString>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

inline bool breve() { return qEnvironmentVariableIsSet("TARVOPOS_BREVE"); }
inline int vueltas(int n) { return breve() ? 1 : n; }
inline qint64 filas(qint64 n) { return breve() ? qMin<qint64>(n, 500) : n; }

// Ends the program: a measurement of something else than was meant is worth nothing.
[[noreturn]] inline void romper(const char* que, const QString& detalle = {}) {
  std::fprintf(stderr, "%s: %s\n", que, qPrintable(detalle));
  std::exit(1);
}

// Of this process.
inline double procesador_us() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e6 + static_cast<double>(t.tv_nsec) / 1e3;
}

inline double mediana(std::vector<double>& v) {
  std::nth_element(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(v.size() / 2), v.end());
  return v[v.size() / 2];
}
