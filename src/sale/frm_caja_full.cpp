#include "sale/frm_caja_full.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabWidget>

#include "foundation/estado_linea.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/ui/linea_estado.h"
#include "platform/ui/tema.h"
#include "sale/caja_lineas.h"
#include "sale/caja_liquidacion.h"
#include "sale/caja_totales.h"
#include "sale/pantallas_venta.h"

namespace {

QString tituloPorcentaje(bool recargo) { return recargo ? QStringLiteral("Recar(S/.)") : QStringLiteral("Dscto(S/.)"); }

std::vector<ColumnaRejilla> columnasDeLineas(bool conPorcentaje) {
  //  title                            width right  typed  button hidden
  return {
      {QStringLiteral("Item"), 88, true, false, false, false},
      {QStringLiteral("Cod."), 94, false, true, false, false},
      {QStringLiteral("Cod. Catalog"), 122, false, true, false, false},
      {QStringLiteral("Descripción"), 190, false, false, false, false},
      {QString(), 30, false, false, true, false},
      {QString(), 0, false, false, false, true},
      {QStringLiteral("Cant."), 92, true, true, false, false},
      {QStringLiteral("Prec.Unit."), 112, true, true, false, false},
      {QString(), 26, false, true, false, false},
      {tituloPorcentaje(false), 104, true, conPorcentaje, false, false},
      {QStringLiteral("SubTotal"), 112, true, true, false, false},
      {QStringLiteral("Canje"), 70, false, false, false, false},
      {QStringLiteral("Ptos."), 60, true, false, false, false},
      {QStringLiteral("(%) Serv."), 92, false, false, false, false},
      {QStringLiteral("Serv"), 86, true, false, false, false},
      {QStringLiteral("Igv"), 86, true, false, false, false},
  };
}

QChar soloDigitos(QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Digitos}); }

// The two cards of the head stand side by side in 1024 pixels.
void apretar(Panel* panel) {
  panel->layout()->setContentsMargins(12, 8, 12, 10);
  if (auto* g = panel->findChild<QGridLayout*>()) g->setHorizontalSpacing(2 * tema::kPaso);
}

}  // namespace

frmCajaRegistradoraFull::frmCajaRegistradoraFull(Puesto& p, PantallasVenta& pantallas, QWidget* padre)
    : Forma(QStringLiteral("frmCajaRegistradoraFull"), QStringLiteral(" Caja Registradora - Versión FULL "), padre),
      p_(p),
      pantallas_(pantallas) {
  ExigirFechaSistema(p_);
  cuerpo()->setContentsMargins(10, 8, 10, 6);
  cuerpo()->setSpacing(6);
  cuerpo()->addWidget(nuevaCabecera());
  cuerpo()->addWidget(nuevoCliente());
  pestanas_ = new QTabWidget;
  pestanas_->setObjectName(QStringLiteral("SSTab1"));
  pago_ = nuevoPanelPago(enlaces_, v_);
  adelanto_ = nuevosPanelesAdelanto(enlaces_, v_);
  pestanas_->addTab(nuevosArticulos(), QStringLiteral(" Artículos "));
  pestanas_->addTab(adelanto_.pestana, QStringLiteral("Pago Adelantado"));
  liquidacion_ = nuevoPanelLiquidacion(enlaces_, v_);
  pestanas_->addTab(liquidacion_.pestana, QStringLiteral(" Liquidación de Pago - N/C"));
  connect(pestanas_, &QTabWidget::currentChanged, this, [this](int n) {
    if (!mostrando_) v_.pestana = n;
  });
  cuerpo()->addWidget(pestanas_, 1);
  cuerpo()->addWidget(nuevoPago());
  cuerpo()->addWidget(nuevaBotonera());
  estado_ = new LineaEstado;
  ponerPie(estado_);
  nuevasTeclas();
  enlazarPagos();
  enlazarDocumentos();
  vigilarComas([this] { AvisarComaDecimal(p_); });
  resize(1024, 768);

  Inicio(p_, v_);
  mostrar();
  cliente_.txtTarjeta->setFocus();
}

void frmCajaRegistradoraFull::fijo(Panel* panel, const QString& nombre, const QString& etiqueta, int ancho,
                                   QString& campo) {
  Campo* c = panel->fijo(nombre, etiqueta);
  c->setFixedWidth(ancho);
  enlaces_.texto(c, campo);
}

