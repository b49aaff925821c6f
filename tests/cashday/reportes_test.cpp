#include "cashday/reportes.h"

#include <gtest/gtest.h>

#include "apoyo/plan_fallas.h"
#include "platform/text/numero.h"
#include "reporte_prueba.h"

namespace {

QString u8(const char* s) { return QString::fromUtf8(s); }

const char* const kContadores = "SELECT prn, idz, Imac FROM _Tmp1 ORDER BY prn";
const char* const kCierres = "SELECT idz, tvd, fec, prn FROM _Tmp ORDER BY prn";
const char* const kCabeceraZ =
    "SELECT IdZ, Caja, CantidadTotal, MontoTotal, Fecha, CodigoRep, cOperIdIni, cOperIdFin, cOperIdPIni, cOperIdPFin, "
    "bFlagSincro FROM CabeceraZ";
const char* const kDetalleZ = "SELECT IdZ, Caja, nItem, CodProd, DscProd, Cantidad FROM DetalleZ ORDER BY nItem";
const char* const kDia = "SELECT cCodiTurno, iCierreCaja FROM Configuracion";

TEST(Reportes, AClosingLeavesItsRows) {
  PuestoDeReporte p;
  p.cargarDia();
  EXPECT_TRUE(p.cerrarZ1());
  EXPECT_EQ(u8("1|41|1000\n2|1|2152.32"), p.filas(u8(kContadores))) << "after maxid comes 1";
  EXPECT_EQ(u8("1|152.32|2026-11-24 10:30:00|2"), p.filas(u8(kCierres)));
  EXPECT_EQ(u8("1|00001|15|152.32|2026-11-24 00:00:00|Código Rep. Z1: 000001|2|25|3|12|0"), p.filas(u8(kCabeceraZ)));
  EXPECT_EQ(u8("TICKET") + QString(23, u' ') + u8("0000006   \r\n") + QString(33, u' ') + u8("*79.52\r\n"),
            p.filas(u8("SELECT RangoTKBOL FROM CabeceraZ")));
  EXPECT_EQ(u8("1|00001|1|102|TORTA DE CHOCOLATE Y NUEZ|7\n1|00001|2|101|CAFE PASADO DE ALTURA|6\n"
               "1|00001|3|103|AGUA DE MESA|5"),
            p.filas(u8(kDetalleZ)));
  EXPECT_EQ(u8("01|3"), p.filas(u8(kDia))) << "the turn is left for the main Z";
  EXPECT_TRUE(p.cerrarZ());
  EXPECT_EQ(u8("1|42|1121.41\n2|1|2152.32"), p.filas(u8(kContadores)));
  EXPECT_EQ(u8("42|121.41|2026-11-24 10:30:00|1\n1|152.32|2026-11-24 10:30:00|2"), p.filas(u8(kCierres)));
  EXPECT_EQ(u8("|4"), p.filas(u8(kDia)));
  EXPECT_EQ(u8(""), p.ses.psTurno);
  EXPECT_EQ(u8("11|2"),
            p.filas(u8("SELECT cOperTipo, COUNT(*) FROM Operacion WHERE cOperTipo = 11 GROUP BY cOperTipo")));
}

TEST(Reportes, AZ1ThatIsPrintedAgainWritesOverItsRow) {
  PuestoDeReporte p;
  p.cargarDia();
  p.ejecuta(u8("INSERT INTO CabeceraZ (IdZ, Caja, cOperIdFin) VALUES (6, '00001', 2)"));
  EXPECT_TRUE(p.cerrarZ1());
  p.ejecuta(u8("UPDATE Configuracion SET iCierreCaja = 2"));
  EXPECT_TRUE(p.cerrarZ1());
  EXPECT_EQ(u8("6|0|2\n7|2|26"), p.filas(u8("SELECT IdZ, cOperIdIni, cOperIdFin FROM CabeceraZ ORDER BY IdZ")));
  EXPECT_EQ(u8("3"), p.filas(u8("SELECT COUNT(*) FROM DetalleZ WHERE IdZ = 7")));
}

TEST(Reportes, ThePeriodIsTheMarksOrTheOpenFlag) {
  for (const char* falta : {"cOperId", "cOperIdP"}) {
    PuestoDeReporte p;
    p.cargarDia();
    p.ejecuta(u8("UPDATE Configuracion SET %1 = NULL").arg(u8(falta)));
    p.ejecuta(u8("UPDATE Operacion SET cOperFlagAbierto = 0 WHERE cOperCode <> 19"));
    EXPECT_TRUE(ReportesEspeciales(p, PedidoZ(0)).hecho());
    EXPECT_TRUE(p.papeles().papel[u8("LPT1")].contains("TOTAL" + QByteArray(29, ' ') + "*1.00"));
  }
}

TEST(Reportes, WhatEndsAReport) {
  // clang-format off
  const struct {
    const char *porque, *fecha;
    std::vector<const char*> cajas;
  } casos[] = {
      {"the date is none", "31/02/2026", {"Ingrese una fecha", "La fecha debe tener el formato dd/mm/yyyy"}},
      {"the date is not given", "Cancelar", {"Ingrese una fecha"}},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    PuestoDeReporte p;
    for (const char* caja : c.cajas) p.persona().espera(u8(caja), u8(c.fecha));
    EXPECT_FALSE(ReportesEspecialesFecha(p, u8("Z")).hecho());
    EXPECT_EQ(u8("0"), p.filas(u8("SELECT COUNT(*) FROM Operacion WHERE cOperTipo = 10")));
    EXPECT_TRUE(p.papeles().papel.isEmpty());
  }
}

TEST(Reportes, GiveUpAfterTheirAttempts) {
  // clang-format off
  const struct { const char* porque; bool (*imprimir)(PuestoDeReporte&); int intentos; const char* marcas; } casos[] = {
      {"X", [](PuestoDeReporte& p) { return ReportesEspeciales(p, PedidoX()).hecho(); }, 4, "4"},
      {"Z1", [](PuestoDeReporte& p) { return p.cerrarZ1(); }, 3, "3"},
      {"Z by date, no mark", [](PuestoDeReporte& p) { return ReportesEspecialesFecha(p, u8("Z")).hecho(); }, 4, "0"},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    PuestoDeReporte p;
    p.persona().dejaPasar();
    p.ejecuta(u8("DROP TABLE Tipo_Cambio"));
    EXPECT_FALSE(c.imprimir(p));
    int vacias = 0;
    for (const auto& caja : p.persona().vistas) vacias += caja.texto.isEmpty();
    EXPECT_EQ(c.intentos - 1, vacias);
    EXPECT_TRUE(p.persona().vistas.back().texto.startsWith(u8("No fue posible imprimir reporte")));
    EXPECT_EQ(u8(c.marcas), p.filas(u8("SELECT COUNT(*) FROM Operacion")));
    EXPECT_EQ(u8("1|0\n2|0"), p.filas(u8("SELECT prn, idct FROM _Tmp1 ORDER BY prn"))) << "no correlative is drawn";
  }
}

TEST(Reportes, TheLastDayOfAllHasItsReport) {
  PuestoDeReporte p;
  p.cargarDia();
  p.persona().espera(u8("Ingrese una fecha"), u8("31/12/9999"));
  p.persona().espera(u8("Para registrar ventas en dólares debe registrar el tipo de cambio"));
  EXPECT_TRUE(ReportesEspecialesFecha(p, u8("Z")).hecho());
  EXPECT_TRUE(p.papeles().papel[u8("LPT1")].contains("31/12/9999"));
}

// Without the central database all reports are made: what needs it is left out, and the paper says so.
TEST(Reportes, GoOnWithoutTheCentralDatabase) {
  PuestoDeReporte con, sin;
  for (PuestoDeReporte* p : {&con, &sin}) {
    p->cargarDia();
    if (p == &sin) QFile::remove(p->rutas.enPrograma(u8("central.db")));
    EXPECT_TRUE(ReportesEspeciales(*p, PedidoX()).hecho());
    EXPECT_TRUE(ReportesEspeciales1(*p, PedidoX()).hecho());
    EXPECT_TRUE(p->cerrarZ1() && p->cerrarZ());
    p->persona().espera(u8("Ingrese una fecha"), u8("24/11/2026"));
    EXPECT_TRUE(ReportesEspeciales1Fecha(*p, u8("Z")).hecho());
    for (const char* rollo : {"LPT1", "LPT2"}) {
      const QByteArray papel = p->papeles().papel[u8(rollo)];
      EXPECT_EQ(p == &con, papel.contains("IGV FACTURA"));
      EXPECT_EQ(p == &sin, papel.contains("SIN SERVIDOR CENTRAL"));
    }
  }
  for (const char* tabla : {"_Tmp", "_Tmp1", "CabeceraZ", "DetalleZ"}) {
    const QString todo = u8("SELECT * FROM ") + u8(tabla);
    EXPECT_EQ(con.filas(todo), sin.filas(todo));
  }
}

// Each statement of the store fails in turn, once or for good, in a closing of both printers.
TEST(Reportes, EachStatementOfAClosingHasItsTurn) {
  for (const Falla falla : {Falla::unaVez, Falla::desdeAhi}) {
    int n = 1;
    for (;; ++n) {
      PlanFallas plan;
      PuestoDeReporte p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
      p.cargarDia();
      p.persona().dejaPasar();
      plan.armar(n, falla);
      const bool z1 = p.cerrarZ1();
      const bool z = p.cerrarZ();
      if (plan.van() < n) break;
      SCOPED_TRACE(qPrintable(QString::number(n) + u' ' + plan.sentencias[n - 1]));
      plan.armar(0);
      if (falla == Falla::desdeAhi) (void)p.poCnnLocal.deshacer();  // what a dead disk would not have
      const QString cabeceras = p.filas(u8("SELECT IdZ, MontoTotal FROM CabeceraZ"));
      EXPECT_EQ(z1 ? u8("1|152.32") : QString(), cabeceras) << "whole or not at all";
      EXPECT_EQ(z1 ? u8("3") : u8("0"), p.filas(u8("SELECT COUNT(*) FROM DetalleZ")));
      EXPECT_EQ(z ? u8("|4") : z1 ? u8("01|3") : u8("01|0"), p.filas(u8(kDia)));
      EXPECT_EQ(z ? u8("") : u8("01"), p.ses.psTurno);
      const QString contadores = p.filas(u8(kContadores)), cierres = p.filas(u8(kCierres));
      EXPECT_EQ(contadores.contains(u8("1|42|1121.41")), cierres.contains(u8("42|121.41"))) << qPrintable(contadores);
      EXPECT_EQ(contadores.contains(u8("2|1|2152.32")), cierres.contains(u8("1|152.32")));
      EXPECT_LE(cierres.count(u'\n'), 1) << "a total counts once";
      if (falla == Falla::unaVez) EXPECT_TRUE(z && z1) << "a failure that passes ends in paper";
      else EXPECT_EQ(u8("Error"), p.persona().vistas.back().titulo);
    }
    EXPECT_GT(n, 90);
  }
}

TEST(EnviarDetalleZ1, SendsTheSalesOnceOrNotAtAll) {
  const char* const kDetalle = "SELECT nidZ1, cCajaCodi, dOperFech, cAlmaCode, cdocTipo, cProdCode, nProdCant, nMonto "
                               "FROM TDETALLEZ1 ORDER BY cdocTipo, cProdCode";
  PuestoDeReporte p;
  p.cargarDia();
  EXPECT_TRUE(EnviarDetalleZ1(p, -1));
  EXPECT_EQ(u8("1"), p.ses.psIdZ1);
  const QString d = u8("1|00001|2026-11-24 00:00:00|01|");
  const QString filas = d + u8("01|102|3|35.4\n") + d + u8("01|103|1|6.49\n") + d + u8("02|101|4|51.2\n") + d +
                        u8("02|102|1|10.62\n") + d + u8("02|103|3|17.7\n") + d + u8("10|101|2|25.6\n") + d +
                        u8("10|103|1|5.31\n") + d + u8("11|102|3|35.4");
  EXPECT_EQ(filas, p.filas(p.poCnnCentral, u8(kDetalle)));
  // A closing that died here is begun again: what it left under -1 goes.
  EXPECT_TRUE(EnviarDetalleZ1(p, -1));
  EXPECT_EQ(u8("8"), p.filas(p.poCnnCentral, u8("SELECT COUNT(*) FROM TDETALLEZ1")));
  EXPECT_EQ(u8("1"), p.filas(p.poCnnCentral, u8("SELECT COUNT(*) FROM TCABECERAZ1 WHERE nidEstado = -1")));
  const QString antes = p.ses.psIdZ1;
  p.ejecuta(p.poCnnCentral, u8("DROP TABLE TDETALLEZ1"));
  p.persona().espera(u8("El detalle de ventas del cierre (Z1) no llegó a la base central: "));
  EXPECT_FALSE(EnviarDetalleZ1(p, -1));
  EXPECT_EQ(antes, p.ses.psIdZ1);
}

}  // namespace
