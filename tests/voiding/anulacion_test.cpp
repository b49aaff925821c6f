// What a void stores, what it leaves when it stops in the middle, and that the next one puts it right.
#include "anulacion_prueba.h"
#include "apoyo/casos.h"
#include "apoyo/otro_puesto.h"
#include "loyalty/puntos.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

void llenar(PuestoConDocumentos& p) {
  for (const auto& c : leerCasos("voiding/filas")) {
    p.fila(c.entero("codigo"), c.entero("tipo"), qPrintable(c["doc"]), c.entero("numero"), c.entero("articulo"),
           c.numero("cantidad"), c.numero("precio"), c.numero("soles"), c.entero("anula"));
  }
  for (const auto& c : leerCasos("voiding/paralelas")) {
    p.paralela(c.entero("codigo"), c.entero("tipo"), qPrintable(c["doc"]), qPrintable(c["estado"]),
               c.entero("relacion"));
  }
}

TEST(Anulacion, EachStatementFailsInTurnAndTheNextVoidPutsItRight) {
  for (const auto& d : leerCasos("voiding/documentos")) {
    const int codigo = d.entero("codigo");
    const bool alterno = d.si("alterno");
    int n = 1, conFilas = 0;
    for (;; ++n) {
      PlanFallas plan;
      PuestoConDocumentos p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
      llenar(p);
      PantallaTransaccion v;
      v.chkAlterno = alterno;
      v.txtTransaccion = QString::number(codigo);
      BuscarTransaccion(p, v);
      ASSERT_TRUE(v.cargada);
      const QString inicio = p.todo();
      p.persona().dejaPasar(q("Sí"));
      p.elReloj().ahora = p.elReloj().ahora.addSecs(60);
      plan.armar(n, Falla::desdeAhi);
      Anular(p, v, p.jefe);
      if (plan.van() < n) break;
      const QStringList antes = plan.sentencias.mid(0, n - 1);
      const QString fallada = plan.sentencias[n - 1];
      SCOPED_TRACE(qPrintable(QString::number(codigo) + q(": ") + fallada));
      plan.armar(0);
      // An order that can't be looked up counts as taken, which leaves the button as it was.
      EXPECT_EQ(fallada.contains(q("FROM OperacionParalela WHERE cDocSerie=")), v.accion);
      EXPECT_EQ(antes.contains(q("COMMIT")) ? d["queda"] : inicio, p.todo());
      conFilas += antes.filter(q("INSERT INTO")).isEmpty() ? 0 : 1;
      p.anular(codigo, alterno);
      EXPECT_EQ(d["queda"], p.todo());
      // One ticket, which says it twice, whatever failed.
      EXPECT_EQ(2, (p.papeles().papel[q("LPT1")] + p.papeles().papel[q("LPT2")]).count("TRANSACCION ANULADA"));
    }
    EXPECT_GT(conFilas, 2) << codigo;
  }
}

// The void of a document by a desk of its own; with a plan that kills it doesn't come back.
void anularEn(PuestoConDocumentos& p, PlanFallas pedido, int codigo, bool alterno) {
  PlanFallas plan;
  OtroPuesto<> otro(p, plan, p.mensajes);
  PantallaTransaccion v;
  v.chkAlterno = alterno;
  v.txtTransaccion = QString::number(codigo);
  BuscarTransaccion(otro, v);
  plan.armar(pedido.n, pedido.falla, pedido.muerte);
  Anular(otro, v, p.jefe);
}

