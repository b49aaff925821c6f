#include "app/pantallas.h"

#include <QApplication>

#include "app/arranque.h"
#include "backoffice/frm_configura_boton_producto.h"
#include "backoffice/frm_parametros.h"
#include "backoffice/frm_producto_lista.h"
#include "backoffice/frm_tablas.h"
#include "backoffice/frm_tipo_cambio.h"
#include "backoffice/frm_tipo_cambio_lista.h"
#include "backoffice/frm_usuario_lista.h"
#include "cashday/frm_cuadre.h"
#include "cashday/principal.h"
#include "cashday/tipo_cambio.h"
#include "foundation/puesto.h"
#include "printing/frm_cabecera_impresion_lista.h"
#include "printing/frm_configura_impresora.h"
#include "sale/frm_busqueda_articulos.h"
#include "sale/frm_caja_full.h"
#include "sale/frm_caja_rapida.h"
#include "sale/frm_caja_voucher.h"
#include "sale/frm_pago_efectivo.h"
#include "sale/frm_retiro.h"
#include "sale/frm_supervisor.h"
#include "voiding/frm_anula_transaccion.h"
#include "voiding/frm_reimpresion.h"

namespace {

QWidget* padre() {
  QWidget* modal = QApplication::activeModalWidget();
  return modal ? modal : QApplication::activeWindow();
}

}  // namespace

void Pantallas::abrirRapida() { vender(Registradora::Rapida); }

void Pantallas::abrirFull() { vender(Registradora::Full); }

void Pantallas::vender(Registradora cual) {
  siguiente_ = {cual, {}};
  while (siguiente_) {
    const auto [registradora, venta] = *siguiente_;
    siguiente_.reset();
    AsegurarTipoCambio(p_, *this);
    if (registradora == Registradora::Rapida) {
      frmCajaRegistradora f(p_, *this, padre());
      f.recibir(venta);
      f.exec();
    } else {
      frmCajaRegistradoraFull f(p_, *this, padre());
      RecibirVenta(p_, f.venta(), venta);
      f.mostrar();
      f.exec();
    }
  }
}

bool Pantallas::pasarA(Registradora cual, const VentaEnCurso& venta) {
  siguiente_ = {cual, venta};
  return true;
}

bool Pantallas::irARapida(const VentaEnCurso& venta) { return pasarA(Registradora::Rapida, venta); }

bool Pantallas::irAFull(const VentaEnCurso& venta) { return pasarA(Registradora::Full, venta); }

void Pantallas::tipoCambioLista() {
  frmTipoCambioLista f(p_, padre());
  f.exec();
}

void Pantallas::tipoCambioDetalle(int modo) {
  TipoCambio v;
  abrirTipoCambio(p_, static_cast<ModoDetalle>(modo), {}, v, padre());
}

void Pantallas::mantenimiento(PantallaMantenimiento cual) {
  switch (cual) {
    case PantallaMantenimiento::Productos: frmProductoLista(p_, padre()).exec(); return;
    case PantallaMantenimiento::Teclado: frmConfiguraBotonProducto(p_, *this, padre()).exec(); return;
    case PantallaMantenimiento::Cabecera: frmCabeceraImpresionLista(p_, padre()).exec(); return;
    case PantallaMantenimiento::Impresora: frmConfiguraImpresora(p_, padre()).exec(); return;
    case PantallaMantenimiento::Usuarios: frmUsuarioLista(p_, padre()).exec(); return;
    case PantallaMantenimiento::Parametros: frmParametros(p_, padre()).exec(); return;
    case PantallaMantenimiento::TiposTarjeta: FrmTablas(p_, padre()).exec(); return;
  }
}

void Pantallas::anular() {
  frmAnulaTransaccion f(p_, *this, padre());
  f.exec();
}

void Pantallas::reimprimir(const QString& local) {
  frmReimpresion f(p_, local, padre());
  f.exec();
}

void Pantallas::cuadreDeCaja(Principal& v, ModoCuadre modo) {
  frmCuadre f(p_, modo, v.bReporteImpreso, padre());
  f.exec();
}

// The room of the synchronisation is still to come.
bool Pantallas::sincronizar(bool) { return false; }

void Pantallas::contactarCentral() {
  if (p_.ses.bSinCentral && !QApplication::activeModalWidget()) (void)ContactarCentral(p_, PasosDelPrograma());
}

void Pantallas::respaldar(MotivoRespaldo motivo) {
  const CursorEspera espera;
  RespaldarSesion(p_, motivo);
}

std::optional<QString> Pantallas::autorizar(const QString& acto) { return mostrarAutorizacion(p_, padre(), acto); }

std::optional<CobroTarjetas> Pantallas::voucher(const PedidoVoucher& pedido) {
  return pedirVoucher(p_, padre(), pedido);
}

std::optional<EfectivoDocumento> Pantallas::pagoEfectivo(double total) { return pedirEfectivo(p_, padre(), total); }

std::optional<QString> Pantallas::buscarArticulo() {
  const auto fila = elegirEnBusqueda(p_, padre(), TipoBusqueda::Producto);
  return fila ? std::optional(fila->codigo) : std::nullopt;
}

std::optional<TarjetaElegida> Pantallas::buscarCliente(const QString& texto) {
  const auto fila = elegirEnBusqueda(p_, padre(), TipoBusqueda::Cliente, texto);
  return fila ? std::optional(TarjetaElegida{fila->codigo, fila->idLocal}) : std::nullopt;
}

std::optional<DocumentoElegido> Pantallas::buscarParalela(ListaParalela lista, bool soloVer) {
  const TipoBusqueda tipo = lista == ListaParalela::PagoAdelantado ? TipoBusqueda::PagoAdelantado
                            : lista == ListaParalela::Liquidacion0 ? TipoBusqueda::Liquidacion0
                                                                   : TipoBusqueda::Liquidacion1;
  const auto fila = elegirEnBusqueda(p_, padre(), tipo, {}, soloVer);
  return fila ? std::optional(fila->documento) : std::nullopt;
}

void Pantallas::retiro() {
  frmPago f(p_, padre());
  f.exec();
}

void Pantallas::noDisponible(const QString& pantalla) {
  p_.mensajes.mostrar(QStringLiteral("La opción «") + pantalla +
                      QStringLiteral("» todavía no está disponible en esta versión."));
}
