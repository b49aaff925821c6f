#include "platform/sql/filas_postgres.h"

#include <libpq-fe.h>

#include <charconv>
#include <cmath>

#include "platform/sql/instante.h"

namespace {

constexpr qsizetype kCeldasMaximas = 20'000'000;  // some 500 MB

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
CeldaBD fecha(const char* t, int largo) {
  if (largo < 10 || t[4] != '-') return CeldaBD(QByteArrayView(t, largo));
  const QDate d(cifras(t, 4), cifras(t + 5, 2), cifras(t + 8, 2));
  const QTime h = largo >= 19 ? QTime(cifras(t + 11, 2), cifras(t + 14, 2), cifras(t + 17, 2)) : QTime(0, 0);
  if (!d.isValid() || !h.isValid()) return CeldaBD(QByteArrayView(t, largo));
  return CeldaBD::fecha(d, h);
}

template <class T>
T leido(const char* t, int largo) {
  T n = 0;
  std::from_chars(t, t + largo, n);
  return n;
}

// A number that the embedded engine would hold whole if it is.
CeldaBD numero(double x, bool real) {
  constexpr double kExacto = 9e15;
  if (real || std::fabs(x) > kExacto || x != std::trunc(x)) return CeldaBD(x);
  return CeldaBD(static_cast<qint64>(x));
}

CeldaBD celda(const PGresult* r, int fila, int columna, Oid tipo, Tipo sabido) {
  if (PQgetisnull(r, fila, columna) != 0) return {};
  const char* t = PQgetvalue(r, fila, columna);
  const int largo = PQgetlength(r, fila, columna);
  switch (tipo) {
    case kBool: return CeldaBD(static_cast<qint64>(t[0] == 't'));
    case kInt2:
    case kInt4:
    case kInt8:
    case kOid: return CeldaBD(leido<qint64>(t, largo));
    case kFloat4:
    case kFloat8: return CeldaBD(leido<double>(t, largo));
    case kNumeric: return numero(leido<double>(t, largo), sabido == Tipo::Real);
    case kDate:
    case kTimestamp:
    case kTimestampTz: return fecha(t, largo);
    default: return CeldaBD(QByteArrayView(t, largo));
  }
}

}  // namespace

std::optional<QByteArray> enTexto(const QVariant& v) {
  switch (v.typeId()) {
    case QMetaType::UnknownType: return {};
    case QMetaType::LongLong: {
      char cifras[24];
      return QByteArray(cifras, std::to_chars(cifras, std::end(cifras), v.toLongLong()).ptr - cifras);
    }
    case QMetaType::Double: return QByteArray::number(v.toDouble(), 'g', QLocale::FloatingPointShortest);
    default: return v.toString().toUtf8();
  }
}

void FilasPostgres::mirarColumnas(const PGresult* r) {
  const int columnas = PQnfields(r);
  QStringList campos;
  const int sabidas = salida_ ? static_cast<int>(salida_->size()) : 0;
  const bool conTipos = sabidas == columnas - agregadas_;
  for (int i = 0; i < columnas; ++i) {
    const Columna* c = conTipos && i < sabidas ? &(*salida_)[static_cast<size_t>(i)] : nullptr;
    campos << (c ? c->nombre : QString::fromUtf8(PQfname(r, i)));
    tipos_.emplace_back(PQftype(r, i), c ? c->tipo : Tipo::Desconocido);
  }
  leidas_.nuevo(campos);
}

bool FilasPostgres::tomar(const PGresult* r) {
  if (tipos_.empty()) mirarColumnas(r);
  const int n = PQntuples(r);
  if ((leidas_.RecordCount() + n) * static_cast<qsizetype>(tipos_.size()) > kCeldasMaximas) return false;
  for (int f = 0; f < n; ++f) {
    for (int i = 0; i < static_cast<int>(tipos_.size()); ++i) {
      const auto& [tipo, sabido] = tipos_[static_cast<size_t>(i)];
      leidas_.poner(celda(r, f, i, tipo, sabido));
    }
  }
  return true;
}

void FilasPostgres::dejar(const PGresult* ultimo, Recordset& rs) {
  if (PQnfields(ultimo) == 1 && PQftype(ultimo, 0) == kVoid) return rs.llenar({}, {});  // a function that gives nothing
  tomar(ultimo);
  rs = std::move(leidas_);
}
