#include "cashday/apertura.h"

#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/otro_puesto.h"
#include "cashday/marcas.h"
#include "cashday/pantallas_guion.h"
#include "cashday/principal.h"
#include "cashday/tipo_cambio.h"

namespace {

const char* const kDia = "SELECT cCodiTurno, nImporApertSol, nImporApertDol, cOperId, cOperIdP FROM Configuracion";

void operacion(PuestoPrueba& p, int id, const QString& fecha, int abierta, int tipo = 1) {
  p.ejecuta(QStringLiteral("INSERT INTO Operacion (cOperId, dOperFech, cOperFlagAbierto, cOperTipo) "
                           "VALUES (%1, '%2', %3, %4)")
                .arg(id)
                .arg(fecha)
                .arg(abierta)
                .arg(tipo));
}

void paralela(PuestoPrueba& p, int codigo, const QString& fecha, int abierta) {
  p.ejecuta(QStringLiteral("INSERT INTO OperacionParalela (cOperCode, dOperFech, cOperFlagAbierto) "
                           "VALUES (%1, '%2', %3)")
                .arg(codigo)
                .arg(fecha)
                .arg(abierta));
}

void cerrado(PuestoPrueba& p) {
  p.ses.psTurno.clear();
  p.ejecuta(QStringLiteral("UPDATE Configuracion SET cCodiTurno = ''"));
}

}  // namespace

TEST(CapturaTipoCambio, TakesTheRateOfToday) {
  // clang-format off
  const struct { const char *porque, *fecha; double rate; bool pide; } casos[] = {
      {"today's row", "24/11/2026", 3.75, false},
      {"only yesterday's row", "23/11/2026", 0, true},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    PuestoPrueba p;
    PantallasGuion pantallas;
    p.ejecuta(QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('%1', '3.75')")
                  .arg(QString::fromLatin1(c.fecha)));
    if (c.pide) p.persona().espera("Para registrar ventas en dólares debe registrar el tipo de cambio");
    CapturaTipoCambio(p, pantallas);
    EXPECT_DOUBLE_EQ(c.rate, p.ses.pnTipoCambio) << "a rate of another day must not stay";
    EXPECT_EQ(c.pide ? QStringList{"T.C. 0"} : QStringList{}, pantallas.abiertas);
  }
}

