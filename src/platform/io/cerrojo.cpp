#include "platform/io/cerrojo.h"

#include <QFileInfo>
#include <cstdlib>

namespace {

// Between making the file and writing its process into it a live program takes next to no time.
constexpr qint64 kSinDuenio_s = 10;

}  // namespace

Cerrojo::Cerrojo(const QString& archivo) : lock_(archivo), archivo_(archivo) {
  lock_.setStaleLockTime(0);  // a till runs for days; only a process that has died leaves its lock free
}

Cerrojo::Fin Cerrojo::tomar(const QDateTime& ahora) {
  if (lock_.isLocked() || lock_.tryLock(0)) return Fin::Tomado;
  qint64 proceso = 0;
  QString equipo, programa;
  if (lock_.error() == QLockFile::LockFailedError && !lock_.getLockInfo(&proceso, &equipo, &programa)) {
    const qint64 edad = QFileInfo(archivo_).lastModified().secsTo(ahora);
    // Refused by the system, too, while a live program holds the file.
    if (std::abs(edad) >= kSinDuenio_s && lock_.removeStaleLockFile() && lock_.tryLock(0)) return Fin::Tomado;
  }
  return lock_.error() == QLockFile::LockFailedError ? Fin::Ocupado : Fin::SinPermiso;
}
