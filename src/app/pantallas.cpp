#include "app/pantallas.h"

#include <QApplication>

#include "backoffice/frm_tipo_cambio.h"
#include "backoffice/frm_tipo_cambio_lista.h"
#include "cashday/frm_cuadre.h"
#include "cashday/principal.h"
#include "foundation/puesto.h"
#include "sale/frm_autorizar.h"
#include "sale/frm_caja_full.h"

namespace {

QWidget* padre() {
  QWidget* modal = QApplication::activeModalWidget();
  return modal ? modal : QApplication::activeWindow();
}

}  // namespace

void Pantallas::abrirRapida() { noDisponible(QStringLiteral("Caja Registradora")); }

void Pantallas::abrirFull() {
  frmCajaRegistradoraFull f(p_, *this, padre());
  f.exec();
}

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
