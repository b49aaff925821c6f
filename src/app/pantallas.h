#pragma once
// The screens that rooms open in each other, by the interfaces that the rooms declare.
#include "cashday/pantallas_principal.h"
#include "sale/pantallas_venta.h"
#include "voiding/pantallas_anulacion.h"

class QWidget;
struct Puesto;

// All of them over the real windows. Each screen stands over the window that is active when it opens.
class Pantallas final : public PantallasPrincipal, public PantallasVenta, public PantallasAnulacion {
 public:
  explicit Pantallas(Puesto& p) : p_(p) {}

  void abrirRapida() override;
  void abrirFull() override;
  void tipoCambioLista() override;
  void tipoCambioDetalle(int modo) override;
  void mantenimiento(PantallaMantenimiento cual) override;
  std::optional<QString> autorizar(const QString& acto) override;
  std::optional<EfectivoVoucher> voucher(const PedidoVoucher& pedido) override;
  std::optional<EfectivoDocumento> pagoEfectivo(double total) override;
  std::optional<QString> buscarArticulo() override;
  std::optional<TarjetaElegida> buscarCliente(const QString& texto) override;
  std::optional<DocumentoElegido> buscarParalela(ListaParalela lista, bool soloVer) override;
  void retiro() override;
  void anular() override;
  void reimprimir(const QString& local) override;
  void noDisponible(const QString& pantalla) override;

 private:
  Puesto& p_;
};
