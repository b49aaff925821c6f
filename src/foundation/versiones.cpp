#include "foundation/versiones.h"

#include <QDir>
#include <QFileInfo>

#include "foundation/transaccion.h"
#include "platform/sql/copia_sqlite.h"
#include "platform/sql/esquema.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

// The folder beside the database, and in it a name that is still free.
QString nombreDeCopia(const QFileInfo& base, int version, const QDateTime& ahora) {
  const QDir carpeta(base.dir().filePath(QStringLiteral("respaldos")));
  const QString nombre =
      base.completeBaseName() + QStringLiteral("-v%1-").arg(version) + FormatearFecha(ahora, u"yyyymmdd-hhnnss");
  QString copia = carpeta.filePath(nombre + u'.' + base.suffix());
  for (int n = 2; QFileInfo::exists(copia); ++n) {
    copia = carpeta.filePath(nombre + QStringLiteral("-%1.").arg(n) + base.suffix());
  }
  return copia;
}

std::optional<QString> guardarCopia(const QString& archivo, const QString& copia) {
  const QString carpeta = QFileInfo(copia).absolutePath();
  if (!QDir().mkpath(carpeta)) return QStringLiteral("no se puede crear la carpeta ") + carpeta;
  return CopiarBaseSqlite(archivo, copia, false);
}

}  // namespace

QString sentenciaDeVersion(const PasosDeVersion& pasos) {
  return QStringLiteral("PRAGMA user_version = %1").arg(pasos.size());
}

std::optional<ErrorBD> LeerVersion(Conexion& cnn, int& version) {
  Recordset rs;
  auto error = cnn.consultar(u"PRAGMA user_version"_sql, rs);
  if (!error) version = static_cast<int>(AEntero(rs[0].toDouble()));
  return error;
}

Actualizacion ActualizarBase(Conexion& cnn, const QString& archivo, const PasosDeVersion& pasos,
                             const QDateTime& ahora) {
  const QString nombre = QFileInfo(archivo).fileName();
  const auto fallo = [&nombre](const QString& porque) {
    return Actualizacion{FinActualizacion::Fallo,
                         QStringLiteral("No se pudo actualizar la base de datos %1: ").arg(nombre) + porque +
                             QStringLiteral("\nLa base quedó como estaba.")};
  };
  const int ultima = static_cast<int>(pasos.size());
  int version = 0;
  if (const auto error = LeerVersion(cnn, version)) return fallo(error->descripcion);
  if (version > ultima) {
    return {FinActualizacion::MasNueva,
            QStringLiteral("La base de datos %1 es de la versión %2, más nueva que este programa, que llega a la %3.\n"
                           "Instale la última versión del programa en esta caja.")
                .arg(nombre)
                .arg(version)
                .arg(ultima)};
  }
  if (version == ultima) return {};
  const QString copia = nombreDeCopia(QFileInfo(archivo), version, ahora);
  if (const auto error = guardarCopia(archivo, copia)) {
    return fallo(QStringLiteral("no se pudo guardar antes una copia en %1: ").arg(copia) + *error);
  }
  const int antes = version;
  const auto error = EnTransaccion(cnn, [&]() -> std::optional<ErrorBD> {
    // Another desk may have brought a common server up to date meanwhile.
    if (auto e = LeerVersion(cnn, version)) return e;
    for (size_t paso = static_cast<size_t>(version); paso < pasos.size(); ++paso) {
      if (auto e = EjecutarEsquema(cnn, pasos[paso])) return e;
    }
    return version < ultima ? EjecutarEsquema(cnn, {sentenciaDeVersion(pasos)}) : std::nullopt;
  });
  if (error) return fallo(error->descripcion);
  return {FinActualizacion::Actualizada,
          QStringLiteral("La base de datos %1 se actualizó de la versión %2 a la %3.\nAntes se guardó una copia en %4.")
              .arg(nombre)
              .arg(antes)
              .arg(ultima)
              .arg(QDir::toNativeSeparators(copia))};
}
