#include "platform/ui/forma.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/ui/anillo_foco.h"
#include "platform/ui/tema.h"

Forma::Forma(const QString& nombre, const QString& titulo, QWidget* padre)
    : QDialog(padre), teclas_(new TablaTeclas(this)) {
  setObjectName(nombre);
  setWindowTitle(titulo);
  todo_ = new QVBoxLayout(this);
  todo_->setContentsMargins(0, 0, 0, 0);
  todo_->setSpacing(0);
  cuerpo_ = new QVBoxLayout;
  cuerpo_->setContentsMargins(16, 16, 16, 16);
  cuerpo_->setSpacing(3 * tema::kPaso);
  todo_->addLayout(cuerpo_, 1);
  tira_ = new QFrame;
  tira_->setProperty("papel", "indicios");
  auto* enTira = new QVBoxLayout(tira_);
  enTira->setContentsMargins(16, 4, 16, 4);
  indicios_ = new QLabel;
  indicios_->setObjectName(QStringLiteral("lblIndicios"));
  indicios_->setWordWrap(true);
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
  notas_ << texto;
  escribirIndicios();
}

void Forma::escribirIndicios() {
  QStringList partes = notas_;
  if (const QString t = teclas_->indicios(); !t.isEmpty()) partes.prepend(t);
  indicios_->setText(partes.join(QStringLiteral("  ·  ")));
  tira_->setVisible(!partes.isEmpty());
}

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
  if (auto* b = qobject_cast<QAbstractButton*>(foco); b && qobject_cast<QPushButton*>(b)) {
    b->click();
  } else if (!alEntrar(foco)) {
    focusNextChild();
  }
}

void Forma::showEvent(QShowEvent* e) {
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
