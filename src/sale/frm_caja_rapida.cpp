#include "sale/frm_caja_rapida.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>

#include "foundation/estado_linea.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/ui/lector_codigos.h"
#include "platform/ui/linea_estado.h"
#include "platform/ui/renglon.h"
#include "platform/ui/tecla_articulo.h"
#include "platform/ui/tema.h"
#include "sale/caja_full.h"
#include "sale/lectura.h"
#include "sale/traspaso.h"

namespace {

constexpr int kPorFila = 6;
constexpr int kAnchoDerecha = 338;

// The actions, from left to right.
const struct {
  int indice;
  QStringView rotulo, papel;
  QKeyCombination tecla;
} kAcciones[] = {
    {kBotonImprime, u"Impr. Tickt", u"principal", Qt::CTRL | Qt::Key_Return},
    {kBotonTipo, u"Tipo Venta", u"", Qt::CTRL | Qt::Key_A},
    {kBotonBorra, u"BorraAC/TC", u"", Qt::CTRL | Qt::Key_Z},
    {kBotonACTC, u"AC/TC", u"", Qt::Key_unknown},
    {kBotonCodProd, u" Cod. Prod.", u"", Qt::Key_unknown},
    {kBotonAnula, u"Anula TRANS", u"", Qt::CTRL | Qt::Key_S},
    {kBotonPago, u"Retiro", u"", Qt::CTRL | Qt::Key_X},
};

QChar soloDigitos(QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Digitos}); }
QChar soloDecimal(QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Decimal}); }

QKeyCombination teclaDeProducto(int indice) {
  const bool conShift = indice > kTeclasProducto / 2;
  const int n = conShift ? indice - kTeclasProducto / 2 : indice;
  return QKeyCombination(conShift ? Qt::ShiftModifier : Qt::NoModifier, static_cast<Qt::Key>(Qt::Key_F1 + n - 1));
}

}  // namespace

frmCajaRegistradora::frmCajaRegistradora(Puesto& p, PantallasVenta& pantallas, QWidget* padre)
    : Forma(QStringLiteral("frmCajaRegistradora"), QStringLiteral("Caja Registradora"), padre),
      p_(p),
      pantallas_(pantallas) {
  ExigirFechaSistema(p_);
  cuerpo()->setContentsMargins(10, 10, 10, 6);
  cuerpo()->setSpacing(8);
  auto* arriba = new QHBoxLayout;
  arriba->setSpacing(10);
  arriba->addWidget(nuevasTeclasProducto(), 1);
  auto* derecha = new QVBoxLayout;
  derecha->setSpacing(8);
  derecha->addWidget(nuevaPantalla());
  derecha->addWidget(nuevosCampos());
  derecha->addStretch();
  arriba->addLayout(derecha);
  cuerpo()->addLayout(arriba, 1);
  cuerpo()->addWidget(nuevosBotones());
  estado_ = new LineaEstado;
  ponerPie(estado_);
  nuevasTeclas();
  vigilarComas([this] { AvisarComaDecimal(p_); });
  new LectorCodigos(
      this, [this](const QString& leido) { return PuedeSerCodigo(leido, focusWidget() == txtRuc_); },
      [this](const QString& leido) { alEscanear(leido); });
  maximizar();

  AbrirRapida(p_, v_);
  for (size_t n = 1; n < teclas_.size(); ++n) teclas_[n]->poner(v_.teclas[n].rotulo, v_.teclas[n].articulo);
  mostrar();
  cliente_.txtTarjeta->setFocus();
}

void frmCajaRegistradora::recibir(const VentaEnCurso& venta) {
  RecibirVenta(v_, venta);
  mostrar();
  if (v_.bVentaIniciada) enfocar(txtCantidad_);
}

