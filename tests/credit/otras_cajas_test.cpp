// What another desk did to a document between its being loaded here and the act, at every tab; and what a desk that has
// long been at work meets: numbers and cards beyond sixteen bits, one customer's code at two sites.
#include <gtest/gtest.h>

#include "credit/anulacion_credito.h"
#include "credito_prueba.h"

namespace {

// All that the acts write, in both places.
QString filas(Credito& e) {
  return e.central("SELECT cCodVta, bLiquidado FROM Venta01 ORDER BY cCodVta") +
         e.central("SELECT NroDocPago, Monto FROM Pagos ORDER BY idpago") +
         e.central("SELECT Estado, Observaciones FROM Detraccion") +
         e.central("SELECT cCajaCodi, cOperCode, nMonto FROM ConsumoVenta ORDER BY cCajaCodi, cOperCode") +
         e.local("SELECT cOperCode, cEstado FROM OperacionParalela ORDER BY cOperCode") +
         e.local("SELECT cTipoDoc, nDocCodigo FROM Config_Documento ORDER BY cTipoDoc") +
         e.local("SELECT COUNT(*) FROM Operacion");
}

struct Pestana {
  const char* nombre;
  void (*cargar)(Credito&);
  QString (*grabar)(Credito&);
};

// clang-format off
const Pestana kPago{"payment", [](Credito& e) {
    e.cargarPago("01", "000001"); e.v.pago.dcbFormaPago = 0; CambiarForma(e.v); e.v.pago.cboMoneda1 = 0;
    e.v.pago.txtMontoSoles = q("10"); },
  [](Credito& e) { return comoTexto(GrabarPago(e.p, e.v)); }};
const Pestana kDeposito{"deposit", [](Credito& e) { e.cargarPago("01", "000001"); e.llenarDeposito(); },
  [](Credito& e) { return comoTexto(GrabarPago(e.p, e.v)); }};
const Pestana kNota{"note", [](Credito& e) {
    e.cargarNota(1); e.linea(e.v.nota.rejilla, "101", "2"); TotalesNota(e.p, e.v.nota); },
  [](Credito& e) { return comoTexto(GrabarNota(e.p, e.v, e.pantallas)); }};
const Pestana kLiquidacion{"settlement", [](Credito& e) {
    e.enCentral("INSERT INTO Pagos (cSerieDocPago, NroDocPago, TipoDoc, cSerieDoc, NroDoc, NroItem, FormaPago, Monto, "
                "Moneda, nTipoCambio) VALUES ('PA9', '000001', '01', '001', '000001', 1, '01', 736, 'N', 3)");
    LimpiarLiquidacion(e.v.liquidacion); e.v.liquidacion.txtTXL = q("1");
    (void)AgregarDocumentoLQ(e.p, e.v.liquidacion); },
  [](Credito& e) { return comoTexto(GrabarLiquidacion(e.p, e.v)); }};

const struct { const Pestana* pestana; const char *otra, *aviso; } kMeanwhile[] = {
    {&kPago, "DELETE FROM Venta01", "El documento ya no existe en la base de datos central."},
    {&kDeposito, "UPDATE Detraccion SET Estado = 'C'", "La detracción de este documento ya no está pendiente."},
    {&kDeposito, "UPDATE Detraccion SET MontoDetracc = 90", "El monto de la detracción cambió"},
    {&kDeposito, "UPDATE Venta01 SET bLiquidado = 1", "El documento FADE 001-000001 ya fue liquidado."},
    {&kNota, "UPDATE Venta01 SET FechaAnulacion = '20261124'", "El documento FADE 001-000001 fue anulado."},
    {&kNota, "UPDATE Venta01 SET bLiquidado = 1", "ya fue liquidado"},
    {&kNota, "UPDATE Venta01 SET TotVta = 19.99", "No puede consumir mas de 19.99 Soles."},
    {&kLiquidacion, "UPDATE Venta01 SET FechaAnulacion = '20261124'", "fue anulado"},
    {&kLiquidacion, "UPDATE Venta01 SET bLiquidado = 1", "ya fue liquidado"},
    {&kLiquidacion, "UPDATE Pagos SET FechaAnulacion = '20261124'", "Otra caja cambió los pagos o el consumo"},
};
// clang-format on

TEST(OtraCaja, WhatItDidMeanwhileEndsTheActInWords) {
  for (const auto& c : kMeanwhile) {
    SCOPED_TRACE(std::string(c.pestana->nombre) + ": " + c.otra);
    Credito e;
    ASSERT_EQ(q("hecho"), e.facturar(0, "8", 0, "807"));
    c.pestana->cargar(e);
    e.enCentral(c.otra);
    const QString antes = filas(e);
    if (c.pestana == &kLiquidacion) e.p.persona().espera(q("Hay un saldo a favor"), q("Sí"));
    e.p.persona().espera(q(c.aviso));
    EXPECT_EQ(QString(), c.pestana->grabar(e));
    EXPECT_EQ(antes, filas(e));
  }
}

TEST(OtraCaja, AVoucherForADetractionThatWasPaidMeanwhileIsTold) {
  Credito e;
  ASSERT_EQ(q("hecho"), e.facturar(0, "8", 0, "807"));
  e.cargarPago("01", "000001");
  // An empty answer and a cancelled one change nothing.
  for (const char* respuesta : {"", " "}) {
    e.p.persona().espera(q("Ingrese Nro Voucher Pago:"), q(respuesta));
    ActualizarDetraccion(e.p, e.v.pago);
    EXPECT_TRUE(e.v.pago.documento);
  }
  e.enCentral("UPDATE Detraccion SET Estado = 'C', Observaciones = 'de la otra'");
  e.p.persona().espera(q("Ingrese Nro Voucher Pago:"), q("77"));
  e.p.persona().espera(q("La detracción de este documento ya no está pendiente."));
  ActualizarDetraccion(e.p, e.v.pago);
  EXPECT_EQ(q("C|de la otra"), e.central("SELECT Estado, Observaciones FROM Detraccion"));
}

// A document without its parameters must not go out wrong.
TEST(Facturas, WithoutTheParametersOfTheDetractionNoneIsMade) {
  for (const char* parametro : {"DETRS", "DETRP"}) {
    Credito e;
    e.enCentral((std::string("DELETE FROM parametro WHERE cCodParam = '") + parametro + "'").c_str());
    e.p.persona().espera(q("Faltan los parámetros de la detracción en la base de datos central."));
    EXPECT_EQ(QString(), e.facturar(0, "8", 0, "807")) << parametro;
    EXPECT_EQ(q("0"), e.central("SELECT COUNT(*) FROM Venta01"));
    EXPECT_EQ(q("736.00"), e.v.factura.txtSoles) << "the tab stays";
  }
}

TEST(Liquidaciones, TakeOneDocumentWithItsNotes) {
  Credito e;
  for (const char* numero : {"000001", "000002"}) {
    ASSERT_EQ(q("hecho"), e.facturar(1, "10"));
    e.cargarPago("02", numero);
    ASSERT_EQ(q("hecho"), e.pagar(0, 0, "100"));
  }
  ASSERT_EQ(q("hecho"), e.consumir(1, "3"));
  TabLiquidacion& v = e.v.liquidacion;
  const auto agregar = [&](const char* codigo) {
    v.txtTXL = q(codigo);
    return AgregarDocumentoLQ(e.p, v).value_or(QString());
  };
  LimpiarLiquidacion(v);
  EXPECT_EQ(q("cmdGrabaLiq"), agregar("1"));
  EXPECT_EQ(q("000001"), v.txtTXL);
  e.p.persona().espera(q("El código de transacciòn ya existe."));
  EXPECT_EQ(q("txtTXL(0)"), agregar("1"));
  EXPECT_EQ(q("cmdGrabaLiq"), agregar("2"));
  EXPECT_EQ(q("200.00|30.00|-170.00"), v.txtTotalPA + u'|' + v.txtTotalNC + u'|' + v.txtSolesLQ);
  e.p.persona().espera(q("Debe ingresar solo 1 documento"));
  EXPECT_EQ(q("lvwTX(0)"), comoTexto(GrabarLiquidacion(e.p, e.v)));
  QuitarDocumentoLQ(e.p, v, 0);
  EXPECT_EQ(q("100.00|0.00|-100.00"), v.txtTotalPA + u'|' + v.txtTotalNC + u'|' + v.txtSolesLQ) << "its note went too";
  e.p.persona().espera(q("Hay un saldo a favor"), q("Sí"));
  EXPECT_EQ(q("hecho"), comoTexto(GrabarLiquidacion(e.p, e.v)));
  EXPECT_EQ(q("1|0\n2|1"), e.central("SELECT cCodVta, bLiquidado FROM Venta01 ORDER BY cCodVta"));
  EXPECT_EQ(q("100"), e.local("SELECT nVueltoSoles FROM OperacionParalela WHERE cOperTipo = 24"));
}

// A number of seven digits and a card that sixteen bits don't hold, through payment, receipt, copy and void.
TEST(Numeros, BeyondSixteenBitsEverywhere) {
  Credito e;
  Conexion cliente;
  ASSERT_TRUE(e.p.poDBAdmin.AbrirBD(cliente, e.p.ses.psConexionCliente));
  e.p.ejecuta(cliente, q("INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName) VALUES (40000, 1, 'X', 'Y')"));
  e.p.ejecuta(cliente, q("INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) "
                         "VALUES (40000, 1, '00040000', 1, '20301231')"));
  e.p.ejecuta(q("DELETE FROM Config_Documento WHERE cTipoDoc = '12'"));
  e.p.ejecuta(q("INSERT INTO Config_Documento (cTipoDoc, nDocCodigo, cSerieDoc) VALUES ('12', 1234566, 'PA1')"));
  e.p.ejecuta(q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, cDocTipo, cDocCodigo, cEstado) "
                "VALUES (70000, 22, '12', 1234566, '2')"));
  e.cliente(1);
  e.v.factura.txtTarjeta = q("40000");
  e.linea(e.v.factura.rejilla, "101", "10");
  ASSERT_EQ(q("hecho"), e.facturar());
  e.cargarPago("02", "000001");
  ASSERT_EQ(q("hecho"), e.pagar(0, 0, "40"));
  EXPECT_EQ(q("PA1|1234567|40000"), e.central("SELECT cSerieDocPago, NroDocPago, cClieCode FROM Pagos"));
  EXPECT_EQ(q("70001|00040000|1234567"),
            e.local("SELECT cOperCode, nTarjNumb, cDocCodigo FROM OperacionParalela WHERE cOperCode > 70000"));
  EXPECT_TRUE(ReimprimirRecibo(e.p, q("PA1"), q("1234567")));
  AnularTransaccionCtaCte v;
  v.Modo = ModoAnular::PADE;
  v.txtSerie = q("PA1");
  v.txtNumero = q("1234567");
  e.pantallas.supervisor = q("JEFE");
  ASSERT_TRUE(CargarDocumentoAnular(e.p, v) && v.cargado());
  e.p.persona().espera(q("Esta seguro de anular el documento?"), q("Sí"));
  e.p.persona().espera(q("Se anuló el documento!"));
  EXPECT_TRUE(AceptarAnulacion(e.p, v, e.pantallas));
  EXPECT_EQ(q("0|70002"), e.local("SELECT cEstado, cOperCodeAnul FROM OperacionParalela WHERE cOperCode = 70001"));
}

}  // namespace
