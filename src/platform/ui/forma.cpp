#include "platform/ui/forma.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "platform/ui/anillo_foco.h"
#include "platform/ui/indicios.h"
#include "platform/ui/tema.h"

Forma::Forma(const QString& nombre, const QString& titulo, QWidget* padre)
    : QDialog(padre), teclas_(new TablaTeclas(this)) {
  setObjectName(nombre);
  setWindowTitle(titulo);
  todo_ = new QVBoxLayout(this);
  todo_->setContentsMargins(0, 0, 0, 0);
  todo_->setSpacing(0);
  cuerpo_ = new QVBoxLayout;
  cuerpo_->setContentsMargins(tema::px(16), tema::px(16), tema::px(16), tema::px(16));
  cuerpo_->setSpacing(tema::px(3 * tema::kPaso));
  todo_->addLayout(cuerpo_, 1);
  tira_ = new QFrame;
  tira_->setProperty("papel", "indicios");
  auto* enTira = new QVBoxLayout(tira_);
  enTira->setContentsMargins(16, tema::px(4), 16, tema::px(4));
  indicios_ = new Indicios;
  indicios_->setObjectName(QStringLiteral("lblIndicios"));
  enTira->addWidget(indicios_);
  tira_->hide();
  todo_->addWidget(tira_);
  new AnilloFoco(this);
}

void Forma::ponerPie(QWidget* pie) { todo_->insertWidget(1, pie); }

void Forma::tecla(QKeyCombination combinacion, std::function<void()> accion, const QString& indicio,
                  bool tambienEscribiendo) {
  teclas_->agregar({combinacion, std::move(accion), indicio, tambienEscribiendo});
  escribirIndicios();
}

void Forma::indicio(const QString& texto) {
  notas_ += texto.split(Indicios::kEntre);
  escribirIndicios();
}

void Forma::escribirIndicios() {
  const QStringList partes = teclas_->indicios() + notas_;
  indicios_->poner(partes);
  tira_->setVisible(!partes.isEmpty());
}

void Forma::vigilarComas(std::function<void()> avisar) {
  avisarComa_ = std::move(avisar);
  // Not while the keyboard is still on its way to the next control.
  for (Campo* c : findChildren<Campo*>()) {
    connect(
        c, &Campo::comaDecimal, this, [this, c] { rechazarComa(c); }, Qt::QueuedConnection);
  }
}

bool Forma::importesSinComa() {
  for (Campo* c : findChildren<Campo*>()) {
    if (!c->conComaDecimal()) continue;
    rechazarComa(c);
    return false;
  }
  return true;
}

// The screen may have closed, and the field may have been put right, before the words could come.
void Forma::rechazarComa(Campo* campo) {
  if (!isVisible() || !avisarComa_ || !campo->conComaDecimal()) return;
  campo->setFocus(Qt::OtherFocusReason);
  avisarComa_();
  marcarMal(campo);
  campo->selectAll();
}

namespace {

class SiguienteTecla final : public QObject {
 public:
  SiguienteTecla(QWidget* ventana, std::function<void()> accion)
      : QObject(ventana), ventana_(ventana), accion_(std::move(accion)) {
    qApp->installEventFilter(this);
  }
  bool eventFilter(QObject* objeto, QEvent* evento) override {
    if (!accion_ || evento->type() != QEvent::KeyPress || !objeto->isWidgetType()) return false;
    auto* e = static_cast<QKeyEvent*>(evento);
    const bool modificador = e->key() == Qt::Key_Control || e->key() == Qt::Key_Shift || e->key() == Qt::Key_Alt;
    if (static_cast<QWidget*>(objeto)->window() != ventana_ || modificador || e->isAutoRepeat()) return false;
    std::exchange(accion_, nullptr)();
    deleteLater();
    return false;
  }

 private:
  QWidget* ventana_;
  std::function<void()> accion_;
};

}  // namespace

void Forma::enSiguienteTecla(std::function<void()> accion) { new SiguienteTecla(this, std::move(accion)); }

bool Forma::alEntrar(QWidget*) { return false; }

void Forma::keyPressEvent(QKeyEvent* e) {
  const bool enter = e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter;
  if (!enter || (e->modifiers() & ~Qt::KeypadModifier)) {
    QDialog::keyPressEvent(e);
    return;
  }
  e->accept();
  if (e->isAutoRepeat()) return;
  QWidget* foco = focusWidget();
  if (auto* c = qobject_cast<Campo*>(foco); c && c->conComaDecimal() && avisarComa_) {
    rechazarComa(c);
  } else if (auto* b = qobject_cast<QAbstractButton*>(foco); b && qobject_cast<QPushButton*>(b)) {
    b->click();
  } else if (!alEntrar(foco)) {
    focusNextChild();
  }
}

// Of the screen's size in any case: without a window manager nobody else makes it so.
void Forma::maximizar() {
  setGeometry(screen()->availableGeometry());
  setWindowState(windowState() | Qt::WindowMaximized);
}

// Not smaller than its content needs, not larger than the screen, whole on it.
void Forma::caberEnPantalla() {
  if (isMaximized()) return;
  const QSize hay = tema::sitio(this);
  resize(size().expandedTo(minimumSizeHint()).boundedTo(hay));
  const QRect todo = screen()->availableGeometry();
  move(qBound(todo.left(), x(), qMax(todo.left(), todo.right() - width())),
       qBound(todo.top(), y(), qMax(todo.top(), todo.bottom() - height())));
}

void Forma::showEvent(QShowEvent* e) {
  if (!e->spontaneous()) caberEnPantalla();
  QDialog::showEvent(e);
  raise();
  activateWindow();
}

void Forma::reject() {
  if (puedeCerrar()) QDialog::reject();
}

void Forma::done(int resultado) {
  QWidget* debajo = parentWidget() ? parentWidget()->window() : nullptr;
  QDialog::done(resultado);
  // Some window systems leave no window active behind a dialog that closes.
  if (debajo && debajo->isVisible()) debajo->activateWindow();
}

CursorEspera::CursorEspera() { QApplication::setOverrideCursor(Qt::WaitCursor); }
CursorEspera::~CursorEspera() { QApplication::restoreOverrideCursor(); }
