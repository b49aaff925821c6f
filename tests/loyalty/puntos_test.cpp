// Points: what a sale earns, where it is recorded, and what waits while the client database is away.
#include "loyalty/puntos.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "apoyo/casos.h"
#include "apoyo/golden.h"
#include "apoyo/otro_puesto.h"
#include "apoyo/plan_fallas.h"
#include "loyalty/cliente_bd.h"
#include "loyalty/pendientes.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

const ClavePuntos kBoleta{QStringLiteral("02"), QStringLiteral("001"), 33}, kOtra{kBoleta.tipo, kBoleta.serie, 34};
const QString kTarjeta = QStringLiteral("00000005");
const QDateTime kMomento(QDate(2026, 11, 23), QTime(21, 5));
const QString kFilas = QStringLiteral(
    "SELECT cClieCode, cAcumCode, nAcumImpo, nPuntCant, cDocTipo, cDocCodigo, IdLocal FROM Acumulacion_Punto");
const QString kSaldos = QStringLiteral("SELECT nPuntCant FROM Cliente ORDER BY IdLocal, cClieCode");

struct Tienda : PuestoPrueba {
  explicit Tienda(const Envolver& envolver = {}) : PuestoPrueba(envolver) {
    EXPECT_TRUE(ConectarCliente(*this, false));
    ejecutarArchivo(*this, poCnnCliente, "loyalty/casos/cliente.sql");
    ejecutarArchivo(*this, "loyalty/casos/copia.sql");
    LeerReglaPunto(*this);
  }
  void cae() { QFile::rename(base(), base() + u'x'); }
  void vuelve() { QFile::rename(base() + u'x', base()); }
  QString enCliente(const QString& sql) {
    Conexion c;
    EXPECT_FALSE(c.abrir(motores, ses.psConexionCliente, 1000));
    return filas(c, sql);
  }

 private:
  QString base() const { return rutas.enPrograma(q("cliente.db")); }
};

TEST(Puntos, WholeUnitsOnlyAndADivisorOfZeroCountsAsOne) {
  // clang-format off
  const struct { int cada, cantidad; double importe; int puntos; } kCasos[] = {
      {10, 1, 29.90, 2}, {10, 1, 9.99, 0}, {10, 3, 30, 9}, {0, 2, 4.5, 8}, {10, 1, -5, -1}, {1, 2, 5e9, 2147483647}};
  PuestoPrueba p;
  for (const auto& c : kCasos) {
    p.ses.pnPuntImpo = c.cada;
    p.ses.pnPuntCant = c.cantidad;
    EXPECT_EQ(c.puntos, CalcularPuntos(p, c.importe)) << c.importe;
  }
  // clang-format on
}

TEST(Puntos, OnlyACustomerThatEarnsHasABalanceAndRows) {
  Tienda p;
  AcumularPuntos(p, kTarjeta, kBoleta, 29.9, 1, kMomento);
  AcumularPuntos(p, kTarjeta, kBoleta, 5, 1, kMomento);                    // nothing earned, a row all the same
  AcumularPuntos(p, q("00000006"), kBoleta, 29.9, 1, kMomento);            // a company
  AcumularPuntos(p, q("00000009"), kBoleta, 29.9, 1, kMomento);            // no such card
  AcumularPuntos(p, kTarjeta, {q("14"), q("LQ1"), 1}, 29.9, 1, kMomento);  // a liquidation
  AcumularPuntos(p, QString(), kBoleta, 29.9, 1, kMomento);
  EXPECT_EQ(q("5|1|30|2|02|33|1\n5|2|5|0|02|33|1"), p.enCliente(kFilas));
  EXPECT_EQ(q("2026-11-23 21:05:00"), p.enCliente(q("SELECT DISTINCT dAcumDate FROM Acumulacion_Punto")));
  EXPECT_EQ(q("22\n0\n70"), p.enCliente(kSaldos));
  EXPECT_EQ(q("22"), SaldoPuntos(p, kTarjeta, 1));
  EXPECT_EQ(q("-1"), SaldoPuntos(p, q("00000006"), 1));
  EXPECT_EQ(q("-1"), SaldoPuntos(p, q("00000009"), 1));
  EXPECT_EQ(q("5"), ClienteDeTarjeta(p, kTarjeta, 2).codigo);
  p.ejecuta(p.poCnnCliente, q("UPDATE Cliente SET nPuntCant=-3 WHERE cClieCode=5 AND IdLocal=1"));
  EXPECT_FALSE(PuntosDelTicket(p, kBoleta, kTarjeta, 1, 20));  // the sum is below zero
  EXPECT_EQ(1, PuntosDelTicket(p, kBoleta, kTarjeta, 1, 40)->acumulado);
}