QWidget* frmCajaRegistradora::nuevasTeclasProducto() {
  auto* todo = new QWidget;
  auto* g = new QGridLayout(todo);
  g->setContentsMargins(0, 0, 0, 0);
  g->setSpacing(4);
  for (int n = 1; n <= kTeclasProducto; ++n) {
    auto* t = new TeclaArticulo(QStringLiteral("cmdTecla(%1)").arg(n), QStringLiteral("lblTecla(%1)").arg(n),
                                nombreTecla(teclaDeProducto(n)));
    g->addWidget(t, (n - 1) / kPorFila, (n - 1) % kPorFila);
    connect(t, &QPushButton::clicked, this, [this, n] { pulsar(n); });
    teclas_[static_cast<size_t>(n)] = t;
    cmdTecla_[static_cast<size_t>(n)] = t;
  }
  return todo;
}

QWidget* frmCajaRegistradora::nuevaPantalla() {
  auto* marco = new QFrame;
  marco->setProperty("papel", "pantalla");
  marco->setFixedWidth(tema::px(kAnchoDerecha));
  auto* v = new QVBoxLayout(marco);
  v->setContentsMargins(14, 10, 14, 10);
  v->setSpacing(4);
  const QString articulo = QStringLiteral("articulo"), leyenda = QStringLiteral("leyenda");
  lblProducto_ = new Renglon(QStringLiteral("lblProducto"), 11, articulo, articulo);
  lblSubtotal_ = new Renglon(QStringLiteral("lblSubtotal"), 4, leyenda, articulo);
  lblTotal_ = new Renglon(QStringLiteral("lblTotal"), 4, leyenda, QStringLiteral("cifra"), true);
  lblTipo_ = nuevoTexto({}, articulo);
  lblTipo_->setObjectName(QStringLiteral("lblTipo"));
  lblTipo_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  enlaces_.rotulo(lblTipo_, v_.lblTipo);
  for (QWidget* w : {static_cast<QWidget*>(lblProducto_), static_cast<QWidget*>(lblSubtotal_),
                     static_cast<QWidget*>(lblTotal_), static_cast<QWidget*>(lblTipo_)}) {
    v->addWidget(w);
  }
  return marco;
}

QWidget* frmCajaRegistradora::nuevosCampos() {
  auto* panel = new Panel({}, 1);
  panel->setFixedWidth(tema::px(kAnchoDerecha));
  txtCantidad_ = panel->importe(QStringLiteral("txtCantidad"), QStringLiteral("Cantidad:"));
  txtCantidad_->filtro = soloDecimal;
  enlaces_.texto(txtCantidad_, v_.txtCantidad);
  txtCantidad_->alSalir = [this] { salirCantidad(); };
  cliente_ = nuevosControlesCliente(panel, enlaces_, p_, v_, pantallas_,
                                    {.nombres = QStringLiteral("txtCliente"),
                                     .local = QStringLiteral("&Local :"),
                                     .nombresAparte = true,
                                     .antesDelLocal =
                                         [this, panel] {
                                           txtRuc_ = panel->campo(QStringLiteral("txtRuc"), QStringLiteral("RUC:"));
                                           txtRuc_->filtro = soloDigitos;
                                           enlaces_.texto(txtRuc_, v_.txtRuc);
                                         },
                                     .con = [this](const auto& accion) { con(accion); }});
  for (QLabel* l : panel->findChildren<QLabel*>()) {
    if (l->buddy() == cliente_.txtNombres) l->setObjectName(QStringLiteral("lblCliente"));
  }
  return panel;
}

void frmCajaRegistradora::ponerBoton(QGridLayout* g, int columna, QPushButton* boton, const QString& nombreTecla,
                                     const QString& tecla) {
  boton->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
  auto* rotulo = nuevoTexto(tecla, QStringLiteral("suave"));
  rotulo->setObjectName(nombreTecla);
  rotulo->setAlignment(Qt::AlignHCenter);
  g->addWidget(boton, 0, columna);
  g->addWidget(rotulo, 1, columna);
}

