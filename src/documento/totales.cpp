#include "documento/totales.h"

#include "platform/text/numero.h"

namespace {

using Renglones = std::vector<RenglonTotal>;

void siPositivo(Renglones& r, const QString& etiqueta, double valor) {
  if (Redondear(valor, 2) > 0) r.push_back(Total(etiqueta, valor));
}

void siNoCero(Renglones& r, const QString& etiqueta, double valor) {
  if (Redondear(valor, 2) != 0) r.push_back(Total(etiqueta, valor));
}

void efectivo(Renglones& r, const EfectivoDocumento& e) {
  siPositivo(r, QStringLiteral(" EFECTIVO(S/)"), e.soles);
  siPositivo(r, QStringLiteral(" EFECTIVO(U$)"), e.dolares);
  siNoCero(r, QStringLiteral(" VUELTO(S/)"), e.vueltoSoles);
  siNoCero(r, QStringLiteral(" VUELTO(U$)"), e.vueltoDolares);
}

void liquidacion(Renglones& r, const CifrasLiquidacion& l) {
  siPositivo(r, QStringLiteral(" EFECTIVO(S/)"), l.efectivo.soles);
  siPositivo(r, QStringLiteral(" EFECTIVO(U$)"), l.efectivo.dolares);
  siPositivo(r, QStringLiteral(" PADE/PADV"), l.adelanto);
  siPositivo(r, QStringLiteral(" VUELTO(S/)"), l.efectivo.vueltoSoles);
  siPositivo(r, QStringLiteral(" VUELTO(U$)"), l.efectivo.vueltoDolares);
}

void valores(Renglones& r, const CifrasVenta& c) {
  const QString servicio = QStringLiteral(" SERVICIO(") + c.porcServ + QStringLiteral(" %)");
  if (c.factura) {
    r.push_back(Total(QStringLiteral(" VALOR VTA"), c.total - c.igv - c.servicio));
    r.push_back(Total(QStringLiteral(" IGV"), c.igv));
    siPositivo(r, servicio, c.servicio);
    r.push_back(Total(QStringLiteral(" TOTAL VTA"), c.total));
  } else {
    r.push_back(Total(QStringLiteral(" TOTAL VTA"), c.total));
    siPositivo(r, servicio, c.servicio);
  }
}

}  // namespace

std::vector<RenglonTotal> TotalesVenta(ClaseDocumento clase, const CifrasVenta& c) {
  Renglones r;
  valores(r, c);
  double enTarjetas = 0;
  for (const PagoTarjeta& pago : c.voucher) {
    r.push_back(Total(pago.descrip, pago.pago));
    enTarjetas += pago.pago;
  }
  if (c.liquidacion) {
    liquidacion(r, *c.liquidacion);
  } else if (clase == kVentaVoucher) {
    siPositivo(r, QStringLiteral(" EFECTIVO S/."), c.total - enTarjetas);
    siPositivo(r, QStringLiteral(" VUELTO"), c.efectivo.vueltoSoles);
  } else {
    efectivo(r, c.efectivo);
  }
  return r;
}
