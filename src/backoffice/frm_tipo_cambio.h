#pragma once
#include "backoffice/tipo_cambio.h"
#include "foundation/frm_mantenimiento.h"

// The rate of one day. `v` has been loaded; it is the caller's and holds what was stored after Accepted.
class frmTipoCambio final : public frmMantenimientoDetalle {
  Q_OBJECT
 public:
  frmTipoCambio(Puesto& p, TipoCambio& v, QWidget* padre = nullptr);

 protected:
  bool guardar(QString& campoMal) override;

 private:
  Puesto& p_;
  TipoCambio& v_;
};

// Loads and shows the detail. True when it was saved; `v` then holds what was stored.
bool abrirTipoCambio(Puesto& p, ModoDetalle modo, const QString& fecha, TipoCambio& v, QWidget* padre);
