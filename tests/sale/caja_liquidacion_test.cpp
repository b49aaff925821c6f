// The kinds of sale beside a plain one, from the screen's fields to the rows: advance payments, notes, liquidations,
// vouchers.
#include "apoyo/casos.h"
#include "apoyo/golden.h"
#include "sale/caja_full_liquidacion.h"

#include "sale/buscador.h"
#include "sale/caja_full_adelanto.h"
#include "venta_prueba.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

struct Liquidacion : testing::Test {
  PuestoDeVenta p;
  PantallasGuion pantallas;
  CajaRegistradoraFull v;

  void SetUp() override {
    ejecutarArchivo(p, "sale/casos/liquidacion.sql");
    Inicio(p, v);
    CambiarTipo(p, v, pantallas, TipoVenta::LIQPAD);
  }
  std::optional<Foco> agrega(int lista, const char* codigo) {
    v.txtTXL[static_cast<size_t>(lista)] = q(codigo);
    return AgregarTX(p, v, lista);
  }
  QString listas() const {
    QStringList r;
    for (const auto& lista : v.lvwTX) {
      for (const auto& l : lista) r << l.tx;
      r << QStringLiteral("/");
    }
    return r.join(u' ');
  }
  QString cifras() const { return QStringList{v.txtTotalPA, v.txtTotalNC, v.txtSoles, v.txtVueltoSoles}.join(u' '); }
};

TEST_F(Liquidacion, TheTwoListsAndTheirDifference) {
  EXPECT_TRUE(EfectivoFijo(v));
  p.persona().espera(q("Debe ingresar el código de transacción."));
  EXPECT_EQ(q("txtTXL(0)"), agrega(0, " ")->control);
  EXPECT_FALSE(agrega(0, "9"));
  EXPECT_EQ(q("9 / 11 12 /"), listas());
  EXPECT_EQ(q("9 PADE XX1-7 00000007 30.00 24/11/2026 S/. 30.00 DÍAZ LUZ - fiesta"),
            (QStringList{v.lvwTX[0][0].tx, v.lvwTX[0][0].tipo, v.lvwTX[0][0].doc, v.lvwTX[0][0].tarjeta,
                         v.lvwTX[0][0].total, v.lvwTX[0][0].fecha, v.lvwTX[0][0].original, v.lvwTX[0][0].clienteGlosa}
                 .join(u' ')));
  EXPECT_EQ(q("30.00 36.00 6.00 -6.00"), cifras());
  p.persona().espera(q("El código de transacciòn ya existe."));
  EXPECT_TRUE(agrega(0, "000009"));
  agrega(1, "13");
  agrega(0, "10");  // brings the note that stands there already
  agrega(1, "14");  // closed: nothing is said
  EXPECT_EQ(q("9 10 / 11 12 13 /"), listas());
  EXPECT_EQ(q("US$ 20.00"), v.lvwTX[0][1].original);
  EXPECT_EQ(q("90.00 54.00 -36.00 36.00"), cifras());
  EXPECT_EQ(q("-12.00"), v.txtDolares);
  EliminarTX(p, v, 0, 0);
  EXPECT_EQ(q("10 / 13 /"), listas());
  agrega(0, "9");
  EliminarTX(p, v, 1, 1);
  EXPECT_EQ(q("10 9 / 13 12 /"), listas());
}

// A payment of a billing document and a note on one are not the register's: left out of its lists, refused when typed.
TEST_F(Liquidacion, DocumentsOfBillingHaveNoPlaceHere) {
  for (const char* fila : {"50, 22, 0, 'PAGO REF. SIST. LOGISTICA'", "51, 21, 9, 'REF. SIST. LOGISTICA'"}) {
    p.ejecuta(q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, cOperCodeRela, sGlosa, nMontoSoles, nMoneda, "
                "cEstado, cDocSerie, cDocCodigo) VALUES (%1, 70, 1, '1', 'PA1', 1)")
                  .arg(q(fila)));
  }
  const QString aviso = q("Este documento es de Venta Futura: no se usa en la caja registradora.");
  for (const auto& [lista, codigo] : {std::pair(0, "50"), {1, "50"}, {0, "51"}, {1, "51"}}) {
    p.persona().espera(aviso);
    EXPECT_TRUE(agrega(lista, codigo)) << lista << ' ' << codigo;
  }
  EXPECT_FALSE(agrega(0, "9"));
  EXPECT_EQ(q("9 / 11 12 /"), listas()) << "the note on billing document 9 is not that of advance payment 9";
  p.persona().espera(aviso);
  EXPECT_TRUE(SalirAdelanto(p, v, q("50")));
  EXPECT_EQ(QString(), v.txtPADE + v.txtTX);
  for (const TipoBusqueda tipo :
       {TipoBusqueda::PagoAdelantado, TipoBusqueda::Liquidacion0, TipoBusqueda::Liquidacion1}) {
    Busqueda b;
    b.tipo = tipo;
    InicioBusqueda(p, b);
    EXPECT_FALSE(b.filas.empty());
    for (const auto& f : b.filas) EXPECT_LT(f.documento.codigo, 50);
  }
}

