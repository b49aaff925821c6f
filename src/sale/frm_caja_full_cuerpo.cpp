// The full register's panels, from top to bottom.
#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScopedValueRollback>

#include "documento/frm_lineas.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/ui/tema.h"
#include "sale/frm_caja_full.h"

namespace {

QChar soloDigitos(QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Digitos}); }

// The two cards of the head stand side by side in 1024 pixels.
void apretar(Panel* panel) {
  panel->layout()->setContentsMargins(12, tema::px(5), 12, tema::px(6));
  if (auto* g = panel->findChild<QGridLayout*>()) g->setHorizontalSpacing(tema::px(2 * tema::kPaso));
}

}  // namespace

void frmCajaRegistradoraFull::fijo(Panel* panel, const QString& nombre, const QString& etiqueta, int ancho,
                                   QString& campo) {
  Campo* c = panel->fijo(nombre, etiqueta);
  c->setFixedWidth(tema::px(ancho));
  enlaces_.texto(c, campo);
}

QWidget* frmCajaRegistradoraFull::nuevaCabecera() {
  auto* fila = new QWidget;
  auto* h = new QHBoxLayout(fila);
  h->setContentsMargins(0, 0, 0, 0);
  h->setSpacing(8);
  auto* caja = new Panel(QStringLiteral("Datos de la Caja"), 3);
  fijo(caja, QStringLiteral("txtCajero"), {}, 98, v_.txtCajero);
  fijo(caja, QStringLiteral("txtCaja"), QStringLiteral("Caja:"), 74, v_.txtCaja);
  fijo(caja, QStringLiteral("txtTurno"), QStringLiteral("Turno:"), 46, v_.txtTurno);
  apretar(caja);
  h->addWidget(caja);

  auto* venta = new Panel(QStringLiteral("Datos de la Venta"), 4);
  cboTipoVenta_ = new QComboBox;
  cboTipoVenta_->setObjectName(QStringLiteral("cboTipoVenta"));
  // Wide enough for a kind that stays chosen; the list itself shows the longer entries whole.
  cboTipoVenta_->setFixedWidth(tema::px(136));
  cboTipoVenta_->view()->setMinimumWidth(tema::px(230));
  cboTipoVenta_->installEventFilter(this);
  venta->agregar(QStringLiteral("Tip&o:"), cboTipoVenta_);
  txtRUC_ = venta->campo(QStringLiteral("txtRUC"), QStringLiteral("&RUC:"));
  txtRUC_->setMinimumWidth(tema::px(140));
  txtRUC_->filtro = soloDigitos;
  enlaces_.texto(txtRUC_, v_.txtRUC);
  fijo(venta, QStringLiteral("txtTC"), QStringLiteral("T.C.:"), 58, v_.txtTC);
  auto* fecha = nuevoTexto({});
  fecha->setObjectName(QStringLiteral("lblFecha"));
  venta->agregar({}, fecha);
  enlaces_.rotulo(fecha, v_.lblFecha);
  apretar(venta);
  h->addWidget(venta, 1);
  connect(cboTipoVenta_, &QComboBox::currentIndexChanged, this, [this](int n) {
    if (mostrando_ || n < 0) return;
    const TipoVenta elegido = v_.tipos[static_cast<size_t>(n)];
    // Those two open a screen and stay not chosen.
    if (elegido == TipoVenta::Anular || elegido == TipoVenta::Recaudacion) {
      const QScopedValueRollback<bool> guarda(mostrando_, true);
      mostrarTipos();
    }
    con([this, elegido] { CambiarTipo(p_, v_, pantallas_, elegido); });
    // An arrow may be on its way to an entry below.
    if (v_.nTipoVenta == TipoVenta::LIQPAD && !conFlecha_) enfocar(liquidacion_.txtTXL[0]);
  });
  return fila;
}

