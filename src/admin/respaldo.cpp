#include "admin/respaldo.h"

#include <QDir>
#include <QFileInfo>

#include "platform/sql/copia_sqlite.h"

std::optional<QString> RespaldarPuesto(const QString& carpeta, const QString& destino, bool reemplazar) {
  const QString origen = QDir(carpeta).filePath(QStringLiteral("TarvoPos.mdb"));
  if (!QFileInfo::exists(origen)) return QStringLiteral("La carpeta %1 no tiene TarvoPos.mdb.").arg(carpeta);
  const QFileInfo d(destino);
  if (d.isDir()) return QStringLiteral("%1 es una carpeta.").arg(destino);
  if (d.exists() && (!reemplazar || d.canonicalFilePath() == QFileInfo(origen).canonicalFilePath())) {
    return QStringLiteral("%1 ya existe; no se ha tocado.").arg(destino);
  }
  const auto error = CopiarBaseSqlite(origen, destino, reemplazar);
  if (error) return QStringLiteral("No se pudo respaldar en %1: %2.").arg(destino, *error);
  return {};
}
