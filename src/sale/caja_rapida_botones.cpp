#include "foundation/puesto.h"
#include "platform/text/texto.h"
#include "sale/caja_full.h"
#include "sale/caja_rapida.h"
#include "sale/caja_rapida_commit.h"
#include "sale/pantallas_venta.h"
#include "sale/traspaso.h"

namespace {

const TrasTeclaRapida kCantidadMal{false, QStringLiteral("txtCantidad"), true};

TrasTeclaRapida capturar(Puesto& p, CajaRegistradora& v, int tecla) {
  if (!CapturaDatosProducto(p, v, v.teclas[static_cast<size_t>(tecla)].nCodigoTecla)) return {};
  return {false, QStringLiteral("txtCantidad")};
}

TrasTeclaRapida imprimirTickets(Puesto& p, CajaRegistradora& v, PantallasVenta& pantallas) {
  if (!v.bVentaIniciada) return {};
  if (const QString campo = CampoPorMirar(p, v, pantallas); !campo.isEmpty()) return {false, campo};
  if (!RucAceptado(p, v.txtRuc)) return {false, QStringLiteral("txtRuc"), true};
  GrabarVentaRapida(p, v, pantallas);
  // The next customer's card comes first.
  return {false, v.bVentaIniciada ? QString() : QStringLiteral("txtTarjeta")};
}

}  // namespace

TrasTeclaRapida PulsarBotonRapida(Puesto& p, CajaRegistradora& v, PantallasVenta& pantallas, int indice) {
  ExigirFechaSistema(p);
  if (indice > kTeclasProducto && indice < kBotonBorra) return {};
  // The button takes the keyboard, so the quantity is left; cancelling works whatever stands there.
  if (indice != kBotonBorra && !SalirCantidad(p, v)) return kCantidadMal;
  if (indice >= 1 && indice <= kTeclasProducto) return capturar(p, v, indice);
  switch (indice) {
    case kBotonCodProd: p.mensajes.mostrar(QStringLiteral("Ingrese el código del producto")); return {};
    case kBotonBorra: CancelarACTC(v); return {};
    case kBotonACTC: pantallas.reimprimir(Recortar(v.txtLocal)); return {};
    case kBotonImprime: return imprimirTickets(p, v, pantallas);
    case kBotonTipo:
      if (v.bVentaIniciada) SiguienteTipoVenta(p, v);
      return {};
    case kBotonAnula:
      if (!v.bVentaIniciada) pantallas.anular();
      return {};
    case kBotonPago:
      if (!v.bVentaIniciada) pantallas.retiro();
      return {};
    default: return {};
  }
}

bool PuedeSalirRapida(Puesto& p, const CajaRegistradora& v) { return !v.bVentaIniciada || PreguntarSalida(p); }

TrasTeclaRapida CambiarAFull(Puesto& p, CajaRegistradora& v, PantallasVenta& pantallas) {
  if (!SalirCantidad(p, v)) return kCantidadMal;
  AjustarCliente(v);
  return {pantallas.irAFull(LlevarVenta(v)), {}};
}
