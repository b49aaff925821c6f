// Tickets against papers typed by hand: tests/golden/ventas/<case>.caso holds the screen, <case>.txt the paper in
// Windows-1252, as it goes to the printer without the reset in front and the feed and cut behind.
#include <gtest/gtest.h>

#include "apoyo/golden.h"
#include "sale/caja_full_liquidacion.h"
#include "venta_prueba.h"

namespace {

FilaVenta filaDe(const QString& texto) {
  QStringList c = celdasDe(texto);
  while (c.size() < 7) c << (c.size() == 4 ? QStringLiteral("-") : QStringLiteral("0"));
  return filaVenta(c[0].toInt(), c[1], Val(c[2]), c[3].toInt(), Val(c[5]), c[4], c[6] == u"SI");
}

// Desk and screen, filled from "name = value" lines.
struct Escena {
  PuestoDeVenta p;
  CajaRegistradoraFull v;
  PantallasGuion pantallas;
  int cabeceras = 0;

  Escena() { v.rejilla.filas.clear(); }

  // False on a name that it doesn't know.
  bool aplicar(const QString& nombre, const QString& valor) {
    static const std::map<QString, QString CajaRegistradoraFull::*> kCampos = {
        {QStringLiteral("txtTarjeta"), &CajaRegistradoraFull::txtTarjeta},
        {QStringLiteral("txtNombres"), &CajaRegistradoraFull::txtNombres},
        {QStringLiteral("txtLocal"), &CajaRegistradoraFull::txtLocal},
        {QStringLiteral("txtRUC"), &CajaRegistradoraFull::txtRUC},
        {QStringLiteral("txtEfectivoSoles"), &CajaRegistradoraFull::txtEfectivoSoles},
        {QStringLiteral("txtEfectivoDolares"), &CajaRegistradoraFull::txtEfectivoDolares},
        {QStringLiteral("txtVueltoSoles"), &CajaRegistradoraFull::txtVueltoSoles},
        {QStringLiteral("txtPagoAdelantado"), &CajaRegistradoraFull::txtPagoAdelantado},
        {QStringLiteral("txtPADEDolares"), &CajaRegistradoraFull::txtPADEDolares},
    };
    if (const auto c = kCampos.find(nombre); c != kCampos.end()) {
      if (nombre.startsWith(u"txtEfectivo")) CalculaTotales(p, v);  // the total stands before cash is typed
      v.*(c->second) = valor;
      v.efectivoTecleado = v.efectivoTecleado || nombre == u"txtEfectivoSoles";
    } else if (nombre == u"linea") {
      v.rejilla.filas.push_back(filaDe(valor));
    } else if (nombre == u"cabecera") {
      p.ejecuta(QStringLiteral("INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES (%1, '%2')")
                    .arg(++cabeceras)
                    .arg(valor));
    } else if (nombre == u"txtliqefectivosoles") {  // the cash part of cards
      if (!v.cobro) v.cobro.emplace();
      v.cobro->txtEfectivoSoles = valor;
    } else if (nombre == u"supervisor") {
      pantallas.supervisor = valor;
    } else {
      return documento(nombre, celdasDe(valor));
    }
    return true;
  }

 private:
  // What the kinds beside a plain sale need.
  bool documento(const QString& nombre, const QStringList& c) {
    if (nombre == u"tipo") {
      for (const auto& t : tiposDeVenta()) {
        if (t.entrada == c[0]) PonerTipo(v, t.tipo);
      }
    } else if (nombre == u"voucher") {
      CalculaTotales(p, v);
      if (!v.cobro) v.cobro.emplace();
      v.cobro->pagos.push_back({c[0], c[1], Val(c[2])});
    } else if (nombre == u"nota") {
      ponerNota(c);
    } else if (nombre == u"teclas") {
      for (int n : {1, 2}) {
        p.ejecuta(
            QStringLiteral("INSERT INTO ConfiguracionTeclado (cTeclCode, cProdCode) VALUES (%1, %2)").arg(n).arg(c[0]));
      }
    } else if (nombre == u"adelanto") {
      v.lvwTX[0].push_back({c[0], {}, {}, {}, c[1], {}, {}, {}, {}});
      TotalesTX(p, v);
    } else if (nombre == u"liquidando") {
      CalculaTotales(p, v);
      v.liquidacion = {{{Val(c[0]), Val(c[1]), Val(c[2]), Val(c[3])}, Val(c[4])}, 0};
    } else {
      return false;
    }
    return true;
  }
  void ponerNota(const QStringList& c) {
    if (p.filas(QStringLiteral("SELECT COUNT(*) FROM Producto WHERE cProdCode=") + c[1]) == u"0") {
      p.articulo(c[1].toInt(), c[2], Val(c[3]));
    }
    p.ejecuta(QStringLiteral("INSERT INTO OperacionParalelaProducto (cAlmaCode, cOperCode, cProdCode, nProdCant, "
                             "nProdPrecUnit, nDscto, nServicio) VALUES ('01', %1, %2, %3, %4, %5, 0)")
                  .arg(c[0], c[1], c[4], c[3], c[5]));
    const double total = Val(c[3]) * Val(c[4]) * (1 + Val(c[5]) / 100);
    if (v.lvwTX[1].empty() || v.lvwTX[1].back().tx != c[0])
      v.lvwTX[1].push_back({c[0], {}, {}, {}, {}, {}, {}, {}, {}});
    QString& suma = v.lvwTX[1].back().total;
    suma = Formatear(LeerImporte(suma) + total, u"0.00");
  }
};

class Ticket : public testing::TestWithParam<std::string> {};

TEST_P(Ticket, IsThePaperWeExpect) {
  const QString caso = QStringLiteral("ventas/") + QString::fromStdString(GetParam());
  Escena e;
  e.p.ejecuta(QStringLiteral("UPDATE Configuracion SET GAVETA='N'"));
  for (const auto& [nombre, valor] : leerCaso(caso)) ASSERT_TRUE(e.aplicar(nombre, valor)) << qPrintable(nombre);
  const bool paralela = !pantallaDe(e.v.nTipoVenta).rucEditable;
  (void)GrabarVenta(e.p, e.v, e.pantallas);
  const QByteArray papel = leerGolden(caso + QStringLiteral(".txt"));
  ASSERT_FALSE(papel.isEmpty());
  const QString puerto = paralela ? QStringLiteral("LPT2") : QStringLiteral("LPT1");
  EXPECT_EQ("", primeraDiferencia(conCorte(papel), e.p.papeles().papel[puerto]));
  EXPECT_EQ(1, e.p.papeles().papel.size()) << "nothing on the other printer";
}

INSTANTIATE_TEST_SUITE_P(Golden, Ticket, testing::ValuesIn(nombresGolden("ventas")),
                         [](const auto& i) { return i.param; });

TEST(Golden, EveryCaseHasItsPaperAndEveryPaperItsCase) {
  EXPECT_FALSE(nombresGolden("ventas").empty());
  EXPECT_EQ(nombresGolden("ventas"), nombresGolden("ventas", ".txt"));
  EXPECT_NE("", primeraDiferencia("a\r\nb \r\n", "a\r\nb\r\n"));  // the comparison sees a blank
}

}  // namespace
