#pragma once
#include <QPushButton>

class QLabel;

// A key that stands for an article: the article's name large, above it in the corner the name of the key, below it the
// caption. A caption that is the article's name itself stands only once.
class TeclaArticulo final : public QPushButton {
  Q_OBJECT
 public:
  // `tecla` is the name of the key, shown by a label called `nombreRotulo`.
  TeclaArticulo(const QString& nombre, const QString& nombreRotulo, const QString& tecla, QWidget* padre = nullptr);

  // Both empty: a free key.
  void poner(const QString& rotulo, const QString& articulo);

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  QLabel* rotulo_;
  QString articulo_;
};
