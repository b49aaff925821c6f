#include "platform/ui/teclas.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace {

QKeyCombination combinacion(const QKeyEvent& e) {
  const auto tecla = e.key() == Qt::Key_Enter ? Qt::Key_Return : static_cast<Qt::Key>(e.key());
  return QKeyCombination(e.modifiers() & ~Qt::KeypadModifier, tecla);
}

// Keys that a field being typed in needs for itself.
bool esDeEscritura(QKeyCombination c) {
  if (c.keyboardModifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  switch (c.key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End: return true;
    default: return c.key() < Qt::Key_Escape;
  }
}

bool seEscribeEn(const QWidget& w) {
  if (!w.isEnabled()) return false;
  if (auto* l = qobject_cast<const QLineEdit*>(&w)) return !l->isReadOnly();
  if (auto* t = qobject_cast<const QPlainTextEdit*>(&w)) return !t->isReadOnly();
  if (auto* c = qobject_cast<const QComboBox*>(&w)) return c->isEditable();
  return false;
}

}  // namespace

TablaTeclas::TablaTeclas(QWidget* ventana) : QObject(ventana), ventana_(ventana) { qApp->installEventFilter(this); }

void TablaTeclas::agregar(EntradaTecla entrada) { entradas_.push_back(std::move(entrada)); }

QStringList TablaTeclas::indicios() const {
  QStringList partes;
  for (const auto& e : entradas_)
    if (!e.indicio.isEmpty()) partes << nombreTecla(e.tecla) + u' ' + e.indicio;
  return partes;
}

const EntradaTecla* TablaTeclas::buscar(const QKeyEvent& e, const QWidget& foco) const {
  const QKeyCombination c = combinacion(e);
  for (const auto& entrada : entradas_) {
    if (entrada.tecla != c) continue;
    if (!entrada.tambienEscribiendo && esDeEscritura(c) && seEscribeEn(foco)) return nullptr;
    if (c.key() == Qt::Key_Escape && foco.property("editorDeCelda").toBool()) return nullptr;
    return &entrada;
  }
  return nullptr;
}

bool TablaTeclas::eventFilter(QObject* objeto, QEvent* evento) {
  if (evento->type() != QEvent::ShortcutOverride && evento->type() != QEvent::KeyPress) return false;
  if (!objeto->isWidgetType()) return false;
  auto* w = static_cast<QWidget*>(objeto);
  if (w->window() != ventana_) return false;
  auto* e = static_cast<QKeyEvent*>(evento);
  const EntradaTecla* entrada = buscar(*e, *w);
  if (!entrada) return false;
  e->accept();
  if (evento->type() == QEvent::KeyPress && !e->isAutoRepeat()) {
    const auto accion = entrada->accion;  // the action may close the screen and take the table along
    accion();
  }
  return true;
}

QString nombreTecla(QKeyCombination tecla) {
  // clang-format off
  const struct { Qt::Key tecla; const char16_t* nombre; } propias[] = {
      {Qt::Key_Return, u"Enter"}, {Qt::Key_Space, u"Espacio"},   {Qt::Key_Delete, u"Supr"},
      {Qt::Key_Insert, u"Insert"}, {Qt::Key_PageUp, u"Re Pág"},  {Qt::Key_PageDown, u"Av Pág"},
      {Qt::Key_Home, u"Inicio"},   {Qt::Key_End, u"Fin"},
  };
  // clang-format on
  QString modificadores;
  if (tecla.keyboardModifiers() & Qt::ControlModifier) modificadores += u"Ctrl+";
  if (tecla.keyboardModifiers() & Qt::AltModifier) modificadores += u"Alt+";
  if (tecla.keyboardModifiers() & Qt::ShiftModifier) modificadores += u"Shift+";
  for (const auto& p : propias)
    if (p.tecla == tecla.key()) return modificadores + QString::fromUtf16(p.nombre);
  return modificadores + QKeySequence(tecla.key()).toString(QKeySequence::PortableText);
}
