// The papers of the billing screen, and what its acts refuse, ask and read again. Their rows are those of the play
// credito_vida, which runs on both engines.
#include <gtest/gtest.h>

#include "apoyo/golden.h"
#include "credito_prueba.h"

namespace {

TEST(Papeles, OfADocumentTwoReceiptsAndALiquidation) {
  Credito fade;
  fade.cliente(0);
  fade.linea(fade.v.factura.rejilla, "807", "8");
  fade.linea(fade.v.factura.rejilla, "102", "2");
  EXPECT_EQ(q("hecho"), fade.facturar());
  EXPECT_EQ("", primeraDiferencia(conCorte(leerGolden(q("credit/fade_detraccion.txt"))), fade.impreso("LPT1")));

  Credito bade;
  ASSERT_EQ(q("hecho"), bade.facturar(1, "30", 1));
  bade.cargarPago("02", "000001");
  EXPECT_EQ(q("hecho"), bade.pagar(0, 0, "60"));
  bade.cargarPago("02", "000001");
  bade.p.ses.pnTipoCambio = 4;
  EXPECT_EQ(q("hecho"), bade.pagar(1, 1, "10"));
  EXPECT_EQ("", primeraDiferencia(conCorte(leerGolden(q("credit/recibo_soles.txt"))) +
                                      conCorte(leerGolden(q("credit/recibo_dolares.txt"))),
                                  bade.impreso("LPT2")));

  Credito liquidada;
  ASSERT_EQ(q("hecho"), liquidada.facturar(1, "10"));
  EXPECT_EQ(q("hecho"), liquidada.consumir(1, "3"));
  liquidada.cargarPago("02", "000001");
  ASSERT_EQ(q("hecho"), liquidada.pagar(0, 0, "100"));
  liquidada.p.persona().espera(q("Hay un saldo a favor"), q("Sí"));
  EXPECT_EQ(q("hecho"), liquidada.liquidar(1));
  const QByteArray papel = liquidada.impreso("LPT2");
  EXPECT_EQ(
      "", primeraDiferencia(conCorte(leerGolden(q("credit/liquidacion.txt"))), papel.mid(papel.lastIndexOf("\x1b@"))));
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
TEST(Facturas, OfMoreLinesThanAStatementTakes) {
  Credito e;
  e.cliente(1);
  for (int i = 0; i < 201; ++i) e.linea(e.v.factura.rejilla, i == 200 ? "102" : "101", "1");
  EXPECT_EQ(q("hecho"), e.facturar());
  EXPECT_EQ(q("201|201|1|201|000102"),
            e.central("SELECT COUNT(*), COUNT(DISTINCT NroItem), MIN(NroItem), MAX(NroItem), "
                      "(SELECT cCodartic FROM Venta02 WHERE NroItem = 201) FROM Venta02"));
}

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
  EXPECT_EQ(q("40.00|13.33"), e.v.pago.lblSaldoSoles + u'|' + e.v.pago.lblSaldoDolares);
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
  EXPECT_EQ(q("30.00"), e.v.nota.txtMontoPorConsumirDocumento);
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

TEST(Copias, OfWhatIsMissingOrVoidedAreNone) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(0, "10"));
  e.cargarPago("01", "000001");
  ASSERT_EQ(q("hecho"), e.pagar(0, 0, "40"));
  e.p.persona().espera(q("No existe BADE 001-000001."));
  EXPECT_FALSE(ReimprimirFactura(e.p, DocCredito::BADE, q("001"), q("1")));
  EXPECT_TRUE(ReimprimirRecibo(e.p, q("PA1"), q("000001")));
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
