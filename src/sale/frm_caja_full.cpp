#include "sale/frm_caja_full.h"

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QVBoxLayout>

#include "documento/frm_lineas.h"
#include "foundation/estado_linea.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/ui/lector_codigos.h"
#include "platform/ui/linea_estado.h"
#include "platform/ui/tema.h"
#include "sale/caja_full_liquidacion.h"
#include "sale/caja_full_totales.h"
#include "sale/lectura.h"

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
  pestanas_->setMinimumHeight(tema::px(240));  // the lists take what there is
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
  new LectorCodigos(
      this, [this](const QString& leido) { return PuedeSerCodigo(leido, focusWidget() == txtRUC_); },
      [this](const QString& leido) { alEscanear(leido); });
  maximizar();

  Inicio(p_, v_);
  mostrar();
  cliente_.txtTarjeta->setFocus();
}

void frmCajaRegistradoraFull::nuevasTeclas() {
  tecla(
      Qt::Key_Space, [this] { espacio(); }, {}, true);
  tecla(
      Qt::Key_F2, [this] { buscarCliente(); }, QStringLiteral("cliente"));
  tecla(
      Qt::Key_F5,
      [this] {
        if (agregarFila()) buscarArticulo(static_cast<int>(v_.rejilla.filas.size()) - 1);
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
  rejilla_->ponerTitulo(kPorc, TituloPorcentaje(v_.recargo));
  rejilla_->refrescar();
  if (SinLineas(v_.rejilla)) rejilla_->ponerCelda({0, kCod});  // wherever the keyboard comes from, a code can be typed
  estado_->mostrar(EstadoDelPuesto(p_));
}

void frmCajaRegistradoraFull::mostrarTipos() {
  QStringList entradas;
  int actual = -1;
  for (const TipoVenta t : v_.tipos) {
    if (t == v_.nTipoVenta) actual = static_cast<int>(entradas.size());
    entradas << pantallaDe(t).entrada.toString();
  }
  QStringList puestas;
  for (int i = 0; i < cboTipoVenta_->count(); ++i) puestas << cboTipoVenta_->itemText(i);
  if (puestas != entradas) {
    cboTipoVenta_->clear();
    cboTipoVenta_->addItems(entradas);
  }
  cboTipoVenta_->setCurrentIndex(actual);
  // The sale document of a liquidation paid by cards can't be another one.
  cboTipoVenta_->setEnabled(!(v_.liquidacion && v_.cobro));
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
  for (QPushButton* b : {agregarArt_, eliminarArt_}) b->setVisible(!v_.liquidacion);
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
  // Behind an amount comes the commit, not the other amount, which would empty this one; behind the words as well,
  // since "Cancelar" comes next there.
  const bool glosa = campo->objectName().startsWith(u"txtGlosa");
  if (campo == adelanto_.txtPagoAdelantado || campo == adelanto_.txtPADEDolares || glosa) {
    enfocar(cmdTecla_[2]);
    return true;
  }
  return false;
}

bool frmCajaRegistradoraFull::puedeCerrar() {
  recoger();
  if (!v_.liquidacion && SinEmpezar(v_)) return true;
  pulsar(3);
  return false;
}

void frmCajaRegistradoraFull::pulsar(int indice) {
  // What stands in an open cell is part of the sale, unless the sale is given up.
  const bool seAbandona = (indice == 0 || indice == 3) && !v_.liquidacion;
  if (!seAbandona && !(rejilla_->dejarCelda() && importesSinComa())) return;
  rejilla_->abandonarCelda();
  if (indice != 4)
    cmdTecla_[static_cast<size_t>(indice)]->setFocus();  // a look at another ticket leaves all where it was
  recoger();
  despues(PulsarBoton(p_, v_, pantallas_, indice));
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
  if (v_.liquidacion || !pestanas_->isTabEnabled(0) || !rejilla_->dejarCelda()) return false;
  verPestana(0);
  int fila = 0;
  con([this, &fila] { fila = AgregarFila(v_.rejilla); });
  rejilla_->irA({fila, kCod});
  return true;
}

void frmCajaRegistradoraFull::eliminarFila() {
  if (v_.liquidacion) return;
  rejilla_->abandonarCelda();
  const int fila = rejilla_->celda().fila;
  con([this, fila] { EliminarFila(p_, v_, fila); });
  rejilla_->irA({qMin(qMax(fila, 0), static_cast<int>(v_.rejilla.filas.size()) - 1), kCod});
}

bool frmCajaRegistradoraFull::salirCelda(int fila, int columna, QString& texto) {
  recoger();
  const bool acepta = SalirCelda(p_, v_, fila, columna, texto);
  if (!acepta) QApplication::beep();
  else texto = v_.rejilla.filas[static_cast<size_t>(fila)][static_cast<size_t>(columna)];
  mostrar();
  return acepta;
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

// Looked up before anything is left: a code that is nobody's leaves the open cell or field as it is.
void frmCajaRegistradoraFull::alEscanear(const QString& leido) {
  ExigirFechaSistema(p_);
  const auto codigo = ReconocerCodigo(p_, leido);
  if (!codigo) {
    QApplication::beep();
    return;
  }
  if (!rejilla_->dejarCelda() || !importesSinComa()) return;
  Foco foco;
  con([&] { foco = TomarCodigo(p_, v_, pantallas_, *codigo); });
  if (!foco.control.isEmpty()) enfocar(foco);
  else QApplication::beep();
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
  if (foco.control == rejilla_->objectName()) rejilla_->irA({foco.fila, foco.columna});
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
  const int ultima = static_cast<int>(v_.rejilla.filas.size()) - 1;
  rejilla_->irA({ultima, kCod});
}
