// What a commit leaves when a statement of it fails or the process dies in it, and that the next commit works.
#include <gtest/gtest.h>

#include "apoyo/golden.h"
#include "apoyo/otro_puesto.h"
#include "sale/caja_full_liquidacion.h"
#include "venta_prueba.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

// What a liquidation settles: an advance payment of 30.00 and a note of 45.00.
const char* const kDocumentos = "sale/casos/documentos.sql";

std::vector<FilaVenta> dosLineas() { return {filaVenta(101, q("Cafe"), 10, 3), filaVenta(102, q("Torta"), 12.5)}; }

// A document about to be committed, by kind.
struct EscenaFalla {
  const char* nombre;
  TipoVenta tipo;
  const char* tipoDoc;
  int filas;  // that it leaves in the three tables
  const char *soles, *adelanto;
  const char *serie = "", *deja = "";  // of those that are killed
};
// clang-format off
const EscenaFalla kEscenas[] = {
    {"Boleta", TipoVenta::Efectivo, "02", 3, "", ""},
    {"Voucher", TipoVenta::Voucher, "02", 3, "10.00", ""},
    {"Orden", TipoVenta::OC, "10", 4, "", "", "OC1", "1|2|1|0"},
    {"Nota", TipoVenta::NC, "11", 3, "", ""},
    {"Pade", TipoVenta::PADE, "12", 1, "", "50.00"},
    {"Padv", TipoVenta::PADV, "13", 2, "", "50.00", "PV1", "1|0|1|0"},
    {"Liquidacion", TipoVenta::LIQPAD, "14", 2, "20.00", "", "LQ1", "1|0|1|2"},
};
// clang-format on

void llenar(const EscenaFalla& e, Puesto& p, CajaRegistradoraFull& v) {
  PonerTipo(v, e.tipo);
  if (pantallaDe(e.tipo).llevaLineas) v.rejilla.filas = dosLineas();
  v.txtTX = q("9");
  v.txtPagoAdelantado = q(e.adelanto);
  if (e.tipo == TipoVenta::Voucher || e.tipo == TipoVenta::PADV) {
    CalculaTotales(p, v);
    v.cobro = CobroTarjetas{{{q("001"), q("CRÉDITO"), 32.5}}, {}, {}};
  }
  if (e.tipo == TipoVenta::LIQPAD) {
    v.txtTXL[0] = q("9");
    AgregarTX(p, v, 0);
  }
  if (*e.soles != '\0') v.txtEfectivoSoles = q(e.soles);
  v.efectivoTecleado = *e.soles != '\0';
}

// Statements whose failure ends the commit; any other is told and passed over.
bool termina(const QString& sql) {
  for (const char* s :
       {"MAX(cOperCode)", "CABECERA_IMPRESION", "FROM Config_Documento", "MAX(cDocCodigo)", "UPDATE Config_Documento",
        "INSERT INTO OPERACION", "UPDATE OPERACIONPARALELA", "FROM OPERACIONPARALELA WHERE",
        "OperacionParalelaProducto ", "FROM Producto", "BEGIN", "COMMIT"}) {
    if (sql.contains(q(s))) return true;
  }
  return false;
}

// The screen has been cleared for the sale document of a liquidation by then.
bool trasLimpiar(const QString& sql) {
  return sql.contains(u"cOperflagAbierto=1") || sql.startsWith(u" SELECT sProdDescCrta");
}

qsizetype cuantas(const QStringList& sentencias, const char* parte) { return sentencias.filter(q(parte)).size(); }

int filasDe(PuestoPrueba& p) {
  return p.filas(q("SELECT COUNT(*) FROM Operacion")).toInt() +
         p.filas(q("SELECT COUNT(*) FROM OperacionParalela")).toInt() +
         p.filas(q("SELECT COUNT(*) FROM OperacionParalelaProducto")).toInt();
}

QByteArray papelDe(PuestoPrueba& p) { return p.papeles().papel[q("LPT1")] + p.papeles().papel[q("LPT2")]; }

class CommitConFallas : public testing::TestWithParam<std::tuple<Falla, EscenaFalla>> {};

