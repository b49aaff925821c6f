#include "foundation/respaldo.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "apoyo/puesto_prueba.h"
#include "foundation/disco.h"
#include "foundation/estado_linea.h"
#include "platform/io/perfil.h"

namespace {

QString q(const char* t) { return QString::fromUtf8(t); }

void escribir(const QString& archivo, const QByteArray& contenido) {
  QDir().mkpath(QFileInfo(archivo).absolutePath());
  QFile f(archivo);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write(contenido);
}

QByteArray bytes(const QString& archivo) {
  QFile f(archivo);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no file)");
}

ino_t identidad(const QString& archivo) {
  struct stat s {};
  return ::stat(qPrintable(archivo), &s) == 0 ? s.st_ino : 0;
}

class RespaldoTest : public testing::Test {
 protected:
  RespaldoTest() {
    EXPECT_FALSE(
        EscribirPerfil(p.rutas.enPrograma(q("KEB.cfg")), q("INICIO"), q("DataServer"), q("sqlite:central.db")));
    EXPECT_FALSE(EscribirPerfil(p.rutas.enPrograma(q("KEB.cfg")), q("PARAMETROS"), q("Caja"), q("00001")));
    escribir(p.rutas.enPrograma(q("puertos/LPT1")), "papel de ayer");
    escribir(p.rutas.enPrograma(q("impresos/000001.txt")), "un retiro");
  }
  ResultadoRespaldo copiar() {
    p.elReloj().ahora = p.elReloj().ahora.addSecs(60);
    return CopiarPuesto(p.rutas, p.elReloj().ahora, MotivoRespaldo::Cierre);
  }
  void otraCarpeta(const QString& cual) {
    EXPECT_FALSE(EscribirPerfil(p.rutas.enPrograma(q("KEB.cfg")), q("RESPALDO"), q("Carpeta"), cual));
  }
  PuestoPrueba p;
};

TEST_F(RespaldoTest, ACopyIsTheWholeDeskAndSharesWhatHasNotChanged) {
  p.ejecuta(q("INSERT INTO Operacion (cOperCode) VALUES (7)"));
  const ResultadoRespaldo primera = copiar();
  ASSERT_EQ(QStringList(), primera.fallos);
  ASSERT_EQ(1, primera.copias.size());
  escribir(p.rutas.enPrograma(q("puertos/LPT1")), "papel de ayer y de hoy");
  const ResultadoRespaldo segunda = copiar();
  ASSERT_EQ(1, segunda.copias.size());
  const QString a = primera.copias[0] + u'/', b = segunda.copias[0] + u'/';
  EXPECT_EQ(q("KEB.cfg TarvoPos.mdb central.db impresos puertos respaldo.txt"),
            QDir(a).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name).join(u' '));
  EXPECT_EQ("papel de ayer", bytes(a + q("puertos/LPT1")));
  EXPECT_EQ("papel de ayer y de hoy", bytes(b + q("puertos/LPT1")));
  EXPECT_EQ(identidad(a + q("impresos/000001.txt")), identidad(b + q("impresos/000001.txt")));
  EXPECT_NE(identidad(p.rutas.enPrograma(q("impresos/000001.txt"))), identidad(b + q("impresos/000001.txt")));
  Conexion copia;
  ASSERT_FALSE(copia.abrir(p.motores, q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + b + q("TarvoPos.mdb"), 100));
  EXPECT_EQ(q("7"), p.filas(copia, q("SELECT cOperCode FROM Operacion")));
}

TEST_F(RespaldoTest, TheLastThirtyStayAndWhatIsNoCopyIsLeftAlone) {
  const QString carpeta = p.rutas.enPrograma(q("respaldos"));
  escribir(carpeta + q("/TarvoPos-v0-20261101-090000.mdb"), "de una actualización");
  escribir(carpeta + q("/20200101-000000-cierre/nota.txt"), "a medias");
  for (int i = 0; i < kCopiasGuardadas + 2; ++i) ASSERT_EQ(QStringList(), copiar().fallos);
  const QStringList quedan = CopiasEn(carpeta);
  EXPECT_EQ(kCopiasGuardadas, quedan.size());
  EXPECT_EQ(q("20261124-110215-cierre"), quedan.front());
  EXPECT_EQ(q("20261124-103315-cierre"), quedan.back());
  EXPECT_TRUE(QFileInfo::exists(carpeta + q("/TarvoPos-v0-20261101-090000.mdb")));
  EXPECT_TRUE(QFileInfo::exists(carpeta + q("/20200101-000000-cierre/nota.txt")));
}

