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

  // The cash part, once the screen was accepted.
  const EfectivoVoucher& efectivo() const { return efectivo_; }

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
  EfectivoVoucher efectivo_;
  Enlaces enlaces_;
  Lista* grdTar_ = nullptr;
  Rejilla* grdPagTar_ = nullptr;
  Campo* txtEfectivoSoles_ = nullptr;
  QPushButton *cmdAceptar_ = nullptr, *cmdCancelar_ = nullptr;
};

// Shows the screen over `padre`. Nothing when it wasn't confirmed.
std::optional<EfectivoVoucher> pedirVoucher(Puesto& p, QWidget* padre, const PedidoVoucher& pedido);
