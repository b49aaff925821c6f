// Master data from the central database: each pass, each kind of row, and what stops it.
#include "sync_prueba.h"

using namespace prueba_sync;

namespace {

class Tienda : public CajaConDias {
 public:
  Tienda() { maestros(*this); }
  // With `sql` run there before.
  QStringList traer(std::initializer_list<const char*> sql = {}) {
    for (const char* s : sql) ejecuta(central(), q(s));
    const Corrida c = sincronizar(*this, true);
    EXPECT_TRUE(c.bien);
    QStringList filas;
    for (const QString& l : c.lineas) {
      if (l.contains(q(": "))) filas << l;
    }
    return filas;
  }
  QString productos() {
    return filas(
        q("SELECT cProdCode, sProdDesc, nProdPrecUnit, cProdEstd, nActivo, cFlagServicio, vDescProv, sDescLinea "
          "FROM Producto ORDER BY cProdCode"));
  }
};

}  // namespace

TEST(Maestros, AFirstLoadAndADayBehindIt) {
  Tienda p;
  p.ejecuta(q("UPDATE Sincronizacion SET dFechSincro = Null"));
  p.ejecuta(q("INSERT INTO Cliente (cClieCode, IdLocal, sClieApel) VALUES (5, 0, 'SIN LOCAL')"));
  // clang-format off
  EXPECT_EQ((QStringList{q("Se inserto UM de código: UND"),
                         q("Se insertó Artículo de código: 000101"), q("Se insertó Artículo de código: 000206"),
                         q("Se insertó Artículo de código: 1234567"), q("No se pudo insertar Artículo de código: 00X"),
                         q("Se insertó Cliente de código: 5"), q("Se insertó Cliente de código: 5"),
                         q("Se insertó Tarjeta de número: 00000005")}), p.traer());
  // clang-format on
  EXPECT_EQ(q("101|QUESO|38|1|1|1|GRANJA D'ORO|QUESOS\n206|AGUA|3|1|1|1|GRANJA D'ORO|QUESOS\n"
              "1234567|LARGO|1|1|1|1|GRANJA D'ORO|QUESOS"),
            p.productos());
  EXPECT_EQ(q("5|1|O'HIGGINS|1|20|1\n5|2|RÍOS|2|0|1"),
            p.filas(q("SELECT cClieCode, IdLocal, sClieApel, iTipo, nPuntCant, cSincroFlag FROM Cliente ORDER BY 2")));
  EXPECT_TRUE(p.traer().filter(q("Se ")).isEmpty());
  // The next day: all kinds of change, each once.
  p.elReloj().ahora = p.elReloj().ahora.addDays(1);
  p.ejecuta(q("INSERT INTO ConfiguracionTeclado (cTeclCode, cTeclFlagAsig, cProdCode) VALUES (1, '1', 206)"));
  cambiosDeMaestros(p);
  // clang-format off
  EXPECT_EQ((QStringList{q("Se actualizó UM de código: UND"),
                         q("No se pudo insertar Artículo de código: 00X"), q("Se insertó Artículo de código: 000301"),
                         q("Se actualizó Artículo de código: 000101"),
                         q("Se inhabilitó Artículo de código: 206"),
                         q("Se insertó Cliente de código: 6"), q("Se actualizó Cliente de código: 5"),
                         q("Se actualió Tarjeta de número: 00000005")}),
            p.traer());
  // clang-format on
  EXPECT_EQ(q("1|0|0"), p.filas(q("SELECT cTeclCode, cTeclFlagAsig, cProdCode FROM ConfiguracionTeclado")));
  EXPECT_EQ(q("40|1"), p.filas(q("SELECT nProdPrecUnit, nActivo FROM Producto WHERE cProdCode = 101")));
  EXPECT_EQ(q("O'HIGGINS\nPAZ"), p.filas(q("SELECT sClieApel FROM Cliente WHERE cClieCode = 5 ORDER BY IdLocal")));
  // A row of the watermark's own day that changed after it was taken comes again.
  EXPECT_EQ((QStringList{q("Se actualizó Cliente de código: 6")}),
            p.traer({"UPDATE Cliente SET sClieApel = 'SOL', dFechModi = '2026-11-25 23:00' WHERE cClieCode = 6",
                     "UPDATE UnidadMedida SET dFechModi = '20261101'",
                     "UPDATE Articulo SET dFechModi = '20261101', "
                     "dFechCrea = '20261101'",
                     "UPDATE Tarjeta SET dFechModi = '20261101'"}));
  EXPECT_EQ(
      (QStringList{q("Se inhabilitó Artículo de código: 101")}),
      p.traer({"UPDATE Articulo SET bFlagVenta = 0 WHERE cCodartic = '000101'", "DELETE FROM Cliente WHERE cClieCode "
                                                                                "= 6"}));
  EXPECT_EQ((QStringList{q("Se habilitó Artículo de código: 101")}),
            p.traer({"UPDATE Articulo SET bFlagVenta = 1, vDscartic = 'DE VUELTA' WHERE cCodartic = '000101'"}));
  EXPECT_TRUE(p.productos().startsWith(q("101|DE VUELTA|40|1|1|")));
}

