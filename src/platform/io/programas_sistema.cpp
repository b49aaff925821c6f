#include "platform/io/programas_sistema.h"

#include <QMimeDatabase>
#include <QProcess>
#include <QUrl>

namespace {

constexpr int kCortesia_ms = 3000;

}  // namespace

ProgramasSistema::ProgramasSistema() = default;

ProgramasSistema::~ProgramasSistema() {
  const QStringList titulos = abiertos_.keys();
  for (const QString& t : titulos) (void)cerrar(t);
}

qint64 ProgramasSistema::iniciar(const QString& titulo, const QString& programa, const QStringList& argumentos,
                                 const QString& carpeta) {
  auto proceso = std::make_shared<QProcess>();
  proceso->setProcessChannelMode(QProcess::ForwardedErrorChannel);
  proceso->setStandardOutputFile(QProcess::nullDevice());
  proceso->setWorkingDirectory(carpeta);
  proceso->start(programa, argumentos);
  if (!proceso->waitForStarted()) return 0;
  abiertos_.insert(titulo, proceso);
  return proceso->processId();
}

bool ProgramasSistema::esperar(qint64 proceso) {
  for (const auto& p : std::as_const(abiertos_)) {
    if (p->processId() == proceso && proceso != 0) return p->waitForFinished(-1);
  }
  return false;
}

qint64 ProgramasSistema::buscar(const QString& titulo) const {
  const auto p = abiertos_.value(titulo);
  // An event loop is needed to learn of an end; a short look does as well.
  return p && !p->waitForFinished(0) ? p->processId() : 0;
}

bool ProgramasSistema::cerrar(const QString& titulo) {
  const auto p = abiertos_.take(titulo);
  if (!p || p->state() == QProcess::NotRunning) return true;
  p->terminate();
  if (p->waitForFinished(kCortesia_ms)) return true;
  p->kill();
  return p->waitForFinished(kCortesia_ms);
}

bool ProgramasSistema::abrir(const QString& enlace) {
#ifdef Q_OS_WIN
  return QProcess::startDetached(QStringLiteral("rundll32"), {QStringLiteral("url.dll,FileProtocolHandler"), enlace});
#else
  if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) return false;
  const QUrl url(enlace);
  const QString clase = url.isLocalFile() ? QMimeDatabase().mimeTypeForFile(url.toLocalFile()).name()
                                          : QStringLiteral("x-scheme-handler/") + url.scheme();
  // Asked first: the opener itself stays as long as what it opened, or says nothing.
  QProcess pregunta;
  pregunta.start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"), clase});
  if (!pregunta.waitForFinished(kCortesia_ms) || pregunta.readAllStandardOutput().trimmed().isEmpty()) return false;
  return QProcess::startDetached(QStringLiteral("xdg-open"), {enlace});
#endif
}
