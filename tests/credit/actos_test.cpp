// Each act of the billing screen, from its fields to the rows of store and centre and its paper.
#include <gtest/gtest.h>

#include "apoyo/golden.h"
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
  EXPECT_EQ(q("Último: FADE 001-000001"), e.v.factura.ultimo);
  EXPECT_EQ("", primeraDiferencia(conCorte(leerGolden(q("credit/fade_detraccion.txt"))), e.impreso("LPT1")));
}

// The detraction falls on a FADE above the threshold with a marked article, and on nothing else.
TEST(Facturas, Detraction) {
  // clang-format off
  const struct { const char* porque; int tipo; const char *articulo, *cantidad, *detraccion; } casos[] = {
      {"a BADE", 1, "807", "8", ""},
      {"no marked article", 0, "101", "80", ""},
      {"below", 0, "807", "7", ""},                  // 644.00
      {"above", 0, "807", "8", "88.32"},             // 736.00
  };
  // clang-format on
  Credito e;
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    e.enCentral("DELETE FROM Detraccion");
    EXPECT_EQ(q("hecho"), e.facturar(c.tipo, c.cantidad, 0, c.articulo));
    EXPECT_EQ(q(c.detraccion), e.central("SELECT MontoDetracc FROM Detraccion"));
  }
  // The threshold itself is free.
  e.enCentral("UPDATE parametro SET nmonto1 = 736 WHERE cCodParam = 'DETRS'");
  e.enCentral("DELETE FROM Detraccion");
  EXPECT_EQ(q("hecho"), e.facturar(0, "8", 0, "807"));
  EXPECT_EQ(QString(), e.central("SELECT MontoDetracc FROM Detraccion"));
  EXPECT_EQ(q("0"), e.central("SELECT MIN(bTieneDetraccion) FROM Venta01"));
}

// One run over FADE, BADE and what the registers sell; the series is that of the row, the number never cut.
TEST(Facturas, NumbersAreOneRunADesk) {
  Credito e;
  EXPECT_EQ(q("hecho"), e.facturar(0, "1"));
  EXPECT_EQ(q("hecho"), e.facturar(1, "1"));
  e.p.ejecuta(q("INSERT INTO Operacion_Historico (cOperID, cDocTipo, cDocCodigo) VALUES (1, '02', 41)"));
  e.p.persona().espera(q("se asignará el 42 al documento"));
  EXPECT_EQ(q("hecho"), e.facturar(0, "1"));
  e.p.ejecuta(q("UPDATE Config_Documento SET nDocCodigo = 1234567, cSerieDoc = '' WHERE cTipoDoc = '02'"));
  e.enCentral("INSERT INTO Venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, cCodCaja) "
              "VALUES (90, '02', '001', '1234567', '00001')");
  EXPECT_EQ(q("hecho"), e.facturar(1, "1"));
  EXPECT_EQ(q("1|01|001|000001\n2|02|001|000002\n3|01|001|000042\n90|02|001|1234567\n91|02|001|1234568"),
            e.central("SELECT cCodVta, TipoDoc, cSerieDoc, NroDoc FROM Venta01 ORDER BY cCodVta"));
}

TEST(Facturas, OfMoreLinesThanAStatementTakes) {
  Credito e;
  e.cliente(1);
  for (int i = 0; i < 201; ++i) e.linea(e.v.factura.rejilla, i == 200 ? "102" : "101", "1");
  EXPECT_EQ(q("hecho"), e.facturar());
  EXPECT_EQ(q("201|201|1|201|000102"),
            e.central("SELECT COUNT(*), COUNT(DISTINCT NroItem), MIN(NroItem), MAX(NroItem), "
                      "(SELECT cCodartic FROM Venta02 WHERE NroItem = 201) FROM Venta02"));
}

