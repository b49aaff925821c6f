// The papers of void and reprint against those typed by hand: tests/golden/anulaciones/<case>.caso fills the store,
// <case>.txt is what goes to the printer without the reset in front and the feed and cut behind.
#include "anulacion_prueba.h"
#include "apoyo/golden.h"
#include "voiding/reimpresion.h"

namespace {

class Papel : public testing::TestWithParam<std::string> {};

TEST_P(Papel, IsThePaperWeExpect) {
  const QString caso = QStringLiteral("anulaciones/") + QString::fromStdString(GetParam());
  PuestoConDocumentos p;
  PantallaTransaccion v;
  p.ejecuta(
      QStringLiteral("INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES (1, 'BODEGA EL MOLINO')"));
  for (const auto& [nombre, valor] : leerCaso(caso)) {
    if (nombre == u"sql") p.ejecuta(valor);
    else if (nombre == u"reimprime") v.uso = valor == u"si" ? Uso::Reimprimir : Uso::Anular;
    else if (nombre == u"alterno") v.chkAlterno = valor == u"si";
    else FAIL() << qPrintable(nombre);
  }
  v.txtTransaccion = QStringLiteral("1");
  BuscarTransaccion(p, v);
  EXPECT_FALSE(v.txtTexto.contains(u"ANULADA"));
  if (v.uso == Uso::Anular) Anular(p, v, p.jefe);
  else Reimprimir(p, v);
  EXPECT_EQ(v.uso == Uso::Anular, v.txtTexto.contains(u"TRANSACCION ANULADA"));
  EXPECT_EQ("", primeraDiferencia(conCorte(leerGolden(caso + QStringLiteral(".txt"))),
                                  p.papeles().papel[v.chkAlterno ? QStringLiteral("LPT2") : QStringLiteral("LPT1")]));
  EXPECT_FALSE(v.accion);
  EXPECT_EQ(v.uso == Uso::Anular ? QStringLiteral("1") : QStringLiteral("0"),
            p.filas(QStringLiteral("SELECT SUM(idct) FROM _Tmp1")));
}

INSTANTIATE_TEST_SUITE_P(Golden, Papel, testing::ValuesIn(nombresGolden("anulaciones")),
                         [](const auto& i) { return i.param; });

TEST(Papeles, EveryCaseHasItsPaper) {
  EXPECT_EQ(4u, nombresGolden("anulaciones").size());
  EXPECT_EQ(nombresGolden("anulaciones"), nombresGolden("anulaciones", ".txt"));
}

}  // namespace
