#include "platform/sql/crear_sqlite.h"

#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>

#include "platform/sql/errores_sqlite.h"

namespace {

std::optional<ErrorBD> llenar(const QString& archivo, const QStringList& sentencias) {
  sqlite3* base = nullptr;
  int rc = sqlite3_open_v2(archivo.toUtf8().constData(), &base, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  const auto corre = [&](const QString& sql) {
    if (rc == SQLITE_OK) rc = sqlite3_exec(base, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
  };
  corre(QStringLiteral("PRAGMA synchronous=FULL"));
  corre(QStringLiteral("BEGIN"));
  for (const QString& s : sentencias) corre(s);
  corre(QStringLiteral("COMMIT"));
  corre(QStringLiteral("PRAGMA journal_mode=WAL"));
  std::optional<ErrorBD> error;
  if (rc != SQLITE_OK) error = errorDe(base, rc);
  sqlite3_close(base);
  return error;
}

}  // namespace

std::optional<ErrorBD> crearBaseSqlite(const QString& archivo, const QStringList& sentencias) {
  if (QFileInfo::exists(archivo)) {
    return ErrorBD{kErrorGeneral, 0, QStringLiteral("Ya existe el archivo '%1'.").arg(archivo)};
  }
  // Made beside its place and renamed when it is whole. Renaming does not replace a file that came in between.
  const QString temporal = archivo + QStringLiteral(".nueva");
  QFile::remove(temporal);
  auto error = llenar(temporal, sentencias);
  if (!error && !QFile::rename(temporal, archivo)) {
    error = ErrorBD{kErrorGeneral, 0, QStringLiteral("No se puede crear el archivo '%1'.").arg(archivo)};
  }
  if (error) {
    for (const char* fin : {"", "-wal", "-shm", "-journal"}) QFile::remove(temporal + QString::fromLatin1(fin));
  }
  return error;
}
