#include "printing/frm_cabecera_impresion.h"
#include "platform/ui/tema.h"

frmCabeceraImpresion::frmCabeceraImpresion(Puesto& p, DetalleCabecera& v, QWidget* padre)
    : frmMantenimientoDetalle({QStringLiteral("frmCabeceraImpresion"), QStringLiteral("Cabecera de Impresión"), v.modo,
                               TituloCabecera(v.modo)},
                              {{CampoDetalle::Texto,
                                QStringLiteral("txtLinea"),
                                QStringLiteral("Línea"),
                                &v.txtLinea,
                                nullptr,
                                {.fijo = true}},
                               {CampoDetalle::Texto,
                                QStringLiteral("txtDescripcion"),
                                QStringLiteral("Descripción "),
                                &v.txtDescripcion,
                                nullptr,
                                {.filtro = {ClaseTecla::Mayusculas}}}},
                              padre),
      p_(p),
      v_(v) {
  // As it will be printed, and wide enough for a whole line of the paper.
  control<Campo>("txtDescripcion")->setProperty("papel", "impreso");
  setMinimumWidth(tema::px(680));
}

bool frmCabeceraImpresion::guardar(QString& campoMal) {
  campoMal.clear();
  return GuardarCabecera(p_, v_);
}
