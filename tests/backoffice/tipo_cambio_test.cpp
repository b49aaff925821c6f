#include "backoffice/tipo_cambio.h"

#include <gtest/gtest.h>

#include "apoyo/puesto_prueba.h"

TEST(TipoCambio, LoadsTheRowOfItsDay) {
  PuestoPrueba p;
  p.ejecuta(QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('03/04/2026', '3.60')"));
  std::vector<FilaTipoCambio> filas;
  ASSERT_TRUE(LeerTiposCambio(p, filas));
  ASSERT_EQ(1u, filas.size());
  EXPECT_EQ("03/04/2026 3.60", filas[0].fecha + u' ' + filas[0].monto) << "3 April, day before month";
  TipoCambio v;
  EXPECT_TRUE(CargarTipoCambio(p, ModoDetalle::Editar, filas[0].fecha, v));
  EXPECT_EQ("3.60", v.txtTC);
  p.persona().espera("ya no existe");
  EXPECT_FALSE(CargarTipoCambio(p, ModoDetalle::Ver, "04/03/2026", v));
}
