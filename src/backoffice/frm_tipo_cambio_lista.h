#pragma once
#include "foundation/frm_mantenimiento.h"

// All rates by date.
class frmTipoCambioLista final : public frmMantenimientoLista {
  Q_OBJECT
 public:
  explicit frmTipoCambioLista(Puesto& p, QWidget* padre = nullptr);

 protected:
  std::optional<FilaLista> detalle(ModoDetalle modo, const FilaLista* fila) override;
};
