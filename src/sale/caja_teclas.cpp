#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/text/texto.h"
#include "sale/caja_full.h"
#include "sale/commit.h"
#include "sale/pantallas_venta.h"

namespace {

Foco emitir(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  GrabarVenta(p, v, pantallas);
  // The voucher of a liquidation goes on to the sale document that it still waits for.
  if (!v.bLiquidando) v.bVoucherListo = false;
  return VentaVacia(v) ? Foco{QStringLiteral("txtTarjeta")} : Foco{};
}

// With a liquidation on the screen neither cancel nor exit works: its document comes first.
Foco exigirDocumento(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  const bool si = p.mensajes.preguntar(QStringLiteral("Debe Emitir un documento de venta para la Liquidación\n"
                                                      "Se emitirá una Boleta de Venta \n"
                                                      "Desea continuar?"),
                                       QStringLiteral("Liquidación"));
  if (!si) return {};
  PonerTipo(v, v.tipos.front());
  return emitir(p, v, pantallas);
}

TrasTecla accionTecla(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas, int indice) {
  switch (indice) {
    case 0:
      if (v.bLiquidando) return {false, exigirDocumento(p, v, pantallas)};
      v.bVoucherListo = false;
      CancelarVenta(p, v);
      return {false, {QStringLiteral("txtTarjeta")}};
    case 1:
      pantallas.noDisponible(QStringLiteral("Caja Registradora"));
      return {};
    case 2: {
      AjustarCliente(v);
      const auto falta = ValidaVenta(p, v, pantallas);
      return {false, falta ? *falta : emitir(p, v, pantallas)};
    }
    case 3:
      if (v.bLiquidando) return {false, exigirDocumento(p, v, pantallas)};
      return {true, {}};
    default:
      pantallas.reimprimir(Recortar(v.txtLocal));
      return {};
  }
}

}  // namespace

void ExigirFechaSistema(Puesto& p) {
  if (VerificarFechaSistema(p)) return;
  p.mensajes.mostrar(QStringLiteral("La fecha del sistema no puede ser posterior a al ultima operacion "
                                    "realizada...Verifique!!\nEl sistema se cerrara!!!"),
                     QStringLiteral("Mensaje"), Icono::Critico);
  p.salida.terminar(1);
}

TrasTecla PulsarTecla(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas, int indice) {
  ExigirFechaSistema(p);
  const TrasTecla tras = accionTecla(p, v, pantallas, indice);
  v.efectivoTecleado = false;
  return tras;
}
