#include "credit/frm_cons_cta_cte_cliente.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "credit/documentos_pendientes.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/ui/tema.h"

namespace {

// Totals read at once: those of the first screen with it, the others between two key presses.
constexpr size_t kPantalla = 40, kTanda = 200;
constexpr int kPausa_ms = 15;

enum Columna { kNombre, kDetalle, kFecha, kMoneda, kVtaSoles, kVtaUSD, kPagSol, kPagUSD, kEstado, kColumnas };
constexpr int kLugar = Qt::UserRole;        // of a document in its list
constexpr int kCargada = Qt::UserRole + 1;  // what lies below has been read

QString dinero(double valor) { return Formatear(valor, u"###,###,##0.00"); }
QString dia(const QDateTime& d) { return FormatearFecha(d, u"dd/mm/yyyy"); }
QString moneda(bool dolares) { return dolares ? QStringLiteral("Dolares") : QStringLiteral("Soles"); }

// A row that makes what it shows when it is seen: tens of thousands of customers are there at once.
class FilaArbol : public QTreeWidgetItem {
 public:
  FilaArbol(int banda, bool conHijos) : banda_(banda) {
    setChildIndicatorPolicy(conHijos ? ShowIndicator : DontShowIndicator);
  }
  QVariant data(int columna, int papel) const override {
    switch (papel) {
      case Qt::DisplayRole: return texto(columna);
      case Qt::BackgroundRole: return QBrush(tema::banda(banda_));
      case Qt::TextAlignmentRole:
        return columna >= kVtaSoles ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter)) : QVariant();
      case Qt::SizeHintRole:  // of every row: they are all alike
        return columna == kNombre ? QVariant(QSize(0, tema::px(tema::kAltoFila))) : QVariant();
      default: return QTreeWidgetItem::data(columna, papel);
    }
  }

 private:
  virtual QString texto(int columna) const = 0;

  int banda_;
};

class FilaCliente final : public FilaArbol {
 public:
  explicit FilaCliente(const CuentaCliente& c) : FilaArbol(0, true), c_(c) {}

 private:
  QString texto(int columna) const override {
    switch (columna) {
      case kNombre: return c_.DscCliente;
      case kDetalle: return c_.local();
      case kVtaSoles: return total(c_.ventas);
      case kPagSol: return total(c_.pagos);
      case kEstado: return total(c_.deuda());
      default: return {};
    }
  }
  QString total(double valor) const { return c_.conTotales ? dinero(valor) : QString(); }

  const CuentaCliente& c_;
};

class FilaDebajo final : public FilaArbol {
 public:
  FilaDebajo(int banda, const QStringList& celdas, bool conHijos) : FilaArbol(banda, conHijos), celdas_(celdas) {}
  QVariant data(int columna, int papel) const override {
    const bool pendiente = papel == Qt::BackgroundRole && columna == kEstado && celdas_.value(kEstado) == u"Pendiente";
    return pendiente ? QVariant(QBrush(tema::pendiente())) : FilaArbol::data(columna, papel);
  }

 private:
  QString texto(int columna) const override { return celdas_.value(columna); }

  QStringList celdas_;
};

}  // namespace

frmConsCtaCteCliente::frmConsCtaCteCliente(Puesto& p, QWidget* padre)
    : Forma(QStringLiteral("frmConsCtaCteCliente"), QStringLiteral("Consulta Cta. Cte. de Clientes"), padre), p_(p) {
  auto* fila = new QHBoxLayout;
  auto* rotulo = nuevoTexto(QStringLiteral("&Cliente:"));
  txtFiltro_ = new Campo(QStringLiteral("txtFiltro"));
  rotulo->setBuddy(txtFiltro_);
  barra_ = new QProgressBar;
  barra_->setObjectName(QStringLiteral("barra"));
  barra_->setFixedWidth(220);
  barra_->setFormat(QStringLiteral("Leyendo saldos: %p%"));
  fila->addWidget(rotulo);
  fila->addWidget(txtFiltro_, 1);
  fila->addWidget(barra_);
  cuerpo()->addLayout(fila);
  crearArbol();
  auto* salir = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
  cuerpo()->addLayout(filaBotones({salir}));
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  connect(txtFiltro_, &QLineEdit::textChanged, this, &frmConsCtaCteCliente::filtrar);
  indicio(QStringLiteral("Escriba parte del nombre  ·  Enter a la lista  ·  → abrir  ·  ← cerrar  ·  Esc salir"));
  resize(1016, 730);
  llenar();
  txtFiltro_->setFocus();
}

void frmConsCtaCteCliente::crearArbol() {
  arbol_ = new QTreeWidget;
  arbol_->setObjectName(QStringLiteral("MSHFlexGrid2"));
  arbol_->setUniformRowHeights(true);
  arbol_->setHeaderLabels({QStringLiteral("Cliente\nDocumento · Pago"), QStringLiteral("Local · Credito\nForma Pago"),
                           QStringLiteral("Fecha"), QStringLiteral("Moneda"), QStringLiteral("Vta\nSoles"),
                           QStringLiteral("Vta\nUSD"), QStringLiteral("Pag\nSol"), QStringLiteral("Pag\nUSD"),
                           QStringLiteral("Deuda\nEstado")});
  arbol_->header()->setMinimumHeight(2 * QFontMetrics(arbol_->header()->font()).lineSpacing() + tema::px(12));
  const int anchos[kColumnas] = {218, 140, 106, 88, 88, 78, 88, 78, 94};
  for (int c = 0; c < kColumnas; ++c) arbol_->setColumnWidth(c, anchos[c]);
  for (int c = kVtaSoles; c <= kEstado; ++c)
    arbol_->headerItem()->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
  cuerpo()->addWidget(arbol_, 1);
  connect(arbol_, &QTreeWidget::itemExpanded, this, &frmConsCtaCteCliente::abrir);
}

