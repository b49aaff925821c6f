#include "obra.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <gtest/gtest.h>

QString tocar(const QString& programa, const QStringList& argumentos, const QByteArray& entrada) {
  QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
  for (const char* v : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) entorno.remove(QString::fromLatin1(v));
  QProcess p;
  p.setProcessEnvironment(entorno);
  p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  p.start(programa, argumentos);
  p.write(entrada);
  p.closeWriteChannel();
  const bool acaba = p.waitForFinished(60'000);
  QString escrito = QString::fromUtf8(p.readAllStandardOutput());
  if (!acaba) {
    p.kill();
    p.waitForFinished();
    return escrito + QStringLiteral("[no acaba]\n");
  }
  if (p.exitStatus() == QProcess::CrashExit) return escrito + QStringLiteral("[señal]\n");
  return escrito + QStringLiteral("[estado %1]\n").arg(p.exitCode());
}

QString leerTexto(const QString& archivo) {
  QFile f(archivo);
  return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QStringLiteral("(no hay ") + archivo + u')';
}

QString primeraDiferencia(const QString& esperado, const QString& escrito) {
  if (esperado == escrito) return {};
  const QStringList a = esperado.split(u'\n'), b = escrito.split(u'\n');
  qsizetype i = 0;
  while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
  return QStringLiteral("línea %1: se esperaba «%2» y vino «%3»\nTodo lo escrito:\n%4")
      .arg(i + 1)
      .arg(a.value(i), b.value(i), escrito);
}

std::vector<QString> obrasDe(const QString& carpeta) {
  std::vector<QString> obras;
  for (const QFileInfo& f : QDir(carpeta).entryInfoList(QDir::Files, QDir::Name)) {
    if (f.suffix() == u"guion") obras.push_back(f.completeBaseName());
    if (f.suffix() == u"salida" && !QFileInfo::exists(f.path() + u'/' + f.completeBaseName() + QStringLiteral(".guion"))) {
      ADD_FAILURE() << "no play beside " << qUtf8Printable(f.fileName());
    }
  }
  if (obras.empty()) ADD_FAILURE() << "no plays in " << qUtf8Printable(carpeta);
  return obras;
}

QString carpetaDePruebas() { return QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path(); }
