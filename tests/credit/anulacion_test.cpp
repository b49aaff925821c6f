// Voids of billing documents and payments: what stands in the way, what they write in both databases, their papers.
#include <gtest/gtest.h>

#include "credit/anulacion_credito.h"
#include "credito_prueba.h"

namespace {

struct Anulador {
  Credito e;
  AnularTransaccionCtaCte v;

  struct Pantallas : PantallasCreditoGuion {
    int retiros = 0;
    void retiro() override { ++retiros; }
  } pantallas;

  Anulador() { pantallas.supervisor = q("JEFE"); }

  bool cargar(ModoAnular modo, const char* serie, const char* numero) {
    v = {};
    v.Modo = modo;
    v.txtSerie = q(serie);
    v.txtNumero = q(numero);
    return CargarDocumentoAnular(e.p, v) && v.cargado();
  }
  bool aceptar() {
    e.p.persona().espera(q("Esta seguro de anular el documento?"), q("Sí"));
    return AceptarAnulacion(e.p, v, pantallas);
  }
  // What is loaded, which goes through and says so, and `ademas`.
  void anulado(const char* ademas = nullptr, const char* responde = "") {
    dice("Esta seguro de anular el documento?", "Sí");
    dice("Se anuló el documento!");
    if (ademas) dice(ademas, responde);
    EXPECT_TRUE(AceptarAnulacion(e.p, v, pantallas));
  }
  void dice(const char* texto, const char* responde = "") { e.p.persona().espera(q(texto), q(responde)); }
  QString vivos() {
    return e.central("SELECT (SELECT COUNT(*) FROM Venta01 WHERE FechaAnulacion IS NULL), (SELECT COUNT(*) FROM Pagos "
                     "WHERE FechaAnulacion IS NULL) FROM parametro WHERE cCodParam = 'IGV'");
  }
};

// A document of 100.00 with one payment of 40.00 in cash.
struct ConPago : Anulador {
  explicit ConPago(int moneda = 0, const char* monto = "40") {
    EXPECT_EQ(q("hecho"), e.facturar(1, "10"));
    e.cargarPago("02", "000001");
    EXPECT_EQ(q("hecho"), e.pagar(0, moneda, monto));
  }
};

TEST(Anular, FirstThePaymentsThenTheDocument) {
  ConPago a;
  a.dice("El documento seleccionado no se puede anular por presentar Pagos asociados sin anular.");
  EXPECT_FALSE(a.cargar(ModoAnular::BADE, "001", "1"));
  ASSERT_TRUE(a.cargar(ModoAnular::PADE, "PA1", "000001"));
  EXPECT_EQ(q("001|000001|A EFECTIVO|24/11/2026|40.00|Soles"), a.v.dgdDetalle.join(u'|'));
  a.anulado();
  EXPECT_EQ(q("1|0"), a.vivos());
  EXPECT_EQ(q("1|22|40|0|2\n2|22|0|0|0"),
            a.e.local("SELECT cOperCode, cOperTipo, nMontoSoles, cEstado, cOperCodeAnul FROM OperacionParalela"));
  a.dice("El documento seleccionado ya se encuentra anulado");
  EXPECT_FALSE(a.cargar(ModoAnular::PADE, "PA1", "1"));

  ASSERT_TRUE(a.cargar(ModoAnular::BADE, "001", "1"));
  EXPECT_EQ(q("O'HIGGINS ANA|Sur|Soles|100.00|33.33|24/11/2026|0.00"), a.v.dgdDetalle.join(u'|'));
  a.anulado();
  EXPECT_EQ(q("0|0"), a.vivos());
  a.dice("El documento seleccionado ya se encuentra anulado");
  EXPECT_FALSE(a.cargar(ModoAnular::BADE, "001", "1"));
  a.dice("Documento no existe o no es válido");
  EXPECT_FALSE(a.cargar(ModoAnular::FADE, "001", "1")) << "another type with that number is another document";
}

TEST(Anular, ThePaperSaysWhatWasVoided) {
  ConPago a;
  a.e.p.papeles().papel.clear();
  ASSERT_TRUE(a.cargar(ModoAnular::PADE, "PA1", "1"));
  a.anulado();
  const QString papel = QString::fromLatin1(a.e.p.papeles().papel[q("LPT1")]).remove(u'\r');
  EXPECT_TRUE(papel.contains(
      q("             24/11/2026 (mar)\n          TRANSACCION ANULADA\n                  PADE\n"
        "---------------------------------------\nCASH/TL  S/.                    *40.00\n"
        "   ITEM                          *0.00\n\n          Documento:PA1-0000001\n          TRANSACCION ANULADA\n\n"
        " CAJERO 10:30 \nSupervisor: JEFE \nCAJA: 00001   TURNO: 01\nCorrelativo: ")))
      << papel.toStdString();
  a.e.p.papeles().papel.clear();
  ASSERT_TRUE(a.cargar(ModoAnular::BADE, "001", "1"));
  a.anulado();
  const QString otro = QString::fromLatin1(a.e.p.papeles().papel[q("LPT1")]).remove(u'\r');
  EXPECT_TRUE(otro.contains(q("                  BADE\n---------------------------------------\nCASH/TL  S/."
                              "                   *100.00\n   ITEM                         *10.00\n\n"
                              "          Documento:001-0000001\n")))
      << otro.toStdString();
}

TEST(Anular, WhatWasDeliveredOrSettledStays) {
  ConPago a;
  ASSERT_EQ(q("hecho"), a.e.consumir(1, "2"));
  ASSERT_TRUE(a.cargar(ModoAnular::PADE, "PA1", "1"));
  a.anulado();
  a.dice("El documento seleccionado no se puede anular por presentar Notas de Consumo asociadas sin anular.");
  EXPECT_FALSE(a.cargar(ModoAnular::BADE, "001", "1"));
  a.e.enCentral("UPDATE ConsumoVenta SET bAnulado = 1");
  EXPECT_TRUE(a.cargar(ModoAnular::BADE, "001", "1"));

  ConPago b;
  b.e.enCentral("UPDATE Venta01 SET bLiquidado = 1");
  b.dice("ya fue liquidado. Sus pagos ya no se anulan.");
  EXPECT_FALSE(b.cargar(ModoAnular::PADE, "PA1", "1"));
}

TEST(Anular, WhatAnotherDeskDidMeanwhileIsSeen) {
  // clang-format off
  const struct { ModoAnular modo; const char *serie, *otra, *aviso, *vivos; } casos[] = {
      {ModoAnular::PADE, "PA1", "UPDATE Pagos SET FechaAnulacion = '20261124'", "ya se encuentra anulado", "1|0"},
      {ModoAnular::PADE, "PA1", "UPDATE Venta01 SET bLiquidado = 1", "ya fue liquidado", "1|1"},
      {ModoAnular::BADE, "001", "UPDATE Pagos SET FechaAnulacion = NULL", "Pagos asociados sin anular", "1|1"},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.otra);
    ConPago a;
    if (c.modo == ModoAnular::BADE) a.e.enCentral("UPDATE Pagos SET FechaAnulacion = '20261124'");
    ASSERT_TRUE(a.cargar(c.modo, c.serie, "1"));
    a.e.enCentral(c.otra);
    a.dice("Esta seguro de anular el documento?", "Sí");
    a.dice(c.aviso);
    EXPECT_FALSE(AceptarAnulacion(a.e.p, a.v, a.pantallas));
    EXPECT_EQ(q(c.vivos), a.vivos());
    EXPECT_EQ(q("1"), a.e.local("SELECT cEstado FROM OperacionParalela"));
  }
}

