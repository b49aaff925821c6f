#pragma once
// The line to one printer: a device, a file, or an address on the network. Nothing here waits without an end.
#include <QByteArray>
#include <QElapsedTimer>
#include <QString>
#include <optional>

#include "platform/io/espera.h"

class QDeadlineTimer;

class LineaImpresora {
 public:
  LineaImpresora() = default;
  ~LineaImpresora();
  LineaImpresora(const LineaImpresora&) = delete;
  LineaImpresora& operator=(const LineaImpresora&) = delete;

  // Opens `destino`: "tcp:ADDRESS:PORT" with the address in figures (a name could take long to look up), a device such
  // as /dev/usb/lp0 or /dev/ttyS0, the latter also with its speed behind a colon, or a file. With `crear` a file that
  // isn't there is made. A serial device is put into raw mode, 8 bits, at its speed or the one it had. Gives the words
  // of the failure.
  std::optional<QString> abrir(const QString& destino, bool crear, const AvisoEspera& aviso = {});

  // Whether what is at the other end could answer: a serial or USB printer or one on the network.
  bool responde() const { return responde_; }

  // All bytes, on the disk where it is a file. What takes none for ten seconds has failed.
  std::optional<QString> escribir(const QByteArray& bytes);

  // What has arrived by `plazo_ms` from now, at most `cuantos` bytes.
  QByteArray leer(int cuantos, int plazo_ms);

 private:
  std::optional<QString> conectar(const QString& direccion);
  std::optional<QString> abrirArchivo(const QString& destino, bool crear);
  bool esperar(short que, const QDeadlineTimer& plazo);
  std::optional<QString> palabras(int error) const;

  int fd_ = -1;
  bool responde_ = false, red_ = false;
  QString nombre_;
  AvisoEspera aviso_;
  QElapsedTimer abierta_;
  bool avisado_ = false;
};
