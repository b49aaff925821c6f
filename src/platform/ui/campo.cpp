#include "platform/ui/campo.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "platform/text/numero.h"
#include "platform/ui/tema.h"

namespace {

// An accent that is typed with two keys comes as composed text and not as a key.
class FiltroCompuesto final : public QObject {
 public:
  explicit FiltroCompuesto(Campo* campo) : QObject(campo), campo_(campo) {}
  bool eventFilter(QObject*, QEvent* evento) override {
    if (evento->type() != QEvent::InputMethod || !campo_->filtro) return false;
    auto* e = static_cast<QInputMethodEvent*>(evento);
    QString pasa;
    for (const QChar escrito : e->commitString()) {
      const QChar c = campo_->filtro(escrito);
      if (!c.isNull() && c != QChar(8)) pasa += c;
    }
    e->setCommitString(pasa, e->replacementStart(), e->replacementLength());
    return false;
  }

 private:
  Campo* campo_;
};

}  // namespace

Campo::Campo(const QString& nombre, QWidget* padre) : QLineEdit(padre) {
  setObjectName(nombre);
  setContextMenuPolicy(Qt::NoContextMenu);
  installEventFilter(new FiltroCompuesto(this));
  connect(this, &QLineEdit::textChanged, this, [this] {
    quitarMal(this);
    ajustarLetra();
  });
}

void Campo::ajustarLetra() {
  const bool fijo = isReadOnly() && focusPolicy() == Qt::NoFocus;
  if (!fijo && !(alignment() & Qt::AlignRight)) return;
  constexpr int kBordes = 22;  // frame, padding and the place of the cursor
  const int cabe = width() - tema::px(kBordes);
  QFont f = font();
  const auto pide = [&](int puntos) {
    f.setPointSize(tema::pt(puntos));
    return QFontMetrics(f).horizontalAdvance(text());
  };
  const QVariant letra = !testAttribute(Qt::WA_WState_Created) || pide(tema::kPtCampo) <= cabe ? QVariant()
                         : pide(tema::kPtChica) <= cabe ? QVariant(QStringLiteral("chica"))
                                                        : QVariant(QStringLiteral("minima"));
  tema::aplicarRol(this, "letra", letra);
}

void Campo::resizeEvent(QResizeEvent* e) {
  QLineEdit::resizeEvent(e);
  ajustarLetra();
}

