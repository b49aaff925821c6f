#include "platform/ui/lista.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QStandardItemModel>

#include "apoyo/formas.h"
#include "platform/ui/pintor_celda.h"

namespace {

QString orden(const Lista& l, int columna) {
  QStringList r;
  for (int n = 0; n < l.filas(); ++n) r << l.fila(n).celdas.value(columna);
  return r.join(u' ');
}

}  // namespace

TEST(Lista, SortsByTheClassOfTheColumn) {
  Lista l("lvw",
          {{"Nombre", 0.4}, {"Fecha", 0.3, false, ColumnaLista::Fecha}, {"Monto", 0.3, true, ColumnaLista::Numero}});
  l.llenar({{{"Ñandú", "02/01/2026", "1,000.00"}, 1, true},
            {{"nube", "10/12/2025", "99.50"}, 2, true},
            {{"Oso", "01/02/2026", "-3.00"}, 3, true},
            {{"Árbol", "", "99.50"}, 4, true}});
  // clang-format off
  const struct { const char *porque; int columna; const char* sale; } casos[] = {
      {"accents and case aside, Ñ after N", 0, "Árbol nube Ñandú Oso"},
      {"a second click turns it round", 0, "Oso Ñandú nube Árbol"},
      {"day before month; no date comes first", 1, "Árbol nube Ñandú Oso"},
      {"numbers, not texts; equal ones keep their order", 2, "Oso Árbol nube Ñandú"},
  };
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    l.ordenar(c.columna);
    EXPECT_EQ(QString::fromUtf8(c.sale), orden(l, 0));
  }
}

TEST(Lista, MakesCellsWhenTheyAreAskedFor) {
  Lista l("lvw", {{"Numero", 1.0, false, ColumnaLista::Numero}});
  std::vector<FilaLista> filas;
  for (int n = 0; n < 1000; ++n) filas.push_back({{}, n, true});
  int hechas = 0;
  l.llenar(std::move(filas), [&hechas](const QVariant& n) {
    ++hechas;
    return QStringList{QString::number(n.toInt() % 7)};
  });
  mostrar(l);
  EXPECT_GT(hechas, 0);
  EXPECT_LT(hechas, 200) << "those that are seen";
  EXPECT_EQ("5", l.fila(999).celdas.join(u'|'));
  l.ordenar(0);
  EXPECT_EQ(1000, hechas) << "once each";
  EXPECT_EQ("0", l.fila(0).celdas.join(u'|'));
  EXPECT_EQ(999, l.fila(857).clave.toInt()) << "the rows of 5 end with the last";
}

TEST(Lista, TheSelectedRowStaysSelected) {
  Lista l("lvw", {{"Nombre", 1.0}});
  std::vector<int> avisos;
  QObject::connect(&l, &Lista::cambioActual, [&](int n) { avisos.push_back(n); });
  l.llenar({{{"b"}, 1, true}, {{"c"}, 2, true}, {{"a"}, 3, true}});
  l.elegir(1);
  l.ordenar(0);
  EXPECT_EQ(2, l.actual()) << "c is the last now, and still the selected one";
  l.quitar(2);
  EXPECT_EQ(1, l.actual());
  l.quitar(0);
  l.quitar(0);
  EXPECT_EQ(-1, l.actual());
  ASSERT_FALSE(avisos.empty());
  EXPECT_EQ(-1, avisos.back()) << "the buttons must learn that nothing is left";
  l.agregar({{"z"}, 9, true});
  EXPECT_EQ(0, l.actual());
}

TEST(Lista, EnterOpensTheRow) {
  Lista l("lvw", {{"Nombre", 1.0}});
  l.llenar({{{"a"}, 1, true}, {{"b"}, 2, true}});
  mostrar(l);
  l.setFocus();
  int abierta = -1;
  QObject::connect(&l, &Lista::elegida, [&](int n) { abierta = n; });
  tecla(Qt::Key_Down);
  tecla(Qt::Key_Return);
  EXPECT_EQ(1, abierta);
}

// At the very edge of its column too: an ellipsis has nothing in the upper half of the last place, a digit has.
TEST(Lista, AFigureThatDoesNotFitShrinks) {
  const QString figura = QStringLiteral("1752.28");
  QStandardItemModel modelo(1, 1);
  modelo.setData(modelo.index(0, 0), figura);
  modelo.setData(modelo.index(0, 0), int(Qt::AlignRight), Qt::TextAlignmentRole);
  QStyleOptionViewItem o;
  for (int sobra = -6; sobra <= 4; ++sobra) {
    const int ancho = QFontMetrics(o.font).horizontalAdvance(figura) + 12 + sobra;
    o.rect = QRect(0, 0, ancho, 30);
    QImage imagen(o.rect.size(), QImage::Format_RGB32);
    QPainter p(&imagen);
    PintorCelda().paint(&p, o, modelo.index(0, 0));
    p.end();
    bool tinta = false;
    for (int x = ancho - 13; x < ancho - 6; ++x) {
      for (int y = 9; y < 15; ++y) tinta = tinta || imagen.pixelColor(x, y).lightness() < 128;
    }
    EXPECT_TRUE(tinta) << sobra;
  }
}
