#include "platform/ui/modelo_rejilla.h"

#include "platform/ui/pintor_celda.h"

ModeloRejilla::ModeloRejilla(const std::vector<ColumnaRejilla>& columnas, Rejilla::Origen origen, QObject* padre)
    : QAbstractTableModel(padre), columnas_(columnas), origen_(std::move(origen)) {}

int ModeloRejilla::rowCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : static_cast<int>(filas_.size());
}

int ModeloRejilla::columnCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : static_cast<int>(columnas_.size());
}

QVariant ModeloRejilla::data(const QModelIndex& celda, int papel) const {
  if (!celda.isValid()) return {};
  const auto& columna = columnas_[static_cast<size_t>(celda.column())];
  switch (papel) {
    case Qt::DisplayRole: return filas_[static_cast<size_t>(celda.row())][static_cast<size_t>(celda.column())];
    case Qt::TextAlignmentRole: return int(columna.derecha ? Qt::AlignRight : Qt::AlignLeft);
    case PintorCelda::EsBoton: return columna.boton;
    default: return {};
  }
}

QVariant ModeloRejilla::headerData(int seccion, Qt::Orientation o, int papel) const {
  if (o != Qt::Horizontal) return {};
  const auto& columna = columnas_[static_cast<size_t>(seccion)];
  if (papel == Qt::DisplayRole) return columna.titulo;
  if (papel == Qt::TextAlignmentRole) return int((columna.derecha ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  return {};
}

void ModeloRejilla::igualarFilas() {
  const int hay = rowCount(), debe = origen_.filas();
  if (debe > hay) {
    beginInsertRows({}, hay, debe - 1);
    filas_.resize(static_cast<size_t>(debe), std::vector<QString>(columnas_.size()));
    endInsertRows();
  } else if (debe < hay) {
    beginRemoveRows({}, debe, hay - 1);
    filas_.resize(static_cast<size_t>(debe));
    endRemoveRows();
  }
}

void ModeloRejilla::refrescar() {
  igualarFilas();
  const int columnas = columnCount();
  for (int f = 0; f < rowCount(); ++f) {
    int primera = -1, ultima = -1;
    auto& fila = filas_[static_cast<size_t>(f)];
    for (int c = 0; c < columnas; ++c) {
      QString texto = origen_.texto(f, c);
      if (texto == fila[static_cast<size_t>(c)]) continue;
      fila[static_cast<size_t>(c)] = std::move(texto);
      if (primera < 0) primera = c;
      ultima = c;
    }
    if (primera >= 0) Q_EMIT dataChanged(index(f, primera), index(f, ultima));
  }
}

void ModeloRejilla::ponerTitulo(int columna, const QString& titulo) {
  auto& c = columnas_[static_cast<size_t>(columna)];
  if (c.titulo == titulo) return;
  c.titulo = titulo;
  Q_EMIT headerDataChanged(Qt::Horizontal, columna, columna);
}

bool ModeloRejilla::vacio() const {
  if (filas_.size() > 1) return false;
  for (const auto& fila : filas_)
    for (const auto& texto : fila)
      if (!texto.isEmpty()) return false;
  return true;
}
