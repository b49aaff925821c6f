#include "cashday/frm_acerca_de.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/version.h"
#include "platform/ui/tema.h"

frmAcercaDe::frmAcercaDe(QWidget* padre)
    : Forma(QStringLiteral("frmAcercaDe"), QStringLiteral("Acerca de TarvoPos"), padre) {
  auto* fila = new QHBoxLayout;
  fila->setSpacing(tema::px(6 * tema::kPaso));
  auto* logo = new QLabel;
  logo->setPixmap(tema::logo(96));
  fila->addWidget(logo);
  auto* textos = new QVBoxLayout;
  textos->addStretch();
  textos->addWidget(nuevoTexto(QStringLiteral("TarvoPos"), QStringLiteral("titular")));
  textos->addWidget(nuevoTexto(QStringLiteral("Control de Caja Registradora"), QStringLiteral("sentencia")));
  textos->addWidget(nuevoTexto(QStringLiteral("Versión ") + Version(), QStringLiteral("suave")));
  textos->addStretch();
  fila->addLayout(textos, 1);
  cuerpo()->addLayout(fila);
  auto* aceptar = nuevoBoton(QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);
  cuerpo()->addLayout(filaBotones({aceptar}));
}
