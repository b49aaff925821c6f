#include "app/arranque.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "apoyo/puesto_prueba.h"
#include "app/primer_inicio.h"
#include "foundation/estado_linea.h"
#include "platform/io/perfil.h"

namespace {

const QString kAlmacen = QStringLiteral("TarvoPos.mdb");

// A desk as it lies on the disk before its program starts, with both servers embedded.
class ArranqueTest : public testing::Test {
 protected:
  ArranqueTest() {
    p.ejecuta(
        QStringLiteral("UPDATE Configuracion SET DataServer='sqlite:central.db', ServidorSQL='sqlite:cliente.db', "
                       "cCodiTurno='02', sImpresora='Ticketera', sImpresoraAlterna='', nFlagCortaPapel=1, "
                       "nFlagCortaPapelALT=0"));
    Conexion central = abrir(p.ses.psConexionCentral);
    p.ejecuta(central, QStringLiteral("DELETE FROM parametro"));
    p.ejecuta(central, QStringLiteral("INSERT INTO parametro (cCodParam, nmonto1) VALUES ('IGV', 18)"));
  }

  Conexion abrir(const QString& cadena) {
    Conexion c;
    EXPECT_FALSE(c.abrir(p.motores, cadena, 1000));
    return c;
  }

  void arrancar() {
    p.poCnnLocal.cerrar();
    Arrancar(p, pasos);
  }

  // Starts a program that must end, and by a failure.
  void arrancaYTermina() {
    try {
      arrancar();
      ADD_FAILURE() << "the start went on";
    } catch (const ProcesoTerminado& fin) {
      EXPECT_NE(0, fin.estado);
    }
  }

  void abrirLocal() {
    ASSERT_FALSE(p.poCnnLocal.abrir(
        p.motores, QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + enCarpeta(kAlmacen), 1000));
  }

  QString enCarpeta(const QString& nombre) { return p.rutas.enPrograma(nombre); }
  QByteArray bytes(const QString& nombre) {
    QFile f(enCarpeta(nombre));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    return f.readAll();
  }
  void escribir(const QString& nombre, const QByteArray& contenido) {
    QFile f(enCarpeta(nombre));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(contenido);
  }

