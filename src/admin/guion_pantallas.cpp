#include "admin/guion_pantallas.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMetaProperty>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>
#include <algorithm>

#include "admin/guion_lexico.h"
#include "platform/ui/lector_codigos.h"
#include "platform/ui/rejilla.h"

namespace {

bool esForma(const QWidget& w) {
  if (!w.isWindow()) return false;
  const Qt::WindowType tipo = w.windowType();
  return tipo == Qt::Window || tipo == Qt::Dialog || tipo == Qt::Sheet || tipo == Qt::SplashScreen;
}

// The form on which an object stands; menus count to the form that holds them.
QWidget* formaDe(const QObject* o) {
  for (auto* p = const_cast<QObject*>(o); p; p = p->parent())
    if (auto* w = qobject_cast<QWidget*>(p); w && w->isWindow() && w->windowType() != Qt::Popup) return w;
  return nullptr;
}

// An entry can be reached on one of its ways when the menus or bars along it can.
bool accionAlcanzable(const QAction& a, bool (*puede)(const QAction&), bool enPantalla) {
  if (a.isSeparator() || !puede(a)) return false;
  bool lugares = false;
  for (QObject* o : a.associatedObjects()) {
    lugares = true;
    if (auto* menu = qobject_cast<QMenu*>(o)) {
      if (menu->menuAction() == &a || accionAlcanzable(*menu->menuAction(), puede, enPantalla)) return true;
    } else if (auto* w = qobject_cast<QWidget*>(o)) {
      if (enPantalla ? w->isVisible() : w->isEnabled()) return true;
    }
  }
  return !lugares;
}

QString textoDeWidget(const QWidget& w) {
  if (auto* l = qobject_cast<const QLineEdit*>(&w)) return l->text();
  if (auto* l = qobject_cast<const QLabel*>(&w)) return l->text();
  if (auto* c = qobject_cast<const QComboBox*>(&w)) return c->currentText();
  if (auto* b = qobject_cast<const QCheckBox*>(&w)) return b->isChecked() ? QStringLiteral("si") : QStringLiteral("no");
  if (auto* b = qobject_cast<const QRadioButton*>(&w)) {
    return b->isChecked() ? QStringLiteral("si") : QStringLiteral("no");
  }
  // A sign in an article's name stands twice in the caption, since one alone would mark a letter.
  if (auto* b = qobject_cast<const QAbstractButton*>(&w))
    return b->text().replace(QStringLiteral("&&"), QStringLiteral("&"));
  if (auto* t = qobject_cast<const QPlainTextEdit*>(&w)) return t->toPlainText();
  if (auto* t = qobject_cast<const QTextEdit*>(&w)) return t->toPlainText();
  if (auto* s = qobject_cast<const QAbstractSpinBox*>(&w)) return s->text();
  if (auto* g = qobject_cast<const QGroupBox*>(&w)) return g->title();
  if (auto* t = qobject_cast<const QTabWidget*>(&w)) return t->tabText(t->currentIndex());
  if (auto* m = qobject_cast<const QMenu*>(&w)) return m->title();
  if (w.isWindow()) return w.windowTitle();
  for (const char* propiedad : {"text", "texto", "title"}) {
    const QVariant v = w.property(propiedad);
    if (v.isValid() && v.canConvert<QString>()) return v.toString();
  }
  return w.metaObject()->userProperty().read(&w).toString();
}

void anadirRamas(const QAbstractItemModel& modelo, const QModelIndex& padre, QList<QModelIndex>& filas) {
  for (int i = 0; i < modelo.rowCount(padre); ++i) {
    const QModelIndex fila = modelo.index(i, 0, padre);
    filas << fila;
    if (modelo.hasChildren(fila)) anadirRamas(modelo, fila, filas);
  }
}

}  // namespace

