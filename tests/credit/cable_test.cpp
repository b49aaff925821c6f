// Each act with the wire to its server cut at one round trip after the other, before what was asked has arrived or
// before the answer has come back, for a moment or till the next start: store and servers tell one story.
#include <gtest/gtest.h>

#include "apoyo/cable.h"
#include "escenas.h"
#include "postgres/base_postgres.h"
#include "reposo.h"

namespace {

class ActosConElCableCortado : public testing::TestWithParam<Escena> {};

TEST_P(ActosConElCableCortado, LeaveOneStory) {
  const Escena& escena = GetParam();
  Cable cable(ServidorPrueba::uno().servidor());
  Credito e({}, servidoresEn(EnMotor::Postgres));
  CadenaConexion central = e.servidores->central, cliente = e.servidores->cliente;
  central.servidor = cliente.servidor = cable.servidor();
  e.p.ses.psConexionCentral = cadenaDe(central);
  e.p.ses.psConexionCliente = cadenaDe(cliente);
  Montaje montaje(e, escena);
  if (HasFailure()) return;
  // A few cuts have their turn, another kind in each scene; all of them in the long run.
  const int paso = largo() ? 1 : 13, suyo = static_cast<int>(strlen(escena.nombre));
  constexpr std::pair<Cable::Corte, const char*> kCortes[] = {
      {Cable::Corte::Antes, "antes"}, {Cable::Corte::EnCamino, "en camino"}, {Cable::Corte::Despues, "despues"}};
  for (int caso = 0; caso < 6; ++caso) {
    const auto& [corte, palabra] = kCortes[caso % 3];
    const bool vuelve = caso < 3;
    if (!largo() && (suyo + caso) % 3 != 0) continue;
    int n = 1 + (largo() ? 0 : suyo * (caso + 1) % paso);
    for (;; n += paso) {
      SCOPED_TRACE(palabra + std::string(vuelve ? " y vuelve, viaje " : " y queda, viaje ") + std::to_string(n));
      montaje.devolver();
      cable.cortar(n, corte, vuelve);
      const QString fin = escena.hacer(e);
      const bool cortado = cable.cortado();
      cable.arreglar();
      montaje.empezarDeNuevo();
      if (!cortado) {
        EXPECT_EQ(q("hecho"), fin);
        break;
      }
      montaje.comprobar(fin);
    }
    EXPECT_GT(n, 6) << palabra;
  }
}

INSTANTIATE_TEST_SUITE_P(Credito, ActosConElCableCortado, testing::ValuesIn(escenasDeHoy()),
                         [](const auto& caso) { return std::string(caso.param.nombre); });

}  // namespace
