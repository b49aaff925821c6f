#include "credit/frm_caja_facturacion_pagos.h"

#include <QTabWidget>

#include "foundation/estado_linea.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/ui/linea_estado.h"
#include "platform/ui/tema.h"

frmCajaFacturacionPagos::frmCajaFacturacionPagos(Puesto& p, PantallasCredito& pantallas, QWidget* padre)
    : Forma(QStringLiteral("frmCajaFacturacionPagos"), QStringLiteral("Modulo de Venta Futura"), padre),
      p_(p),
      pantallas_(pantallas) {
  InicioFacturacion(p_, v_);
  cuerpo()->setContentsMargins(6, tema::px(8), 6, tema::px(6));
  pestanas_ = new QTabWidget;
  pestanas_->setObjectName(QStringLiteral("SSTab1"));
  const ContextoCredito c{p_,
                          pantallas_,
                          v_,
                          enlaces_,
                          [this](const std::function<void()>& f) { con(f); },
                          [this](const QString& control) { enfocar(control); }};
  hojas_ = {nuevaPestanaFacturacion(c), nuevaPestanaPagos(c), nuevaPestanaNota(c), nuevaPestanaLiquidacion(c)};
  constexpr QStringView kTitulos[] = {u"Facturacion", u"Pagos a Cuenta", u"Nota de Consumo", u"Liquidacion"};
  for (size_t i = 0; i < hojas_.size(); ++i) pestanas_->addTab(hojas_[i], kTitulos[i].toString());
  connect(pestanas_, &QTabWidget::currentChanged, this, [this](int n) { v_.pestana = n; });
  cuerpo()->addWidget(pestanas_, 1);
  estado_ = new LineaEstado;
  ponerPie(estado_);
  nuevasTeclas();
  vigilarComas([this] { AvisarComaDecimal(p_); });
  resize(1024, 768);
  mostrar();
  enfocar(actual().primerControl());
}

void frmCajaFacturacionPagos::nuevasTeclas() {
  tecla(
      Qt::Key_F2, [this] { hojas_[0]->isVisible() ? hojas_[0]->buscarDocumento() : verPestana(0); },
      QStringLiteral("cliente"));
  tecla(Qt::Key_F3, [this] { actual().registrarCliente(); });
  tecla(Qt::Key_F8, [this] { actual().actualizarDetraccion(); });
  tecla(
      Qt::Key_F5,
      [this] {
        if (auto* detalle = actual().detalle()) detalle->buscarArticulo();
      },
      QStringLiteral("artículo"));
  tecla(
      Qt::Key_F6, [this] { actual().buscarDocumento(); }, QStringLiteral("documento"));
  tecla(
      Qt::Key_F7, [this] { actual().anular(); }, QStringLiteral("anular"));
  tecla(
      Qt::Key_F9, [this] { actual().reimprimir(); }, QStringLiteral("reimprimir"));
  tecla(
      Qt::CTRL | Qt::Key_Return, [this] { actual().grabar(); }, QStringLiteral("grabar"));
  tecla(Qt::ALT | Qt::Key_D, [this] {
    if (auto* detalle = actual().detalle()) (void)detalle->agregarFila();
  });
  tecla(Qt::ALT | Qt::Key_L, [this] {
    auto* detalle = actual().detalle();
    if (detalle && detalle->isAncestorOf(focusWidget())) detalle->eliminarFila();
    else enfocar(QStringLiteral("txtLocal"));
  });
  tecla(Qt::ALT | Qt::Key_G, [this] { actual().grabar(); });
  tecla(Qt::ALT | Qt::Key_S, [this] { reject(); });
  for (int n = 0; n < 4; ++n) {
    tecla(QKeyCombination(Qt::ALT, static_cast<Qt::Key>(Qt::Key_1 + n)), [this, n] { verPestana(n); });
  }
  indicio(QStringLiteral("Alt+1 a Alt+4 pestañas"));
  // No function key opens a list.
  tecla(Qt::Key_F4, [] {});
}

PestanaCredito& frmCajaFacturacionPagos::actual() { return *hojas_[static_cast<size_t>(pestanas_->currentIndex())]; }

void frmCajaFacturacionPagos::con(const std::function<void()>& accion) {
  enlaces_.recoger();
  ++mostrando_;
  accion();
  --mostrando_;
  mostrar();
}

void frmCajaFacturacionPagos::mostrar() {
  if (mostrando_ > 0) return;
  enlaces_.mostrar();
  for (PestanaCredito* hoja : hojas_) hoja->mostrar();
  estado_->mostrar(EstadoDelPuesto(p_));
}

void frmCajaFacturacionPagos::verPestana(int n) {
  auto* detalle = actual().detalle();
  if (detalle && !detalle->dejarCelda()) return;
  pestanas_->setCurrentIndex(n);
  enfocar(actual().primerControl());
}

void frmCajaFacturacionPagos::enfocar(const QString& nombre) {
  if (nombre.isEmpty()) return;
  auto* control = actual().findChild<QWidget*>(nombre);
  if (!control || !control->isEnabled()) return;
  auto* detalle = actual().detalle();
  if (detalle && control == detalle->rejilla()) detalle->irAlFinal();
  else control->setFocus(Qt::ShortcutFocusReason);
}

bool frmCajaFacturacionPagos::alEntrar(QWidget* campo) { return actual().alEntrar(campo); }

bool frmCajaFacturacionPagos::puedeCerrar() {
  enlaces_.recoger();
  for (PestanaCredito* hoja : hojas_) {
    if (hoja->vacia()) continue;
    return p_.mensajes.preguntar(QStringLiteral("Hay datos sin grabar. ¿Desea salir de todas maneras?"),
                                 QStringLiteral("Confirmar"), false);
  }
  return true;
}
