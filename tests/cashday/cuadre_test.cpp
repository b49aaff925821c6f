#include "cashday/cuadre.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "apoyo/golden.h"
#include "apoyo/plan_fallas.h"
#include "cashday/pantallas_principal.h"
#include "platform/text/numero.h"

namespace {

struct DiaDeCuadre : PuestoPrueba {
  explicit DiaDeCuadre(const Envolver& envolver = {}) : PuestoPrueba(envolver) {
    ejecutarArchivo(*this, "golden/cuadre/dia.sql");
  }
};

Cuadre cargado(PuestoPrueba& p) {
  Cuadre v;
  Inicio(p, v, kCuadreVista);
  CargarCuadre(p, v);
  return v;
}

}  // namespace

TEST(Cuadre, BothPapersAndTheStoredCount) {
  DiaDeCuadre p;
  Cuadre v = cargado(p);
  EXPECT_EQ("179.10", v.lado[kLadoZ].txtFALTSOB) << "nothing counted yet";
  v.lado[kLadoZ1].txtCaja = QStringLiteral("250");
  v.lado[kLadoZ1].txtCajaDolares = QStringLiteral("95.00");
  v.lado[kLadoZ].txtCaja = QStringLiteral("1234.5");
  v.lado[kLadoZ].txtCajaDolares = QStringLiteral(" ");
  EXPECT_EQ("", DejarCaja(v));
  Imprimir(p, v);
  // The raw copy of both goes the main route.
  EXPECT_EQ(QString::fromLatin1(conCorte(leerGolden("cuadre/z1.txt")) + conCorte(leerGolden("cuadre/z.txt"))),
            QString::fromLatin1(p.papeles().papel[QStringLiteral("LPT1")]));
  EXPECT_EQ("", QString::fromLatin1(p.papeles().papel[QStringLiteral("LPT2")]));
  EXPECT_EQ(
      "12|1|1|12|2026-11-24 00:00:00",
      p.filas(
          "SELECT COUNT(*), MIN(dCuadreID), MIN(dCuadreLinea), MAX(dCuadreLinea), MIN(dCuadreFecha) FROM CUADRE_CAJA"));
  EXPECT_EQ("PAGOS   *25.40", p.filas("SELECT dCuadreDetalle FROM CUADRE_CAJA WHERE dCuadreLinea = 5"));
  Imprimir(p, v);
  EXPECT_EQ("2", p.filas("SELECT COUNT(DISTINCT dCuadreID) FROM CUADRE_CAJA WHERE dCuadreFecha = #11/24/2026#"));
}

TEST(Cuadre, ALargeAmountIsPrintedWhole) {
  DiaDeCuadre p;
  Cuadre v = cargado(p);
  v.lado[kLadoZ].txtCaja = v.lado[kLadoZ1].txtCaja = QStringLiteral("100000");
  v.lado[kLadoZ].txtCajaDolares = v.lado[kLadoZ1].txtCajaDolares = QStringLiteral("1234567.89");
  EXPECT_EQ("", DejarCaja(v));
  Imprimir(p, v);
  EXPECT_EQ("CAJA*100,000.00*1,234,567.89", p.filas("SELECT dCuadreDetalle FROM CUADRE_CAJA WHERE dCuadreLinea = 11"));
  EXPECT_EQ(2, p.papeles().papel[QStringLiteral("LPT1")].count("    CAJA*100,000.00*1,234,567.89\r\n"));
}

TEST(Cuadre, ACountThatIsNoNumberShowsNoDifference) {
  DiaDeCuadre p;
  Cuadre v = cargado(p);
  v.lado[kLadoZ].txtCaja = QStringLiteral("1.2.3");
  const QString otroLado = v.lado[kLadoZ1].txtFALTSOB;
  EXPECT_EQ("txtCaja(1)", DejarCaja(v));
  EXPECT_EQ("1.2.3|", v.lado[kLadoZ].txtCaja + u'|' + v.lado[kLadoZ].txtFALTSOB);
  EXPECT_EQ(otroLado, v.lado[kLadoZ1].txtFALTSOB);
}

TEST(Cuadre, MoreThanTenSolesAreAskedFor) {
  const struct {
    const char *z1, *z, *pregunta;
  } kCasos[] = {
      {"10.00", "-10.00", ""},
      {"", "0.00", ""},
      {"10.01", "0.00", "CUADRE CAJA Z1: faltan S/. 10.01\n¿"},
      {"0.00", "-1,250.50", "CUADRE CAJA: sobran S/. 1,250.50\n¿"},
      {"25.00", "-25.00", "CUADRE CAJA Z1: faltan S/. 25.00\nCUADRE CAJA: sobran S/. 25.00\n¿Cerrar"},
  };
  for (const auto& c : kCasos) {
    for (const bool si : {true, false}) {
      PuestoPrueba p;
      Cuadre v;
      v.lado[kLadoZ1].txtFALTSOB = QString::fromUtf8(c.z1);
      v.lado[kLadoZ].txtFALTSOB = QString::fromUtf8(c.z);
      if (*c.pregunta)
        p.persona().espera(QString::fromUtf8(c.pregunta), si ? QStringLiteral("Sí") : QStringLiteral("No"));
      EXPECT_EQ(si || !*c.pregunta, AceptarDiferencia(p, v)) << c.z1 << c.z;
    }
  }
}

