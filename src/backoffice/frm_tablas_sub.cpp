#include "backoffice/frm_tablas_sub.h"

FrmTablas_sub::FrmTablas_sub(Puesto& p, DetalleTipoTarjeta& v, QWidget* padre)
    : frmMantenimientoDetalle({QStringLiteral("FrmTablas_sub"), TituloTipoTarjeta(v.modo), v.modo},
                              {{CampoDetalle::Texto,
                                QStringLiteral("txtcod"),
                                QStringLiteral("C&odigo"),
                                &v.txtcod,
                                nullptr,
                                {.filtro = {ClaseTecla::Mayusculas}, .fijo = v.modo != ModoDetalle::Nuevo}},
                               {CampoDetalle::Texto,
                                QStringLiteral("txtDes"),
                                QStringLiteral("&Descripción"),
                                &v.txtDes,
                                nullptr,
                                {.filtro = {ClaseTecla::Mayusculas}}}},
                              padre),
      p_(p),
      v_(v) {
  control<Campo>("txtcod")->setMaxLength(kLargoCodigoTarjeta);
  // The code stands there already; what is left to type is the description.
  if (seEdita()) control<Campo>("txtDes")->setFocus();
}

bool FrmTablas_sub::guardar(QString& campoMal) {
  const bool guardado = GuardarTipoTarjeta(p_, v_);
  campoMal = v_.campoMal;
  return guardado;
}
