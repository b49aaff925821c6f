#include "platform/io/puertos_sistema.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "apoyo/impresora_doble.h"
#include "platform/io/estado_impresora.h"
#include "platform/io/linea_impresora.h"
#include "platform/io/perfil.h"

namespace {

class ImpresorasFalsas final : public ImpresorasSistema {
 public:
  QStringList lista, impreso;
  QStringList nombres() override { return lista; }
  QString porDefecto() override { return lista.isEmpty() ? QString() : lista.back(); }
  std::optional<QString> imprimir(const QString& impresora, const QString&, int, const DocumentoImpreso&) override {
    impreso << impresora;
    return {};
  }
  std::optional<QString> escribirPdf(const QString& archivo, const QString&, int, const DocumentoImpreso&) override {
    impreso << QFileInfo(archivo).fileName();
    return {};
  }
};

class PuertosDelEquipo : public testing::Test {
 protected:
  QString ruta(const char* nombre) const { return carpeta_.filePath(QString::fromUtf8(nombre)); }
  void poner(const QString& archivo, const QByteArray& bytes) {
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
  QByteArray bytes(const char* nombre) const {
    QFile f(ruta(nombre));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no file)");
  }
  void mapear(const char* seccion, const char* clave, const char* valor) {
    ASSERT_EQ(std::nullopt, EscribirPerfil(ruta("KEB.cfg"), QString::fromUtf8(seccion), QString::fromUtf8(clave),
                                           QString::fromUtf8(valor)));
  }
  QString copiar(const char* puerto) {
    return puertos_.copiar(ruta("x.prn"), QString::fromUtf8(puerto)).value_or(QString());
  }
  void SetUp() override { poner(ruta("x.prn"), QByteArray("\x1b@\0\xF1\r\n", 6)); }

