#include "platform/sql/recordset.h"

namespace {

// Columns of a table begin alike: most names of one length are told apart by their last sign.
bool otroFinal(QStringView a, QStringView b) {
  if (a.isEmpty()) return false;
  const char16_t x = a.back().unicode(), y = b.back().unicode();
  return x < 0x80 && y < 0x80 && (x | 0x20) != (y | 0x20);
}

}  // namespace

int Recordset::columna(QStringView nombre) const {
  for (int i = 0; i < campos_.size(); ++i) {
    const QString& campo = campos_[i];
    if (nombre.size() != campo.size() || otroFinal(nombre, campo)) continue;
    if (nombre == campo || nombre.compare(campo, Qt::CaseInsensitive) == 0) return i;
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
