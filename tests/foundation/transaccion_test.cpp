#include "foundation/transaccion.h"

#include <gtest/gtest.h>

#include "apoyo/puesto_prueba.h"
#include "foundation/exigir.h"

namespace {

constexpr LiteralSql kMete = u"INSERT INTO Usuario (sUserDesc) VALUES ('NUEVO')"_sql,
                     kMala = u"UPDATE NoHay SET a=1"_sql;

QString nuevos(PuestoPrueba& p) {
  return p.filas(p.poCnnLocal, QStringLiteral("SELECT COUNT(*) FROM Usuario WHERE sUserDesc = 'NUEVO'"));
}

}  // namespace

TEST(Transaccion, ABrokenInvariantUndoesItAndGoesOn) {
  PuestoPrueba p;
  EXPECT_NO_THROW(Exigir(true, "holds"));
  const auto romper = [&p]() -> std::optional<ErrorBD> {
    if (auto e = p.poCnnLocal.ejecutar(kMete)) return e;
    Exigir(false, "two and two");
    return {};
  };
  try {
    (void)EnTransaccion(p.poCnnLocal, romper);
    ADD_FAILURE() << "went on";
  } catch (const InvarianteRota& e) {
    EXPECT_STREQ("two and two", e.what());
  }
  EXPECT_FALSE(p.poCnnLocal.enTransaccion());
  EXPECT_EQ(u"0", nuevos(p));
}

TEST(Transaccion, TellsWhichStatementFailed) {
  PuestoPrueba p;
  const Sql mete = kMete, mala = kMala;
  Sql laQueFallo;
  EXPECT_TRUE(EjecutarJuntas(p.poCnnLocal, {mete, mala, mete}, &laQueFallo));
  EXPECT_EQ(mala.texto(Dialecto::Jet), laQueFallo.texto(Dialecto::Jet));
  EXPECT_EQ(u"0", nuevos(p));
  laQueFallo = {};
  p.poCnnLocal.cerrar();
  EXPECT_TRUE(EjecutarJuntas(p.poCnnLocal, {mete}, &laQueFallo));
  EXPECT_TRUE(laQueFallo.vacia());
}