TEST(Puntos, NothingIsLostWhileTheClientDatabaseIsAway) {
  Tienda p;
  p.cae();
  p.persona().espera(q("No se pudo conectar a la Base de Datos Cliente."));  // once for the outage
  AcumularPuntos(p, kTarjeta, kBoleta, 29.9, 1, kMomento);
  AcumularPuntos(p, kTarjeta, kOtra, 40, 1, kMomento);
  AcumularPuntos(p, q("00000006"), kBoleta, 50, 0, kMomento);  // kind and site not known here
  EXPECT_EQ(q("5|1|30|2|02|33|1\n5|2|40|4|02|34|1\n6|1|50|5|02|33|0"), p.filas(kFilas));
  EXPECT_EQ(q("-1"), SaldoPuntos(p, kTarjeta, 1));
  p.persona().espera(q("No se logró Extornar los puntos acumulados del cliente Cod:0"));
  Extorna_puntos(p, kTarjeta, 29.9, 1, kBoleta);
  p.vuelve();
  ASSERT_TRUE(ConectarCliente(p, false));
  EnviarPendientesCliente(p);
  EnviarPendientesCliente(p);  // nothing waits any more
  EXPECT_EQ(q("5|1|30|2|02|33|1\n5|2|40|4|02|34|1"), p.enCliente(kFilas));
  EXPECT_EQ(q("26\n0\n70"), p.enCliente(kSaldos));
  EXPECT_EQ(q("0"), p.filas(q("SELECT COUNT(*) FROM Acumulacion_Punto WHERE cSincroFlag = 0")));
  Extorna_puntos(p, kTarjeta, 29.9, 1, kBoleta);
  EXPECT_EQ(q("24\n0\n70"), p.enCliente(kSaldos));
}

// The points of a sale that was voided must never be sent; what had been sent before goes back with the database back.
TEST(Puntos, AVoidTakesBackWhatWasSentAndDropsWhatWaits) {
  const ClavePuntos primera{q("02"), q("001"), 34}, segunda{q("02"), q("001"), 35};
  Tienda p;
  AcumularPuntos(p, kTarjeta, primera, 29.9, 1, kMomento);
  p.cae();
  p.persona().espera(q("No se pudo conectar a la Base de Datos Cliente."));
  AcumularPuntos(p, kTarjeta, segunda, 40, 1, kMomento);
  std::vector<Sql> quitarlos;
  ASSERT_TRUE(LeerPuntosEnEspera(p, segunda, quitarlos));
  for (const Sql& sql : quitarlos) EXPECT_FALSE(p.poCnnLocal.ejecutar(sql));
  Extorna_puntos(p, kTarjeta, 40, 1, segunda, !quitarlos.empty());  // nothing to take back, and no box
  EXPECT_EQ(q("0"), p.filas(q("SELECT SUM(nPuntCant) FROM Cliente")));
  p.vuelve();
  ASSERT_TRUE(p.ses.pbClienteCaido);
  quitarlos.clear();
  ASSERT_TRUE(LeerPuntosEnEspera(p, primera, quitarlos));
  EXPECT_TRUE(quitarlos.empty());
  Extorna_puntos(p, kTarjeta, 29.9, 1, primera);
  ASSERT_TRUE(ConectarCliente(p, false));
  EnviarPendientesCliente(p);
  EXPECT_EQ(QString(), p.enCliente(kFilas));
  EXPECT_EQ(q("20\n0\n70"), p.enCliente(kSaldos));
  // Of a sale that died before its points have come there is nothing to take back.
  Extorna_puntos(p, kTarjeta, 29.9, 1, segunda);
  EXPECT_EQ(q("20\n0\n70"), p.enCliente(kSaldos));
}

