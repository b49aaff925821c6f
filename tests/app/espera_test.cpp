// A server that keeps silent is told on the screen before half a second has passed, until the act is over.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include "apoyo/servidor_mudo.h"
#include "app/entorno.h"
#include "platform/ui/mensajes_ventana.h"

namespace {

struct Persona final : Mensajes {
  QStringList dicho;
  std::vector<qint64> cuando;
  QElapsedTimer reloj;
  void mostrar(const QString&, const QString&, Icono) override {}
  bool preguntar(const QString&, const QString&, bool) override { return false; }
  std::optional<QString> pedir(const QString&, const QString&, const QString&) override { return {}; }
  void mostrarOcupado(const QString& que) override {
    dicho += que;
    cuando.push_back(reloj.elapsed());
  }
};

}  // namespace

TEST(Espera, ASilentServerIsToldUntilTheActIsOver) {
  const QTemporaryDir carpeta;
  const ServidorMudo mudo(Mudez::recibe);
  Persona persona;
  EntornoSistema entorno(carpeta.path());
  entorno.avisarEsperas(persona);
  ErrorBD error;
  const auto abrir = [&](int espera_ms) { (void)entorno.motores->abrir(mudo.cadena(), espera_ms, error); };

  persona.reloj.start();
  abrir(150);
  EXPECT_EQ(QStringList(), persona.dicho) << "nobody minds so little";
  QTest::qWait(1);
  persona.reloj.restart();
  abrir(1200);
  abrir(300);
  ASSERT_EQ(1, persona.dicho.size());
  EXPECT_TRUE(persona.dicho[0].startsWith(QStringLiteral("Esperando al servidor 127.0.0.1:")));
  EXPECT_GE(persona.cuando[0], 350);
  EXPECT_LT(persona.cuando[0], 1200) << "while it was silent";
  QTest::qWait(1);
  EXPECT_EQ(QString(), persona.dicho.back());

  // Many short waits of one act are a long one.
  persona.dicho.clear();
  for (int i = 0; i < 4; ++i) abrir(150);
  EXPECT_EQ(1, persona.dicho.size());
}
