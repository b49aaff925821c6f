#include "platform/io/archivo.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

// Writes all bytes of an unbuffered file, so that a full disk shows here and not when the file is closed.
std::optional<QString> escribirTodo(QFileDevice& f, const QByteArray& bytes) {
  errno = 0;
  if (f.write(bytes) == bytes.size()) return {};
  return PalabrasDeError(errno, f);
}

}  // namespace

QString PalabrasDeError(int error, const QFileDevice& f) {
  switch (error) {
    case ENOENT: return QStringLiteral("no existe");
    case EACCES:
    case EPERM: return QStringLiteral("no hay permiso");
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
    case EFBIG: return QStringLiteral("no queda espacio");
    case EISDIR: return QStringLiteral("es una carpeta");
    case ENOTDIR: return QStringLiteral("una parte de la ruta no es una carpeta");
    case EROFS: return QStringLiteral("el disco es de solo lectura");
    case ENODEV:
    case ENXIO: return QStringLiteral("el dispositivo no está conectado");
    case EBUSY: return QStringLiteral("el dispositivo está ocupado");
    case EIO: return QStringLiteral("falló el dispositivo");
    case ETIMEDOUT: return QStringLiteral("el dispositivo no recibe datos");
    default: return error != 0 ? QStringLiteral("el sistema dio el error %1").arg(error) : f.errorString();
  }
}

bool AlDisco(QFileDevice& f) {
  if (!f.flush()) return false;
#ifdef Q_OS_WIN
  return _commit(f.handle()) == 0;
#else
  return ::fsync(f.handle()) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
#endif
}

void CarpetaAlDisco(const QString& carpeta) {
#ifdef Q_OS_WIN
  Q_UNUSED(carpeta);
#else
  const int fd = ::open(QFile::encodeName(carpeta).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
#endif
}

std::optional<QString> LeerBytes(const QString& ruta, QByteArray& bytes, qint64 maximo) {
  QFile f(ruta);
  errno = 0;
  if (!f.open(QIODevice::ReadOnly)) return PalabrasDeError(errno, f);
  bytes = f.read(maximo + 1);
  if (f.error() != QFileDevice::NoError) return PalabrasDeError(errno, f);
  if (bytes.size() <= maximo) return {};
  bytes.clear();
  return QStringLiteral("es demasiado grande");
}

std::optional<QString> EscribirBytes(const QString& ruta, const QByteArray& bytes) {
  QFile f(ruta);
  errno = 0;
  if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) return PalabrasDeError(errno, f);
  return escribirTodo(f, bytes);
}

std::optional<QString> SustituirArchivo(const QString& ruta, const QByteArray& bytes) {
  QSaveFile f(ruta);
  errno = 0;
  if (!f.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return PalabrasDeError(errno, f);
  if (auto e = escribirTodo(f, bytes)) return e;
  errno = 0;
  if (!AlDisco(f) || !f.commit()) return PalabrasDeError(errno, f);
  CarpetaAlDisco(QFileInfo(ruta).absolutePath());
  return {};
}
