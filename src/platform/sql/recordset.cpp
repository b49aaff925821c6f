#include "platform/sql/recordset.h"

int Recordset::columna(QStringView nombre) const {
  for (int i = 0; i < campos_.size(); ++i) {
    // Names of other lengths, nearly all, are told apart by that.
    if (nombre.size() == campos_[i].size() && nombre.compare(campos_[i], Qt::CaseInsensitive) == 0) return i;
  }
  return -1;
}

void Recordset::llenar(QStringList campos, std::vector<std::vector<QVariant>> filas) {
  campos_ = std::move(campos);
  filas_ = std::move(filas);
  actual_ = 0;
}

QVariant Recordset::celda(qsizetype fila, int columna) const {
  if (fila < 0 || fila >= RecordCount() || columna < 0 || columna >= campos_.size()) return {};
  return filas_[fila][columna];
}