TEST(Puntos, ALockedClientDatabaseCountsAsAway) {
  Tienda p;
  Conexion otro;
  ASSERT_FALSE(otro.abrir(p.motores, p.ses.psConexionCliente, 1000));
  ASSERT_FALSE(otro.iniciar());
  p.persona().espera(q("No se pudo conectar a la Base de Datos Cliente."));
  QElapsedTimer reloj;
  reloj.start();
  AcumularPuntos(p, kTarjeta, kBoleta, 29.9, 1, kMomento);
  EXPECT_LT(reloj.restart(), 5'000);
  AcumularPuntos(p, kTarjeta, kOtra, 40, 1, kMomento);
  EXPECT_LT(reloj.elapsed(), 1'000);  // left alone for a while
  EXPECT_EQ(q("5|1|30|2|02|33|1\n5|2|40|4|02|34|1"), p.filas(kFilas));
  p.elReloj().ahora = p.elReloj().ahora.addSecs(60);
  ASSERT_TRUE(ConectarCliente(p, false));
  EnviarPendientesCliente(p);  // without a word
  ASSERT_FALSE(otro.deshacer());
  p.elReloj().ahora = p.elReloj().ahora.addSecs(60);
  ASSERT_TRUE(ConectarCliente(p, false));
  EnviarPendientesCliente(p);
  EXPECT_EQ(q("5|1|30|2|02|33|1\n5|2|40|4|02|34|1"), p.enCliente(kFilas));
  EXPECT_EQ(q("26\n0\n70"), p.enCliente(kSaldos));
}

// Card, site and number of the document; whose points they become, in the database or the queue.
TEST(Puntos, TheCardAndItsSiteTellWhosePointsTheyAre) {
  for (const auto& c : leerCasos("loyalty/titulares")) {
    SCOPED_TRACE(c.donde());
    Tienda p;
    ejecutarArchivo(p, p.poCnnLocal, "loyalty/casos/varios_locales.sql");
    ASSERT_TRUE(ConectarCliente(p, false));
    ejecutarArchivo(p, p.poCnnCliente, "loyalty/casos/varios_locales.sql");
    DesconectarCliente(p);
    p.persona().dejaPasar();
    if (c.si("caida")) p.cae();
    AcumularPuntos(p, c["tarjeta"], kBoleta, 29.9, c.entero("local"), kMomento);
    EXPECT_EQ(c["espera"], p.filas(q("SELECT cClieCode, IdLocal FROM Acumulacion_Punto WHERE cSincroFlag = 0")));
    if (c.si("caida")) p.vuelve();
    ASSERT_TRUE(ConectarCliente(p, false));
    p.ejecuta(p.poCnnCliente, q("DELETE FROM Tarjeta WHERE IdLocal = ") + c["sin"]);
    EnviarPendientesCliente(p);
    EXPECT_EQ(c["recibe"], p.enCliente(q("SELECT cClieCode, IdLocal FROM Acumulacion_Punto")));
  }
}

// Row and balance of the client database agree whatever fails, and no points are both there and in the queue.
TEST(Puntos, EachStatementOfAnAccrualFailsInTurn) {
  int n = 1, guardadas = 0;
  for (;; ++n) {
    PlanFallas plan;
    plan.cuenta = [](const QString& cadena) { return leerCadenaConexion(cadena).archivo == u"cliente.db"; };
    Tienda p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
    p.persona().dejaPasar();
    plan.armar(n);
    AcumularPuntos(p, kTarjeta, kBoleta, 29.9, 1, kMomento);
    if (plan.van() < n) break;
    SCOPED_TRACE(plan.sentencias[n - 1].toStdString());
    plan.armar(0);
    const int alla = p.enCliente(q("SELECT COUNT(*) FROM Acumulacion_Punto")).toInt();
    EXPECT_EQ(QString::number(20 + 2 * alla), p.enCliente(kSaldos).section(u'\n', 0, 0));
    guardadas += p.filas(q("SELECT COUNT(*) FROM Acumulacion_Punto WHERE cSincroFlag = 0")).toInt();
    EXPECT_EQ(0, alla);
  }
  EXPECT_EQ(4, guardadas);  // from begin to commit: the disk is full, the database counts as away
  EXPECT_GT(n, 6);
}

// The sending fails at each statement of either database, or dies before or behind it: what waits is sent once.
TEST(Puntos, EachStatementOfASendingFailsOrDiesInTurnAndTheNextOneGoesOn) {
  struct Muerto {};
  for (int caso = 2; caso < 2 * 36; ++caso) {
    const int n = caso / 2;
    const Muerte muerte = caso % 2 ? Muerte::despues : Muerte::no;
    PlanFallas plan;
    plan.cuenta = {};
    plan.catalogo = false;
    plan.morir = [] { throw Muerto(); };
    Tienda p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
    p.persona().dejaPasar();
    p.cae();
    AcumularPuntos(p, kTarjeta, kBoleta, 29.9, 1, kMomento);
    AcumularPuntos(p, kTarjeta, kOtra, 40, 1, kMomento);
    p.vuelve();
    ASSERT_TRUE(ConectarCliente(p, false));
    plan.armar(n, Falla::unaVez, muerte);
    try {
      EnviarPendientesCliente(p);
    } catch (const Muerto&) {
    }
    const int van = plan.van();
    plan.armar(0);
    plan.apagar(false);
    SCOPED_TRACE(n);
    p.elReloj().ahora = p.elReloj().ahora.addSecs(60);  // a commit that failed counts as away
    abrirAlmacen(p);
    ASSERT_TRUE(ConectarCliente(p, false));
    EnviarPendientesCliente(p);
    EXPECT_EQ(q("5|1|30|2|02|33|1\n5|2|40|4|02|34|1"), p.enCliente(kFilas));
    EXPECT_EQ(q("26\n0\n70"), p.enCliente(kSaldos));
    EXPECT_EQ(q("0"), p.filas(q("SELECT COUNT(*) FROM Acumulacion_Punto WHERE cSincroFlag = 0")));
    EXPECT_TRUE(van < 34) << van;
  }
}

}  // namespace
