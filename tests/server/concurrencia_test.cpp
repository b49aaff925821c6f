// Desks that draw numbers and write at once, each a process of its own.
#include <sys/wait.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <random>

#include "apoyo/servidor_prueba.h"
#include "foundation/transaccion.h"
#include "platform/sql_banco.h"
#include "platform/text/numero.h"
#include "postgres/base_postgres.h"

namespace {

constexpr int kCajas = 8;

// The next number of a run, and a row that takes it.
std::optional<ErrorBD> tomarNumero(Conexion& cnn, const Sql& maximo, const Sql& fila) {
  Recordset rs;
  if (auto e = cnn.consultar(maximo, rs)) return e;
  return cnn.ejecutar(FormatearSQL(fila, {AEntero(rs[0].toDouble())}));
}

// Draws from two runs that all desks share, now and then in the other order, until the time has passed; some acts are
// given up. How many stand, -1 for an error that asking again does not mend.
int trabajar(const QString& cadena, unsigned semilla, int duracion_ms) {
  const Sql venta = u"SELECT ISNULL(MAX(cCodVta),0) + 1 FROM venta01"_sql;
  const Sql filaVenta = u"INSERT INTO venta01 (cCodVta, TotVta) VALUES ($, 1)"_sql;
  const Sql operacion = u"SELECT ISNULL(MAX(cOperId),0) + 1 cOperId FROM operacion WHERE cCajaCodi='00001'"_sql;
  const Sql filaOperacion = u"INSERT INTO operacion (cOperID, cCajaCodi) VALUES ($, '00001')"_sql;
  std::mt19937 azar(semilla);
  const auto motores = motoresDelSistema({});
  Conexion cnn;
  if (cnn.abrir(*motores, cadena, 20000)) return -1;
  QElapsedTimer reloj;
  reloj.start();
  int hechos = 0;
  while (reloj.elapsed() < duracion_ms) {
    const bool alReves = azar() % 20 == 0, seDeja = azar() % 10 == 0;
    const auto error = EnTransaccion(cnn, [&]() -> std::optional<ErrorBD> {
      const auto e = alReves ? tomarNumero(cnn, venta, filaVenta) : tomarNumero(cnn, operacion, filaOperacion);
      if (e) return e;
      if (auto otro = alReves ? tomarNumero(cnn, operacion, filaOperacion) : tomarNumero(cnn, venta, filaVenta)) {
        return otro;
      }
      if (seDeja) return ErrorBD{};
      return cnn.ejecutar(u"UPDATE parametro SET nmonto1 = nmonto1 + 1 WHERE cCodParam = 'CUENTA'"_sql);
    });
    if (!error) ++hechos;
    else if (error->numero != 0 && !error->repetible()) {
      ADD_FAILURE() << qPrintable(error->descripcion);
      return -1;
    }
  }
  return hechos;
}

TEST(Concurrencia, EightDesksNeverMeetOnANumber) {
  const CadenaConexion c = ServidorPrueba::uno().base(
      BaseServidor::Central, {u8("INSERT INTO parametro (cCodParam, nmonto1) VALUES ('CUENTA', 0)")});
  const int duracion_ms = qEnvironmentVariableIsSet("TARVOPOS_LARGO") ? 60'000 : 3'000;
  std::vector<std::pair<pid_t, int>> hijos;  // with the end of a pipe that tells what stands
  for (unsigned i = 0; i < kCajas; ++i) {
    int tubo[2];
    ASSERT_EQ(0, ::pipe(tubo));
    const pid_t hijo = ::fork();
    if (hijo == 0) {
      const int hechos = trabajar(cadenaDe(c), 41 + i, duracion_ms);
      const bool dicho = ::write(tubo[1], &hechos, sizeof hechos) == sizeof hechos;
      ::_exit(dicho ? 0 : 1);
    }
    ASSERT_GT(hijo, 0);
    ::close(tubo[1]);
    hijos.emplace_back(hijo, tubo[0]);
  }
  int todos = 0;
  for (const auto& [hijo, tubo] : hijos) {
    int hechos = -1, estado = -1;
    EXPECT_EQ(static_cast<ssize_t>(sizeof hechos), ::read(tubo, &hechos, sizeof hechos));
    ::close(tubo);
    EXPECT_EQ(hijo, ::waitpid(hijo, &estado, 0));
    EXPECT_GT(hechos, 0);
    todos += hechos;
  }
  for (const char* run : {"SELECT COUNT(*), MIN(cCodVta), MAX(cCodVta) FROM venta01",
                          "SELECT COUNT(*), MIN(cOperID), MAX(cOperID) FROM operacion"}) {
    const Recordset rs = ServidorPrueba::uno().crudo(c, u8(run));
    EXPECT_EQ(todos, rs[0].toInt()) << run;
    EXPECT_EQ(1, rs[1].toInt()) << run;
    EXPECT_EQ(todos, rs[2].toInt()) << run;
  }
  EXPECT_EQ(todos, ServidorPrueba::uno().crudo(c, u8("SELECT nmonto1 FROM parametro"))[0].toInt());
  RecordProperty("actos", todos);
}

// Statements that were given as a list are done again when the server broke a knot of locks with them.
TEST(Concurrencia, AListOfStatementsIsDoneAgainAfterAKnotOfLocks) {
  const CadenaConexion c = ServidorPrueba::uno().base(
      BaseServidor::Central, {u8("INSERT INTO parametro (cCodParam, nmonto1) VALUES ('A', 0), ('B', 0)")});
  const auto suma = [](const char* codigo) {
    return FormatearSQL(u"UPDATE parametro SET nmonto1 = nmonto1 + 1 WHERE cCodParam = '$'"_sql, {Texto(u8(codigo))});
  };
  constexpr int kVeces = 25;
  std::vector<pid_t> hijos;
  for (int i = 0; i < 4; ++i) {
    hijos.push_back(::fork());
    if (hijos.back() != 0) continue;
    const auto motores = motoresDelSistema({});
    Conexion cnn;
    bool bien = !cnn.abrir(*motores, cadenaDe(c), 20000);
    const std::vector<Sql> orden =
        i % 2 ? std::vector<Sql>{suma("A"), suma("B")} : std::vector<Sql>{suma("B"), suma("A")};
    for (int n = 0; bien && n < kVeces; ++n) {
      const auto e = EjecutarJuntas(cnn, orden);
      EXPECT_FALSE(e) << qPrintable(e.value_or(ErrorBD{}).descripcion);
      bien = !e;
    }
    ::_exit(bien ? 0 : 1);
  }
  for (const pid_t hijo : hijos) {
    int estado = -1;
    EXPECT_EQ(hijo, ::waitpid(hijo, &estado, 0));
    EXPECT_EQ(0, estado);
  }
  const Recordset rs = ServidorPrueba::uno().crudo(c, u8("SELECT MIN(nmonto1), MAX(nmonto1) FROM parametro"));
  EXPECT_EQ(4 * kVeces, rs[0].toInt());
  EXPECT_EQ(4 * kVeces, rs[1].toInt());
}

}  // namespace