TEST_F(Liquidacion, ADifferenceNeedsItsCash) {
  agrega(0, "9");
  p.persona().espera(q("No se puede registrar la operacion si el vuelto es negativo"));
  PulsarBoton(p, v, pantallas, 2);
  SalirEfectivoSoles(p, v);  // walking over the field counts nothing
  EXPECT_EQ(q("0.00"), v.txtEfectivoSoles);
  p.persona().espera(q("No se puede registrar la operacion si el vuelto es negativo"));
  PulsarBoton(p, v, pantallas, 2);
  EXPECT_EQ(q("0"), p.filas(q("SELECT COUNT(*) FROM OperacionParalela WHERE cOperTipo=24")));

  v.txtEfectivoSoles = q("10");
  v.efectivoTecleado = true;
  SalirEfectivoSoles(p, v);
  PulsarBoton(p, v, pantallas, 2);
  EXPECT_EQ(q("8|1|15\n9|2|15\n10|1|0\n11|2|15\n12|2|15\n13|1|10\n14|2|0\n15|2|0"),
            p.filas(q("SELECT cOperCode, cEstado, cOperCodeRela FROM OperacionParalela ORDER BY cOperCode")));
  EXPECT_EQ(q("15|24|0|6|2|10|4|"),
            p.filas(q("SELECT cOperCode, cOperTipo, nMoneda, nMontoSoles, nMontoDolares, "
                      "nEfectivoSoles, nVueltoSoles, sGlosa FROM OperacionParalela WHERE cOperTipo=24")));
  EXPECT_EQ(
      q("15|0|1|-4|10|14|001|1|0"),
      p.filas(q("SELECT cOperCode, cProdCode, cOperTipo, nProdPrecUnit, nMontoSoles, cDocTipo, cDocSerie, cDocCodigo, "
                "cOperCodeAnula FROM Operacion")));

  // The sale document: the notes' lines at the notes' prices, locked; only two kinds are left.
  EXPECT_TRUE(v.liquidacion);
  ASSERT_EQ(2u, v.rejilla.filas.size());
  EXPECT_EQ(q("000101 3.00 10.00 - 10.00 27.00 SI"),
            (QStringList{v.rejilla.filas[0][kCod], v.rejilla.filas[0][kCant], v.rejilla.filas[0][kPrecio],
                         v.rejilla.filas[0][kSigno], v.rejilla.filas[0][kPorc], v.rejilla.filas[0][kSubTotal],
                         v.rejilla.filas[0][kConServ]}
                 .join(u' ')));
  EXPECT_FALSE(CeldaEditable(p, v.rejilla, 0, kCant));
  EXPECT_EQ((std::vector<TipoVenta>{TipoVenta::Efectivo, TipoVenta::OC}), v.tipos);
  pantallas.supervisor = q("JEFE");
  v.txtRUC = q("2051234567");  // ten digits: the boleta goes out all the same
  p.persona().espera(q("Debe Emitir un documento de venta"), q("Sí"));
  PulsarBoton(p, v, pantallas, 3);
  EXPECT_FALSE(v.liquidacion);
  EXPECT_EQ(
      q("101|3|15|02\n102|3|15|02\n0|3|15|02"),
      p.filas(q("SELECT cProdCode, cOperTipo, cOperCodeAnula, cDocTipo FROM Operacion WHERE cDocTipo<>'14' ORDER BY "
                "cOperID")));
}