QWidget* frmCajaRegistradoraFull::nuevaCabecera() {
  auto* fila = new QWidget;
  auto* h = new QHBoxLayout(fila);
  h->setContentsMargins(0, 0, 0, 0);
  h->setSpacing(8);
  auto* caja = new Panel(QStringLiteral("Datos de la Caja"), 3);
  fijo(caja, QStringLiteral("txtCajero"), {}, 112, v_.txtCajero);
  fijo(caja, QStringLiteral("txtCaja"), QStringLiteral("Caja:"), 78, v_.txtCaja);
  fijo(caja, QStringLiteral("txtTurno"), QStringLiteral("Turno:"), 46, v_.txtTurno);
  apretar(caja);
  h->addWidget(caja);

  auto* venta = new Panel(QStringLiteral("Datos de la Venta"), 4);
  cboTipoVenta_ = new QComboBox;
  cboTipoVenta_->setObjectName(QStringLiteral("cboTipoVenta"));
  // Wide enough for a kind that stays chosen; the list itself shows the longer entries whole.
  cboTipoVenta_->setFixedWidth(128);
  cboTipoVenta_->view()->setMinimumWidth(230);
  cboTipoVenta_->installEventFilter(this);
  venta->agregar(QStringLiteral("Tip&o:"), cboTipoVenta_);
  txtRUC_ = venta->campo(QStringLiteral("txtRUC"), QStringLiteral("&RUC:"));
  txtRUC_->setMinimumWidth(138);
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
    con([this, n] { CambiarTipo(p_, v_, pantallas_, v_.tipos[static_cast<size_t>(n)]); });
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
  cliente_.txtTarjeta->setFixedWidth(120);
  cliente_.txtNombres->setMinimumWidth(150);
  panel->ensanchar(cliente_.txtNombres);
  cliente_.txtLocal->setFixedWidth(56);
  auto* busca = nuevoBoton(QStringLiteral("txtBuscaCliente"), QStringLiteral("Buscar (F2)"));
  busca->setMinimumWidth(132);
  panel->agregar({}, busca);

  connect(busca, &QPushButton::clicked, this, [this] { buscarCliente(); });
  return panel;
}

