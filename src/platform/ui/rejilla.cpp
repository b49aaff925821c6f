#include "platform/ui/rejilla.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QScopeGuard>
#include <QScrollBar>
#include <utility>

#include "platform/ui/campo.h"
#include "platform/ui/modelo_rejilla.h"
#include "platform/ui/pintor_celda.h"
#include "platform/ui/tema.h"

class EditorCelda final : public QLineEdit {
  Q_OBJECT
 public:
  explicit EditorCelda(QWidget* padre) : QLineEdit(padre) {
    setObjectName(QStringLiteral("editorCelda"));
    setProperty("editorDeCelda", true);
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QLineEdit::textChanged, this, [this] { quitarMal(this); });
  }
  bool devolverFoco = false;  // the keyboard comes back as soon as events run again
};

Rejilla::Rejilla(const QString& nombre, std::vector<ColumnaRejilla> columnas, Origen origen, QWidget* padre)
    : QTableView(padre), columnas_(std::move(columnas)) {
  setObjectName(nombre);
  setProperty("papel", "registro");
  setProperty("anilloPropio", true);
  modelo_ = new ModeloRejilla(columnas_, std::move(origen), this);
  setModel(modelo_);
  setItemDelegate(new PintorCelda(this));
  setEditTriggers(NoEditTriggers);
  setSelectionMode(NoSelection);
  setTabKeyNavigation(false);
  setHorizontalScrollMode(ScrollPerPixel);
  setCornerButtonEnabled(false);
  setWordWrap(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(tema::px(tema::kAltoFila));
  verticalHeader()->setDefaultSectionSize(tema::px(tema::kAltoFila));
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(false);
  for (int c = 0; c < modelo_->columnCount(); ++c) setColumnHidden(c, columnas_[static_cast<size_t>(c)].oculta);
  refrescar();
}

void Rejilla::refrescar() {
  const bool estabaVacia = vacia();
  modelo_->refrescar();
  if (vacia() || estabaVacia) viewport()->update();
  if (editor_ && celdaEditor_.fila >= modelo_->rowCount()) abandonarCelda();
  if (!currentIndex().isValid() && modelo_->rowCount() > 0) setCurrentIndex(modelo_->index(0, 0));
}

void Rejilla::ponerTitulo(int columna, const QString& titulo) { modelo_->ponerTitulo(columna, titulo); }

void Rejilla::ponerEditable(int columna, bool editable) { columnas_[static_cast<size_t>(columna)].editable = editable; }

CeldaRejilla Rejilla::celda() const { return {currentIndex().row(), currentIndex().column()}; }

bool Rejilla::irA(CeldaRejilla celda) {
  if (!dejarCelda()) return false;
  setFocus();
  setCurrentIndex(modelo_->index(celda.fila, celda.columna));
  return true;
}

void Rejilla::ponerCelda(CeldaRejilla celda) {
  if (!editor_) setCurrentIndex(modelo_->index(celda.fila, celda.columna));
}

bool Rejilla::editar(const std::optional<QString>& texto) {
  const QModelIndex i = currentIndex();
  if (!i.isValid() || !esEditable(i.column())) return false;
  if (editor_) return true;
  scrollTo(i);
  celdaEditor_ = {i.row(), i.column()};
  editor_ = new EditorCelda(viewport());
  if (columnas_[static_cast<size_t>(i.column())].derecha) editor_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  editor_->setText(texto.value_or(modelo_->data(i).toString()));
  colocarEditor();
  editor_->installEventFilter(this);
  editor_->show();
  editor_->setFocus();
  if (!texto) editor_->selectAll();
  return true;
}

bool Rejilla::dejarCelda() {
  if (!editor_ || saliendo_) return true;
  if (editor_->devolverFoco) return false;  // the click that left the cell has just been refused
  saliendo_ = true;
  const QPointer<Rejilla> vivo(this);
  QString texto = editor_->text();
  const CeldaRejilla c = celdaEditor_;
  const bool acepta = [&] {
    const auto alFinal = qScopeGuard([&vivo] {
      if (vivo) vivo->saliendo_ = false;
    });
    return !salir || salir(c.fila, c.columna, texto);
  }();
  if (!vivo) return true;
  if (acepta) {
    abandonarCelda();
    refrescar();
  } else if (editor_) {
    marcarMal(editor_);
    editor_->selectAll();
  }
  return acepta;
}

void Rejilla::abandonarCelda() {
  if (!editor_) return;
  EditorCelda* e = std::exchange(editor_, nullptr);
  e->removeEventFilter(this);
  if (e->hasFocus()) setFocus();
  e->hide();
  e->deleteLater();
  pintarCelda(currentIndex());
}

std::optional<CeldaRejilla> Rejilla::siguientePorDefecto(int fila, int columna) const {
  const int columnas = modelo_->columnCount();
  for (int f = fila, c = columna + 1; f < modelo_->rowCount() && f <= fila + 1; ++f, c = 0)
    for (; c < columnas; ++c)
      if (esEditable(c) && !isColumnHidden(c)) return CeldaRejilla{f, c};
  return {};
}

void Rejilla::avanzar() {
  const CeldaRejilla c = celda();
  if (c.fila < 0) return;
  const auto nueva = siguiente ? siguiente(c.fila, c.columna) : siguientePorDefecto(c.fila, c.columna);
  if (nueva) irA(*nueva);
}

void Rejilla::keyPressEvent(QKeyEvent* e) {
  const CeldaRejilla c = celda();
  const bool boton = c.columna >= 0 && columnas_[static_cast<size_t>(c.columna)].boton;
  const bool enter = e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter;
  if (boton && pulsar && (enter || e->key() == Qt::Key_Space)) {
    pulsar(c.fila, c.columna);
    return;
  }
  if (enter && !(e->modifiers() & ~Qt::KeypadModifier)) {
    avanzar();
    return;
  }
  const QString t = e->text();
  const bool escribe = t.size() == 1 && t[0].isPrint() && !(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (escribe) {
    const QChar q = filtro && c.fila >= 0 ? filtro(c.fila, c.columna, t[0]) : t[0];
    if (!q.isNull()) editar(QString(q));
    return;
  }
  switch (e->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Delete:
    case Qt::Key_Insert: e->ignore(); return;
    default: QTableView::keyPressEvent(e);
  }
}

// Keys that end or leave the editor. The rest is typed.
bool Rejilla::teclaDeEditor(QKeyEvent* e) {
  switch (e->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (e->modifiers() & ~Qt::KeypadModifier) return false;
      if (dejarCelda()) avanzar();
      return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      if (dejarCelda()) focusNextPrevChild(e->key() == Qt::Key_Tab);
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down: {
      const int fila = celdaEditor_.fila + (e->key() == Qt::Key_Up ? -1 : 1);
      const int columna = celdaEditor_.columna;
      if (dejarCelda() && fila >= 0 && fila < modelo_->rowCount()) irA({fila, columna});
      return true;
    }
    case Qt::Key_Escape:
      abandonarCelda();
      if (alAbandonar) alAbandonar();
      return true;
    case Qt::Key_Delete:
      if (!alSuprimir || !editor_->hasSelectedText() || editor_->selectedText() != editor_->text()) return false;
      abandonarCelda();
      alSuprimir();
      return true;
    default: break;
  }
  const QString t = e->text();
  if (!filtro || t.size() != 1 || !t[0].isPrint()) return false;
  if (e->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
  const QChar q = filtro(celdaEditor_.fila, celdaEditor_.columna, t[0]);
  if (!q.isNull()) editor_->insert(QString(q));
  return true;
}

bool Rejilla::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto != editor_) return QTableView::eventFilter(objeto, evento);
  if (evento->type() == QEvent::KeyPress) return teclaDeEditor(static_cast<QKeyEvent*>(evento));
  if (evento->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Escape) {
    evento->accept();
    return true;
  }
  if (evento->type() != QEvent::FocusOut) return false;
  const auto razon = static_cast<QFocusEvent*>(evento)->reason();
  if (saliendo_ || razon == Qt::ActiveWindowFocusReason || razon == Qt::PopupFocusReason) return false;
  if (!dejarCelda() && editor_) {
    editor_->devolverFoco = true;
    QMetaObject::invokeMethod(
        editor_,
        [this, e = editor_] {
          if (e != editor_) return;
          e->devolverFoco = false;
          e->setFocus();
          e->selectAll();
        },
        Qt::QueuedConnection);
  }
  return false;
}

void Rejilla::mousePressEvent(QMouseEvent* e) {
  if (!dejarCelda()) return;
  QTableView::mousePressEvent(e);
  const QModelIndex i = indexAt(e->position().toPoint());
  if (i.isValid() && pulsar && columnas_[static_cast<size_t>(i.column())].boton) pulsar(i.row(), i.column());
}

void Rejilla::mouseDoubleClickEvent(QMouseEvent* e) {
  if (indexAt(e->position().toPoint()).isValid()) editar();
}

bool Rejilla::vacia() const { return modelo_->vacio(); }

void Rejilla::pintarCelda(const QModelIndex& celda) {
  if (celda.isValid()) viewport()->update(visualRect(celda).adjusted(-3, -3, 3, 3));
}

void Rejilla::currentChanged(const QModelIndex& ahora, const QModelIndex& antes) {
  QTableView::currentChanged(ahora, antes);
  pintarCelda(antes);
  pintarCelda(ahora);
}

void Rejilla::focusInEvent(QFocusEvent* e) {
  QTableView::focusInEvent(e);
  pintarCelda(currentIndex());
}

void Rejilla::focusOutEvent(QFocusEvent* e) {
  QTableView::focusOutEvent(e);
  pintarCelda(currentIndex());
}

void Rejilla::paintEvent(QPaintEvent* e) {
  QTableView::paintEvent(e);
  if (vacia()) pintarVacio(viewport(), textoVacio, modelo_->rowCount() > 0 ? rowHeight(0) : 0);
  if (!currentIndex().isValid() || !(hasFocus() || (editor_ && editor_->hasFocus()))) return;
  QPainter p(viewport());
  p.setPen(QPen(QColor(tema::kFoco), tema::kAnilloFoco, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  p.drawRect(QRectF(visualRect(currentIndex())).adjusted(0.5, 0.5, -0.5, -0.5));
}

void Rejilla::resizeEvent(QResizeEvent* e) {
  QTableView::resizeEvent(e);
  repartirAnchos();
  colocarEditor();
}

void Rejilla::colocarEditor() {
  if (!editor_) return;
  editor_->setGeometry(visualRect(modelo_->index(celdaEditor_.fila, celdaEditor_.columna)).adjusted(2, 2, -2, -2));
}

void Rejilla::repartirAnchos() {
  int fijo = 0, sueltas = 0;
  for (const auto& c : columnas_) {
    if (c.oculta) continue;
    fijo += tema::px(c.ancho);
    sueltas += c.ancho == 0;
  }
  const int resto = sueltas ? qMax(120, (viewport()->width() - fijo) / sueltas) : 0;
  for (int c = 0; c < modelo_->columnCount(); ++c) {
    const int ancho = columnas_[static_cast<size_t>(c)].ancho;
    setColumnWidth(c, ancho ? tema::px(ancho) : resto);
  }
}

#include "rejilla.moc"
