#include "platform/sql/copia_sqlite.h"

#include <QFile>
#include <QFileInfo>
#include <cstdio>

#include "platform/io/archivo.h"
#include "platform/sql/base_sqlite.h"

namespace {

std::optional<QString> copiar(const QString& origen, const QString& copia) {
  QString error;
  // Opened for writing, since a till that was killed may have left a log to bring in first.
  const BaseSqlite de = AbrirSqlite(origen, SQLITE_OPEN_READWRITE, error);
  if (!de) return error;
  const BaseSqlite a = AbrirSqlite(copia, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, error);
  if (!a) return error;
  sqlite3_backup* respaldo = sqlite3_backup_init(a.get(), "main", de.get(), "main");
  if (!respaldo) return QString::fromUtf8(sqlite3_errmsg(a.get()));
  // In one go: one moment of the store, and its writers go on beside it.
  int r = sqlite3_backup_step(respaldo, -1);
  for (int i = 0; (r == SQLITE_BUSY || r == SQLITE_LOCKED) && i < 50; ++i) {
    sqlite3_sleep(100);
    r = sqlite3_backup_step(respaldo, -1);
  }
  sqlite3_backup_finish(respaldo);
  if (r != SQLITE_DONE) return QString::fromUtf8(sqlite3_errstr(r));
  QList<QStringList> filas;
  if (!FilasSqlite(a.get(), QStringLiteral("PRAGMA integrity_check"), filas, error)) return error;
  if (filas.value(0).value(0) != u"ok") return QStringLiteral("la copia no está sana: ") + filas.value(0).value(0);
  return {};
}

std::optional<QString> guardar(const QString& copia, const QString& destino, bool reemplazar) {
  {
    QFile f(copia);
    if (!f.open(QIODevice::ReadWrite) || !AlDisco(f)) return QStringLiteral("no se pudo llevar al disco");
  }
  // Whoever made the file meanwhile keeps it, unless it may be replaced; that is one step on every system but one.
  if (!reemplazar) {
    if (!QFile::rename(copia, destino)) return QStringLiteral("el archivo ya existe o no se puede escribir");
  } else {
#ifdef Q_OS_WIN
    QFile::remove(destino);
    const bool bien = QFile::rename(copia, destino);
#else
    const bool bien = std::rename(QFile::encodeName(copia).constData(), QFile::encodeName(destino).constData()) == 0;
#endif
    if (!bien) return QStringLiteral("no se puede escribir");
  }
  CarpetaAlDisco(QFileInfo(destino).absolutePath());
  return {};
}

}  // namespace

std::optional<QString> CopiarBaseSqlite(const QString& origen, const QString& destino, bool reemplazar) {
  const QString copia = destino + QStringLiteral(".nuevo");
  const QStringList colas{QString(), QStringLiteral("-wal"), QStringLiteral("-shm"), QStringLiteral("-journal")};
  for (const QString& cola : colas) QFile::remove(copia + cola);
  auto error = copiar(origen, copia);
  if (!error) error = guardar(copia, destino, reemplazar);
  for (const QString& cola : colas) QFile::remove(copia + cola);
  return error;
}
