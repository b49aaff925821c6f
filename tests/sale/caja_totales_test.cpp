#include "sale/caja_full_totales.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "apoyo/casos.h"
#include "apoyo/puesto_prueba.h"
#include "platform/text/numero.h"
#include "sale/caja_full.h"

namespace {

QString q(const char* t) { return QString::fromUtf8(t); }

FilaVenta linea(const QString& precio, const QString& cant, const QString& signo, const QString& porc,
                const QString& servicio) {
  FilaVenta f;
  f[kCod] = QStringLiteral("000001");
  f[kPrecio] = precio;
  f[kCant] = cant;
  f[kSigno] = signo;
  f[kPorc] = porc;
  f[kConServ] = servicio;
  return f;
}

TEST(CajaTotales, OneLine) {
  PuestoPrueba p;
  for (const auto& c : leerCasos("sale/linea")) {
    SCOPED_TRACE(c.donde());
    CajaRegistradoraFull v;
    v.rejilla.filas = {linea(c["precio"], c["cant"], c["signo"], c["porc"], c["servicio"])};
    CalculaTotales(p, v);
    EXPECT_EQ(c["sub"], v.rejilla.filas[0][kSubTotal]);
    EXPECT_EQ(c["serv"], v.rejilla.filas[0][kServ]);
    EXPECT_EQ(c["igv"], v.rejilla.filas[0][kIgv]);
    EXPECT_EQ(c["sub"], v.txtSoles);
  }
}

TEST(CajaTotales, SumsUnroundedLinesAndSkipsUnreadableOnes) {
  PuestoPrueba p;
  CajaRegistradoraFull v;
  const FilaVenta tercio = linea(q("0.33"), q("1.00"), q("-"), q("50.00"), q("NO"));  // 0.165, shown as 0.17
  v.rejilla.filas = {tercio, tercio, linea(q("x"), q("1.00"), q("-"), q("0.00"), q("NO")), FilaVenta{}};
  CalculaTotales(p, v);
  EXPECT_EQ(q("0.17"), v.rejilla.filas[0][kSubTotal]);
  EXPECT_EQ(q("0.33"), v.txtSoles);
  EXPECT_EQ(q("0.11"), v.txtDolares);
  EXPECT_EQ(FilaVenta{}, v.rejilla.filas[3]) << "an empty row stays empty";

  p.ses.pnTipoCambio = 0;
  CalculaTotales(p, v);
  EXPECT_EQ(q("0.00"), v.txtDolares);

  v.nTipoVenta = TipoVenta::LIQPAD;
  v.txtSoles = q("-7.00");
  CalculaTotales(p, v);
  EXPECT_EQ(q("-7.00"), v.txtSoles) << "a liquidation has its own sums";
}

TEST(CajaPago, TheCashPanel) {
  PuestoPrueba p;
  const QHash<QString, TipoVenta> tipos{
      {q("efectivo"), TipoVenta::Efectivo}, {q("orden"), TipoVenta::OC}, {q("nota"), TipoVenta::NC}};
  for (const auto& c : leerCasos("sale/efectivo")) {
    SCOPED_TRACE(c.donde());
    CajaRegistradoraFull v;
    v.nTipoVenta = tipos.value(c["tipo"]);
    v.txtSoles = c["total"];
    CuadraPago(p, v);
    for (const QString& d : {c["dolares"], c["corregido"]}) {
      if (d.isEmpty()) continue;
      v.txtEfectivoDolares = d;
      SalirDolares(p, v);
    }
    if (!c["vueltoUS"].isEmpty()) {
      v.txtVueltoDolares = c["vueltoUS"];
      SalirDolares(p, v);
    }
    if (!c["tecleado"].isEmpty()) {
      v.txtEfectivoSoles = c["tecleado"];
      v.efectivoTecleado = true;
      SalirEfectivoSoles(p, v);
    }
    EXPECT_EQ(c["soles"], v.txtEfectivoSoles);
    EXPECT_EQ(c["dolar"], v.txtEfectivoDolares);
    EXPECT_EQ(c["vuelto"], v.txtVueltoSoles);
  }
}

TEST(CajaPago, ANewTotalAsksTheFullAmountAgain) {
  PuestoPrueba p;
  CajaRegistradoraFull v;
  v.rejilla.filas = {linea(q("30.00"), q("1.00"), q("-"), q("0.00"), q("NO"))};
  CalculaTotales(p, v);
  v.txtEfectivoSoles = q("50");
  v.efectivoTecleado = true;
  SalirEfectivoSoles(p, v);
  EXPECT_EQ(q("20.00"), v.txtVueltoSoles);
  CalculaTotales(p, v);
  EXPECT_EQ(q("50.00"), v.txtEfectivoSoles) << "the same total leaves what was typed";
  v.rejilla.filas.push_back(v.rejilla.filas[0]);
  CalculaTotales(p, v);
  EXPECT_EQ(q("60.00"), v.txtEfectivoSoles);
  EXPECT_EQ(q("0.00"), v.txtVueltoSoles);
}

// Amounts as a cashier types them, in cents.
rc::Gen<int> centimos(int hasta) { return rc::gen::inRange(0, hasta); }
QString importe(int cent) { return Formatear(cent / 100.0, u"0.00"); }

QString foto(const CajaRegistradoraFull& v) {
  return QStringList{v.txtEfectivoSoles, v.txtEfectivoDolares, v.txtVueltoSoles, v.txtVueltoDolares}.join(u' ');
}

TEST(CajaPago, CashLessChangeIsTheTotalAndStaysSo) {
  PuestoPrueba p;
  EXPECT_TRUE(rc::check("cash - change = total, twice the same", [&p] {
    p.ses.pnTipoCambio = *rc::gen::inRange(2500, 4500) / 1000.0;
    CajaRegistradoraFull v;
    v.txtSoles = importe(*centimos(200000));
    v.txtEfectivoDolares = importe(*centimos(60000));
    SalirDolares(p, v);
    v.txtVueltoDolares = importe(*centimos(60000));
    SalirDolares(p, v);
    if (*rc::gen::arbitrary<bool>()) {
      v.txtEfectivoSoles = importe(*centimos(200000));
      v.efectivoTecleado = true;
      SalirEfectivoSoles(p, v);
    }
    RC_PRE(LeerImporte(v.txtVueltoSoles) >= 0);  // too little money never reaches the commit
    const double tc = p.ses.pnTipoCambio;
    const double entra = Redondear(tc * LeerImporte(v.txtEfectivoDolares) + LeerImporte(v.txtEfectivoSoles), 2);
    const double sale = Redondear(tc * LeerImporte(v.txtVueltoDolares) + LeerImporte(v.txtVueltoSoles), 2);
    RC_ASSERT(importe(static_cast<int>(AEntero((entra - sale) * 100))) == v.txtSoles);
    const QString antes = foto(v);
    CuadraPago(p, v);
    RC_ASSERT(foto(v).toStdString() == antes.toStdString());
  }));
}

TEST(CajaTotales, TheTotalIsTheSumOfTheUnroundedLines) {
  PuestoPrueba p;
  EXPECT_TRUE(rc::check("lines add up to the total", [&p] {
    CajaRegistradoraFull v;
    v.rejilla.filas.clear();
    double suma = 0;
    const int n = *rc::gen::inRange(1, 20);
    for (int i = 0; i < n; ++i) {
      const int precio = *centimos(100000), cant = *rc::gen::inRange(1, 100), porc = *centimos(10001);
      const bool recargo = *rc::gen::arbitrary<bool>();
      v.rejilla.filas.push_back(
          linea(importe(precio), importe(cant * 100), recargo ? q("+") : q("-"), importe(porc), q("SI")));
      suma += precio / 100.0 * cant * (1 + (recargo ? 1 : -1) * porc / 10000.0);
    }
    CalculaTotales(p, v);
    RC_ASSERT(std::fabs(suma - LeerImporte(v.txtSoles)) < 0.0051);
    for (const auto& f : v.rejilla.filas) {
      const double neto = LeerImporte(f[kSubTotal]) / 1.28;
      RC_ASSERT(std::fabs(neto * 0.18 - LeerImporte(f[kIgv])) < 0.0111);
      RC_ASSERT(std::fabs(neto * 0.10 - LeerImporte(f[kServ])) < 0.0111);
    }
  }));
}

}  // namespace
