#include "admin/guion_controles.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>

#include "admin/guion_lexico.h"
#include "admin/guion_teclas.h"
#include "platform/ui/rejilla.h"

namespace {

// The row, or the reason why there is none.
QModelIndex filaNumero(const QAbstractItemView& lista, const QString& nombre, int fila) {
  const QList<QModelIndex> filas = filasDe(lista);
  if (fila > filas.size()) {
    throw ErrorGuion{QStringLiteral("%1 no tiene la fila %2; tiene %3").arg(nombre).arg(fila).arg(filas.size())};
  }
  return filas[fila - 1];
}

// Something of the row that can be seen and pressed.
QModelIndex celdaVisible(QAbstractItemView& lista, const QModelIndex& fila) {
  for (int c = 0; c < fila.model()->columnCount(fila.parent()); ++c) {
    const QModelIndex celda = fila.siblingAtColumn(c);
    lista.scrollTo(celda);
    if (lista.visualRect(celda).isValid() && lista.visualRect(celda).intersects(lista.viewport()->rect())) return celda;
  }
  throw ErrorGuion{QStringLiteral("la fila no se ve")};
}

void pulsarCelda(QAbstractItemView& lista, const QModelIndex& celda, bool doble) {
  const QPoint lugar = (lista.visualRect(celda) & lista.viewport()->rect()).center();
  if (doble) {
    pulsarDosVeces(lista.viewport(), lugar);
  } else {
    pulsarRaton(lista.viewport(), lugar);
  }
}

void seleccionarTodo(QWidget* w) {
  if (auto* l = qobject_cast<QLineEdit*>(w)) l->selectAll();
  if (auto* t = qobject_cast<QPlainTextEdit*>(w)) t->selectAll();
  if (auto* t = qobject_cast<QTextEdit*>(w)) t->selectAll();
  if (auto* s = qobject_cast<QAbstractSpinBox*>(w)) s->selectAll();
  if (auto* c = qobject_cast<QComboBox*>(w); c && c->lineEdit()) c->lineEdit()->selectAll();
}

bool tieneElFoco(const QWidget& w) {
  const QWidget* f = QApplication::focusWidget();
  return f && (f == &w || w.isAncestorOf(f) || f == w.focusProxy());
}

QWidget* editorAbierto(const Rejilla& rejilla) {
  for (QLineEdit* e : rejilla.viewport()->findChildren<QLineEdit*>())
    if (e->isVisible() && e->property("editorDeCelda").toBool()) return e;
  throw ErrorGuion{QStringLiteral("%1 no muestra su celda").arg(rejilla.objectName())};
}

QString sinMnemonico(QString rotulo) { return rotulo.remove(u'&'); }

int entradaDe(const QComboBox& lista, const QString& texto) {
  int i = lista.findText(texto, Qt::MatchFixedString | Qt::MatchCaseSensitive);
  if (i >= 0) return i;
  for (i = 0; i < lista.count(); ++i)
    if (lista.itemText(i).trimmed().compare(texto.trimmed(), Qt::CaseInsensitive) == 0) return i;
  return -1;
}

}  // namespace

void darFocoParaEscribir(const ControlGuion& c) {
  if (!c.widget) throw ErrorGuion{QStringLiteral("en %1 no se escribe").arg(c.nombre)};
  const bool escribible = qobject_cast<QLineEdit*>(c.widget) || qobject_cast<QPlainTextEdit*>(c.widget) ||
                          qobject_cast<QTextEdit*>(c.widget) || qobject_cast<QAbstractSpinBox*>(c.widget) ||
                          qobject_cast<QComboBox*>(c.widget) || qobject_cast<QAbstractItemView*>(c.widget);
  if (!escribible) throw ErrorGuion{QStringLiteral("en %1 no se escribe").arg(c.nombre)};
  if (!c.editable() && !qobject_cast<QAbstractItemView*>(c.widget)) {
    throw ErrorGuion{c.nombre + QStringLiteral(" está fijo")};
  }
  c.widget->setFocus(Qt::TabFocusReason);
  if (!c.widget || !tieneElFoco(*c.widget)) {
    throw ErrorGuion{QStringLiteral("%1 no recibe el teclado").arg(c.nombre)};
  }
  seleccionarTodo(c.widget);
}

void pulsarControl(const ControlGuion& c) {
  if (c.accion) {
    if (!c.accion->menu()) {
      c.accion->trigger();
      return;
    }
    for (QObject* o : c.accion->associatedObjects()) {
      if (auto* barra = qobject_cast<QMenuBar*>(o)) {
        barra->setActiveAction(c.accion);
        return;
      }
    }
    c.accion->menu()->popup(QCursor::pos());
    return;
  }
  // These two react only on their mark and word, which may be anywhere in them.
  if (qobject_cast<QCheckBox*>(c.widget) || qobject_cast<QRadioButton*>(c.widget)) {
    c.widget->setFocus(Qt::MouseFocusReason);
    if (c.widget) static_cast<QAbstractButton*>(c.widget.data())->click();
    return;
  }
  pulsarRaton(c.widget, c.widget->rect().center());
}