TEST_P(CommitConFallas, EachStatementOfTheCommitHasItsTurn) {
  const auto& [falla, escena] = GetParam();
  const QString contador = q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='") + q(escena.tipoDoc) + u'\'';
  int n = 1, terminados = 0;
  for (;; ++n) {
    PlanFallas plan;
    PuestoDeVenta p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
    p.persona().dejaPasar();
    ejecutarArchivo(p, kDocumentos);
    const int base = filasDe(p), usado = p.filas(contador).toInt();
    CajaRegistradoraFull v;
    PantallasGuion pantallas;
    llenar(escena, p, v);
    const auto lineas = v.rejilla.filas.size();
    plan.armar(n, falla);
    const bool hecha = GrabarVenta(p, v, pantallas);
    if (plan.van() < n) break;
    const QStringList antes = plan.sentencias.mid(0, n - 1);
    const QString cual = plan.sentencias[n - 1];
    plan.armar(0);
    SCOPED_TRACE(qPrintable(QString::number(n) + u' ' + cual));
    const QByteArray papel = papelDe(p);
    const bool seguro = termina(cual) || falla == Falla::unaVez;
    EXPECT_EQ(!termina(cual), seguro ? hecha : !termina(cual));
    if (termina(cual)) {
      ++terminados;
      // Of a transaction that can't be ended nothing stands.
      const bool abierta = antes.contains(u"BEGIN") && !antes.contains(u"COMMIT");
      const bool deshecha = abierta && (cual == u"COMMIT" || falla == Falla::desdeAhi);
      EXPECT_EQ(base + (deshecha ? 0 : cuantas(antes, "INSERT INTO OPERACION")), filasDe(p));
      EXPECT_EQ(usado + cuantas(antes, "SET cSerieDoc"), p.filas(contador).toInt());
      EXPECT_EQ(cuantas(antes, "idct + 1"), papel.count("TK NRO:"));
      EXPECT_TRUE(p.papeles().papel[q("LPT1")].startsWith(pulsoGaveta()));
      if (!trasLimpiar(cual)) {
        EXPECT_EQ(lineas, v.rejilla.filas.size());  // the screen stays as it was
        EXPECT_EQ(escena.tipo, v.nTipoVenta);
      }
    }
    // The next document: all its rows, a number above every one on paper.
    const QString numero = QString::number(1 + p.filas(contador).toInt());
    const int hubo = filasDe(p);
    CajaRegistradoraFull otra;
    p.ejecuta(q("UPDATE OperacionParalela SET cEstado='1', cOperCodeRela=9 WHERE cOperCode IN (9, 11)"));
    llenar(escena, p, otra);
    p.elReloj().ahora = p.elReloj().ahora.addSecs(60);
    EXPECT_TRUE(GrabarVenta(p, otra, pantallas));
    EXPECT_EQ(hubo + escena.filas, filasDe(p));
    EXPECT_TRUE(papelDe(p).contains((u'-' + Ceros(numero, 6) + q(" NS:")).toLatin1()));
  }
  EXPECT_GE(terminados, 7);  // code, header, number (3), what follows the paper
}
INSTANTIATE_TEST_SUITE_P(Commit, CommitConFallas,
                         testing::Combine(testing::Values(Falla::unaVez), testing::ValuesIn(kEscenas)),
                         [](const auto& i) { return std::get<1>(i.param).nombre; });
INSTANTIATE_TEST_SUITE_P(CommitOnAFullDisk, CommitConFallas,
                         testing::Combine(testing::Values(Falla::desdeAhi), testing::Values(kEscenas[0], kEscenas[6])),
                         [](const auto& i) { return std::get<1>(i.param).nombre; });

// One document on the desk's folder by a desk of its own; with a plan that kills it doesn't come back.
void emitirEn(PuestoPrueba& p, PlanFallas plan, const EscenaFalla& escena) {
  OtroPuesto<> otro(p, plan, p.mensajes);
  CajaRegistradoraFull v;
  PantallasGuion pantallas;
  llenar(escena, otro, v);
  (void)GrabarVenta(otro, v, pantallas);
}