QWidget* frmCajaRegistradora::nuevosBotones() {
  auto* fila = new QWidget;
  auto* g = new QGridLayout(fila);
  g->setContentsMargins(0, 0, 0, 0);
  g->setHorizontalSpacing(tema::kPaso);
  g->setVerticalSpacing(2);
  int columna = 0;
  for (const auto& a : kAcciones) {
    auto* b = nuevoBoton(QStringLiteral("cmdTecla(%1)").arg(a.indice), a.rotulo.toString(),
                         a.papel.isEmpty() ? QStringLiteral("accion") : a.papel.toString());
    const bool conTecla = a.tecla.key() != Qt::Key_unknown;
    ponerBoton(g, columna++, b, QStringLiteral("lblTecla(%1)").arg(a.indice),
               conTecla ? nombreTecla(a.tecla) : QString());
    connect(b, &QPushButton::clicked, this, [this, n = a.indice] { pulsar(n); });
    cmdTecla_[static_cast<size_t>(a.indice)] = b;
  }
  auto* cmdCambio = nuevoBoton(QStringLiteral("cmdCambio"), QStringLiteral("Versión Full"), QStringLiteral("accion"));
  cmdCambio->setToolTip(QStringLiteral("Ir a Caja Registradora (Versión Full)"));
  connect(cmdCambio, &QPushButton::clicked, this, [this] { cambiar(); });
  auto* cmdSalir = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("Salir"), QStringLiteral("accion"));
  connect(cmdSalir, &QPushButton::clicked, this, &QDialog::reject);
  ponerBoton(g, columna++, cmdCambio, QStringLiteral("lblCambio"), nombreTecla(Qt::Key_Space));
  ponerBoton(g, columna, cmdSalir, QStringLiteral("lblSalir"), nombreTecla(Qt::ALT | Qt::Key_F4));
  return fila;
}

void frmCajaRegistradora::nuevasTeclas() {
  for (int n = 1; n <= kTeclasProducto; ++n) tecla(teclaDeProducto(n), [this, n] { pulsar(n); });
  for (const auto& a : kAcciones) {
    if (a.tecla.key() != Qt::Key_unknown) tecla(a.tecla, [this, n = a.indice] { pulsar(n); });
  }
  // These arrive as 25 to 40, which have no action.
  for (int n = 0; n < 12; ++n) {
    tecla(QKeyCombination(Qt::ControlModifier, static_cast<Qt::Key>(Qt::Key_F1 + n)), [this, n] { pulsar(25 + n); });
  }
  for (int n = 0; n < 4; ++n) {
    tecla(QKeyCombination(Qt::ControlModifier, static_cast<Qt::Key>(Qt::Key_1 + n)), [this, n] { pulsar(37 + n); });
  }
  tecla(
      Qt::CTRL | Qt::Key_C, [this] { enfocar(txtCantidad_); }, QStringLiteral("cantidad"));
  tecla(
      Qt::CTRL | Qt::Key_L, [this] { enfocar(cliente_.txtTarjeta); }, QStringLiteral("tarjeta"));
  tecla(
      Qt::CTRL | Qt::Key_R, [this] { enfocar(txtRuc_); }, QStringLiteral("RUC"));
  tecla(
      Qt::Key_Space, [this] { espacio(); }, {}, true);
  tecla(Qt::ALT | Qt::Key_F4, [this] { reject(); });
  // A slip of the finger must not take a sale off the screen.
  tecla(Qt::Key_Escape, [this] {
    if (!v_.bVentaIniciada) reject();
  });
}

void frmCajaRegistradora::mostrar() {
  enlaces_.mostrar();
  // A long name is read from its beginning.
  if (!cliente_.txtNombres->hasFocus()) cliente_.txtNombres->setCursorPosition(0);
  lblProducto_->poner(v_.lblProducto);
  lblSubtotal_->poner(v_.lblSubtotal);
  lblTotal_->poner(v_.lblTotal);
  txtCantidad_->setEnabled(v_.bVentaIniciada);
  for (const int n : {kBotonAnula, kBotonPago}) cmdTecla_[static_cast<size_t>(n)]->setEnabled(!v_.bVentaIniciada);
  cliente_.mostrar(v_);
  estado_->mostrar(EstadoDelPuesto(p_));
}