void Campo::keyPressEvent(QKeyEvent* e) {
  const QString t = e->text();
  const bool escribe = t.size() == 1 && t[0].isPrint() && !(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (!filtro || !escribe || isReadOnly()) {
    QLineEdit::keyPressEvent(e);
    return;
  }
  const QChar c = filtro(t[0]);
  if (c == QChar(8)) backspace();
  else if (!c.isNull()) insert(QString(c));
  e->accept();
}

void Campo::focusInEvent(QFocusEvent* e) {
  QLineEdit::focusInEvent(e);
  // A box or another window gives the keyboard back: half-typed text is not to be typed over.
  const bool vuelve = e->reason() == Qt::ActiveWindowFocusReason || e->reason() == Qt::PopupFocusReason;
  if (vuelve && isModified()) return;
  selectAll();
  // The press that brought the keyboard is still to come and would take the selection away.
  if (e->reason() == Qt::MouseFocusReason) QMetaObject::invokeMethod(this, &QLineEdit::selectAll, Qt::QueuedConnection);
}

bool Campo::conComaDecimal() const { return importe && !isReadOnly() && isEnabled() && ConComaDecimal(text()); }

bool Campo::focusNextPrevChild(bool siguiente) {
  if (!conComaDecimal()) return QLineEdit::focusNextPrevChild(siguiente);
  Q_EMIT comaDecimal();
  return true;
}

void Campo::focusOutEvent(QFocusEvent* e) {
  QLineEdit::focusOutEvent(e);
  if (e->reason() == Qt::ActiveWindowFocusReason || e->reason() == Qt::PopupFocusReason) return;
  if (conComaDecimal()) Q_EMIT comaDecimal();
  else if (alSalir && !isReadOnly()) alSalir();
}

Campo* nuevoImporte(const QString& nombre, QWidget* padre) {
  auto* c = new Campo(nombre, padre);
  c->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  c->importe = true;
  return c;
}

Campo* nuevoFijo(const QString& nombre, QWidget* padre) {
  auto* c = new Campo(nombre, padre);
  c->setReadOnly(true);
  c->setFocusPolicy(Qt::NoFocus);
  return c;
}

QPushButton* nuevoBoton(const QString& nombre, const QString& rotulo, const QString& papel, QWidget* padre) {
  auto* b = new QPushButton(rotulo, padre);
  b->setObjectName(nombre);
  b->setAutoDefault(false);
  if (!papel.isEmpty()) b->setProperty("papel", papel);
  return b;
}

QLabel* nuevoTexto(const QString& texto, const QString& papel, QWidget* padre) {
  auto* l = new QLabel(texto, padre);
  if (!papel.isEmpty()) l->setProperty("papel", papel);
  // A marked letter stands apart from its neighbours, which takes more room than the label asks for.
  if (texto.contains(u'&')) l->setContentsMargins(0, 0, 3, 0);
  return l;
}

QHBoxLayout* filaBotones(const std::vector<QPushButton*>& botones) {
  auto* fila = new QHBoxLayout;
  fila->setSpacing(tema::px(4 * tema::kPaso));
  fila->addStretch();
  for (auto* b : botones) fila->addWidget(b);
  return fila;
}

void marcarMal(QWidget* campo) {
  tema::aplicarRol(campo, "estado", QStringLiteral("mal"));
  campo->setFocus(Qt::OtherFocusReason);
}

void quitarMal(QWidget* campo) {
  if (campo->property("estado").isValid()) tema::aplicarRol(campo, "estado", QVariant());
}

Panel::Panel(const QString& titulo, int pares, QWidget* padre) : QFrame(padre), pares_(pares) {
  setProperty("papel", "tarjeta");
  auto* todo = new QVBoxLayout(this);
  todo->setContentsMargins(tema::px(16), tema::px(12), tema::px(16), tema::px(12));
  todo->setSpacing(tema::px(2 * tema::kPaso));
  if (!titulo.isEmpty()) todo->addWidget(nuevoTexto(titulo, QStringLiteral("titulo")));
  rejilla_ = new QGridLayout;
  rejilla_->setHorizontalSpacing(tema::px(3 * tema::kPaso));
  rejilla_->setVerticalSpacing(tema::px(3 * tema::kPaso));
  for (int i = 0; i < pares_; ++i) rejilla_->setColumnStretch(2 * i + 1, 1);
  todo->addLayout(rejilla_);
}

void Panel::agregar(const QString& etiqueta, QWidget* control) {
  if (etiqueta.isEmpty()) {
    rejilla_->addWidget(control, fila_, 2 * par_, 1, 2);
  } else {
    QLabel* l = nuevoTexto(etiqueta);
    l->setBuddy(control);
    rejilla_->addWidget(l, fila_, 2 * par_);
    rejilla_->addWidget(control, fila_, 2 * par_ + 1);
  }
  if (++par_ == pares_) saltar();
}

void Panel::ensanchar(QWidget* control) {
  int fila = 0, columna = 0, filas = 0, columnas = 0;
  rejilla_->getItemPosition(rejilla_->indexOf(control), &fila, &columna, &filas, &columnas);
  for (int i = 0; i < rejilla_->columnCount(); ++i) rejilla_->setColumnStretch(i, i == columna ? 1 : 0);
}

void Panel::saltar() {
  if (par_ == 0) return;
  par_ = 0;
  ++fila_;
}

Campo* Panel::campo(const QString& nombre, const QString& etiqueta) {
  auto* c = new Campo(nombre);
  agregar(etiqueta, c);
  return c;
}

Campo* Panel::importe(const QString& nombre, const QString& etiqueta) {
  auto* c = nuevoImporte(nombre);
  agregar(etiqueta, c);
  return c;
}

Campo* Panel::fijo(const QString& nombre, const QString& etiqueta) {
  auto* c = nuevoFijo(nombre);
  agregar(etiqueta, c);
  return c;
}

void Enlaces::mostrar() const {
  for (const auto& [control, campo] : lineas_) {
    if (control->text() == *campo) continue;
    control->setText(*campo);
    if (!control->hasFocus()) control->setCursorPosition(0);  // a long text shows its beginning
  }
  for (const auto& [control, campo] : rotulos_)
    if (control->text() != *campo) control->setText(*campo);
  for (const auto& [control, campo] : marcas_) control->setChecked(*campo);
}

void Enlaces::recoger() const {
  for (const auto& [control, campo] : lineas_) *campo = control->text();
  for (const auto& [control, campo] : marcas_) *campo = control->isChecked();
}
