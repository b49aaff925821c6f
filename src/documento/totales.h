#pragma once
// The totals of a ticket, kind by kind. Amounts in soles unless the name says dollars, not rounded before the mask.
#include <optional>
#include <vector>

#include "documento/ticket.h"

// Cash taken and change given.
struct EfectivoDocumento {
  double soles = 0, dolares = 0, vueltoSoles = 0, vueltoDolares = 0;
};

// One card payment: kind of card, its name, amount in soles.
struct PagoTarjeta {
  QString cod_tar, descrip;
  double pago = 0;
};

// How a liquidation was paid; printed on the sale document that closes it.
struct CifrasLiquidacion {
  EfectivoDocumento efectivo;
  double adelanto = 0;
};

// A liquidation that waits for that document.
struct LiquidacionEnCurso : CifrasLiquidacion {
  qint64 codigo = 0;
};

struct CifrasVenta {
  bool factura = false;
  double total = 0, igv = 0, servicio = 0;
  QString porcServ;
  EfectivoDocumento efectivo;
  std::vector<PagoTarjeta> voucher;  // the card payments to print
  std::optional<CifrasLiquidacion> liquidacion;
};

// What a parallel document adds to those: an advance payment's own amount, a liquidation's sums.
struct CifrasParalela : CifrasVenta {
  int moneda = 0;  // 2: the advance was paid in dollars
  double montoSoles = 0, montoDolares = 0;
  double subtotal = 0, adelanto = 0;
  QString etiquetaAdelanto = QStringLiteral(" PADE/PADV");
};

// The totals of a sale; `clase` is one of the three sales.
std::vector<RenglonTotal> TotalesVenta(ClaseDocumento clase, const CifrasVenta& c);
// The totals of a parallel document.
std::vector<RenglonTotal> TotalesParalela(ClaseDocumento clase, const CifrasParalela& c);
