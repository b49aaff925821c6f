#include "cashday/cierre_prueba.h"

#include <gtest/gtest.h>

#include "apoyo/casos.h"
#include "cashday/turno.h"
#include "platform/text/texto.h"

namespace {

const QString kPregunta = QStringLiteral("Esta Operación Cerrará Caja\r Desea Continuar?");
const QString kTerminado = QStringLiteral("Se han cerrado todas las operaciones.");

void cerrar(PuestoPrueba& p, Principal& v, PantallasGuion& pantallas, QStringList* avances = nullptr) {
  CerrarCaja(p, v, pantallas, [avances](const QString& a) {
    if (avances) *avances << a;
  });
}

}  // namespace

TEST(CerrarCaja, ClosesTheDay) {
  DiaVendido p;
  Principal v;
  PantallasCierre pantallas(p);
  p.persona().espera(kPregunta, "Sí");
  p.persona().espera(kTerminado);
  QStringList avances;
  cerrar(p, v, pantallas, &avances);
  EXPECT_EQ(kTotalesDelDia, p.totales());
  EXPECT_EQ(kDiaCerrado, p.cerradas());
  EXPECT_EQ(6, p.paso());
  EXPECT_EQ("autoriza Reporte Z,cuadre 1,sincroniza", pantallas.abiertas.join(u','));
  EXPECT_EQ("", avances.back());
  EXPECT_EQ("", p.ses.psTurno + p.filas("SELECT cCodiTurno FROM Configuracion"));
  EXPECT_EQ(ClaseDia::Cerrada, ClaseDelDia(p, v));
  EXPECT_EQ("0", p.filas(p.poCnnCentral, "SELECT COUNT(*) FROM TCABECERAZ1 WHERE nidEstado = -1"));
  EXPECT_EQ("3", p.filas(p.poCnnCentral, "SELECT COUNT(*) FROM TDETALLEZ1")) << "101 and 102 sold, 101 ordered";
}

// The mark of another desk stays as it is: its closing was interrupted and is begun again.
TEST(CerrarCaja, EndsTheMarkOfItsOwnDesk) {
  DiaVendido p;
  ASSERT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnCentral, p.ses.psConexionCentral));
  p.ejecuta(p.poCnnCentral, QStringLiteral("INSERT INTO TCABECERAZ1 (cCajaCodi, nidEstado) VALUES ('00002', -1)"));
  Principal v;
  PantallasCierre pantallas(p);
  p.persona().espera(kPregunta, "Sí");
  p.persona().espera(kTerminado);
  cerrar(p, v, pantallas);
  EXPECT_EQ("00001|0\n00002|-1",
            p.filas(p.poCnnCentral, "SELECT cCajaCodi, nidEstado FROM TCABECERAZ1 ORDER BY cCajaCodi"));
}

TEST(CerrarCaja, BeginsOnlyWhenItMay) {
  for (const auto& c : leerCasos("cashday/no_cierra")) {
    SCOPED_TRACE(c.donde());
    DiaVendido p;
    if (!c.falta("sql")) p.ejecuta(c["sql"]);
    const QString antes = p.filas("SELECT * FROM Configuracion");
    Principal v;
    PantallasCierre pantallas(p);
    if (!c.si("supervisor")) pantallas.supervisor.reset();
    p.persona().espera(kPregunta, c["respuesta"]);
    if (c["sql"].contains(u"DROP")) p.persona().espera(" - ");
    if (!c.falta("caja")) p.persona().espera(c["caja"]);
    cerrar(p, v, pantallas);
    EXPECT_EQ(antes, p.filas("SELECT * FROM Configuracion"));
    EXPECT_EQ("0", p.filas("SELECT COUNT(*) FROM Operacion WHERE cOperTipo >= 10"));
    EXPECT_FALSE(v.cierreInterrumpido);
  }
}

TEST(CerrarCaja, ResumesAtTheStoredStep) {
  // clang-format off
  const struct { int paso; const char* papeles; } casos[] = {  // "1": Z1, "Z", then the two counts
      {0, "1Z"}, {1, "1Z"}, {2, "1Z"}, {3, "Z"}, {4, ""}, {5, ""}, {6, "1Z"}};
  for (const auto& c : casos) {
    SCOPED_TRACE(c.paso);
    DiaVendido p;
    p.ejecuta(QStringLiteral("UPDATE Configuracion SET iCierreCaja = %1").arg(c.paso));
    if (c.paso == 5) p.ejecuta(QStringLiteral("UPDATE Configuracion SET cOperId = 9"));  // it asks for no sales
    Principal v;
    v.cierreInterrumpido = true;
    PantallasCierre pantallas(p);
    p.persona().espera(kPregunta, "Sí");
    p.persona().espera(kTerminado);
    cerrar(p, v, pantallas);
    EXPECT_EQ(6, p.paso());
    QString papeles;
    if (p.papeles().papel[QStringLiteral("LPT2")].contains("Z1 CHECK")) papeles += u'1';
    if (p.papeles().papel[QStringLiteral("LPT1")].contains("Z  CHECK")) papeles += u'Z';
    EXPECT_EQ(c.papeles, papeles);
    EXPECT_EQ(c.paso == 5 ? 0 : 1, pantallas.abiertas.count(QStringLiteral("cuadre 1")));
    EXPECT_EQ(papeles.isEmpty() ? "0" : "12", p.filas("SELECT COUNT(*) FROM CUADRE_CAJA"))
        << "a count without a report of this session prints nothing";
    EXPECT_EQ(ClaseDia::Cerrada, ClaseDelDia(p, v));
    EXPECT_EQ("", p.filas("SELECT cCodiTurno FROM Configuracion")) << "also when no Z has blanked it";
  }
  // clang-format on
}

TEST(CambioTurno, MovesTheTurnAndStartsAgain) {
  // clang-format off
  const struct { const char *turno, *sigue; bool supervisor; } casos[] = {
      {"01", "02", true}, {"02", "03", false}, {"09", "10", false}, {"99", "00", false}};
  for (const auto& c : casos) {
    SCOPED_TRACE(c.turno);
    DiaVendido p;
    p.ses.psTurno = QString::fromLatin1(c.turno);
    p.ses.pbSincronizaMaestros = p.ses.pbSincronizaCierre = true;
    Principal v;
    v.bAcceso = true;
    PantallasCierre pantallas(p);
    if (!c.supervisor) pantallas.supervisor.reset();
    CambioTurno(p, v, pantallas);
    EXPECT_EQ(c.sigue, p.filas("SELECT cCodiTurno FROM Configuracion"));
    EXPECT_EQ("autoriza Reporte X,sincroniza,rearranca", pantallas.abiertas.join(u','));
    EXPECT_EQ(c.supervisor, p.papeles().papel[QStringLiteral("LPT1")].contains("X  CHECK"));
    EXPECT_TRUE(p.ses.pbSincronizaMaestros);
    EXPECT_FALSE(p.ses.pbSincronizaCierre);
  }
  // clang-format on
  DiaVendido p;
  p.ejecuta(QStringLiteral("DROP TABLE Configuracion"));
  Principal v;
  PantallasGuion pantallas;
  p.persona().espera(" - ");
  CambioTurno(p, v, pantallas);
  EXPECT_EQ("01", p.ses.psTurno) << "a turn that isn't stored is not begun";
  EXPECT_EQ("autoriza Reporte X", pantallas.abiertas.join(u','));
}