  QTemporaryDir carpeta_;
  ImpresorasFalsas sistema_;
  PuertosSistema puertos_{carpeta_.path(), &sistema_};
};

TEST_F(PuertosDelEquipo, APortWithoutMapIsARollOfPaper) {
  const QByteArray una("\x1b@\0\xF1\r\n", 6);
  // clang-format off
  const struct { const char *puerto, *archivo; } kCasos[] = {
      {"LPT1", "puertos/LPT1"}, {"COM1:", "puertos/COM1_"}, {"\\\\srv\\tick", "puertos/__srv_tick"},
      {"../afuera", "puertos/.._afuera"}, {"..", "puertos/_"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.puerto);
    EXPECT_EQ(QString(), copiar(c.puerto));
    EXPECT_EQ(una, bytes(c.archivo));
    puertos_.enviarSinEsperar(ruta("x.prn"), QString::fromUtf8(c.puerto));
    EXPECT_EQ(una + una, bytes(c.archivo));
  }
}

TEST_F(PuertosDelEquipo, TheMapNamesADeviceOrAFile) {
  mapear("PUERTOS", "lpt1", "rollos/uno.bin");
  mapear("PUERTOS", "COM2", "dos.bin");
  EXPECT_EQ(QString(), copiar("LPT1"));
  EXPECT_EQ(QString(), copiar("COM2:"));
  EXPECT_EQ(6, bytes("rollos/uno.bin").size());
  EXPECT_EQ(6, bytes("dos.bin").size());
}

TEST_F(PuertosDelEquipo, AFailureComesAsWords) {
  // clang-format off
  const struct { const char *puerto, *destino, *palabra; } kCasos[] = {
      {"LLENO", "/dev/full", "espacio"},
      {"FALTA", "/dev/no-hay-tal-lp0", "no existe"},
      {"CARPETA", "/dev", "carpeta"},
      {"", nullptr, "no tiene puerto"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.puerto);
    if (c.destino) mapear("PUERTOS", c.puerto, c.destino);
    EXPECT_TRUE(copiar(c.puerto).contains(QString::fromUtf8(c.palabra))) << qPrintable(copiar(c.puerto));
  }
  EXPECT_FALSE(QFile::exists(QStringLiteral("/dev/no-hay-tal-lp0")));  // a missing device is never made a file
  EXPECT_TRUE(puertos_.copiar(ruta("nada.prn"), QStringLiteral("LPT1")).value_or(QString()).contains(u"nada.prn"));
}

TEST_F(PuertosDelEquipo, AReaderThatHangsUpDoesNotEndTheTill) {
  const QByteArray tubo = QFile::encodeName(ruta("tubo"));
  ASSERT_EQ(0, ::mkfifo(tubo.constData(), 0600));
  mapear("PUERTOS", "TUBO", "tubo");
  EXPECT_TRUE(copiar("TUBO").contains(QStringLiteral("conectado")));  // nobody reads
  const int lector = ::open(tubo.constData(), O_RDONLY | O_NONBLOCK);
  EXPECT_EQ(QString(), copiar("TUBO"));
  ::close(lector);
  EXPECT_TRUE(copiar("TUBO").contains(QStringLiteral("conectado")));
}

TEST_F(PuertosDelEquipo, PrintersComeInTheirOrder) {
  const auto lista = [this] {
    QStringList l;
    for (const auto& i : puertos_.impresoras()) l << i.nombre + u'=' + i.puerto;
    return l.join(u' ');
  };
  EXPECT_EQ(QStringLiteral("Impresora PDF=LPT1"), lista());
  EXPECT_EQ(QStringLiteral("Impresora PDF"), puertos_.impresoraPorDefecto());
  mapear("IMPRESORAS", "Ticketera", "LPT2");
  mapear("IMPRESORAS", "Laser", "COM1:");
  EXPECT_EQ(QStringLiteral("Ticketera=LPT2 Laser=COM1:"), lista());
  sistema_.lista = {QStringLiteral("Laser"), QStringLiteral("Otra")};
  EXPECT_EQ(QStringLiteral("Laser=COM1: Otra=LPT1 Ticketera=LPT2"), lista());
  EXPECT_EQ(QStringLiteral("Otra"), puertos_.impresoraPorDefecto());
}

TEST_F(PuertosDelEquipo, DriverPrintsOfOwnPrintersAreKeptAsDocuments) {
  mapear("IMPRESORAS", "Ticketera", "LPT2");
  sistema_.lista = {QStringLiteral("Otra")};
  const QStringList textos{QStringLiteral("Señal\r\n2"), QStringLiteral(" ")};
  const auto imprimir = [&](PuertosSistema& p, const char* impresora) {
    return p.imprimir(QString::fromUtf8(impresora), QStringLiteral("Courier New"), 8, textos).value_or(QString());
  };
  EXPECT_EQ(QString(), imprimir(puertos_, "Ticketera"));
  EXPECT_EQ(QByteArray("Se\xF1"
                       "al\r\n2\r\n \r\n"),
            bytes("impresos/Ticketera_000001.txt"));
  PuertosSistema otraVez(carpeta_.path());  // the numbers go on, a document is never overwritten
  EXPECT_EQ(QString(), imprimir(otraVez, "Ticketera"));
  EXPECT_TRUE(QFile::exists(ruta("impresos/Ticketera_000002.txt")));
  EXPECT_EQ(QString(), imprimir(puertos_, "Otra"));
  EXPECT_EQ(QStringLiteral("Ticketera_000001.pdf Otra"), sistema_.impreso.join(u' '));
  EXPECT_TRUE(imprimir(puertos_, "Ninguna").contains(QStringLiteral("Ninguna")));
}

using Doble = ImpresoraDoble;

class PrinterOn : public PuertosDelEquipo, public testing::WithParamInterface<Doble::Linea> {};
INSTANTIATE_TEST_SUITE_P(Lines, PrinterOn, testing::Values(Doble::Linea::Terminal, Doble::Linea::Red),
                         [](const auto& l) { return l.param == Doble::Linea::Red ? "Network" : "Terminal"; });

// What hinders it is told in words, and it gets nothing then.
TEST_P(PrinterOn, IsAskedHowItIs) {
  Doble doble(GetParam());
  ASSERT_EQ(std::nullopt, puertos_.llevar(QStringLiteral("LPT1"), doble.lugar()));
  EXPECT_EQ(doble.lugar(), puertos_.lugarDe(QStringLiteral("LPT1")));
  const QByteArray una("\x1b@\0\xF1\r\n", 6);
  const struct {
    Doble::Animo animo;
    const char* palabra;
    int papeles;
  } kCasos[] = {
      {Doble::Animo::Bien, "", 1},
      {Doble::Animo::SinPapel, "no tiene papel", 1},
      {Doble::Animo::TapaAbierta, "tapa", 1},
      {Doble::Animo::FueraDeLinea, "fuera de línea", 1},
      {Doble::Animo::Bien, "", 2},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.palabra);
    doble.animo = c.animo;
    const QString palabras = copiar("LPT1");
    if (*c.palabra == 0) EXPECT_EQ(QString(), palabras);
    else EXPECT_TRUE(palabras.contains(QString::fromUtf8(c.palabra))) << qPrintable(palabras);
    EXPECT_EQ(una.repeated(c.papeles), doble.papel(6 * c.papeles));
  }
}