TEST(Cuadre, ProductsOfTheOpenDay) {
  DiaDeCuadre p;
  Cuadre v = cargado(p);
  ASSERT_EQ(2u, v.lvwProductos.size());
  EXPECT_EQ("101,,CAFE,0,0,1,205,-1,205,0", v.lvwProductos[0].join(u','))
      << "sales and orders, of this warehouse alone";
  TomarProducto(v, 0);
  v.producto.txtProductosID = QStringLiteral("1300");
  CuadreProductosTotal(v);
  EXPECT_EQ("1,300", v.producto.txtProductosFS);
  v.producto.txtProductosIF = QStringLiteral("95");
  DevolverProducto(v, 0);
  EXPECT_EQ("101,,CAFE,1,300,0,1,205,95,0", v.lvwProductos[0].join(u','));
}

TEST(Cuadre, AFailedQueryEndsItsSideAlone) {
  DiaDeCuadre p;
  p.ejecuta(QStringLiteral("DROP TABLE OperacionParalela"));
  p.persona().dejaPasar();
  const Cuadre v = cargado(p);
  EXPECT_EQ("179.10", v.lado[kLadoZ].txtCashDRW);
  EXPECT_EQ("25.40||0.00",
            v.lado[kLadoZ1].txtPagos + u'|' + v.lado[kLadoZ1].txtCashDRW + u'|' + v.lado[kLadoZ1].txtFALTSOB);
}

// The count is stored whole or not at all, and a count that isn't stored isn't printed; the main one always is.
TEST(Cuadre, EachStatementOfThePrintingHasItsTurn) {
  for (int n = 1;; ++n) {
    PlanFallas plan;
    DiaDeCuadre p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
    const Cuadre v = cargado(p);
    p.persona().dejaPasar();
    plan.armar(n);
    Imprimir(p, v);
    if (plan.van() < n) {
      EXPECT_GT(n, 18);
      break;
    }
    SCOPED_TRACE(qPrintable(plan.sentencias[n - 1]));
    plan.armar(0);
    const QByteArray papel = p.papeles().papel[QStringLiteral("LPT1")];
    EXPECT_EQ(1, papel.count("  CUADRE CAJA\r\n"));
    EXPECT_EQ(QString::number(12 * papel.count("CUADRE CAJA Z1")), p.filas("SELECT COUNT(*) FROM CUADRE_CAJA"));
    const QString caja = p.persona().vistas.empty() ? QString() : p.persona().vistas.front().texto;
    EXPECT_TRUE(caja.contains(u"falla forzada") || caja.contains(u"Correlativo")) << qPrintable(caja);
  }
}

TEST(Cuadre, TheDrawerIsTheFloatAndTheCashLessTheWithdrawals) {
  PuestoPrueba p;
  EXPECT_TRUE(rc::check("drawer = opening + cash of the tender rows - withdrawals", [&p] {
    const auto centimos = [](int hasta) { return *rc::gen::inRange(0, hasta); };
    p.ejecuta(QStringLiteral("DELETE * FROM Operacion"));
    const int fondo = centimos(100000);
    p.ejecuta(QStringLiteral("UPDATE Configuracion SET nImporApertSol = %1").arg(TextoDe(fondo / 100.0)));
    int cajon = fondo;
    for (int i = *rc::gen::inRange(0, 8); i > 0; --i) {
      const int recibe = centimos(1000000), vuelto = centimos(recibe + 1), saca = centimos(50000);
      p.ejecuta(QStringLiteral("INSERT INTO Operacion (cProdCode, nProdCant, nMontoSoles, nProdPrecUnit, cOperTipo, "
                               "cDocTipo) VALUES (0, 1, %1, -%2, 1, '02')")
                    .arg(TextoDe(recibe / 100.0), TextoDe(vuelto / 100.0)));
      p.ejecuta(QStringLiteral("INSERT INTO Operacion (nProdCant, nProdPrecUnit, cOperTipo) VALUES (1, %1, 5)")
                    .arg(TextoDe(saca / 100.0)));
      cajon += recibe - vuelto - saca;
    }
    const Cuadre v = cargado(p);
    for (const LadoCuadre& c : v.lado) {
      RC_ASSERT(c.txtCashDRW.toStdString() == Formatear(cajon / 100.0, u"###,###,###,##0.00").toStdString());
    }
  }));
}