QByteArray rollo(const PuestoPrueba& p, const char* puerto) {
  QFile f(p.rutas.enPrograma(q("puertos/") + q(puerto)));
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Plays the document with a kill at each of its writes, before and behind it. `mira` judges what each has left, given
// the papers that carry its number; the last call is for the one that ran to its end.
void matarEnCadaPaso(const EscenaFalla& escena, const char* puerto, const QByteArray& ticket,
                     const std::function<void(PuestoPrueba&, bool entera, qsizetype papeles)>& mira) {
  for (const Muerte momento : {Muerte::antes, Muerte::despues}) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE(n);
      PuestoDeVenta p;
      p.persona().dejaPasar();
      ejecutarArchivo(p, kDocumentos);
      const int estado = enOtroProceso(p, [&] {
        PlanFallas plan;
        plan.armar(n, Falla::unaVez, momento);
        emitirEn(p, plan, escena);
      });
      const int usado =
          p.filas(q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='%1'").arg(q(escena.tipoDoc))).toInt();
      const auto papeles = rollo(p, puerto).count(ticket);
      EXPECT_TRUE(papeles == 0 || usado == 1);  // number before paper
      mira(p, WIFEXITED(estado), papeles);
      if (WIFEXITED(estado)) {
        EXPECT_EQ(0, WEXITSTATUS(estado));
        EXPECT_GT(n, 14);
        break;
      }
      EXPECT_TRUE(murio(estado));
      p.ejecuta(q("UPDATE OperacionParalela SET cEstado='1', cOperCodeRela=9 WHERE cOperCode IN (9, 11)"));
      p.elReloj().ahora = p.elReloj().ahora.addSecs(60);
      emitirEn(p, {}, escena);
      EXPECT_EQ(papeles, rollo(p, puerto).count(ticket) - (usado == 0 ? 1 : 0));  // no number twice on paper
      EXPECT_EQ(
          usado + 1,
          p.filas(q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='%1'").arg(q(escena.tipoDoc))).toInt());
    }
  }
}

// SIGKILL shows what the process had handed over; whether the disk had it, only a power cut would tell.
TEST(Muerte, ASaleLeavesAPrefixOfItsRows) {
  matarEnCadaPaso(kEscenas[0], "LPT1", "TK NRO: 001-000001", [](PuestoPrueba& p, bool entera, qsizetype papeles) {
    const QString filas = p.filas(q("SELECT cOperCode, cProdCode, cDocCodigo FROM Operacion ORDER BY cOperID"));
    const QString todas = q("1|101|1\n1|102|1\n1|0|1");
    EXPECT_TRUE(entera ? filas == todas : todas.startsWith(filas)) << qPrintable(filas);
    EXPECT_TRUE(filas.isEmpty() || papeles == 1);  // paper before rows
  });
}

// Its own row and lines, its money, and the state of what it settles. A note has less than an order, a payment in cash
// less than one by card.
TEST(Muerte, AParallelDocumentIsWholeOrNotThere) {
  for (const EscenaFalla& escena : {kEscenas[2], kEscenas[5], kEscenas[6]}) {
    SCOPED_TRACE(escena.nombre);
    const QString suyas =
        q("SELECT (SELECT COUNT(*) FROM OperacionParalela WHERE cOperCode = 12 AND cDocTipo = '%1' AND "
          "cEstado = IIF(cOperTipo = 24, '2', '1')), "
          "(SELECT COUNT(*) FROM OperacionParalelaProducto WHERE cOperCode = 12), "
          "(SELECT COUNT(*) FROM Operacion WHERE cDocTipo = '%1'), "
          "(SELECT COUNT(*) FROM OperacionParalela WHERE cOperCodeRela = 12 AND cEstado = '2')")
            .arg(q(escena.tipoDoc));
    const QString nada = q("0|0|0|0");
    QStringList quedan;
    matarEnCadaPaso(escena, "LPT2", "TK NRO: " + QByteArray(escena.serie) + "-000001",
                    [&](PuestoPrueba& p, bool entera, qsizetype papeles) {
                      quedan << p.filas(suyas);
                      EXPECT_TRUE(quedan.back() == q(escena.deja) || (!entera && quedan.back() == nada))
                          << qPrintable(quedan.back());
                      EXPECT_TRUE(quedan.back() == nada || papeles == 1);
                    });
    EXPECT_GT(quedan.count(nada), 10);
  }
}

}  // namespace
