#pragma once
#include <QLabel>

// A figure that is drawn in smaller letters where it is too wide: without its first digits it would be another figure,
// and it must not widen its window.
class Cifra final : public QLabel {
  Q_OBJECT
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }
  // The width does not follow the figure.
  QSize sizeHint() const override { return minimumSizeHint(); }

 protected:
  void paintEvent(QPaintEvent* e) override;
};
