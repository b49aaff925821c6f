#include "admin/guion_entrada.h"

#include <QSocketNotifier>
#include <cerrno>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

qint64 leerDeEntrada(char* donde, size_t cuanto) {
#ifdef Q_OS_WIN
  return ::_read(0, donde, static_cast<unsigned>(cuanto));
#else
  ssize_t n = 0;
  do {
    n = ::read(0, donde, cuanto);
  } while (n < 0 && errno == EINTR);
  return n;
#endif
}

}  // namespace

EntradaGuion::EntradaGuion(FuenteGuion& fuente)
    : fuente_(fuente), aviso_(std::make_unique<QSocketNotifier>(0, QSocketNotifier::Read)) {
  QObject::connect(aviso_.get(), &QSocketNotifier::activated, aviso_.get(), [this] { leer(); });
}

EntradaGuion::~EntradaGuion() = default;

// One read a notice: it returns with what is there and never waits.
void EntradaGuion::leer() {
  char trozo[4096];
  const qint64 n = leerDeEntrada(trozo, sizeof trozo);
  if (n < 0 && errno == EAGAIN) return;
  if (n > 0) {
    fuente_.alimentar(QByteArray(trozo, n));
  } else {
    aviso_->setEnabled(false);
    fuente_.cerrar();
  }
}
