#include "foundation/db_admin.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/puesto_prueba.h"
#include "foundation/rutinas.h"

namespace {

TEST(DBAdmin, SaysWhatFailedAndKeepsQuietAboutDuplicates) {
  PuestoPrueba p;
  Recordset rs;
  p.persona().espera(QStringLiteral(" - SELECT * FROM NoHay"));
  EXPECT_FALSE(p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"SELECT * FROM NoHay"_sql, rs));
  EXPECT_EQ(0, rs.RecordCount());

  const Sql tipo = u"INSERT INTO Config_Documento (cTipoDoc) VALUES ('01')"_sql;
  EXPECT_FALSE(p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, tipo, true));  // the row is there: no box
  EXPECT_FALSE(p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, u"UPDATE NoHay SET a=1"_sql, false));
  p.persona().espera(QStringLiteral(" - UPDATE NoHay SET a=1"));
  EXPECT_FALSE(p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, u"UPDATE NoHay SET a=1"_sql, true));

  Conexion otra;
  p.persona().espera(QStringLiteral("No se pudo conectar a la BD de Logistica en SQL SERVER. \n"));
  EXPECT_FALSE(p.poDBAdmin.AbrirBD(otra, QStringLiteral("Data Source=sqlite:noesta.db"), true));
  EXPECT_FALSE(QFile::exists(p.ruta() + QStringLiteral("/noesta.db")));
  p.poDBAdmin.CerrarBD(otra);
}

