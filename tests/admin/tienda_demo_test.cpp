#include "apoyo_admin.h"
#include "platform/text/texto.h"

namespace {

class TiendaDemo : public CarpetaTemporal {
 protected:
  void SetUp() override {
    DatosPuesto d = datos(en("p"));
    d.demo = true;
    creaPuesto(d);
    // One connection sees the three databases at once.
    db = AbrirSqlite(en("p/TarvoPos.mdb"), SQLITE_OPEN_READWRITE, error);
    ASSERT_TRUE(db);
    for (const char* otra : {"central", "cliente"}) {
      da(u8("ATTACH '%1' AS %2").arg(en("p/") + u8(otra) + u8(".db"), u8(otra)));
    }
  }
  QString da(const QString& sql) {
    QList<QStringList> f;
    if (!FilasSqlite(db.get(), sql, f, error)) return u8("error: ") + error;
    QStringList lineas;
    for (const QStringList& fila : f) lineas << fila.join(u'|');
    return lineas.join(u'\n');
  }
  BaseSqlite db;
  QString error;
};

// What a first synchronisation would change is what store and server disagree on: nothing.
TEST_F(TiendaDemo, StoreAndServersAgree) {
  const struct { const char *porque, *sql; } kNinguna[] = {
      {"catalogue",
       "SELECT p.cProdCode FROM Producto p LEFT JOIN central.Articulo a ON a.cCodartic = substr('000000' || p.cProdCode, -6) "
       "WHERE a.cCodartic IS NULL OR p.sProdDesc <> a.vDscartic OR p.sProdDescCrta <> a.vDscartCt "
       "OR p.cCodCatalogo <> a.cCodCatal OR p.cProdEstd = a.bSwActivo OR p.nActivo <> (a.bFlagVenta = 1 AND a.bFlagDesc = 0) "
       "OR p.cFlagServicio <> a.nFlagServ OR p.nPuntos <> a.nPtosxItem OR p.cFlagDetracc <> a.bFlagDetracc"},
      {"prices, the newest of the server's",
       "SELECT p.cProdCode FROM Producto p WHERE nProdPrecUnit <> (SELECT nPrecioVtaNew FROM central.ArticuloPrecioVenta b "
       "WHERE b.cCodArtic = substr('000000' || p.cProdCode, -6) ORDER BY nNumItem DESC LIMIT 1)"},
      {"lines and suppliers",
       "SELECT p.cProdCode FROM Producto p JOIN central.Articulo a ON a.cCodartic = substr('000000' || p.cProdCode, -6) "
       "LEFT JOIN central.LINEA l USING (CCODLINEA) LEFT JOIN central.Proveedor v USING (cCodProve) "
       "WHERE p.sDescLinea IS NOT l.vDscLinea OR p.vDescProv IS NOT v.vRazSocPrv"},
      {"articles that only the server has",
       "SELECT cCodartic FROM central.Articulo WHERE CAST(cCodartic AS INTEGER) NOT IN (SELECT cProdCode FROM Producto)"},
      {"units", "SELECT cUndSalida FROM Producto WHERE cUndSalida NOT IN (SELECT cUndmedid FROM UnidadMedida)"},
      {"nothing is newer than the last pull",
       "SELECT dFechModi FROM central.Articulo, Sincronizacion WHERE max(dFechCrea, dFechModi) >= dFechSincro UNION "
       "SELECT dFechModi FROM central.Cliente, Sincronizacion WHERE max(dFechCrea, dFechModi) > dFechSincro"},
      {"customers with their cards in the client database",
       "SELECT cClieCode FROM central.Cliente EXCEPT SELECT c.cClieCode FROM cliente.Cliente c JOIN cliente.Tarjeta t "
       "ON t.cClieCode = c.cClieCode AND t.IdLocal = c.IdLocal"},
      {"a customer's name would double a line of the register",
       "SELECT t.nTarjNumb FROM Cliente c JOIN Tarjeta t ON c.cClieCode = t.cClieCode GROUP BY 1 HAVING count(*) > 1"},
      {"an article on two keys would count twice in the reports",
       "SELECT cProdCode FROM ConfiguracionTeclado WHERE cProdCode <> 0 GROUP BY 1 HAVING count(*) > 1"},
      {"keys of articles that can't be sold",
       "SELECT k.cTeclCode FROM ConfiguracionTeclado k LEFT JOIN Producto p USING (cProdCode) "
       "WHERE k.cProdCode <> 0 AND (p.cProdCode IS NULL OR p.cProdEstd <> 1 OR p.nActivo <> 1)"},
      {"texts that a pull could not write", "SELECT cProdCode FROM Producto WHERE sProdDesc LIKE '%''%'"},
  };
  for (const auto& c : kNinguna) EXPECT_EQ("", texto(da(u8(c.sql)))) << c.porque;
}

TEST_F(TiendaDemo, HasWhatADayNeeds) {
  const struct { const char *porque, *sql, *sale; } kCasos[] = {
      {"the day's rate", "SELECT nTipoCambMont FROM Tipo_Cambio WHERE dTipoCambFech = '2026-11-24 00:00:00'", "3.75"},
      {"the day after has none", "SELECT count(*) FROM Tipo_Cambio WHERE dTipoCambFech LIKE '2026-11-25%'", "0"},
      {"and the one behind it has", "SELECT count(*) FROM Tipo_Cambio WHERE dTipoCambFech LIKE '2026-11-26%'", "1"},
      {"some sixty articles", "SELECT count(*) BETWEEN 55 AND 70 FROM Producto", "1"},
      {"with and without service, points, detraction; refused and withdrawn ones",
       "SELECT sum(cFlagServicio) > 9, sum(1 - cFlagServicio) > 9, sum(nPuntos > 0 AND cFlagCanje) > 1, "
       "sum(nPuntos > 0 AND NOT cFlagCanje) > 1, sum(cFlagDetracc) > 1, sum(cProdEstd = 0), sum(nActivo = 0) > 1 FROM Producto",
       "1|1|1|1|1|1|1"},
      {"a redemption article costs nothing", "SELECT nProdPrecUnit, cProdFlagFicha FROM Producto WHERE cProdFlagCanje = 1",
       "0.0|1"},
      {"catalogue codes with points in them", "SELECT cProdCode FROM Producto WHERE cCodCatalogo = '1.25.003'", "203"},
      {"22 keys to press, two of 24 free, more behind",
       "SELECT sum(cTeclCode <= 24 AND cTeclFlagAsig = '1'), sum(cTeclCode <= 24), count(*) > 24 FROM ConfiguracionTeclado",
       "22|24|1"},
      {"who works there", "SELECT sUserDesc, cPerfCode, cUserActi FROM Usuario ORDER BY 1",
       "CAJERO|2|1\nPRACTICANTE|2|0\nSUPERVISOR|1|1"},
      {"raw printing with cutter and drawer",
       "SELECT sImpresora, nFlagCortaPapel, nFlagCortaPapelALT, PuertoPrinter, GAVETA, PRINTER FROM Configuracion",
       "Ticketera|1|1|LPT1|S|EPSON"},
      {"live, expired and inactive cards on the demo's day",
       "SELECT sum(cTarjActi = 1 AND dCaduDate >= '2026-11-24'), sum(dCaduDate < '2026-11-24'), sum(cTarjActi = 0) "
       "FROM cliente.Tarjeta", "6|1|1"},
      {"a card runs for a year less a day", "SELECT count(*) FROM cliente.Tarjeta WHERE date(dEmisDate, '+1 year', '-1 day') "
       "|| ' 00:00:00' <> dCaduDate", "0"},
      {"one card in two sites", "SELECT nTarjNumb, count(*) FROM cliente.Tarjeta GROUP BY 1 HAVING count(*) > 1",
       "00000007|2"},
      {"customers that earn and others", "SELECT DISTINCT iTipo FROM cliente.Cliente ORDER BY 1", "1\n2\n3"},
  };
  for (const auto& c : kCasos) EXPECT_EQ(c.sale, texto(da(u8(c.sql)))) << c.porque;
}

// Paper is single-byte text of 39 columns.
TEST_F(TiendaDemo, EveryTextCanBePrinted) {
  const QString textos = da(u8("SELECT sProdDesc FROM Producto UNION ALL SELECT sProdDescCrta FROM Producto UNION ALL "
                               "SELECT sCabeDescripcion FROM Cabecera_Impresion UNION ALL SELECT sClieApel FROM cliente.Cliente"));
  EXPECT_EQ(texto(textos), texto(DeUnByte(AUnByte(textos))));
  for (const QString& t : textos.split(u'\n')) EXPECT_LE(t.size(), 39) << texto(t);
}

}  // namespace
