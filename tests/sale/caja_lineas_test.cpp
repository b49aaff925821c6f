#include "documento/lineas.h"

#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "apoyo/golden.h"
#include "sale/caja_full.h"
#include "sale/caja_full_totales.h"

namespace {

QString q(const char* t) { return QString::fromUtf8(t); }

const QHash<QString, int> kColumnas{{q("código"), kCod},    {q("catálogo"), kCatalogo}, {q("cant."), kCant},
                                    {q("precio"), kPrecio}, {q("signo"), kSigno},       {q("porc."), kPorc}};

struct CajaLineas : testing::Test {
  PuestoPrueba p;
  CajaRegistradoraFull v;

  void SetUp() override { ejecutarArchivo(p, "sale/casos/surtido.sql"); }
  bool sale(int columna, const QString& texto, int fila = 0) { return SalirCelda(p, v, fila, columna, texto); }
  bool sale(int columna, const char* texto, int fila = 0) { return sale(columna, q(texto), fila); }
  QString celdas(int fila = 0) const {
    QStringList t;
    for (const auto& c : v.rejilla.filas[static_cast<size_t>(fila)]) t << c;
    return t.join(u'|');
  }
};

TEST_F(CajaLineas, ACodeFillsTheRow) {
  ASSERT_TRUE(sale(kCod, "12"));
  EXPECT_EQ(q("1|000012|CAF-01|CAFE PASADO|||1.00|4.50|-|0.00|4.50|NO|0|SI|0.35|0.63"), celdas());
  EXPECT_EQ(q("4.50"), v.txtSoles);
  EXPECT_EQ(q("4.50"), v.txtEfectivoSoles);
  ASSERT_TRUE(sale(kCod, "17"));
  EXPECT_EQ(q("PTOS"), v.rejilla.filas[0][kCanje]);
  EXPECT_EQ(q("50"), v.rejilla.filas[0][kPtos]);
  p.ejecuta(q("UPDATE Producto SET cFlagCanje = 0 WHERE cProdCode = 17"));
  AgregarFila(v.rejilla);
  ASSERT_TRUE(sale(kCod, "17", 1));
  EXPECT_EQ(q("VNTA"), v.rejilla.filas[1][kCanje]);
}

TEST_F(CajaLineas, CodesAndCatalogueCodes) {
  for (const auto& c : leerCasos("sale/articulos")) {
    SCOPED_TRACE(c.donde());
    v = {};
    if (!c["caja"].isEmpty()) p.persona().espera(c["caja"]);
    EXPECT_EQ(c["caja"].isEmpty(), sale(kColumnas.value(c["columna"]), c["texto"]));
    EXPECT_EQ(c["articulo"], v.rejilla.filas[0][kCod]);
    if (c["articulo"].isEmpty()) {
      EXPECT_EQ(FilaVenta{}, v.rejilla.filas[0]);
    }
  }
}

TEST_F(CajaLineas, AmountsThatACellTakes) {
  p.articulo(1, q("A"), 10);
  for (const auto& c : leerCasos("sale/celdas")) {
    SCOPED_TRACE(c.donde());
    v = {};
    ASSERT_TRUE(sale(kCod, "1") && sale(kCant, "2") && sale(kPorc, "5"));
    const FilaVenta antes = v.rejilla.filas[0];
    if (!c["caja"].isEmpty()) p.persona().espera(c["caja"]);
    EXPECT_EQ(c.si("acepta"), sale(kColumnas.value(c["columna"]), c["texto"]));
    EXPECT_EQ(c["queda"], v.rejilla.filas[0][static_cast<size_t>(kColumnas.value(c["columna"]))]);
    if (!c.si("acepta")) {
      EXPECT_EQ(antes, v.rejilla.filas[0]);
    }
  }
}

TEST_F(CajaLineas, WhenAPercentageGoesBackToZero) {
  p.articulo(1, q("A"), 10);
  for (const auto& c : leerCasos("sale/porcentaje")) {
    SCOPED_TRACE(c.donde());
    v = {};
    ASSERT_TRUE(sale(kCod, "1") && sale(kPrecio, c["precio"]) && sale(kPorc, "5"));
    EXPECT_TRUE(sale(kColumnas.value(c["columna"]), c["texto"]));
    EXPECT_EQ(c["queda"], v.rejilla.filas[0][kPorc]);
  }
}

TEST_F(CajaLineas, MoreThanAShopSellsIsAskedOnce) {
  ASSERT_TRUE(sale(kCod, "12"));
  ASSERT_TRUE(sale(kCant, "9999"));
  EXPECT_EQ(q("44995.50"), v.rejilla.filas[0][kSubTotal]);
  const QString pregunta = q("La línea queda en 10,000 unidades por S/. 45,000.00.\n¿Es correcto?");
  p.persona().espera(pregunta, q("No"));
  EXPECT_TRUE(sale(kCant, "10000"));
  EXPECT_EQ(q("9999.00"), v.rejilla.filas[0][kCant]) << "the cell keeps what it held";
  p.persona().espera(pregunta, q("Sí"));
  EXPECT_TRUE(sale(kCant, "10000"));
  EXPECT_TRUE(sale(kCant, "10000.00")) << "not a second time";
  EXPECT_TRUE(sale(kPrecio, "9.99"));
  EXPECT_TRUE(sale(kCant, "999"));
  EXPECT_TRUE(sale(kPrecio, "100.00"));
  EXPECT_EQ(q("99900.00"), v.rejilla.filas[0][kSubTotal]);
  p.persona().espera(q("La línea queda en 999 unidades por S/. 100,009.89."), q("No"));
  EXPECT_TRUE(sale(kPrecio, "100.11"));
  EXPECT_EQ(q("100.00"), v.rejilla.filas[0][kPrecio]);
}

TEST_F(CajaLineas, WhatTheCashierMayTypeInto) {
  EXPECT_TRUE(CeldaEditable(p, v.rejilla, 0, kCatalogo));
  EXPECT_FALSE(CeldaEditable(p, v.rejilla, 0, kCant)) << "no article yet";
  EXPECT_FALSE(sale(kCant, "3"));
  ASSERT_TRUE(sale(kCod, "12"));
  EXPECT_TRUE(CeldaEditable(p, v.rejilla, 0, kPorc));
  EXPECT_FALSE(CeldaEditable(p, v.rejilla, 0, kDescripcion));
  p.ses.psDFlag = q("N");
  EXPECT_FALSE(sale(kPorc, "5"));
  EXPECT_EQ(q("0.00"), v.rejilla.filas[0][kPorc]);
}

TEST_F(CajaLineas, RowsComeAndGo) {
  EXPECT_EQ(0, AgregarFila(v.rejilla)) << "an empty last row is used";
  EXPECT_EQ(q("1"), v.rejilla.filas[0][kItem]);
  ASSERT_TRUE(sale(kCod, "12"));
  EXPECT_EQ(1, AgregarFila(v.rejilla));
  EXPECT_EQ(1, AgregarFila(v.rejilla));
  ASSERT_TRUE(sale(kCod, "13", 1));
  EXPECT_EQ(2, AgregarFila(v.rejilla));
  ASSERT_TRUE(sale(kCod, "14", 2));
  EXPECT_EQ(q("20.40"), v.txtSoles);
  EliminarFila(p, v, 0);
  EXPECT_EQ(q("1"), v.rejilla.filas[0][kItem]);
  EXPECT_EQ(q("2"), v.rejilla.filas[1][kItem]);
  EXPECT_EQ(q("15.90"), v.txtSoles);
  EliminarFila(p, v, 1);
  EliminarFila(p, v, 0);
  EliminarFila(p, v, 0);
  EXPECT_EQ(std::vector<FilaVenta>{FilaVenta{}}, v.rejilla.filas);
  EXPECT_EQ(q("0.00"), v.txtSoles);
  EXPECT_EQ(q("0.00"), v.txtEfectivoSoles);
}

TEST_F(CajaLineas, AFailedQueryLeavesTheRow) {
  ASSERT_TRUE(sale(kCod, "12"));
  const FilaVenta antes = v.rejilla.filas[0];
  p.ejecuta(q("ALTER TABLE Producto RENAME TO Otro"));
  p.persona().espera(q(" - "));
  EXPECT_FALSE(sale(kCod, "13"));
  p.persona().espera(q(" - "));
  p.persona().espera(q("No se pudo seleccionar el artìculo"));
  EXPECT_FALSE(sale(kCatalogo, "CAF-010"));
  EXPECT_EQ(antes, v.rejilla.filas[0]);
}

}  // namespace
