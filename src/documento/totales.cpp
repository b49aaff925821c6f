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

void entrado(Renglones& r, const EfectivoDocumento& e) {
  siPositivo(r, QStringLiteral(" EFECTIVO(S/)"), e.soles);
  siPositivo(r, QStringLiteral(" EFECTIVO(U$)"), e.dolares);
}

void devuelto(Renglones& r, const EfectivoDocumento& e) {
  siNoCero(r, QStringLiteral(" VUELTO(S/)"), e.vueltoSoles);
  siNoCero(r, QStringLiteral(" VUELTO(U$)"), e.vueltoDolares);
}

void efectivo(Renglones& r, const EfectivoDocumento& e) {
  entrado(r, e);
  devuelto(r, e);
}

void liquidacion(Renglones& r, const CifrasLiquidacion& l) {
  entrado(r, l.efectivo);
  siPositivo(r, QStringLiteral(" PADE/PADV"), l.adelanto);
  siPositivo(r, QStringLiteral(" VUELTO(S/)"), l.efectivo.vueltoSoles);
  siPositivo(r, QStringLiteral(" VUELTO(U$)"), l.efectivo.vueltoDolares);
}

void servicio(Renglones& r, const CifrasVenta& c) {
  siPositivo(r, QStringLiteral(" SERVICIO(") + c.porcServ + QStringLiteral(" %)"), c.servicio);
}

// Gives what the cards pay.
double tarjetas(Renglones& r, const CifrasVenta& c) {
  double suma = 0;
  for (const PagoTarjeta& pago : c.voucher) {
    r.push_back(Total(pago.descrip, pago.pago));
    suma += pago.pago;
  }
  return suma;
}

RenglonTotal adelantado(const QString& etiqueta, const CifrasParalela& c) {
  const bool dolares = c.moneda == 2;
  return {etiqueta,
          (dolares ? QStringLiteral("US$ ") : QStringLiteral("S/. ")) +
              Formatear(dolares ? c.montoDolares : c.montoSoles, u"0.00"),
          true};
}

void liquidado(Renglones& r, const CifrasParalela& c) {
  r.push_back(Total(QStringLiteral(" SUB/TOTL"), c.subtotal));
  r.push_back(Total(c.etiquetaAdelanto, c.adelanto));
  r.push_back(Total(QStringLiteral(" TOT-PAGAR"), c.total));
  entrado(r, c.efectivo);
  tarjetas(r, c);
  devuelto(r, c.efectivo);
}

void valores(Renglones& r, const CifrasVenta& c) {
  if (c.factura) {
    r.push_back(Total(QStringLiteral(" VALOR VTA"), c.total - c.igv - c.servicio));
    r.push_back(Total(QStringLiteral(" IGV"), c.igv));
    servicio(r, c);
    r.push_back(Total(QStringLiteral(" TOTAL VTA"), c.total));
  } else {
    r.push_back(Total(QStringLiteral(" TOTAL VTA"), c.total));
    servicio(r, c);
  }
}

}  // namespace

std::vector<RenglonTotal> TotalesVenta(ClaseDocumento clase, const CifrasVenta& c) {
  Renglones r;
  valores(r, c);
  const double enTarjetas = tarjetas(r, c);
  if (c.liquidacion) {
    liquidacion(r, *c.liquidacion);
  } else if (clase == ClaseDocumento::VentaVoucher) {
    siPositivo(r, QStringLiteral(" EFECTIVO S/."), c.total - enTarjetas);
    siPositivo(r, QStringLiteral(" VUELTO"), c.efectivo.vueltoSoles);
  } else {
    efectivo(r, c.efectivo);
  }
  return r;
}

std::vector<RenglonTotal> TotalesParalela(ClaseDocumento clase, const CifrasParalela& c) {
  Renglones r;
  switch (clase) {
    case ClaseDocumento::OC:
      r.push_back(Total(QStringLiteral(" VALOR VTA"), c.total));
      servicio(r, c);
      if (c.liquidacion) liquidacion(r, *c.liquidacion);
      else efectivo(r, c.efectivo);
      break;
    case ClaseDocumento::NC: r.push_back(Total(QStringLiteral(" TOTAL S/."), c.total)); break;
    case ClaseDocumento::PADE: r.push_back(adelantado(QStringLiteral(" CASH/TL"), c)); break;
    case ClaseDocumento::PADV: r.push_back(adelantado(QStringLiteral(" TARJETA"), c)); break;
    default: liquidado(r, c);
  }
  return r;
}
