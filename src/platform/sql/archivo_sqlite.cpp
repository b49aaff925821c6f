#include "platform/sql/archivo_sqlite.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>
#include <memory>
#include <vector>
#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

const char* const kAuxiliares[] = {"-wal", "-shm"};

// By the rights that an opening would go by. Never by opening it: closing the file again would drop all locks that this
// process holds on it, and another process would then take the log away from under an open connection.
bool sePuedeEscribir(const QString& archivo) {
#ifdef Q_OS_UNIX
  return ::faccessat(AT_FDCWD, QFile::encodeName(archivo).constData(), W_OK, AT_EACCESS) == 0;
#else
  return QFileInfo(archivo).isWritable();
#endif
}

enum class Comienzo { Ilegible, Ajeno, DeBase };

// Read through the engine, which knows of its own locks when it closes a file.
Comienzo leerComienzo(const QString& archivo) {
  sqlite3_initialize();
  sqlite3_vfs* vfs = sqlite3_vfs_find(nullptr);
  std::vector<char> memoria(static_cast<size_t>(vfs->szOsFile));
  auto* f = reinterpret_cast<sqlite3_file*>(memoria.data());
  const QByteArray ruta = QFileInfo(archivo).absoluteFilePath().toUtf8();
  const std::unique_ptr<const char, void (*)(sqlite3_filename)> nombre(
      sqlite3_create_filename(ruta.constData(), "", "", 0, nullptr), sqlite3_free_filename);
  int concedido = 0;
  const int rc =
      nombre ? vfs->xOpen(vfs, nombre.get(), f, SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB, &concedido) : SQLITE_NOMEM;
  if (rc != SQLITE_OK) {
    if (f->pMethods) f->pMethods->xClose(f);
    return Comienzo::Ilegible;
  }
  static const QByteArray kFirma("SQLite format 3\0", 16);
  QByteArray comienzo(16, '\0');
  sqlite3_int64 largo = 0;
  const bool leido = f->pMethods->xFileSize(f, &largo) == SQLITE_OK && largo >= 512 &&
                     f->pMethods->xRead(f, comienzo.data(), 16, 0) == SQLITE_OK;
  f->pMethods->xClose(f);
  return leido && comienzo == kFirma ? Comienzo::DeBase : Comienzo::Ajeno;
}

}  // namespace

std::optional<QString> RevisarArchivoSqlite(const QString& archivo) {
  const QFileInfo info(archivo);
  const bool esArchivo = info.isFile();
  if (!esArchivo && !info.exists()) return QStringLiteral("No se encuentra la base de datos '%1'.").arg(archivo);
  const Comienzo comienzo = esArchivo ? leerComienzo(archivo) : Comienzo::Ilegible;
  if (comienzo == Comienzo::Ilegible) return QStringLiteral("No se puede leer la base de datos '%1'.").arg(archivo);
  if (comienzo == Comienzo::Ajeno) {
    return QStringLiteral("'%1' no es una base de datos: archivo truncado o de otro programa.").arg(archivo);
  }
  if (!sePuedeEscribir(archivo)) {
    return QStringLiteral("La base de datos '%1' es de solo lectura: no se puede guardar en ella. Revise los permisos "
                          "del archivo.")
        .arg(archivo);
  }
  for (const char* fin : kAuxiliares) {
    const QString auxiliar = archivo + QLatin1String(fin);
    if (!QFileInfo::exists(auxiliar) || sePuedeEscribir(auxiliar)) continue;
    return QStringLiteral("La base de datos '%1' es de solo lectura: no se puede escribir en su archivo auxiliar '%2'. "
                          "Revise los permisos de los dos.")
        .arg(archivo, auxiliar);
  }
  return {};
}

void LiberarAuxiliaresSqlite(const QString& archivo) {
  if (!sePuedeEscribir(archivo)) return;
  for (const char* fin : kAuxiliares) {
    QFile auxiliar(archivo + QLatin1String(fin));
    if (!auxiliar.exists() || sePuedeEscribir(auxiliar.fileName())) continue;
    auxiliar.setPermissions(auxiliar.permissions() | QFileDevice::WriteOwner | QFileDevice::ReadOwner);
  }
}