TEST(Anular, ADepositOfTheDetractionMakesItPendingAgain) {
  Anulador a;
  ASSERT_EQ(q("hecho"), a.e.facturar(0, "10", 0, "807"));
  a.e.cargarPago("01", "000001");
  ASSERT_EQ(q("hecho"), a.e.depositar());
  ASSERT_EQ(q("C"), a.e.central("SELECT Estado FROM Detraccion"));
  ASSERT_TRUE(a.cargar(ModoAnular::PADE, "PV1", "1"));
  a.anulado();
  EXPECT_EQ(q("P"), a.e.central("SELECT Estado FROM Detraccion"));
}

TEST(Anular, TheMoneyOfAClosedDayOrAnotherDeskIsTold) {
  // What a drawer gives back is a withdrawal, in soles.
  for (const auto& [moneda, monto, aviso] : {std::tuple(0, "40", "registre un retiro de S/. 40.00 por"),
                                             std::tuple(1, "10", "registre un retiro de S/. 32.00 (US$ 10.00) por")}) {
    ConPago cerrado(moneda, monto);
    cerrado.e.p.ses.pnTipoCambio = 3.2;
    cerrado.e.p.ejecuta(q("UPDATE OperacionParalela SET cOperFlagAbierto = 0"));
    ASSERT_TRUE(cerrado.cargar(ModoAnular::PADE, "PA1", "1"));
    cerrado.anulado(aviso, "Sí");
    EXPECT_EQ(1, cerrado.pantallas.retiros);
    EXPECT_EQ(q("1"), cerrado.e.local("SELECT cEstado FROM OperacionParalela"));
  }

  ConPago ajeno;
  ajeno.e.enCentral("UPDATE Pagos SET cSerieDocPago = 'PA12'");
  ASSERT_TRUE(ajeno.cargar(ModoAnular::PADE, "PA12", "1"));
  ajeno.anulado("El recibo PA12-000001 es de la caja 00012");
  EXPECT_EQ(q("1|0"), ajeno.vivos());
  EXPECT_EQ(q("1"), ajeno.e.local("SELECT cEstado FROM OperacionParalela"));
}

TEST(Anular, WithoutConsentServerOrNumberNothingHappens) {
  ConPago a;
  a.dice("Valor de Numero no válido");
  EXPECT_FALSE(a.cargar(ModoAnular::PADE, "PA1", "1a"));
  EXPECT_FALSE(a.cargar(ModoAnular::PADE, "PA1", ""));
  a.dice("Debe cargar el documento a anular");
  EXPECT_FALSE(AceptarAnulacion(a.e.p, a.v, a.pantallas));
  ASSERT_TRUE(a.cargar(ModoAnular::PADE, "PA1", "1"));
  a.dice("Esta seguro de anular el documento?", "No");
  EXPECT_FALSE(AceptarAnulacion(a.e.p, a.v, a.pantallas));
  a.pantallas.supervisor.clear();
  EXPECT_FALSE(a.aceptar());
  a.pantallas.supervisor = q("JEFE");
  a.e.p.ses.psConexionCentral = q("Provider=SQLOLEDB.1;Data Source=sqlite:/no/hay.db");
  a.dice("Esta seguro de anular el documento?", "Sí");
  a.dice("");
  EXPECT_FALSE(AceptarAnulacion(a.e.p, a.v, a.pantallas));
}

}  // namespace
