#include "sale/frm_pago_efectivo.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/rutinas.h"
#include "platform/ui/tema.h"
#include "sale/frm_caja_full_paneles.h"

frmVuelto::frmVuelto(Puesto& p, double total, QWidget* padre)
    : Forma(QStringLiteral("frmVuelto"), QStringLiteral("Pago en Efectivo"), padre), p_(p) {
  AbrirPagoEfectivo(p_, total, v_);
  cuerpo()->addWidget(nuevoTexto(QStringLiteral("Anote lo que entrega el cliente; el vuelto se calcula solo."),
                                 QStringLiteral("sentencia")));
  auto* panel = new Panel({}, 2);
  fijo(panel, QStringLiteral("txtTotal"), QStringLiteral("Total(S/.):"), v_.txtTotal);
  fijo(panel, QStringLiteral("txtTotalDolares"), QStringLiteral("Total(U$):"), v_.txtTotalDolares);
  txtEfectivo_ = campo(panel, QStringLiteral("txtEfectivo"), QStringLiteral("Efectivo(&S/.):"), v_.txtEfectivo,
                       CampoEfectivo::Soles);
  txtEfectivoDolares_ = campo(panel, QStringLiteral("txtEfectivoDolares"), QStringLiteral("Efectivo(&U$):"),
                              v_.txtEfectivoDolares, CampoEfectivo::Dolares);
  fijo(panel, QStringLiteral("txtVuelto"), QStringLiteral("Vuelto(S/.):"), v_.txtVuelto);
  txtVueltoDolares_ = campo(panel, QStringLiteral("txtVueltoDolares"), QStringLiteral("&Vuelto(U$):"),
                            v_.txtVueltoDolares, CampoEfectivo::VueltoDolares);
  cuerpo()->addWidget(panel);
  auto* calcular = nuevoBoton(QStringLiteral("cmdCalcular"), QStringLiteral("Ca&lcular"));
  cmdAceptar_ = nuevoBoton(QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  auto* salir = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
  cuerpo()->addLayout(filaBotones({calcular, cmdAceptar_, salir}));

  connect(txtEfectivo_, &QLineEdit::textEdited, this, [this] { v_.efectivoTecleado = true; });
  connect(calcular, &QPushButton::clicked, this, [this] { con([this] { CalculoVuelto(p_, v_); }); });
  connect(cmdAceptar_, &QPushButton::clicked, this, &frmVuelto::aceptar);
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  tecla(
      Qt::CTRL | Qt::Key_Return, [this] { aceptar(); }, QStringLiteral("aceptar"));
  // The same letter belongs to the field and to a button; the field wins, Esc leaves.
  tecla(Qt::ALT | Qt::Key_S, [this] { txtEfectivo_->setFocus(Qt::ShortcutFocusReason); });
  // The buttons' letters: a mnemonic presses a moment later, when the next key has been typed already.
  tecla(Qt::ALT | Qt::Key_L, [this] { con([this] { CalculoVuelto(p_, v_); }); });
  tecla(Qt::ALT | Qt::Key_A, [this] { aceptar(); });
  tecla(Qt::Key_Tab, [this] {
    if (esDeDolares(focusWidget())) txtEfectivo_->setFocus(Qt::TabFocusReason);
    else focusNextChild();
  });
  indicio(QStringLiteral("Alt+S soles  ·  Alt+U dólares  ·  Alt+V vuelto en dólares  ·  Esc salir"));
  setMinimumWidth(tema::px(700));
  vigilarComas([this] { AvisarComaDecimal(p_); });
  enlaces_.mostrar();
  txtEfectivo_->setFocus();
}

Campo* frmVuelto::campo(Panel* panel, const QString& nombre, const QString& etiqueta, QString& texto,
                        CampoEfectivo cual) {
  Campo* c = panel->importe(nombre, etiqueta);
  c->filtro = filtroImporte;
  c->alSalir = [this, cual] { con([this, cual] { SalirCampoEfectivo(p_, v_, cual); }); };
  enlaces_.texto(c, texto);
  return c;
}

void frmVuelto::fijo(Panel* panel, const QString& nombre, const QString& etiqueta, QString& texto) {
  Campo* c = panel->fijo(nombre, etiqueta);
  c->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  enlaces_.texto(c, texto);
}

bool frmVuelto::esDeDolares(const QWidget* w) const { return w == txtEfectivoDolares_ || w == txtVueltoDolares_; }

bool frmVuelto::alEntrar(QWidget* campo) {
  // Dollars decide what is left to pay in soles, so those come behind them; soles end the screen.
  if (esDeDolares(campo)) txtEfectivo_->setFocus(Qt::TabFocusReason);
  else if (campo == txtEfectivo_) cmdAceptar_->setFocus(Qt::TabFocusReason);
  else return false;
  return true;
}

void frmVuelto::aceptar() {
  if (!importesSinComa()) return;
  cmdAceptar_->setFocus();  // the field with the keyboard is left first
  std::optional<EfectivoDocumento> pago;
  con([this, &pago] { pago = AceptarPagoEfectivo(p_, v_); });
  if (!pago) {
    txtEfectivo_->setFocus();
    return;
  }
  pago_ = *pago;
  accept();
}

std::optional<EfectivoDocumento> pedirEfectivo(Puesto& p, QWidget* padre, double total) {
  frmVuelto f(p, total, padre);
  if (f.exec() != QDialog::Accepted) return {};
  return f.pago();
}
