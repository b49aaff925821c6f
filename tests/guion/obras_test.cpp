// Plays every screenplay of obras/ on the small program of escenario.cpp and compares what it writes with the file
// beside it, which ends with the exit status.
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtEndian>
#include <gtest/gtest.h>

#include "obra.h"

namespace {

const QString kObras = QStringLiteral(TARVOPOS_FUENTES "/tests/guion/obras");

QString enEscena(const QStringList& argumentos, const QByteArray& entrada = {}) {
  return tocar(carpetaDePruebas() + QStringLiteral("/escenario_guion"), argumentos, entrada);
}

class Obra : public testing::TestWithParam<QString> {};

TEST_P(Obra, WritesWhatWeExpect) {
  const QString base = kObras + u'/' + GetParam();
  EXPECT_EQ("", primeraDiferencia(leerTexto(base + QStringLiteral(".salida")),
                                  enEscena({base + QStringLiteral(".guion")})));
}

INSTANTIATE_TEST_SUITE_P(Obras, Obra, testing::ValuesIn(obrasDe(kObras)),
                         [](const auto& obra) { return obra.param.toStdString(); });

TEST(Obras, AnActionThatCannotBeDoneEndsThePlay) {
  const struct { const char *pantalla, *accion, *razon; } kCasos[] = {
      {"", "clic cmdA", "no hay ninguna pantalla; falta «inicia»"},
      {"", "tecla F5", "no hay ninguna pantalla; falta «inicia»"},
      {"", "captura a", "no hay ninguna pantalla; falta «inicia»"},
      {"", "termina", "el programa no está en marcha"},
      {"", "reloj 31/02/2026 10:00:00", "«31/02/2026 10:00:00» no es una fecha dd/mm/aaaa hh:mm:ss"},
      {"", "reloj 1/2/2026 10:00:00", "«1/2/2026 10:00:00» no es una fecha dd/mm/aaaa hh:mm:ss"},
      {"", "pasa -1", "«-1» no es un número de segundos"},
      {"", "responde Quizá", "«Quizá» no es Sí, No, Aceptar ni Cancelar"},
      {"", "cae impresora", "se escribe central, cliente o puerto NOMBRE"},
      {"", "falla desde", "se escribe N o desde N"},
      {"", "mata luego 1", "se escribe antes o despues, no «luego»"},
      {"frmPrincipal", "inicia", "el programa ya está en marcha"},
      {"frmPrincipal", "clic mnu(4)", "mnu(4) está inactivo"},
      {"frmPrincipal", "clic mnu(5)", "mnu(5) está oculto"},
      {"frmPrincipal", "clic cmdNo", "no hay ningún control «cmdNo» en frmPrincipal"},
      {"frmPrincipal", "fila lblCentro 1", "lblCentro no es una lista ni una rejilla"},
      {"frmPrincipal", "tecla Ctrl+Nada", "«Ctrl+Nada» no es una tecla"},
      {"frmPrincipal", "captura ../fuera", "«../fuera» no sirve como nombre de archivo"},
      {"frmCampos", "clic mnu(1)", "no hay ningún control «mnu(1)» en frmCampos"},
      {"frmCampos", "clic cmdOculto", "cmdOculto está oculto"},
      {"frmCampos", "escribe txtInactivo 1", "txtInactivo está inactivo"},
      {"frmCampos", "escribe txtFijo 1", "txtFijo está fijo"},
      {"frmCampos", "escribe cmdOculto 1", "cmdOculto está oculto"},
      {"frmCampos", "elige cboTipo VALE", "cboTipo no tiene la entrada «VALE»"},
      {"frmCampos", "marca txtLibre si", "txtLibre no se marca"},
      {"frmCampos", "marca chkServicio tal", "se escribe si o no, no «tal»"},
      {"frmListas", "celda grdLineas 3 1 9", "grdLineas no tiene la fila 3; tiene 2"},
      {"frmListas", "celda grdLineas 0 1 9", "«0» no es un número entero desde 1"},
      {"frmListas", "celda grdLineas 1 3 9", "grdLineas no tiene la columna 3"},
      {"frmListas", "celda grdLineas 1 0 9", "la columna 0 de grdLineas no se puede editar"},
      {"frmListas", "fila lvwTX 1", "lvwTX está oculto"},
      {"frmListas", "dobleclic lstVacia 1", "lstVacia no tiene la fila 1; tiene 0"},
      {"frmListas", "elige SSTab1 Otra", "SSTab1 no tiene la entrada «Otra»"},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.accion);
    QByteArray obra, salida;
    int linea = 1;
    const auto antes = [&](const QByteArray& accion) {
      obra += accion + '\n';
      salida += "ok\n";
      ++linea;
    };
    const QByteArray pantalla = c.pantalla;
    if (!pantalla.isEmpty()) antes("inicia");
    if (pantalla == "frmCampos") antes("clic mnu(2)");
    if (pantalla == "frmListas") antes("clic mnu(3)");
    obra += QByteArray(c.accion) + "\nlee frmPrincipal\n";
    salida += "línea " + QByteArray::number(linea) + ": " + c.razon + "\n[estado 1]\n";
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
  return QStringLiteral("%1x%2").arg(qFromBigEndian<quint32>(b.constData() + 16))
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