void marcarControl(const ControlGuion& c, bool si) {
  if (c.accion) {
    if (!c.accion->isCheckable()) throw ErrorGuion{QStringLiteral("%1 no se marca").arg(c.nombre)};
    if (c.accion->isChecked() != si) c.accion->trigger();
    return;
  }
  auto* b = qobject_cast<QAbstractButton*>(c.widget.data());
  if (!b || !b->isCheckable()) throw ErrorGuion{QStringLiteral("%1 no se marca").arg(c.nombre)};
  if (b->isChecked() == si) return;
  if (!si && b->autoExclusive()) throw ErrorGuion{QStringLiteral("%1 sólo se quita marcando otra").arg(c.nombre)};
  pulsarControl(c);
}

void pulsarFila(QAbstractItemView& lista, const QString& nombre, int fila, bool doble) {
  const QModelIndex elegida = filaNumero(lista, nombre, fila);
  pulsarCelda(lista, celdaVisible(lista, elegida), doble);
}

void elegirEntrada(const ControlGuion& c, const QString& texto) {
  const ErrorGuion falta{QStringLiteral("%1 no tiene la entrada «%2»").arg(c.nombre, texto)};
  if (auto* lista = qobject_cast<QComboBox*>(c.widget.data())) {
    const int i = entradaDe(*lista, texto);
    if (i < 0) throw falta;
    const QPointer<QComboBox> vive = lista;
    lista->setFocus(Qt::MouseFocusReason);
    if (vive) lista->setCurrentIndex(i);
    if (vive) Q_EMIT lista->activated(i);
    if (vive) Q_EMIT lista->textActivated(lista->itemText(i));
    return;
  }
  if (auto* tabs = qobject_cast<QTabWidget*>(c.widget.data())) {
    for (int i = 0; i < tabs->count(); ++i) {
      if (sinMnemonico(tabs->tabText(i)).trimmed() != sinMnemonico(texto).trimmed()) continue;
      if (!tabs->isTabVisible(i) || !tabs->isTabEnabled(i)) {
        throw ErrorGuion{QStringLiteral("la pestaña «%1» no se puede elegir").arg(texto)};
      }
      tabs->setCurrentIndex(i);
      return;
    }
    throw falta;
  }
  QAbstractItemView* lista = c.lista();
  const QList<QModelIndex> filas = filasDe(*lista);
  for (qsizetype i = 0; i < filas.size(); ++i) {
    if (!celdasDe(filas[i]).contains(texto)) continue;
    pulsarFila(*lista, c.nombre, static_cast<int>(i) + 1, false);
    return;
  }
  throw falta;
}

void irACelda(QAbstractItemView& vista, const QString& nombre, int fila, int columna, bool vaciar) {
  const QModelIndex celda = filaNumero(vista, nombre, fila).siblingAtColumn(columna);
  if (!celda.isValid()) throw ErrorGuion{QStringLiteral("%1 no tiene la columna %2").arg(nombre).arg(columna)};
  auto* rejilla = qobject_cast<Rejilla*>(&vista);
  const bool editable =
      rejilla ? rejilla->esEditable(columna) && !rejilla->isColumnHidden(columna)
              : celda.flags().testFlag(Qt::ItemIsEditable) && vista.editTriggers() != QAbstractItemView::NoEditTriggers;
  if (!editable) throw ErrorGuion{QStringLiteral("la columna %1 de %2 no se puede editar").arg(columna).arg(nombre)};
  if (!rejilla) {
    vista.setFocus(Qt::TabFocusReason);
    vista.setCurrentIndex(celda);
    vista.scrollTo(celda);
    if (vaciar) vista.edit(celda);
    return;
  }
  const CeldaRejilla destino{celda.row(), columna};
  if (rejilla->editando() && rejilla->celda() == destino) {  // refused before: typed over again
    QWidget* editor = editorAbierto(*rejilla);
    editor->setFocus(Qt::TabFocusReason);
    seleccionarTodo(editor);
    if (vaciar) pulsarTecla(editor, *leerTecla(QStringLiteral("Delete")));
    return;
  }
  if (!rejilla->irA(destino) || !(rejilla->celda() == destino)) {
    throw ErrorGuion{QStringLiteral("no se puede salir de la celda que se está editando en %1").arg(nombre)};
  }
  if (vaciar) rejilla->editar(QString());
}
