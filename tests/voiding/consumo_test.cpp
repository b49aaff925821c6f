// The void of a note that consumes a billing document: here and at the centre, or not at all.
#include <gtest/gtest.h>

#include "apoyo/plan_fallas.h"
#include "apoyo/puesto_prueba.h"
#include "foundation/acto_doble.h"
#include "voiding/anulacion_consumo.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

struct NotaEnDosSitios {
  PuestoPrueba p;
  explicit NotaEnDosSitios(const Envolver& envolver = {}) : p(envolver) {
    p.ejecuta(
        q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, cDocTipo, cDocSerie, cDocCodigo, cEstado, "
          "cOperCodeRela, sGlosa, nMontoSoles) VALUES (4, 21, '11', 'NC1', 3, '1', 77, 'REF. SIST. LOGISTICA', 20)"));
    for (const char* sql :
         {"INSERT INTO Venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, TotVta) VALUES (77, '02', '001', '000009', 100)",
          "INSERT INTO ConsumoVenta (cCodVta, cCajaCodi, cOperCode, nMonto, bAnulado) VALUES (77, '00001', 4, 20, 0)",
          "INSERT INTO ConsumoVenta (cCodVta, cCajaCodi, cOperCode, nMonto, bAnulado) VALUES (77, '00002', 4, 30, 0)"})
      enCentral(sql);
  }
  void enCentral(const char* sql) {
    Conexion c;
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(c, p.ses.psConexionCentral));
    p.ejecuta(c, q(sql));
  }
  QString historia() {
    Conexion c;
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(c, p.ses.psConexionCentral));
    return p.filas(q("SELECT cOperCode, cEstado, cOperCodeAnul, sGlosa FROM OperacionParalela ORDER BY cOperCode")) +
           u'/' + p.filas(c, q("SELECT cCajaCodi, bAnulado FROM ConsumoVenta ORDER BY cCajaCodi")) + u'/' +
           p.filas(q("SELECT cActo FROM Diario_Acto"));
  }
  DocumentoGuardado nota() {
    DocumentoGuardado t;
    EXPECT_EQ(LecturaDocumento::Leida, LeerDocumento(p, 4, true, t));
    return t;
  }
  bool anular() { return AnularConsumo(p, nota()); }
};

const char* const kAntes = "4|1|0|REF. SIST. LOGISTICA/00001|0\n00002|0/";
const char* const kDespues = "4|0|5|REF. SIST. LOGISTICA\n5|0|0|ANULACION/00001|1\n00002|0/";

TEST(Consumo, IsVoidedInBothPlaces) {
  NotaEnDosSitios n;
  EXPECT_TRUE(n.anular());
  EXPECT_EQ(q(kDespues), n.historia());
}

// Neither the mark of a report nor what isn't there is a document that could be voided.
TEST(Consumo, TheMarkOfAReportIsNoDocument) {
  NotaEnDosSitios e;
  e.p.ejecuta(q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, sGlosa, cEstado, cOperFlagAbierto) "
                "VALUES (5, 30, 'O/C', '1', 1)"));
  DocumentoGuardado t;
  EXPECT_EQ(LeerDocumento(e.p, 99, true, t), LeerDocumento(e.p, 5, true, t));
  EXPECT_NE(LecturaDocumento::Leida, LeerDocumento(e.p, 5, true, t));
}

TEST(Consumo, OfASettledDocumentStays) {
  NotaEnDosSitios n;
  n.enCentral("UPDATE Venta01 SET bLiquidado = 1");
  n.p.persona().espera(q("ya fue liquidado"));
  EXPECT_FALSE(n.anular());
  n.p.ses.psConexionCentral.replace(q("central"), q("otra"));
  n.p.persona().espera(q("No se pudo conectar"));
  EXPECT_FALSE(n.anular());
  n.p.ses.psConexionCentral.replace(q("otra"), q("central"));
  EXPECT_EQ(q(kAntes), n.historia());
}

TEST(Consumo, WithEachStatementFailing) {
  for (int n = 1; n < 60; ++n) {
    SCOPED_TRACE(n);
    PlanFallas plan;
    plan.cuenta = [](const QString& cadena) { return !cadena.contains(u"cliente"); };
    plan.catalogo = false;
    NotaEnDosSitios nota([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
    nota.p.persona().dejaPasar();
    const DocumentoGuardado t = nota.nota();
    plan.armar(n);
    (void)AnularConsumo(nota.p, t);
    const bool tocado = plan.van() >= n;
    plan.armar(0);
    Conexion central;
    ASSERT_TRUE(nota.p.poDBAdmin.AbrirBD(central, nota.p.ses.psConexionCentral));
    EXPECT_TRUE(TerminarActos(nota.p, ServidorActo::Central, central));
    central.cerrar();
    const QString hay = nota.historia();
    EXPECT_TRUE(hay == q(kAntes) || hay == q(kDespues)) << qPrintable(hay);
    if (!tocado) break;
  }
}

}  // namespace
