#include "foundation/cfg_admin.h"

#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/puesto_prueba.h"
#include "platform/io/perfil.h"

namespace {

const QString kParametros = QStringLiteral("PARAMETROS");

// A desk whose settings are what the test says: every setting of the table blank, the file gone.
void vaciar(PuestoPrueba& p) {
  p.ejecuta(
      QStringLiteral("UPDATE Configuracion SET Caja='', Almacen='', PorcServ='', GAVETA='', PRINTER='', DFlag=''"));
  QFile::remove(p.ses.psArchivoCfg);
}

void enArchivo(PuestoPrueba& p, const char* seccion, const char* clave, const QString& valor) {
  ASSERT_FALSE(EscribirPerfil(p.ses.psArchivoCfg, QString::fromLatin1(seccion), QString::fromLatin1(clave), valor));
}

TEST(Parametros, TheTableWinsAndTheOtherIsRepaired) {
  for (const auto& c : leerCasos("foundation/parametros")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    vaciar(p);
    p.ejecuta(QStringLiteral("UPDATE Configuracion SET PRINTER='%1'").arg(c["tabla"]));
    enArchivo(p, "PARAMETROS", "PRINTER", c["archivo"]);
    const QString leido = LeerParametro(p, kParametros, QStringLiteral("PRINTER"), p.ses.psArchivoCfg);
    EXPECT_EQ(c["leido"], leido);
    EXPECT_EQ(leido, p.filas(QStringLiteral("SELECT TRIM(PRINTER) FROM Configuracion")));
    EXPECT_EQ(c["quedaArchivo"], LeerPerfil(p.ses.psArchivoCfg, kParametros, QStringLiteral("PRINTER")));
  }
}

TEST(Parametros, AKeyThatIsNoColumnWorksFromTheFile) {
  PuestoPrueba p;
  enArchivo(p, "PARAMETROS", "Nueva", QStringLiteral("7"));
  p.persona().espera(QStringLiteral("SELECT Nueva FROM CONFIGURACION"));
  p.persona().espera(QStringLiteral("UPDATE CONFIGURACION SET CONFIGURACION.Nueva='7'"));
  EXPECT_EQ(QStringLiteral("7"), LeerParametro(p, kParametros, QStringLiteral("Nueva"), p.ses.psArchivoCfg));
}

TEST(Configuracion, EachMissingKeyAndAnUnknownLanguageEndTheProcess) {
  for (const auto& c : leerCasos("foundation/configuracion")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    vaciar(p);
    enArchivo(p, "PARAMETROS", "Caja", c["caja"]);
    enArchivo(p, "PARAMETROS", "Almacen", c["almacen"]);
    enArchivo(p, "PARAMETROS", "PorcServ", c["servicio"]);
    enArchivo(p, "SQLServer", "IdionaSQLServer", c["idioma"]);
    p.persona().espera(c["caja_"]);
    try {
      LeerConfiguracion(p);
      ADD_FAILURE() << "the process went on";
    } catch (const ProcesoTerminado& fin) {
      EXPECT_NE(0, fin.estado);
    }
  }
}

TEST(Configuracion, ADeskWhoseStoreWasReplacedGetsItsSettingsFromTheFile) {
  PuestoPrueba p;
  vaciar(p);
  enArchivo(p, "INICIO", "DataServer", QStringLiteral("sqlite:central.db"));
  enArchivo(p, "INICIO", "UserName", QStringLiteral("ñu"));
  enArchivo(p, "PARAMETROS", "Caja", QStringLiteral("00012"));
  enArchivo(p, "PARAMETROS", "Almacen", QStringLiteral("02"));
  enArchivo(p, "PARAMETROS", "PorcServ", QStringLiteral("13"));
  enArchivo(p, "SQLServer", "IdionaSQLServer", QStringLiteral("spanish"));
  enArchivo(p, "SQLServer", "ServidorSQL", QStringLiteral("sqlite:cliente.db"));
  LeerConfiguracion(p);
  EXPECT_EQ(QStringLiteral("00012"), p.ses.psCaja);
  EXPECT_EQ(QStringLiteral("Provider=SQLOLEDB.1;User ID=ñu;Password=;Initial Catalog=;Data Source=sqlite:central.db"),
            p.ses.psConexionCentral);
  EXPECT_EQ(QStringLiteral("Provider=SQLOLEDB.1;User ID=;Password=;Initial Catalog=;Data Source=sqlite:cliente.db"),
            p.ses.psConexionCliente);
  EXPECT_EQ(QStringLiteral("yyyy/dd/mm hh:nn:ss"), p.ses.psFORMATO_FECHA_SQL_SERVER_INS);
  EXPECT_EQ(QStringLiteral("ñu|00012|02|13"),
            p.filas(QStringLiteral("SELECT UserName, Caja, Almacen, PorcServ FROM Configuracion")));
}

TEST(Configuracion, TheWordsOfThePapersAreTheShopsOrTheOldOnes) {
  PuestoPrueba p;
  enArchivo(p, "PAPELES", "Lema", QString(60, u'Ñ'));
  enArchivo(p, "PAPELES", "Tienda", QStringLiteral("BODEGA EL SOL"));
  enArchivo(p, "PAPELES", "TituloRetiro", QString());
  LeerConfiguracion(p);
  const TextosPapel& t = p.ses.textosPapel;
  EXPECT_EQ(QString(39, u'Ñ'), t.Lema);
  EXPECT_EQ(QStringLiteral("BODEGA EL SOL|PAGO|CUADRE CAJA"), t.Tienda + u'|' + t.TituloRetiro + u'|' + t.TituloCuadre);
}

TEST(Configuracion, AFileThatCannotBeWrittenIsToldAndTheTableKeepsTheValue) {
  PuestoPrueba p;
  QFile::remove(p.ses.psArchivoCfg);
  ASSERT_TRUE(QDir(p.rutas.programa).mkdir(QStringLiteral("KEB.cfg")));  // a folder stands in its place
  p.persona().espera(QStringLiteral("KEB.cfg"));
  EXPECT_TRUE(
      EscribirParametro(p, kParametros, QStringLiteral("PRINTER"), p.ses.psArchivoCfg, QStringLiteral("START")));
  EXPECT_EQ(QStringLiteral("START"), p.filas(QStringLiteral("SELECT PRINTER FROM Configuracion")));
}

}  // namespace
