// What a sale stores, prints and leaves on the screen.
#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "venta_prueba.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

const QString kFilas = QStringLiteral(
    "SELECT cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio, nMontoSoles, nMontoDolares, "
    "nVueltoDolares, cOperTipo, cSupervisor FROM Operacion ORDER BY cOperID");

struct Caja {
  PuestoDeVenta p;
  CajaRegistradoraFull v;
  PantallasGuion pantallas;
  Caja() { v.rejilla.filas = {filaVenta(101, q("Cafe"), 10, 3)}; }
  void vender() { (void)GrabarVenta(p, v, pantallas); }
  QByteArray papel() { return p.papeles().papel[q("LPT1")]; }
};

TEST(Commit, ASaleIsLinesAndATenderRow) {
  Caja c;
  c.v.rejilla.filas.push_back(filaVenta(102, q("Torta"), 12.5, 1, 0, q("-"), true));
  c.v.txtTarjeta = q(" 4521 ");
  c.v.txtLocal = q("2");
  c.v.txtRUC = q("20512345678 ");
  c.vender();
  EXPECT_EQ(q("1|101|3|10|0|0|0|0|0|1|\n"
              "1|102|1|12.5|0|10|0|0|0|1|\n"
              "1|0|1|0|0|0|42.5|0|0|1|Null"),
            c.p.filas(kFilas));
  // Rows of one ticket differ only in their line fields.
  EXPECT_EQ(q("1|00004521|2026-11-24 10:30:00|00001|01|CAJERO|01|001|1|20512345678|2|0|1|0||0"),
            c.p.filas(q("SELECT DISTINCT cOperCode, nTarjNumb, dOperFech, cCajaCodi, cTurnoCodi, cUserDesc, cDocTipo, "
                        "cDocSerie, cDocCodigo, cRuc, IdLocal, cOperFlagAnula, cOperFlagAbierto, cFlagSincronizacion, "
                        "cEmisor, cOperCodeAnula FROM Operacion")));
  EXPECT_EQ(q("01\n01\nNull"), c.p.filas(q("SELECT cAlmaCode FROM Operacion ORDER BY cOperID")));
  EXPECT_EQ(q("01|1|0|CAJERO\n02|0|1|Null"),
            c.p.filas(q("SELECT cTipoDoc, cOperCode, nDocCodigo, cUserDesc FROM Config_Documento WHERE cTipoDoc<'03' "
                        "ORDER BY 1")));
  EXPECT_TRUE(c.papel().startsWith(pulsoGaveta() + "\x1B@\r\n"));
  EXPECT_EQ(q("Ticketera 000001"), c.p.ses.ultimoPapel);
  // The screen is ready for the next customer.
  ASSERT_EQ(1u, c.v.rejilla.filas.size());
  EXPECT_EQ(QString(), c.v.rejilla.filas[0][kCod] + c.v.txtTarjeta + c.v.txtRUC);
}

TEST(Commit, TheTenderRowByWhatWasTyped) {
  for (const auto& c : leerCasos("sale/fila_de_pago")) {
    SCOPED_TRACE(c.donde());
    Caja caja;
    CalculaTotales(caja.p, caja.v);  // the total stands before cash is typed
    caja.v.txtEfectivoSoles = c["soles"];
    caja.v.efectivoTecleado = !c["soles"].isEmpty();
    caja.v.txtEfectivoDolares = c["dolares"];
    caja.v.txtVueltoDolares = c["vueltoDolares"];
    caja.vender();
    EXPECT_EQ(c["fila"], caja.p.filas(q("SELECT nProdPrecUnit, nMontoSoles, nMontoDolares, nVueltoDolares "
                                        "FROM Operacion WHERE cProdCode=0")));
  }
}

TEST(Commit, APercentageNeedsItsSupervisor) {
  Caja c;
  c.v.rejilla.filas = {filaVenta(101, q("Cafe"), 10, 3, 10), filaVenta(102, q("Torta"), 10, 1, 5, q("+")),
                       filaVenta(103, q("Agua"), 2)};
  c.vender();  // refused
  EXPECT_EQ(QString(), c.p.filas(kFilas));
  EXPECT_EQ(QByteArray(), c.papel());
  EXPECT_EQ(3u, c.v.rejilla.filas.size());
  c.pantallas.supervisor = q("O'Hara");
  c.vender();
  EXPECT_EQ(2, c.pantallas.pedidas);
  EXPECT_EQ(q("1|101|3|10|-10|0|0|0|0|1|O'Hara\n1|102|1|10|5|0|0|0|0|1|O'Hara\n1|103|1|2|0|0|0|0|0|1|\n"
              "1|0|1|0|0|0|39.5|0|0|1|Null"),
            c.p.filas(kFilas));
  c.v.rejilla.filas = {filaVenta(103, q("Agua"), 2)};
  c.vender();  // the next sale needs none
  EXPECT_EQ(2, c.pantallas.pedidas);
}

}  // namespace
