#pragma once
#include "foundation/frm_mantenimiento.h"

// The articles of the desk's warehouse.
class frmProductoLista final : public frmMantenimientoLista {
  Q_OBJECT
 public:
  explicit frmProductoLista(Puesto& p, QWidget* padre = nullptr);

 protected:
  std::optional<FilaLista> detalle(ModoDetalle modo, const FilaLista* fila) override;
  std::optional<FilaLista> activar(const FilaLista& fila) override;
};