TEST_P(PrinterOn, ThatAnswersNothingIsAskedOnceAndPrints) {
  Doble doble(GetParam());
  doble.animo = Doble::Animo::Mudo;
  const QString lugar = doble.lugar();
  for (int n : {1, 2}) {
    EXPECT_EQ(std::nullopt, puertos_.copiar(ruta("x.prn"), lugar)) << n;
    EXPECT_EQ(6 * n, doble.papel(6 * n).size());
  }
  EXPECT_EQ(4, doble.preguntas());
}

TEST_F(PuertosDelEquipo, APrinterThatIsAwayOrTakesNothingIsGivenUpAndTold) {
  QString esperado;
  int ms = 0;
  puertos_.alEsperar = [&](const QString& que, int van) {
    esperado = que;
    ms = std::max(ms, van);
  };
  QString lugar;
  {
    const Doble doble(Doble::Linea::Red);
    lugar = doble.lugar();
  }
  EXPECT_TRUE(puertos_.copiar(ruta("x.prn"), lugar)->contains(QStringLiteral("no responde en la red")));
  EXPECT_TRUE(puertos_.copiar(ruta("x.prn"), QStringLiteral("tcp:ticketera:9100"))->contains(u"en números"));
  Doble doble(Doble::Linea::Red);
  doble.animo = Doble::Animo::Atascada;
  poner(ruta("x.prn"), QByteArray(16 << 20, 'x'));
  EXPECT_TRUE(puertos_.copiar(ruta("x.prn"), doble.lugar())->contains(QStringLiteral("no recibe más datos")));
  EXPECT_GE(ms, 9'000);
  EXPECT_EQ(QString(), esperado) << "the wait is over";
}

TEST_F(PuertosDelEquipo, FindsDevicesAndQueues) {
  QDir(carpeta_.path()).mkpath(QStringLiteral("dev/usb"));
  for (const char* f : {"dev/usb/lp1", "dev/usb/lp0", "dev/ttyUSB0", "dev/lp0", "dev/tty1", "dev/null"})
    poner(ruta(f), "");
  sistema_.lista = {QStringLiteral("Oficina")};
  PuertosSistema puertos(carpeta_.path(), &sistema_, ruta("dev"));
  QStringList lugares = puertos.lugares();
  lugares.replaceInStrings(ruta("dev"), QStringLiteral("/dev"));
  EXPECT_EQ(QStringLiteral("/dev/usb/lp0 /dev/usb/lp1 /dev/lp0 /dev/ttyUSB0 cola:Oficina"), lugares.join(u' '));
}

}  // namespace
