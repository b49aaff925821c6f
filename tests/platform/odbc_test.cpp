// The mechanics of the ODBC engine, through the two drivers that are to be had here; a statement goes through as it is.
#include <locale.h>

#include <QElapsedTimer>

#include "apoyo/servidor_mudo.h"
#include "apoyo/servidor_prueba.h"
#include "apoyo/servidor_tds.h"
#include "platform/sql/motor_odbc.h"
#include "platform/sql_banco.h"

namespace {

QString conServidor(const QString& palabras, const CadenaConexion& c = {}) {
  return cadenaDeServidor(c.usuario, c.clave, c.catalogo, palabras);
}

// The test's PostgreSQL behind its ODBC driver.
QString porOdbc(CadenaConexion c) {
  const QString puerto = c.servidor.section(u':', 1);
  return conServidor(QStringLiteral("Driver=PostgreSQL Unicode,Server=127.0.0.1,Port=") + puerto, c);
}

const CadenaConexion& base() {
  static const CadenaConexion c = ServidorPrueba::uno().base(BaseServidor::Central);
  return c;
}

TEST(Odbc, FindsTheDriverOfAServer) {
#define kTds "TDS_Version=7.4;ClientCharset=UTF-8;UID=u;PWD={a;b}}c};Database=central;"
  // clang-format off
  const struct { const char *servidor, *cadena; } kCasos[] = {
      {"Tienda", "DSN=Tienda;UID=u;PWD={a;b}}c};Database=central;"},
      {"sql1", "Driver=FreeTDS;Server=sql1;Port=1433;" kTds},
      {"sql1,5000", "Driver=FreeTDS;Server=sql1;Port=5000;" kTds},
      {"sql1\\caja", "Driver=FreeTDS;Server=sql1\\caja;" kTds},
      {"Driver=X,database=otra,pwd=p", "Driver=X;database=otra;pwd=p;UID=u;"},
  };
  // clang-format on
  for (const auto& k : kCasos) {
    CadenaConexion c;
    c.servidor = u8(k.servidor);
    c.usuario = u8("u");
    c.clave = u8("a;b}c");
    c.catalogo = u8("central");
    EXPECT_EQ(k.cadena, cadenaOdbc(c, {u8("tienda")}).toStdString());
  }
}

TEST(Odbc, ReadsWritesAndTakesBack) {
  ::setlocale(LC_CTYPE, "C.UTF-8");  // as the toolkit does in the programs: drivers of bytes go by it
  QTemporaryDir carpeta;
  const QString archivo = carpeta.filePath(u8("o.db"));
  const QString cadenas[] = {conServidor(u8("Driver=SQLite3,Database=") + archivo), porOdbc(base())};
  for (const QString& cadena : cadenas) {
    SCOPED_TRACE(qPrintable(cadena));
    Banco b(cadena);
    qint64 afectadas = -1;
    const auto corre = [&](const char* sql) {
      afectadas = -1;
      return b.cnn.ejecutar(Sql::crudo(u8(sql)), &afectadas);
    };
    ASSERT_FALSE(corre("CREATE TABLE Odb (n bigint PRIMARY KEY, d numeric(10,2), r double precision, s varchar(8000), "
                       "f timestamp)"));
    EXPECT_FALSE(corre("INSERT INTO Odb VALUES (1, 12.50, 0.1, 'Año d''él', '2026-11-24 10:30:15')"));
    EXPECT_EQ(1, afectadas);
    EXPECT_FALSE(corre("INSERT INTO Odb VALUES (9007199254740993, NULL, NULL, '', NULL)"));
    EXPECT_EQ(u8("1|12.5|0.1|Año d'él|<2026-11-24 10:30:15>/9007199254740993|Null|Null||Null"),
              b.respuesta("SELECT n, d, r, s, f FROM Odb ORDER BY n"));
    Recordset rs;
    EXPECT_FALSE(b.cnn.consultar(u"SELECT n AS Uno, d AS dos, f FROM Odb ORDER BY n"_sql, rs));
    EXPECT_EQ(u8("uno dos f"), rs.campos().join(u' ').toLower());
    EXPECT_EQ(QMetaType::LongLong, rs[0].typeId());
    EXPECT_EQ(QMetaType::Double, rs[1].typeId());
    EXPECT_EQ(QMetaType::QDateTime, rs[2].typeId());
    const QString largo = QStringLiteral("ñandú ").repeated(1000);
    EXPECT_FALSE(corre(qPrintable(u8("UPDATE Odb SET s = '%1' WHERE n = 1").arg(largo))));
    EXPECT_EQ(largo, b.respuesta("SELECT s FROM Odb WHERE n = 1"));
    EXPECT_FALSE(corre("UPDATE Odb SET d = 0"));
    EXPECT_EQ(2, afectadas);
    EXPECT_FALSE(corre("DELETE FROM Odb WHERE n = 77"));
    EXPECT_EQ(0, afectadas);

    const auto mala = corre("SELECT x FROM NoHay");
    ASSERT_TRUE(mala);
    EXPECT_EQ(kErrorSentencia, mala->numero);
    EXPECT_FALSE(mala->descripcion.startsWith(u'[')) << qPrintable(mala->descripcion);

    EXPECT_FALSE(b.cnn.iniciar());
    EXPECT_TRUE(b.cnn.iniciar());
    EXPECT_FALSE(corre("INSERT INTO Odb (n) VALUES (3)"));
    EXPECT_TRUE(corre("INSERT INTO Odb (n) VALUES (3)"));
    EXPECT_FALSE(corre("INSERT INTO Odb (n) VALUES (4)"));
    EXPECT_FALSE(b.cnn.confirmar());
    EXPECT_FALSE(b.cnn.iniciar());
    EXPECT_FALSE(corre("DELETE FROM Odb"));
    EXPECT_FALSE(b.cnn.deshacer());
    EXPECT_EQ(u8("4"), b.respuesta("SELECT COUNT(*) FROM Odb"));
  }
  Banco b(porOdbc(base()));
  const auto doble = b.cnn.ejecutar(u"INSERT INTO Odb (n) VALUES (3)"_sql);
  ASSERT_TRUE(doble);
  EXPECT_TRUE(doble->claveDuplicada()) << doble->descripcion.toStdString();
}

TEST(Odbc, HoldsItsTimes) {
  const ServidorMudo mudo(Mudez::recibe);
  CadenaConexion c;
  c.servidor = u8("127.0.0.1:") + mudo.cadena().section(u':', -1);
  c.usuario = c.clave = c.catalogo = u8("x");
  QStringList dicho;
  OpcionesMotores opciones;
  opciones.alEsperar = [&](const QString& que, int) { dicho += que; };
  const auto motores = motoresDelSistema({}, opciones);
  Conexion cnn;
  QElapsedTimer reloj;
  reloj.start();
  auto e = cnn.abrir(*motores, porOdbc(c), 1000);
  ASSERT_TRUE(e);
  EXPECT_EQ(kErrorTiempo, e->numero) << e->descripcion.toStdString();
  EXPECT_LT(reloj.elapsed(), 10'000);
  ASSERT_GT(dicho.size(), 5);
  EXPECT_EQ(u8("Esperando al servidor…"), dicho[0]) << "a driver's words, password and all, are no name";
  EXPECT_EQ(QString(), dicho.back());

  ASSERT_FALSE(cnn.abrir(*motores, porOdbc(base()), 1000));
  reloj.restart();
  e = cnn.ejecutar(u"SELECT pg_sleep(30)"_sql);
  ASSERT_TRUE(e);
  EXPECT_LT(reloj.elapsed(), 10'000);
  reloj.restart();
  (void)cnn.ejecutar(u"SELECT 1"_sql);
  EXPECT_LT(reloj.elapsed(), 900) << "it is not waited for again";
  EXPECT_FALSE(cnn.abrir(*motores, porOdbc(base()), 1000));
  EXPECT_FALSE(cnn.ejecutar(u"SELECT 1"_sql));
}

TEST(Odbc, SaysWhyItCannotOpen) {
  CadenaConexion mala = base();
  mala.clave = u8("otra");
  CadenaConexion lejos = base();
  lejos.servidor = u8("127.0.0.1:1");
  for (const QString& cadena :
       {porOdbc(mala), porOdbc(lejos), conServidor(u8("Driver=NoHay,Server=x")), conServidor(u8("127.0.0.1,1"))}) {
    const auto motores = motoresDelSistema({});
    Conexion cnn;
    const auto e = cnn.abrir(*motores, cadena, 3000);
    ASSERT_TRUE(e) << qPrintable(cadena);
    EXPECT_EQ(kErrorGeneral, e->numero) << e->descripcion.toStdString();
    EXPECT_TRUE(e->descripcion.startsWith(u8("No se pudo conectar al servidor '"))) << e->descripcion.toStdString();
  }
}

// The driver that a SQL Server is reached by, against nobody, against one that is silent, and against as much of a
// server as it takes for one.
TEST(Odbc, TheDriverOfSqlServerTellsAndHoldsItsTimes) {
  const auto motores = motoresDelSistema({});
  Conexion cnn;
  QElapsedTimer reloj;
  const ServidorMudo nadie(Mudez::nadie), recibe(Mudez::recibe), llena(Mudez::colaLlena);
  const auto puertoDe = [](const ServidorMudo& s) { return u8("127.0.0.1,") + s.cadena().section(u':', -1); };
  const struct {
    const char* porque;
    QString servidor;
    qint64 numero;
  } kCasos[] = {{"refuses", puertoDe(nadie), kErrorGeneral},
                {"lets in and is silent", puertoDe(recibe), kErrorTiempo},
                {"doesn't even answer the door", puertoDe(llena), kErrorTiempo},
                {"unknown", u8("nohay.invalid"), kErrorGeneral}};
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    reloj.start();
    const auto e = cnn.abrir(*motores, conServidor(c.servidor), 2000);
    ASSERT_TRUE(e);
    EXPECT_LT(reloj.elapsed(), 8'000);
    EXPECT_EQ(c.numero, e->numero) << e->descripcion.toStdString();
    EXPECT_TRUE(e->descripcion.startsWith(u8("No se pudo conectar al servidor '") + c.servidor))
        << qPrintable(e->descripcion);
    EXPECT_FALSE(e->descripcion.contains(u8("Se perdió")));
  }
  const ServidorTds servidor;
  CadenaConexion quien;  // without a name the driver would ask the machine for one
  quien.usuario = quien.clave = quien.catalogo = u8("x");
  const QString cadena = conServidor(u8("127.0.0.1,%1").arg(servidor.puerto()), quien);
  auto e = cnn.abrir(*motores, cadena, 2000);
  ASSERT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString();
  EXPECT_FALSE(cnn.ejecutar(u"SELECT 'ñandú'"_sql));
  const auto error = [&cnn](const char* sql) { return cnn.ejecutar(Sql::crudo(u8(sql))).value_or(ErrorBD{}); };
  EXPECT_TRUE(error("error 2627").claveDuplicada());
  EXPECT_EQ(u8("palabras del servidor"), error("error 2627").descripcion);
  EXPECT_TRUE(error("error 1205").repetible());
  EXPECT_EQ(kErrorTiempo, error("error 1222").numero);
  EXPECT_EQ(kErrorSentencia, error("error 207 ").numero);
  reloj.start();
  EXPECT_EQ(kErrorTiempo, error("calla").numero);
  EXPECT_LT(reloj.elapsed(), 8'000);
  reloj.start();
  EXPECT_EQ(kErrorTiempo, error("SELECT 1").numero);
  EXPECT_LT(reloj.elapsed(), 1000) << "it is not waited for again";
  if (!qEnvironmentVariableIsSet("TARVOPOS_LARGO")) return;
  reloj.start();
  e = cnn.abrir(*motores, conServidor(puertoDe(recibe)), 20'000);
  ASSERT_TRUE(e);
  EXPECT_EQ(kErrorTiempo, e->numero);
  EXPECT_GT(reloj.elapsed(), 19'000);
  EXPECT_LT(reloj.elapsed(), 23'000);
}

// The server ends the session, as a firewall or a restart does.
void cortar(const QString& marca) {
  ServidorPrueba::uno().crudo(
      base(),
      QStringLiteral("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE query LIKE '%%1%' AND pid <> "
                     "pg_backend_pid()")
          .arg(marca));
}

TEST(Odbc, ACutConnectionIsOpenedAnewOnceButNeverInsideATransaction) {
  Banco b(porOdbc(base()));
  ASSERT_FALSE(b.cnn.ejecutar(u"CREATE TABLE Corte (n bigint)"_sql));
  EXPECT_EQ(u8("1"), b.respuesta("SELECT 1 AS marca_a"));
  cortar(u8("marca_a"));
  EXPECT_EQ(u8("0"), b.respuesta("SELECT COUNT(*) AS marca_b FROM Corte"));

  cortar(u8("marca_b"));
  const auto cambio = b.cnn.ejecutar(u"INSERT INTO Corte VALUES (1)"_sql);
  EXPECT_EQ(cambio ? u8("0") : u8("1"), b.respuesta("SELECT COUNT(*) FROM Corte")) << "never twice";

  ASSERT_FALSE(b.cnn.iniciar());
  EXPECT_FALSE(b.cnn.ejecutar(u"INSERT INTO Corte VALUES (77)"_sql));
  cortar(u8("(77)"));
  EXPECT_TRUE(b.cnn.ejecutar(u"INSERT INTO Corte VALUES (78)"_sql));
  EXPECT_TRUE(b.cnn.ejecutar(u"INSERT INTO Corte VALUES (79)"_sql)) << "not outside of it either";
  EXPECT_TRUE(b.cnn.confirmar());
  EXPECT_FALSE(b.cnn.deshacer());
  EXPECT_EQ(u8("0"), b.respuesta("SELECT COUNT(*) FROM Corte WHERE n > 70"));
}

}  // namespace
