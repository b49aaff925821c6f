// A kind of document that no register knows, from its screen to rows and paper: goods delivered, paid in cash and by
// card, which close a note without tying it to themselves.
#include <gtest/gtest.h>

#include <QFile>

#include "apoyo/golden.h"
#include "apoyo/plan_fallas.h"
#include "documento/commit_paralelo.h"
#include "documento/lineas.h"
#include "documento/pasos.h"
#include "platform/text/numero.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

struct PantallaEntrega {
  RejillaLineas rejilla;
  QString txtSoles, txtEfectivo;
  std::vector<PagoTarjeta> tarjetas;
  QString ultima;  // what the last commit gave back
};

struct CommitEntrega : CommitParalelo {
  explicit CommitEntrega(PantallaEntrega& pantalla) : v(pantalla) { clase = ClaseDocumento::OC; }
  PantallaEntrega& v;
};

bool leer(Puesto& p, CommitEntrega& c) {
  FijarCliente(c, q(" 7 "), {});
  FijarTipoDocumento(c, {});
  for (const auto& fila : c.v.rejilla.filas) c.lineas.push_back(LineaDe(p, fila));
  c.total = LeerImporte(c.v.txtSoles);
  c.efectivo.soles = LeerImporte(c.v.txtEfectivo);
  c.tarjetas = c.v.tarjetas;
  c.paralela.montoSoles = c.total;
  c.paralela.efectivo = c.efectivo;
  c.paralela.glosa = q("ENTREGA D'ANA");
  c.paralela.relacion = 77;
  c.paralela.sincronizada = true;
  c.liquidadas = {3};
  c.enlazaLiquidadas = false;
  return true;
}

// No card on its paper.
bool totalizar(Puesto&, CommitEntrega& c) {
  c.tarjeta.clear();
  c.totales = {Total(q(" ENTREGA"), c.total), Total(q(" EFECTIVO(S/)"), c.efectivo.soles)};
  for (const auto& pago : c.tarjetas) c.totales.push_back(Total(u' ' + pago.descrip, pago.pago));
  return true;
}

bool devolver(Puesto&, CommitEntrega& c) {
  c.v = {};
  c.v.ultima = c.o.serie + u'-' + QString::number(c.o.numero);
  return true;
}

template <auto hacer>
constexpr auto kComun = Comun<hacer, CommitEntrega>;

const Paso<CommitEntrega> kPasos[] = {
    {"leer", leer},
    {"fecha", kComun<FijarFecha>},
    {"codigo", kComun<TomarCodigo>},
    {"paralela", kComun<PrepararParalela>},
    {"totales", totalizar},
    {"cabecera", kComun<CargarCabecera>},
    {"numero", kComun<ReservarNumero>},
    {"ticket", kComun<ImprimirTicket>},
    {"ultima", kComun<GuardarUltima>},
    {"repetida", kComun<RechazarRepetida>},
    {"cabeza", kComun<EscribirCabeza>},
    {"lineas", kComun<EscribirLineas>},
    {"efectivo", kComun<EscribirEfectivo>},
    {"tarjetas", kComun<EscribirTarjetas>},
    {"cerrar", kComun<Liquidar>},
    {"devolver", devolver},
};

struct Entrega {
  PuestoPrueba p;
  PantallaEntrega v;

  explicit Entrega(const Envolver& envolver = {}) : p(envolver) {
    p.articulo(101, q("CAFE"), 10);
    p.articulo(102, q("TORTA"), 12.5);
    p.ejecuta(q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, cEstado, cOperCodeRela) VALUES (3, 21, '1', 9)"));
  }
  void celda(int fila, int columna, const char* texto) {
    EXPECT_EQ(TrasCelda::Cambiada, DejarCelda(p, v.rejilla, fila, columna, q(texto)));
  }
  void llenar() {
    celda(0, kCod, "101");
    celda(0, kCant, "2");
    celda(AgregarFila(v.rejilla), kCod, "102");
    v.txtSoles = Formatear(TotalDeLineas(p, v.rejilla), u"0.00");
    v.txtEfectivo = q("12.50");
    v.tarjetas = {{q("001"), q("VISTA"), 20}};
  }
  QString emitir() {
    CommitEntrega c(v);
    return QString::fromLatin1(EjecutarPasos<CommitEntrega>(p, q("Entrega"), c, kPasos));
  }
  QString paralelas() {
    return p.filas(q("SELECT cOperCode, cOperTipo, cEstado, cOperCodeRela FROM OperacionParalela ORDER BY cOperCode"));
  }
  QString dinero() {
    return p.filas(q("SELECT cOperCode, cOperTipo, nMontoSoles, cDocTipo, cDocSerie FROM Operacion ORDER BY cOperID"));
  }
};

