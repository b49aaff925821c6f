#pragma once
#include <optional>

#include "platform/ui/forma.h"
#include "sale/voucher.h"

class Lista;
class QPushButton;
class Rejilla;
struct Puesto;

// The voucher screen: which cards pay the sale, and how much of it is cash.
class FrmCajaVoucher final : public Forma {
  Q_OBJECT
 public:
  FrmCajaVoucher(Puesto& p, const PedidoVoucher& pedido, QWidget* padre = nullptr);

  // What was entered, once the screen was accepted.
  const CobroTarjetas& cobro() const { return cobro_; }

 protected:
  bool alEntrar(QWidget* campo) override;

 private:
  QWidget* nuevasListas();
  QWidget* nuevosImportes();
  void agregar(int emisor);
  void editarMonto(int fila);
  void quitar();
  void salirEfectivo();
  void aceptar();
  void mostrar();

  Puesto& p_;
  CajaVoucher v_;
  CobroTarjetas cobro_;
  Enlaces enlaces_;
  Lista* grdTar_ = nullptr;
  Rejilla* grdPagTar_ = nullptr;
  Campo* txtEfectivoSoles_ = nullptr;
  QPushButton *cmdAceptar_ = nullptr, *cmdCancelar_ = nullptr;
};

// Shows the screen over `padre`. Nothing when it wasn't confirmed.
std::optional<CobroTarjetas> pedirVoucher(Puesto& p, QWidget* padre, const PedidoVoucher& pedido);
