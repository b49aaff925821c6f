#pragma once
#include "backoffice/producto.h"
#include "foundation/frm_mantenimiento.h"

// One article. `v` has been loaded; it is the caller's and holds what was stored after Accepted.
class frmProducto final : public frmMantenimientoDetalle {
  Q_OBJECT
 public:
  frmProducto(Puesto& p, DetalleProducto& v, QWidget* padre = nullptr);

 protected:
  bool guardar(QString& campoMal) override;

 private:
  void seguirMarcas();

  Puesto& p_;
  DetalleProducto& v_;
};
