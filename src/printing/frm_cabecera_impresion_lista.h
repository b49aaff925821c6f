#pragma once
#include "foundation/frm_mantenimiento.h"

// The lines of the print header, as the paper shows them.
class frmCabeceraImpresionLista final : public frmMantenimientoLista {
  Q_OBJECT
 public:
  explicit frmCabeceraImpresionLista(Puesto& p, QWidget* padre = nullptr);

 protected:
  std::optional<FilaLista> detalle(ModoDetalle modo, const FilaLista* fila) override;
};
