#pragma once
// The full register's fields as shown, and the routines that compute on them. A sale lives only here until it is
// committed. Amounts are texts with mask "0.00", in soles unless the name says Dolares.
#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "documento/lineas.h"
#include "documento/totales.h"
#include "loyalty/cliente_documento.h"
#include "sale/caja_full_tipos.h"
#include "sale/pantallas_venta.h"

struct Puesto;

// A line of one of the two lists of the third tab.
struct LineaTX {
  QString tx, tipo, doc, tarjeta, total, fecha, original, clienteGlosa, pade;
  bool operator==(const LineaTX&) const = default;
};

struct CajaRegistradoraFull : ClienteDocumento {
  // State
  TipoVenta nTipoVenta = TipoVenta::Efectivo;
  std::vector<TipoVenta> tipos;                   // entries of cboTipoVenta, in its order
  int pestana = 0;                                // tab of SSTab1 in front
  bool efectivoTecleado = false;                  // the Tag of txtEfectivoSoles
  std::optional<CobroTarjetas> cobro;             // the voucher screen was filled for this sale
  std::optional<LiquidacionEnCurso> liquidacion;  // the sale on the screen is the document that closes it

  // Till and sale; the customer is the base's
  QString txtCajero, txtCaja, txtTurno, txtRUC, txtTC, lblFecha;

  RejillaLineas rejilla;  // TDBGrid1
  bool recargo = false;   // title of column 9: "Recar(S/.)" instead of "Dscto(S/.)"

  // Cash and totals
  QString txtEfectivoSoles, txtEfectivoDolares, txtVueltoSoles, txtVueltoDolares;
  QString txtSoles, txtDolares;
  QString vueltoAnterior;  // the change of the last ticket, shown till the next key; "" where there was none
  QString lblVuelto;       // what the display shows as change

  // Advance payment, note, liquidation
  QString txtPagoAdelantado, txtPADEDolares, txtPADE, txtimportepago, txtGlosa1, txtTX, txtGlosa;
  std::array<std::vector<LineaTX>, 2> lvwTX;
  std::array<QString, 2> txtTXL;
  QString txtTotalPA, txtTotalNC;
};

// Makes the screen ready for a new sale: everything that belongs to a sale is emptied and the kind is EFECTIVO, unless
// lines that were just loaded are to be kept. Reads sites and points rule where the client database answers.
void Inicio(Puesto& p, CajaRegistradoraFull& v, bool conservarLineas = false);

// What a change of kind does to every kind: amounts of cash to "0.00", fields of advance payments and notes empty, the
// kind's first tab in front, the RUC emptied where there is none.
void PonerTipo(CajaRegistradoraFull& v, TipoVenta tipo);

// The cashier's choice in cboTipoVenta. The last two entries open a screen and go back to the first entry.
void CambiarTipo(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas, TipoVenta tipo);

// Nothing of what the kind on the screen takes has been entered: lines, an amount paid in advance, documents to settle.
[[nodiscard]] bool SinEmpezar(const CajaRegistradoraFull& v);

// Where the cashier has to look next: a control by name and, for the grid, a row counted from 0 and its column.
struct Foco {
  QString control;
  int fila = -1;
  int columna = kCod;
};

// The checks before a commit. Gives nothing when the sale may be committed; otherwise the box has been shown.
std::optional<Foco> ValidaVenta(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas);

// Holds today's date against the last operation. An earlier one shows the box and ends the process.
void ExigirFechaSistema(Puesto& p);

// Asks whether a register with a sale on it is to be left and the sale given up; "No" is what Enter presses.
[[nodiscard]] bool PreguntarSalida(Puesto& p);

// The action of cmdTecla index 0 without a pending liquidation: empties the grid and runs Inicio.
void CancelarVenta(Puesto& p, CajaRegistradoraFull& v);

struct TrasTecla {
  bool cierra = false;  // the screen is to be closed
  Foco foco;            // empty: where it was
};

// A button of the array cmdTecla, 0 to 4. Whatever keeps a sale from being committed leaves it on the screen.
TrasTecla PulsarBoton(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas, int indice);

// cmdVoucher: a liquidation paid by cards, from the voucher screen to the commit.
TrasTecla PulsarVoucher(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas);
