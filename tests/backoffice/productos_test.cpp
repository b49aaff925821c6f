// Articles and function keys.
#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/golden.h"
#include "apoyo/plan_fallas.h"
#include "backoffice/producto.h"
#include "backoffice/teclado.h"

namespace {

const char* const kFila =
    "SELECT cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, cProdFlagFicha, cProdFichaCant, "
    "cProdFlagCanje, cProdFlagControl, nActivo, cFlagServicio FROM Producto ORDER BY cAlmaCode, cProdCode";
const char* const kTeclas = "SELECT cTeclCode, cTeclFlagAsig, cProdCode FROM ConfiguracionTeclado ORDER BY cTeclCode";

DetalleProducto producto(ModoDetalle modo, const char* codigo, const char* descripcion, const char* precio) {
  DetalleProducto v;
  v.modo = modo;
  v.txtCodigo = QString::fromUtf8(codigo);
  v.txtDescripcion = v.txtCorta = QString::fromUtf8(descripcion);
  v.txtPUnitario = QString::fromUtf8(precio);
  return v;
}

const char* const kTeclado = "backoffice/casos/teclado.sql";

}  // namespace

TEST(Productos, AreStoredByTheMode) {
  const QString cafe = "01|101|CAFE|CAFE|10|1|0|0|0|0|1|1";
  // clang-format off
  const struct { const char* porque; DetalleProducto v; bool canje; QString queda; } casos[] = {
      {"new, price over a thousand", producto(ModoDetalle::Nuevo, "102", " D'ONOFRIO ", "1,234.505"), false,
       cafe + "\n01|102|D'ONOFRIO|D'ONOFRIO|1234.51|1|0|0|0|0|1|0"},
      {"edit keeps the server's flags", producto(ModoDetalle::Editar, "101", "TE", "3.5"), false,
          "01|101|TE|TE|3.5|1|0|0|0|0|1|1"},
      {"redeemed: no price", producto(ModoDetalle::Editar, "101", "TE", "3.5"), true, "01|101|TE|TE|0|1|1|50|1|0|1|1"},
      {"delete", producto(ModoDetalle::Borrar, "101", "CAFE", "10"), false, ""},
      {"view", producto(ModoDetalle::Ver, "101", "", ""), false, cafe},
  };
  // clang-format on
  for (auto c : casos) {
    SCOPED_TRACE(c.porque);
    PuestoPrueba p;
    p.articulo(101, "CAFE", 10, true);
    p.ejecuta("INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc) VALUES ('02', 101, 'OTRO')");
    c.v.chkFicha = c.v.chkCanje = c.canje;
    c.v.txtFichas = c.canje ? "50" : "";
    EXPECT_TRUE(GuardarProducto(p, c.v));
    EXPECT_EQ(c.queda, p.filas(kFila).section("02|101", 0, 0).trimmed());
    EXPECT_TRUE(p.filas(kFila).endsWith("02|101|OTRO|Null|0|1|0|0|0|0|1|0")) << "the other warehouse's row stays";
  }
}

TEST(Productos, TheNextCodeIsTheWarehousesOwn) {
  PuestoPrueba p;
  p.ejecuta("INSERT INTO Producto (cAlmaCode, cProdCode) VALUES ('02', 500)");
  DetalleProducto v;
  EXPECT_TRUE(CargarProducto(p, ModoDetalle::Nuevo, "", v));
  EXPECT_EQ("1", v.txtCodigo);
  p.articulo(906, "SAL", 0.5);
  EXPECT_TRUE(CargarProducto(p, ModoDetalle::Nuevo, "", v));
  EXPECT_EQ("907", v.txtCodigo);
  std::vector<FilaProducto> filas;
  ASSERT_TRUE(LeerProductos(p, filas));
  ASSERT_EQ(1u, filas.size());
  EXPECT_EQ(".50", filas[0].precio) << "this mask has no zero in front";
  p.persona().espera("Se procederá a desactivar a SAL. Desea continuar?", "Sí");
  EXPECT_TRUE(ActivarProducto(p, filas[0]));
  p.persona().espera("Se procederá a activar a SAL. Desea continuar?");  // Enter is "No"
  EXPECT_FALSE(ActivarProducto(p, filas[0]));
  EXPECT_FALSE(filas[0].activo);
  EXPECT_EQ("0", p.filas("SELECT cProdEstd FROM Producto WHERE cProdCode = 906"));
}

