#pragma once
// What every report of the day tells: sold, tickets, cards, voids, withdrawals, drawer. Soles unless the name says
// dollars ("Dol"); nothing is rounded.
#include <vector>

#include "cashday/lector.h"

struct FilaProductoReporte {
  qint64 cProdCode = 0;
  QString catalogo, descripcion;
  double cantidad = 0;
};

struct CifrasReporte {
  double nTipoCambio = 0;  // soles per dollar
  qint64 nItems = 0;
  double nVenta = 0;
  std::vector<FilaProductoReporte> productos;
  qint64 nTickets = 0, nVouchers = 0;
  double nVoucher = 0;
  qint64 nNulos = 0;
  double nNulosMonto = 0;
  qint64 nRecaudaciones = 0;
  double nRecaudado = 0;  // never more than came in
  double nAperturaSol = 0, nAperturaDol = 0;
  double nCajaSol = 0, nCajaDol = 0;
};

// The statements in which X and X-1 differ.
struct ConsultasReporte {
  const char *voucher, *efectivoConTarjeta, *cajaDol, *cajaSol, *productos;
};
extern const ConsultasReporte kConsultasX, kConsultasX1;

// Shows the box about the missing rate when the day has none; then it is 0. Look at l.bien() afterwards.
CifrasReporte LeerCifras(Puesto& p, LectorReporte& l, const ConsultasReporte& q, const QDate* fecha);

// Rows with the fields cProdCode, Catal, Descrip and Cant.
std::vector<FilaProductoReporte> FilasDeProducto(const Recordset& rs);
