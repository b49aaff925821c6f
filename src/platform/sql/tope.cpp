#include "platform/sql/tope.h"

#include <algorithm>
#include <cmath>

#include "platform/sql/comparacion.h"

std::optional<ErrorBD> DejarTope(const FormaEscrita& forma, Dialecto dialecto, Recordset& rs,
                                 const std::function<std::optional<ErrorBD>(const QByteArray&)>& todas) {
  const Tope& t = forma.tope;
  const int visibles = static_cast<int>(rs.campos().size()) - t.agregadas;
  const bool seSabe = static_cast<int>(forma.salida.size()) == visibles;
  const auto iguales = [&](qsizetype a, qsizetype b) {
    return std::all_of(t.claves.begin(), t.claves.end(), [&](int k) {
      if (k >= 0 && !seSabe) return false;
      const int columna = k >= 0 ? k : visibles - 1 - k;
      const QVariant x = Recordset::Fila(rs, a)[columna], y = Recordset::Fila(rs, b)[columna];
      if (x.typeId() != QMetaType::QString || y.typeId() != QMetaType::QString) return x == y;
      return compararTextosSql(x.toString(), y.toString(), dialecto == Dialecto::TSql) == 0;
    });
  };
  if (t.empates && t.filas > 0 && rs.RecordCount() > t.filas && iguales(t.filas - 1, t.filas)) {
    if (auto e = todas(forma.texto.left(forma.texto.lastIndexOf(t.limite.toUtf8())))) return e;
  }
  const double parte = std::ceil(static_cast<double>(rs.RecordCount()) * std::clamp(t.porciento, 0.0, 100.0) / 100);
  qsizetype quedan = std::min<qsizetype>(rs.RecordCount(), t.filas >= 0 ? t.filas : static_cast<qsizetype>(parte));
  while (t.empates && quedan > 0 && quedan < rs.RecordCount() && iguales(quedan - 1, quedan)) ++quedan;
  if (quedan < rs.RecordCount() || visibles < rs.campos().size()) rs.recortar(quedan, visibles);
  return {};
}
