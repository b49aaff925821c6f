#include "apoyo/casos.h"
#include "sql_banco.h"

namespace {

const QStringList kTienda = {
    u8("CREATE TABLE Operacion (cOperID INTEGER PRIMARY KEY AUTOINCREMENT, cOperCode INTEGER, cProdCode INTEGER, "
       "cAlmaCode TEXT COLLATE NOCASE, nProdCant REAL DEFAULT 0, nProdPrecUnit REAL DEFAULT 0, nDscto INTEGER DEFAULT 0, "
       "dOperFech DATETIME, cDocTipo TEXT COLLATE NOCASE, cOperFlagAbierto INTEGER DEFAULT 1)"),
    u8("CREATE TABLE Producto (cProdCode INTEGER PRIMARY KEY, sProdDesc TEXT COLLATE NOCASE, sLibre TEXT, "
       "cEstadoTexto TEXT COLLATE NOCASE, nPrec REAL)"),
    u8("CREATE TABLE Configuracion (cCodiTurno TEXT COLLATE NOCASE, iCierreCaja INTEGER)"),
    u8("INSERT INTO Operacion (cOperCode,cProdCode,cAlmaCode,nProdCant,nProdPrecUnit,nDscto,dOperFech,cDocTipo) VALUES "
       "(7,1,'01',2,5.5,-10,'2025-04-03 10:05:00','02'),(7,0,NULL,1,-1,0,'2025-04-03 10:05:00','02'),"
       "(8,2,'01',1,3,0,'2025-12-25 00:00:00','01')"),
    u8("INSERT INTO Producto VALUES (1,'ÑANDÚ asado','abc','1',5.5),(2,'Lomo','ABC','2',5),(3,'lomo 2','ñu','x',NULL),"
       "(4,'ñandúes','','',0.25)"),
    u8("INSERT INTO Configuracion VALUES ('01',0)"),
};


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
    const auto e = b.cnn.ejecutar(c["sentencia"]);
    EXPECT_FALSE(e) << e.value_or(ErrorBD{}).descripcion.toStdString() << b.cnn.traducir(c["sentencia"]).toStdString();
    EXPECT_EQ(c["sale"], b.respuesta(c["pregunta"]));
  }
  const auto e = b.cnn.ejecutar(u8("INSERT INTO Operacion (cOperCode,dOperFech) VALUES (60,'31/02/2025')"));
  ASSERT_TRUE(e);
  EXPECT_EQ(kErrorSentencia, e->numero);
  EXPECT_EQ("0", b.respuesta("SELECT COUNT(*) FROM Operacion WHERE cOperCode=60"));
}

TEST(Jet, OneShapeManyLiterals) {
  Banco b(true, kTienda);
  for (int i = 100; i < 140; ++i) {
    const QString sql = u8("INSERT INTO Operacion (cOperCode,nProdCant,dOperFech,cDocTipo) VALUES (%1,%2,'%3/01/2025','%4')")
                            .arg(i).arg(i % 2 ? u8("1") : u8("1.5")).arg(i - 99, 2, 10, QChar(u'0')).arg(i % 3 ? u8("a") : u8("ñ"));
    const auto e = b.cnn.ejecutar(sql);
    EXPECT_EQ(i >= 131, e.has_value()) << i;  // January has 31 days
  }
  EXPECT_EQ("39", b.respuesta("SELECT SUM(nProdCant) FROM Operacion WHERE cOperCode >= 100"));
  EXPECT_EQ("<2025-01-31 00:00:00>", b.respuesta("SELECT MAX(dOperFech) FROM Operacion WHERE cDocTipo = 'A' AND cOperCode >= 100"));
  // Literals that stay in the statement: the same shape with another list, order or count.
  EXPECT_EQ("7|x", b.respuesta("SELECT TOP 1 cOperCode, 'x' FROM Operacion ORDER BY 1"));
  EXPECT_EQ("7|y/7|y", b.respuesta("SELECT TOP 2 cOperCode, 'y' FROM Operacion ORDER BY 1"));
}

}  // namespace
