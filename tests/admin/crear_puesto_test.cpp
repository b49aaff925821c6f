#include "alta/crear_puesto.h"
#include "apoyo/casos.h"

#include <QSet>

#include "admin/argumentos.h"
#include "apoyo/servidor_prueba.h"
#include "apoyo_admin.h"
#include "platform/io/perfil.h"
#include "store/numeracion.h"

namespace {

using CrearPuestoPrueba = CarpetaTemporal;

TEST_F(CrearPuestoPrueba, AFolderIsReadyForTheTill) {
  DatosPuesto d = datos(en("tienda/caja12"));
  d.caja = u8("00012");
  d.almacen = u8("03");
  d.servicio = u8("8");
  creaPuesto(d);

  const QString mdb = en("tienda/caja12/TarvoPos.mdb");
  for (const auto& f : leerCasos("admin/puesto_nuevo")) {
    SCOPED_TRACE(f.donde());
    EXPECT_EQ(f["sale"], filas(mdb, qPrintable(f["sql"])));
  }
  EXPECT_EQ("18.0",
            texto(filas(en("tienda/caja12/central.db"), "SELECT nmonto1 FROM parametro WHERE cCodParam='IGV'")));
  EXPECT_EQ("03", texto(filas(en("tienda/caja12/central.db"), "SELECT cCodAlmac FROM Almacen")));
  EXPECT_EQ("1", texto(filas(en("tienda/caja12/cliente.db"), "SELECT idlocal FROM local WHERE Activo=1")));
  // Nothing of the making is left, and the files are plain ones: no log beside them.
  EXPECT_EQ("KEB.cfg TarvoPos.mdb central.db cliente.db",
            texto(QDir(en("tienda/caja12")).entryList(QDir::Files | QDir::Hidden, QDir::Name).join(u' ')));
}

TEST_F(CrearPuestoPrueba, FileAndTableAgreeOnEverySetting) {
  DatosPuesto d = datos(en("p"));
  d.demo = true;
  creaPuesto(d);
  int claves = 0;
  for (const char* seccion : {"INICIO", "PARAMETROS", "SQLServer"}) {
    for (const auto& [clave, valor] : LeerSeccionPerfil(en("p/KEB.cfg"), u8(seccion))) {
      EXPECT_EQ(texto(valor),
                texto(filas(en("p/TarvoPos.mdb"), qPrintable(u8("SELECT %1 FROM Configuracion").arg(clave)))))
          << texto(clave);
      ++claves;
    }
  }
  EXPECT_EQ(27, claves);
}

TEST_F(CrearPuestoPrueba, WhatStandsThereIsNotTouched) {
  creaPuesto(datos(en("p")));
  const QByteArray antes = bytes(en("p/TarvoPos.mdb")), ajustes = bytes(en("p/KEB.cfg"));
  DatosPuesto d = datos(en("p"));
  d.caja = u8("00002");
  EXPECT_TRUE(CrearPuesto(d));
  EXPECT_EQ(antes, bytes(en("p/TarvoPos.mdb")));
  EXPECT_EQ(ajustes, bytes(en("p/KEB.cfg")));

  // Settings alone are somebody's, too.
  QFile::remove(en("p/TarvoPos.mdb"));
  EXPECT_TRUE(CrearPuesto(d));
  EXPECT_EQ(ajustes, bytes(en("p/KEB.cfg")));
  EXPECT_FALSE(QFile::exists(en("p/TarvoPos.mdb")));
}

TEST_F(CrearPuestoPrueba, ASecondDeskSharesTheServersOfTheFirst) {
  creaPuesto(datos(en("uno")));
  const QByteArray central = bytes(en("uno/central.db"));
  DatosPuesto d = datos(en("dos"));
  d.caja = u8("00002");
  d.central = u8("sqlite:") + en("uno/central.db");
  creaPuesto(d);
  EXPECT_EQ(central, bytes(en("uno/central.db")));
  EXPECT_FALSE(QFile::exists(en("dos/central.db")));
  EXPECT_TRUE(QFile::exists(en("dos/cliente.db")));
}

TEST_F(CrearPuestoPrueba, APostgresServerGetsItsDatabasesAndTheDeskItsWords) {
  ServidorPrueba& servidor = ServidorPrueba::uno();
  DatosPuesto d = datos(en("uno"));
  d.central = servidor.palabras();
  d.cliente = servidor.palabras() + u8("/puntos");
  d.demo = true;
  QStringList hecho;
  EXPECT_FALSE(CrearPuesto(d, &hecho));
  EXPECT_EQ(2, hecho.size()) << texto(hecho.join(u'\n'));
  EXPECT_EQ(
      "tarvopos|central|postgres:" + texto(servidor.servidor()) + "|puntos",
      texto(filas(en("uno/TarvoPos.mdb"), "SELECT UserName, DataBase, DataServer, BaseDatosSQL FROM Configuracion")));
  CadenaConexion c = servidor.sinBase();
  c.catalogo = u8("central");
  EXPECT_EQ(18, servidor.crudo(c, u8("SELECT nmonto1 FROM parametro WHERE ccodparam = 'IGV'"))[0].toDouble());
  EXPECT_LT(50, servidor.crudo(c, u8("SELECT count(*) FROM articulo"))[0].toInt()) << "the demo shop is there, too";
  // The second desk finds them made; a server that is away does not keep a desk from being made.
  hecho.clear();
  d.carpeta = en("dos");
  d.cliente = u8("postgres:u:p@127.0.0.1:1");
  EXPECT_FALSE(CrearPuesto(d, &hecho));
  ASSERT_EQ(1, hecho.size());
  EXPECT_TRUE(hecho[0].startsWith(u8("Aviso: no se pudo entrar en el servidor 127.0.0.1:1"))) << texto(hecho[0]);
}

TEST_F(CrearPuestoPrueba, AFailureLeavesNothingHalfMade) {
  // clang-format off
  const struct {
    const char* porque;
    void (*estorbo)(CrearPuestoPrueba&, DatosPuesto&);
    const char* queda;
  } kCasos[] = {
      {"the first step fails", [](CrearPuestoPrueba&, DatosPuesto& d) { d.central = u8("sqlite:no/hay/c.db"); }, ""},
      {"the second fails", [](CrearPuestoPrueba&, DatosPuesto& d) { d.cliente = u8("sqlite:no/hay/c.db"); }, ""},
      // A folder that can't be removed stands where the last file is to be made.
      {"the last fails",
       [](CrearPuestoPrueba&, DatosPuesto& d) { QDir().mkpath(d.carpeta + u8("/TarvoPos.mdb.nuevo/x")); },
       "TarvoPos.mdb.nuevo"},
  };
  // clang-format on
  int n = 0;
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    DatosPuesto d = datos(raiz.filePath(u8("f%1/dentro").arg(++n)));
    c.estorbo(*this, d);
    EXPECT_TRUE(CrearPuesto(d));
    EXPECT_EQ(c.queda, texto(QDir(d.carpeta).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).join(u' ')));
    // A folder made for it goes as well, with those above it.
    EXPECT_EQ(*c.queda != '\0', QFile::exists(raiz.filePath(u8("f%1").arg(n))));
  }
}

