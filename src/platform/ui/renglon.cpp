#include "platform/ui/renglon.h"

#include <QBoxLayout>
#include <QLabel>

#include "platform/text/texto.h"
#include "platform/ui/campo.h"
#include "platform/ui/cifra.h"

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
