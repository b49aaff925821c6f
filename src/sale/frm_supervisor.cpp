#include "sale/frm_supervisor.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "sale/supervisor.h"

frmAutorizarOperacion::frmAutorizarOperacion(Puesto& p, const QString& acto, QWidget* padre)
    : Forma(QStringLiteral("frmAutorizarOperacion"), QStringLiteral("Autorizar: ") + acto, padre), p_(p) {
  auto* sentencia =
      nuevoTexto(QStringLiteral("INGRESE SU USUARIO Y CLAVE PARA AUTORIZAR LA OPERACION"), QStringLiteral("sentencia"));
  cuerpo()->addWidget(sentencia);
  auto* panel = new Panel;
  txtUsuario_ = panel->campo(QStringLiteral("txtUsuario"), QStringLiteral("Usuario:"));
  txtPassword_ = panel->campo(QStringLiteral("txtPassword"), QStringLiteral("Password:"));
  txtPassword_->setEchoMode(QLineEdit::Password);
  cuerpo()->addWidget(panel);
  auto* acepta = nuevoBoton(QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  auto* cancela = nuevoBoton(QStringLiteral("cmdCancelar"), QStringLiteral("&Cancelar"));
  cuerpo()->addLayout(filaBotones({acepta, cancela}));
  connect(acepta, &QPushButton::clicked, this, &frmAutorizarOperacion::aceptar);
  connect(cancela, &QPushButton::clicked, this, &frmAutorizarOperacion::reject);
  txtUsuario_->setFocus();
}

QString frmAutorizarOperacion::usuario() const { return txtUsuario_->text(); }

bool frmAutorizarOperacion::alEntrar(QWidget* campo) {
  if (campo != txtPassword_) return false;
  aceptar();
  return true;
}

void frmAutorizarOperacion::aceptar() {
  const auto rechazo = RechazoAutorizacion(p_, txtUsuario_->text(), txtPassword_->text());
  if (!rechazo) {
    accept();
    return;
  }
  if (auto* campo = rechazo->isEmpty() ? nullptr : findChild<Campo*>(*rechazo)) {
    campo->selectAll();
    marcarMal(campo);
  }
}

std::optional<QString> mostrarAutorizacion(Puesto& p, QWidget* padre, const QString& acto) {
  frmAutorizarOperacion dialogo(p, acto, padre);
  if (dialogo.exec() != QDialog::Accepted) return {};
  return dialogo.usuario();
}
