#include "sale/frm_busqueda_articulos.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/ui/lista.h"
#include "platform/ui/tema.h"

namespace {

Lista* nuevaLista(const ClaseBusqueda& clase) {
  std::vector<ColumnaLista> columnas;
  for (const auto& c : clase.columnas) columnas.push_back({c.titulo, c.fraccion, c.derecha, ColumnaLista::Texto});
  auto* lista = new Lista(QStringLiteral("lvwListado"), columnas);
  // Pages come in the order of the database; a sorted page would look like a sorted list.
  lista->horizontalHeader()->setSectionsClickable(false);
  for (int c = 0; c < static_cast<int>(clase.columnas.size()); ++c) {
    lista->setColumnHidden(c, clase.columnas[static_cast<size_t>(c)].fraccion == 0);
  }
  return lista;
}

}  // namespace

frmBusquedaArticulos::frmBusquedaArticulos(Puesto& p, TipoBusqueda tipo, const QString& texto, bool soloVer,
                                           QWidget* padre)
    : Forma(QStringLiteral("frmBusquedaArticulos"), ClaseDe(tipo).titulo, padre), p_(p) {
  b_.tipo = tipo;
  b_.txtBuscar = texto;
  cuerpo()->addWidget(nuevoFiltro());
  lista_ = nuevaLista(ClaseDe(tipo));
  cuerpo()->addWidget(lista_, 1);
  cuerpo()->addWidget(nuevoPie());
  if (soloVer) {
    seleccionar_->setEnabled(false);
    cuerpo()->addWidget(nuevoTexto(QStringLiteral("Solo consulta: no se puede seleccionar mientras se emite un pago "
                                                  "adelantado."),
                                   QStringLiteral("cuidado")));
  }
  tecla(
      Qt::Key_PageDown, [this] { paginar(Paginado::Siguiente); }, QStringLiteral("siguiente"), true);
  tecla(
      Qt::Key_PageUp, [this] { paginar(Paginado::Anterior); }, QStringLiteral("anterior"), true);
  tecla(
      Qt::CTRL | Qt::Key_Home, [this] { paginar(Paginado::Primera); }, QStringLiteral("primera"), true);
  tecla(
      Qt::CTRL | Qt::Key_End, [this] { paginar(Paginado::Ultima); }, QStringLiteral("última"), true);
  // The buttons' letters: a mnemonic presses a moment later, when the next key has been typed already.
  tecla(Qt::ALT | Qt::Key_B, [this] { buscar(); });
  tecla(Qt::ALT | Qt::Key_S, [this] { seleccionar(); });
  tecla(Qt::ALT | Qt::Key_A, [this] { reject(); });
  indicio(QStringLiteral("Enter elegir  ·  Esc salir"));
  connect(lista_, &Lista::elegida, this, &frmBusquedaArticulos::seleccionar);
  resize(tema::px(1016), tema::px(740));

  InicioBusqueda(p_, b_);
  mostrar();
  // A text that came along has been searched already: what is left is to choose.
  if (!texto.isEmpty() && lista_->filas() > 0) lista_->setFocus();
  else txtBuscar_->setFocus();
}

QWidget* frmBusquedaArticulos::nuevoFiltro() {
  auto* fila = new QWidget;
  auto* h = new QHBoxLayout(fila);
  h->setContentsMargins(0, 0, 0, 0);
  h->setSpacing(tema::px(3 * tema::kPaso));
  txtBuscar_ = new Campo(QStringLiteral("txtBuscar"));
  txtBuscar_->setText(b_.txtBuscar);
  txtBuscar_->installEventFilter(this);
  auto* rotulo = nuevoTexto(QStringLiteral("&Texto:"));
  rotulo->setBuddy(txtBuscar_);
  auto* buscar = nuevoBoton(QStringLiteral("cmdBuscar"), QStringLiteral("&Buscar"));
  h->addWidget(rotulo);
  h->addWidget(txtBuscar_, 1);
  h->addWidget(buscar);
  connect(buscar, &QPushButton::clicked, this, &frmBusquedaArticulos::buscar);
  return fila;
}

