#pragma once
#include "foundation/frm_mantenimiento.h"
#include "printing/cabecera.h"

// One line of the print header. `v` has been loaded; it is the caller's and holds what was stored after Accepted.
class frmCabeceraImpresion final : public frmMantenimientoDetalle {
  Q_OBJECT
 public:
  frmCabeceraImpresion(Puesto& p, DetalleCabecera& v, QWidget* padre = nullptr);

 protected:
  bool guardar(QString& campoMal) override;

 private:
  Puesto& p_;
  DetalleCabecera& v_;
};
