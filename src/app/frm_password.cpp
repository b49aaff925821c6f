#include "app/frm_password.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/puesto.h"
#include "platform/ui/tema.h"

frmPassword::frmPassword(Puesto& p, std::function<void()> aceptado, std::function<void()> rechazado)
    : Forma(QStringLiteral("frmPassword"), QStringLiteral("Nombre y Password de Usuario")),
      p_(p),
      aceptado_(std::move(aceptado)),
      rechazado_(std::move(rechazado)) {
  cuerpo()->addWidget(nuevoTexto(QStringLiteral("Escriba su usuario y su password."), QStringLiteral("sentencia")));
  auto* panel = new Panel;
  usuario_ = panel->campo(QStringLiteral("txtUsuario"), QStringLiteral("&Usuario"));
  password_ = panel->campo(QStringLiteral("txtPassword"), QStringLiteral("&Password"));
  password_->setEchoMode(QLineEdit::Password);
  for (Campo* c : {usuario_, password_}) c->setMinimumWidth(tema::px(260));
  cuerpo()->addWidget(panel);
  auto* si = nuevoBoton(QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  auto* no = nuevoBoton(QStringLiteral("cmdCancelar"), QStringLiteral("&Cancelar"));
  connect(si, &QPushButton::clicked, this, &frmPassword::probar);
  connect(no, &QPushButton::clicked, this, &QDialog::reject);
  cuerpo()->addLayout(filaBotones({si, no}));
  CargarLogin(p_, v_);
  usuario_->setText(v_.txtUsuario);
  usuario_->selectAll();
  findChild<QWidget*>(v_.foco)->setFocus();
}

bool frmPassword::alEntrar(QWidget* campo) {
  if (campo != password_) return false;
  probar();
  return true;
}

void frmPassword::probar() {
  v_.txtUsuario = usuario_->text();
  v_.txtPassword = password_->text();
  ProbarLogin(p_, v_);
  if (v_.cierra) {
    done(v_.aceptado ? Accepted : Rejected);
    return;
  }
  Campo* foco = v_.foco == usuario_->objectName() ? usuario_ : password_;
  marcarMal(foco);
  foco->selectAll();
}

void frmPassword::done(int resultado) {
  Forma::done(resultado);
  // The call may delete this screen or end the process.
  const auto despues = v_.aceptado ? aceptado_ : rechazado_;
  if (despues) despues();
}