TEST_F(Liquidacion, AnOrderMayCloseItAndALaterOneIsFree) {
  agrega(1, "12");
  v.txtEfectivoSoles = q("9");
  v.efectivoTecleado = true;
  SalirEfectivoSoles(p, v);
  PulsarBoton(p, v, pantallas, 2);
  CambiarTipo(p, v, pantallas, TipoVenta::OC);
  PulsarBoton(p, v, pantallas, 2);
  v.rejilla.filas = {filaVenta(102, q("Cafe"), 4.5)};
  v.txtNombres = q("D'Ana");
  v.txtGlosa = q("no queda");
  CambiarTipo(p, v, pantallas, TipoVenta::OC);
  PulsarBoton(p, v, pantallas, 2);
  EXPECT_EQ(
      q("16|15|\n17|0|D'Ana"),
      p.filas(
          q("SELECT cOperCode, cOperCodeRela, sGlosa FROM OperacionParalela WHERE cOperTipo=20 ORDER BY cOperCode")));
  EXPECT_EQ(q("15|1|0\n16|3|15\n17|1|0"),
            p.filas(q("SELECT cOperCode, cOperTipo, cOperCodeAnula FROM Operacion ORDER BY cOperID")));
}

TEST_F(Liquidacion, NotesOfAClosedDayBringNoSaleDocument) {
  p.ejecuta(q("UPDATE OperacionParalela SET cOperFlagAbierto=0"));
  agrega(1, "12");
  v.txtEfectivoSoles = q("9");
  SalirEfectivoSoles(p, v);
  v.efectivoTecleado = true;
  v.txtEfectivoSoles = q("9");
  SalirEfectivoSoles(p, v);
  PulsarBoton(p, v, pantallas, 2);
  EXPECT_FALSE(v.liquidacion);
  EXPECT_EQ(q("2"), p.filas(q("SELECT cEstado FROM OperacionParalela WHERE cOperTipo=24")));
  EXPECT_EQ(9u, v.tipos.size());
}

TEST_F(Liquidacion, PaidByCardsAndTheVoucherSaleBehindIt) {
  agrega(0, "9");
  EXPECT_EQ(q("6.00"), v.txtSoles);
  PulsarVoucher(p, v, pantallas);  // cancelled
  EXPECT_FALSE(v.cobro);
  pantallas.cobro = CobroTarjetas{{}, q("2.00"), q("0.00")};
  pantallas.cobro->pagos = {{q("001"), q("CRÉDITO"), 4}};
  v.lvwTX[1].clear();
  p.persona().espera(q("Debe seleccionar Nota de Consumo a Liquidar"));
  PulsarVoucher(p, v, pantallas);
  EXPECT_EQ(q("-6.00"), v.txtVueltoSoles) << "what the voucher screen wrote is gone";
  EXPECT_FALSE(v.cobro);

  EliminarTX(p, v, 0, 0);
  agrega(0, "9");
  pantallas.cobro->pagos = {{q("001"), q("CRÉDITO"), 4}};
  PulsarVoucher(p, v, pantallas);
  EXPECT_EQ(q("voucher 8 6.00"), pantallas.abiertas.back());
  EXPECT_EQ(q("0|1|2|0\n0|2|4|0"),
            p.filas(q("SELECT cProdCode, cOperTipo, nMontoSoles, nProdPrecUnit FROM Operacion ORDER BY cOperID")));
  EXPECT_TRUE(v.liquidacion && v.cobro);
  EXPECT_EQ(TipoVenta::Voucher, v.nTipoVenta);
  pantallas.supervisor = q("JEFE");
  p.persona().espera(q("Debe Emitir un documento de venta"), q("Sí"));
  PulsarBoton(p, v, pantallas, 0);
  EXPECT_EQ(
      q("101|3|,001|15\n102|3|,001|15"),
      p.filas(q(
          "SELECT cProdCode, cOperTipo, cEmisor, cOperCodeAnula FROM Operacion WHERE cDocTipo='02' ORDER BY cOperID")));
  EXPECT_FALSE(v.cobro);
}

