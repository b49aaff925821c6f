#pragma once
// The screens that rooms open in each other, by the interfaces that the rooms declare.
#include <functional>

#include "backoffice/pantallas_backoffice.h"
#include "cashday/pantallas_principal.h"
#include "sale/pantallas_venta.h"
#include "sale/traspaso.h"
#include "voiding/pantallas_anulacion.h"

class QWidget;
struct Puesto;

// The interfaces over the real windows. Each screen stands over the window that is active when it opens.
class Pantallas final : public PantallasPrincipal,
                        public PantallasVenta,
                        public PantallasBackoffice,
                        public PantallasAnulacion {
 public:
  // `alRearrancar` ends the session and starts the program again, after the event under way.
  Pantallas(Puesto& p, std::function<void()> alRearrancar) : alRearrancar_(std::move(alRearrancar)), p_(p) {}

  void abrirRapida() override;
  void abrirFull() override;
  void tipoCambioLista() override;
  void tipoCambioDetalle(int modo) override;
  void mantenimiento(PantallaMantenimiento cual) override;
  void cuadreDeCaja(Principal& v, ModoCuadre modo) override;
  bool sincronizar(bool diaAnterior) override;
  void rearrancar() override { alRearrancar_(); }
  void contactarCentral() override;
  void respaldar(MotivoRespaldo motivo) override;
  std::optional<QString> autorizar(const QString& acto) override;
  std::optional<CobroTarjetas> voucher(const PedidoVoucher& pedido) override;
  std::optional<EfectivoDocumento> pagoEfectivo(double total) override;
  std::optional<QString> buscarArticulo() override;
  std::optional<TarjetaElegida> buscarCliente(const QString& texto) override;
  std::optional<DocumentoElegido> buscarParalela(ListaParalela lista, bool soloVer) override;
  void retiro() override;
  void anular() override;
  void reimprimir(const QString& local) override;
  bool irARapida(const VentaEnCurso& venta) override;
  bool irAFull(const VentaEnCurso& venta) override;
  void noDisponible(const QString& pantalla) override;

 private:
  enum class Registradora { Rapida, Full };
  // Opens a register and, when it hands over, the other one, until one of them just closes.
  void vender(Registradora cual);
  bool pasarA(Registradora cual, const VentaEnCurso& venta);

  std::function<void()> alRearrancar_;
  Puesto& p_;
  // The register that is to open next, with its sale.
  std::optional<std::pair<Registradora, VentaEnCurso>> siguiente_;
};
