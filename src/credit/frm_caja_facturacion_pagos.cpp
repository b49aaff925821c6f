#include "credit/frm_caja_facturacion_pagos.h"

#include <QTabWidget>
#include <QVBoxLayout>

#include "foundation/puesto.h"

frmCajaFacturacionPagos::frmCajaFacturacionPagos(Puesto& p, PantallasCredito& pantallas, QWidget* padre)
    : Forma(QStringLiteral("frmCajaFacturacionPagos"), QStringLiteral("Modulo de Venta Futura"), padre),
      p_(p),
      pantallas_(pantallas) {
  pestanas_ = new QTabWidget;
  pestanas_->setObjectName(QStringLiteral("SSTab1"));
  cuerpo()->addWidget(pestanas_, 1);
  resize(1024, 768);
}
