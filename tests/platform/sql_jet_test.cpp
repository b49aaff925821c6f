#include "apoyo/casos.h"
#include "sql_sentencias.h"

namespace {

const QStringList kTienda = leerLineas(u8("platform/casos/tienda.sql"));

TEST(Jet, AnswersAsItsEngineDid) {
  Banco b(true, kTienda);
  for (const auto& c : leerCasos("platform/jet")) {
    SCOPED_TRACE(c.donde());
    EXPECT_EQ(c["sale"], b.respuesta(c["sql"])) << b.cnn.traducir(c["sql"]).toStdString();
    EXPECT_EQ(c["sale"], b.respuesta(c["sql"])) << "from the cache";
  }
}

TEST(Jet, WritesDatesAndNumbersAsTheirColumns) {
  Banco b(true, kTienda);
  for (const auto& c : leerCasos("platform/jet_escribe")) {
    SCOPED_TRACE(c.donde());
    const auto e = b.cnn.ejecutar(Sql::crudo(c["sentencia"]));
    EXPECT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString() << b.cnn.traducir(c["sentencia"]).toStdString();
    EXPECT_EQ(c["sale"], b.respuesta(c["pregunta"]));
  }
  const auto e = b.cnn.ejecutar(Sql::crudo(u8("INSERT INTO Operacion (cOperCode,dOperFech) VALUES (60,'31/02/2025')")));
  ASSERT_TRUE(e);
  EXPECT_EQ(kErrorSentencia, e->numero);
  EXPECT_EQ("0", b.respuesta("SELECT COUNT(*) FROM Operacion WHERE cOperCode=60"));
}

TEST(Jet, OneShapeManyLiterals) {
  Banco b(true, kTienda);
  for (int i = 100; i < 140; ++i) {
    const QString sql =
        u8("INSERT INTO Operacion (cOperCode,nProdCant,dOperFech,cDocTipo) VALUES (%1,%2,'%3/01/2025','%4')")
            .arg(i)
            .arg(i % 2 ? u8("1") : u8("1.5"))
            .arg(i - 99, 2, 10, QChar(u'0'))
            .arg(i % 3 ? u8("a") : u8("ñ"));
    const auto e = b.cnn.ejecutar(Sql::crudo(sql));
    EXPECT_EQ(i >= 131, e.has_value()) << i;  // January has 31 days
  }
  EXPECT_EQ("39", b.respuesta("SELECT SUM(nProdCant) FROM Operacion WHERE cOperCode >= 100"));
  EXPECT_EQ("<2025-01-31 00:00:00>",
            b.respuesta("SELECT MAX(dOperFech) FROM Operacion WHERE cDocTipo = 'A' AND cOperCode >= 100"));
  // Literals that stay in the statement: the same shape with another list, order or count.
  EXPECT_EQ("7|x", b.respuesta("SELECT TOP 1 cOperCode, 'x' FROM Operacion ORDER BY cOperID"));
  EXPECT_EQ("7|y/7|y", b.respuesta("SELECT TOP 2 cOperCode, 'y' FROM Operacion ORDER BY cOperID"));
}

}  // namespace
