#pragma once
#include "backoffice/tipo_tarjeta.h"
#include "foundation/frm_mantenimiento.h"

// One kind of card. `v` has been loaded; it is the caller's and holds what was stored after Accepted.
class FrmTablas_sub final : public frmMantenimientoDetalle {
  Q_OBJECT
 public:
  FrmTablas_sub(Puesto& p, DetalleTipoTarjeta& v, QWidget* padre = nullptr);

 protected:
  bool guardar(QString& campoMal) override;

 private:
  Puesto& p_;
  DetalleTipoTarjeta& v_;
};
