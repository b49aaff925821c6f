#include "printing/configura_impresora.h"

#include <gtest/gtest.h>

#include "apoyo/plan_fallas.h"
#include "apoyo/puesto_prueba.h"
#include "printing/canal.h"

namespace {

const char* const kFila =
    "SELECT sImpresora, sImpresoraAlterna, nFlagCortaPapel, nFlagCortaPapelALT FROM Configuracion";

}  // namespace

TEST(ConfiguraImpresora, CountsFromTheNextDocumentOn) {
  PuestoPrueba p;
  p.ses.kPAR_IMPRESORA_ALTERNA = "Ya no está";
  ConfiguraImpresora v;
  CargarImpresoras(p, v);
  EXPECT_EQ("Ticketera,Alterna", v.impresoras.join(u','));
  EXPECT_EQ("Ya no está", v.cboImpresora[1]) << "what the system doesn't list any more stays";
  EXPECT_TRUE(v.flagCortaPapel[1]);
  ElegirImpresora(v, 0, "Alterna");
  v.flagCortaPapel[0] = false;
  ElegirImpresora(v, 1, " ");
  EXPECT_FALSE(v.flagCortaPapel[1]) << "no printer, no paper to cut";
  ElegirImpresora(v, 1, "\\\\caja2\\l'étoile");
  v.flagCortaPapel[1] = true;
  EXPECT_TRUE(GrabarImpresoras(p, v));
  EXPECT_EQ("Alterna|\\\\caja2\\l'étoile|0|1", p.filas(kFila));
  ImprimirDocumento(p, "HOLA", kImpresoraPrincipal);
  ASSERT_EQ(1u, p.papeles().impresos.size());
  EXPECT_EQ("Alterna", p.papeles().impresos[0].first) << "through the driver at once";
}

TEST(ConfiguraImpresora, AFailureLeavesTheSessionAsItWas) {
  PlanFallas plan;
  PuestoPrueba p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
  p.persona().espera("falla forzada");
  ConfiguraImpresora v;
  CargarImpresoras(p, v);
  const QString antes = p.filas(kFila);
  ElegirImpresora(v, 0, "Alterna");
  plan.armar(1);
  EXPECT_FALSE(GrabarImpresoras(p, v));
  plan.armar(0);
  EXPECT_EQ(antes, p.filas(kFila));
  EXPECT_EQ("Ticketera", p.ses.kPAR_IMPRESORA);
}
