#pragma once
#include <QStyledItemDelegate>

// Paints the cells of grids and lists: a text, cut with an ellipsis where it doesn't fit. Plain on purpose; a key
// press in a long grid must be on the screen at once.
class PintorCelda final : public QStyledItemDelegate {
  Q_OBJECT
 public:
  enum Papel { EsBoton = Qt::UserRole + 1, Inactiva, Mal };

  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* p, const QStyleOptionViewItem& opcion, const QModelIndex& celda) const override;
};

// The words in the middle of an empty grid, below `desde`, where they have room.
void pintarVacio(QWidget* donde, const QString& texto, int desde = 0);
