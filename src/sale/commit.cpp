#include "sale/commit.h"

#include "documento/pasos.h"
#include "documento/totales.h"
#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "loyalty/puntos.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_lineas.h"
#include "sale/caja_totales.h"
#include "sale/pantallas_venta.h"
#include "sale/pasos_venta.h"

namespace {

constexpr int kIntentosCuadre = 3;

double noNegativo(double valor) { return valor < 0 ? 0 : valor; }

bool esCero(const QString& importe) { return LeerImporte(importe) == 0; }

bool totalizar(Puesto& p, Venta& c) {
  CifrasVenta x;
  x.factura = c.factura();
  x.total = c.total;
  x.igv = x.factura ? c.igv : 0;
  x.servicio = c.servicio;
  x.porcServ = p.ses.psPorcServ;
  x.efectivo = c.efectivo;
  if (c.clase == ClaseDocumento::VentaVoucher || (c.v.bLiquidando && c.v.bVoucherListo)) x.voucher = p.ses.poVoucher;
  if (c.v.bLiquidando) x.liquidacion = {EfectivoDe(c.v, true), LeerImporte(c.v.txtliqpade)};
  c.totales = TotalesVenta(c.clase, x);
  return true;
}

bool grabarLineas(Puesto& p, Venta& c) {
  for (const auto& pago : p.ses.poVoucher) c.o.emisor += u',' + ReemplazarComilla(Recortar(pago.cod_tar));
  c.o.tipo = c.v.bLiquidando ? TipoOperacion::Liquidado : DatosDe(c.clase).operacion;
  c.o.liquidacion = c.v.bLiquidando ? AEntero(Val(c.v.txtLiq)) : 0;
  for (const auto& linea : c.lineas) {
    if (!GrabarLinea(p, c.o, linea, c.v.txtsupervisor)) return false;
  }
  return true;
}

bool grabarEfectivo(Puesto& p, Venta& c) {
  c.efectivo = EfectivoDe(c.v, false);
  if (c.efectivo.soles <= 0 && c.efectivo.dolares <= 0) return true;
  c.o.tipo =
      c.v.bLiquidando ? TipoOperacion::Liquidado : TipoOperacion::Efectivo;  // also for the cash part of a voucher sale
  return GrabarEfectivo(p, c.o, c.efectivo);
}

}  // namespace

EfectivoDocumento EfectivoDe(const CajaRegistradoraFull& v, bool deLiquidacion) {
  const auto de = [](const QString& soles, const QString& dolares, const QString& vueltoSoles,
                     const QString& vueltoDolares) {
    return EfectivoDocumento{LeerImporte(soles), LeerImporte(dolares), noNegativo(LeerImporte(vueltoSoles)),
                             noNegativo(LeerImporte(vueltoDolares))};
  };
  return deLiquidacion ? de(v.txtliqefectivosoles, v.txtliqefectivodolares, v.txtliqvueltosoles, v.ttxliqvueltodolares)
                       : de(v.txtEfectivoSoles, v.txtEfectivoDolares, v.txtVueltoSoles, v.txtVueltoDolares);
}

bool pasos::Recalcular(Puesto& p, Venta& c) {
  if (c.v.bVoucherListo) return true;
  CalculaTotales(p, c.v);
  CuadraPago(p, c.v);
  return true;
}

bool pasos::FijarDocumento(Puesto& p, Venta& c) {
  ConectarCliente(p, true);  // without it the sale goes on
  c.nombre = c.v.txtNombres;
  c.idLocal = c.v.nIdLocal;
  FijarTipoDocumento(c, c.v.txtRUC);
  return FijarFecha(p, c);
}

bool pasos::Autorizar(Puesto&, Venta& c) {
  bool conPorcentaje = false;
  for (const auto& fila : c.v.lineas) conPorcentaje = conPorcentaje || !esCero(fila[kPorc]);
  c.v.bAcceso = false;
  if (!conPorcentaje) return true;
  const auto supervisor = c.pantallas.autorizar(QStringLiteral("Venta con descuento o recargo"));
  if (!supervisor || Recortar(*supervisor).isEmpty()) return false;
  c.supervisor = c.v.txtsupervisor = *supervisor;
  c.v.bAcceso = true;
  return true;
}