// A till left on overnight.
TEST(TipoCambio, OfAnotherDayIsForgottenBeforeARegisterOpens) {
  PuestoPrueba p;
  PantallasGuion pantallas;
  OlvidarTipoCambioPasado(p);
  EXPECT_DOUBLE_EQ(3, p.ses.pnTipoCambio) << "today's stays";
  AsegurarTipoCambio(p, pantallas);
  EXPECT_TRUE(pantallas.abiertas.isEmpty());
  p.elReloj().ahora = p.elReloj().ahora.addDays(1);
  EXPECT_EQ("", EstadoPrincipal(p).tipoCambio) << "nor is it shown";
  p.persona().espera("Para registrar ventas en dólares debe registrar el tipo de cambio");
  AsegurarTipoCambio(p, pantallas);
  EXPECT_EQ(QStringList{"T.C. 0"}, pantallas.abiertas);
  EXPECT_DOUBLE_EQ(0, p.ses.pnTipoCambio);
  p.ejecuta(QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('25/11/2026', '3.80')"));
  AsegurarTipoCambio(p, pantallas);
  EXPECT_DOUBLE_EQ(3.8, p.ses.pnTipoCambio);
}

TEST(AbrirCaja, OpensTheDay) {
  PuestoPrueba p;
  cerrado(p);
  operacion(p, 40, "23/11/2026 10:00", 0);
  operacion(p, 41, "24/11/2026 09:00", 1);
  paralela(p, 7, "23/11/2026 10:00", 0);
  const FrmApertura v{"1,200.50", "80.00"};
  p.persona().espera("Se ha aperturado la caja.");
  const ResultadoApertura r = AbrirCaja(p, v);
  EXPECT_TRUE(r.hecha);
  EXPECT_EQ("01|1200.5|80|40|7", p.filas(kDia));
  EXPECT_EQ("01", p.ses.psTurno);
  EXPECT_FALSE(r.quedoDiaAnterior);
  EXPECT_EQ("1", p.filas("SELECT COUNT(*) FROM Operacion WHERE cOperFlagAbierto = 1"))
      << "an empty _Tmp says nothing of earlier days";
}

TEST(AbrirCaja, RefusesWhatIsNoNumber) {
  for (const auto& c : leerCasos("cashday/apertura_mala")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    cerrado(p);
    const QString antes = p.filas(kDia);
    const FrmApertura v{c["soles"], c["dolares"]};
    p.persona().espera(c["dice"]);
    const ResultadoApertura r = AbrirCaja(p, v);
    EXPECT_FALSE(r.hecha);
    EXPECT_EQ(c["campo"], r.campoMal);
    EXPECT_EQ(antes, p.filas(kDia));
    EXPECT_EQ("", p.ses.psTurno);
  }
}

TEST(AbrirCaja, TenDigitsAreTheMost) {
  PuestoPrueba p;
  cerrado(p);
  const FrmApertura v{"9,999,999,999.99", "0.00"};
  p.persona().espera("Se ha aperturado la caja.");
  EXPECT_TRUE(AbrirCaja(p, v).hecha);
  EXPECT_EQ("01|9999999999.99|0|0|0", p.filas(kDia));
}

TEST(AbrirCaja, ClosesWhatAnEarlierDayLeftOpen) {
  for (const auto& c : leerCasos("cashday/quedo_abierto")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    cerrado(p);
    p.ejecuta(QStringLiteral("INSERT INTO _Tmp (fec) VALUES ('23/11/2026 22:00')"));
    operacion(p, 40, "22/11/2026 10:00", 0);
    paralela(p, 7, "22/11/2026 10:00", 0);
    if (c.si("operacion")) operacion(p, 45, "23/11/2026 10:00", 1);
    if (c.si("paralela")) paralela(p, 9, "23/11/2026 10:00", 1);
    operacion(p, 50, "24/11/2026 08:00", 1);
    p.persona().espera("Se ha aperturado la caja.");
    for (int n = 0; n < c.entero("cajas"); ++n) {
      p.persona().espera("NO se cerraron operaciones anteriores. \r\nRecuerde que debe procesar el menu SINCRONIZAR "
                         "DATOS (DIA ANTERIOR) antes del mediodia!!! ");
    }
    const ResultadoApertura r = AbrirCaja(p, {});
    EXPECT_TRUE(r.hecha);
    EXPECT_EQ(c["marcas"], p.filas("SELECT cOperId, cOperIdP FROM Configuracion")) << "the marks as after the closing";
    EXPECT_EQ(c.si("operacion"), r.quedoDiaAnterior) << "only sales free the entry";
    EXPECT_EQ("50", p.filas("SELECT cOperId FROM Operacion WHERE cOperFlagAbierto = 1"));
  }
}

TEST(AbrirCaja, AStoreThatFailsOpensNothing) {
  for (const auto& c : leerCasos("cashday/apertura_rota")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    cerrado(p);
    p.ejecuta(c["rompe"]);
    if (!c["turno"].isEmpty()) p.persona().espera("Se ha aperturado la caja.");
    p.persona().espera(" - ");  // the engine's words
    p.persona().espera("No se pudo aperturar la Caja.");
    const ResultadoApertura r = AbrirCaja(p, {});
    EXPECT_FALSE(r.hecha);
    EXPECT_EQ("Mensaje", p.persona().vistas.back().titulo);
    EXPECT_EQ(c["turno"], p.ses.psTurno);
    EXPECT_EQ("", r.campoMal);
  }
}

// Killed behind each statement, or failing from it on: after the next start nothing of yesterday counts, and what has
// been sold since does, even by a clock that was set back.
TEST(AbrirCaja, AnOpeningThatDiedIsCompletedByTheNextStart) {
  for (const Muerte muerte : {Muerte::despues, Muerte::no}) {
    int n = 1, completadas = 0;
    for (bool llega = true; llega; ++n) {
      SCOPED_TRACE(n);
      PlanFallas plan;
      PuestoPrueba p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
      cerrado(p);
      p.ejecuta(QStringLiteral("INSERT INTO _Tmp (fec) VALUES ('23/11/2026 22:00')"));
      for (int id : {40, 45}) operacion(p, id, "23/11/2026 10:00", id == 45);
      for (int id : {7, 9}) paralela(p, id, "23/11/2026 10:00", id == 9);
      p.persona().dejaPasar();
      llega = 0 != enOtroProceso(p, [&] {
                plan.armar(0);
                abrirAlmacen(p);
                plan.armar(n, Falla::desdeAhi, muerte);
                (void)AbrirCaja(p, {});
                ::_exit(plan.van() >= n ? 1 : 0);
              });
      p.ses.psTurno = p.filas("SELECT cCodiTurno FROM Configuracion");
      Principal principal;
      if (p.ses.psTurno.isEmpty()) {
        EXPECT_TRUE(AbrirCaja(p, {}).hecha);
      }
      operacion(p, 60, "23/11/2026 21:00", 1);
      CargarPrincipal(p, principal);
      completadas += principal.sincronizarDiaAnt;
      EXPECT_EQ("01|0|0|45|9", p.filas(kDia));
      EXPECT_EQ("60", p.filas("SELECT cOperId FROM Operacion WHERE cOperFlagAbierto = 1"));
      EXPECT_EQ("0", p.filas("SELECT COUNT(*) FROM OperacionParalela WHERE cOperFlagAbierto = 1"));
    }
    EXPECT_GT(n, 12);
    EXPECT_GT(completadas, 3);
  }
}

TEST(HayOperaciones, CountsAboveTheMark) {
  for (const auto& c : leerCasos("cashday/hay_operaciones")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    p.ejecuta(QStringLiteral("UPDATE Configuracion SET cOperId = %1").arg(c["marca"]));
    operacion(p, c.entero("id"), "24/11/2026 09:00", c.entero("abierta"), c.entero("tipo"));
    EXPECT_EQ(c.si("hay"), HayOperaciones(p));
  }
}

TEST(MascaraApertura, LeavesAlone) {
  EXPECT_EQ("1,234.50", MascaraApertura("1234.5"));
  EXPECT_EQ("12x", MascaraApertura("12x"));
  EXPECT_EQ("", MascaraApertura(""));
}