bool frmCajaRegistradora::alEntrar(QWidget* campo) {
  if (!cliente_.buscaDesde(campo)) return false;
  buscarTarjeta();
  return true;
}

bool frmCajaRegistradora::puedeCerrar() { return PuedeSalirRapida(p_, v_); }

// Digits on a button, or on a key that leads nowhere, are the quantity of the article on the display.
void frmCajaRegistradora::keyPressEvent(QKeyEvent* e) {
  const QString t = e->text();
  const bool digito = t.size() == 1 && t[0] >= u'0' && t[0] <= u'9' &&
                      !(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  if (!digito || !txtCantidad_->isEnabled() || txtCantidad_->hasFocus()) {
    Forma::keyPressEvent(e);
    return;
  }
  enfocar(txtCantidad_);
  txtCantidad_->insert(t);
}

void frmCajaRegistradora::pulsar(int indice) {
  if (pulsando_ || (indice != kBotonBorra && !importesSinComa())) return;
  const QScopedValueRollback<bool> guarda(pulsando_, true);
  QPushButton* boton = cmdTecla_[static_cast<size_t>(indice)];
  if (boton && !boton->isEnabled()) return;
  recoger();
  if (boton) boton->setFocus();
  despues(PulsarBotonRapida(p_, v_, pantallas_, indice));
}

void frmCajaRegistradora::cambiar() {
  if (pulsando_ || !importesSinComa()) return;
  const QScopedValueRollback<bool> guarda(pulsando_, true);
  recoger();
  despues(CambiarAFull(p_, v_, pantallas_));
}

void frmCajaRegistradora::despues(const TrasTeclaRapida& tras) {
  mostrar();
  if (tras.cierra) {
    accept();
    return;
  }
  if (!v_.bVentaIniciada && !v_.lblProducto.isEmpty()) {
    enSiguienteTecla([this] { con([this] { OlvidarVuelto(v_); }); });
  }
  auto* campo = tras.foco.isEmpty() ? nullptr : findChild<QWidget*>(tras.foco);
  if (!campo) return;
  if (tras.mal) {
    QApplication::beep();
    marcarMal(campo);
  } else {
    enfocar(campo);
  }
}

void frmCajaRegistradora::salirCantidad() {
  if (pulsando_) return;
  bool bien = true;
  con([this, &bien] { bien = SalirCantidad(p_, v_); });
  if (bien) return;
  QApplication::beep();
  // Not while the keyboard is still on its way to the next control.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (txtCantidad_->isEnabled()) marcarMal(txtCantidad_);
      },
      Qt::QueuedConnection);
}

void frmCajaRegistradora::buscarTarjeta() {
  ResultadoTarjeta r{};
  con([this, &r] { r = BuscaTarjeta(p_, v_, pantallas_); });
  if (r == ResultadoTarjeta::NoExiste) enfocar(cliente_.txtTarjeta);
  else if (r == ResultadoTarjeta::VariosLocales && cliente_.dcbLocal->count() > 0) enfocar(cliente_.dcbLocal);
  else enfocar(v_.bVentaIniciada ? txtCantidad_ : cliente_.txtTarjeta);
}

void frmCajaRegistradora::alEscanear(const QString& leido) {
  ExigirFechaSistema(p_);
  const auto codigo = ReconocerCodigo(p_, leido);
  if (!codigo) {
    QApplication::beep();
    return;
  }
  if (!importesSinComa()) return;
  const QScopedValueRollback<bool> guarda(pulsando_, true);
  recoger();
  despues(TomarCodigo(p_, v_, pantallas_, *codigo));
}

void frmCajaRegistradora::espacio() {
  auto* campo = qobject_cast<QLineEdit*>(focusWidget());
  if (campo && campo->property("textoLibre").toBool()) campo->insert(QStringLiteral(" "));
  else cambiar();
}

void frmCajaRegistradora::enfocar(QWidget* control) {
  if (!control->isVisibleTo(this) || !control->isEnabled()) return;
  control->setFocus(Qt::ShortcutFocusReason);
  if (auto* campo = qobject_cast<QLineEdit*>(control)) campo->selectAll();
}