TEST(Facturas, ADiscountAsksTheSupervisor) {
  Credito e;
  e.cliente(1);
  e.linea(e.v.factura.rejilla, "101", "2", "10");
  TotalesFactura(e.p, e.v.factura);
  EXPECT_EQ(QString(), e.facturar()) << "refused";
  EXPECT_EQ(q("18.00"), e.v.factura.txtSoles) << "the tab stays";
  e.pantallas.supervisor = q("SUPERVISOR");
  EXPECT_EQ(q("hecho"), e.facturar());
  EXPECT_EQ(q("18|-10"),
            e.central("SELECT v.TotVta, d.nDescuento FROM Venta01 v, Venta02 d WHERE d.cCodVta = v.cCodVta"));
  EXPECT_TRUE(e.impreso("LPT1").contains("SUPERVISOR: SUPERVISOR"));
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
  EXPECT_EQ("", primeraDiferencia(conCorte(leerGolden(q("credit/recibo_soles.txt"))) +
                                      conCorte(leerGolden(q("credit/recibo_dolares.txt"))),
                                  e.impreso("LPT2")));
  e.cargarPago("02", "000001");
  EXPECT_EQ(q("200.00|70.00"), e.v.pago.lblSaldoSoles + u'|' + e.v.pago.lblSaldoDolares);
  EXPECT_EQ(q("hecho"), e.pagar(2, 0, "100.00"));
  e.cargarPago("02", "000001");
  EXPECT_EQ(q("hecho"), e.pagar(3, 1, "45"));
  // In dollars: 60 / 3, 10, 100 / 4 and 45.
  EXPECT_EQ(q("Recibo PV1-000003. Nuevo saldo de BADE 001-000001: S/. -80.00, US$ 0.00"), e.v.pago.ultimo);
  EXPECT_EQ(q("PA1|000001|02|001|000001|1|01|2026-11-24 00:00:00|60|N|3|Null|Null|Null|Null|Null|Null|7|1|0|Null\n"
              "PV1|000001|02|001|000001|2|02|2026-11-24 00:00:00|10|E|4|001|Null|Null|Null|Null|Null|7|1|0|Null\n"
              "PV1|000002|02|001|000001|3|03|2026-11-24 00:00:00|100|N|4|Null|Null|Null|Null|CR-77|Null|7|1|0|Null\n"
              "PV1|000003|02|001|000001|4|04|2026-11-24 00:00:00|45|E|4|Null|01|191-1|OP'9|Null|Null|7|1|0|Null"),
            e.central("SELECT cSerieDocPago, NroDocPago, TipoDoc, cSerieDoc, NroDoc, NroItem, FormaPago, FechaPago, "
                      "Monto, Moneda, nTipoCambio, IdTarjeta, IdBanco, NroCtaBancaria, NroOperacion, "
                      "NroCertificadoRetencion, NroDepositoDetraccion, cClieCode, idLocal, bEsPagoDetraccion, "
                      "FechaAnulacion FROM Pagos ORDER BY idpago"));
  EXPECT_EQ(q("1|22|00000007|1|60|20|60|20|PAGO REF. SIST. LOGISTICA|1|1|12|PA1|1\n"
              "2|23|00000007|2|40|10|40|10|PAGO REF. SIST. LOGISTICA|1|0|13|PV1|1\n"
              "3|23|00000007|1|100|25|100|25|PAGO REF. SIST. LOGISTICA|1|0|13|PV1|2\n"
              "4|23|00000007|2|180|45|180|45|PAGO REF. SIST. LOGISTICA|1|0|13|PV1|3"),
            e.local("SELECT cOperCode, cOperTipo, nTarjNumb, nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles, "
                    "nEfectivoDolares, sGlosa, cEstado, cFlagSincronizacion, cDocTipo, cDocSerie, cDocCodigo FROM "
                    "OperacionParalela ORDER BY cOperCode"));
}