// Killed behind each statement and each write to a port: the next void takes up what is there, whatever it is.
TEST(AnulacionMuerta, TheNextVoidEndsWhatAKilledOneLeft) {
  for (const auto& d : leerCasos("voiding/documentos")) {
    const int codigo = d.entero("codigo");
    const bool alterno = d.si("alterno");
    int muertas = 0;
    for (bool entera = false; !entera; ++muertas) {
      SCOPED_TRACE(qPrintable(QString::number(codigo) + q(": ") + QString::number(muertas + 1)));
      PuestoConDocumentos p;
      llenar(p);
      p.persona().dejaPasar(q("Sí"));
      const int estado = enOtroProceso(p, [&] {
        PlanFallas plan;
        plan.armar(muertas + 1, Falla::unaVez, Muerte::despues);
        anularEn(p, plan, codigo, alterno);
      });
      entera = WIFEXITED(estado);
      EXPECT_TRUE(entera ? WEXITSTATUS(estado) == 0 : murio(estado));
      p.anular(codigo, alterno);
      EXPECT_EQ(d["queda"], p.todo());
      EXPECT_EQ(q("ok"), p.filas(q("SELECT integrity_check FROM pragma_integrity_check")));
    }
    EXPECT_GT(muertas, 10) << codigo;
  }
}

// A void's row without its document, such as an older program left on another day, is nobody's.
TEST(Anulacion, AVoidTakesACodeOfItsOwn) {
  PuestoConDocumentos p;
  llenar(p);
  p.ejecuta(q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, sGlosa, cEstado, dOperFech) VALUES (8, 20, "
              "'ANULACION', '0', '23/11/2026 20:00')"));
  p.anular(6, true);
  EXPECT_EQ(q("9"), p.filas(q("SELECT cOperCodeAnul FROM OperacionParalela WHERE cOperCode = 6")));
}

TEST(Anulacion, EveryRefusalHasItsWords) {
  for (const auto& c : leerCasos("voiding/rechazos")) {
    SCOPED_TRACE(c.donde());
    PuestoConDocumentos p;
    llenar(p);
    p.fila(9, 1, "02", 5, 101, 1, 4.5);
    p.ejecuta(q("UPDATE Operacion SET cOperFlagAbierto=0 WHERE cOperCode=9"));
    p.fila(10, 1, "", 0, 101, -1, 4.5, 0, 9);
    p.ejecuta(q("UPDATE Operacion SET cOperFlagAnula=1 WHERE cOperCode=10"));
    p.ejecuta(q("INSERT INTO Operacion (cOperCode, cOperTipo, nProdCant, nProdPrecUnit) VALUES (11, 5, 1, 50)"));
    p.paralela(8, 20, "10", "1", 3);
    p.fila(12, 1, "02", 6, 101, 1, 4.5);
    p.ejecuta(q("UPDATE Operacion SET dOperFech='23/11/2026' WHERE cOperCode=12"));
    p.jefe.nombre = c["codigo"] == u"12" ? QString() : q("JEFE");
    const QString antes = p.todo();
    p.persona().espera(c["caja"]);
    p.anular(c["codigo"].toInt(), c.si("alterno"));
    EXPECT_EQ(antes, p.todo());
  }
}

TEST(Anulacion, ACodeThatIsStaleIsToldAndTheQuestionOfALiquidationCanBeDenied) {
  PuestoConDocumentos p;
  llenar(p);
  const QString antes = p.todo();
  p.persona().espera(q("Desea Continuar?"), q("No"));
  EXPECT_TRUE(p.anular(4).accion);
  EXPECT_EQ(antes, p.todo());
  PantallaTransaccion v = p.anular(1);
  EXPECT_FALSE(v.accion);
  v.txtSerie.clear();
  v.txtNumero.clear();
  BuscarDocumento(p, v);  // several: the text stays, the button is free again
  EXPECT_TRUE(v.accion);
  EXPECT_EQ(q("1"), v.txtTransaccion);
  p.persona().espera(q("La serie y el número no son los del documento que se muestra."));
  Anular(p, v, p.jefe);
  EXPECT_TRUE(v.accion);
  v.txtSerie = q("001");
  v.txtNumero = q("1");
  p.persona().espera(q("Esta transacción ya ha sido anulada"));
  Anular(p, v, p.jefe);
  v.txtNumero = q("000004");  // as typed
  BuscarDocumento(p, v);
  EXPECT_EQ(q("6"), v.txtTransaccion);
  v.txtNumero = q("77");
  p.persona().espera(q("No existen coincidencias para el documento"));
  BuscarDocumento(p, v);
  EXPECT_FALSE(v.accion);
}

