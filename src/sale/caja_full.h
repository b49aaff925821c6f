#pragma once
// The full register's fields as shown, and the routines that compute on them. A sale lives only here until it is
// committed. Amounts are texts with mask "0.00", in soles unless the name says Dolares.
#include <QString>
#include <array>
#include <optional>
#include <vector>

struct Puesto;

// Columns of the lines grid TDBGrid1.
enum Columna {
  kItem, kCod, kCatalogo, kDescripcion, kBoton, kVacia, kCant, kPrecio, kSigno, kPorc, kSubTotal, kCanje, kPtos,
  kConServ, kServ, kIgv, kColumnas
};
using FilaVenta = std::array<QString, kColumnas>;

// Kinds of sale as the list cboTipoVenta numbers them.
enum TipoVenta {
  kEfectivo = 1, kVoucher = 2, kOC = 4, kNC = 5, kPADE = 6, kPADV = 7, kLIQPAD = 8, kAnular = 9, kRecaudacion = 10
};

// A line of one of the two lists of the third tab.
struct LineaTX {
  QString tx, tipo, doc, tarjeta, total, fecha, original, clienteGlosa, pade;
};

struct CajaRegistradoraFull {
  // State
  int nTipoVenta = kEfectivo;
  bool bVoucherListo = false, bAcceso = false, bLiquidando = false, bConservarLineas = false;
  int nIdLocal = 0;
  bool efectivoTecleado = false;  // the Tag of txtEfectivoSoles

  // Till, sale and customer
  QString txtCajero, txtCaja, txtTurno, txtRUC, txtTC, lblFecha;
  QString txtTarjeta, txtNombres, txtLocal;
  QString txtsupervisor;

  // Lines: never without a row; an empty grid holds one empty row
  std::vector<FilaVenta> lineas{FilaVenta{}};
  bool recargo = false;  // title of column 9: "Recar(S/.)" instead of "Dscto(S/.)"

  // Cash and totals
  QString txtEfectivoSoles, txtEfectivoDolares, txtVueltoSoles, txtVueltoDolares;
  QString txtSoles, txtDolares;

  // Advance payment, note, liquidation
  QString txtPagoAdelantado, txtPADEDolares, txtPADE, txtimportepago, txtGlosa1, txtTX, txtGlosa;
  std::array<std::vector<LineaTX>, 2> lvwTX;
  QString txtTotalPA, txtTotalNC;
  QString txtLiq, txtliqefectivosoles, txtliqefectivodolares, txtliqvueltosoles, ttxliqvueltodolares, txtliqpade;
};
