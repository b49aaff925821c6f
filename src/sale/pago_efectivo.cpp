#include "sale/pago_efectivo.h"

#include "documento/importe_tecleado.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"

namespace {

constexpr QStringView kMascara = u"###,###,###,##0.00";
const QString kCero = QStringLiteral("0.00");

double enSoles(const Puesto& p, const QString& dolares) {
  return Redondear(p.ses.pnTipoCambio * LeerImporte(dolares), 2);
}

// `enDolares`: the field being left is one of dollars; `vueltoDolares`: it is the change in dollars.
void calcular(const Puesto& p, PagoEnEfectivo& v, bool enDolares, bool vueltoDolares) {
  for (QString* campo : {&v.txtEfectivo, &v.txtEfectivoDolares, &v.txtVuelto, &v.txtVueltoDolares}) {
    *campo = ImporteTecleado(*campo, kMascara);
  }
  if (LeerImporte(v.txtEfectivoDolares) < LeerImporte(v.txtVueltoDolares)) v.txtVueltoDolares = kCero;
  const double total = LeerImporte(v.txtTotal);
  const auto netoDolares = [&p, &v] { return enSoles(p, v.txtEfectivoDolares) - enSoles(p, v.txtVueltoDolares); };
  if (Redondear(netoDolares(), 2) >= total) v.txtEfectivo = kCero;

  double efectivo = LeerImporte(v.txtEfectivo);
  if (!v.efectivoTecleado) {
    efectivo = total - netoDolares() + LeerImporte(v.txtVuelto);
  } else if (enDolares && efectivo - LeerImporte(v.txtVuelto) >= total && LeerImporte(v.txtEfectivoDolares) == 0) {
    v.txtVueltoDolares = kCero;
  }
  v.txtEfectivo = Formatear(efectivo, kMascara);
  const double vuelto = Redondear(efectivo + netoDolares() - total, 2);
  v.txtVuelto = Formatear(vuelto, kMascara);
  if (vueltoDolares && !v.efectivoTecleado && vuelto < 0) {
    v.txtEfectivo = Formatear(-vuelto, kMascara);
    v.txtVuelto = kCero;
  }
}

}  // namespace

void AbrirPagoEfectivo(const Puesto& p, double total, PagoEnEfectivo& v) {
  v = {};
  v.txtTotal = v.txtEfectivo = Formatear(total, kMascara);
  v.txtTotalDolares = Formatear(p.ses.pnTipoCambio > 0 ? total / p.ses.pnTipoCambio : 0, kMascara);
  v.txtEfectivoDolares = v.txtVuelto = v.txtVueltoDolares = kCero;
}

void CalculoVuelto(const Puesto& p, PagoEnEfectivo& v) { calcular(p, v, false, false); }

void SalirCampoEfectivo(const Puesto& p, PagoEnEfectivo& v, CampoEfectivo campo) {
  if (campo != CampoEfectivo::Soles) v.txtVuelto = kCero;
  calcular(p, v, campo != CampoEfectivo::Soles, campo == CampoEfectivo::VueltoDolares);
}

std::optional<EfectivoDocumento> AceptarPagoEfectivo(Puesto& p, PagoEnEfectivo& v) {
  for (const QString& campo : {v.txtEfectivo, v.txtEfectivoDolares, v.txtVuelto, v.txtVueltoDolares}) {
    if (LeerImporte(campo) >= 0) continue;
    p.mensajes.mostrar(QStringLiteral("No pueden existir montos negativos"));
    return {};
  }
  if (LeerImporte(v.txtEfectivo) == 0 && LeerImporte(v.txtEfectivoDolares) == 0) v.txtEfectivo = v.txtTotal;
  const auto valor = [](const QString& campo) {
    return LeerImporte(Formatear(LeerImporte(campo), u"###########0.00"));
  };
  return EfectivoDocumento{valor(v.txtEfectivo), valor(v.txtEfectivoDolares), valor(v.txtVuelto),
                           valor(v.txtVueltoDolares)};
}