// What is no amount, or too much, changes nothing.
TEST(Pagos, RefusedAmounts) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(1, "10"));
  e.cargarPago("02", "000001");
  // clang-format off
  const struct { const char *monto, *aviso; } casos[] = {
      {"", "Ingrese monto del pago"}, {"diez", "Ingrese valor numerico"}, {"1e2", "Ingrese valor numerico"},
      {"12,5", "Ingrese valor numerico"}, {"-5", "Debe registar una cantidad mayor que cero."},
      {"0.004", "Debe registar una cantidad mayor que cero."},
      {"100.01", "El monto a pagar no debe ser mayor que el saldo"},
  };
  // clang-format on
  for (const auto& c : casos) {
    e.p.persona().espera(q(c.aviso));
    EXPECT_EQ(q("txtMontoSoles"), e.pagar(0, 0, c.monto)) << c.monto;
  }
  // 33.34 dollars at 3.00 are a cent or two too much for a document in soles.
  e.p.persona().espera(q("El monto a pagar no debe ser mayor que el saldo"));
  EXPECT_EQ(q("txtMontoDolares"), e.pagar(0, 1, "33.34"));
  EXPECT_EQ(q("0"), e.central("SELECT COUNT(*) FROM Pagos"));
  EXPECT_EQ(q("hecho"), e.pagar(0, 0, "100"));
}

// What another desk has done since the document was loaded counts.
TEST(Pagos, ReadTheBalanceAgainInTheAct) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(1, "10"));
  e.cargarPago("02", "000001");
  e.enCentral("INSERT INTO Pagos (cSerieDocPago, NroDocPago, TipoDoc, cSerieDoc, NroDoc, NroItem, FormaPago, Monto, "
              "Moneda, nTipoCambio) VALUES ('PA2', '000001', '02', '001', '000001', 1, '01', 60, 'N', 3)");
  e.p.persona().espera(q("El monto a pagar no debe ser mayor que el saldo: ahora es de S/. 40.00"));
  EXPECT_EQ(QString(), e.pagar(0, 0, "50"));
  EXPECT_EQ(q("hecho"), e.pagar(0, 0, "40"));
  e.cargarPago("02", "000001");
  e.p.persona().espera(q("Ya no hay saldo por cancelar"));
  EXPECT_EQ(q("cmdBuscarDocumento"), e.pagar(0, 0, "1"));
  e.enCentral("UPDATE Pagos SET FechaAnulacion = '20261124'");
  e.cargarPago("02", "000001");
  for (const char* sql :
       {"UPDATE Venta01 SET FechaAnulacion = '20261124'", "UPDATE Venta01 SET bLiquidado = 1, FechaAnulacion = NULL"}) {
    e.enCentral(sql);
    e.p.persona().espera(q("El documento BADE 001-000001"));
    EXPECT_EQ(QString(), e.pagar(0, 0, "10"));
  }
}

// The same again in one minute is asked for; another kind, amount, document or minute is not.
TEST(Pagos, ARepeatIsAskedFor) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(1, "10"));
  ASSERT_EQ(q("hecho"), e.facturar(1, "10"));
  const auto pagar = [&e](const char* documento, int forma, const char* monto) {
    e.cargarPago("02", documento);
    return e.pagar(forma, 0, monto);
  };
  EXPECT_EQ(q("hecho"), pagar("000001", 0, "10"));
  EXPECT_EQ(q("hecho"), pagar("000001", 1, "10"));
  EXPECT_EQ(q("hecho"), pagar("000001", 0, "11"));
  EXPECT_EQ(q("hecho"), pagar("000002", 0, "10"));
  e.p.persona().espera(q("ya se registró un pago igual de este documento: PA1-000001"), q("No"));
  EXPECT_EQ(QString(), pagar("000001", 0, "10"));
  e.p.persona().espera(q("ya se registró un pago igual"), q("Sí"));
  EXPECT_EQ(q("hecho"), pagar("000001", 0, "10"));
  e.p.elReloj().ahora = e.p.elReloj().ahora.addSecs(60);
  EXPECT_EQ(q("hecho"), pagar("000001", 0, "10"));
  EXPECT_EQ(q("6"), e.central("SELECT COUNT(*) FROM Pagos"));
}

