#include "backoffice/tipo_cambio.h"

#include <gtest/gtest.h>

#include "apoyo/puesto_prueba.h"

namespace {

const char* const kTabla = "SELECT FORMAT(dTipoCambFech,'dd/mm/yyyy'), nTipoCambMont FROM Tipo_Cambio ORDER BY dTipoCambFech";

}  // namespace

TEST(TipoCambio, IsStoredByTheMode) {
  const struct { const char* porque; ModoDetalle modo; const char *fecha, *tc, *queda; } casos[] = {
      {"new: two places", ModoDetalle::Nuevo, "24/11/2026", "3.5", "23/11/2026|3.6\n24/11/2026|3.5"},
      {"new: rounded", ModoDetalle::Nuevo, "24/11/2026", "3.755", "23/11/2026|3.6\n24/11/2026|3.76"},
      {"new: a date in short", ModoDetalle::Nuevo, "2/3/26", "3.5", "02/03/2026|3.5\n23/11/2026|3.6"},
      {"edit", ModoDetalle::Editar, "23/11/2026", "3.80", "23/11/2026|3.8"},
      {"delete", ModoDetalle::Borrar, "23/11/2026", "3.60", ""},
      {"view changes nothing", ModoDetalle::Ver, "23/11/2026", "9.99", "23/11/2026|3.6"},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    PuestoPrueba p;
    p.ejecuta(QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('23/11/2026', '3.60')"));
    TipoCambio v{c.modo, c.fecha, c.tc, {}};
    EXPECT_TRUE(GuardarTipoCambio(p, v));
    EXPECT_EQ(c.queda, p.filas(kTabla));
  }
}

TEST(TipoCambio, RefusesInOrder) {
  const struct { const char *porque, *fecha, *tc, *caja, *campo; } casos[] = {
      {"no date", "31/02/2026", "", "Ingrese un tipo de fecha válido.", "txtFecha"},
      {"a number is no date", "12", "3.50", "Ingrese un tipo de fecha válido.", "txtFecha"},
      {"blank", "24/11/2026", "", "Ingrese el tipo de cambio.", "txtTC"},
      {"points only", "24/11/2026", "..", "Ingrese el tipo de cambio.", "txtTC"},
      {"nothing", "24/11/2026", "0.004", "Ingrese el tipo de cambio.", "txtTC"},
      {"there already", "23/11/2026", "3.50", "Ya hay un tipo de cambio para el 23/11/2026", "txtFecha"},
  };
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    PuestoPrueba p;
    p.ejecuta(QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('23/11/2026', '3.60')"));
    TipoCambio v{ModoDetalle::Nuevo, c.fecha, c.tc, {}};
    p.persona().espera(QString::fromUtf8(c.caja));
    EXPECT_FALSE(GuardarTipoCambio(p, v));
    EXPECT_EQ(c.campo, v.campoMal);
    EXPECT_EQ("23/11/2026|3.6", p.filas(kTabla));
  }
}

TEST(TipoCambio, LoadsByTheMode) {
  PuestoPrueba p;
  p.ejecuta(QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('03/04/2026', '3.60')"));
  TipoCambio v;
  EXPECT_TRUE(CargarTipoCambio(p, ModoDetalle::Nuevo, "", v));
  EXPECT_EQ("24/11/2026", v.txtFecha) << "today is proposed";
  EXPECT_EQ("", v.txtTC);
  std::vector<FilaTipoCambio> filas;
  ASSERT_TRUE(LeerTiposCambio(p, filas));
  ASSERT_EQ(1u, filas.size());
  EXPECT_EQ("03/04/2026 3.60", filas[0].fecha + u' ' + filas[0].monto) << "3 April, day before month";
  EXPECT_TRUE(CargarTipoCambio(p, ModoDetalle::Editar, filas[0].fecha, v));
  EXPECT_EQ("3.60", v.txtTC);
  p.persona().espera("ya no existe");
  EXPECT_FALSE(CargarTipoCambio(p, ModoDetalle::Ver, "04/03/2026", v));
}

TEST(TipoCambio, TitlesOfTheDetail) {
  EXPECT_EQ("Nuevo Tipo de Cambio", TituloDetalle(ModoDetalle::Nuevo, "Tipo de Cambio"));
  EXPECT_EQ("Tipo de Cambio", TituloDetalle(ModoDetalle::Ver, "Tipo de Cambio"));
}
