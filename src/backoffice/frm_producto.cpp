#include "backoffice/frm_producto.h"

#include <QCheckBox>

#include "foundation/rutinas.h"

namespace {

std::vector<CampoDetalle> camposDe(DetalleProducto& v) {
  const std::vector<ClaseTecla> mayusculas{ClaseTecla::Mayusculas}, decimal{ClaseTecla::Decimal},
      digitos{ClaseTecla::Digitos};
  using C = CampoDetalle;
  // clang-format off
  return {
      {C::Texto, QStringLiteral("txtCodigo"), QStringLiteral("&Código"), &v.txtCodigo, nullptr, {.fijo = true}},
      {C::Texto, QStringLiteral("txtDescripcion"), QStringLiteral("&Descripción"), &v.txtDescripcion, nullptr,
          {.filtro = mayusculas}},
      {C::Texto, QStringLiteral("txtCorta"), QStringLiteral("Descripción Corta"), &v.txtCorta, nullptr,
          {.filtro = mayusculas}},
      {C::Importe, QStringLiteral("txtPUnitario"), QStringLiteral("&Prec. Unit."), &v.txtPUnitario, nullptr,
          {.filtro = decimal,
       .mascara = MascaraPrecio}},
      {C::Opciones, QStringLiteral("optActivo"), QStringLiteral("Estado|Activo|Inactivo"), nullptr, &v.activo},
      {C::Marca, QStringLiteral("chkFicha"), QStringLiteral("Fichas"), nullptr, &v.chkFicha},
      {C::Importe, QStringLiteral("txtFichas"), QStringLiteral("Número de fichas"), &v.txtFichas, nullptr,
          {.filtro = digitos}},
      {C::Marca, QStringLiteral("chkCanje"), QStringLiteral("Canje"), nullptr, &v.chkCanje},
      {C::Marca, QStringLiteral("chkControl"), QStringLiteral("Control de Stock"), nullptr, &v.chkControl},
  };
  // clang-format on
}

}  // namespace

frmProducto::frmProducto(Puesto& p, DetalleProducto& v, QWidget* padre)
    : frmMantenimientoDetalle(
          {QStringLiteral("frmProducto"), TituloDetalle(v.modo, QStringLiteral("Producto")), v.modo}, camposDe(v),
          padre),
      p_(p),
      v_(v) {
  vigilarComas([this] { AvisarComaDecimal(p_); });
  if (!seEdita()) return;
  for (const char* marca : {"chkFicha", "chkCanje"})
    connect(control<QCheckBox>(marca), &QCheckBox::toggled, this, &frmProducto::seguirMarcas);
  seguirMarcas();
}

void frmProducto::seguirMarcas() {
  control<Campo>("txtFichas")->setEnabled(control<QCheckBox>("chkFicha")->isChecked());
  auto* precio = control<Campo>("txtPUnitario");
  const bool canje = control<QCheckBox>("chkCanje")->isChecked();
  precio->setEnabled(!canje);
  if (canje) precio->setText(QStringLiteral("0"));
}

bool frmProducto::guardar(QString& campoMal) {
  const bool guardado = GuardarProducto(p_, v_);
  campoMal = v_.campoMal;
  return guardado;
}
