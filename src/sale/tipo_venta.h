#pragma once
// The kinds of sale and what each of them shows, as one table.
#include <QString>
#include <vector>

// Kinds of sale as the list cboTipoVenta numbers them.
enum TipoVenta {
  kEfectivo = 1,
  kVoucher = 2,
  kOC = 4,
  kNC = 5,
  kPADE = 6,
  kPADV = 7,
  kLIQPAD = 8,
  kAnular = 9,
  kRecaudacion = 10
};

// The panel that a kind adds to the screen.
enum class PanelTipo {
  Ninguno,
  DatosPago,       // frapade: the advance payment that a note draws on
  MontoAdelantado  // fraPagoAdelantado: the amount paid in advance
};

struct PantallaTipo {
  TipoVenta tipo;
  QString entrada;   // in cboTipoVenta
  bool llevaLineas;  // sells the lines of the grid
  bool verEfectivo;  // frmVuelto is shown
  bool verTotal;     // fraTotal is shown
  bool rucEditable;  // boleta or factura by the RUC; otherwise a document of its own
  bool dolaresEditables;
  PanelTipo panel;
  int unicaPestana;  // the one tab that can be used, -1 all
  bool verVoucher;   // cmdVoucher is shown
};

// The nine entries, in the order of the list.
const std::vector<PantallaTipo>& tiposDeVenta();

// The row of a kind. `tipo` must be one of the nine.
const PantallaTipo& pantallaDe(int tipo);

// Whether cash is counted in this kind.
inline bool tipoConEfectivo(int tipo) { return tipo == kEfectivo || tipo == kOC || tipo == kLIQPAD; }
