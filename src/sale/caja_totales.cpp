#include "sale/caja_totales.h"

#include <cmath>

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full.h"
#include "sale/importe_tecleado.h"

namespace {

constexpr QStringView kImporte = u"0.00";

qint64 centimos(double importe) { return AEntero(Redondear(importe, 2) * 100); }
qint64 centimos(const QString& campo) { return centimos(LeerImporte(campo)); }
QString texto(qint64 cent) { return Formatear(static_cast<double>(cent) / 100, kImporte); }

// A field of dollars in cents of sol.
qint64 enSoles(const Puesto& p, const QString& campo) { return centimos(p.ses.pnTipoCambio * LeerImporte(campo)); }

QString cantidadDe(const FilaVenta& f) { return f[kCant].isEmpty() ? QStringLiteral("1") : f[kCant]; }
QString precioDe(const FilaVenta& f) { return f[kPrecio].isEmpty() ? QStringLiteral("0") : f[kPrecio]; }

// Fills the computed columns of a line and gives its value, unrounded.
double calcularLinea(const Puesto& p, FilaVenta& f) {
  const double cant = LeerImporte(cantidadDe(f));
  const double precio = LeerImporte(precioDe(f));
  const double monto = precio * (cant * (LeerImporte(f[kPorc]) / 100));
  const double serv = f[kConServ] == u"SI" ? Val(p.ses.psPorcServ) / 100 : 0;
  const double linea = f[kSigno] == u"+" ? cant * precio + monto : cant * precio - monto;
  const double neto = linea / (p.ses.pnIGV + serv + 1);
  f[kSubTotal] = Formatear(linea, kImporte);
  f[kServ] = Formatear(neto * serv, kImporte);
  f[kIgv] = Formatear(neto * p.ses.pnIGV, kImporte);
  return linea;
}

bool seCuenta(const FilaVenta& f) {
  const bool vacia = f[kCod].isEmpty() && f[kPrecio].isEmpty();
  return !vacia && EsNumerico(cantidadDe(f)) && EsNumerico(precioDe(f));
}

}  // namespace

void SumarLineas(const Puesto& p, CajaRegistradoraFull& v) {
  if (v.nTipoVenta == TipoVenta::LIQPAD) return;
  double total = 0;
  for (FilaVenta& f : v.lineas) {
    if (pantallaDe(v.nTipoVenta).llevaLineas && seCuenta(f)) total += calcularLinea(p, f);
  }
  total = std::fabs(total);
  v.txtSoles = Formatear(total, kImporte);
  v.txtDolares = Formatear(p.ses.pnTipoCambio > 0 ? total / p.ses.pnTipoCambio : 0, kImporte);
}

void CalculaTotales(const Puesto& p, CajaRegistradoraFull& v) {
  if (v.nTipoVenta == TipoVenta::LIQPAD) return;
  const QString antes = v.txtSoles;
  SumarLineas(p, v);
  if (v.txtSoles != antes) CalculaEfectivo(p, v);
  CuadraPago(p, v);
}

void CuadraPago(const Puesto& p, CajaRegistradoraFull& v) {
  for (QString* campo : {&v.txtEfectivoSoles, &v.txtEfectivoDolares, &v.txtVueltoSoles, &v.txtVueltoDolares}) {
    if (Recortar(*campo).isEmpty()) *campo = QStringLiteral("0.00");
  }
  v.txtVueltoDolares = Formatear(LeerImporte(v.txtVueltoDolares), kImporte);
  if (LeerImporte(v.txtVueltoDolares) > LeerImporte(v.txtEfectivoDolares)) v.txtVueltoDolares = QStringLiteral("0.00");

  const qint64 enDolares = enSoles(p, v.txtEfectivoDolares) - enSoles(p, v.txtVueltoDolares);
  const qint64 total = centimos(v.txtSoles);
  if (enDolares >= total) v.txtEfectivoSoles = QStringLiteral("0.00");

  // A liquidation takes no cash that nobody has counted: only dollars typed settle what is left in soles.
  const bool sinContar = v.nTipoVenta == TipoVenta::LIQPAD && total > 0 && enDolares == 0;
  if (tipoConEfectivo(v.nTipoVenta) && !v.efectivoTecleado && !sinContar) {
    const qint64 falta = total - enDolares + centimos(v.txtVueltoSoles);
    if (falta < 0) v.txtVueltoSoles = texto(-falta);
    v.txtEfectivoSoles = texto(qMax<qint64>(falta, 0));
  }
  CalculaVuelto(p, v);
}

void CalculaVuelto(const Puesto& p, CajaRegistradoraFull& v) {
  if (!tipoConEfectivo(v.nTipoVenta)) return;
  v.txtVueltoSoles = texto(enSoles(p, v.txtEfectivoDolares) + centimos(v.txtEfectivoSoles) -
                           enSoles(p, v.txtVueltoDolares) - centimos(v.txtSoles));
}

void CalculaEfectivo(const Puesto& p, CajaRegistradoraFull& v) {
  if (!tipoConEfectivo(v.nTipoVenta)) return;
  v.txtEfectivoSoles = texto(centimos(v.txtSoles) - enSoles(p, v.txtEfectivoDolares) + enSoles(p, v.txtVueltoDolares));
  v.txtVueltoSoles = QStringLiteral("0.00");
}

void SalirEfectivoSoles(const Puesto& p, CajaRegistradoraFull& v) {
  v.txtEfectivoSoles = ImporteTecleado(v.txtEfectivoSoles, kImporte);
  if (centimos(v.txtEfectivoSoles) == 0) {
    v.efectivoTecleado = false;
    v.txtVueltoSoles = QStringLiteral("0.00");
  } else {
    CalculaVuelto(p, v);
  }
  CuadraPago(p, v);
}

void SalirDolares(const Puesto& p, CajaRegistradoraFull& v) {
  v.txtEfectivoDolares = ImporteTecleado(v.txtEfectivoDolares, kImporte);
  v.txtVueltoDolares = ImporteTecleado(v.txtVueltoDolares, kImporte);
  v.txtVueltoSoles = QStringLiteral("0.00");
  CuadraPago(p, v);
}