TEST(Teclado, AKeyTakesAnArticleThatCanBeSold) {
  for (const auto& c : leerCasos("backoffice/teclas")) {
    SCOPED_TRACE(c.donde());
    PuestoPrueba p;
    ejecutarArchivo(p, kTeclado);
    ConfiguraBotonProducto v;
    ASSERT_TRUE(CargarTeclas(p, v) && ElegirTecla(p, v, 13));
    EXPECT_EQ("DEP 13 Shift+F1 ", v.txtBoton + u' ' + v.txtTecla + u' ' + v.txtCodigoProducto);
    const bool mal = !c["caja"].isEmpty();
    if (mal) p.persona().espera(c["caja"]);
    v.txtCodigoProducto = c["codigo"];
    EXPECT_EQ(!mal, GrabarTecla(p, v));
    EXPECT_EQ(c["teclas"], p.filas(kTeclas));
    EXPECT_EQ(c["rotulo"], v.cmdTecla[13].rotulo);
    EXPECT_EQ(c["codigo"] == u" 7" ? "01" : "02", p.filas("SELECT cAlmaCode FROM Producto WHERE cProdCode = 7"));
    EXPECT_EQ("02\n03", p.filas("SELECT cAlmaCode FROM Producto WHERE cProdCode = 8 ORDER BY cAlmaCode"));
  }
}

TEST(Teclado, CaptionsAreCutAt25) {
  PuestoPrueba p;
  p.articulo(1, "1234567890123456789012345", 1);
  p.articulo(2, "12345678901234567890123456", 1);
  for (int n : {1, 2}) {
    p.ejecuta(
        QStringLiteral("INSERT INTO ConfiguracionTeclado (cTeclCode, cTeclFlagAsig, cProdCode) VALUES (%1, '1', %1)")
            .arg(n));
  }
  ConfiguraBotonProducto v;
  ASSERT_TRUE(CargarTeclas(p, v));
  EXPECT_EQ("1234567890123456789012345", v.cmdTecla[1].rotulo);
  EXPECT_EQ("1234567890123456789012345..", v.cmdTecla[2].rotulo);
  EXPECT_FALSE(v.cmdTecla[3].asignada);
}

TEST(Teclado, AFailedStatementLeavesAllAsItWas) {
  const QString antes = "5|1|101\n13|0|0", despues = "5|1|101\n13|1|7";
  int n = 1;
  for (;; ++n) {
    SCOPED_TRACE(n);
    PlanFallas plan;
    PuestoPrueba p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
    p.persona().dejaPasar();
    ejecutarArchivo(p, kTeclado);
    ConfiguraBotonProducto v;
    ASSERT_TRUE(ElegirTecla(p, v, 13));
    v.txtCodigoProducto = "7";
    plan.armar(n);
    const bool bien = GrabarTecla(p, v);
    const bool toco = plan.van() >= n;
    plan.armar(0);
    EXPECT_EQ(!toco, bien);
    EXPECT_EQ(bien ? despues : antes, p.filas(kTeclas));
    EXPECT_EQ(bien ? "01" : "02", p.filas("SELECT cAlmaCode FROM Producto WHERE cProdCode = 7"));
    EXPECT_TRUE(GrabarTecla(p, v)) << "the next try works";
    EXPECT_EQ(despues, p.filas(kTeclas));
    if (!toco) break;
  }
  EXPECT_GT(n, 6);  // begin, two reads, move, read, key, commit
}
