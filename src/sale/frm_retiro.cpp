#include "sale/frm_retiro.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/rutinas.h"
#include "platform/ui/tema.h"
#include "sale/frm_caja_full_paneles.h"
#include "sale/retiro.h"

frmPago::frmPago(Puesto& p, QWidget* padre)
    : Forma(QStringLiteral("frmPago"), QStringLiteral("Pago - Monto a retirar"), padre), p_(p) {
  cuerpo()->addWidget(nuevoTexto(QStringLiteral("RECAUDACIONES DE CAJA"), QStringLiteral("titulo")));
  cuerpo()->addWidget(
      nuevoTexto(QStringLiteral("Anote en soles el monto que sale de la caja."), QStringLiteral("sentencia")));
  auto* panel = new Panel;
  txtMonto_ = panel->importe(QStringLiteral("txtMonto"), QStringLiteral("&Monto a retirar:"));
  txtMonto_->filtro = filtroImporte;
  txtMonto_->alSalir = [this] { salirMonto(); };
  cuerpo()->addWidget(panel);
  cmdAceptar_ = nuevoBoton(QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  auto* salir = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
  cuerpo()->addLayout(filaBotones({cmdAceptar_, salir}));
  connect(cmdAceptar_, &QPushButton::clicked, this, &frmPago::aceptar);
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  // The buttons' letters: a mnemonic presses a moment later, when the next key has been typed already.
  tecla(Qt::ALT | Qt::Key_A, [this] { aceptar(); });
  tecla(Qt::ALT | Qt::Key_S, [this] { reject(); });
  indicio(QStringLiteral("Enter aceptar  ·  Esc salir"));
  setMinimumWidth(tema::px(460));
  vigilarComas([this] { AvisarComaDecimal(p_); });
  txtMonto_->setFocus();
}

void frmPago::salirMonto() { txtMonto_->setText(MontoRetiro(txtMonto_->text())); }

void frmPago::aceptar() {
  if (!importesSinComa()) return;
  cmdAceptar_->setFocus();
  salirMonto();  // also for a field that was never entered
  if (Retirar(p_, txtMonto_->text())) accept();
  else txtMonto_->setFocus();
}