bool pasos::PagarExacto(Puesto&, Venta& c) {
  if (!tipoConEfectivo(c.v.nTipoVenta)) return true;  // what cards don't pay stands in the voucher
  for (QString* campo : {&c.v.txtEfectivoSoles, &c.v.txtEfectivoDolares}) {
    if (Recortar(*campo).isEmpty()) *campo = QStringLiteral("0.00");
  }
  if (esCero(c.v.txtEfectivoSoles) && esCero(c.v.txtEfectivoDolares)) c.v.txtEfectivoSoles = c.v.txtSoles;
  return true;
}

bool pasos::TomarLineas(Puesto& p, Venta& c) {
  if (c.clase != ClaseDocumento::VentaVoucher && !c.v.bVoucherListo) {
    p.ses.poVoucher.clear();
    p.ses.poVoucherTotal = 0;
  }
  if (c.clase == ClaseDocumento::VentaExacta && !(esCero(c.v.txtVueltoSoles) && esCero(c.v.txtVueltoDolares)))
    c.clase = ClaseDocumento::VentaConVuelto;
  FijarCliente(c, c.v.txtTarjeta, c.v.txtLocal);
  if (!pantallaDe(c.v.nTipoVenta).llevaLineas) return true;
  for (const auto& fila : c.v.lineas) {
    c.lineas.push_back(LineaDe(p, fila));
    c.igv += LeerImporte(fila[kIgv]);
    c.servicio += LeerImporte(fila[kServ]);
  }
  return true;
}

bool pasos::LeerImportes(Puesto&, Venta& c) {
  const bool deLiquidacion = c.v.bVoucherListo && (c.v.bLiquidando || c.clase == ClaseDocumento::LIQPAD);
  c.total = LeerImporte(c.v.txtSoles);
  c.efectivo = EfectivoDe(c.v, deLiquidacion);
  return true;
}

bool pasos::Cuadrar(Puesto& p, Venta& c) {
  for (int i = 0; i < kIntentosCuadre; ++i) {
    LeerImportes(p, c);
    const double entra = Redondear(p.ses.pnTipoCambio * c.efectivo.dolares + c.efectivo.soles, 2);
    const double sale = Redondear(p.ses.pnTipoCambio * c.efectivo.vueltoDolares + c.efectivo.vueltoSoles, 2);
    if (!DatosDe(c.clase).cuadra || Redondear(entra - sale, 2) == Redondear(c.total, 2)) break;
    p.mensajes.mostrar(QStringLiteral("Ocurrio un error de Cálculo"));
  }
  return true;
}

bool pasos::Limpiar(Puesto& p, Venta& c) {
  c.v.bLiquidando = false;
  c.v.vueltoAnterior = LeerImporte(c.v.txtVueltoSoles) > 0 ? c.v.txtVueltoSoles : QString();
  CancelarVenta(p, c.v);
  return true;
}

namespace {

using namespace pasos;

template <auto hacer>
constexpr auto kComun = Comun<hacer, Venta>;

const Paso<Venta> kPasosVenta[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"supervisor", Autorizar},
    {"gaveta", kComun<AbrirCajon>},
    {"exacto", PagarExacto},
    {"codigo", kComun<TomarCodigo>},
    {"copia", TomarLineas},
    {"cuadre", Cuadrar},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"totales", totalizar},
    {"saldo", kComun<LeerPuntos>},
    {"ticket", kComun<ImprimirTicket>},
    {"verificar", kComun<VerificarNumero>},
    {"ultima", kComun<GuardarUltima>},
    {"lineas", grabarLineas},
    {"puntos", kComun<Acumular>},
    {"efectivo", grabarEfectivo},
    {"limpiar", Limpiar},
};

