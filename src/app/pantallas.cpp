#include "app/pantallas.h"

#include <QApplication>

#include "backoffice/frm_tipo_cambio.h"
#include "backoffice/frm_tipo_cambio_lista.h"
#include "cashday/frm_cuadre.h"
#include "cashday/principal.h"
#include "foundation/puesto.h"
#include "sale/frm_autorizar.h"
#include "sale/frm_caja_full.h"
#include "sale/frm_caja_rapida.h"
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
    case PantallaMantenimiento::Productos: noDisponible(QStringLiteral("Productos")); return;
    case PantallaMantenimiento::Teclado: noDisponible(QStringLiteral("Configuración del Teclado")); return;
    case PantallaMantenimiento::Cabecera: noDisponible(QStringLiteral("Cabecera de Impresión")); return;
    case PantallaMantenimiento::Impresora: noDisponible(QStringLiteral("Configuración Impresora")); return;
    case PantallaMantenimiento::Usuarios: noDisponible(QStringLiteral("Usuarios")); return;
    case PantallaMantenimiento::Parametros: noDisponible(QStringLiteral("Configuración Parámetros")); return;
    case PantallaMantenimiento::TiposTarjeta: noDisponible(QStringLiteral("Tipo de Tarjeta")); return;
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

std::optional<QString> Pantallas::autorizar(const QString& acto) { return autorizarOperacion(p_, padre(), acto); }

std::optional<EfectivoVoucher> Pantallas::voucher(const PedidoVoucher&) {
  noDisponible(QStringLiteral("Caja Voucher"));
  return {};
}

std::optional<EfectivoDocumento> Pantallas::pagoEfectivo(double) {
  noDisponible(QStringLiteral("Pago en Efectivo"));
  return {};
}

std::optional<QString> Pantallas::buscarArticulo() {
  noDisponible(QStringLiteral("Búsqueda de artículos"));
  return {};
}

std::optional<TarjetaElegida> Pantallas::buscarCliente(const QString&) {
  noDisponible(QStringLiteral("Búsqueda de clientes"));
  return {};
}

std::optional<DocumentoElegido> Pantallas::buscarParalela(ListaParalela, bool) {
  noDisponible(QStringLiteral("Pago Adelantado"));
  return {};
}

void Pantallas::retiro() { noDisponible(QStringLiteral("RECAUDACION - PAGO")); }

void Pantallas::noDisponible(const QString& pantalla) {
  p_.mensajes.mostrar(QStringLiteral("La opción «") + pantalla +
                      QStringLiteral("» todavía no está disponible en esta versión."));
}