QWidget* frmCajaRegistradoraFull::nuevoCliente() {
  auto* panel = new Panel(QStringLiteral("Datos del Cliente"), 6);
  apretar(panel);
  cliente_ = nuevosControlesCliente(panel, enlaces_, p_, v_, pantallas_,
                                    {.nombres = QStringLiteral("txtNombres"),
                                     .local = QStringLiteral("&Local:"),
                                     .con = [this](const auto& accion) { con(accion); }});
  cliente_.txtTarjeta->setFixedWidth(tema::px(120));
  cliente_.txtNombres->setMinimumWidth(tema::px(150));
  panel->ensanchar(cliente_.txtNombres);
  cliente_.txtLocal->setFixedWidth(tema::px(56));
  auto* busca = nuevoBoton(QStringLiteral("txtBuscaCliente"), QStringLiteral("Buscar (F2)"));
  busca->setMinimumWidth(tema::px(132));
  panel->agregar({}, busca);

  connect(busca, &QPushButton::clicked, this, [this] { buscarCliente(); });
  return panel;
}

QWidget* frmCajaRegistradoraFull::nuevosArticulos() {
  auto* hoja = new QWidget;
  auto* v = new QVBoxLayout(hoja);
  v->setContentsMargins(6, 6, 6, 6);
  v->setSpacing(6);
  rejilla_ = nuevaRejillaLineas(QStringLiteral("TDBGrid1"), p_, v_.rejilla);
  rejilla_->textoVacio = QStringLiteral("Sin artículos: F5 para agregar");
  rejilla_->salir = [this](int f, int c, QString& texto) { return salirCelda(f, c, texto); };
  rejilla_->pulsar = [this](int fila, int) { buscarArticulo(fila); };
  v->addWidget(rejilla_, 1);

  auto* fila = new QHBoxLayout;
  agregarArt_ = nuevoBoton(QStringLiteral("CmdAddArt"), QStringLiteral("A&dicionar"));
  eliminarArt_ = nuevoBoton(QStringLiteral("CmdDelArt"), QStringLiteral("E&liminar"));
  fila->addWidget(agregarArt_);
  fila->addWidget(eliminarArt_);
  fila->addStretch();
  v->addLayout(fila);
  connect(agregarArt_, &QPushButton::clicked, this, [this] { (void)agregarFila(); });
  connect(eliminarArt_, &QPushButton::clicked, this, [this] { eliminarFila(); });
  return hoja;
}

QWidget* frmCajaRegistradoraFull::nuevoPago() {
  auto* fila = new QWidget;
  auto* h = new QHBoxLayout(fila);
  h->setContentsMargins(0, 0, 0, 0);
  h->setSpacing(8);
  auto* izquierda = new QVBoxLayout;
  izquierda->setSpacing(6);
  for (QFrame* panel : {pago_.frmVuelto, adelanto_.frapade, adelanto_.fraPagoAdelantado}) izquierda->addWidget(panel);
  izquierda->addStretch();
  h->addLayout(izquierda);
  h->addWidget(pago_.fraTotal, 1);
  return fila;
}

QWidget* frmCajaRegistradoraFull::nuevaBotonera() {
  // clang-format off
  const struct { int indice; QStringView rotulo, tecla; } kBotones[] = {
      {0, u"&Cancelar ", u""}, {1, u"Caja &Registradora", u"SPACE"}, {2, u"&Imprimir Tickets", u"CTRL+ENTER"},
      {3, u"&Salir", u""},     {4, u"&AC/TC", u""}};
  auto* fila = new QWidget;
  auto* h = new QHBoxLayout(fila);
  h->setContentsMargins(0, 0, 0, 0);
  h->setSpacing(6);
  for (const auto& b : kBotones) {
    auto* boton = nuevoBoton(QStringLiteral("cmdTecla(%1)").arg(b.indice), b.rotulo.toString(),
                             b.indice == 2 ? QStringLiteral("principal") : QString());
    h->addWidget(boton);
    if (!b.tecla.isEmpty()) h->addWidget(nuevoTexto(b.tecla.toString(), QStringLiteral("suave")));
    connect(boton, &QPushButton::clicked, this, [this, n = b.indice] { pulsar(n); });
    cmdTecla_[static_cast<size_t>(b.indice)] = boton;
  }
  // clang-format on
  h->addStretch();
  cmdVoucher_ = nuevoBoton(QStringLiteral("cmdVoucher"), QStringLiteral("&VOUCHER"));
  cmdVoucher_->setToolTip(QStringLiteral("Emitir voucher al liquidar"));
  h->addWidget(cmdVoucher_);
  return fila;
}
