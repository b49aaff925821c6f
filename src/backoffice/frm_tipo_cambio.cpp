#include "backoffice/frm_tipo_cambio.h"

#include "foundation/rutinas.h"

namespace {

std::vector<CampoDetalle> camposDe(TipoCambio& v) {
  // clang-format off
  return {
      // The rate of another day is another row.
      {CampoDetalle::Texto, QStringLiteral("txtFecha"), QStringLiteral("&Fecha"), &v.txtFecha, nullptr,
          {.mascara = MascaraFecha,
       .fijo = v.modo == ModoDetalle::Editar}},
      {CampoDetalle::Importe, QStringLiteral("txtTC"), QStringLiteral("&Tipo Cambio"), &v.txtTC,
       nullptr, {.filtro = {ClaseTecla::Decimal}, .mascara = MascaraTipoCambio}},
  };
  // clang-format on
}

}  // namespace

frmTipoCambio::frmTipoCambio(Puesto& p, TipoCambio& v, QWidget* padre)
    : frmMantenimientoDetalle(
          {QStringLiteral("frmTipoCambio"), TituloDetalle(v.modo, QStringLiteral("Tipo de Cambio")), v.modo},
          camposDe(v), padre),
      p_(p),
      v_(v) {
  control<Campo>("txtFecha")->setPlaceholderText(QStringLiteral("dd/mm/aaaa"));
  vigilarComas([this] { AvisarComaDecimal(p_); });
  // Today's date stands there already, so the rate is what is left to type.
  if (seEdita()) control<Campo>("txtTC")->setFocus();
}

bool frmTipoCambio::guardar(QString& campoMal) {
  const bool guardado = GuardarTipoCambio(p_, v_);
  campoMal = v_.campoMal;
  return guardado;
}

bool abrirTipoCambio(Puesto& p, ModoDetalle modo, const QString& fecha, TipoCambio& v, QWidget* padre) {
  if (!CargarTipoCambio(p, modo, fecha, v)) return false;
  return frmTipoCambio(p, v, padre).exec() == QDialog::Accepted;
}
