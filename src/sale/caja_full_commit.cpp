#include "sale/caja_full_commit.h"

#include "documento/pasos.h"
#include "foundation/puesto.h"
#include "loyalty/puntos.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full_pasos.h"

namespace {

constexpr int kIntentosCuadre = 3;

// Cash less change must be the total: told three times, then the commit goes on with what was read.
bool cuadrar(Puesto& p, VentaFull& c) {
  const auto enSoles = [&p](double dolares, double soles) {
    return Redondear(p.ses.pnTipoCambio * dolares + soles, 2);
  };
  const EfectivoDocumento& e = c.efectivo;
  const double queda = enSoles(e.dolares, e.soles) - enSoles(e.vueltoDolares, e.vueltoSoles);
  if (!DatosDe(c.clase).cuadra || Redondear(queda, 2) == Redondear(c.total, 2)) return true;
  for (int i = 0; i < kIntentosCuadre; ++i) p.mensajes.mostrar(QStringLiteral("Ocurrio un error de Cálculo"));
  return true;
}

// An advance payment needs an amount; one that is no number ends the commit without a word.
bool exigirMonto(Puesto& p, VentaFull& c) {
  if (!c.montoLegible) return false;
  const EfectivoDocumento& e = c.efectivo;
  if (e.soles >= 0 && e.dolares >= 0 && e.soles + e.dolares > 0) return true;
  p.mensajes.mostrar(QStringLiteral("Debe registar una cantidad mayor que cero."));
  return false;
}

bool totalizarVenta(Puesto& p, VentaFull& c) {
  CifrasVenta x;
  x.factura = c.factura();
  x.total = c.total;
  x.igv = x.factura ? c.igv : 0;
  x.servicio = c.servicio;
  x.porcServ = p.ses.psPorcServ;
  x.efectivo = c.efectivo;
  x.voucher = c.tarjetas;
  x.liquidacion = c.liquidacion;
  c.totales = TotalesVenta(c.clase, x);
  return true;
}

bool escribirVenta(Puesto& p, VentaFull& c) {
  for (const auto& pago : c.tarjetas) c.o.emisor += u',' + Recortar(pago.cod_tar);
  c.o.tipo = c.liquidacion ? TipoOperacion::Liquidado : DatosDe(c.clase).operacion;
  c.o.liquidacion = c.liquidacion ? c.liquidacion->codigo : 0;
  for (const auto& linea : c.lineas) {
    if (!GrabarLinea(p, c.o, linea, c.supervisor)) return false;
  }
  return true;
}

bool escribirCobro(Puesto& p, VentaFull& c) {
  if (c.cobrado.soles <= 0 && c.cobrado.dolares <= 0) return true;
  // Also for the cash part of a voucher sale.
  c.o.tipo = c.liquidacion ? TipoOperacion::Liquidado : TipoOperacion::Efectivo;
  return GrabarEfectivo(p, c.o, c.cobrado);
}

using namespace pasos;

template <auto hacer>
constexpr auto kComun = Comun<hacer, VentaFull>;

const Paso<VentaFull> kPasosVenta[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"supervisor", PedirSupervisor, false},
    {"exacto", PagarExacto},
    {"lectura", TomarVenta},
    {"gaveta", kComun<AbrirCajon>},
    {"codigo", kComun<TomarCodigo>},
    {"cuadre", cuadrar},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"totales", totalizarVenta},
    {"saldo", kComun<LeerPuntos>},
    {"ticket", kComun<ImprimirTicket>},
    {"verificar", kComun<VerificarNumero>},
    {"ultima", kComun<GuardarUltima>},
    {"lineas", escribirVenta},
    {"puntos", kComun<Acumular>},
    {"efectivo", escribirCobro},
    {"limpiar", LimpiarPantalla},
};