  PuestoPrueba p;
  PasosArranque pasos;
};

TEST_F(ArranqueTest, TheSessionIsReadAndTheStepsOfOtherRoomsAreCalled) {
  QStringList llamadas;
  pasos.enviarPendientes = [&](Puesto& q) { llamadas += q.ses.pbClienteConectado ? u"pendientes"_qs : u"cerrado"_qs; };
  pasos.sincronizar = [&](Puesto& q) {
    EXPECT_TRUE(q.ses.pbSincronizaMaestros);
    EXPECT_FALSE(q.ses.pbSincronizaCierre);
    llamadas += u"sincronizar"_qs;
  };
  arrancar();
  EXPECT_EQ((QStringList{u"pendientes"_qs, u"sincronizar"_qs}), llamadas);
  EXPECT_DOUBLE_EQ(0.18, p.ses.pnIGV);
  EXPECT_EQ(u"0.18"_qs, LeerPerfil(p.ses.psArchivoCfg, u"PARAMETROS"_qs, u"nIGV"_qs));
  EXPECT_EQ(u"02"_qs, p.ses.psTurno);
  EXPECT_EQ(u"Ticketera"_qs, p.ses.kPAR_IMPRESORA);
  EXPECT_EQ(u"Ticketera"_qs, p.ses.kPAR_IMPRESORA_ALTERNA);  // blank: the system's default printer
  EXPECT_EQ(1, p.ses.pnCortaPapel);
  EXPECT_EQ(0, p.ses.pnCortaPapelAlterna);
  EXPECT_EQ(u"SER-2"_qs, p.ses.psSerieImpresoraAlterna);
  EXPECT_FALSE(p.ses.pbClienteConectado);
}

TEST_F(ArranqueTest, DailyLogsOfThreeMonthsAreKept) {
  const QStringList viejos{QStringLiteral("Err_20250101.log"), QStringLiteral("Imp_20250101.log"),
                           QStringLiteral("Sincro_20250101.log")};
  const QString hoy = p.reloj.now().date().addDays(-90).toString(QStringLiteral("yyyyMMdd"));
  const QStringList quedan{QStringLiteral("Err_%1.log").arg(hoy), QStringLiteral("Err_nota.log"),
                           QStringLiteral("Imp_20259999.log"), QStringLiteral("Otro_20250101.log")};
  for (const QString& f : viejos + quedan) ASSERT_TRUE(QFile(p.ruta() + u'/' + f).open(QIODevice::WriteOnly));
  arrancar();
  for (const QString& f : viejos) EXPECT_FALSE(QFile::exists(p.ruta() + u'/' + f)) << qPrintable(f);
  for (const QString& f : quedan) EXPECT_TRUE(QFile::exists(p.ruta() + u'/' + f)) << qPrintable(f);
}

TEST_F(ArranqueTest, OnlyAFinishedOrUnknownClosingIsReset) {
  const struct { const char *guardado, *queda; } kCasos[] = {{"6", "0"}, {"3", "3"}, {"Null", "0"}, {"0", "0"}};
  for (const auto& c : kCasos) {
    p.ejecuta(QStringLiteral("UPDATE Configuracion SET iCierreCaja=%1").arg(QString::fromLatin1(c.guardado)));
    arrancar();
    EXPECT_EQ(QString::fromLatin1(c.queda), p.filas(u"SELECT iCierreCaja FROM Configuracion"_qs)) << c.guardado;
  }
}

TEST_F(ArranqueTest, AClientDatabaseThatIsAwayIsToldAndTheStartGoesOn) {
  p.ejecuta(QStringLiteral("UPDATE Configuracion SET ServidorSQL='sqlite:noesta.db'"));
  p.persona().espera(QStringLiteral("No se pudo conectar a la Base de Datos Cliente.\nLas Operaciones se guardaran "
                                    "temporalmente hasta que se restablesca la conexión."));
  arrancar();
  EXPECT_TRUE(p.ses.pbClienteCaido);
}

TEST_F(ArranqueTest, AStoreThatIsMissingBrokenOrForeignIsToldAndKeepsItsBytes) {
  p.poCnnLocal.cerrar();
  const QByteArray sano = bytes(kAlmacen);
  ASSERT_GT(sano.size(), 8192);
  // clang-format off
  const struct { const char* porque; QByteArray contenido; } kCasos[] = {
      {"empty", {}},
      {"cut inside the first page", sano.left(700)},
      {"cut in the middle", sano.left(sano.size() / 2 / 4096 * 4096)},
      {"a text", "no soy una base de datos, pero soy bastante largo para parecer una\n"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    escribir(kAlmacen, c.contenido);
    p.persona().espera(QStringLiteral("No se pudo conectar a la BD"));
    arrancaYTermina();
    EXPECT_EQ(c.contenido, bytes(kAlmacen));
  }
  QFile::remove(enCarpeta(kAlmacen));
  p.persona().espera(QStringLiteral("Base de Datos TarvoPos.mdb no existe en la ruta de la aplicación"));
  arrancaYTermina();
  EXPECT_FALSE(QFile::exists(enCarpeta(kAlmacen)));
}

TEST_F(ArranqueTest, AStoreOfAnotherProgramNamesWhatItLacks) {
  p.poCnnLocal.cerrar();
  QFile::remove(enCarpeta(kAlmacen));
  ASSERT_TRUE(QFile::copy(enCarpeta(QStringLiteral("cliente.db")), enCarpeta(kAlmacen)));
  const QByteArray antes = bytes(kAlmacen);
  p.persona().espera(QStringLiteral("Faltan las tablas: "));
  arrancaYTermina();
  EXPECT_EQ(antes, bytes(kAlmacen));
}

// Rights bind nobody who is root, so the start is made as somebody else.
TEST_F(ArranqueTest, ADatabaseThatCanOnlyBeReadIsToldAndStartsOnceItCanBeWritten) {
  for (const char* nombre : {"TarvoPos.mdb", "central.db"}) {
    SCOPED_TRACE(nombre);
    const QString archivo = enCarpeta(QString::fromLatin1(nombre));
    const auto permiso = [](const QString& ruta, mode_t modo) { ASSERT_EQ(0, ::chmod(qPrintable(ruta), modo)); };
    p.poCnnLocal.cerrar();
    p.poCnnCentral.cerrar();
    permiso(p.rutas.programa, 0777);
    permiso(p.rutas.temp, 0777);
    for (const QFileInfo& f : QDir(p.rutas.programa).entryInfoList(QDir::Files)) permiso(f.filePath(), 0666);
    permiso(archivo, 0444);
    const QByteArray antes = bytes(QString::fromLatin1(nombre));
    const uid_t quien = ::geteuid();
    ASSERT_EQ(0, quien == 0 ? ::seteuid(65534) : 0);
    p.persona().dejaPasar(QStringLiteral("No"));  // without the central database: no
    p.persona().vistas.clear();
    arrancaYTermina();
    EXPECT_FALSE(QFile::exists(archivo + QStringLiteral("-shm"))) << "nothing is left that can't be written later";
    // What an earlier program has left behind at such a start.
    for (const char* fin : {"-shm", "-wal"}) {
      QFile f(archivo + QLatin1String(fin));
      ASSERT_TRUE(f.open(QIODevice::WriteOnly));
      permiso(f.fileName(), 0444);
    }
    ASSERT_EQ(0, ::seteuid(quien));
    EXPECT_EQ(antes, bytes(QString::fromLatin1(nombre)));
    permiso(archivo, 0666);
    ASSERT_EQ(0, quien == 0 ? ::seteuid(65534) : 0);
    p.persona().vistas.clear();
    arrancar();
    ASSERT_EQ(0, ::seteuid(quien));
    EXPECT_EQ(0u, p.persona().vistas.size()) << qPrintable(p.persona().vistas.front().texto);
  }
}

TEST_F(ArranqueTest, AStoreThatAnotherProgramHoldsEndsTheStartAtTheFirstBox) {
  p.poCnnLocal.cerrar();
  Conexion otro = abrir(QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + enCarpeta(kAlmacen));
  ASSERT_FALSE(otro.iniciar());
  p.persona().espera(QStringLiteral("La base de datos está ocupada por otro programa."));
  arrancaYTermina();
}

TEST_F(ArranqueTest, ANewerStoreOrServerEndsTheStart) {
  for (const QString& cadena : {p.ses.psConexionCentral, p.ses.psConexionCliente, QString()}) {
    Conexion c = cadena.isEmpty() ? Conexion() : abrir(cadena);
    Conexion& base = cadena.isEmpty() ? p.poCnnLocal : c;
    const QString version = p.filas(base, QStringLiteral("PRAGMA user_version"));
    p.ejecuta(base, QStringLiteral("PRAGMA user_version = 99"));
    c.cerrar();
    p.persona().espera(QStringLiteral("es de la versión 99, más nueva que este programa"));
    arrancaYTermina();
    if (cadena.isEmpty()) continue;
    c = abrir(cadena);
    p.ejecuta(c, QStringLiteral("PRAGMA user_version = ") + version);
    abrirLocal();
  }
}

TEST_F(ArranqueTest, APipeInPlaceOfTheSettingsIsNotWaitedFor) {
  p.poCnnLocal.cerrar();
  QFile::remove(enCarpeta(QStringLiteral("KEB.cfg")));
  ASSERT_EQ(0, ::mkfifo(qPrintable(enCarpeta(QStringLiteral("KEB.cfg"))), 0666));
  p.persona().espera(QStringLiteral("no es un archivo de texto"));
  arrancaYTermina();
}

TEST_F(ArranqueTest, SettingsThatCannotBeReadEndTheStart) {
  p.poCnnLocal.cerrar();
  const QByteArray binario("\x7F"
                           "ELF\0\1\2\3",
                           8);
  escribir(QStringLiteral("KEB.cfg"), binario);
  p.persona().espera(QStringLiteral("no es un archivo de texto"));
  arrancaYTermina();
  EXPECT_EQ(binario, bytes(QStringLiteral("KEB.cfg")));
}

TEST_F(ArranqueTest, WithoutTheCentralDatabaseItAsksOnceAndCatchesUpAtTheFirstContact) {
  int sincronizadas = 0;
  pasos.sincronizar = [&](Puesto&) { ++sincronizadas; };
  p.ejecuta(QStringLiteral("UPDATE Configuracion SET nIGV='0.18'"));
  p.ejecuta(QStringLiteral("UPDATE Config_Documento SET nDocCodigo=7 WHERE cTipoDoc='02'"));
  Conexion central = abrir(p.ses.psConexionCentral);
  p.ejecuta(central, QStringLiteral("UPDATE parametro SET nmonto1=20"));
  p.ejecuta(central, QStringLiteral("INSERT INTO operacion (cOperID, cOperCode, cCajaCodi, CDocSerie, cDoccodigo) "
                                    "VALUES (1,41,'00001','001','000015')"));
  central.cerrar();
  p.poCnnCentral.cerrar();
  ASSERT_TRUE(QFile::rename(enCarpeta(QStringLiteral("central.db")), enCarpeta(QStringLiteral("lejos.db"))));
  const auto numero = [&] {
    return p.filas(QStringLiteral("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='02'"));
  };

  p.persona().espera(QStringLiteral("¿Desea continuar sin el servidor central?"));
  arrancar();
  EXPECT_DOUBLE_EQ(0.18, p.ses.pnIGV);
  EXPECT_FALSE(EstadoDelPuesto(p).central);
  arrancar();  // a change of turn asks nothing
  EXPECT_FALSE(ContactarCentral(p, pasos));
  EXPECT_EQ(0, sincronizadas);
  EXPECT_EQ(QStringLiteral("7"), numero());

  ASSERT_TRUE(QFile::rename(enCarpeta(QStringLiteral("lejos.db")), enCarpeta(QStringLiteral("central.db"))));
  EXPECT_TRUE(ContactarCentral(p, pasos));
  EXPECT_TRUE(ContactarCentral(p, pasos));  // nothing is left
  EXPECT_EQ(1, sincronizadas);
  EXPECT_EQ(QStringLiteral("15"), numero());
  EXPECT_DOUBLE_EQ(0.2, p.ses.pnIGV);
  EXPECT_TRUE(EstadoDelPuesto(p).central);
}

TEST_F(ArranqueTest, WithoutTheCentralDatabaseARefusalOrAnUnknownRateEndsTheStart) {
  p.ejecuta(QStringLiteral("UPDATE Configuracion SET DataServer='sqlite:noesta.db', nIGV='0.18'"));
  p.persona().espera(QStringLiteral("¿Desea continuar sin el servidor central?"), QStringLiteral("No"));
  arrancaYTermina();
  abrirLocal();
  p.ejecuta(QStringLiteral("UPDATE Configuracion SET nIGV=''"));
  QFile::remove(enCarpeta(QStringLiteral("KEB.cfg")));
  p.persona().espera(QStringLiteral("¿Desea continuar sin el servidor central?"));
  p.persona().espera(QStringLiteral("Conéctela una vez con el servidor"));
  p.poCnnLocal.cerrar();
  p.ses.bSinCentral = false;
  EXPECT_THROW(Arrancar(p, pasos), ProcesoTerminado);
}

TEST_F(ArranqueTest, TheFirstStartMakesADeskOrSaysWhatIsWrong) {
  p.rutas = rutasDe(p.ruta() + QStringLiteral("/nueva"));
  EXPECT_TRUE(FaltaElPuesto(p));
  PrimerInicio v;
  QString foco;
  v.txtPassword = v.txtReingresarPassword = QStringLiteral("secreta");
  // clang-format off
  const struct { QString PrimerInicio::*campo; const char *texto, *caja, *foco; } kMalos[] = {
      {&PrimerInicio::txtCaja, " ", "Ingresar código de caja", "txtCaja"},
      {&PrimerInicio::txtReingresarPassword, "secretA", "Password reingresado incorrecto", "txtReingresarPassword"},
      {&PrimerInicio::txtServicio, "10,5", "El porcentaje de servicio es un número", ""},
      {&PrimerInicio::txtClaveCentral, "a;b", "no pueden llevar punto y coma", ""},
  };
  // clang-format on
  for (const auto& m : kMalos) {
    PrimerInicio malo = v;
    malo.*m.campo = QString::fromUtf8(m.texto);
    p.persona().espera(QString::fromUtf8(m.caja));
    EXPECT_FALSE(CrearPrimerPuesto(p, malo, foco));
    EXPECT_EQ(QString::fromLatin1(m.foco), foco);
    EXPECT_TRUE(FaltaElPuesto(p));
  }
  v.txtCaja = QStringLiteral("00007");
  EXPECT_TRUE(CrearPrimerPuesto(p, v, foco));
  EXPECT_FALSE(FaltaElPuesto(p));
  arrancar();
  EXPECT_EQ(QStringLiteral("00007"), p.ses.psCaja);
  EXPECT_EQ(QStringLiteral("1"), p.filas(QStringLiteral("SELECT cPerfCode FROM Usuario WHERE sUserDesc='SUPERVISOR'")));
}

TEST_F(ArranqueTest, TheWarehouseIsNamedWhereTheCentralDatabaseAnswers) {
  Conexion central = abrir(p.ses.psConexionCentral);
  p.ejecuta(central, QStringLiteral("DELETE FROM Almacen"));
  p.ejecuta(central, QStringLiteral("INSERT INTO Almacen (cCodAlmac, vDscAlmac) VALUES ('01', 'TIENDA ÑAÑA')"));
  p.persona().espera(QStringLiteral("El almacen seteado por defecto para esta caja es: TIENDA ÑAÑA"));
  MostrarAlmacen(p);
  p.ses.psConexionCentral = QStringLiteral("Data Source=sqlite:noesta.db");
  p.persona().espera(QStringLiteral("El codigo de almacen seteado por defecto para esta caja es: 01"));
  MostrarAlmacen(p);
}

}  // namespace
