// Plays every screenplay of obras/ on the small program of escenario.cpp and compares what it writes with the file
// beside it, which ends with the exit status.
#include <gtest/gtest.h>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>

#include "apoyo/casos.h"
#include "obra.h"

namespace {

const QString kObras = QStringLiteral(TARVOPOS_FUENTES "/tests/guion/obras");

QString enEscena(const QStringList& argumentos, const QByteArray& entrada = {}) {
  return tocar(carpetaDePruebas() + QStringLiteral("/escenario_guion"), argumentos, entrada);
}

class Obra : public testing::TestWithParam<QString> {};

TEST_P(Obra, WritesWhatWeExpect) {
  const QString base = kObras + u'/' + GetParam();
  EXPECT_EQ(
      "", primeraDiferencia(leerTexto(base + QStringLiteral(".salida")), enEscena({base + QStringLiteral(".guion")})));
}

INSTANTIATE_TEST_SUITE_P(Obras, Obra, testing::ValuesIn(obrasDe(kObras)),
                         [](const auto& obra) { return obra.param.toStdString(); });

TEST(Obras, AnActionThatCannotBeDoneEndsThePlay) {
  for (const auto& c : leerCasos("guion/no_se_puede")) {
    SCOPED_TRACE(c.donde());
    QByteArray obra, salida;
    int linea = 1;
    const auto antes = [&](const QByteArray& accion) {
      obra += accion + '\n';
      salida += "ok\n";
      ++linea;
    };
    const QString pantalla = c["pantalla"];
    if (!pantalla.isEmpty()) antes("inicia");
    if (pantalla == "frmCampos") antes("clic mnu(2)");
    if (pantalla == "frmListas") antes("clic mnu(3)");
    obra += c["accion"].toUtf8() + "\nlee frmPrincipal\n";
    salida += "línea " + QByteArray::number(linea) + ": " + c["razon"].toUtf8() + "\n[estado 1]\n";
    EXPECT_EQ("", primeraDiferencia(QString::fromUtf8(salida), enEscena({QStringLiteral("-")}, obra)));
  }
}

TEST(Obras, AScreenThatDoesNotComeIsWaitedForTenSeconds) {
  QElapsedTimer reloj;
  reloj.start();
  EXPECT_EQ(enEscena({QStringLiteral("-")}, "inicia\nespera frmOtra\n"),
            QStringLiteral("ok\nlínea 2: no apareció frmOtra: está frmPrincipal\n[estado 1]\n"));
  EXPECT_GE(reloj.elapsed(), 10'000);
}

// Width and height as a PNG file tells them, "" for any other file.
QString medidas(const QString& archivo) {
  QFile f(archivo);
  if (!f.open(QIODevice::ReadOnly)) return {};
  const QByteArray b = f.read(24);
  if (b.size() < 24 || !b.startsWith("\x89PNG\r\n\x1a\n")) return {};
  return QStringLiteral("%1x%2")
      .arg(qFromBigEndian<quint32>(b.constData() + 16))
      .arg(qFromBigEndian<quint32>(b.constData() + 20));
}

TEST(Obras, PicturesShowTheActiveScreenOnOneOf1024By768) {
  const QTemporaryDir carpeta;
  const QString fotos = carpeta.filePath(QStringLiteral("a/b"));
  EXPECT_EQ(enEscena({QStringLiteral("-"), fotos}, "inicia\ncaptura todo\nclic mnu(1)\ncaptura hija\n"),
            QStringLiteral("ok\nok\nok\nok\n* hija 1 cerró con 0\n[estado 0]\n"));
  EXPECT_EQ(medidas(fotos + QStringLiteral("/todo.png")), "1024x768");
  EXPECT_NE(medidas(fotos + QStringLiteral("/hija.png")), "");
  EXPECT_NE(medidas(fotos + QStringLiteral("/hija.png")), "1024x768");
}

// Another program plays the cashier: each line is answered before the next one is sent.
TEST(Obras, EachLineIsAnsweredAtOnceOverAPipe) {
  QProcess p;
  p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
  entorno.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  p.setProcessEnvironment(entorno);
  p.start(carpetaDePruebas() + QStringLiteral("/escenario_guion"), {QStringLiteral("-")});
  const auto pedir = [&](const QByteArray& linea) {
    p.write(linea + '\n');
    QByteArray r;
    while (!r.endsWith("ok\n") && p.waitForReadyRead(20'000)) r += p.readAllStandardOutput();
    return QString::fromUtf8(r);
  };
  EXPECT_EQ(pedir("inicia"), "ok\n");
  EXPECT_EQ(pedir("clic mnu(1)"), "ok\n");
  EXPECT_EQ(pedir("# nada\nlee txtDato"), "txtDato=viejo\nok\n");
  EXPECT_EQ(pedir("tecla Esc"), "* hija 1 cerró con 0\ncaja|TarvoPos|De vuelta|Aceptar\nok\n");
  EXPECT_EQ(pedir("clic mnu(1)"), "ok\n");
  p.closeWriteChannel();
  EXPECT_TRUE(p.waitForFinished(20'000));
  EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(p.exitCode(), 0);
  EXPECT_EQ(p.readAllStandardOutput(), QByteArray("* hija 1 cerró con 0\n"));
}

}  // namespace
