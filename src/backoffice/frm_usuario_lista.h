#pragma once
#include "foundation/frm_mantenimiento.h"

// The users of the desk.
class frmUsuarioLista final : public frmMantenimientoLista {
  Q_OBJECT
 public:
  explicit frmUsuarioLista(Puesto& p, QWidget* padre = nullptr);

 protected:
  std::optional<FilaLista> detalle(ModoDetalle modo, const FilaLista* fila) override;
  std::optional<FilaLista> activar(const FilaLista& fila) override;
};
