#include "platform/ui/anillo_foco.h"

#include <QApplication>
#include <QEvent>
#include <QMenuBar>
#include <QPainter>

#include "platform/ui/tema.h"

namespace {

constexpr int kMargen = tema::kAnilloFoco + tema::kHuecoFoco;

bool conAnillo(const QWidget* control, const QWidget* ventana) {
  if (!control || control == ventana || control->window() != ventana) return false;
  if (qobject_cast<const QMenuBar*>(control)) return false;
  for (const QWidget* w = control; w && w != ventana; w = w->parentWidget())
    if (w->property("anilloPropio").toBool()) return false;
  return true;
}

}  // namespace

AnilloFoco::AnilloFoco(QWidget* ventana) : QWidget(ventana) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
  setFocusPolicy(Qt::NoFocus);
  hide();
  ventana->installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* ahora) {
    // A box in front takes the keyboard for a while: the ring comes back to the same place.
    if (!ahora || ahora->window() == window()) seguir(ahora);
  });
}

void AnilloFoco::seguir(QWidget* control) {
  for (const auto& w : vigilados_)
    if (w) w->removeEventFilter(this);
  vigilados_.clear();
  control_ = conAnillo(control, window()) ? control : nullptr;
  for (QWidget* w = control_; w && w != window(); w = w->parentWidget()) {
    w->installEventFilter(this);
    vigilados_.push_back(w);
  }
  colocar();
}

void AnilloFoco::colocar() {
  // Where the window is not the active one the keyboard is elsewhere, and so is the ring.
  if (!control_ || !control_->isVisible() || !window()->isActiveWindow()) {
    hide();
    return;
  }
  const QRect zona(control_->mapTo(window(), QPoint(0, 0)), control_->size());
  setGeometry(zona.adjusted(-kMargen, -kMargen, kMargen, kMargen));
  // Without its middle, so that typing in the control does not paint the ring again.
  setMask(QRegion(rect()) - QRegion(rect().adjusted(kMargen, kMargen, -kMargen, -kMargen)));
  raise();
  show();
}

bool AnilloFoco::eventFilter(QObject*, QEvent* evento) {
  switch (evento->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate: colocar(); break;
    default: break;
  }
  return false;
}

void AnilloFoco::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const qreal m = tema::kAnilloFoco / 2.0, h = tema::kAnilloFoco + tema::kHuecoFoco / 2.0;
  p.setPen(QPen(Qt::white, tema::kHuecoFoco));
  p.drawRoundedRect(QRectF(rect()).adjusted(h, h, -h, -h), 5, 5);
  p.setPen(QPen(QColor(tema::kFoco), tema::kAnilloFoco));
  p.drawRoundedRect(QRectF(rect()).adjusted(m, m, -m, -m), 7, 7);
}
