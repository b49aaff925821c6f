#include "alta/autoarranque.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "platform/io/archivo.h"

namespace {

QString entrada() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/autostart/tarvopos.desktop");
}

// An argument of Exec= as the desktop entry's rules ask for it: quoted, and a percent sign doubled.
QString argumento(QString texto) {
  for (const char* c : {"\\", "\"", "`", "$"}) {
    texto.replace(QLatin1String(c), QLatin1String("\\") + QLatin1String(c));
  }
  texto.replace(u'\\', QStringLiteral("\\\\")).replace(u'%', QStringLiteral("%%"));
  return u'"' + texto + u'"';
}

}  // namespace

std::optional<QString> PonerAutoarranque(const QString& programa, const QString& carpeta) {
  const QString archivo = entrada();
  if (!QDir().mkpath(QFileInfo(archivo).absolutePath())) {
    return QStringLiteral("no se puede crear la carpeta ") + QFileInfo(archivo).absolutePath();
  }
  const QString texto =
      QStringLiteral("[Desktop Entry]\nType=Application\nName=TarvoPos\nExec=env %1 %2\nTerminal=false\n")
          .arg(argumento(QStringLiteral("TARVOPOS_HOME=") + carpeta), argumento(programa));
  return SustituirArchivo(archivo, texto.toUtf8());
}

std::optional<QString> QuitarAutoarranque() {
  const QString archivo = entrada();
  if (!QFileInfo::exists(archivo) || QFile::remove(archivo)) return {};
  return QStringLiteral("no se puede borrar ") + archivo;
}
