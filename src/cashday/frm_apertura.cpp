#include "cashday/frm_apertura.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/ui/tema.h"

frmApertura::frmApertura(Puesto& p, QWidget* padre)
    : Forma(QStringLiteral("FrmApertura"), QStringLiteral("Información de Apertura de Caja"), padre), p_(p) {
  cuerpo()->addWidget(nuevoTexto(QStringLiteral("Ingrese Importe Inicial de Caja"), QStringLiteral("sentencia")));
  auto* panel = new Panel;
  // clang-format off
  const struct { const char *nombre, *etiqueta; QString* texto; } campos[] = {
      {"txtimporsoles", "Importe Soles", &v_.txtimporsoles},
      {"TxtImporDolares", "Importe Dolares", &v_.TxtImporDolares},
  };
  // clang-format on
  for (const auto& c : campos) {
    Campo* campo = panel->importe(QString::fromLatin1(c.nombre), QString::fromLatin1(c.etiqueta));
    campo->setMinimumWidth(tema::px(200));
    campo->alSalir = [campo] { campo->setText(MascaraApertura(campo->text())); };
    enlaces_.texto(campo, *c.texto);
  }
  cuerpo()->addWidget(panel);
  auto* si = nuevoBoton(QStringLiteral("CmdGrabar"), QStringLiteral("&Grabar"), QStringLiteral("principal"));
  auto* no = nuevoBoton(QStringLiteral("Command1"), QStringLiteral("&Cancelar"));
  connect(si, &QPushButton::clicked, this, &frmApertura::grabar);
  connect(no, &QPushButton::clicked, this, &QDialog::reject);
  cuerpo()->addLayout(filaBotones({si, no}));
  vigilarComas([this] { AvisarComaDecimal(p_); });
  enlaces_.mostrar();
}

void frmApertura::grabar() {
  if (!importesSinComa()) return;
  enlaces_.recoger();
  const ResultadoApertura r = AbrirCaja(p_, v_);
  if (alAbrir) alAbrir(r);
  if (r.hecha) accept();
  else if (!r.campoMal.isEmpty()) marcarMal(findChild<QWidget*>(r.campoMal));
}
