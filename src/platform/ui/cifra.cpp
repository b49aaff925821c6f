#include "platform/ui/cifra.h"

#include <QPainter>

void Cifra::paintEvent(QPaintEvent* e) {
  const int pide = fontMetrics().horizontalAdvance(text());
  if (pide <= width()) return QLabel::paintEvent(e);
  QFont f = font();
  f.setPointSizeF(f.pointSizeF() * width() / pide * 0.98);
  QPainter p(this);
  p.setFont(f);
  p.setPen(palette().color(QPalette::WindowText));
  p.drawText(rect(), alignment(), text());
}
