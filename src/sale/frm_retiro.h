#pragma once
#include "platform/ui/forma.h"

class QPushButton;
struct Puesto;

// The cash withdrawal.
class frmPago final : public Forma {
  Q_OBJECT
 public:
  explicit frmPago(Puesto& p, QWidget* padre = nullptr);

 private:
  void salirMonto();
  void aceptar();

  Puesto& p_;
  Campo* txtMonto_ = nullptr;
  QPushButton* cmdAceptar_ = nullptr;
};
