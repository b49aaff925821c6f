#pragma once
#include "backoffice/usuario.h"
#include "foundation/frm_mantenimiento.h"

// One user. `v` has been loaded; it is the caller's and holds what was stored after Accepted.
class frmUsuario final : public frmMantenimientoDetalle {
  Q_OBJECT
 public:
  frmUsuario(Puesto& p, DetalleUsuario& v, QWidget* padre = nullptr);

 protected:
  bool guardar(QString& campoMal) override;

 private:
  Puesto& p_;
  DetalleUsuario& v_;
};