// What stands on the paper and goes back in points is what the sale was worth; the mirrors are worth as much.
TEST(Anulacion, ADocumentIsWorthWhatItsLinesCost) {
  for (const auto& c : leerCasos("voiding/valores")) {
    SCOPED_TRACE(c.donde());
    PuestoConDocumentos p;
    for (const QString& linea : c["lineas"].split(u',')) {
      const QStringList l = linea.split(u' ', Qt::SkipEmptyParts);
      p.fila(1, 1, "02", 1, 102, l[0].toInt(), l[1].toDouble(), 0, 0,
             qPrintable(q("'', Null, %1, %2").arg(l[2], l.value(3, q("0")))));
    }
    PantallaTransaccion copia;
    copia.uso = Uso::Reimprimir;
    copia.txtTransaccion = q("1");
    BuscarTransaccion(p, copia);
    const PantallaTransaccion v = p.anular(1);
    EXPECT_TRUE(v.txtTexto.contains(c["renglon"])) << qPrintable(v.txtTexto);
    EXPECT_FALSE(v.txtTexto.contains(q("%SERVICIO"))) << qPrintable(v.txtTexto);
    EXPECT_TRUE(v.txtTexto.contains(q("CASH/TL  ") + c["total"].rightJustified(29, u' '))) << qPrintable(v.txtTexto);
    EXPECT_TRUE(copia.txtTexto.contains(q(" VALOR VTA.") + c["enCopia"].rightJustified(27, u' ')))
        << qPrintable(copia.txtTexto);
    p.ses.pnPuntImpo = 10;
    p.ses.pnPuntCant = 1;
    EXPECT_EQ(c.entero("puntos"), CalcularPuntos(p, v.bloques.total));
    EXPECT_EQ(q("0"), p.filas(q("SELECT ROUND(SUM(nProdCant*nProdPrecUnit+nProdCant*nProdPrecUnit*nDscto/100),2) "
                                "FROM Operacion")));
  }
}

TEST(Anulacion, AnAdvancePaymentIsStampedInThePaymentRegisterAndPointsGoBack) {
  PuestoConDocumentos p;
  p.paralela(1, 22, "12", "1");
  p.fila(1, 1, "02", 1, 102, 3, 12, 0, 0, "'00000007', 2, 0, 0");
  Conexion central;
  ASSERT_FALSE(central.abrir(p.motores, p.ses.psConexionCentral, 1000));
  p.ejecuta(central, q("INSERT INTO Pagos (cSerieDocPago, NroDocPago) VALUES ('XX1', '0000001')"));
  p.ejecuta(q("INSERT INTO Regla_Punto (nImpoMaxi, nPuntImpo, nPuntCant) VALUES (0, 10, 1)"));
  p.anular(1, true);
  EXPECT_EQ(q("2026-11-24"), p.filas(central, q("SELECT FechaAnulacion FROM Pagos")).left(10));
  ASSERT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnCliente, p.ses.psConexionCliente));
  p.ejecuta(p.poCnnCliente, q("INSERT INTO Regla_Punto (nImpoMaxi, nPuntImpo, nPuntCant) VALUES (0, 10, 1)"));
  p.ejecuta(p.poCnnCliente, q("INSERT INTO Cliente (cClieCode, IdLocal, iTipo, nPuntCant) VALUES (7, 2, 1, 40)"));
  p.ejecuta(p.poCnnCliente, q("INSERT INTO Cliente (cClieCode, IdLocal, iTipo, nPuntCant) VALUES (7, 1, 1, 90)"));
  p.ejecuta(p.poCnnCliente, q("INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (7, 2, '00000007')"));
  p.ejecuta(p.poCnnCliente, q("INSERT INTO Acumulacion_Punto (cClieCode, IdLocal, cAcumCode, nPuntCant, cDocTipo, "
                              "cDocSerie, cDocCodigo) VALUES (7, 2, 1, 3, '02', '001', 1)"));
  p.anular(1);
  ASSERT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnCliente, p.ses.psConexionCliente));
  EXPECT_EQ(q("90\n37"), p.filas(p.poCnnCliente, q("SELECT nPuntCant FROM Cliente ORDER BY IdLocal")));
}

}  // namespace