const Paso<VentaFull> kPasosOrden[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"supervisor", PedirSupervisor, false},
    {"exacto", PagarExacto},
    {"lectura", TomarOrden},
    {"gaveta", kComun<AbrirCajon>},
    {"codigo", kComun<TomarCodigo>},
    {"cuadre", cuadrar},
    {"paralela", kComun<PrepararParalela>},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"saldo", kComun<LeerPuntos>},
    {"ticket", kComun<ImprimirTicket>},
    {"ultima", kComun<EscribirUltima>},
    {"cabeza", kComun<EscribirCabeza>},
    {"lineas", kComun<EscribirLineas>},
    {"efectivo", kComun<EscribirEfectivo>},
    {"tarjetas", kComun<EscribirTarjetas>},
    {"puntos", kComun<Acumular>},
    {"limpiar", LimpiarPantalla},
};

const Paso<VentaFull> kPasosNota[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"supervisor", PedirSupervisor, false},
    {"lectura", TomarNota},
    {"gaveta", kComun<AbrirCajon>},
    {"codigo", kComun<TomarCodigo>},
    {"paralela", kComun<PrepararParalela>},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"saldo", kComun<LeerPuntos>},
    {"ticket", kComun<ImprimirTicket>},
    {"ultima", kComun<EscribirUltima>},
    {"cabeza", kComun<EscribirCabeza>},
    {"lineas", kComun<EscribirLineas>},
    {"puntos", kComun<Acumular>},
    {"limpiar", LimpiarPantalla},
};

const Paso<VentaFull> kPasosAdelanto[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"lectura", TomarAdelanto},
    {"gaveta", kComun<AbrirCajon>},
    {"monto", exigirMonto, false},
    {"codigo", kComun<TomarCodigo>},
    {"paralela", kComun<PrepararParalela>},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"ticket", kComun<ImprimirTicket>},
    {"ultima", kComun<EscribirUltima>},
    {"cabeza", kComun<EscribirCabeza>},
    {"limpiar", LimpiarPantalla},
};

const Paso<VentaFull> kPasosAdelantoVoucher[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"lectura", TomarAdelanto},
    {"gaveta", kComun<AbrirCajon>},
    {"monto", exigirMonto, false},
    {"codigo", kComun<TomarCodigo>},
    {"paralela", kComun<PrepararParalela>},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"ticket", kComun<ImprimirTicket>},
    {"repetida", kComun<RechazarRepetida>},
    {"cabeza", kComun<EscribirCabeza>},
    {"ultima", kComun<EscribirUltima>},
    {"tarjetas", kComun<EscribirTarjetas>},
    {"limpiar", LimpiarPantalla},
};

const Paso<VentaFull> kPasosLiquidacion[] = {
    {"recalcular", Recalcular},
    {"documento", FijarDocumento},
    {"lectura", TomarLiquidacion},
    {"gaveta", kComun<AbrirCajon>},
    {"codigo", kComun<TomarCodigo>},
    {"notas", kComun<LeerConsumos>},
    {"paralela", kComun<PrepararParalela>},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"ticket", kComun<ImprimirTicket>},
    {"ultima", kComun<EscribirUltima>},
    {"cabeza", kComun<EscribirCabeza>},
    {"efectivo", kComun<EscribirEfectivo>},
    {"tarjetas", kComun<EscribirTarjetas>},
    {"liquidar", kComun<Liquidar>},
    {"limpiar", LimpiarPantalla},
    {"pedir", PedirDocumento},
};

const struct {
  ClaseDocumento clase;
  std::span<const Paso<VentaFull>> pasos;
} kCommits[] = {
    {ClaseDocumento::VentaExacta, kPasosVenta},  {ClaseDocumento::VentaVoucher, kPasosVenta},
    {ClaseDocumento::OC, kPasosOrden},           {ClaseDocumento::NC, kPasosNota},
    {ClaseDocumento::PADE, kPasosAdelanto},      {ClaseDocumento::PADV, kPasosAdelantoVoucher},
    {ClaseDocumento::LIQPAD, kPasosLiquidacion},
};

}  // namespace

bool GrabarVenta(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  const ClaseDocumento clase = ClaseDe(v.nTipoVenta);
  for (const auto& commit : kCommits) {
    if (commit.clase != clase) continue;
    VentaFull venta(v, pantallas, clase);
    const QString nombre = QStringLiteral("GrabarVenta ") + pantallaDe(v.nTipoVenta).entrada.toString();
    return EjecutarPasos<VentaFull>(p, nombre, venta, commit.pasos) == nullptr;
  }
  return false;
}