const Paso<Venta> kPasosOrden[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"supervisor", Autorizar},
    {"gaveta", kComun<AbrirCajon>},
    {"exacto", PagarExacto},
    {"codigo", kComun<TomarCodigo>},
    {"copia", TomarLineas},
    {"cuadre", Cuadrar},
    {"paralela", FijarParalela},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"saldo", kComun<LeerPuntos>},
    {"ticket", kComun<ImprimirTicket>},
    {"ultima", kComun<GuardarUltima>},
    {"cabeza", GrabarCabeza},
    {"lineas", GrabarLineas},
    {"efectivo", pasos::GrabarEfectivo},
    {"tarjetas", GrabarTarjetas},
    {"puntos", kComun<Acumular>},
    {"limpiar", Limpiar},
};

const Paso<Venta> kPasosNota[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"supervisor", Autorizar},
    {"gaveta", kComun<AbrirCajon>},
    {"codigo", kComun<TomarCodigo>},
    {"copia", TomarLineas},
    {"importes", LeerImportes},
    {"paralela", FijarParalela},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"saldo", kComun<LeerPuntos>},
    {"ticket", kComun<ImprimirTicket>},
    {"ultima", kComun<GuardarUltima>},
    {"cabeza", GrabarCabeza},
    {"lineas", GrabarLineas},
    {"puntos", kComun<Acumular>},
    {"limpiar", Limpiar},
};

const Paso<Venta> kPasosAdelanto[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"gaveta", kComun<AbrirCajon>},
    {"adelanto", ExigirAdelanto},
    {"codigo", kComun<TomarCodigo>},
    {"copia", TomarLineas},
    {"importes", LeerAdelanto},
    {"paralela", FijarParalela},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"ticket", kComun<ImprimirTicket>},
    {"ultima", kComun<GuardarUltima>},
    {"cabeza", GrabarCabeza},
    {"limpiar", Limpiar},
};

const Paso<Venta> kPasosAdelantoVoucher[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"gaveta", kComun<AbrirCajon>},
    {"adelanto", ExigirAdelanto},
    {"codigo", kComun<TomarCodigo>},
    {"copia", TomarLineas},
    {"importes", LeerAdelanto},
    {"paralela", FijarParalela},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"ticket", kComun<ImprimirTicket>},
    {"repetida", RechazarRepetida},
    {"cabeza", GrabarCabeza},
    {"ultima", kComun<GuardarUltima>},
    {"tarjetas", GrabarTarjetas},
    {"limpiar", Limpiar},
};

const Paso<Venta> kPasosLiquidacion[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"gaveta", kComun<AbrirCajon>},
    {"codigo", kComun<TomarCodigo>},
    {"copia", TomarLineas},
    {"importes", LeerImportes},
    {"notas", LeerNotas},
    {"paralela", FijarParalela},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"ticket", kComun<ImprimirTicket>},
    {"cifras", GuardarCifras},
    {"ultima", kComun<GuardarUltima>},
    {"cabeza", GrabarCabeza},
    {"efectivo", pasos::GrabarEfectivo},
    {"tarjetas", GrabarTarjetas},
    {"liquidar", Liquidar},
    {"limpiar", Limpiar},
    {"documento", PedirDocumento},
};

const struct {
  ClaseDocumento clase;
  std::span<const Paso<Venta>> pasos;
} kCommits[] = {
    {ClaseDocumento::VentaExacta, kPasosVenta},  {ClaseDocumento::VentaVoucher, kPasosVenta},
    {ClaseDocumento::OC, kPasosOrden},           {ClaseDocumento::NC, kPasosNota},
    {ClaseDocumento::PADE, kPasosAdelanto},      {ClaseDocumento::PADV, kPasosAdelantoVoucher},
    {ClaseDocumento::LIQPAD, kPasosLiquidacion},
};

}  // namespace

bool GrabarVenta(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  bool hecho = false;
  const ClaseDocumento clase = ClaseDe(v.nTipoVenta);
  for (const auto& commit : kCommits) {
    if (commit.clase != clase) continue;
    Venta venta(v, pantallas, clase);
    hecho = EjecutarPasos<Venta>(p, venta, commit.pasos) == nullptr;
    break;
  }
  if (v.bVoucherListo) return hecho;
  p.ses.poVoucher.clear();
  p.ses.poVoucherTotal = 0;
  return hecho;
}
