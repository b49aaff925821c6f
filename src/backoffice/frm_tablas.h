#pragma once
#include "foundation/frm_mantenimiento.h"

// The kinds of payment card.
class FrmTablas final : public frmMantenimientoLista {
  Q_OBJECT
 public:
  explicit FrmTablas(Puesto& p, QWidget* padre = nullptr);

 protected:
  std::optional<FilaLista> detalle(ModoDetalle modo, const FilaLista* fila) override;
  // Enter on the search field looks for its text in the descriptions.
  bool alEntrar(QWidget* campo) override;
};