TEST(CommitParalelo, AKindOfItsOwn) {
  Entrega e;
  e.llenar();
  EXPECT_EQ(q("32.50"), e.v.txtSoles);
  EXPECT_EQ(QString(), e.emitir());
  EXPECT_EQ(q("3|21|2|9\n4|20|2|77"), e.paralelas()) << "the note is closed and keeps its link";
  EXPECT_EQ(
      q("32.5|12.5|ENTREGA D'ANA|1|00000007|10|OC1|1"),
      e.p.filas(q("SELECT nMontoSoles, nEfectivoSoles, sGlosa, cFlagSincronizacion, nTarjNumb, cDocTipo, cDocSerie, "
                  "cDocCodigo FROM OperacionParalela WHERE cOperCode=4")));
  EXPECT_EQ(q("101|2|10\n102|1|12.5"),
            e.p.filas(q("SELECT cProdCode, nProdCant, nProdPrecUnit FROM OperacionParalelaProducto WHERE cOperCode=4 "
                        "ORDER BY cProdCode")));
  EXPECT_EQ(q("4|1|12.5|10|001\n4|2|20|10|001"), e.dinero());
  EXPECT_EQ("", primeraDiferencia(conCorte(leerGolden(q("documento/entrega.txt"))), e.p.papeles().papel[q("LPT2")]));
  EXPECT_EQ(q("OC1-1"), e.v.ultima);
  EXPECT_TRUE(SinLineas(e.v.rejilla));
}

// Two screens hold a commit each, and the second says the same within the minute.
TEST(CommitParalelo, ARepeatLeavesNothingAndGivesItsNumberBack) {
  Entrega e;
  e.p.ejecuta(q("DELETE FROM OperacionParalela"));
  e.llenar();
  PantallaEntrega otra = e.v;
  EXPECT_EQ(QString(), e.emitir());
  const QString filas = e.paralelas() + e.dinero();
  e.v = otra;
  EXPECT_EQ(q("repetida"), e.emitir());
  EXPECT_EQ(filas, e.paralelas() + e.dinero());
  EXPECT_EQ(q("1|1"), e.p.filas(q("SELECT cOperCode, nDocCodigo FROM Config_Documento WHERE cTipoDoc='10'")));
  EXPECT_EQ(otra.txtSoles, e.v.txtSoles) << "the screen stays";
}

TEST(CommitParalelo, LockedLinesTakeNothing) {
  Entrega e;
  e.llenar();
  e.v.rejilla.bloqueada = true;
  const auto antes = e.v.rejilla.filas;
  for (const int columna : {kCod, kCatalogo, kCant, kPrecio, kPorc}) {
    EXPECT_FALSE(CeldaEditable(e.p, e.v.rejilla, 0, columna));
    EXPECT_EQ(TrasCelda::Rechazada, DejarCelda(e.p, e.v.rejilla, 0, columna, q("7")));
  }
  EXPECT_EQ(antes, e.v.rejilla.filas);
}

// Whatever statement fails, the commit ends there with its screen untouched, and the next one goes through.
TEST(CommitParalelo, EachStatementHasItsTurn) {
  int terminados = 0;
  for (int n = 1;; ++n) {
    PlanFallas plan;
    Entrega e([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
    e.p.persona().dejaPasar();
    e.llenar();
    plan.armar(n, Falla::unaVez);
    const QString ultimo = e.emitir();
    const bool falto = plan.van() >= n;
    plan.armar(0);
    if (!falto) {
      EXPECT_EQ(QString(), ultimo);
      break;
    }
    SCOPED_TRACE(n);
    if (ultimo.isEmpty()) continue;
    ++terminados;
    QFile log(e.p.rutas.enPrograma(q("Err_20261124.log")));
    EXPECT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_TRUE(DeUnByte(log.readAll()).endsWith(q(" Entrega terminó en el paso ") + ultimo + q("\r\n")));
    EXPECT_EQ(q("32.50"), e.v.txtSoles);
    e.p.elReloj().ahora = e.p.elReloj().ahora.addSecs(60);
    EXPECT_EQ(QString(), e.emitir());
    EXPECT_TRUE(e.dinero().endsWith(
        q("|1|12.5|10|001\n%1|2|20|10|001").arg(e.p.filas(q("SELECT MAX(cOperCode) FROM OperacionParalela")))));
  }
  EXPECT_GE(terminados, 10);
}

}  // namespace