TEST_F(CrearPuestoPrueba, BadDataAreRefusedBeforeAnythingIsMade) {
  // clang-format off
  const QHash<QString, QString DatosPuesto::*> campos{
      {u8("caja"), &DatosPuesto::caja}, {u8("almacen"), &DatosPuesto::almacen},
      {u8("servicio"), &DatosPuesto::servicio}, {u8("central"), &DatosPuesto::central},
      {u8("cliente"), &DatosPuesto::cliente}, {u8("clave"), &DatosPuesto::clave}};
  for (const auto& c : leerCasos("admin/datos_malos")) {
    SCOPED_TRACE(c.donde());
    DatosPuesto d = datos(en("p"));
    d.*campos[c["campo"]] = c["valor"];
    EXPECT_TRUE(CrearPuesto(d));
    EXPECT_FALSE(QFile::exists(en("p")));
  }
  // clang-format on
}

TEST(SerieInicialPrueba, NoTwoDesksShareASeries) {
  QSet<QString> vistas;
  for (int caja = 1; caja <= 99; ++caja) {
    for (const TipoDocumento tipo : kTiposDocumento) {
      if (tipo == TipoDocumento::Factura) continue;
      const QString serie = SerieInicial(tipo, u8("%1").arg(caja, 5, 10, QChar(u'0')));
      EXPECT_FALSE(serie.isEmpty());
      EXPECT_FALSE(vistas.contains(serie)) << texto(serie);
      vistas << serie;
    }
  }
}

TEST(SerieInicialPrueba, Forms) {
  for (const auto& c : leerCasos("admin/series")) {
    EXPECT_EQ(c["boleta"], SerieInicial(TipoDocumento::Boleta, c["caja"]));
    EXPECT_EQ(c["orden"], SerieInicial(TipoDocumento::OC, c["caja"]));
    DatosPuesto d = datos(u8("."));
    d.caja = c["caja"];
    EXPECT_EQ(d.caja == u8("00100") ? 1 : 0, AvisosDePuesto(d).size()) << c.donde();
  }
}

TEST(ClaveAlAzarPrueba, IsNewEachTime) {
  QSet<QString> claves;
  for (int i = 0; i < 50; ++i) claves << ClaveAlAzar();
  EXPECT_EQ(50, claves.size());
  for (const QString& c : claves) EXPECT_EQ(8, c.size());
}

TEST(ArgumentosPrueba, WordsComeApart) {
  const FormaOrden forma{1, 2, {u8("--caja"), u8("--clave")}, {u8("--demo")}};
  for (const auto& c : leerCasos("admin/argumentos")) {
    SCOPED_TRACE(c.donde());
    Argumentos a;
    QString sale = u8("error");
    if (!LeerArgumentos(c["palabras"].split(u' '), forma, a)) {
      sale = a.lugares.join(u',');
      for (const char* o : {"--caja", "--clave"})
        if (a.tiene(u8(o))) sale += u8(" ") + u8(o).mid(2) + u8("=") + a.valor(u8(o), {});
      if (a.tiene(u8("--demo"))) sale += u8(" demo");
    }
    EXPECT_EQ(c["sale"], sale);
  }
}

}  // namespace
