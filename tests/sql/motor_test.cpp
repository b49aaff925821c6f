// The engine under the dialects: errors, durability, what is on the disk.
#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

#include "apoyo/puesto_prueba.h"

namespace {

const QString kSerie = QStringLiteral("INSERT INTO Config_Documento (cTipoDoc) VALUES ('99')");

TEST(Motor, ADuplicateKeyHasItsNumbers) {
  PuestoPrueba p;
  p.ejecuta(kSerie);
  const auto error = p.poCnnLocal.ejecutar(kSerie);
  ASSERT_TRUE(error);
  EXPECT_EQ(0x80040E14, error->numero);
  EXPECT_EQ(-1605, error->nativo);
  const auto otro = p.poCnnLocal.ejecutar(QStringLiteral("UPDATE Producto SET noexiste=1"));
  ASSERT_TRUE(otro);
  EXPECT_FALSE(otro->claveDuplicada());
}

TEST(Motor, OpeningMakesNoFileAndAClosedConnectionSaysSo) {
  PuestoPrueba p;
  Conexion c;
  EXPECT_TRUE(c.abrir(p.motores, QStringLiteral("Data Source=sqlite:noesta.db"), 100));
  EXPECT_FALSE(QFile::exists(p.rutas.enPrograma(QStringLiteral("noesta.db"))));
  EXPECT_TRUE(c.abrir(p.motores, QStringLiteral("Data Source=UNSERVIDOR"), 100));
  Recordset rs;
  EXPECT_TRUE(c.consultar(QStringLiteral("SELECT 1"), rs));
  EXPECT_TRUE(c.ejecutar(QStringLiteral("DELETE FROM Operacion")));
}

TEST(Motor, RollbackTakesBackAndCommitKeeps) {
  PuestoPrueba p;
  ASSERT_FALSE(p.poCnnLocal.iniciar());
  p.ejecuta(kSerie);
  ASSERT_FALSE(p.poCnnLocal.deshacer());
  EXPECT_EQ(QStringLiteral("0"), p.filas(QStringLiteral("SELECT COUNT(*) FROM Config_Documento WHERE cTipoDoc='99'")));
  ASSERT_FALSE(p.poCnnLocal.iniciar());
  p.ejecuta(kSerie);
  ASSERT_FALSE(p.poCnnLocal.confirmar());
  EXPECT_EQ(QStringLiteral("1"), p.filas(QStringLiteral("SELECT COUNT(*) FROM Config_Documento WHERE cTipoDoc='99'")));
}

// A query that was left unfinished would keep later writes from the disk.
TEST(Motor, AWriteIsThereAfterTheProcessIsKilled) {
  PuestoPrueba p;
  const QString ruta = p.ses.psRutaBD;
  p.poCnnLocal.cerrar();
  const pid_t hijo = fork();
  ASSERT_GE(hijo, 0);
  if (hijo == 0) {
    Conexion c;
    Recordset rs;
    const QString cadena = QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + ruta;
    if (!c.abrir(p.motores, cadena, 1000) && !c.consultar(QStringLiteral("SELECT * FROM Config_Documento"), rs) &&
        !c.ejecutar(kSerie)) {
      ::raise(SIGKILL);
    }
    ::_exit(1);
  }
  int estado = 0;
  ASSERT_EQ(hijo, ::waitpid(hijo, &estado, 0));
  ASSERT_TRUE(WIFSIGNALED(estado));
  Conexion c;
  ASSERT_FALSE(c.abrir(p.motores, QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + ruta, 1000));
  EXPECT_EQ(QStringLiteral("1"), p.filas(c, QStringLiteral("SELECT COUNT(*) FROM Config_Documento WHERE cTipoDoc='99'")));
}

// The same shape with other literals runs on the statement that was kept; the answers must not be the first one's.
TEST(Motor, AKeptStatementTakesTheNewLiterals) {
  PuestoPrueba p;
  for (int n = 1; n <= 40; ++n) p.articulo(n, QStringLiteral("ART %1").arg(n), n);
  for (int vuelta = 0; vuelta < 2; ++vuelta) {
    for (int n = 1; n <= 40; ++n) {
      EXPECT_EQ(QStringLiteral("ART %1").arg(n),
                p.filas(QStringLiteral("SELECT sProdDesc FROM Producto WHERE cAlmaCode = '01' AND cProdCode = %1").arg(n)));
    }
  }
}

}  // namespace
