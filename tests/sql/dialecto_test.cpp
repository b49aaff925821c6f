// The dialect layer, judged by answers: statement in, rows or error out.
#include <gtest/gtest.h>

#include "apoyo/puesto_prueba.h"

namespace {

struct Caso {
  const char *porque, *sql, *sale;
};

class Dialecto : public testing::Test {
 protected:
  Dialecto() {
    p.articulo(1, QStringLiteral("Ñandú asado"), 12.5, true, QStringLiteral("1.25.003"));
    p.articulo(2, QStringLiteral("papa"), 5, false, QStringLiteral("P-2"));
    p.ejecuta(QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('03/04/2025', '3.50')"));
    p.ejecuta(QStringLiteral("INSERT INTO Operacion (cOperCode, cProdCode, nProdCant, nProdPrecUnit, dOperFech, cOperTipo, "
                             "cDocTipo, cCajaCodi) VALUES (7, 1, 3, 10, '24/11/2026 10:30', 1, '02', '00001')"));
    EXPECT_FALSE(central.abrir(p.motores, p.ses.psConexionCentral, 1000));
    p.ejecuta(central, QStringLiteral("DELETE FROM parametro"));
    p.ejecuta(central, QStringLiteral("INSERT INTO parametro (cCodParam, nmonto1) VALUES ('IGV', 18)"));
  }

  template <size_t N>
  void comprobar(Conexion& cnn, const Caso (&casos)[N]) {
    for (const Caso& c : casos) {
      SCOPED_TRACE(c.porque);
      SCOPED_TRACE(c.sql);
      const QString sale = p.filas(cnn, QString::fromUtf8(c.sql));
      const QString quiere = QString::fromUtf8(c.sale);
      if (quiere == u"error") {
        EXPECT_TRUE(sale.startsWith(u"error: ")) << qPrintable(sale);
      } else {
        EXPECT_EQ(quiere.toStdString(), sale.toStdString());
      }
    }
  }

  PuestoPrueba p;
  Conexion central;
};

TEST_F(Dialecto, Jet) {
  const Caso kCasos[] = {
      {"month first between #", "SELECT FORMAT(#03/04/2025#, 'dd/mm/yyyy')", "04/03/2025"},
      {"an impossible month between #", "SELECT FORMAT(#25/04/2025#, 'dd/mm/yyyy')", "25/04/2025"},
      {"a date text is day first", "SELECT FORMAT(dTipoCambFech, 'yyyy/mm/dd') FROM Tipo_Cambio", "2025/04/03"},
      {"a date masked in a condition", "SELECT nTipoCambMont FROM Tipo_Cambio WHERE FORMAT(dTipoCambFech, 'yyyy/mm/dd') "
       "= '2025/04/03'", "3.5"},
      {"a text is no statement", "SELECT 'IIF(1,2) #01/02/2025# a+b'", "IIF(1,2) #01/02/2025# a+b"},
      {"no rows: SUM is Null", "SELECT IIF(SUM(nProdCant) IS NULL, 'Null', '0') FROM Operacion WHERE 1=0", "Null"},
      {"ISNULL with one argument", "SELECT IIF(ISNULL(MAX(cOperID)),0, MAX(cOperID)) as x FROM Operacion Where "
       "coperflagabierto = 0 ", "0"},
      {"no case, either wildcard", "SELECT COUNT(*) FROM Producto WHERE sProdDesc LIKE '*ÑANDÚ%'", "1"},
      {"no case after TRIM", "SELECT cProdCode FROM Producto WHERE TRIM(sProdDesc) = 'ñandú ASADO'", "1"},
      {"no case in plain text", "SELECT cProdCode FROM Producto WHERE sProdDesc = 'PAPA'", "2"},
      {"+ joins texts", "SELECT 'a' + Chr(39) + 'b'", "a'b"},
      {"+ adds numbers", "SELECT cOperCode + 1 as n FROM Operacion", "8"},
      {"text beside a number", "SELECT cOperCode FROM Operacion WHERE cOperCode = '7' AND cOperFlagAbierto = '1'", "7"},
      {"a number beside text", "SELECT cOperCode FROM Operacion WHERE cFlagSincronizacion = 0", "7"},
      {"dates compare", "SELECT COUNT(*) FROM Operacion WHERE dOperFech < #11/25/2026#", "1"},
      {"a Null date compares with nothing", "SELECT COUNT(*) FROM Operacion WHERE dOperFech < (SELECT max(fec) FROM _Tmp)",
       "0"},
      {"a date column comes back as a date", "SELECT MAX(dOperFech) AS m FROM Operacion", "2026-11-24 10:30:00"},
      {"union of two maxima", "SELECT 1 as Orden,Max(dOperFech) AS F FROM Operacion UNION SELECT 2 as Orden,  "
       "Max(dOperFech) AS G From Operacionparalela ORDER BY orden", "1|2026-11-24 10:30:00\n2|Null"},
      {"whole division is no whole number", "SELECT 3 / 2", "1.5"},
      {"amount of a line", "SELECT sum((O.nProdCant * O.nProdPrecUnit)+ ((O.nProdCant * O.nProdPrecUnit) * O.nDscto/100)) "
       "FROM Operacion O", "30"},
      {"names without case", "select COPERCODE from OPERACION", "7"},
      {"brackets", "SELECT [cOperCode] FROM [Operacion]", "7"},
      {"a second statement is refused", "SELECT 1; DELETE FROM Operacion", "error"},
      {"a trailing semicolon is not one", "SELECT cOperCode FROM Operacion;", "7"},
      {"an unknown word is an error", "SELECT NOEXISTE(1)", "error"},
      {"double quotes are text here", "SELECT \"hola\"", "hola"},
      {"TRIM on both sides of a number", "SELECT nsmr FROM _Tmp1 WHERE TRIM(prn) = TRIM(2)", "SER-2"},
  };
  comprobar(p.poCnnLocal, kCasos);
}

TEST_F(Dialecto, TransactSql) {
  const Caso kCasos[] = {
      {"ISNULL with two arguments", "select isnull(max(cast(NroDoc as int)),0) as maximo from venta01  WHERE "
       "cCodCaja='00001' AND TipoDoc in ('01','02')", "0"},
      {"field of a named row", "select nmonto1 from parametro where cCodParam='igv'", "18"},
      {"style 103", "SELECT CONVERT(varchar, CONVERT(DATETIME,'25/11/2026',103), 112)", "20261125"},
      {"whole division stays whole", "SELECT 3 / 2", "1"},
      {"a name before an expression", "SELECT total = nmonto1 * 2 FROM parametro", "36"},
      {"Null joins to Null", "SELECT isnull('a' + NULL, 'Null')", "Null"},
      {"owner in front of a table", "SELECT COUNT(*) FROM dbo.parametro", "1"},
      {"TOP", "SELECT TOP 1 cCodParam FROM parametro", "IGV"},
      {"the desk's clock", "SELECT CONVERT(varchar, GETDATE(), 103)", "24/11/2026"},
      {"series by desk", "select CDocSerie, MAX(cDoccodigo) as nDoccodigo From operacion where cCajaCodi='00001' and "
       "ltrim(rtrim(isnull(CDocSerie,''))) <> '' group by CDocSerie", ""},
  };
  comprobar(central, kCasos);
}

TEST_F(Dialecto, DateTextsGoIntoDateColumnsDayFirst) {
  p.ejecuta(QStringLiteral("INSERT INTO _Tmp (idz, tvd, fec, prn) VALUES (1, 10, '05/03/2026 22:10', 1)"));
  p.ejecuta(QStringLiteral("INSERT INTO _Tmp (idz, tvd, fec, prn) VALUES (2, 10, '28/02/2026 23:59', 1)"));
  EXPECT_EQ(QStringLiteral("2026-03-05 22:10:00"), p.filas(QStringLiteral("SELECT max(fec) FROM _Tmp")));
  p.ejecuta(QStringLiteral("UPDATE _Tmp SET _Tmp.fec = '2026/03/06 08:00' WHERE idz='2'"));
  EXPECT_EQ(QStringLiteral("2026-03-06 08:00:00"), p.filas(QStringLiteral("SELECT max(fec) FROM _Tmp")));
  p.ejecuta(QStringLiteral("DELETE * FROM _Tmp WHERE fec < #03/06/2026#"));
  EXPECT_EQ(QStringLiteral("2"), p.filas(QStringLiteral("SELECT idz FROM _Tmp")));
}

TEST_F(Dialecto, ProceduresAnswerInEveryFormOfCall) {
  for (const char* llamada : {"exec dbo.spr_insertar_cabecera_z1 '00001', -1", "dbo.spr_insertar_cabecera_z1 '00001', -2",
                              "spr_insertar_cabecera_z1 '00001', -2"}) {
    Recordset rs;
    const auto error = central.consultar(QString::fromLatin1(llamada), rs);
    ASSERT_FALSE(error) << llamada << ": " << qPrintable(error ? error->descripcion : QString());
    EXPECT_GT(rs[u"idZ1"].toLongLong(), 0) << llamada;
  }
}

}  // namespace
