#include "backoffice/frm_tipo_cambio.h"

#include "foundation/puesto.h"
#include "foundation/rutinas.h"

frmTipoCambio::frmTipoCambio(Puesto& p, TipoCambio& v, QWidget* padre)
    : frmMantenimientoDetalle(QStringLiteral("frmTipoCambio"), v.modo, QStringLiteral("Tipo de Cambio"), padre),
      p_(p),
      v_(v) {
  Campo* fecha = panel().campo(QStringLiteral("txtFecha"), QStringLiteral("&Fecha"));
  Campo* tc = panel().importe(QStringLiteral("txtTC"), QStringLiteral("&Tipo Cambio"));
  fecha->setPlaceholderText(QStringLiteral("dd/mm/aaaa"));
  fecha->alSalir = [fecha] { fecha->setText(MascaraFecha(fecha->text())); };
  tc->filtro = [](QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Decimal}); };
  tc->alSalir = [tc] { tc->setText(MascaraTipoCambio(tc->text())); };
  // The rate of another day is another row.
  if (v.modo == ModoDetalle::Editar) {
    fecha->setReadOnly(true);
    fecha->setFocusPolicy(Qt::NoFocus);
  }
  enlaces_.texto(fecha, v_.txtFecha);
  enlaces_.texto(tc, v_.txtTC);
  enlaces_.mostrar();
  // Today's date stands there already, so the rate is what is left to type.
  listo(tc);
}

bool frmTipoCambio::guardar(QString& campoMal) {
  enlaces_.recoger();
  const bool guardado = GuardarTipoCambio(p_, v_);
  campoMal = v_.campoMal;
  return guardado;
}

bool abrirTipoCambio(Puesto& p, ModoDetalle modo, const QString& fecha, TipoCambio& v, QWidget* padre) {
  if (!CargarTipoCambio(p, modo, fecha, v)) return false;
  frmTipoCambio forma(p, v, padre);
  return forma.exec() == QDialog::Accepted;
}
