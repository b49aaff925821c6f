#include "platform/ui/cartel_ocupado.h"

#include <QApplication>
#include <QLabel>

#include "platform/io/reloj_sistema.h"
#include "platform/ui/campo.h"

namespace {

class Descarte final : public QObject {
 public:
  Descarte() : QObject(qApp) {
    qApp->installEventFilter(this);
    RelojSistema().unaVez(0, this, [this] { deleteLater(); });
  }
  bool eventFilter(QObject* objeto, QEvent* evento) override {
    if (!objeto->isWidgetType()) return false;
    switch (evento->type()) {
      case QEvent::ShortcutOverride: evento->accept(); return true;  // no shortcut either
      case QEvent::KeyPress:
      case QEvent::KeyRelease:
      case QEvent::InputMethod:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::Wheel: evento->accept(); return true;
      default: return false;
    }
  }
};

QWidget* ventanaDelante() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* activa = QApplication::activeWindow()) return activa;
  QWidget* ultima = nullptr;
  for (QWidget* w : QApplication::topLevelWidgets())
    if (w->isVisible() && w->windowType() != Qt::Popup && w->windowType() != Qt::ToolTip) ultima = w;
  return ultima;
}

}  // namespace

void DescartarPulsaciones() { new Descarte; }

CartelOcupado::~CartelOcupado() { mostrar({}); }

void CartelOcupado::mostrar(const QString& que) {
  if (que.isEmpty()) {
    if (!puesto_) return;
    puesto_ = false;
    delete cartel_;
    QApplication::restoreOverrideCursor();
    DescartarPulsaciones();
    return;
  }
  QWidget* ventana = ventanaDelante();
  const bool yaLoDice = ventana && ventana->property("diceQueHace").toBool();
  const bool caja = ventana && ventana->objectName() == u"caja";  // it waits for the person, and must be read
  if (!puesto_ && (yaLoDice || caja)) return;
  if (caja) ventana = cartel_ ? cartel_->parentWidget() : nullptr;
  if (!puesto_) QApplication::setOverrideCursor(Qt::WaitCursor);
  puesto_ = true;
  if (cartel_ && cartel_->parentWidget() != ventana) delete cartel_;
  if (!ventana || yaLoDice) return;
  if (!cartel_) {
    cartel_ = nuevoTexto({}, QStringLiteral("ocupado"), ventana);
    cartel_->setObjectName(QStringLiteral("lblOcupado"));
    cartel_->setTextFormat(Qt::PlainText);
    cartel_->setAlignment(Qt::AlignCenter);
  }
  cartel_->setText(que);
  cartel_->setWordWrap(false);
  cartel_->adjustSize();
  if (const int cabe = ventana->width(); cartel_->width() > cabe) {
    cartel_->setWordWrap(true);
    cartel_->resize(cabe, cartel_->heightForWidth(cabe));
  }
  cartel_->move((ventana->width() - cartel_->width()) / 2, (ventana->height() - cartel_->height()) / 3);
  cartel_->show();
  cartel_->raise();
  ventana->repaint();
}
