// What a play can't read of the register: the titles of its grid.
#include <gtest/gtest.h>

#include "apoyo/formas.h"
#include "apoyo/puesto_prueba.h"
#include "sale/frm_caja_full.h"
#include "sale/pantallas_guion.h"

TEST(CajaForma, F3TellsWhetherAPercentageIsAddedOrTakenOff) {
  PuestoPrueba p;
  p.persona().dejaPasar();
  PantallasGuion pantallas;
  frmCajaRegistradoraFull caja(p, pantallas);
  mostrar(caja);
  const auto titulo = [&caja] {
    return caja.findChild<Rejilla*>(QStringLiteral("TDBGrid1"))->model()->headerData(kPorc, Qt::Horizontal).toString();
  };
  EXPECT_EQ("Dscto(S/.)", titulo());
  tecla(Qt::Key_F3);
  EXPECT_EQ("Recar(S/.)", titulo());
  tecla(Qt::Key_F3);
  EXPECT_EQ("Dscto(S/.)", titulo());
}
