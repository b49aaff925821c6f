// Each act over store and servers with a statement of it failing, or the process dying before or behind it, at one
// statement after the other of all its databases, on both engines: behind the next start they tell one story.
#include <gtest/gtest.h>

#include "escenas.h"
#include "reposo.h"

namespace {

struct Muerto {};

enum class Modo { Falla, FallaDesdeAhi, MataAntes, MataDespues };

struct PlanDeTodas : PlanFallas {
  PlanDeTodas() {
    cuenta = [](const QString&) { return true; };
    catalogo = false;
    morir = [] { throw Muerto{}; };
  }
};

using Caso = std::tuple<EnMotor, Modo, Escena>;

class ActosConFallas : public testing::TestWithParam<Caso> {};

TEST_P(ActosConFallas, LeaveOneStory) {
  const auto& [motor, modo, escena] = GetParam();
  PlanDeTodas plan;
  plan.armar(0);
  Credito e([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); }, servidoresEn(motor));
  Montaje montaje(e, escena);
  if (HasFailure()) return;
  int veces = 0;
  // A few statements have their turn; all of them in the long run.
  const int paso = largo() ? 1 : motor == EnMotor::Postgres ? 11 : 4;
  const bool mata = modo == Modo::MataAntes || modo == Modo::MataDespues;
  for (int n = 1 + (largo() ? 0 : static_cast<int>(strlen(escena.nombre) + static_cast<size_t>(modo)) % paso); n < 300;
       n += paso, ++veces) {
    SCOPED_TRACE(n);
    montaje.devolver();
    plan.armar(n, modo == Modo::FallaDesdeAhi ? Falla::desdeAhi : Falla::unaVez,
               !mata                     ? Muerte::no
               : modo == Modo::MataAntes ? Muerte::antes
                                         : Muerte::despues);
    std::optional<QString> fin;
    try {
      fin = escena.hacer(e);
    } catch (const Muerto&) {
    }
    const bool tocado = mata ? !fin : plan.van() >= n;
    SCOPED_TRACE(qPrintable(plan.sentencias.value(n - 1)));
    plan.armar(0);
    plan.apagar(false);
    montaje.empezarDeNuevo();
    if (!tocado) break;
    montaje.comprobar(fin);
  }
  EXPECT_GE((veces + 1) * paso, 12);
}

std::string nombreDe(const testing::TestParamInfo<Caso>& caso) {
  const char* const modos[] = {"Falla", "FallaDesdeAhi", "MataAntes", "MataDespues"};
  return std::string(std::get<2>(caso.param).nombre) + modos[static_cast<int>(std::get<1>(caso.param))] +
         (std::get<0>(caso.param) == EnMotor::Postgres ? "EnPostgres" : "");
}

INSTANTIATE_TEST_SUITE_P(Embebido, ActosConFallas,
                         testing::Combine(testing::Values(EnMotor::Embebido),
                                          testing::Values(Modo::Falla, Modo::FallaDesdeAhi, Modo::MataAntes,
                                                          Modo::MataDespues),
                                          testing::ValuesIn(escenasDeHoy())),
                         nombreDe);

INSTANTIATE_TEST_SUITE_P(Postgres, ActosConFallas,
                         testing::Combine(testing::Values(EnMotor::Postgres),
                                          largo() ? testing::ValuesIn({Modo::Falla, Modo::FallaDesdeAhi,
                                                                       Modo::MataAntes, Modo::MataDespues})
                                                  : testing::ValuesIn({Modo::MataDespues}),
                                          testing::ValuesIn(escenasDeHoy())),
                         nombreDe);

}  // namespace