QList<QModelIndex> filasDe(const QAbstractItemView& lista) {
  QList<QModelIndex> filas;
  if (!lista.model()) return filas;
  if (auto* l = qobject_cast<const QListView*>(&lista)) {
    for (int i = 0; i < l->model()->rowCount(l->rootIndex()); ++i) {
      filas << l->model()->index(i, l->modelColumn(), l->rootIndex());
    }
  } else {
    anadirRamas(*lista.model(), lista.rootIndex(), filas);
  }
  return filas;
}

QStringList celdasDe(const QModelIndex& fila) {
  QStringList celdas;
  for (int c = 0; c < fila.model()->columnCount(fila.parent()); ++c) {
    const QModelIndex celda = fila.siblingAtColumn(c);
    QString texto = celda.data(Qt::DisplayRole).toString();
    const QVariant marca = celda.data(Qt::CheckStateRole);
    if (texto.isEmpty() && marca.isValid()) {
      texto = marca.toInt() == Qt::Checked ? QStringLiteral("si") : QStringLiteral("no");
    }
    celdas << enUnaLinea(texto).replace(u'\t', u' ');
  }
  return celdas;
}

bool ControlGuion::visible() const {
  if (widget) return widget->isVisible();
  return accion && accionAlcanzable(
                       *accion, [](const QAction& a) { return a.isVisible(); }, true);
}

bool ControlGuion::activo() const {
  if (widget) return widget->isEnabled();
  return accion && accionAlcanzable(
                       *accion, [](const QAction& a) { return a.isEnabled(); }, false);
}

bool ControlGuion::editable() const {
  if (!widget || !widget->isEnabled()) return false;
  const QWidget* w = widget;
  if (auto* l = qobject_cast<const QLineEdit*>(w)) return !l->isReadOnly();
  if (auto* t = qobject_cast<const QPlainTextEdit*>(w)) return !t->isReadOnly();
  if (auto* t = qobject_cast<const QTextEdit*>(w)) return !t->isReadOnly();
  if (auto* s = qobject_cast<const QAbstractSpinBox*>(w)) return !s->isReadOnly();
  if (auto* r = qobject_cast<const Rejilla*>(w)) {
    for (int c = 0; c < r->model()->columnCount(); ++c)
      if (r->esEditable(c) && !r->isColumnHidden(c)) return true;
    return false;
  }
  if (auto* v = qobject_cast<const QAbstractItemView*>(w)) {
    if (v->editTriggers() == QAbstractItemView::NoEditTriggers || !v->model()) return false;
    for (int c = 0; c < v->model()->columnCount(v->rootIndex()); ++c)
      if (v->model()->index(0, c, v->rootIndex()).flags() & Qt::ItemIsEditable) return true;
    return false;
  }
  return qobject_cast<const QComboBox*>(w) || qobject_cast<const QCheckBox*>(w) || qobject_cast<const QRadioButton*>(w);
}

void ControlGuion::exigirUsable() const {
  if (!visible()) throw ErrorGuion{nombre + QStringLiteral(" está oculto")};
  if (!activo()) throw ErrorGuion{nombre + QStringLiteral(" está inactivo")};
}

QStringList ControlGuion::texto() const {
  if (!widget) return {accion ? enUnaLinea(accion->text()) : QString()};
  if (auto* v = qobject_cast<const QAbstractItemView*>(widget.data())) {
    QStringList filas;
    for (const QModelIndex& f : filasDe(*v)) filas << celdasDe(f).join(u'\t');
    return filas;
  }
  return {enUnaLinea(textoDeWidget(*widget))};
}

QAbstractItemView* ControlGuion::lista() const {
  auto* v = qobject_cast<QAbstractItemView*>(widget.data());
  if (!v) throw ErrorGuion{nombre + QStringLiteral(" no es una lista ni una rejilla")};
  return v;
}

PantallasGuion::PantallasGuion() { qApp->installEventFilter(this); }

