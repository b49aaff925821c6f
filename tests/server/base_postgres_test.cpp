// Making a server's database, bringing it up to date, and what a person may write of it.
#include "postgres/base_postgres.h"

#include "apoyo/servidor_prueba.h"
#include "platform/sql_banco.h"

namespace {

using Base = BaseServidor;

ServidorPrueba& servidor() { return ServidorPrueba::uno(); }

QString dato(const CadenaConexion& c, const char* sql) { return servidor().crudo(c, u8(sql))[0].toString(); }

// What a desk is told of the server at its start; "away" when it does not get in.
QString revisar(const CadenaConexion& c, Base base) {
  const auto motores = motoresDelSistema({});
  Conexion cnn;
  return cnn.abrir(*motores, cadenaDe(c), 5000) ? u8("away") : RevisarBasePostgres(cnn, base);
}

TEST(BasePostgres, ReadsTheNameOfAServer) {
  // clang-format off
  const struct { const char *palabras, *lee; } kCasos[] = {
      {"postgres:tienda", "tienda||clave|central"},
      {"postgres:tienda:5433/otra", "tienda:5433||clave|otra"},
      {"POSTGRES://ana:s3%40%3Bx@[::1]:5433", "[::1]:5433|ana|s3@;x|central"},
      {"postgres:ana@tienda", "tienda|ana|clave|central"},
      {"postgres:ana:a:b@tienda", "tienda|ana|a:b|central"},
      {"postgres:", ""}, {"postgres:tienda/", ""}, {"postgres:/x", ""}, {"sqlite:a.db", ""},
  };
  // clang-format on
  CadenaConexion supuestos;
  supuestos.catalogo = u8("central");
  supuestos.clave = u8("clave");
  for (const auto& k : kCasos) {
    const auto c = leerServidorPostgres(u8(k.palabras), supuestos);
    const QString leido = c ? QStringList{c->servidor, c->usuario, c->clave, c->catalogo}.join(u'|') : QString();
    if (u8(k.lee).contains(u';')) EXPECT_FALSE(c) << "it has no place in a connection string";
    else EXPECT_EQ(u8(k.lee), leido) << k.palabras;
  }
}

TEST(BasePostgres, IsMadeOnceAndLeftAlone) {
  const CadenaConexion c = servidor().sinBase();
  EXPECT_EQ(u8("away"), revisar(c, Base::Central));
  const QStringList filas{u8("INSERT INTO parametro (cCodParam, nmonto1) VALUES ('IGV', 18)")};
  EXPECT_EQ(FinBase::Fallo, CrearBasePostgres(c, Base::Central, filas + QStringList{u8("no es sql")}).fin);
  EXPECT_TRUE(revisar(c, Base::Central).contains(u8("crear-central"))) << "nothing is half made";
  EXPECT_EQ(FinBase::Hecha, CrearBasePostgres(c, Base::Central, filas).fin);
  EXPECT_EQ(u8("18"), dato(c, "SELECT nmonto1 FROM PARAMETRO WHERE ccodparam = 'igv'"));
  EXPECT_EQ(FinBase::YaEstaba, CrearBasePostgres(c, Base::Central, filas).fin);
  const ResultadoBase otra = CrearBasePostgres(c, Base::Cliente, {});
  EXPECT_EQ(FinBase::Fallo, otra.fin);
  EXPECT_TRUE(otra.palabras.contains(u8("ya tiene las tablas de la base central"))) << qPrintable(otra.palabras);
  EXPECT_TRUE(revisar(c, Base::Central).isEmpty());
  EXPECT_EQ(FinActualizacion::AlDia, ActualizarBasePostgres(c, Base::Central).fin);
  auto lejos = c;
  lejos.clave = u8("otra");
  EXPECT_EQ(FinBase::Lejos, CrearBasePostgres(lejos, Base::Central, {}).fin);
  EXPECT_EQ(u8("away"), revisar(lejos, Base::Central));
}

// The tables of an older program get the steps that they lack, its procedures are this program's afterwards.
TEST(BasePostgres, IsBroughtUpToDate) {
  for (const Base clase : {Base::Central, Base::Cliente}) {
    const CadenaConexion c = servidor().base(clase);
    const QString nueva = dato(c, "SELECT version FROM dbo.version_tablas");
    const char* const kTablas =
        "SELECT string_agg(relname, ',' ORDER BY relname) FROM pg_class WHERE relnamespace = 'dbo'::regnamespace";
    const QString tablas = dato(c, kTablas);
    for (const auto& paso : pasosDelServidor(clase, LenguajeMotor::Postgres)) {
      for (const QString& s : paso) {
        const QString tabla = s.section(u' ', 2, 2);
        if (s.startsWith(u"CREATE TABLE")) servidor().crudo(c, QStringLiteral("DROP TABLE ") + tabla);
        if (s.startsWith(u"CREATE INDEX")) servidor().crudo(c, QStringLiteral("DROP INDEX IF EXISTS dbo.") + tabla);
      }
    }
    servidor().crudo(c, u8("UPDATE dbo.version_tablas SET version = 0"));
    EXPECT_TRUE(revisar(c, clase).contains(u8("tarvopos-admin actualizar")));
    EXPECT_EQ(FinActualizacion::Actualizada, ActualizarBasePostgres(c, clase).fin);
    EXPECT_EQ(nueva, dato(c, "SELECT version FROM dbo.version_tablas"));
    EXPECT_EQ(tablas, dato(c, kTablas));
    servidor().crudo(c, u8("UPDATE dbo.version_tablas SET rutinas = 'x'"));
    EXPECT_EQ(FinActualizacion::Actualizada, ActualizarBasePostgres(c, clase).fin);
    EXPECT_EQ(FinActualizacion::AlDia, ActualizarBasePostgres(c, clase).fin);
    servidor().crudo(c, u8("UPDATE dbo.version_tablas SET version = version + 1"));
    EXPECT_EQ(FinActualizacion::AlDia, ActualizarBasePostgres(c, clase).fin) << "a newer server is left alone";
    EXPECT_TRUE(revisar(c, clase).isEmpty());
  }
  EXPECT_EQ(FinActualizacion::Fallo, ActualizarBasePostgres(servidor().sinBase(), Base::Central).fin);
}

}  // namespace
