#include "app/frm_splash.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

#include "foundation/version.h"
#include "platform/ui/campo.h"
#include "platform/ui/tema.h"

frmSplash::frmSplash(Sitio sitio)
    : QWidget(nullptr,
              sitio == Encima ? Qt::SplashScreen | Qt::WindowStaysOnTopHint : Qt::Window | Qt::FramelessWindowHint) {
  setObjectName(QStringLiteral("frmSplash"));
  auto* marco = new QVBoxLayout(this);
  marco->setContentsMargins(0, 0, 0, 0);
  auto* pantalla = new QFrame;
  pantalla->setProperty("papel", "pantalla");
  marco->addWidget(pantalla);
  auto* columna = new QVBoxLayout(pantalla);
  columna->setContentsMargins(32, 32, 32, 24);
  columna->setSpacing(tema::px(3 * tema::kPaso));
  auto* logo = new QLabel;
  logo->setPixmap(tema::logo(128));
  const QString version = QStringLiteral(" Versión ") + Version();
  auto* rotuloVersion = nuevoTexto(version, QStringLiteral("leyenda"));
  rotuloVersion->setObjectName(QStringLiteral("lblVersion"));
  for (QLabel* l :
       {logo, nuevoTexto(QStringLiteral("TarvoPos"), QStringLiteral("cifra")),
        nuevoTexto(QStringLiteral("La caja que sigue vendiendo"), QStringLiteral("articulo")), rotuloVersion}) {
    l->setAlignment(Qt::AlignCenter);
    columna->addWidget(l);
  }
  resize(480, 320);
}

void frmSplash::mostrar() {
  adjustSize();
  if (const QScreen* s = screen()) move(s->availableGeometry().center() - rect().center());
  show();
  raise();
  repaint();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
