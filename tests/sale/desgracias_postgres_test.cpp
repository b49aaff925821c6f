// Sales beside a PostgreSQL of points that something happens to: the sale stands, is told plainly, takes two seconds at
// most, and its points come once or not at all.
#include <QElapsedTimer>
#include <algorithm>
#include <csignal>

#include "apoyo/motores_con_gancho.h"
#include "apoyo/servidor_prueba.h"
#include "loyalty/cliente_bd.h"
#include "loyalty/pendientes.h"
#include "platform/sql/motor_postgres.h"
#include "postgres/base_postgres.h"
#include "venta_prueba.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

ServidorPrueba& servidor() { return ServidorPrueba::uno(); }

// A desk with both servers on PostgreSQL: customer 5 on card 5, with 100 points.
struct Tienda {
  Tienda()
      : base(servidor().base(BaseServidor::Cliente)),
        central(servidor().base(BaseServidor::Central)),
        p([this](Motores& m) { return std::make_unique<MotoresConGancho>(m, gancho); }) {
    crudo(q("INSERT INTO Regla_Punto VALUES (1000, 10, 1);"
            "INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, iTipo, nPuntCant) VALUES (5, 1, 'ANA', 1, 100);"
            "INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (5, 1, '00000005')"));
    p.ejecuta(q("INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, iTipo, nPuntCant) VALUES (5, 1, 'ANA', 1, 100)"));
    p.ejecuta(q("INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi) VALUES (5, 1, '00000005', 1)"));
    p.persona().dejaPasar();
    p.ses.psConexionCliente = cadenaDe(base);
    p.ses.psConexionCentral = cadenaDe(central);
    LeerReglaPunto(p);
  }
  Recordset crudo(const QString& sql) { return servidor().crudo(base, sql); }
  // 42.50 for the card: four points. How long it took.
  qint64 vender() {
    CajaRegistradoraFull v;
    PantallasGuion pantallas;
    v.rejilla.filas = {filaVenta(101, q("Cafe"), 10, 3), filaVenta(102, q("Torta"), 12.5)};
    v.txtTarjeta = q("00000005");
    v.txtLocal = q("1");
    v.nIdLocal = 1;
    CalculaTotales(p, v);
    QElapsedTimer reloj;
    reloj.start();
    (void)GrabarVenta(p, v, pantallas);
    return reloj.elapsed();
  }
  // What a later try of the desk makes good.
  void reponer() {
    p.elReloj().ahora = p.elReloj().ahora.addSecs(120);
    if (ConectarCliente(p, false)) EnviarPendientesCliente(p);
    DesconectarCliente(p);
  }
  // "balance, rows of points": a sale's points must be in both or in none.
  QString puntos() {
    const Recordset rs = crudo(q("SELECT nPuntCant, (SELECT count(*) FROM Acumulacion_Punto) FROM Cliente"));
    return QStringLiteral("%1,%2").arg(rs[0].toInt()).arg(rs[1].toInt());
  }
  QString dicho() {
    QStringList todo;
    for (const auto& c : p.persona().vistas) todo << c.texto;
    return todo.join(u'\n');
  }

  // The processes of all sessions on both.
  std::vector<pid_t> sesiones() {
    std::vector<pid_t> todas;
    for (const auto f : crudo(QStringLiteral("SELECT pid FROM pg_stat_activity WHERE datname IN ('%1', '%2') AND pid "
                                             "<> pg_backend_pid()")
                                  .arg(base.catalogo, central.catalogo))) {
      todas.push_back(f[0].toInt());
    }
    return todas;
  }

  CadenaConexion base, central;
  std::function<void()> gancho = [] {};
  PuestoDeVenta p;
};

