// Each act of the billing screen, from its fields to the rows of store and centre.
#include <gtest/gtest.h>

#include "credito_prueba.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

TEST(Facturas, AFadeUnderDetractionInBothPlaces) {
  Credito e;
  e.cliente(0);
  e.linea(e.v.factura.rejilla, "807", "8");
  e.linea(e.v.factura.rejilla, "102", "2");
  // 736.00 + 76.00; service 76 / 1.28 x 0.10 = 5.94, tax 736 / 1.18 x 0.18 = 112.27 and 76 / 1.28 x 0.18 = 10.69.
  EXPECT_EQ(q("hecho"), e.facturar());
  EXPECT_EQ(
      q("1|01|001|000001|00001|00000007|1|O'HIGGINS ANA|20123456789|683.1|122.96|5.94|812|0.18|270.67|N|3|01|"
        "2026-11-24 00:00:00|Null|1|0"),
      e.central("SELECT cCodVta, TipoDoc, cSerieDoc, NroDoc, cCodCaja, cClienteCode, IdLocal, DscCliente, NroRuc, "
                "ValorVta, Igv, Serv, TotVta, nPorcIGV, TotVtaUSD, cCodMoneda, nTipoCambio, cCodTipoCredito, "
                "fechaemision, FechaAnulacion, bTieneDetraccion, bLiquidado FROM Venta01"));
  EXPECT_EQ(q("1|1|000807|SACO|92|8|0|0\n1|2|000102|ARROZ CON PATO|38|2|0|10"),
            e.central("SELECT cCodVta, NroItem, cCodartic, sProdDscCrta, nPrecioOrig, nQtdVendida, nDescuento, "
                      "nServicio FROM Venta02 ORDER BY NroItem"));
  // 812 x 12 / 100
  EXPECT_EQ(q("001|000001|97.44|0.12|P"),
            e.central("SELECT SerieDoc, NroDoc, MontoDetracc, PorcDetracc, Estado FROM Detraccion"));
  EXPECT_EQ(q("1|001"), e.local("SELECT nDocCodigo, cSerieDoc FROM Config_Documento WHERE cTipoDoc = '02'"));
  EXPECT_EQ(q("0|0"), e.local("SELECT (SELECT COUNT(*) FROM Operacion), (SELECT COUNT(*) FROM OperacionParalela)"));
  EXPECT_EQ(QString(), e.central("SELECT cActo FROM Diario_Acto"));
  EXPECT_EQ(QString(), e.local("SELECT cActo FROM Diario_Acto"));
  EXPECT_EQ(q("Último: FADE 001-000001"), e.v.factura.ultimo);
  printf("%s\n", qPrintable(e.papel("LPT1")));
}

TEST(Pagos, EveryFormAndCurrency) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(1, "30", 1));
  e.cargarPago("02", "000001");
  EXPECT_EQ(q("300.00|100.00|DOLARES"),
            e.v.pago.lblSaldoSoles + u'|' + e.v.pago.lblSaldoDolares + u'|' + e.v.pago.lblMoneda);
  EXPECT_EQ(q("hecho"), e.pagar(0, 0, "60"));
  e.cargarPago("02", "000001");
  e.p.ses.pnTipoCambio = 4;
  EXPECT_EQ(q("hecho"), e.pagar(1, 1, "10"));
  e.cargarPago("02", "000001");
  EXPECT_EQ(q("200.00|70.00"), e.v.pago.lblSaldoSoles + u'|' + e.v.pago.lblSaldoDolares);
  EXPECT_EQ(q("hecho"), e.pagar(2, 0, "100.00"));
  e.cargarPago("02", "000001");
  EXPECT_EQ(q("hecho"), e.pagar(3, 1, "45"));
  printf(
      "%s\n",
      qPrintable(e.central(
          "SELECT idpago, cSerieDocPago, NroDocPago, TipoDoc, cSerieDoc, NroDoc, NroItem, FormaPago, FechaPago, Monto, Moneda, nTipoCambio, IdTarjeta, IdBanco, NroCtaBancaria, NroOperacion, NroCertificadoRetencion, NroDepositoDetraccion, cClieCode, idLocal, bEsPagoDetraccion, FechaAnulacion FROM Pagos")));
  printf(
      "%s\n",
      qPrintable(e.local(
          "SELECT cOperCode, cOperTipo, nTarjNumb, nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles, nEfectivoDolares, sGlosa, cEstado, cFlagSincronizacion, cDocTipo, cDocSerie, cDocCodigo FROM OperacionParalela")));
  printf("%s\n%s\n", qPrintable(e.papel("LPT2")), qPrintable(e.v.pago.ultimo));
}

TEST(Notas, TakeNoMoreThanIsLeft) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(1, "10"));
  EXPECT_EQ(q("hecho"), e.consumir(1, "3"));
  EXPECT_EQ(q("hecho"), e.consumir(1, "2"));
  e.p.persona().espera(q("No puede consumir mas de 50.00 Soles."));
  EXPECT_EQ(q("TDGNotaConsumo"), e.consumir(1, "6"));
  EXPECT_EQ(q("hecho"), e.consumir(1, "5"));
  printf("%s\n", qPrintable(e.central("SELECT * FROM ConsumoVenta")));
  printf(
      "%s\n",
      qPrintable(e.local(
          "SELECT cOperCode, cOperTipo, nTarjNumb, nMoneda, nMontoSoles, nMontoDolares, sGlosa, cEstado, cOperCodeRela, cDocTipo, cDocSerie, cDocCodigo FROM OperacionParalela")));
  printf("%s\n", qPrintable(e.papel("LPT2")));
}

TEST(Liquidaciones, PayTheChangeOut) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(1, "10"));
  EXPECT_EQ(q("hecho"), e.consumir(1, "3"));
  e.p.persona().espera(q("tiene un saldo de S/. 100.00"));
  e.p.persona().espera(q("Ingrese el Tipo Documento"));
  EXPECT_EQ(q("cboTipoDocumento3"), e.liquidar(1));
  e.cargarPago("02", "000001");
  ASSERT_EQ(q("hecho"), e.pagar(0, 0, "100"));
  e.p.persona().espera(q("Hay un saldo a favor"), q("Sí"));
  EXPECT_EQ(q("hecho"), e.liquidar(1));
  printf(
      "%s\n",
      qPrintable(e.local(
          "SELECT cOperCode, cOperTipo, nTarjNumb, nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles, nVueltoSoles, sGlosa, cEstado, cOperCodeRela, cDocTipo, cDocSerie, cDocCodigo FROM OperacionParalela")));
  printf(
      "%s\n",
      qPrintable(e.local(
          "SELECT cOperCode, cOperTipo, cProdCode, nProdCant, nProdPrecUnit, nMontoSoles, nMontoDolares, nVueltoDolares, cDocTipo, cDocSerie, cDocCodigo, nTarjNumb FROM Operacion")));
  printf("%s\n", qPrintable(e.central("SELECT bLiquidado FROM Venta01")));
  printf("%s\n", qPrintable(e.papel("LPT2")));
}

}  // namespace