TEST(Pagos, TheDepositOfADetraction) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(0, "8", 0, "807"));
  e.cargarPago("01", "000001");
  e.llenarDeposito();
  EXPECT_TRUE(e.v.pago.chkEsDetraccion && !MontoEditable(e.v.pago, false) && !MontoEditable(e.v.pago, true));
  EXPECT_EQ(q("88.32|00-071-003|0"),
            e.v.pago.txtMontoSoles + u'|' + e.v.pago.txtNroCuenta + u'|' + QString::number(e.v.pago.cboMoneda1));
  EXPECT_EQ(q("hecho"), e.depositar());
  EXPECT_EQ(q("88.32|1|C"), e.central("SELECT p.Monto, p.bEsPagoDetraccion, d.Estado FROM Pagos p, Detraccion d"));
  // Now it is a bank like any other.
  e.cargarPago("01", "000001");
  e.llenarDeposito();
  EXPECT_FALSE(e.v.pago.chkEsDetraccion);
  EXPECT_EQ(QString(), e.v.pago.txtNroCuenta + e.v.pago.txtMontoSoles);
}

TEST(Pagos, ADetractionByVoucherOnceThePriceIsPaid) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(0, "8", 0, "807"));
  e.cargarPago("01", "000001");
  EXPECT_FALSE(e.v.pago.lblDetraccion) << "a balance is left";
  EXPECT_EQ(q("hecho"), e.pagar(0, 0, "736"));
  e.cargarPago("01", "000001");
  EXPECT_TRUE(e.v.pago.lblDetraccion);
  e.p.persona().espera(q("Ingrese Nro Voucher Pago:"), q("V'77"));
  e.p.persona().espera(q("Se actualizó el pago de Detraccion satisfactoriamente..."));
  ActualizarDetraccion(e.p, e.v.pago);
  EXPECT_EQ(q("C|Cancelado por FA - Nro Voucher: V'77"), e.central("SELECT Estado, Observaciones FROM Detraccion"));
  EXPECT_FALSE(e.v.pago.documento);
}

TEST(Notas, TakeNoMoreThanIsLeft) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(1, "10"));
  EXPECT_EQ(q("hecho"), e.consumir(1, "3"));
  EXPECT_EQ(q("hecho"), e.consumir(1, "2"));
  e.p.persona().espera(q("No puede consumir mas de 50.00 Soles."));
  EXPECT_EQ(q("TDGNotaConsumo"), e.consumir(1, "6"));
  // A desk that has taken some meanwhile is seen in the act.
  e.cargarNota(1);
  e.enCentral(
      "INSERT INTO ConsumoVenta (cCodVta, cCajaCodi, cOperCode, nMonto, bAnulado) VALUES (1, '00002', 9, 20, 0)");
  e.linea(e.v.nota.rejilla, "101", "4");
  e.p.persona().espera(q("No puede consumir mas de 30.00 Soles."));
  EXPECT_EQ(QString(), GrabarNota(e.p, e.v, e.pantallas));
  e.enCentral("UPDATE ConsumoVenta SET bAnulado = 1 WHERE cCajaCodi = '00002'");
  EXPECT_EQ(q("hecho"), e.consumir(1, "5"));
  EXPECT_EQ(q("1|30\n2|20\n3|50"),
            e.central("SELECT cOperCode, nMonto FROM ConsumoVenta WHERE cCajaCodi = '00001' ORDER BY cOperCode"));
  EXPECT_EQ(q("1|21|00000007|0|30|10|REF. SIST. LOGISTICA|1|1|NC1|1\n2|21|00000007|0|20|6.67|REF. SIST. LOGISTICA|1|1|"
              "NC1|2\n3|21|00000007|0|50|16.67|REF. SIST. LOGISTICA|1|1|NC1|3"),
            e.local("SELECT cOperCode, cOperTipo, nTarjNumb, nMoneda, nMontoSoles, nMontoDolares, sGlosa, cEstado, "
                    "cOperCodeRela, cDocSerie, cDocCodigo FROM OperacionParalela ORDER BY cOperCode"));
}

