#pragma once
#include "voiding/frm_transaccion.h"

// Prints a stored ticket again. `idLocal` is the site that stands on the register, "" for none.
class frmReimpresion final : public frmTransaccion {
  Q_OBJECT
 public:
  frmReimpresion(Puesto& p, const QString& idLocal, QWidget* padre = nullptr);

 protected:
  void actuar(PantallaTransaccion& v) override;

 private:
  Puesto& puesto_;
};
