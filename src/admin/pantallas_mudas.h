#pragma once
// The screens beside a register and the main window: the real routines behind them, used as the day says.
#include "cashday/cuadre.h"
#include "cashday/pantallas_principal.h"
#include "cashday/principal.h"
#include "sale/pago_efectivo.h"
#include "sale/pantallas_venta.h"
#include "sale/voucher.h"
#include "sync/sincronizar.h"
#include "sync/updt.h"
#include "voiding/pantallas_anulacion.h"

class PantallasDelDia final : public PantallasVenta {
 public:
  explicit PantallasDelDia(Puesto& p) : p_(p) {}
  QStringList pagos;  // amounts on the cards, in their order
  QString efectivo;   // typed on the cash screen
  TarjetaElegida cliente;

  std::optional<QString> autorizar(const QString&) override { return QStringLiteral("SUPERVISOR"); }
  std::optional<CobroTarjetas> voucher(const PedidoVoucher& pedido) override {
    CajaVoucher v;
    AbrirVoucher(p_, pedido, v);
    for (int n = 0; n < pagos.size(); ++n) {
      if (!AgregarTarjeta(p_, v, n) || !PonerPago(v, n, pagos[n])) return {};
    }
    return AceptarVoucher(p_, v);
  }
  std::optional<EfectivoDocumento> pagoEfectivo(double total) override {
    PagoEnEfectivo v;
    AbrirPagoEfectivo(p_, total, v);
    v.txtEfectivo = efectivo;
    v.efectivoTecleado = true;
    SalirCampoEfectivo(p_, v, CampoEfectivo::Soles);
    return AceptarPagoEfectivo(p_, v);
  }
  std::optional<QString> buscarArticulo() override { return {}; }
  std::optional<TarjetaElegida> buscarCliente(const QString&) override { return cliente; }
  std::optional<DocumentoElegido> buscarParalela(ListaParalela, bool) override { return {}; }
  void retiro() override {}
  void noDisponible(const QString&) override {}

 private:
  Puesto& p_;
};

struct AnulacionDelDia final : PantallasAnulacion {
  std::optional<QString> autorizar(const QString&) override { return QStringLiteral("SUPERVISOR"); }
};

class PrincipalDelDia : public PantallasPrincipal {
 public:
  explicit PrincipalDelDia(Puesto& p) : p_(p) {}
  bool rearranca = false;
  std::optional<Cuadre> cuadre;  // the last one that was opened

  void abrirRapida() override {}
  void abrirFull() override {}
  void ventaFutura() override {}
  void tipoCambioLista() override {}
  void tipoCambioDetalle(int) override {}
  void mantenimiento(PantallaMantenimiento) override {}
  void cuadreDeCaja(Principal& v, ModoCuadre modo) override {
    cuadre.emplace();
    Inicio(p_, *cuadre, modo);
    CargarCuadre(p_, *cuadre);
    if (v.bReporteImpreso) Imprimir(p_, *cuadre);
  }
  void sincronizar(bool) override {
    FrmUpdt pantalla(p_);
    Sincronizar(p_, pantalla);
  }
  void sincronizarFecha() override {}
  void rearrancar() override { rearranca = true; }
  std::optional<QString> autorizar(const QString&) override { return QStringLiteral("SUPERVISOR"); }
  void noDisponible(const QString&) override {}

 private:
  Puesto& p_;
};
