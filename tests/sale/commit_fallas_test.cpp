// What a commit leaves when a statement of it fails or the process dies in it, and that the next commit works.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "apoyo/motor_que_falla.h"
#include "apoyo/puertos_que_matan.h"
#include "venta_prueba.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

std::vector<FilaVenta> dosLineas() { return {filaVenta(101, q("Cafe"), 10, 3), filaVenta(102, q("Torta"), 12.5)}; }

// Statements whose failure ends the commit; any other is told and passed over.
bool termina(const QString& sql) {
  for (const char* s : {"MAX(cOperCode)", "CABECERA_IMPRESION", "FROM Config_Documento", "MAX(cDocCodigo)",
                        "UPDATE Config_Documento", "INSERT INTO OPERACION"}) {
    if (sql.contains(q(s))) return true;
  }
  return false;
}

qsizetype cuantas(const QStringList& sentencias, const char* parte) {
  return sentencias.filter(q(parte)).size();
}

class Fallas : public testing::TestWithParam<Falla> {};

TEST_P(Fallas, EachStatementOfTheCommitHasItsTurn) {
  int n = 1, terminados = 0;
  for (;; ++n) {
    PlanFallas plan;
    PuestoDeVenta p([&plan](Motores& m) { return std::make_unique<MotoresQueFallan>(m, plan); });
    p.persona().dejaPasar();
    CajaRegistradoraFull v;
    PantallasGuion pantallas;
    v.lineas = dosLineas();
    plan.armar(n, GetParam());
    GrabarVenta(p, v, pantallas);
    if (plan.van < n) break;
    const QStringList antes = plan.sentencias.mid(0, n - 1);
    const QString cual = plan.sentencias[n - 1];
    plan.armar(0);
    SCOPED_TRACE(qPrintable(QString::number(n) + u' ' + cual));
    const QByteArray papel = p.papeles().papel[q("LPT1")];
    const auto filas = cuantas(antes, "INSERT INTO OPERACION");
    if (termina(cual)) {
      ++terminados;
      EXPECT_EQ(QString::number(filas), p.filas(q("SELECT COUNT(*) FROM Operacion")));
      EXPECT_EQ(QString::number(cuantas(antes, "SET cSerieDoc")),
                p.filas(q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='02'")));
      EXPECT_EQ(cuantas(antes, "idct + 1"), papel.count("TK NRO:"));
      EXPECT_TRUE(papel.startsWith(pulsoGaveta()));
      EXPECT_EQ(2u, v.lineas.size());  // the screen stays as it was
      EXPECT_EQ(kEfectivo, v.nTipoVenta);
    } else if (GetParam() == Falla::unaVez) {
      EXPECT_EQ(q("3"), p.filas(q("SELECT COUNT(*) FROM Operacion")));
    }
    // The next sale: all its rows, a number above every one on paper.
    const QString numero = QString::number(1 + p.filas(q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='02'")).toInt());
    const QString hubo = p.filas(q("SELECT COUNT(*) FROM Operacion"));
    v.lineas = dosLineas();
    GrabarVenta(p, v, pantallas);
    EXPECT_EQ(QString::number(hubo.toInt() + 3), p.filas(q("SELECT COUNT(*) FROM Operacion")));
    EXPECT_EQ(q("3"), p.filas(q("SELECT COUNT(*) FROM Operacion WHERE cDocCodigo=") + numero));
    EXPECT_TRUE(p.papeles().papel[q("LPT1")].mid(papel.size()).contains(
        (q(" TK NRO: 001-") + Ceros(numero, 6)).toLatin1()));
  }
  EXPECT_GT(terminados, 8);  // code, header, number (3), check (2), three rows
}
INSTANTIATE_TEST_SUITE_P(Commit, Fallas, testing::Values(Falla::unaVez, Falla::desdeAhi),
                         [](const auto& i) { return i.param == Falla::unaVez ? "Once" : "FromThereOn"; });

// One sale on the desk's folder by a desk of its own; with a plan that kills it doesn't come back.
void venderEn(PuestoPrueba& p, PlanFallas plan) {
  MotoresQueFallan motores(p.motores, plan);
  PuertosQueMatan puertos(p.rutas.programa, plan);
  Puesto otro(motores, puertos, p.reloj, p.mensajes, p.salida, p.rutas);
  otro.ses = p.ses;
  ASSERT_TRUE(otro.poDBAdmin.AbrirBD(otro.poCnnLocal, q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + p.ses.psRutaBD));
  CajaRegistradoraFull v;
  PantallasGuion pantallas;
  v.lineas = dosLineas();
  GrabarVenta(otro, v, pantallas);
}

QByteArray rollo(const PuestoPrueba& p) {
  QFile f(p.rutas.enPrograma(q("puertos/LPT1")));
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// SIGKILL shows what the process had handed over; whether the disk had it, only a power cut would tell.
TEST(Muerte, LeavesAPrefixAndANewNumber) {
  const QString local = q("driver={Microsoft Access Driver (*.mdb)};DBQ=");
  for (const Muerte momento : {Muerte::antes, Muerte::despues}) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE(n);
      PuestoDeVenta p;
      p.persona().dejaPasar();
      p.poCnnLocal.cerrar();  // no connection lives in both processes
      const pid_t hijo = ::fork();
      ASSERT_GE(hijo, 0);
      if (hijo == 0) {
        PlanFallas plan;
        plan.armar(n, Falla::unaVez, momento);
        venderEn(p, plan);
        ::_exit(0);
      }
      int estado = 0;
      ASSERT_EQ(hijo, ::waitpid(hijo, &estado, 0));
      ASSERT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnLocal, local + p.ses.psRutaBD));
      const QString filas = p.filas(q("SELECT cOperCode, cProdCode, cDocCodigo FROM Operacion ORDER BY cOperID"));
      const QString todas = q("1|101|1\n1|102|1\n1|0|1");
      EXPECT_TRUE(todas.startsWith(filas)) << qPrintable(filas);
      const auto papeles = rollo(p).count("TK NRO: 001-000001");
      const QString usado = p.filas(q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc='02'"));
      EXPECT_TRUE(filas.isEmpty() || papeles == 1);  // paper before rows
      EXPECT_TRUE(papeles == 0 || usado == u"1");    // number before paper
      if (WIFEXITED(estado)) {
        EXPECT_EQ(0, WEXITSTATUS(estado));
        EXPECT_EQ(todas, filas);
        EXPECT_GT(n, 14);
        break;
      }
      EXPECT_TRUE(WIFSIGNALED(estado) && WTERMSIG(estado) == SIGKILL);
      venderEn(p, {});
      EXPECT_EQ(papeles, rollo(p).count("TK NRO: 001-000001") - (usado == u"0" ? 1 : 0));  // no number twice on paper
      EXPECT_EQ(q("3"), p.filas(q("SELECT COUNT(*) FROM Operacion WHERE cDocCodigo=%1").arg(usado.toInt() + 1)));
    }
  }
}

}  // namespace
