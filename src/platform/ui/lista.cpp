#include "platform/ui/lista.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <numeric>

#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "platform/ui/pintor_celda.h"
#include "platform/ui/tema.h"

class ModeloLista final : public QAbstractTableModel {
  Q_OBJECT
 public:
  ModeloLista(const std::vector<ColumnaLista>& columnas, QObject* padre)
      : QAbstractTableModel(padre), columnas_(columnas) {}

  int rowCount(const QModelIndex& padre = {}) const override { return padre.isValid() ? 0 : int(filas.size()); }
  int columnCount(const QModelIndex& padre = {}) const override { return padre.isValid() ? 0 : int(columnas_.size()); }

  QVariant data(const QModelIndex& i, int papel = Qt::DisplayRole) const override {
    if (!i.isValid()) return {};
    const FilaLista& f = fila(i.row());
    switch (papel) {
      case Qt::DisplayRole: return f.celdas.value(i.column());
      case Qt::TextAlignmentRole: return alineacion(i.column());
      case PintorCelda::Inactiva: return !f.activa;
      default: return {};
    }
  }
  QVariant headerData(int seccion, Qt::Orientation o, int papel) const override {
    if (o != Qt::Horizontal) return {};
    if (papel == Qt::DisplayRole) return columnas_[static_cast<size_t>(seccion)].titulo;
    if (papel == Qt::TextAlignmentRole) return alineacion(seccion) | int(Qt::AlignVCenter);
    return {};
  }
  int alineacion(int c) const {
    return int(columnas_[static_cast<size_t>(c)].derecha ? Qt::AlignRight : Qt::AlignLeft);
  }

  const FilaLista& fila(int n) const {
    FilaLista& f = filas[static_cast<size_t>(n)];
    if (celdas && f.celdas.isEmpty()) f.celdas = celdas(f.clave);
    return f;
  }

  void reemplazar(std::vector<FilaLista> nuevas) {
    beginResetModel();
    filas = std::move(nuevas);
    endResetModel();
  }
  void insertar(FilaLista f) {
    beginInsertRows({}, rowCount(), rowCount());
    filas.push_back(std::move(f));
    endInsertRows();
  }
  void cambiar(int n, FilaLista f) {
    filas[static_cast<size_t>(n)] = std::move(f);
    Q_EMIT dataChanged(index(n, 0), index(n, columnCount() - 1));
  }
  void quitar(int n) {
    beginRemoveRows({}, n, n);
    filas.erase(filas.begin() + n);
    endRemoveRows();
  }

  mutable std::vector<FilaLista> filas;
  Lista::CeldasDe celdas;

 private:
  std::vector<ColumnaLista> columnas_;
};

namespace {

int comparar(ColumnaLista::Clase clase, const QString& a, const QString& b) {
  switch (clase) {
    case ColumnaLista::Fecha: {
      const auto x = LeerFecha(a), y = LeerFecha(b);
      if (!x || !y) return int(x.has_value()) - int(y.has_value());
      return *x < *y ? -1 : int(*y < *x);
    }
    case ColumnaLista::Numero: {
      const double x = LeerImporte(a), y = LeerImporte(b);
      return x < y ? -1 : int(y < x);
    }
    case ColumnaLista::Texto: break;
  }
  return CompararEspanol(a, b);
}

}  // namespace

Lista::Lista(const QString& nombre, std::vector<ColumnaLista> columnas, QWidget* padre)
    : QTableView(padre), columnas_(std::move(columnas)), modelo_(new ModeloLista(columnas_, this)) {
  setObjectName(nombre);
  setModel(modelo_);
  setItemDelegate(new PintorCelda(this));
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setShowGrid(false);
  setHorizontalScrollMode(ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(tema::px(tema::kAltoFila));
  verticalHeader()->setDefaultSectionSize(tema::px(tema::kAltoFila));
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(true);
  horizontalHeader()->setStretchLastSection(true);
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &Lista::ordenar);
}

void Lista::llenar(std::vector<FilaLista> filas, CeldasDe celdas) {
  modelo_->celdas = std::move(celdas);
  modelo_->reemplazar(std::move(filas));
  elegir(0);
  viewport()->update();
}

void Lista::agregar(FilaLista fila) {
  modelo_->insertar(std::move(fila));
  elegir(filas() - 1);
}

void Lista::cambiar(int n, FilaLista fila) { modelo_->cambiar(n, std::move(fila)); }

void Lista::quitar(int n) {
  modelo_->quitar(n);
  elegir(qMin(n, filas() - 1));
  viewport()->update();
}

int Lista::filas() const { return modelo_->rowCount(); }
const FilaLista& Lista::fila(int n) const { return modelo_->fila(n); }
int Lista::actual() const { return currentIndex().isValid() ? currentIndex().row() : -1; }

void Lista::elegir(int n) {
  if (n < 0 || n >= filas()) {
    Q_EMIT cambioActual(actual());
    return;
  }
  const bool yaEstaba = actual() == n;
  setCurrentIndex(modelo_->index(n, 0));
  selectRow(n);
  scrollTo(currentIndex());
  if (yaEstaba) Q_EMIT cambioActual(n);
}

void Lista::desmarcar() {
  clearSelection();
  setCurrentIndex({});
}

void Lista::ordenar(int columna) {
  descendente_ = orden_ == columna && !descendente_;
  orden_ = columna;
  const auto clase = columnas_[static_cast<size_t>(columna)].clase;
  const int elegidaAntes = actual();
  std::vector<int> lugar(static_cast<size_t>(filas()));
  std::iota(lugar.begin(), lugar.end(), 0);
  std::stable_sort(lugar.begin(), lugar.end(), [&](int a, int b) {
    const int c = comparar(clase, fila(a).celdas.value(columna), fila(b).celdas.value(columna));
    return descendente_ ? c > 0 : c < 0;
  });
  std::vector<FilaLista> nuevas;
  nuevas.reserve(lugar.size());
  for (int n : lugar) nuevas.push_back(fila(n));
  modelo_->reemplazar(std::move(nuevas));
  horizontalHeader()->setSortIndicator(columna, descendente_ ? Qt::DescendingOrder : Qt::AscendingOrder);
  horizontalHeader()->setSortIndicatorShown(true);
  elegir(static_cast<int>(std::find(lugar.begin(), lugar.end(), elegidaAntes) - lugar.begin()));
}

void Lista::keyPressEvent(QKeyEvent* e) {
  if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
    if (actual() >= 0 && !e->isAutoRepeat()) Q_EMIT elegida(actual());
    return;
  }
  switch (e->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Delete:
    case Qt::Key_Insert: e->ignore(); return;
    default: QTableView::keyPressEvent(e);
  }
}

void Lista::mouseDoubleClickEvent(QMouseEvent* e) {
  const QModelIndex i = indexAt(e->position().toPoint());
  if (i.isValid()) Q_EMIT elegida(i.row());
}

void Lista::paintEvent(QPaintEvent* e) {
  QTableView::paintEvent(e);
  if (filas() == 0) pintarVacio(viewport(), textoVacio);
}

void Lista::resizeEvent(QResizeEvent* e) {
  QTableView::resizeEvent(e);
  for (int c = 0; c < modelo_->columnCount(); ++c)
    setColumnWidth(c, int(viewport()->width() * columnas_[static_cast<size_t>(c)].fraccion));
}

void Lista::currentChanged(const QModelIndex& ahora, const QModelIndex& antes) {
  QTableView::currentChanged(ahora, antes);
  if (ahora.row() != antes.row()) Q_EMIT cambioActual(ahora.row());
}

#include "lista.moc"