// A line of the document brings its own price and percentage.
TEST(Notas, TakeALineOfTheDocument) {
  Credito e;
  e.cliente(1);
  e.linea(e.v.factura.rejilla, "102", "4", "50");
  e.pantallas.supervisor = q("SUPERVISOR");
  ASSERT_EQ(q("hecho"), e.facturar());
  e.p.ejecuta(q("UPDATE Producto SET nProdPrecUnit = 99 WHERE cProdCode = 102"));
  e.cargarNota(1);
  ASSERT_EQ(1u, e.v.nota.lineas.size());
  EXPECT_EQ(0, TomarLineaVendida(e.p, e.v.nota, 0).value_or(-1));
  EXPECT_EQ(q("19.00"), e.v.nota.txtSolesNC);
  EXPECT_FALSE(TomarLineaVendida(e.p, e.v.nota, 7));
  EXPECT_EQ(std::nullopt, GrabarNota(e.p, e.v, e.pantallas));
  EXPECT_EQ(2, e.pantallas.abiertas.size()) << "the discount asks the supervisor here too";
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
  e.p.persona().espera(q("Hay un saldo a favor"), q("No"));
  EXPECT_EQ(QString(), e.liquidar(1));
  EXPECT_EQ(q("-70.00|70.00"), e.v.liquidacion.txtSolesLQ + u'|' + e.v.liquidacion.txtVueltoSolesLQ);
  e.p.persona().espera(q("Hay un saldo a favor"), q("Sí"));
  EXPECT_EQ(q("hecho"), e.liquidar(1));
  EXPECT_EQ(q("1|21|0|30|10|0|0|2|1\n2|22|1|100|33.33|100|0|1|0\n3|24|0|-70|-23.33|0|70|2|0"),
            e.local("SELECT cOperCode, cOperTipo, nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles, nVueltoSoles, "
                    "cEstado, cOperCodeRela FROM OperacionParalela ORDER BY cOperCode"));
  // The change leaves the drawer: X-1, Z1 and their count read this row.
  EXPECT_EQ(q("3|1|0|1|-70|0|0|0|14|001|1|00000007"),
            e.local("SELECT cOperCode, cOperTipo, cProdCode, nProdCant, nProdPrecUnit, nMontoSoles, nMontoDolares, "
                    "nVueltoDolares, cDocTipo, cDocSerie, cDocCodigo, nTarjNumb FROM Operacion"));
  EXPECT_EQ(q("1"), e.central("SELECT bLiquidado FROM Venta01"));
  const QByteArray papel = e.impreso("LPT2");
  EXPECT_EQ(
      "", primeraDiferencia(conCorte(leerGolden(q("credit/liquidacion.txt"))), papel.mid(papel.lastIndexOf("\x1b@"))));
}

// Notes of another desk count, and what changed since the document was loaded ends the act.
TEST(Liquidaciones, SeeWhatOtherDesksDid) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(1, "10"));
  e.cargarPago("02", "000001");
  ASSERT_EQ(q("hecho"), e.pagar(0, 0, "100"));
  e.v.liquidacion.txtTXL = q("1");
  EXPECT_EQ(q("cmdGrabaLiq"), AgregarDocumentoLQ(e.p, e.v.liquidacion).value_or(QString()));
  e.enCentral(
      "INSERT INTO ConsumoVenta (cCodVta, cCajaCodi, cOperCode, nMonto, bAnulado) VALUES (1, '00002', 9, 20, 0)");
  e.p.persona().espera(q("Hay un saldo a favor"), q("Sí"));
  e.p.persona().espera(q("Otra caja cambió los pagos o el consumo"));
  EXPECT_EQ(QString(), GrabarLiquidacion(e.p, e.v).value_or(q("hecho")));
  e.p.persona().espera(q("Hay un saldo a favor"), q("Sí"));
  EXPECT_EQ(q("hecho"), e.liquidar(1));
  EXPECT_EQ(q("80"), e.local("SELECT nVueltoSoles FROM OperacionParalela WHERE cOperTipo = 24"));
  e.p.persona().espera(q("ya fue liquidado"));
  e.p.persona().espera(q("Debe ingresar 1 documento"));
  EXPECT_EQ(q("txtTXL(0)"), e.liquidar(1));
}