TEST_F(Liquidacion, ANoteDrawsOnItsAdvancePayment) {
  CambiarTipo(p, v, pantallas, TipoVenta::NC);
  v.rejilla.filas = {filaVenta(102, q("Cafe"), 4.5)};
  PulsarBoton(p, v, pantallas, 2);
  EXPECT_EQ(QStringList{q("paralela 0")}, pantallas.abiertas) << "without one the list opens, and nothing more";
  EXPECT_TRUE(SalirAdelanto(p, v, q("000010")));
  EXPECT_EQ(q("10 10 US$ 20.00 fiesta"), (QStringList{v.txtPADE, v.txtTX, v.txtimportepago, v.txtGlosa1}.join(u' ')));
  EXPECT_TRUE(SalirAdelanto(p, v, q("11")));  // a note is no advance payment
  EXPECT_EQ(QString(), v.txtPADE + v.txtTX);
  pantallas.documento = DocumentoElegido{9, q("S/. 30.00"), q("fiesta")};
  BuscarAdelanto(v, pantallas);
  PulsarBoton(p, v, pantallas, 2);
  EXPECT_EQ(q("21|4.5|1|9"), p.filas(q("SELECT cOperTipo, nMontoSoles, cEstado, cOperCodeRela FROM OperacionParalela "
                                       "WHERE cOperCode=15")));
  EXPECT_EQ(QString(), p.filas(q("SELECT * FROM Operacion")));
}

TEST_F(Liquidacion, AmountsPaidInAdvance) {
  for (const auto& c : leerCasos("sale/adelantos")) {
    SCOPED_TRACE(c.donde());
    CancelarVenta(p, v);
    CambiarTipo(p, v, pantallas, TipoVenta::PADE);
    v.txtPagoAdelantado = c["soles"];
    v.txtPADEDolares = c["dolares"];
    if (!c["caja"].isEmpty()) p.persona().espera(c["caja"]);
    const QString ultimo = p.filas(q("SELECT MAX(cOperCode) FROM OperacionParalela"));
    const Foco foco = PulsarBoton(p, v, pantallas, 2).foco;
    EXPECT_EQ(!c["fila"].isEmpty() ? q("txtTarjeta") : q("txtPagoAdelantado"), foco.control);
    EXPECT_EQ(c["fila"], p.filas(q("SELECT nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles, nEfectivoDolares FROM "
                                   "OperacionParalela WHERE cOperTipo=22 AND cOperCode>") +
                                 ultimo));
  }
}

TEST_F(Liquidacion, TwoEqualPadvInAMinuteAreOne) {
  pantallas.cobro = CobroTarjetas{{}, q("0.00"), q("0.00")};
  for (int n = 0; n < 3; ++n) {
    CambiarTipo(p, v, pantallas, TipoVenta::PADV);
    v.txtPagoAdelantado = q("50");
    pantallas.cobro->pagos = {{q("001"), q("CRÉDITO"), 50}};
    PulsarBoton(p, v, pantallas, 2);
    if (n == 1) p.elReloj().ahora = p.elReloj().ahora.addSecs(60);
  }
  EXPECT_EQ(3, p.papeles().papel[q("LPT2")].count("TK NRO: PV1-"));
  EXPECT_EQ(q("15|1\n16|2"),
            p.filas(q("SELECT cOperCode, cDocCodigo FROM OperacionParalela WHERE cDocTipo='13' ORDER BY 1")));
  EXPECT_EQ(q("16|2"), p.filas(q("SELECT cOperCode, nDocCodigo FROM Config_Documento WHERE cTipoDoc='13'")));
  EXPECT_EQ(q("2|-50\n2|-50"), p.filas(q("SELECT cOperTipo, nMontoSoles FROM Operacion WHERE cDocTipo='13'")));
}

TEST_F(Liquidacion, AVoucherSaleAsksForItsCardsEachTime) {
  CambiarTipo(p, v, pantallas, TipoVenta::Voucher);
  PulsarBoton(p, v, pantallas, 2);  // cancelled: no check, nothing done
  pantallas.cobro = CobroTarjetas{{}, q("4.50"), q("0.00")};
  p.persona().espera(q("Debe registrar un artìculo."));
  PulsarBoton(p, v, pantallas, 2);
  EXPECT_FALSE(v.cobro);
  v.rejilla.filas = {filaVenta(102, q("Cafe"), 4.5, 2)};
  SumarLineas(p, v);
  pantallas.cobro->pagos = {{q("001"), q("CRÉDITO"), 4.5}};
  PulsarBoton(p, v, pantallas, 2);
  EXPECT_EQ(3, pantallas.abiertas.size());
  EXPECT_EQ(q("102|2|0|,001\n0|1|4.5|,001"),
            p.filas(q("SELECT cProdCode, cOperTipo, nMontoSoles, cEmisor FROM Operacion ORDER BY cOperID")));
  EXPECT_TRUE(SinLineas(v.rejilla));
}

}  // namespace