TEST(Sql, ValuesAreEscapedForTheDatabaseTheyGoTo) {
  const Sql condicion = FormatearSQL(u"sProdDesc LIKE '%$%'"_sql, {Texto(QStringLiteral("D'Oro $ {f}"))});
  // clang-format off
  const struct { const char* porque; Sql sql; const char *jet, *tsql; } kCasos[] = {
      {"date wrapping goes, the key keeps its quotes",
       FormatearSQL(u"SET d = CONVERT(DATETIME,'$') WHERE k = '$' AND a = '$'"_sql, {Valor(), 7, Texto("x")}),
       "SET d = Null WHERE k = '7' AND a = 'x'", nullptr},
      {"quoted and bare Null", FormatearSQL(u"('$', $)"_sql, {Valor(), QDateTime()}), "(Null, Null)", nullptr},
      {"only the whole date wrapping goes", FormatearSQL(u"XCONVERT(DATETIME,'$' )"_sql, {Valor()}),
       "XCONVERT(DATETIME,Null )", nullptr},
      {"a value's own $ is not a place", FormatearSQL(u"'$'-'$'"_sql, {Texto("a$b"), Texto("c")}), "'a$b'-'c'",
       nullptr},
      {"wrapping stays for a value", FormatearSQL(u"CONVERT(DATETIME,'$',120)"_sql, {Texto("2025")}),
       "CONVERT(DATETIME,'2025',120)", nullptr},
      {"trimmed; an empty text is no Null", FormatearSQL(u"'$','$'"_sql, {Texto("  a b "), Texto("")}), "'a b',''",
          nullptr},
      {"numbers without a mask", FormatearSQL(u"$,$,$"_sql, {0.1 + 0.2, true, qint64{-27}}), "0.3,1,-27", nullptr},
      {"a quote", FormatearSQL(u"'$'"_sql, {Texto("O'Neil")}), "'O' + Chr(39) + 'Neil'", "'O''Neil'"},
      {"a text in a bare place gets quotes", FormatearSQL(u"a=$"_sql, {Texto("1' OR 1='1")}),
       "a='1' + Chr(39) + ' OR 1=' + Chr(39) + '1'", "a='1'' OR 1=''1'"},
      {"digits stand bare", FormatearSQL(u"a=$ AND b=$"_sql, {Cifras("007"), Cifras(" -1.50 ")}), "a=007 AND b=-1.50",
          nullptr},
      {"no digits: a name that no table has", FormatearSQL(u"a=$ OR b=$"_sql, {Cifras("a] OR 1=1"), Cifras("")}),
       "a=[?a OR 1=1] OR b=[?]", nullptr},
      {"a name; anything else is none that a table has",
       FormatearSQL(u"$,$,$ #"_sql, {NombreSql("cCodi_1"), NombreSql("a,b"), QDate(2025, 3, 4)}),
       "cCodi_1,[?a,b],#03/04/2025# #", nullptr},
      {"a value's own $ and { are no places",
       FormatearSQL(u"a='$' AND "_sql + condicion.con(u"{f}"_sql, u"x"_sql), {Texto("$")}),
       "a='$' AND sProdDesc LIKE '%D' + Chr(39) + 'Oro $ {f}%'", "a='$' AND sProdDesc LIKE '%D''Oro $ {f}%'"},
      {"pieces joined", UnirSql({u"a"_sql, condicion, u"{b}"_sql}, u" OR "_sql).con(u"{b}"_sql, Sql()),
       "a OR sProdDesc LIKE '%D' + Chr(39) + 'Oro $ {f}%' OR ", "a OR sProdDesc LIKE '%D''Oro $ {f}%' OR "},
      {"a piece between quotes is a text", FormatearSQL(u"'$'"_sql, {u"'a'"_sql}),
          "'' + Chr(39) + 'a' + Chr(39) + ''", "'''a'''"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    EXPECT_EQ(QString::fromUtf8(c.jet), c.sql.texto(Dialecto::Jet));
    EXPECT_EQ(QString::fromUtf8(c.tsql ? c.tsql : c.jet), c.sql.texto(Dialecto::TSql));
  }
}

RC_GTEST_PROP(Sql, AnyTextComesBackAsItWas, (const std::string& bruto)) {
  static PuestoPrueba p;
  const QString nombre = QString::fromLatin1(QByteArray::fromStdString(bruto)).remove(QChar(0)).trimmed();
  Recordset rs;
  const auto error =
      p.poCnnLocal.consultar(FormatearSQL(u"SELECT '$' as x, $ as y"_sql, {Texto(nombre), Texto(nombre)}), rs);
  if (error) RC_FAIL(error->descripcion.toStdString());
  RC_ASSERT(rs[0].toString() == nombre);
  RC_ASSERT(rs[1].toString() == nombre);
}

// A server that lets time pass: every open costs its wait.
class MotoresMudos final : public Motores {
 public:
  int intentos = 0, espera = 0;
  std::unique_ptr<Motor> abrir(const QString&, int espera_ms, ErrorBD& error) override {
    ++intentos;
    espera = espera_ms;
    error = {kErrorTiempo, 0, QStringLiteral("tiempo agotado")};
    return {};
  }
};

TEST(DBAdmin, ASaleWaitsForASilentServerOnceAMinute) {
  PuestoPrueba base;
  MotoresMudos mudos;
  Puesto p(mudos, base.puertos, base.reloj, base.mensajes, base.salida, base.rutas);
  p.ses.psConexionCentral = QStringLiteral("Data Source=mudo");
  Conexion c;
  const auto abrir = [&](clsDBAdmin::Espera e) { (void)p.poDBAdmin.AbrirBD(c, p.ses.psConexionCentral, false, e); };
  abrir(clsDBAdmin::Espera::Venta);
  EXPECT_EQ(1700, mudos.espera);
  EXPECT_TRUE(p.ses.bCentralCaida);
  base.elReloj().ahora = base.elReloj().ahora.addSecs(59);
  abrir(clsDBAdmin::Espera::Venta);
  EXPECT_EQ(1, mudos.intentos);
  (void)p.poDBAdmin.AbrirBD(c, QStringLiteral("Data Source=otro"), false, clsDBAdmin::Espera::Venta);
  EXPECT_EQ(250, mudos.espera);       // two seconds for both
  abrir(clsDBAdmin::Espera::Normal);  // a report asks all the same
  EXPECT_EQ(3, mudos.intentos);
  EXPECT_EQ(20000, mudos.espera);
  base.elReloj().ahora = base.elReloj().ahora.addSecs(1);
  abrir(clsDBAdmin::Espera::Venta);
  EXPECT_EQ(4, mudos.intentos);
}

TEST(Rutinas, KeysPassOrAreRefused) {
  // clang-format off
  const struct { const char *porque; std::initializer_list<ClaseTecla> clases; const char *escrito,
      *queda; } kCasos[] = {
      {"letters raised", {ClaseTecla::Letras, ClaseTecla::Mayusculas}, "aÑo1.é,", "AÑO.É"},
      {"decimal lets points pass", {ClaseTecla::Decimal}, "1.2.x-3 ", "1.2.3 "},
      {"digits", {ClaseTecla::Digitos}, "0.a1 ", "01 "},
      {"lower case refuses nothing", {ClaseTecla::Minusculas}, "A1!", "a1!"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    QString queda;
    for (QChar k : QString::fromUtf8(c.escrito)) {
      const QChar r = FiltrarTecla(k, c.clases);
      if (!r.isNull()) queda += r;
    }
    EXPECT_EQ(QString::fromUtf8(c.queda), queda);
  }
  PuestoPrueba p;
  p.persona().espera(QStringLiteral("No esta permitido dos espacios en blanco"));
  QString queda;
  for (QChar k : QStringLiteral("a b  c d")) queda += FiltrarTeclaNombre(p, k, {ClaseTecla::Letras});
  EXPECT_EQ(QStringLiteral("a b \bc d"), queda);
}

TEST(Rutinas, TheClockMayNotStandBeforeTheLastOperation) {
  for (const auto& c : leerCasos("foundation/fecha")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    const QString fila = QStringLiteral("INSERT INTO %1 (cOperCode, dOperFech) VALUES (1, '%2')");
    if (!c.falta("operacion")) p.ejecuta(fila.arg(QStringLiteral("Operacion"), c["operacion"]));
    if (!c.falta("paralela")) p.ejecuta(fila.arg(QStringLiteral("OperacionParalela"), c["paralela"]));
    EXPECT_EQ(c.si("bien"), VerificarFechaSistema(p));
    if (!c.si("bien")) {
      p.ses.psConexionCentral = QStringLiteral("Data Source=sqlite:noesta.db");
      EXPECT_TRUE(VerificarFechaSistema(p));  // with the central database away nothing is checked
    }
  }
}

}  // namespace