bool PantallasGuion::eventFilter(QObject* objeto, QEvent* evento) {
  if ((evento->type() == QEvent::Show || evento->type() == QEvent::WindowActivate) && objeto->isWidgetType()) {
    auto* w = static_cast<QWidget*>(objeto);
    if (esForma(*w)) {
      formas_.removeIf([w](const QPointer<QWidget>& f) { return !f || f == w; });
      formas_ << w;
    }
  }
  return false;
}

QWidget* PantallasGuion::activa() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  for (auto f = formas_.rbegin(); f != formas_.rend(); ++f)
    if (*f && (*f)->isVisible() && (*f)->windowType() != Qt::SplashScreen) return *f;
  return nullptr;
}

QString PantallasGuion::nombreActiva() const {
  const QWidget* w = activa();
  return w ? w->objectName() : QString();
}

void PantallasGuion::activar() const {
  QWidget* w = activa();
  if (!w || w->isActiveWindow() || QApplication::activePopupWidget()) return;
  w->activateWindow();
  QApplication::setActiveWindow(w);  // at once, also where no window manager answers
}

bool PantallasGuion::teclaRetenida() const {
  return std::any_of(formas_.begin(), formas_.end(), [](const auto& f) {
    const auto* lector = f ? f->template findChild<LectorCodigos*>() : nullptr;
    return lector && lector->reteniendo();
  });
}

bool PantallasGuion::botonHundido() const {
  for (const auto& f : formas_) {
    if (!f || !f->isVisible()) continue;
    for (const QAbstractButton* b : f->findChildren<QAbstractButton*>())
      if (b->isDown() && b->isVisible()) return true;
  }
  return false;
}

void PantallasGuion::cerrarDesplegables() {
  for (int i = 0; i < 10; ++i) {
    QWidget* p = QApplication::activePopupWidget();
    if (!p) return;
    p->close();
  }
}

ControlGuion PantallasGuion::buscar(const QString& nombre) const {
  QWidget* primera = activa();
  if (!primera) throw ErrorGuion{QStringLiteral("no hay ninguna pantalla; falta «inicia»")};
  QList<QWidget*> pantallas{primera};
  if (!QApplication::activeModalWidget()) {
    for (auto f = formas_.rbegin(); f != formas_.rend(); ++f)
      if (*f && *f != primera && (*f)->isVisible()) pantallas << *f;
  }
  for (QWidget* pantalla : pantallas) {
    for (const Qt::CaseSensitivity caso : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
      const auto es = [&](const QObject* o) {
        return o->objectName().compare(nombre, caso) == 0 && formaDe(o) == pantalla;
      };
      if (es(pantalla)) return {nombre, pantalla, nullptr};
      QWidget* hallado = nullptr;
      for (QWidget* w : pantalla->findChildren<QWidget*>()) {
        if (!es(w)) continue;
        if (auto* menu = qobject_cast<QMenu*>(w)) return {nombre, nullptr, menu->menuAction()};
        if (!hallado || (!hallado->isVisible() && w->isVisible())) hallado = w;
      }
      if (hallado) return {nombre, hallado, nullptr};
      for (QAction* a : pantalla->findChildren<QAction*>())
        if (es(a)) return {nombre, nullptr, a};
    }
  }
  throw ErrorGuion{QStringLiteral("no hay ningún control «%1» en %2").arg(nombre, primera->objectName())};
}

QWidget* PantallasGuion::destinoDeTeclas() const {
  if (QWidget* p = QApplication::activePopupWidget()) return p->focusWidget() ? p->focusWidget() : p;
  if (QWidget* w = QApplication::focusWidget()) return w;
  QWidget* pantalla = activa();
  return pantalla && pantalla->focusWidget() ? pantalla->focusWidget() : pantalla;
}

QString PantallasGuion::foco() const {
  for (QWidget* w = QApplication::focusWidget(); w; w = w->parentWidget()) {
    QString nombre = w->objectName();
    const bool interno = nombre.startsWith(QStringLiteral("qt_")) || w->property("editorDeCelda").toBool();
    if (!nombre.isEmpty() && !interno) return nombre;
    if (w->isWindow()) break;
  }
  return {};
}
