#pragma once
// The kinds of sale and what each of them shows, as one table.
#include <QString>
#include <vector>

#include "documento/clase.h"

// The panel that a kind adds to the screen.
enum class PanelTipo {
  Ninguno,
  DatosPago,       // frapade: the advance payment that a note draws on
  MontoAdelantado  // fraPagoAdelantado: the amount paid in advance
};

struct PantallaTipo {
  TipoVenta tipo;
  QStringView entrada;  // in cboTipoVenta
  bool llevaLineas;     // sells the lines of the grid
  bool verEfectivo;     // frmVuelto is shown
  bool verTotal;        // fraTotal is shown
  bool rucEditable;     // boleta or factura by the RUC; otherwise a document of its own
  bool dolaresEditables;
  PanelTipo panel;
  int unicaPestana;  // the one tab that can be used, -1 all
  bool verVoucher;   // cmdVoucher is shown
};

// The nine entries, in the order of the list.
const std::vector<PantallaTipo>& tiposDeVenta();

// The row of a kind. `tipo` must be one of the nine.
const PantallaTipo& pantallaDe(TipoVenta tipo);

// Whether cash is counted in this kind.
inline bool tipoConEfectivo(TipoVenta tipo) {
  return tipo == TipoVenta::Efectivo || tipo == TipoVenta::OC || tipo == TipoVenta::LIQPAD;
}