QWidget* frmCajaRegistradoraFull::nuevosArticulos() {
  auto* hoja = new QWidget;
  auto* v = new QVBoxLayout(hoja);
  v->setContentsMargins(6, 6, 6, 6);
  v->setSpacing(6);
  const bool conPorcentaje = p_.ses.psDFlag.compare(u"S", Qt::CaseInsensitive) == 0;
  rejilla_ = new Rejilla(QStringLiteral("TDBGrid1"), columnasDeLineas(conPorcentaje),
                         {[this] { return static_cast<int>(v_.lineas.size()); },
                          [this](int f, int c) { return v_.lineas[static_cast<size_t>(f)][static_cast<size_t>(c)]; }});
  rejilla_->textoVacio = QStringLiteral("Sin artículos: F5 para agregar");
  rejilla_->salir = [this](int f, int c, QString& texto) { return salirCelda(f, c, texto); };
  rejilla_->siguiente = [this](int f, int c) { return siguienteCelda(f, c); };
  rejilla_->filtro = [this](int f, int c, QChar tecla) { return CeldaEditable(p_, v_, f, c) ? tecla : QChar(); };
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
  h->setSpacing(10);
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

void frmCajaRegistradoraFull::nuevasTeclas() {
  tecla(
      Qt::Key_Space, [this] { espacio(); }, {}, true);
  tecla(
      Qt::Key_F2, [this] { buscarCliente(); }, QStringLiteral("cliente"));
  tecla(
      Qt::Key_F5,
      [this] {
        if (agregarFila()) buscarArticulo(static_cast<int>(v_.lineas.size()) - 1);
      },
      QStringLiteral("artículo"));
  tecla(
      Qt::Key_F3, [this] { con([this] { v_.recargo = !v_.recargo; }); }, QStringLiteral("Dscto/Recar"));
  indicio(QStringLiteral("Dscto/Recar es un porcentaje: 10 = 10 %"));
  tecla(Qt::Key_F4, [] {});  // no function key opens the list of kinds
  tecla(Qt::CTRL | Qt::Key_Return, [this] { pulsar(2); });
  tecla(
      Qt::ALT | Qt::Key_R, [this] { enfocar(txtRUC_); }, QStringLiteral("RUC"));
  tecla(
      Qt::ALT | Qt::Key_E, [this] { enfocar(pago_.txtEfectivoSoles); }, QStringLiteral("efectivo"));
  tecla(
      Qt::ALT | Qt::Key_V, [this] { enfocar(pago_.txtVueltoDolares); }, QStringLiteral("vuelto US$"));
  tecla(
      Qt::ALT | Qt::Key_T, [this] { enfocar(cliente_.txtTarjeta); }, QStringLiteral("tarjeta"));
  tecla(Qt::ALT | Qt::Key_X, [this] {
    verPestana(1);
    enfocar(adelanto_.txtTX);
  });
  // On the side of the lines and lists the same letter belongs to "Eliminar".
  tecla(Qt::ALT | Qt::Key_L, [this] {
    if (!pestanas_->isAncestorOf(focusWidget())) enfocar(cliente_.txtLocal);
    else if (pestanas_->currentIndex() == 2) eliminarTX(listaDelFoco());
    else eliminarFila();
  });
  tecla(Qt::ALT | Qt::Key_P, [this] { letraP(); });
  for (int n = 0; n < 3; ++n) {
    tecla(QKeyCombination(Qt::ALT, static_cast<Qt::Key>(Qt::Key_1 + n)), [this, n] { verPestana(n); });
  }
  tecla(Qt::ALT | Qt::Key_F4, [this] { pulsar(3); });
  // The buttons' own letters: a mnemonic would press them a moment later, when the next key has been typed already.
  tecla(
      Qt::ALT | Qt::Key_D, [this] { (void)agregarFila(); }, QStringLiteral("línea nueva"));
  const std::pair<Qt::Key, int> letras[] = {{Qt::Key_C, 0}, {Qt::Key_I, 2}, {Qt::Key_S, 3}, {Qt::Key_A, 4}};
  for (const auto& [letra, indice] : letras) {
    tecla(Qt::ALT | letra, [this, n = indice] { pulsar(n); });
  }
  // A slip of the finger must not take a sale off the screen.
  tecla(Qt::Key_Escape, [this] {
    recoger();
    if (SinEmpezar(v_)) pulsar(3);
  });
}

void frmCajaRegistradoraFull::enlazarPagos() {
  connect(pago_.txtEfectivoSoles, &QLineEdit::textEdited, this, [this] { v_.efectivoTecleado = true; });
  pago_.txtEfectivoSoles->alSalir = [this] { con([this] { SalirEfectivoSoles(p_, v_); }); };
  const auto dolares = [this] { con([this] { SalirDolares(p_, v_); }); };
  pago_.txtEfectivoDolares->alSalir = dolares;
  pago_.txtVueltoDolares->alSalir = dolares;
  // Tab in reading order; Enter goes its own way, see alEntrar.
  const QList<QWidget*> orden{
      rejilla_, pago_.txtEfectivoSoles, pago_.txtEfectivoDolares, pago_.txtVueltoDolares, cmdVoucher_, cmdTecla_[2]};
  for (int i = 1; i < orden.size(); ++i) setTabOrder(orden[i - 1], orden[i]);
}

void frmCajaRegistradoraFull::recoger() { enlaces_.recoger(); }

void frmCajaRegistradoraFull::mostrar() {
  const QScopedValueRollback<bool> guarda(mostrando_, true);
  v_.lblVuelto = v_.vueltoAnterior.isEmpty() ? v_.txtVueltoSoles : v_.vueltoAnterior;
  enlaces_.mostrar();
  mostrarTipos();
  cliente_.mostrar(v_);
  mostrarPaneles();
  liquidacion_.mostrar(v_);
  rejilla_->ponerTitulo(kPorc, tituloPorcentaje(v_.recargo));
  rejilla_->refrescar();
  if (VentaVacia(v_)) rejilla_->ponerCelda({0, kCod});  // wherever the keyboard comes from, a code can be typed
  estado_->mostrar(EstadoDelPuesto(p_));
}

void frmCajaRegistradoraFull::mostrarTipos() {
  QStringList entradas;
  int actual = -1;
  for (const TipoVenta t : v_.tipos) {
    if (t == v_.nTipoVenta) actual = static_cast<int>(entradas.size());
    entradas << pantallaDe(t).entrada;
  }
  QStringList puestas;
  for (int i = 0; i < cboTipoVenta_->count(); ++i) puestas << cboTipoVenta_->itemText(i);
  if (puestas != entradas) {
    cboTipoVenta_->clear();
    cboTipoVenta_->addItems(entradas);
  }
  cboTipoVenta_->setCurrentIndex(actual);
  // The sale document of a liquidation paid by cards can't be another one.
  cboTipoVenta_->setEnabled(!(v_.bLiquidando && v_.bVoucherListo));
}

void frmCajaRegistradoraFull::mostrarPaneles() {
  const PantallaTipo& t = pantallaDe(v_.nTipoVenta);
  const std::pair<QWidget*, bool> paneles[] = {
      {pago_.frmVuelto, t.verEfectivo},
      {pago_.fraTotal, t.verTotal},
      {adelanto_.frapade, t.panel == PanelTipo::DatosPago},
      {adelanto_.fraPagoAdelantado, t.panel == PanelTipo::MontoAdelantado},
      {cmdVoucher_, t.verVoucher},
  };
  // What goes, goes first: a window that has to hold both for a moment grows and stays so.
  for (const bool visible : {false, true}) {
    for (const auto& [panel, verlo] : paneles) {
      if (verlo == visible) panel->setVisible(visible);
    }
  }
  for (Campo* c : {pago_.txtEfectivoDolares, pago_.txtVueltoDolares}) c->setReadOnly(!t.dolaresEditables);
  pago_.txtEfectivoSoles->setReadOnly(EfectivoFijo(v_));
  txtRUC_->setReadOnly(!t.rucEditable);
  for (QPushButton* b : {agregarArt_, eliminarArt_}) b->setVisible(!v_.bLiquidando);
  for (int i = 0; i < pestanas_->count(); ++i) {
    pestanas_->setTabEnabled(i, t.unicaPestana < 0 || t.unicaPestana == i);
  }
  pestanas_->setCurrentIndex(v_.pestana);
  if (!pestanas_->isTabEnabled(0)) rejilla_->abandonarCelda();  // nobody could put right what it refuses
}

bool frmCajaRegistradoraFull::alEntrar(QWidget* campo) {
  if (cliente_.buscaDesde(campo)) {
    buscarTarjeta();
    return true;
  }
  if (campo == cboTipoVenta_ && v_.nTipoVenta == TipoVenta::LIQPAD) {
    irALineas();
    return true;
  }
  // The soles come behind the dollars, since those decide what is left to pay in soles.
  const std::pair<QWidget*, QWidget*> trasEfectivo[] = {
      {pago_.txtEfectivoDolares, pago_.txtVueltoDolares},
      {pago_.txtVueltoDolares, pago_.txtEfectivoSoles},
      {pago_.txtEfectivoSoles, cmdVoucher_->isVisible() ? cmdVoucher_ : cmdTecla_[2]}};
  for (const auto& [de, a] : trasEfectivo) {
    if (campo != de) continue;
    enfocar(a);
    return true;
  }
  // Behind an amount comes the commit, not the other amount, which would empty this one; behind the words as well, since
  // "Cancelar" comes next there.
  const bool glosa = campo->objectName().startsWith(u"txtGlosa");
  if (campo == adelanto_.txtPagoAdelantado || campo == adelanto_.txtPADEDolares || glosa) {
    enfocar(cmdTecla_[2]);
    return true;
  }
  return false;
}

bool frmCajaRegistradoraFull::puedeCerrar() {
  recoger();
  if (!v_.bLiquidando && SinEmpezar(v_)) return true;
  pulsar(3);
  return false;
}

void frmCajaRegistradoraFull::pulsar(int indice) {
  // What stands in an open cell is part of the sale, unless the sale is given up.
  const bool seAbandona = (indice == 0 || indice == 3) && !v_.bLiquidando;
  if (!seAbandona && !(rejilla_->dejarCelda() && importesSinComa())) return;
  rejilla_->abandonarCelda();
  if (indice != 4)
    cmdTecla_[static_cast<size_t>(indice)]->setFocus();  // a look at another ticket leaves all where it was
  recoger();
  despues(PulsarTecla(p_, v_, pantallas_, indice));
}

void frmCajaRegistradoraFull::despues(const TrasTecla& tras) {
  mostrar();
  if (tras.cierra) {
    accept();
    return;
  }
  if (!v_.vueltoAnterior.isEmpty()) enSiguienteTecla([this] { con([this] { v_.vueltoAnterior.clear(); }); });
  enfocar(tras.foco);
}

bool frmCajaRegistradoraFull::agregarFila() {
  if (v_.bLiquidando || !pestanas_->isTabEnabled(0) || !rejilla_->dejarCelda()) return false;
  verPestana(0);
  int fila = 0;
  con([this, &fila] { fila = AgregarFila(v_); });
  rejilla_->irA({fila, kCod});
  return true;
}

void frmCajaRegistradoraFull::eliminarFila() {
  if (v_.bLiquidando) return;
  rejilla_->abandonarCelda();
  const int fila = rejilla_->celda().fila;
  con([this, fila] { EliminarFila(p_, v_, fila); });
  rejilla_->irA({qMin(qMax(fila, 0), static_cast<int>(v_.lineas.size()) - 1), kCod});
}

bool frmCajaRegistradoraFull::salirCelda(int fila, int columna, QString& texto) {
  recoger();
  const bool acepta = SalirCelda(p_, v_, fila, columna, texto);
  if (!acepta) QApplication::beep();
  else texto = v_.lineas[static_cast<size_t>(fila)][static_cast<size_t>(columna)];
  mostrar();
  return acepta;
}

std::optional<CeldaRejilla> frmCajaRegistradoraFull::siguienteCelda(int fila, int columna) const {
  const bool conArticulo = !v_.lineas[static_cast<size_t>(fila)][kCod].isEmpty();
  if (conArticulo && (columna == kCod || columna == kCatalogo)) return CeldaRejilla{fila, kCant};
  return {};
}

void frmCajaRegistradoraFull::buscarTarjeta() {
  ResultadoTarjeta r{};
  con([this, &r] { r = BuscaTarjeta(p_, v_, pantallas_); });
  trasTarjeta(r);
}

void frmCajaRegistradoraFull::trasTarjeta(ResultadoTarjeta r) {
  if (r == ResultadoTarjeta::NoExiste) enfocar(cliente_.txtTarjeta);
  else if (r == ResultadoTarjeta::VariosLocales && cliente_.dcbLocal->count() > 0) enfocar(cliente_.dcbLocal);
  else irALineas();
}

void frmCajaRegistradoraFull::espacio() {
  auto* campo = qobject_cast<QLineEdit*>(focusWidget());
  if (campo && campo->property("textoLibre").toBool()) campo->insert(QStringLiteral(" "));
  else if (v_.nTipoVenta != TipoVenta::PADE && v_.nTipoVenta != TipoVenta::PADV) pulsar(1);
}

void frmCajaRegistradoraFull::verPestana(int n) {
  if (!pestanas_->isTabEnabled(n) || !rejilla_->dejarCelda()) return;
  v_.pestana = n;
  pestanas_->setCurrentIndex(n);
  if (n == 0) rejilla_->setFocus();
  if (n == 2) enfocar(liquidacion_.txtTXL[0]);
}

void frmCajaRegistradoraFull::enfocar(QWidget* control) {
  if (control->isVisibleTo(this) && control->isEnabled()) control->setFocus(Qt::ShortcutFocusReason);
}

void frmCajaRegistradoraFull::enfocar(const Foco& foco) {
  if (foco.control == rejilla_->objectName()) rejilla_->irA({foco.fila, kCod});
  else if (auto* control = findChild<QWidget*>(foco.control); control && !foco.control.isEmpty()) enfocar(control);
}

void frmCajaRegistradoraFull::irALineas() {
  if (v_.nTipoVenta == TipoVenta::LIQPAD) {
    enfocar(liquidacion_.txtTXL[0]);
    return;
  }
  if (!pestanas_->isTabEnabled(0)) {
    enfocar(adelanto_.txtPagoAdelantado);
    return;
  }
  verPestana(0);
  const int ultima = static_cast<int>(v_.lineas.size()) - 1;
  rejilla_->irA({ultima, kCod});
}