// Copies from before customers had a site: a change reaches the store, and a copy goes once all sites of its code are
// here.
TEST(Maestros, CopiesWithoutASiteGiveWay) {
  Tienda p;
  p.ejecuta(q("UPDATE Sincronizacion SET dFechSincro = '2026-11-23'"));
  p.ejecuta(q("DELETE FROM Tarjeta"));
  for (const char* sql :
       {"INSERT INTO Cliente (cClieCode, IdLocal, sClieApel) VALUES (5, 0, 'ANTES'), (8, 0, 'OTRA')",
        "INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi) VALUES (8, 0, '00000008', 1)"}) {
    p.ejecuta(q(sql));
  }
  (void)p.traer(
      {"UPDATE Cliente SET sClieApel = 'AHORA', dFechModi = '2026-11-24 08:00' WHERE cClieCode = 5 AND IdLocal = 1",
       "INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, dFechCrea, dFechModi) VALUES (8, 1, 'OTRA', '2026-01-05', "
       "'2026-11-24 08:00')",
       "INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dFechCrea, dFechModi) VALUES (8, 1, '00000008', "
       "0, '2026-01-05', '2026-11-24 08:00')"});
  EXPECT_EQ(q("5|0|ANTES\n5|1|AHORA\n8|1|OTRA"),
            p.filas(q("SELECT cClieCode, IdLocal, sClieApel FROM Cliente ORDER BY 1, 2")));
  EXPECT_EQ(q("8|1|00000008|0"), p.filas(q("SELECT cClieCode, IdLocal, nTarjNumb, cTarjActi FROM Tarjeta")));
}

// However many prices an article has had.
TEST(Maestros, APriceThatMovedAlone) {
  for (const int viejos : {0, 20}) {
    Tienda p;
    p.ejecuta(q("UPDATE Sincronizacion SET dFechSincro = Null"));
    (void)p.traer();
    for (int i = 0; i < viejos; ++i) {
      p.ejecuta(p.central(), q("INSERT INTO ArticuloPrecioVenta VALUES ('000206', %1, 7)").arg(-i));
    }
    EXPECT_EQ((QStringList{q("Se actualizó Artículo de código: 000101")}),
              p.traer({"INSERT INTO ArticuloPrecioVenta VALUES ('000101', 3, 38.5)",
                       "INSERT INTO ArticuloPrecioVenta VALUES ('000206', 3, Null)"}));
    EXPECT_EQ(q("101|38.5\n206|3\n1234567|1"), p.filas(q("SELECT cProdCode, nProdPrecUnit FROM Producto ORDER BY 1")));
  }
}

// Stopped between two rows: what came stays, and so does the watermark.
TEST(Maestros, APullThatIsStopped) {
  Tienda p;
  FrmUpdt v(p);
  v.detener = [&v] { return v.lineas > 3; };
  p.ejecuta(q("UPDATE Sincronizacion SET dFechSincro = Null"));
  p.ses.pbSincronizaMaestros = true;
  EXPECT_FALSE(Sincronizar(p, v));
  EXPECT_EQ(q("101"), p.filas(q("SELECT cProdCode FROM Producto")));
  EXPECT_EQ(q("Null"), p.filas(q("SELECT dFechSincro FROM Sincronizacion")));
}

// Many rows at once leave the same store and say the same as one by one, odd ones and those that fail included.
TEST(Maestros, ManyRowsAtOnceAreTheSameRows) {
  const auto traer = [](bool enLotes) {
    Tienda p;
    p.ejecuta(q("UPDATE Sincronizacion SET dFechSincro = Null"));
    p.ejecuta(q("INSERT INTO Cliente (cClieCode, IdLocal, sClieApel) VALUES (1030, 1, 'YA ESTABA')"));
    for (const char* sql :
         {"INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, sClieTelf, dNacmDate, nPuntCant, iTipo) "
          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 60) SELECT 1000 + i, 1, "
          "CASE i % 4 WHEN 0 THEN NULL WHEN 1 THEN ' D''ORO ' WHEN 2 THEN 'Ñandú €' ELSE '$5 {x} ' || char(64976) END, "
          "'N' || i, i * 1111111, CASE WHEN i % 3 = 0 THEN NULL ELSE datetime('1950-01-01', '+' || i || ' months') "
          "END, CASE i % 5 WHEN 0 THEN NULL WHEN 1 THEN -i ELSE i / 8.0 END, i % 2 FROM n",
          "INSERT INTO Articulo (cCodartic, vDscartic, bSwActivo, cFlagCanje, nPtosxItem, dFechCrea) "
          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 60) SELECT CASE i WHEN 7 THEN "
          "'00Y' ELSE printf('%06d', 2000 + i) END, 'ART ''' || i, i % 2, i % 3, i / 4.0, '2026-01-05' FROM n",
          "INSERT INTO ArticuloPrecioVenta SELECT cCodartic, 1, rowid/7.0 FROM Articulo WHERE vDscartic LIKE 'ART%'"}) {
      p.ejecuta(p.central(), q(sql));
    }
    FrmUpdt v(p);
    v.enLotes = enLotes;
    p.ses.pbSincronizaMaestros = true;
    EXPECT_TRUE(Sincronizar(p, v));
    QStringList todo(v.lstLog.cbegin(), v.lstLog.cend());
    EXPECT_TRUE(todo.contains(q("No se pudo insertar Cliente de código: 1030")));
    EXPECT_TRUE(todo.contains(q("No se pudo insertar Artículo de código: 00Y")));
    todo
        << p.filas(q("SELECT *, typeof(sClieApel), typeof(sClieTelf), typeof(dNacmDate), typeof(nPuntCant) "
                     "FROM Cliente ORDER BY cClieCode, IdLocal"))
               .split(u'\n')
        << p.filas(q("SELECT *, typeof(nPuntos), typeof(nProdPrecUnit) FROM Producto ORDER BY cProdCode")).split(u'\n');
    return todo;
  };
  const QStringList lotes = traer(true), una = traer(false);
  ASSERT_EQ(una.size(), lotes.size());
  for (qsizetype i = 0; i < una.size(); ++i) EXPECT_EQ(una[i], lotes[i]);
  EXPECT_FALSE(lotes.filter(q("|D'ORO|N1|")).isEmpty());
}
