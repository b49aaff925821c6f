#include "voiding/frm_transaccion.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "foundation/rutinas.h"
#include "platform/text/texto.h"
#include "platform/ui/tema.h"

frmTransaccion::frmTransaccion(Puesto& p, const QString& nombre, const QString& titulo, const PantallaTransaccion& v,
                               const QString& boton, const QString& rotulo, QWidget* padre)
    : Forma(nombre, titulo, padre), p_(p), v_(v), panel_(new Panel) {
  auto* medio = new QHBoxLayout;
  medio->setSpacing(tema::px(4 * tema::kPaso));
  auto* izquierda = new QVBoxLayout;
  crearBusqueda();
  izquierda->addWidget(panel_);
  izquierda->addStretch();
  // What has become of the document is seen across the counter, however long its text is.
  anulada_ = nuevoTexto(QStringLiteral("ANULADA"), QStringLiteral("anulada"));
  anulada_->setObjectName(QStringLiteral("lblAnulada"));
  anulada_->setAlignment(Qt::AlignCenter);
  izquierda->addWidget(anulada_);
  izquierda->addStretch();
  accion_ = nuevoBoton(boton, rotulo, QStringLiteral("principal"));
  auto* salir = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
  izquierda->addLayout(filaBotones({accion_, salir}));
  medio->addLayout(izquierda, 1);
  txtTexto_ = new QPlainTextEdit;
  txtTexto_->setObjectName(QStringLiteral("txtTexto"));
  txtTexto_->setProperty("papel", "rollo");
  txtTexto_->setReadOnly(true);
  txtTexto_->setTabChangesFocus(true);
  txtTexto_->setLineWrapMode(QPlainTextEdit::NoWrap);
  medio->addWidget(txtTexto_, 1);
  cuerpo()->addLayout(medio, 1);

  connect(accion_, &QPushButton::clicked, this, &frmTransaccion::pulsar);
  connect(buscar_, &QPushButton::clicked, this, [this] { con([this] { BuscarDocumento(p_, v_); }); });
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  connect(chkAlterno_, &QCheckBox::toggled, this, [this](bool si) { con([this, si] { CambiarAlterno(p_, v_, si); }); });
  indicio(QStringLiteral("Enter buscar  ·  Esc salir"));
  resize(tema::px(900), tema::px(640));
  AbrirTransacciones(p_, v_);
  mostrar();
  txtNumero_->setFocus();
}

void frmTransaccion::crearBusqueda() {
  const auto soloDigitos = [](QChar c) { return FiltrarTecla(c, {ClaseTecla::Digitos}); };
  txtTransaccion_ = panel_->campo(QStringLiteral("txtTransaccion"), QStringLiteral("&Documento:"));
  txtSerie_ = panel_->campo(QStringLiteral("txtSerie"), QStringLiteral("&Serie"));
  txtNumero_ = panel_->campo(QStringLiteral("txtNumero"), QStringLiteral("&Número"));
  txtTransaccion_->filtro = soloDigitos;
  txtNumero_->filtro = soloDigitos;
  txtTransaccion_->alSalir = [this] { alDejar(txtTransaccion_); };
  txtNumero_->alSalir = [this] {
    alDejar(txtNumero_);
    // Another series makes the number that stands there another document.
    const bool otraSerie = txtSerie_->text() != v_.txtSerie && !Recortar(txtNumero_->text()).isEmpty();
    if (otraSerie && QApplication::focusWidget() != buscar_) con([this] { BuscarDocumento(p_, v_); });
  };
  chkAlterno_ = new QCheckBox(QStringLiteral("&O/C, NC , PADE,  PADV"));
  chkAlterno_->setObjectName(QStringLiteral("chkAlterno"));
  panel_->agregar({}, chkAlterno_);
  buscar_ = nuevoBoton(QStringLiteral("cmdBuscar"), QStringLiteral("&Buscar"));
  panel_->agregar({}, buscar_);
  enlaces_.texto(panel_->fijo(QStringLiteral("txttipo"), QStringLiteral("Tipo")), v_.txttipo);
  enlaces_.texto(txtTransaccion_, v_.txtTransaccion);
  enlaces_.texto(txtSerie_, v_.txtSerie);
  enlaces_.texto(txtNumero_, v_.txtNumero);
}

void frmTransaccion::teclaAccion(QKeyCombination combinacion, const QString& texto) {
  tecla(
      combinacion, [this] { pulsar(); }, texto);
}

void frmTransaccion::mostrar() {
  enlaces_.mostrar();
  const QSignalBlocker sinAviso(chkAlterno_);
  chkAlterno_->setChecked(v_.chkAlterno);
  QString texto = v_.txtTexto;
  anulada_->setVisible(texto.contains(QStringLiteral("TRANSACCION ANULADA")));
  txtTexto_->setPlainText(texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  const bool teniaTeclado = accion_->hasFocus();
  accion_->setEnabled(v_.accion);
  if (teniaTeclado && !v_.accion) txtNumero_->setFocus();
}

void frmTransaccion::con(const std::function<void()>& accion) {
  enlaces_.recoger();
  accion();
  mostrar();
}

bool frmTransaccion::pendiente(const Campo* campo, const QString& visto) const {
  return campo->text() != visto && !Recortar(campo->text()).isEmpty();
}

void frmTransaccion::alDejar(const Campo* campo) {
  if (QApplication::focusWidget() == buscar_) return;  // its press searches
  if (campo == txtTransaccion_ && pendiente(campo, v_.txtTransaccion)) con([this] { BuscarTransaccion(p_, v_); });
  if (campo == txtNumero_ && pendiente(campo, v_.txtNumero)) con([this] { BuscarDocumento(p_, v_); });
}

void frmTransaccion::pulsar() {
  alDejar(txtTransaccion_);
  alDejar(txtNumero_);
  if (pendiente(txtSerie_, v_.txtSerie)) con([this] { BuscarDocumento(p_, v_); });
  if (accion_->isEnabled()) con([this] { actuar(v_); });
}

bool frmTransaccion::alEntrar(QWidget* campo) {
  if (campo == txtTransaccion_) con([this] { BuscarTransaccion(p_, v_); });
  else if (campo == txtSerie_ || campo == txtNumero_) con([this] { BuscarDocumento(p_, v_); });
  else if (campo == chkAlterno_) chkAlterno_->toggle();
  else return false;
  return true;
}
