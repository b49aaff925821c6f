// A shop of desks, each a process of its own, through days on one server with everything that breaks: forty of them
// here, a thousand behind TARVOPOS_LARGO.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

namespace {

struct Corrida {
  int estado = -1;
  QString dicho;
};

Corrida simular(const QStringList& argumentos) {
  const QString aqui = QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).path();
  QProcess p;
  p.setProcessChannelMode(QProcess::MergedChannels);
  p.start(aqui + QStringLiteral("/../bin/tarvopos-admin"), QStringList{QStringLiteral("simular")} + argumentos);
  const bool acaba = p.waitForFinished(-1);
  return {acaba && p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1, QString::fromUtf8(p.readAll())};
}

TEST(Simulacion, CentreStoresAndPapersAgreeWhateverBreaks) {
  const bool largo = qEnvironmentVariableIsSet("TARVOPOS_LARGO");
  const QString semilla = qEnvironmentVariable("TARVOPOS_SEMILLA", QStringLiteral("5"));
  const Corrida c = simular({QStringLiteral("--puestos"), largo ? QStringLiteral("8") : QStringLiteral("4"),
                             QStringLiteral("--dias"), largo ? QStringLiteral("125") : QStringLiteral("10"),
                             QStringLiteral("--operaciones"), largo ? QStringLiteral("12") : QStringLiteral("6"),
                             QStringLiteral("--semilla"), semilla});
  EXPECT_EQ(0, c.estado) << qPrintable(c.dicho);
  EXPECT_TRUE(c.dicho.contains(QStringLiteral("Sin diferencias."))) << qPrintable(c.dicho);
}

}  // namespace
