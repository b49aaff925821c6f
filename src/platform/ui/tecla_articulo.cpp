#include "platform/ui/tecla_articulo.h"

#include <QLabel>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "platform/ui/campo.h"
#include "platform/ui/tema.h"

namespace {

constexpr int kMargen = 6;
constexpr int kEstrechoMinimo = 70;  // per cent of a letter's width

int anchoDePalabra(const QFont& f, const QString& texto) {
  int ancho = 1;
  for (const QString& t : texto.split(u' ')) ancho = std::max(ancho, QFontMetrics(f).horizontalAdvance(t));
  return ancho;
}

// The longest word must not be cut: letters are drawn narrower until it fits.
QFont queQuepa(QFont f, const QString& texto, int ancho) {
  for (int estrecho = 99; estrecho >= kEstrechoMinimo && anchoDePalabra(f, texto) > ancho; --estrecho)
    f.setStretch(estrecho);
  return f;
}

}  // namespace

TeclaArticulo::TeclaArticulo(const QString& nombre, const QString& nombreRotulo, const QString& tecla, QWidget* padre)
    : QPushButton(padre) {
  setObjectName(nombre);
  setProperty("papel", "tecla");
  setProperty("asignada", false);
  setAutoDefault(false);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  rotulo_ = nuevoTexto(tecla, QStringLiteral("suave"), this);
  rotulo_->setObjectName(nombreRotulo);
  rotulo_->setAttribute(Qt::WA_TransparentForMouseEvents);
  rotulo_->move(kMargen, kMargen);
}

void TeclaArticulo::poner(const QString& rotulo, const QString& articulo) {
  articulo_ = articulo;
  QString sinMnemonico = rotulo;
  setText(sinMnemonico.replace(u'&', QStringLiteral("&&")));
  tema::aplicarRol(this, "asignada", !articulo.isEmpty());
  update();
}

void TeclaArticulo::paintEvent(QPaintEvent*) {
  QStylePainter p(this);
  QStyleOptionButton o;
  initStyleOption(&o);
  o.text.clear();
  p.drawControl(QStyle::CE_PushButton, o);

  const QRect dentro = rect().adjusted(kMargen, kMargen, -kMargen, -kMargen);
  QString rotulo = text();
  rotulo.replace(QStringLiteral("&&"), QStringLiteral("&"));
  const int alto = rotulo_->sizeHint().height();
  if (rotulo != articulo_) {
    QFont f = font();
    f.setPointSize(tema::pt(tema::kPtIndicio));
    p.setFont(queQuepa(f, rotulo, dentro.width()));
    p.setPen(QColor(tema::kTintaSuave));
    p.drawText(dentro, Qt::AlignRight | Qt::AlignBottom,
               p.fontMetrics().elidedText(rotulo, Qt::ElideRight, dentro.width()));
  }
  p.setPen(palette().color(QPalette::ButtonText));
  p.setFont(queQuepa(font(), articulo_, dentro.width()));
  const bool cabe = anchoDePalabra(p.font(), articulo_) <= dentro.width();  // else a word is broken rather than cut
  p.drawText(dentro.adjusted(0, alto, 0, -alto), Qt::AlignCenter | (cabe ? Qt::TextWordWrap : Qt::TextWrapAnywhere),
             articulo_);
}
