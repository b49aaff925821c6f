#include "platform/ui/lector_codigos.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QWidget>

#include "platform/io/reloj_sistema.h"

namespace {

constexpr size_t kMaximo = 64;  // a longer run is nobody's code

bool esModificador(int tecla) {
  switch (tecla) {
    case Qt::Key_Shift:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_AltGr: return true;
    default: return false;
  }
}

bool esFin(const QKeyEvent& e) {
  return (e.key() == Qt::Key_Return || e.key() == Qt::Key_Enter) && !(e.modifiers() & ~Qt::KeypadModifier);
}

// A scanner set to end with CR LF sends the second one as Enter again or as Ctrl+J.
bool esSegundoFin(const QKeyEvent& e) {
  return esFin(e) || (e.key() == Qt::Key_J && e.modifiers() == Qt::ControlModifier);
}

bool esDeCodigo(const QKeyEvent& e) {
  if (e.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  const QString t = e.text();
  return t.size() == 1 && (t[0].isLetterOrNumber() || t[0] == u'.' || t[0] == u'-');
}

}  // namespace

LectorCodigos::LectorCodigos(QWidget* ventana, std::function<bool(const QString&)> admite,
                             std::function<void(const QString&)> alLeer)
    : QObject(ventana), ventana_(ventana), admite_(std::move(admite)), alLeer_(std::move(alLeer)) {
  qApp->installEventFilter(this);  // behind the table of keys, and so asked before it
}

LectorCodigos::~LectorCodigos() = default;

bool LectorCodigos::eventFilter(QObject* objeto, QEvent* evento) {
  if (soltando_ || !objeto->isWidgetType()) return false;
  auto* w = static_cast<QWidget*>(objeto);
  switch (evento->type()) {
    case QEvent::KeyPress: {
      auto& e = static_cast<QKeyEvent&>(*evento);
      if (esModificador(e.key())) return false;
      if (w->window() != ventana_) {
        ultima_ = e.timestamp();
        limpia_ = false;
        return false;
      }
      // A key that its control leaves alone comes again for each widget above it.
      const QWidget* foco = ventana_->focusWidget();
      return w == (foco ? foco : ventana_) && alPulsar(e);
    }
    case QEvent::ShortcutOverride: {  // a shortcut acts without a press
      const auto& e = static_cast<QKeyEvent&>(*evento);
      if (w->window() == ventana_ && !esDeCodigo(e) && !esModificador(e.key()) && !esFin(e)) soltar();
      return false;
    }
    case QEvent::MouseButtonPress:
    case QEvent::InputMethod: soltar(); return false;
    case QEvent::WindowDeactivate:
    case QEvent::Close:
      if (w == ventana_) soltar();
      return false;
    default: return false;
  }
}

// True when the key is kept from the window.
bool LectorCodigos::alPulsar(QKeyEvent& e) {
  const quint64 momento = e.timestamp();
  if (momento == 0) {
    soltar();
    limpia_ = trasCodigo_ = false;
    return false;
  }
  const bool seguida = momento >= ultima_ && momento - ultima_ <= kEntreTeclas_ms;
  ultima_ = momento;
  bool retenida = false;
  if (esDeCodigo(e) && !e.isAutoRepeat()) {
    trasCodigo_ = false;
    if (!seguida) {
      soltar();
      limpia_ = true;
    }
    if (limpia_ && retenidas_.size() == kMaximo) {
      soltar();
      limpia_ = false;
    }
    retenida = limpia_;
    if (retenida) retener(e);
  } else {
    retenida = alTerminar(e, seguida);
  }
  if (retenida) e.accept();
  return retenida;
}

bool LectorCodigos::alTerminar(const QKeyEvent& e, bool seguida) {
  if (seguida && trasCodigo_ && esSegundoFin(e)) return true;
  trasCodigo_ = limpia_ = false;
  const QString leido = codigo();
  if (!seguida || !esFin(e) || leido.size() < kMinimo || !admite_(leido)) {
    return soltarCon(e);
  }
  retenidas_.clear();
  ++turno_;
  trasCodigo_ = true;
  const auto leer = alLeer_;  // reading may close the window and take this along
  leer(leido);
  return true;
}

void LectorCodigos::retener(const QKeyEvent& e) {
  retenidas_.emplace_back(e.clone());
  const quint64 este = ++turno_;
  RelojSistema().unaVez(kRetencion_ms, this, [this, este] {
    if (este != turno_) return;
    soltar();
    limpia_ = false;
  });
}

void LectorCodigos::soltar() {
  if (retenidas_.empty()) return;
  const QScopedValueRollback<bool> guarda(soltando_, true);
  const auto teclas = std::move(retenidas_);
  retenidas_.clear();
  const QPointer<QWidget> ventana = ventana_;
  for (const auto& t : teclas) {
    QWidget* foco = ventana ? ventana->focusWidget() : nullptr;  // a digit may have moved it
    if (!ventana) return;
    QApplication::sendEvent(foco ? foco : ventana.data(), t.get());
  }
}

// The key that ended a run goes behind it, to wherever the digits have moved the keyboard.
bool LectorCodigos::soltarCon(const QKeyEvent& e) {
  if (retenidas_.empty()) return false;
  retenidas_.emplace_back(e.clone());
  soltar();
  return true;
}

QString LectorCodigos::codigo() const {
  QString t;
  for (const auto& r : retenidas_) t += r->text();
  return t;
}
