#include "apoyo/casos.h"
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
  for (const auto& c : leerCasos("admin/demo_ninguna")) EXPECT_EQ("", texto(da(c["sql"]))) << c.donde();
}

TEST_F(TiendaDemo, HasWhatADayNeeds) {
  for (const auto& c : leerCasos("admin/demo_tiene")) EXPECT_EQ(c["sale"], da(c["sql"])) << c.donde();
}

// Paper is single-byte text of 39 columns.
TEST_F(TiendaDemo, EveryTextCanBePrinted) {
  const QString textos =
      da(u8("SELECT sProdDesc FROM Producto UNION ALL SELECT sProdDescCrta FROM Producto UNION ALL "
            "SELECT sCabeDescripcion FROM Cabecera_Impresion UNION ALL SELECT sClieApel FROM cliente.Cliente"));
  EXPECT_EQ(texto(textos), texto(DeUnByte(AUnByte(textos))));
  for (const QString& t : textos.split(u'\n')) EXPECT_LE(t.size(), 39) << texto(t);
}

}  // namespace
