#include "admin/guion_reproductor.h"

#include <QCoreApplication>
#include <QThread>

namespace {

constexpr int kReintento_ms = 20;
constexpr int kBotonHundido_ms = 1'000;  // one that stays down longer hangs on its menu
constexpr int kTurnosDeReposo = 2;       // what the first one sets off, such as a repaint, has been done by the second

int nivelDeBucle() { return QThread::currentThread()->loopLevel(); }

}  // namespace

ReproductorGuion::ReproductorGuion(FuenteGuion& fuente, EscenaGuion& escena)
    : fuente_(fuente), escena_(escena), acciones_(escena) {
  fuente_.alLlegar = [this] {
    if (!esperandoLinea_) return;
    esperandoLinea_ = false;
    armar(0);
  };
}

int ReproductorGuion::reproducir() {
  armar(0);
  return QCoreApplication::exec();
}

void ReproductorGuion::armar(int ms) {
  const quint64 este = ++turno_;
  real_.unaVez(ms, this, [this, este] {
    if (este == turno_) turno();
  });
}

void ReproductorGuion::turno() {
  // A routine that only lets events run has not come to rest.
  if (!niveles_.empty() && nivelDeBucle() <= niveles_.back()) return armar(kReintento_ms);
  if (!pasos_.empty()) return darPaso();
  if (botonPorSoltar()) return armar(kReintento_ms);
  if (!accionAcabada()) return armar(0);
  if (acabando_) return QCoreApplication::exit(0);
  try {
    if (tomarAccion()) armar(0);
  } catch (const ErrorGuion& e) {
    fallar(e);
  }
}

void ReproductorGuion::darPaso() {
  PasoGuion paso = std::move(pasos_.front());
  pasos_.pop_front();
  reposo_ = 0;
  plazoBoton_ = QDeadlineTimer(kBotonHundido_ms);
  armar(0);
  const quint64 armado = turno_;
  // The play has gone on inside the step: its action is over, whatever the step finds when its screen closes.
  const auto superado = [&] { return turno_ != armado; };
  niveles_.push_back(nivelDeBucle());
  try {
    escena_.pantallas.activar();
    if (!paso() && !superado()) {
      pasos_.push_front(std::move(paso));
      armar(kReintento_ms);
    }
  } catch (const ErrorGuion& e) {
    if (!superado()) fallar(e);
  }
  niveles_.pop_back();
}

// A key presses a button for a tenth of a second; its click comes when it is let go. A key that a scanner may have sent
// waits as well.
bool ReproductorGuion::botonPorSoltar() {
  const bool pendiente = escena_.pantallas.botonHundido() || escena_.pantallas.teclaRetenida();
  if (!enAccion_ || plazoBoton_.hasExpired() || !pendiente) return false;
  reposo_ = 0;
  return true;
}

bool ReproductorGuion::accionAcabada() {
  if (!enAccion_) return true;
  if (++reposo_ < kTurnosDeReposo) return false;
  enAccion_ = false;
  if (!acabando_) escena_.escritor.ok();
  return true;
}

bool ReproductorGuion::tomarAccion() {
  QString texto;
  for (;;) {
    linea_ = fuente_.numero() + 1;
    const FuenteGuion::Estado estado = fuente_.tomar(texto);
    if (estado == FuenteGuion::Estado::Todavia) {
      esperandoLinea_ = true;
      return false;
    }
    if (estado == FuenteGuion::Estado::Fin) {
      acabando_ = true;
      enAccion_ = true;
      if (escena_.programa) pasos_ = acciones_.cierre();
      return true;
    }
    const auto accion = leerAccion(texto, linea_);
    if (!accion) continue;
    pasos_ = acciones_.pasos(*accion);
    enAccion_ = true;
    return true;
  }
}

void ReproductorGuion::fallar(const ErrorGuion& error) {
  escena_.escritor.linea(QStringLiteral("línea %1: %2").arg(linea_).arg(error.texto));
  terminarGuion(1);
}
