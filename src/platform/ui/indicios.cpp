#include "platform/ui/indicios.h"

#include <QPainter>
#include <QStyle>

Indicios::Indicios(QWidget* padre) : QLabel(padre) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
}

// The whole text is the label's too, for who reads it.
void Indicios::poner(const QStringList& partes) {
  if (partes == partes_) return;
  partes_ = partes;
  setText(partes_.join(kEntre));
  updateGeometry();
}

QStringList Indicios::renglones(int ancho) const {
  QStringList r;
  for (const QString& parte : partes_) {
    const QString junto = r.isEmpty() ? parte : r.back() + kEntre + parte;
    if (!r.isEmpty() && fontMetrics().horizontalAdvance(junto) <= ancho) r.back() = junto;
    else r << parte;
  }
  return r;
}

int Indicios::masAncha() const {
  int ancho = 0;
  for (const QString& parte : partes_) ancho = qMax(ancho, fontMetrics().horizontalAdvance(parte));
  return ancho;
}

int Indicios::heightForWidth(int ancho) const {
  return static_cast<int>(qMax<qsizetype>(1, renglones(ancho).size())) * fontMetrics().lineSpacing();
}

QSize Indicios::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 1, heightForWidth(QWIDGETSIZE_MAX)};
}

// A hint that is wider than all the rest, a folder's name, must not widen the window.
QSize Indicios::minimumSizeHint() const {
  constexpr int kLetras = 40;
  return {qMin(masAncha(), kLetras * fontMetrics().averageCharWidth()), heightForWidth(QWIDGETSIZE_MAX)};
}

void Indicios::paintEvent(QPaintEvent*) {
  QPainter p(this);
  QRect lugar = contentsRect();
  lugar.setHeight(fontMetrics().lineSpacing());
  for (const QString& renglon : renglones(lugar.width())) {
    style()->drawItemText(&p, lugar, static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter), palette(), isEnabled(),
                          fontMetrics().elidedText(renglon, Qt::ElideRight, lugar.width()), foregroundRole());
    lugar.translate(0, lugar.height());
  }
}
