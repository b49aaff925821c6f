// Reports against papers worked out by hand from the rows of dia.sql.
#include <gtest/gtest.h>

#include "foundation/version.h"
#include "reporte_prueba.h"

namespace {

QString u8(const char* s) { return QString::fromUtf8(s); }

QByteArray papel(const char* caso) {
  return conCorte(leerGolden(u8("reportes/%1.txt").arg(u8(caso))).replace("@VERSION@", Version().toUtf8()));
}

struct Caso {
  const char *caso, *puerto;
  ResultadoReporte (*imprimir)(PuestoDeReporte&);
  bool conDia = true;
};

ResultadoReporte x(PuestoDeReporte& p) { return ReportesEspeciales(p, PedidoX()); }
ResultadoReporte x1(PuestoDeReporte& p) { return ReportesEspeciales1(p, PedidoX()); }
ResultadoReporte z(PuestoDeReporte& p) { return ReportesEspeciales(p, PedidoZ(4)); }
ResultadoReporte z1(PuestoDeReporte& p) { return ReportesEspeciales1(p, PedidoZ(3)); }

// A day later.
void fecha(PuestoDeReporte& p) {
  p.elReloj().ahora = p.elReloj().ahora.addDays(1);
  p.ejecuta(u8("INSERT INTO CabeceraZ (IdZ, Caja, Fecha, CodigoRep) VALUES (7, '00001', '2026-11-24', 'Código Rep. Z1: "
               "000007')"));
  p.persona().espera(u8("Ingrese una fecha"), u8("24/11/2026"));
}
ResultadoReporte zFecha(PuestoDeReporte& p) {
  fecha(p);
  return ReportesEspecialesFecha(p, u8("Z"));
}
ResultadoReporte z1Fecha(PuestoDeReporte& p) {
  fecha(p);
  return ReportesEspeciales1Fecha(p, u8("Z"));
}

// clang-format off
const Caso kCasos[] = {
    {"x", "LPT1", x},           {"x1", "LPT2", x1},           {"z", "LPT1", z},
    {"z1", "LPT2", z1},         {"z_fecha", "LPT1", zFecha},  {"z1_fecha", "LPT2", z1Fecha},
    {"x_vacio", "LPT1", x, false}, {"x1_vacio", "LPT2", x1, false}, {"z_vacio", "LPT1", z, false},
};
// clang-format on

class Reporte : public testing::TestWithParam<Caso> {};

TEST_P(Reporte, IsThePaperWeExpect) {
  const Caso& c = GetParam();
  PuestoDeReporte p;
  if (c.conDia) p.cargarDia();
  else p.persona().espera(u8("Para registrar ventas en dólares debe registrar el tipo de cambio"));
  const ResultadoReporte r = c.imprimir(p);
  EXPECT_TRUE(r.hecho() && r.impreso);
  EXPECT_EQ("", primeraDiferencia(papel(c.caso), p.papeles().papel[u8(c.puerto)]));
  EXPECT_EQ(1, p.papeles().papel.size());
}

INSTANTIATE_TEST_SUITE_P(Golden, Reporte, testing::ValuesIn(kCasos),
                         [](const auto& i) { return std::string(i.param.caso); });

}  // namespace
