#include "sale/caja_full_totales.h"

#include "documento/importe_tecleado.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full.h"

namespace {

constexpr QStringView kImporte = u"0.00";

qint64 centimos(double importe) { return AEntero(Redondear(importe, 2) * 100); }
qint64 centimos(const QString& campo) { return centimos(LeerImporte(campo)); }
QString texto(qint64 cent) { return Formatear(static_cast<double>(cent) / 100, kImporte); }

// A field of dollars in cents of sol.
qint64 enSoles(const Puesto& p, const QString& campo) { return centimos(p.ses.pnTipoCambio * LeerImporte(campo)); }

}  // namespace

void SumarLineas(const Puesto& p, CajaRegistradoraFull& v) {
  if (v.nTipoVenta == TipoVenta::LIQPAD) return;
  const double total = pantallaDe(v.nTipoVenta).llevaLineas ? TotalDeLineas(p, v.rejilla) : 0;
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

bool SalirCelda(Puesto& p, CajaRegistradoraFull& v, int fila, int columna, const QString& texto) {
  const TrasCelda tras = DejarCelda(p, v.rejilla, fila, columna, texto);
  if (tras == TrasCelda::Cambiada) CalculaTotales(p, v);
  return tras != TrasCelda::Rechazada;
}

void EliminarFila(const Puesto& p, CajaRegistradoraFull& v, int fila) {
  if (fila < 0 || fila >= static_cast<int>(v.rejilla.filas.size())) return;
  QuitarFila(v.rejilla, fila);
  CalculaTotales(p, v);
}