TEST_F(RespaldoTest, ASecondFolderIsServedAndMissedOnTheStatusLine) {
  const QString otra = p.ruta() + q("/usb");
  otraCarpeta(otra);
  RespaldarSesion(p, MotivoRespaldo::Apertura);
  EXPECT_EQ(q("Falta una copia de respaldo"), EstadoDelPuesto(p).aviso);
  EXPECT_EQ(1, CopiasEn(p.rutas.enPrograma(q("respaldos"))).size());
  EXPECT_FALSE(QFileInfo::exists(otra)) << "nothing is made in the place of a disk that is not plugged in";
  QDir().mkpath(otra);
  p.elReloj().ahora = p.elReloj().ahora.addSecs(60);
  RespaldarSesion(p, MotivoRespaldo::Cierre);
  EXPECT_EQ(QString(), EstadoDelPuesto(p).aviso);
  EXPECT_EQ(1, CopiasEn(otra + q("/caja-00001")).size());
}

TEST_F(RespaldoTest, AFailedCopyLeavesNothingAndIsToldAndLogged) {
  escribir(p.rutas.enPrograma(q("respaldos")), "un archivo en su sitio");
  RespaldarSesion(p, MotivoRespaldo::Cierre);
  EXPECT_EQ(q("No se hizo la copia de respaldo"), EstadoDelPuesto(p).aviso);
  EXPECT_TRUE(bytes(p.rutas.enPrograma(q("Err_20261124.log"))).contains("Copia de respaldo: no se puede crear"));
  QFile::remove(p.rutas.enPrograma(q("respaldos")));
  QFile::remove(p.rutas.enPrograma(q("KEB.cfg")));
  EXPECT_EQ(1, copiar().fallos.size());
  EXPECT_EQ(QStringList(), QDir(p.rutas.enPrograma(q("respaldos"))).entryList(QDir::AllEntries | QDir::NoDotAndDotDot));
}

TEST_F(RespaldoTest, LittleDiskAndAnOvergrownLogAreSaidBeforeTheyHurt) {
  p.ses.psRutaBD = p.rutas.enPrograma(q("TarvoPos.mdb"));
  RevisarDisco(p, {.poco = 1, .diario = 1'000'000'000});
  EXPECT_EQ(QString(), EstadoDelPuesto(p).aviso);
  RevisarDisco(p, {.poco = 1'000'000'000'000'000, .diario = 1'000'000'000});
  EXPECT_TRUE(EstadoDelPuesto(p).aviso.startsWith(q("Disco casi lleno: quedan ")))
      << EstadoDelPuesto(p).aviso.toStdString();
  p.ejecuta(q("INSERT INTO Operacion (cOperCode) VALUES (7)"));
  ASSERT_GT(QFileInfo(p.ses.psRutaBD + q("-wal")).size(), 0);
  Conexion otro;
  ASSERT_FALSE(otro.abrir(p.motores, q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + p.ses.psRutaBD, 100));
  ASSERT_FALSE(otro.iniciar());
  RevisarDisco(p, {.poco = 1, .diario = 1});
  EXPECT_TRUE(EstadoDelPuesto(p).aviso.startsWith(q("Diario de ventas sin recoger: ")));
  ASSERT_FALSE(otro.deshacer());
  RevisarDisco(p, {.poco = 1, .diario = 1});
  EXPECT_EQ(QString(), EstadoDelPuesto(p).aviso);
  EXPECT_EQ(0, QFileInfo(p.ses.psRutaBD + q("-wal")).size());
  EXPECT_EQ(q("850 KB 12 MB 3 GB"), EnBytes(850'999) + u' ' + EnBytes(12'345'678) + u' ' + EnBytes(3'999'999'999));
}

}  // namespace