QWidget* frmBusquedaArticulos::nuevoPie() {
  // clang-format off
  const struct { Paginado a; QStringView rotulo, ayuda; } kPaginas[] = {
      {Paginado::Primera, u"|<", u"Primera página"},   {Paginado::Anterior, u"<", u"Página anterior"},
      {Paginado::Siguiente, u">", u"Página siguiente"}, {Paginado::Ultima, u">|", u"Última página"}};
  auto* fila = new QWidget;
  auto* h = new QHBoxLayout(fila);
  h->setContentsMargins(0, 0, 0, 0);
  h->setSpacing(tema::px(2 * tema::kPaso));
  txtNroPagina_ = nuevoFijo(QStringLiteral("txtNroPagina"));
  txtNroPagina_->setFixedWidth(tema::px(72));
  txtNroPagina_->setAlignment(Qt::AlignCenter);
  for (size_t n = 0; n < cmdPaginado_.size(); ++n) {
    auto* b = nuevoBoton(QStringLiteral("cmdPaginado(%1)").arg(n), kPaginas[n].rotulo.toString());
    b->setToolTip(kPaginas[n].ayuda.toString());
    b->setAccessibleName(b->toolTip());
    connect(b, &QPushButton::clicked, this, [this, a = kPaginas[n].a] { paginar(a); });
    if (n == 2) h->addWidget(txtNroPagina_);
    h->addWidget(b);
    cmdPaginado_[n] = b;
  }
  // clang-format on
  h->addStretch();
  seleccionar_ =
      nuevoBoton(QStringLiteral("cmdSeleccionar"), QStringLiteral("&Seleccionar"), QStringLiteral("principal"));
  auto* salir = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("C&ancelar"));
  h->addWidget(seleccionar_);
  h->addWidget(salir);
  connect(seleccionar_, &QPushButton::clicked, this, &frmBusquedaArticulos::seleccionar);
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  return fila;
}

bool frmBusquedaArticulos::alEntrar(QWidget* campo) {
  if (campo != txtBuscar_) return false;
  buscar();
  return true;
}

bool frmBusquedaArticulos::eventFilter(QObject* objeto, QEvent* evento) {
  // From the text down into the rows.
  const bool baja = objeto == txtBuscar_ && evento->type() == QEvent::KeyPress &&
                    static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Down;
  if (!baja || lista_->filas() == 0) return Forma::eventFilter(objeto, evento);
  lista_->setFocus();
  return true;
}

void frmBusquedaArticulos::buscar() {
  const CursorEspera espera;
  b_.txtBuscar = txtBuscar_->text();
  b_.nPagina = 1;
  (void)LeerPagina(p_, b_);
  mostrar();
  if (lista_->filas() > 0) lista_->setFocus();
  else txtBuscar_->setFocus();
}

void frmBusquedaArticulos::paginar(Paginado a) {
  const CursorEspera espera;
  Paginar(p_, b_, a);
  mostrar();
  // The button pressed may be off by now, and the keyboard with it.
  if (lista_->filas() > 0) lista_->setFocus();
}

void frmBusquedaArticulos::seleccionar() {
  const int n = lista_->actual();
  if (n < 0 || !seleccionar_->isEnabled()) return;
  elegida_ = b_.filas[static_cast<size_t>(n)];
  accept();
}

void frmBusquedaArticulos::mostrar() {
  lista_->textoVacio = b_.sinServidor ? QStringLiteral("Sin conexión con la base de clientes")
                       : b_.tipo == TipoBusqueda::Cliente && b_.txtBuscar.isEmpty()
                           ? QStringLiteral("Escriba un apellido o una tarjeta y pulse Enter")
                           : QStringLiteral("Sin resultados");
  std::vector<FilaLista> filas;
  for (const auto& f : b_.filas) filas.push_back({f.celdas, {}, true});
  lista_->llenar(std::move(filas));
  txtNroPagina_->setText(QString::number(b_.nPagina));
  const Paginado botones[] = {Paginado::Primera, Paginado::Anterior, Paginado::Siguiente, Paginado::Ultima};
  for (size_t n = 0; n < cmdPaginado_.size(); ++n) cmdPaginado_[n]->setEnabled(PuedePaginar(b_, botones[n]));
}

std::optional<FilaBusqueda> elegirEnBusqueda(Puesto& p, QWidget* padre, TipoBusqueda tipo, const QString& texto,
                                             bool soloVer) {
  frmBusquedaArticulos f(p, tipo, texto, soloVer, padre);
  if (f.exec() != QDialog::Accepted) return {};
  return f.elegida();
}