TEST(DesgraciasPostgres, TheSaleStandsAndIsTold) {
  // clang-format off
  const struct {
    const char* porque; void (*estorbo)(Tienda&); void (*remedio)(Tienda&); const char *dice, *queda;
  } kCasos[] = {
      {"nothing", [](Tienda&) {}, [](Tienda&) {}, "", "104,1"},
      {"away", [](Tienda&) { servidor().cortar(); }, [](Tienda&) { servidor().volver(); },
       "Las Operaciones se guardaran temporalmente", "104,1"},
      {"wrong password",
       [](Tienda& t) { t.p.ses.psConexionCliente = cadenaDe(t.base).replace(t.base.clave, q("otra")); },
       [](Tienda& t) { t.p.ses.psConexionCliente = cadenaDe(t.base); },
       "Las Operaciones se guardaran temporalmente", "104,1"},
      {"a table missing", [](Tienda& t) { t.crudo(q("ALTER TABLE Acumulacion_Punto RENAME TO otra")); },
       [](Tienda& t) { t.crudo(q("ALTER TABLE otra RENAME TO Acumulacion_Punto")); }, "acumulacion_punto", "100,0"},
      {"disk full",
       [](Tienda& t) {
         t.crudo(q("CREATE FUNCTION dbo.lleno() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN RAISE EXCEPTION 'no queda "
                   "sitio' USING ERRCODE = '53100'; END $$; CREATE TRIGGER lleno BEFORE INSERT ON Acumulacion_Punto "
                   "EXECUTE FUNCTION dbo.lleno()"));
       },
       [](Tienda& t) { t.crudo(q("DROP TRIGGER lleno ON Acumulacion_Punto")); },
       "Las Operaciones se guardaran temporalmente", "104,1"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    Tienda t;
    c.estorbo(t);
    EXPECT_LE(t.vender(), 2500);
    EXPECT_EQ(q("3"), t.p.filas(q("SELECT COUNT(*) FROM Operacion")));
    EXPECT_TRUE(t.dicho().contains(q(c.dice))) << qPrintable(t.dicho());
    EXPECT_EQ(*c.dice == '\0', t.dicho().isEmpty()) << qPrintable(t.dicho());
    c.remedio(t);
    t.reponer();
    EXPECT_EQ(q(c.queda), t.puntos());
    EXPECT_LE(t.vender(), 2500);
    EXPECT_EQ(q("6"), t.p.filas(q("SELECT COUNT(*) FROM Operacion")));
    t.reponer();
    EXPECT_EQ(QStringLiteral("%1,%2")
                  .arg(q(c.queda).section(u',', 0, 0).toInt() + 4)
                  .arg(q(c.queda).section(u',', 1).toInt() + 1),
              t.puntos());
  }
}

// Other sessions hold the customer's row and the documents of the centre, or both servers stop answering, at each thing
// that the sale asks them.
TEST(DesgraciasPostgres, AHeldLockAndASilentServerCostTwoSeconds) {
  for (const bool muda : {false, true}) {
    for (int en = 1, van = 0; en == 1 || van >= en; en += 3) {
      SCOPED_TRACE(QStringLiteral("%1 %2").arg(muda).arg(en).toStdString());
      Tienda t;
      ErrorBD error;
      const auto otra = MotorPostgres::abrir(t.base, 5000, error),
                 otraCentral = MotorPostgres::abrir(t.central, 5000, error);
      ASSERT_TRUE(otra && otraCentral);
      std::vector<pid_t> parados;
      van = 0;
      t.gancho = [&] {
        if (++van != en) return;
        if (!muda) {
          // Where the sale has the row itself by then, it keeps it.
          (void)otra->crudo(q("BEGIN; SELECT 1 FROM Cliente FOR UPDATE NOWAIT"));
          (void)otraCentral->crudo(q("BEGIN; LOCK TABLE venta01 NOWAIT"));
          return;
        }
        parados = t.sesiones();
        for (const pid_t pid : parados) ::kill(pid, SIGSTOP);
      };
      EXPECT_LE(t.vender(), 2800);
      EXPECT_EQ(q("3"), t.p.filas(q("SELECT COUNT(*) FROM Operacion")));
      for (const pid_t pid : parados) ::kill(pid, SIGCONT);
      if (!muda) {
        (void)otra->crudo(q("ROLLBACK"));
        (void)otraCentral->crudo(q("ROLLBACK"));
      }
      t.gancho = [] {};
      t.reponer();
      EXPECT_EQ(q("104,1"), t.puntos()) << qPrintable(t.dicho());
    }
  }
}

// The sessions are ended by their numbers right before each thing that the sale asks.
TEST(DesgraciasPostgres, ACutSessionLosesNothingAndDoublesNothing) {
  int van = 0;
  for (int en = 1; en == 1 || van >= en; ++en) {
    SCOPED_TRACE(en);
    Tienda t;
    van = 0;
    t.gancho = [&] {
      if (++van != en) return;
      for (const pid_t pid : t.sesiones()) t.crudo(QStringLiteral("SELECT pg_terminate_backend(%1)").arg(pid));
    };
    EXPECT_LE(t.vender(), 2500);
    EXPECT_EQ(q("3"), t.p.filas(q("SELECT COUNT(*) FROM Operacion")));
    t.gancho = [] {};
    t.reponer();
    EXPECT_EQ(q("104,1"), t.puntos()) << qPrintable(t.dicho());
  }
  EXPECT_GT(van, 5);
}

}  // namespace
