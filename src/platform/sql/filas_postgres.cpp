#include "platform/sql/filas_postgres.h"

#include <libpq-fe.h>

#include <cmath>

#include "platform/sql/instante.h"

namespace {

enum TipoPostgres : Oid {
  kBool = 16,
  kInt8 = 20,
  kInt2 = 21,
  kInt4 = 23,
  kOid = 26,
  kFloat4 = 700,
  kFloat8 = 701,
  kDate = 1082,
  kTimestamp = 1114,
  kTimestampTz = 1184,
  kNumeric = 1700,
  kVoid = 2278
};

int cifras(const char* t, int n) {
  int v = 0;
  for (int i = 0; i < n; ++i) v = v * 10 + (t[i] - '0');
  return v;
}

// "YYYY-MM-DD" or "YYYY-MM-DD hh:mm:ss", as the server writes it.
QVariant fecha(const char* t, int largo) {
  if (largo < 10 || t[4] != '-') return QString::fromUtf8(t, largo);
  const QDate d(cifras(t, 4), cifras(t + 5, 2), cifras(t + 8, 2));
  const QTime h = largo >= 19 ? QTime(cifras(t + 11, 2), cifras(t + 14, 2), cifras(t + 17, 2)) : QTime(0, 0);
  if (!d.isValid() || !h.isValid()) return QString::fromUtf8(t, largo);
  return QDateTime(d, h);
}

// A number that the embedded engine would hold whole if it is.
QVariant numero(const QByteArray& t, bool real) {
  const double x = t.toDouble();
  constexpr double kExacto = 9e15;
  if (real || std::fabs(x) > kExacto || x != std::trunc(x)) return x;
  return static_cast<qint64>(x);
}

QVariant celda(const PGresult* r, int fila, int columna, Oid tipo, Tipo sabido) {
  if (PQgetisnull(r, fila, columna) != 0) return {};
  const char* t = PQgetvalue(r, fila, columna);
  const int largo = PQgetlength(r, fila, columna);
  const QByteArray bytes = QByteArray::fromRawData(t, largo);
  switch (tipo) {
    case kBool: return static_cast<qint64>(t[0] == 't');
    case kInt2:
    case kInt4:
    case kInt8:
    case kOid: return bytes.toLongLong();
    case kFloat4:
    case kFloat8: return bytes.toDouble();
    case kNumeric: return numero(bytes, sabido == Tipo::Real);
    case kDate:
    case kTimestamp:
    case kTimestampTz: return fecha(t, largo);
    default: return QString::fromUtf8(t, largo);
  }
}

}  // namespace

void LlenarDe(const PGresult* r, const std::vector<Columna>& salida, int agregadas, Recordset& rs) {
  const int columnas = PQnfields(r);
  if (columnas == 1 && PQftype(r, 0) == kVoid) return rs.llenar({}, {});  // a function that gives nothing
  const bool conTipos = static_cast<int>(salida.size()) == columnas - agregadas;
  QStringList campos;
  std::vector<Oid> tipos;
  std::vector<Tipo> sabidos;
  for (int i = 0; i < columnas; ++i) {
    const Columna* c = conTipos && i < static_cast<int>(salida.size()) ? &salida[static_cast<size_t>(i)] : nullptr;
    campos << (c ? c->nombre : QString::fromUtf8(PQfname(r, i)));
    tipos.push_back(PQftype(r, i));
    sabidos.push_back(c ? c->tipo : Tipo::Desconocido);
  }
  const int n = PQntuples(r);
  std::vector<std::vector<QVariant>> filas(static_cast<size_t>(n));
  for (int f = 0; f < n; ++f) {
    auto& fila = filas[static_cast<size_t>(f)];
    fila.reserve(static_cast<size_t>(columnas));
    for (int i = 0; i < columnas; ++i) {
      fila.push_back(celda(r, f, i, tipos[static_cast<size_t>(i)], sabidos[static_cast<size_t>(i)]));
    }
  }
  rs.llenar(campos, std::move(filas));
}
