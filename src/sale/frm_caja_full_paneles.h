#pragma once
// Panels of the full register that hold nothing but fields.
#include <functional>

#include "platform/ui/campo.h"
#include "sale/caja_full.h"

// The cash panel and the display of the totals.
struct PanelPago {
  QFrame *frmVuelto = nullptr, *fraTotal = nullptr;
  Campo *txtEfectivoSoles = nullptr, *txtEfectivoDolares = nullptr;
  Campo *txtVueltoSoles = nullptr, *txtVueltoDolares = nullptr;
};
PanelPago nuevoPanelPago(Enlaces& enlaces, CajaRegistradoraFull& v);

// The two panels of advance payments and the fields of the second tab.
struct PanelesAdelanto {
  QFrame *frapade = nullptr, *fraPagoAdelantado = nullptr;
  QWidget* pestana = nullptr;
  Campo *txtPagoAdelantado = nullptr, *txtPADEDolares = nullptr, *txtPADE = nullptr, *txtTX = nullptr;
  QPushButton *cmdBuscaPago = nullptr, *cmdPagoAdelantado = nullptr;
};
PanelesAdelanto nuevosPanelesAdelanto(Enlaces& enlaces, CajaRegistradoraFull& v);

// Which keys a field of money takes.
QChar filtroImporte(QChar tecla);
