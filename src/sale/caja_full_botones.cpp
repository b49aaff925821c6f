#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full.h"
#include "sale/caja_full_commit.h"
#include "sale/pantallas_venta.h"
#include "sale/traspaso.h"

namespace {

const Foco kAlCliente{QStringLiteral("txtTarjeta")};

// What became of a wish to commit.
struct Emision {
  bool hecha = false;
  Foco foco;
};

Emision emitir(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  const bool hecha = GrabarVenta(p, v, pantallas);
  // The voucher of a liquidation goes on to the sale document that it still waits for.
  if (!v.liquidacion) v.cobro.reset();
  if (hecha) return {true, kAlCliente};
  // Entering the field empties the other one, so only where neither holds an amount.
  const bool sinMonto = pantallaDe(v.nTipoVenta).panel == PanelTipo::MontoAdelantado &&
                        LeerImporte(v.txtPagoAdelantado) <= 0 && LeerImporte(v.txtPADEDolares) <= 0;
  return {false, sinMonto ? Foco{QStringLiteral("txtPagoAdelantado")} : Foco{}};
}

Emision comprobarYEmitir(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  if (const QString campo = CampoPorMirar(p, v, pantallas); !campo.isEmpty()) return {false, {campo}};
  if (const auto foco = ValidaVenta(p, v, pantallas)) return {false, *foco};
  return emitir(p, v, pantallas);
}

// The voucher screen first. What it wrote into the cash fields goes again when the sale stays on the screen: the next
// attempt asks for the cards anew.
Foco pagarConTarjetas(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  const auto cobro = pantallas.voucher({v.nTipoVenta, v.txtSoles, v.txtDolares, v.txtPagoAdelantado});
  if (!cobro) return {};
  const QString efectivo = v.txtEfectivoSoles, vuelto = v.txtVueltoSoles;
  v.txtEfectivoSoles = cobro->txtEfectivoSoles;
  v.txtVueltoSoles = cobro->txtVueltoSoles;
  v.cobro = cobro;
  const Emision e = comprobarYEmitir(p, v, pantallas);
  if (!e.hecha) {
    v.cobro.reset();
    v.txtEfectivoSoles = efectivo;
    v.txtVueltoSoles = vuelto;
  }
  return e.foco;
}

Foco imprimirTickets(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  const bool conTarjetas = v.nTipoVenta == TipoVenta::Voucher || v.nTipoVenta == TipoVenta::PADV;
  if (conTarjetas && !v.cobro) return pagarConTarjetas(p, v, pantallas);
  return comprobarYEmitir(p, v, pantallas).foco;
}

// With a liquidation on the screen there is no way out of it: its document comes first.
Foco exigirDocumento(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  const bool si = p.mensajes.preguntar(QStringLiteral("Debe Emitir un documento de venta para la Liquidación\n"
                                                      "Se emitirá una Boleta de Venta \n"
                                                      "Desea continuar?"),
                                       QStringLiteral("Liquidación"));
  if (!si) return {};
  if (!v.cobro) PonerTipo(v, v.tipos.front());  // paid by cards it stays a voucher sale
  v.txtRUC.clear();
  if (const QString campo = CampoPorMirar(p, v, pantallas); !campo.isEmpty()) return {campo};
  return emitir(p, v, pantallas).foco;
}

// The sale goes along, unless the quick register couldn't hold it as it stands.
bool irARapida(Puesto& p, const CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  if (CabeEnRapida(v)) return pantallas.irARapida(LlevarVenta(p, v));
  p.mensajes.mostrar(QStringLiteral("La Caja Registradora no admite descuentos ni recargos.\n"
                                    "Termine o cancele esta venta antes de cambiar."));
  return false;
}

TrasTecla accionTecla(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas, int indice) {
  if (v.liquidacion && (indice == 0 || indice == 1 || indice == 3)) return {false, exigirDocumento(p, v, pantallas)};
  switch (indice) {
    case 0:
      v.cobro.reset();
      CancelarVenta(p, v);
      return {false, kAlCliente};
    case 1: return {irARapida(p, v, pantallas), {}};
    case 2: return {false, imprimirTickets(p, v, pantallas)};
    case 3: return {SinEmpezar(v) || PreguntarSalida(p), {}};
    default: pantallas.reimprimir(Recortar(v.txtLocal)); return {};
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

bool PreguntarSalida(Puesto& p) {
  return p.mensajes.preguntar(QStringLiteral("Hay una venta sin imprimir en la pantalla.\n¿Desea salir y perderla?"),
                              Mensajes::kTitulo, false);
}

TrasTecla PulsarBoton(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas, int indice) {
  ExigirFechaSistema(p);
  const TrasTecla tras = accionTecla(p, v, pantallas, indice);
  v.efectivoTecleado = false;
  return tras;
}

TrasTecla PulsarVoucher(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  ExigirFechaSistema(p);
  const Foco foco = pagarConTarjetas(p, v, pantallas);
  v.efectivoTecleado = false;
  return {false, foco};
}
