// What the full register does beside a plain sale: searches, advance payments, liquidations.
#include <QComboBox>
#include <QFocusEvent>
#include <QPushButton>
#include <QTabWidget>

#include "foundation/puesto.h"
#include "sale/caja_full_adelanto.h"
#include "sale/caja_full_liquidacion.h"
#include "sale/frm_caja_full.h"
#include "sale/pantallas_venta.h"

void frmCajaRegistradoraFull::enlazarDocumentos() {
  for (Campo* monto : {adelanto_.txtPagoAdelantado, adelanto_.txtPADEDolares}) {
    monto->installEventFilter(this);
    QString& texto = monto == adelanto_.txtPADEDolares ? v_.txtPADEDolares : v_.txtPagoAdelantado;
    monto->alSalir = [this, &texto] { con([&texto] { SalirMonto(texto); }); };
  }
  adelanto_.txtPADE->alSalir = [this] { con([this] { (void)SalirAdelanto(p_, v_, v_.txtPADE); }); };
  adelanto_.txtTX->alSalir = [this] {
    if (v_.nTipoVenta == TipoVenta::NC) con([this] { (void)SalirAdelanto(p_, v_, v_.txtTX); });
  };
  connect(adelanto_.cmdBuscaPago, &QPushButton::clicked, this, [this] { buscarAdelanto(); });
  connect(adelanto_.cmdPagoAdelantado, &QPushButton::clicked, this, [this] {
    con([this] { VerAdelantos(v_, pantallas_); });
    activateWindow();
  });
  for (int n = 0; n < 2; ++n) {
    const auto i = static_cast<size_t>(n);
    liquidacion_.txtTXL[i]->alSalir = [this, i] { con([this, i] { v_.txtTXL[i] = CodigoTXL(v_.txtTXL[i]); }); };
    connect(liquidacion_.cmdTXL[i], &QPushButton::clicked, this, [this, n] { buscarTX(n); });
    connect(liquidacion_.CmdAdd[i], &QPushButton::clicked, this, [this, n] { agregarTX(n); });
    connect(liquidacion_.CmdDel[i], &QPushButton::clicked, this, [this, n] { eliminarTX(n); });
  }
  connect(cmdVoucher_, &QPushButton::clicked, this, [this] {
    if (!importesSinComa()) return;
    recoger();
    const TrasTecla tras = PulsarVoucher(p_, v_, pantallas_);
    activateWindow();
    despues(tras);
  });
}

// Entering one of the two amounts paid in advance empties the other; coming back from a box is no entering.
bool frmCajaRegistradoraFull::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == cboTipoVenta_ && evento->type() == QEvent::Wheel)
    return true;  // no kind is chosen by a brush of a wheel
  if (objeto == cboTipoVenta_ && evento->type() == QEvent::KeyPress) {
    const int t = static_cast<QKeyEvent*>(evento)->key();
    conFlecha_ = t == Qt::Key_Up || t == Qt::Key_Down || t == Qt::Key_PageUp || t == Qt::Key_PageDown;
  }
  const bool dolares = objeto == adelanto_.txtPADEDolares;
  if (evento->type() == QEvent::FocusIn && (dolares || objeto == adelanto_.txtPagoAdelantado) &&
      static_cast<QFocusEvent*>(evento)->reason() != Qt::ActiveWindowFocusReason) {
    con([this, dolares] { EntrarMonto(v_, dolares); });
  }
  return Forma::eventFilter(objeto, evento);
}

void frmCajaRegistradoraFull::buscarCliente() {
  recoger();
  const auto elegida = pantallas_.buscarCliente();
  activateWindow();
  if (!elegida) return;
  const ResultadoTarjeta r = TomarCliente(p_, v_, pantallas_, *elegida);
  mostrar();
  trasTarjeta(r);
}

void frmCajaRegistradoraFull::buscarArticulo(int fila) {
  if (v_.liquidacion || !rejilla_->dejarCelda()) return;
  const auto codigo = pantallas_.buscarArticulo();
  activateWindow();
  if (!codigo) {
    rejilla_->irA({fila, kCod});
    return;
  }
  QString texto = *codigo;
  const bool acepta = salirCelda(fila, kCod, texto);
  rejilla_->irA({fila, acepta ? kCant : kCod});
}

void frmCajaRegistradoraFull::buscarAdelanto() {
  con([this] { BuscarAdelanto(v_, pantallas_); });
  activateWindow();
}

void frmCajaRegistradoraFull::letraP() {
  if (adelanto_.frapade->isVisible()) buscarAdelanto();
  else if (adelanto_.txtPagoAdelantado->hasFocus()) enfocar(adelanto_.txtPADEDolares);
  else enfocar(adelanto_.txtPagoAdelantado);
}

void frmCajaRegistradoraFull::buscarTX(int lista) {
  const auto elegido =
      pantallas_.buscarParalela(lista == 0 ? ListaParalela::Liquidacion0 : ListaParalela::Liquidacion1);
  activateWindow();
  if (!elegido) return;
  const auto i = static_cast<size_t>(lista);
  con([this, &elegido, i] { v_.txtTXL[i] = CodigoTXL(QString::number(elegido->codigo)); });
  enfocar(liquidacion_.CmdAdd[i]);
}

void frmCajaRegistradoraFull::agregarTX(int lista) {
  std::optional<Foco> foco;
  con([this, lista, &foco] { foco = AgregarTX(p_, v_, lista); });
  if (foco) enfocar(*foco);
  else enfocar(liquidacion_.txtTXL[1]);  // the notes come next
}

void frmCajaRegistradoraFull::eliminarTX(int lista) {
  const int fila = liquidacion_.lvwTX[static_cast<size_t>(lista)]->actual();
  con([this, lista, fila] { EliminarTX(p_, v_, lista, fila); });
}

// The list that the keyboard is in, or the first one.
int frmCajaRegistradoraFull::listaDelFoco() const {
  const QWidget* foco = focusWidget();
  return foco && foco->objectName().endsWith(u"(1)") ? 1 : 0;
}