// A document that another desk has settled closes the notes of this one when the screen opens.
TEST(Liquidaciones, AreFollowedByTheNotesOfOtherDesks) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(1, "10"));
  EXPECT_EQ(q("hecho"), e.consumir(1, "3"));
  e.p.ejecuta(q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado, cOperCodeRela, sGlosa) "
                "VALUES (50, 21, '1', 1, 'de un pago adelantado')"));
  InicioFacturacion(e.p, e.v);
  EXPECT_EQ(q("1|1\n50|1"), e.local("SELECT cOperCode, cEstado FROM OperacionParalela ORDER BY cOperCode"));
  e.enCentral("UPDATE Venta01 SET bLiquidado = 1");
  InicioFacturacion(e.p, e.v);
  EXPECT_EQ(q("1|2\n50|1"), e.local("SELECT cOperCode, cEstado FROM OperacionParalela ORDER BY cOperCode"));
}

TEST(Copias, OfADocumentAndAReceipt) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(0, "10"));
  e.cargarPago("01", "000001");
  ASSERT_EQ(q("hecho"), e.pagar(0, 0, "40"));
  e.p.papeles().papel.clear();
  EXPECT_TRUE(ReimprimirFactura(e.p, DocCredito::FADE, q("001"), q("1")));
  EXPECT_TRUE(e.impreso("LPT1").contains(" TK NRO: 001-000001") && e.impreso("LPT1").contains(" COPIA"));
  EXPECT_TRUE(ReimprimirRecibo(e.p, q("PA1"), q("000001")));
  EXPECT_TRUE(e.impreso("LPT2").contains("S/. 40.00") && e.impreso("LPT2").contains("Ref: FADE 001-000001"));
  e.p.persona().espera(q("No existe BADE 001-000001."));
  EXPECT_FALSE(ReimprimirFactura(e.p, DocCredito::BADE, q("001"), q("1")));
  e.enCentral("UPDATE Pagos SET FechaAnulacion = '20261124'");
  e.p.persona().espera(q("El recibo PA1-000001 fue anulado."));
  EXPECT_FALSE(ReimprimirRecibo(e.p, q("PA1"), q("1")));
}

// A paper that fails leaves the document; the centre away leaves nothing.
TEST(Actos, WithoutPaperAndWithoutTheCentre) {
  Credito e;
  e.p.papeles().fallo = q("sin papel");
  e.p.persona().espera(q("sin papel"));
  EXPECT_EQ(q("hecho"), e.facturar(1, "1"));
  e.p.papeles().fallo.clear();
  e.cliente(1);
  e.linea(e.v.factura.rejilla, "101", "1");
  const QString central = e.p.ses.psConexionCentral;
  e.p.ses.psConexionCentral = q("Provider=SQLOLEDB.1;Data Source=sqlite:/no/hay.db");
  e.p.persona().espera(q("No se pudo conectar a la BD de Logistica"));
  EXPECT_EQ(QString(), e.facturar());
  e.p.ses.psConexionCentral = central;
  EXPECT_EQ(q("1"), e.local("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc = '02'"));
  EXPECT_EQ(q("hecho"), e.facturar());
}

}  // namespace
