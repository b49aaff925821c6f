#pragma once
#include <QDateTime>
#include <QLockFile>

// The file that lets one program at a time work on a desk's folder; it is left free when this object goes.
class Cerrojo {
 public:
  enum class Fin { Tomado, Ocupado, SinPermiso };  // held by a live program; the folder can't be written

  explicit Cerrojo(const QString& archivo);

  // Takes it; taking it again is nothing. Free is also the lock of a process that has died, and a file without a
  // process in it, as a power cut leaves behind.
  [[nodiscard]] Fin tomar(const QDateTime& ahora);

 private:
  QLockFile lock_;
  const QString archivo_;
};
