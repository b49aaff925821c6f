// Properties of the reports over random days, and that no report reads the history.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cmath>
#include <map>

#include "apoyo/motor_que_falla.h"
#include "cashday/cierre_z.h"
#include "reporte_prueba.h"

namespace {

QString u8(const char* s) { return QString::fromUtf8(s); }

// One ticket: a line with a percentage and service, its tender row, and its void now and then.
void ticket(PuestoPrueba& p, int codigo, const QString& turno) {
  const int tipo = *rc::gen::element(1, 1, 2, 3, 5), cant = *rc::gen::inRange(1, 9), anulada = *rc::gen::inRange(0, 5) == 0;
  const double precio = *rc::gen::inRange(1, 9999) / 100.0, dolares = *rc::gen::element(0, 0, 20);
  const char* doc = tipo == 5 ? "" : *rc::gen::inRange(0, 3) == 0 ? "01" : "02";
  const auto fila = [&](int cod, int prod, double cantidad, double pu, double soles, int anula) {
    p.ejecuta(u8("INSERT INTO Operacion (cOperCode, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio, cDocTipo, "
                 "cTurnoCodi, cOperTipo, cOperFlagAnula, cOperCodeAnula, nMontoSoles, nMontoDolares, cEmisor) VALUES "
                 "(%1, '01', %2, %3, %4, %5, %6, '%7', '%8', %9, %10, %11, %12, %13, '%14')")
                  .arg(cod).arg(prod).arg(cantidad).arg(pu).arg(prod ? *rc::gen::element(0, -10, 10, -100) : 0)
                  .arg(prod ? *rc::gen::element(0, 10) : 0).arg(u8(doc), turno).arg(tipo).arg(anulada).arg(anula)
                  .arg(soles).arg(prod ? 0 : dolares).arg(tipo == 2 ? u8(",VI") : QString()));
  };
  const int producto = tipo == 5 ? 0 : *rc::gen::inRange(101, 104);
  fila(codigo, producto, cant, precio, 0, 0);
  if (tipo != 5 && *rc::gen::arbitrary<bool>()) fila(codigo, 0, 1, -1.5, precio, 0);
  if (anulada) fila(codigo + 500, producto, -cant, precio, 0, codigo);
}

// The turn-bound figures of a period by name.
std::map<std::string, double> cifras(PuestoPrueba& p, const QString& turno) {
  LectorReporte l(p, {u8(" and o.cOperId > 0 "), u8(" and o.cOperCode > 0 ")}, turno);
  const CifrasReporte c = LeerCifras(p, l, kConsultasX, nullptr);
  const auto t = LeerImpuestos(p, l, kImpresoraPrincipal);
  const BloqueZ z = LeerBloqueZ(l, kImpresoraPrincipal);
  RC_ASSERT(l.bien() && t.has_value());
  std::map<std::string, double> m = {
      {"items", c.nItems}, {"venta", c.nVenta}, {"tickets", c.nTickets}, {"vouchers", c.nVouchers}, {"voucher", c.nVoucher},
      {"nulos", c.nNulos}, {"nulosMonto", c.nNulosMonto}, {"igv 01", t->igvFactura}, {"igv 02", t->igvBoleta},
      {"servicio", t->servicio}, {"boletas", z.boletas[0].monto}, {"facturas", z.facturas[0].monto}};
  for (const auto& f : c.productos) m["producto " + std::to_string(f.cProdCode)] = f.cantidad;
  return m;
}

TEST(ReportesPropiedades, TheTurnsAddUpToTheDay) {
  PuestoDeReporte p;
  for (int n = 101; n < 104; ++n) p.articulo(n, u8("A%1").arg(n), 1);
  p.ejecuta(u8("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('24/11/2026', 3.75)"));
  const bool bien = rc::check([&p] {
    RC_ASSERT(!p.poCnnLocal.iniciar());
    std::map<std::string, double> suma;
    int codigo = 0;
    const int turnos = *rc::gen::inRange(1, 4);
    for (int t = 1; t <= turnos; ++t) {
      for (int n = *rc::gen::inRange(0, 8); n > 0; --n) ticket(p, ++codigo, u8("0%1").arg(t));
    }
    for (int t = 1; t <= turnos; ++t) {
      for (const auto& [nombre, valor] : cifras(p, CondicionTurno(u8("0%1").arg(t)))) suma[nombre] += valor;
    }
    auto dia = cifras(p, {});
    (void)p.poCnnLocal.deshacer();
    for (const auto& [nombre, valor] : dia) {
      RC_LOG() << nombre << ' ' << valor << ' ' << suma[nombre] << '\n';
      RC_ASSERT(std::abs(valor - suma[nombre]) < 1e-6);
    }
    RC_ASSERT(std::abs(dia["boletas"] + dia["facturas"] - dia["venta"]) < 1e-6);
  });
  EXPECT_TRUE(bien);
}

// Value = base + IGV + service, so the total splits without a rest.
TEST(ReportesPropiedades, TheTaxSectionSplitsTheTotal) {
  PuestoDeReporte p;
  p.cargarDia();
  LectorReporte l(p, {u8(" and o.cOperId > 2 "), {}}, {});
  const auto t = LeerImpuestos(p, l, kImpresoraPrincipal);
  const QString base = p.filas(u8("SELECT SUM((nProdCant * nProdPrecUnit * (100 + nDscto) / 100) / (1.18 + nServicio / 100)) "
                                  "FROM Operacion WHERE cOperId > 2 AND cOperFlagAnula = 0 AND cProdCode <> 0"));
  ASSERT_TRUE(t);
  EXPECT_NEAR(121.41, base.toDouble() + t->igvFactura - 10 + t->igvBoleta - 3.60 + t->servicio, 1e-9);
}

// The planner never walks a table of operations, nor takes an index on kind or state, whatever bounds the period.
TEST(ReportesPropiedades, NoReportReadsTheHistory) {
  for (const char* periodo : {"marcas", "abierto", "fecha"}) {
    PlanFallas plan;
    PuestoDeReporte p([&plan](Motores& m) { return std::make_unique<MotoresQueFallan>(m, plan); });
    p.cargarDia();
    if (*periodo == 'a') p.ejecuta(u8("UPDATE Configuracion SET cOperId = NULL"));
    plan.armar(0);
    if (*periodo == 'f') {
      for (int n = 0; n < 2; ++n) p.persona().espera(u8("Ingrese una fecha"), u8("24/11/2026"));
      EXPECT_TRUE(ReportesEspeciales1Fecha(p, p.v, u8("Z")) && ReportesEspecialesFecha(p, p.v, u8("Z")));
    } else {
      EXPECT_TRUE(EnviarDetalleZ1(p, -1) && p.cerrarZ1() && p.cerrarZ());
    }
    const QStringList sentencias = plan.sentencias;
    int vistas = 0;
    for (const QString& s : sentencias) {
      if (!s.trimmed().startsWith(u8("SELECT"), Qt::CaseInsensitive) || s.contains(u8("cdocTipo = '11' And"))) continue;
      const QString camino = p.filas(u8("EXPLAIN QUERY PLAN ") + p.poCnnLocal.traducir(s));
      vistas += camino.contains(u8("Operacion"));
      for (const char* malo : {"SCAN o\n", "SCAN o ", "SCAN d", "Operacion_fecha\n", "_estado", "_numero", "error:"}) {
        EXPECT_FALSE((camino + u'\n').contains(u8(malo))) << periodo << "\n" << qPrintable(s) << "\n" << qPrintable(camino);
      }
    }
    EXPECT_GT(vistas, 20);
  }
}

}  // namespace
