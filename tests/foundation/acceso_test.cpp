// Who is let in: passwords old and new, and the wait after wrong ones.
#include "foundation/acceso.h"

#include <gtest/gtest.h>

#include "apoyo/puesto_prueba.h"
#include "foundation/clave.h"

namespace {

struct AccesoTest : testing::Test {
  PuestoPrueba p;

  void SetUp() override {
    for (const char* u : {"'ANA', 'Secreta', 3, 1", "'JEFE', 'jefe', 1, 1"}) {
      p.ejecuta(QStringLiteral("INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, cUserActi) VALUES (%1)")
                    .arg(QLatin1String(u)));
    }
  }
  // The words of a refusal, "" when he is let in.
  QString prueba(const QString& usuario, const QString& clave) {
    const auto a = ProbarAcceso(p, usuario, clave);
    return a ? a->rechazo : QStringLiteral("?");
  }
  QString guardada() { return p.filas("SELECT sUserPass FROM Usuario WHERE sUserDesc = 'ANA'"); }
};

TEST_F(AccesoTest, AnOldPasswordIsTakenOverAtTheFirstLogin) {
  EXPECT_EQ("Password no válido", prueba("ANA", "secreta"));
  EXPECT_EQ("Secreta", guardada());
  EXPECT_EQ("", prueba(" ana ", "Secreta "));
  const QString cifrada = guardada();
  EXPECT_TRUE(EstaCifrada(cifrada));
  EXPECT_EQ("", prueba("ANA", "Secreta"));
  EXPECT_EQ(cifrada, guardada()) << "once";
  EXPECT_EQ("Password no válido", prueba("ANA", cifrada)) << "what is stored opens no door";
  EXPECT_EQ("3", ProbarAcceso(p, "ANA", "Secreta")->perfil);
}

TEST_F(AccesoTest, TheSamePasswordIsNeverStoredTwiceTheSame) {
  EXPECT_NE(*CifrarClave("x"), *CifrarClave("x"));
  EXPECT_TRUE(EsLaClave(*CifrarClave(" Ñandú "), "Ñandú"));
}

TEST_F(AccesoTest, FiveWrongOnesInARowWaitAMinute) {
  const QString espera = "Demasiadas claves equivocadas.\nEspere un minuto y vuelva a intentar.";
  for (int n = 0; n < 4; ++n) EXPECT_EQ("Password no válido", prueba("JEFE", "mal"));
  EXPECT_EQ("", prueba("JEFE", "jefe")) << "a right one begins anew";
  for (int n = 0; n < 5; ++n) EXPECT_EQ("Password no válido", prueba(n % 2 ? "jefe" : "JEFE ", "mal"));
  EXPECT_EQ(espera, prueba("JEFE", "jefe"));
  EXPECT_EQ("", prueba("ANA", "Secreta")) << "another user goes on";
  p.elReloj().ahora = p.elReloj().ahora.addSecs(59);
  EXPECT_EQ(espera, prueba("JEFE", "jefe"));
  p.elReloj().ahora = p.elReloj().ahora.addSecs(1);
  for (int n = 0; n < 5; ++n) EXPECT_EQ("Password no válido", prueba("JEFE", "mal")) << "five new ones";
  EXPECT_EQ(espera, prueba("JEFE", "jefe"));
  p.elReloj().ahora = p.elReloj().ahora.addDays(-1);
  EXPECT_EQ("", prueba("JEFE", "jefe")) << "a clock that was put right locks nobody out";
}

}  // namespace
