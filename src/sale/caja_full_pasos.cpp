#include "sale/caja_full_pasos.h"

#include "documento/importe_tecleado.h"
#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full_liquidacion.h"
#include "sale/caja_full_totales.h"

namespace {

bool esCero(const QString& importe) { return LeerImporte(importe) == 0; }

double sinSigno(const QString& importe) { return qMax(0.0, LeerImporte(importe)); }

// Cash and change as the screen holds them. Negative change is 0.
EfectivoDocumento cobradoEn(const CajaRegistradoraFull& v) {
  return {LeerImporte(v.txtEfectivoSoles), LeerImporte(v.txtEfectivoDolares), sinSigno(v.txtVueltoSoles),
          sinSigno(v.txtVueltoDolares)};
}

void leerLineas(Puesto& p, VentaFull& c) {
  for (const auto& fila : c.v.rejilla.filas) {
    c.lineas.push_back(LineaDe(p, fila));
    c.igv += LeerImporte(fila[kIgv]);
    c.servicio += LeerImporte(fila[kServ]);
  }
}

void leerComun(VentaFull& c) {
  FijarCliente(c, c.v.txtTarjeta, c.v.txtLocal);
  c.total = LeerImporte(c.v.txtSoles);
  c.cobrado = cobradoEn(c.v);
  c.efectivo = c.cobrado;
  c.liquidacion = c.v.liquidacion;
  if (c.v.cobro) c.tarjetas = c.v.cobro->pagos;
}

// What the row of a parallel document holds; no negative cash is stored.
void leerParalela(VentaFull& c) {
  DatosParalela& d = c.paralela;
  d.montoSoles = c.total;
  d.montoDolares = LeerImporte(c.v.txtDolares);
  d.efectivo = c.efectivo;
  d.efectivo.soles = qMax(0.0, d.efectivo.soles);
  d.efectivo.dolares = qMax(0.0, d.efectivo.dolares);
  d.glosa = c.v.txtGlosa;
}

// An amount paid in advance: blank is 0, anything else that is no number isn't one.
bool leerMonto(const QString& campo, double& importe) {
  const QString texto = Recortar(campo);
  importe = LeerImporte(texto);
  return texto.isEmpty() || EsImporte(texto);
}

double conMascara(double importe) { return LeerImporte(Formatear(importe, u"0.00")); }

std::vector<qint64> codigosDe(const std::vector<LineaTX>& lista) {
  std::vector<qint64> codigos;
  for (const LineaTX& l : lista) codigos.push_back(AEntero(Val(l.tx)));
  return codigos;
}

}  // namespace

bool pasos::Recalcular(Puesto& p, VentaFull& c) {
  if (c.v.cobro) return true;
  CalculaTotales(p, c.v);
  CuadraPago(p, c.v);
  return true;
}

bool pasos::FijarDocumento(Puesto& p, VentaFull& c) {
  (void)ConectarCliente(p, true);  // without it the sale goes on
  c.nombre = c.v.txtNombres;
  c.idLocal = c.v.nIdLocal;
  FijarTipoDocumento(c, c.v.txtRUC);
  return FijarFecha(p, c);
}

bool pasos::PedirSupervisor(Puesto&, VentaFull& c) {
  bool conPorcentaje = false;
  for (const auto& fila : c.v.rejilla.filas) conPorcentaje = conPorcentaje || !esCero(fila[kPorc]);
  if (!conPorcentaje) return true;
  const auto supervisor = c.pantallas.autorizar(QStringLiteral("Venta con descuento o recargo"));
  if (!supervisor || Recortar(*supervisor).isEmpty()) return false;
  c.supervisor = *supervisor;
  return true;
}

bool pasos::PagarExacto(Puesto&, VentaFull& c) {
  if (!tipoConEfectivo(c.v.nTipoVenta)) return true;  // what cards don't pay stands in the voucher
  for (QString* campo : {&c.v.txtEfectivoSoles, &c.v.txtEfectivoDolares}) {
    if (Recortar(*campo).isEmpty()) *campo = QStringLiteral("0.00");
  }
  if (esCero(c.v.txtEfectivoSoles) && esCero(c.v.txtEfectivoDolares)) c.v.txtEfectivoSoles = c.v.txtSoles;
  return true;
}

bool pasos::TomarVenta(Puesto& p, VentaFull& c) {
  leerComun(c);
  leerLineas(p, c);
  const bool conVuelto = !(esCero(c.v.txtVueltoSoles) && esCero(c.v.txtVueltoDolares));
  if (c.clase == ClaseDocumento::VentaExacta && conVuelto) c.clase = ClaseDocumento::VentaConVuelto;
  if (c.liquidacion && c.v.cobro) c.efectivo = c.liquidacion->efectivo;
  return true;
}

bool pasos::TomarOrden(Puesto& p, VentaFull& c) {
  leerComun(c);
  leerLineas(p, c);
  c.v.txtGlosa = c.v.txtNombres;
  leerParalela(c);
  if (c.liquidacion) c.paralela.relacion = c.liquidacion->codigo;
  return true;
}

bool pasos::TomarNota(Puesto& p, VentaFull& c) {
  leerComun(c);
  leerLineas(p, c);
  leerParalela(c);
  c.paralela.relacion = AEntero(Val(c.v.txtTX));
  return true;
}

bool pasos::TomarAdelanto(Puesto& p, VentaFull& c) {
  leerComun(c);
  DatosParalela& d = c.paralela;
  c.efectivo = {};
  const bool soles = leerMonto(c.v.txtPagoAdelantado, c.efectivo.soles);
  const bool dolares = leerMonto(c.v.txtPADEDolares, c.efectivo.dolares);
  c.montoLegible = soles && dolares;
  d.efectivo = c.efectivo;
  d.moneda = c.efectivo.dolares > 0 ? 2 : 1;
  if (d.moneda == 2) {
    d.montoDolares = c.efectivo.dolares;
    d.montoSoles = conMascara(p.ses.pnTipoCambio * d.montoDolares);
  } else {
    d.montoSoles = c.efectivo.soles;
    d.montoDolares = p.ses.pnTipoCambio > 0 ? conMascara(d.montoSoles / p.ses.pnTipoCambio) : 0;
  }
  d.glosa = c.v.txtGlosa;
  return true;
}

bool pasos::TomarLiquidacion(Puesto&, VentaFull& c) {
  leerComun(c);
  // Dollars typed before the cards were chosen aren't part of it.
  if (const auto& cobro = c.v.cobro) {
    c.efectivo = {LeerImporte(cobro->txtEfectivoSoles), 0, sinSigno(cobro->txtVueltoSoles), 0};
  }
  leerParalela(c);
  c.adelanto = LeerImporte(c.v.txtTotalPA);
  c.consumos = codigosDe(c.v.lvwTX[1]);
  c.liquidadas = codigosDe(c.v.lvwTX[0]);
  c.liquidadas.insert(c.liquidadas.end(), c.consumos.begin(), c.consumos.end());
  return true;
}

bool pasos::LimpiarPantalla(Puesto& p, VentaFull& c) {
  c.v.liquidacion.reset();
  c.v.vueltoAnterior = LeerImporte(c.v.txtVueltoSoles) > 0 ? c.v.txtVueltoSoles : QString();
  CancelarVenta(p, c.v);
  return true;
}

bool pasos::PedirDocumento(Puesto& p, VentaFull& c) {
  return CargaLiquidacion(p, c.v, {{c.efectivo, c.adelanto}, c.o.codigo});
}
