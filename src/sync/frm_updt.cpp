#include "sync/frm_updt.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/puesto.h"
#include "platform/ui/tema.h"
#include "sync/reproceso.h"
#include "sync/sincronizar.h"

namespace {

constexpr int kEntrePinturas_ms = 100;
constexpr int kLineasEntrePinturas = 200;  // should the clock stand still

// No timer of the desk may touch the databases meanwhile.
class Sincronizando {
 public:
  explicit Sincronizando(Puesto& p) : p_(p) { p_.ses.sincronizando = true; }
  ~Sincronizando() { p_.ses.sincronizando = false; }
  Sincronizando(const Sincronizando&) = delete;
  Sincronizando& operator=(const Sincronizando&) = delete;

 private:
  Puesto& p_;
};

}  // namespace

frmUpdt::frmUpdt(Puesto& p, FrmUpdt& v, QWidget* padre)
    : Forma(QStringLiteral("frmUpdt"), QStringLiteral("Sincronización"), padre), p_(p), v_(v) {
  setProperty("diceQueHace", true);
  setModal(true);
  label1_ = nuevoTexto(v.Label1, QStringLiteral("titulo"));
  label1_->setObjectName(QStringLiteral("Label1"));
  etiqueta_ = nuevoTexto(v.lblEtiqueta, QStringLiteral("sentencia"));
  etiqueta_->setObjectName(QStringLiteral("lblEtiqueta"));
  log_ = new QListWidget;
  log_->setObjectName(QStringLiteral("lstLog"));
  log_->setFocusPolicy(Qt::NoFocus);
  barra_ = new QProgressBar;
  barra_->setObjectName(QStringLiteral("prgBar"));
  barra_->setRange(0, 100);
  cerrar_ = nuevoBoton(QStringLiteral("cmdClose"), QStringLiteral("&Cerrar"));
  detener_ = nuevoBoton(QStringLiteral("cmdDetener"), QStringLiteral("&Detener"));
  connect(cerrar_, &QPushButton::clicked, this, &QDialog::reject);
  connect(detener_, &QPushButton::clicked, this, [this] { parar_ = true; });
  for (QWidget* w : std::initializer_list<QWidget*>{label1_, etiqueta_, log_, barra_}) cuerpo()->addWidget(w);
  cuerpo()->addLayout(filaBotones({detener_, cerrar_}));
  resize(640, 480);
  v_.alMostrar = [this] {
    show();
    pintado_ = {};
    pintar();
  };
  v_.alCambiar = [this] { pintar(); };
  v_.detener = [this] {
    dejarPasarTeclas();
    return parar_;
  };
}

frmUpdt::~frmUpdt() {
  v_.alMostrar = v_.alCambiar = [] {};
  v_.detener = [] { return false; };
}

bool frmUpdt::puedeCerrar() {
  if (v_.sePuedeDetener) parar_ = true;
  return v_.cmdClose;
}

void frmUpdt::pintar() {
  if (!isVisible()) return;
  const bool alFinal = v_.cmdClose || v_.prgBar != barra_->value() || label1_->text() != v_.Label1 ||
                       detener_->isEnabled() != (v_.sePuedeDetener && !parar_);
  const QDateTime ahora = p_.reloj.now();
  const bool toca =
      !pintado_.isValid() || qAbs(pintado_.msecsTo(ahora)) >= kEntrePinturas_ms || ++sinPintar_ >= kLineasEntrePinturas;
  if (!alFinal && !toca) return;
  pintado_ = ahora;
  sinPintar_ = 0;
  label1_->setText(v_.Label1);
  etiqueta_->setText(v_.lblEtiqueta);
  barra_->setValue(v_.prgBar);
  cerrar_->setEnabled(v_.cmdClose);
  detener_->setEnabled(v_.sePuedeDetener && !parar_);
  const qint64 nuevas = qMin(v_.lineas - mostradas_, static_cast<qint64>(v_.lstLog.size()));
  for (auto i = v_.lstLog.end() - nuevas; i != v_.lstLog.end(); ++i) log_->addItem(*i);
  while (log_->count() > static_cast<int>(kLineasALaVista)) delete log_->takeItem(0);
  mostradas_ = v_.lineas;
  log_->scrollToBottom();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  repaint();
}

void frmUpdt::dejarPasarTeclas() { QApplication::processEvents(); }

namespace {

template <class Acto>
void enPantalla(Puesto& p, QWidget* padre, Acto acto) {
  FrmUpdt v(p);
  frmUpdt ventana(p, v, padre);
  const Sincronizando guardia(p);
  const CursorEspera espera;
  acto(p, v);
}

}  // namespace

void SincronizarEnPantalla(Puesto& p, QWidget* padre) { enPantalla(p, padre, Sincronizar); }

void ReprocesarEnPantalla(Puesto& p, QWidget* padre) { enPantalla(p, padre, SincronizarFecha); }
