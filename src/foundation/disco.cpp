#include "foundation/disco.h"

#include <QFileInfo>
#include <QStorageInfo>

#include "foundation/puesto.h"

namespace {

qint64 tamanoDelDiario(const Puesto& p) {
  const QFileInfo diario(p.ses.psRutaBD + QStringLiteral("-wal"));
  return diario.exists() ? diario.size() : 0;
}

// Back into the store and down to nothing; other programs that read the store may keep it from that.
void recogerDiario(Puesto& p) {
  Recordset rs;
  if (p.poCnnLocal.abierta()) (void)p.poCnnLocal.consultar(u"PRAGMA wal_checkpoint(TRUNCATE)"_sql, rs);
}

}  // namespace

qint64 EspacioLibre(const QString& carpeta) {
  const QStorageInfo disco(carpeta);
  return disco.isValid() ? disco.bytesAvailable() : -1;
}

QString EnBytes(qint64 bytes) {
  if (bytes >= 1'000'000'000) return QStringLiteral("%1 GB").arg(bytes / 1'000'000'000);
  if (bytes >= 1'000'000) return QStringLiteral("%1 MB").arg(bytes / 1'000'000);
  return QStringLiteral("%1 KB").arg(bytes / 1'000);
}

void RevisarDisco(Puesto& p, const LimitesDisco& limites) {
  QStringList avisos;
  const qint64 libre = EspacioLibre(p.rutas.programa);
  if (libre >= 0 && libre < limites.poco) avisos << QStringLiteral("Disco casi lleno: quedan ") + EnBytes(libre);
  if (tamanoDelDiario(p) >= limites.diario) {
    recogerDiario(p);
    const qint64 queda = tamanoDelDiario(p);
    if (queda >= limites.diario) avisos << QStringLiteral("Diario de ventas sin recoger: ") + EnBytes(queda);
  }
  p.ses.avisoDisco = avisos.join(QStringLiteral(" · "));
}
