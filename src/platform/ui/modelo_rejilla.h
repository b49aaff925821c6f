#pragma once
#include <QAbstractTableModel>

#include "platform/ui/rejilla.h"

// What the grid shows now, compared with the caller's rows at each refresh.
class ModeloRejilla final : public QAbstractTableModel {
  Q_OBJECT
 public:
  ModeloRejilla(const std::vector<ColumnaRejilla>& columnas, Rejilla::Origen origen, QObject* padre);

  int rowCount(const QModelIndex& padre = {}) const override;
  int columnCount(const QModelIndex& padre = {}) const override;
  QVariant data(const QModelIndex& celda, int papel = Qt::DisplayRole) const override;
  QVariant headerData(int seccion, Qt::Orientation o, int papel) const override;

  void refrescar();
  void ponerTitulo(int columna, const QString& titulo);
  // No rows, or all cells of the only row are blank.
  bool vacio() const;

 private:
  void igualarFilas();

  std::vector<ColumnaRejilla> columnas_;
  Rejilla::Origen origen_;
  std::vector<std::vector<QString>> filas_;
};
