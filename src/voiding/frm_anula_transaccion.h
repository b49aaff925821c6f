#pragma once
#include "voiding/frm_transaccion.h"

class PantallasAnulacion;

// Voids a sale or a parallel document of the open day.
class frmAnulaTransaccion final : public frmTransaccion {
  Q_OBJECT
 public:
  frmAnulaTransaccion(Puesto& p, PantallasAnulacion& pantallas, QWidget* padre = nullptr);

 protected:
  void actuar(PantallaTransaccion& v) override;

 private:
  Puesto& puesto_;
  PantallasAnulacion& pantallas_;
  Campo* txtsupervisor_;
};
