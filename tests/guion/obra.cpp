#include "obra.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

#include "admin/demo_papel.h"
#include "apoyo/servidor_prueba.h"

QProcessEnvironment entornoSinPantalla() {
  QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
  for (const char* v : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) entorno.remove(QString::fromLatin1(v));
  return entorno;
}

QString tocar(const QString& programa, const QStringList& argumentos, const QByteArray& entrada) {
  QProcess p;
  p.setProcessEnvironment(entornoSinPantalla());
  p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  p.start(programa, argumentos);
  p.write(entrada);
  p.closeWriteChannel();
  const bool acaba = p.waitForFinished(300'000);
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

std::string primeraDiferencia(const QString& esperado, const QString& escrito) {
  if (esperado == escrito) return {};
  const QStringList a = esperado.split(u'\n'), b = escrito.split(u'\n');
  qsizetype i = 0;
  while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
  return QStringLiteral("línea %1: se esperaba «%2» y vino «%3»\nTodo lo escrito:\n%4")
      .arg(i + 1)
      .arg(a.value(i), b.value(i), escrito)
      .toStdString();
}

std::vector<QString> obrasDe(const QString& carpeta) {
  std::vector<QString> obras;
  for (const QFileInfo& f : QDir(carpeta).entryInfoList(QDir::Files, QDir::Name)) {
    if (f.suffix() == u"guion") obras.push_back(f.completeBaseName());
    if (f.suffix() == u"salida" &&
        !QFileInfo::exists(f.path() + u'/' + f.completeBaseName() + QStringLiteral(".guion"))) {
      ADD_FAILURE() << "no play beside " << qUtf8Printable(f.fileName());
    }
  }
  if (obras.empty()) ADD_FAILURE() << "no plays in " << qUtf8Printable(carpeta);
  return obras;
}

QString carpetaDePruebas() { return QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path(); }
QString programaAdmin() { return carpetaDePruebas() + QStringLiteral("/../bin/tarvopos-admin"); }

PuestoDeObra::PuestoDeObra() {
  EXPECT_TRUE(admin({QStringLiteral("crear-puesto"), ruta(), QStringLiteral("--demo")}).endsWith(u"[estado 0]\n"));
}

PuestoDeObra::PuestoDeObra(const QString& ahora) {
  ServidorPrueba& servidor = ServidorPrueba::uno();
  const CadenaConexion bases[] = {servidor.sinBase(), servidor.sinBase()};
  const auto palabras = [&](int n) { return servidor.palabras() + u'/' + bases[n].catalogo; };
  EXPECT_TRUE(admin({QStringLiteral("crear-puesto"), ruta(), QStringLiteral("--demo"), QStringLiteral("--central"),
                     palabras(0), QStringLiteral("--cliente"), palabras(1)})
                  .endsWith(u"[estado 0]\n"));
  for (const CadenaConexion& b : bases) {
    servidor.crudo(b, QStringLiteral("CREATE OR REPLACE FUNCTION dbo.tp_ahora() RETURNS timestamp LANGUAGE sql STABLE "
                                     "AS $$ SELECT timestamp '%1' $$")
                          .arg(ahora));
  }
}

PuestoDeObra::PuestoDeObra(const PuestoDeObra& otro) {
  const QDir de(otro.ruta());
  QDir().mkpath(ruta());
  for (const QString& f : de.entryList(QDir::Files)) QFile::copy(de.filePath(f), ruta() + u'/' + f);
}

QString PuestoDeObra::admin(const QStringList& palabras, const QByteArray& entrada) const {
  return tocar(programaAdmin(), palabras, entrada);
}

QString PuestoDeObra::toca(const QString& guion, const QByteArray& lineas) const {
  return admin({QStringLiteral("guion"), guion, QStringLiteral("--puesto"), ruta(), QStringLiteral("--salida"), ruta()},
               lineas);
}

QString PuestoDeObra::filas(const QString& sql) const {
  static const QRegularExpression servidor(QStringLiteral("^(?:(central|cliente): )?(.*)$"));
  const auto m = servidor.match(sql);
  const QString base = m.captured(1).isEmpty() ? QStringLiteral("local") : m.captured(1);
  const QString r = admin({QStringLiteral("sql"), QStringLiteral("--puesto"), ruta(), QStringLiteral("--base"), base},
                          m.captured(2).toUtf8() + '\n');
  const QString marca = QStringLiteral("\"filas\":[");
  const qsizetype i = r.indexOf(marca), fin = r.lastIndexOf(QStringLiteral("]}"));
  return i < 0 || fin < 0 ? r : r.mid(i + marca.size(), fin - i - marca.size());
}

QString PuestoDeObra::papel(const QString& puerto) const {
  QFile f(ruta() + QStringLiteral("/puertos/") + puerto);
  return f.open(QIODevice::ReadOnly) ? TextoDePapel(f.readAll()) : QString();
}

QStringList PuestoDeObra::renglones() const {
  QString todo = papel() + papel(QStringLiteral("LPT2"));
  for (const auto& f : QDir(ruta() + QStringLiteral("/impresos")).entryInfoList(QDir::Files))
    todo += leerTexto(f.filePath());
  return todo.remove(u'\r').split(u'\n');
}

QStringList PuestoDeObra::numeros() const {
  static const QRegularExpression nro(QStringLiteral("TK NRO: \\d+-(\\d+)"));
  QStringList r;
  for (auto i = nro.globalMatch(papel()); i.hasNext();) r << i.next().captured(1);
  return r;
}
