#include "platform/ui/renglon.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPainter>

#include "platform/text/texto.h"
#include "platform/ui/campo.h"

namespace {

// Draws a text that is too wide in smaller letters: a figure without its first digits would be another figure.
class Cifra final : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* e) override {
    const int pide = fontMetrics().horizontalAdvance(text());
    if (pide <= width()) return QLabel::paintEvent(e);
    QFont f = font();
    f.setPointSizeF(f.pointSizeF() * width() / pide * 0.98);
    QPainter p(this);
    p.setFont(f);
    p.setPen(palette().color(QPalette::WindowText));
    p.drawText(rect(), alignment(), text());
  }
};

}  // namespace

Renglon::Renglon(const QString& nombre, int corte, const QString& papelIzquierdo, const QString& papelDerecho,
                 bool apilado, QWidget* padre)
    : QFrame(padre), corte_(corte) {
  setObjectName(nombre);
  auto* caja = new QBoxLayout(apilado ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
  caja->setContentsMargins(0, 0, 0, 0);
  caja->setSpacing(apilado ? 0 : 8);
  izquierda_ = nuevoTexto({}, papelIzquierdo);
  derecha_ = new Cifra;
  if (!papelDerecho.isEmpty()) derecha_->setProperty("papel", papelDerecho);
  for (QLabel* l : {izquierda_, derecha_}) l->setTextFormat(Qt::PlainText);
  derecha_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  caja->addWidget(izquierda_);
  caja->addWidget(derecha_, 1);
}

void Renglon::poner(const QString& texto) {
  if (texto == texto_) return;
  texto_ = texto;
  izquierda_->setText(Recortar(Izquierda(texto, corte_)));
  derecha_->setText(Recortar(texto.mid(corte_)));
}
