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
  ElegirImpresora(p, v, 0, "Alterna");
  v.flagCortaPapel[0] = false;
  ElegirImpresora(p, v, 1, " ");
  EXPECT_FALSE(v.flagCortaPapel[1]) << "no printer, no paper to cut";
  ElegirImpresora(p, v, 1, "\\\\caja2\\l'étoile");
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
  ElegirImpresora(p, v, 0, "Alterna");
  plan.armar(1);
  EXPECT_FALSE(GrabarImpresoras(p, v));
  plan.armar(0);
  EXPECT_EQ(antes, p.filas(kFila));
  EXPECT_EQ("Ticketera", p.ses.kPAR_IMPRESORA);
}

// Which ports are led where, for the routes of the two printers and the drawer.
TEST(ConfiguraImpresora, APlaceBelongsToTheRouteOfItsPrinter) {
  const struct {
    const char *porque, *puertoPrinter, *puertoAlterna, *lugar1, *lugar2, *queda;
  } kCasos[] = {
      {"a port each", "", "LPT2", "/dev/usb/lp0", "tcp:10.0.0.9:9100", "LPT1=/dev/usb/lp0 LPT2=tcp:10.0.0.9:9100"},
      {"one printer for both", "", "LPT1", "/dev/usb/lp0", "/dev/usb/lp0", "LPT1=/dev/usb/lp0"},
      {"two on one port come apart", "", "LPT1", "/dev/usb/lp0", "/dev/usb/lp1",
       "LPT1=/dev/usb/lp0 Alterna:LPT2 LPT2=/dev/usb/lp1"},
      {"the drawer follows the main printer", "PRT", "LPT2", "/dev/usb/lp0", "", "PRT=/dev/usb/lp0 LPT1=/dev/usb/lp0"},
      {"a serial port stays one", "", "COM1:", "", "/dev/ttyUSB0", "COM1:=/dev/ttyUSB0"},
      {"nothing told, nothing changed", "", "LPT2", "", "", ""},
  };
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    PuestoPrueba p;
    p.papeles().lista[1].puerto = QString::fromUtf8(c.puertoAlterna);
    p.ejecuta(QStringLiteral("UPDATE Configuracion SET PuertoPrinter='%1'").arg(QString::fromUtf8(c.puertoPrinter)));
    p.ses.pnCortaPapel = p.ses.pnCortaPapelAlterna = 1;
    ConfiguraImpresora v;
    CargarImpresoras(p, v);
    v.cboLugar = {QString::fromUtf8(c.lugar1), QString::fromUtf8(c.lugar2)};
    v.ajustes[1] = {Pagina::Pc858, true};
    EXPECT_TRUE(GrabarImpresoras(p, v));
    EXPECT_EQ(c.queda, p.papeles().llevados.join(u' '));
    EXPECT_EQ(Pagina::Pc858, LeerAjustes(p, QStringLiteral("Alterna")).pagina);
    CargarImpresoras(p, v);
    EXPECT_EQ(c.lugar2, v.cboLugar[1]) << "it stands there again";
    EXPECT_TRUE(v.ajustes[1].seleccionar);
  }
}