bool frmConsCtaCteCliente::leer(const std::function<ErrorCuentas(Conexion&)>& lectura) {
  Conexion central;
  if (!p_.poDBAdmin.AbrirBD(central, p_.ses.psConexionCentral, true)) return false;
  const auto error = lectura(central);
  p_.poDBAdmin.CerrarBD(central);
  if (error) p_.mensajes.mostrar(error->descripcion);
  return !error;
}

void frmConsCtaCteCliente::llenar() {
  const Ocupado ocupado(p_.mensajes, QStringLiteral("Leyendo las cuentas…"));
  const bool leido = leer([this](Conexion& central) -> ErrorCuentas {
    if (auto error = LeerCuentas(central, cuentas_)) return error;
    return LeerTotales(central, cuentas_, 0, kPantalla);
  });
  QList<QTreeWidgetItem*> filas;
  filas.reserve(static_cast<qsizetype>(cuentas_.size()));
  for (const CuentaCliente& c : cuentas_) filas << new FilaCliente(c);
  arbol_->addTopLevelItems(filas);
  if (!filas.isEmpty()) arbol_->setCurrentItem(filas[0]);
  barra_->setMaximum(static_cast<int>(cuentas_.size()));
  if (!leido) {
    barra_->hide();
    return;
  }
  mostrarTotales(kPantalla);
  if (conTotales_ < cuentas_.size()) timer_ = p_.reloj.cada(kPausa_ms, [this] { seguir(); });
}

// The next customers' totals; after a failure none are asked for any more.
void frmConsCtaCteCliente::seguir() {
  const size_t desde = conTotales_;
  if (!leer([this, desde](Conexion& central) { return LeerTotales(central, cuentas_, desde, kTanda); })) {
    timer_.reset();
    barra_->hide();
    return;
  }
  mostrarTotales(desde + kTanda);
  if (conTotales_ >= cuentas_.size()) timer_.reset();
}

void frmConsCtaCteCliente::mostrarTotales(size_t hasta) {
  conTotales_ = std::min(hasta, cuentas_.size());
  arbol_->viewport()->update();
  barra_->setValue(static_cast<int>(conTotales_));
  barra_->setVisible(conTotales_ < cuentas_.size());
}

void frmConsCtaCteCliente::abrir(QTreeWidgetItem* fila) {
  if (fila->data(0, kCargada).toBool()) return;
  const Ocupado ocupado(p_.mensajes, QStringLiteral("Leyendo la cuenta…"));
  if (fila->parent()) abrirDocumento(fila);
  else abrirCliente(fila, static_cast<size_t>(arbol_->indexOfTopLevelItem(fila)));
}

void frmConsCtaCteCliente::abrirCliente(QTreeWidgetItem* fila, size_t n) {
  std::vector<DocumentoCuenta> suyos;
  if (!leer([&](Conexion& central) { return LeerDocumentosCuenta(central, cuentas_[n], suyos); })) return;
  fila->setData(0, kCargada, true);
  for (const DocumentoCuenta& d : suyos) {
    auto* hija = new FilaDebajo(1,
                                {d.numero(), d.credito, dia(d.emision), moneda(d.enDolares), dinero(d.total),
                                 dinero(d.totalUSD), dinero(d.pagado), dinero(d.pagadoUSD), d.estado()},
                                d.pagado != 0);
    hija->setData(0, kLugar, static_cast<qulonglong>(documentos_.size()));
    documentos_.push_back(d);
    fila->addChild(hija);
  }
}

void frmConsCtaCteCliente::abrirDocumento(QTreeWidgetItem* fila) {
  std::vector<PagoCuenta> pagos;
  const DocumentoCuenta d = documentos_[fila->data(0, kLugar).toULongLong()];
  if (!leer([&](Conexion& central) { return LeerPagosCuenta(central, d, pagos); })) return;
  fila->setData(0, kCargada, true);
  for (const PagoCuenta& x : pagos) {
    fila->addChild(new FilaDebajo(
        2, {x.recibo, x.formaPago, dia(x.fecha), moneda(x.enDolares), {}, {}, dinero(x.soles), dinero(x.dolares), {}},
        false));
  }
}

bool frmConsCtaCteCliente::alEntrar(QWidget* campo) {
  if (campo == txtFiltro_) {
    arbol_->setFocus();
    return true;
  }
  auto* fila = campo == arbol_ ? arbol_->currentItem() : nullptr;
  if (!fila) return false;
  fila->setExpanded(!fila->isExpanded());
  return true;
}

// Typing asks the server nothing.
void frmConsCtaCteCliente::filtrar() {
  const QString busca = NombreLlano(txtFiltro_->text());
  if (llanos_.empty())
    for (const CuentaCliente& c : cuentas_) llanos_.push_back(NombreLlano(c.DscCliente));
  QTreeWidgetItem* primera = nullptr;
  arbol_->setUpdatesEnabled(false);
  for (size_t n = 0; n < cuentas_.size(); ++n) {
    auto* fila = arbol_->topLevelItem(static_cast<int>(n));
    const bool queda = busca.isEmpty() || llanos_[n].contains(busca);
    fila->setHidden(!queda);
    if (queda && !primera) primera = fila;
  }
  arbol_->setUpdatesEnabled(true);
  if (primera) arbol_->setCurrentItem(primera);
}
