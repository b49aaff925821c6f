#include "admin/consola_sql.h"
#include "apoyo/casos.h"

#include <cmath>
#include <sstream>

#include "apoyo_admin.h"

namespace {

// Says what was asked of it and answers from its fields.
class MotorDicho final : public Motor {
 public:
  std::optional<ErrorBD> error;
  QStringList campos;
  std::vector<std::vector<QVariant>> filas;
  QStringList pedido;

  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override {
    pedido << u8("consultar ") + sql;
    if (!error) rs.llenar(campos, filas);
    return error;
  }
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) override {
    pedido << u8("ejecutar ") + sql;
    if (!error) *afectadas = 3;
    return error;
  }
  std::optional<ErrorBD> iniciar() override { return {}; }
  std::optional<ErrorBD> confirmar() override { return {}; }
  std::optional<ErrorBD> deshacer() override { return {}; }
  QString traducir(const QString& sql) override { return u8("«") + sql + u8("»"); }
};

struct MotoresDichos final : Motores {
  MotorDicho* ultimo = nullptr;
  std::unique_ptr<Motor> abrir(const QString&, int, ErrorBD&) override {
    auto m = std::make_unique<MotorDicho>();
    ultimo = m.get();
    return m;
  }
};

struct Consola : testing::Test {
  Consola() { (void)cnn.abrir(motores, {}, 0); }
  std::string responde(const char* sql, bool traducir = false) {
    return ResponderSentencia(cnn, u8(sql), traducir).toStdString();
  }
  MotoresDichos motores;
  Conexion cnn;
};

TEST_F(Consola, CellsAsJson) {
  motores.ultimo->campos = {u8("a"), u8("con \"comillas\"")};
  motores.ultimo->filas = {
      {QVariant(), qint64(5)},
      {5.0, 0.1},
      {-2.5, std::nan("")},
      {u8("ñandú\t\"x\"\\\r\n\x01"), QDateTime(QDate(2026, 11, 24), QTime(10, 30, 5))},
      {qint64(9007199254740993), u8("")},
  };
  EXPECT_EQ("{\"columnas\":[\"a\",\"con \\\"comillas\\\"\"],\"filas\":[[null,5],[5,0.1],[-2.5,null],"
            "[\"ñandú\\t\\\"x\\\"\\\\\\r\\n\\u0001\",\"2026-11-24 10:30:05\"],[9007199254740993,\"\"]]}",
            responde("select 1"));
}

TEST_F(Consola, Answers) {
  motores.ultimo->campos = {u8("x")};
  EXPECT_EQ("{\"columnas\":[\"x\"],\"filas\":[]}", responde("select x from t where 1=0"));
  EXPECT_EQ("{\"afectadas\":3}", responde("update t set x = 1"));
  EXPECT_EQ("{\"afectadas\":3,\"sql\":\"«update t»\"}", responde("update t", true));
  motores.ultimo->campos.clear();
  EXPECT_EQ("{\"afectadas\":0}", responde("exec dbo.p '1'"));
  motores.ultimo->error = ErrorBD{kErrorSentencia, kNativoClaveDuplicada, u8("clave \"doble\"")};
  EXPECT_EQ("{\"error\":{\"numero\":2147749396,\"nativo\":-1605,\"descripcion\":\"clave \\\"doble\\\"\"}}",
            responde("insert into t values (1)"));
}

TEST(SoloCambiaPrueba, TheVerbDecides) {
  for (const auto& c : leerCasos("admin/solo_cambia")) EXPECT_EQ(c.si("cambia"), SoloCambia(c["sql"])) << c.donde();
}

TEST_F(Consola, OneAnswerALineAndBlankLinesNone) {
  motores.ultimo->campos = {u8("x")};
  std::istringstream entrada("\xEF\xBB\xBFselect 'ñ'\r\n\n   \nupdate t set a=1\nselect 2");
  std::ostringstream salida;
  ConsolaSql(cnn, entrada, salida, false);
  EXPECT_EQ("{\"columnas\":[\"x\"],\"filas\":[]}\n{\"afectadas\":3}\n{\"columnas\":[\"x\"],\"filas\":[]}\n",
            salida.str());
  EXPECT_EQ("consultar select 'ñ'\nejecutar update t set a=1\nconsultar select 2",
            texto(motores.ultimo->pedido.join(u'\n')));
}

}  // namespace
