#include "platform/ui/rejilla.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "apoyo/formas.h"
#include "platform/ui/forma.h"

namespace {

// A register in small: item (locked), code, quantity, a button, description (locked).
class Ventana : public Forma {
 public:
  std::vector<std::vector<QString>> filas{{"", "", "", "", ""}};
  std::vector<QString> dejadas;  // "row,column=text"
  QString rechaza = QStringLiteral("mal");
  QString pulsado;
  int f5 = 0, espacio = 0;
  Rejilla* rejilla;

  Ventana() : Forma("frmPrueba", "Prueba") {
    rejilla = new Rejilla(
        "TDBGrid1",
        {{"It", 40},
         {"Código", 90, false, true},
         {"Cant.", 80, true, true},
         {"", 40, false, false, true},
         {"Artículo", 0}},
        {[this] { return int(filas.size()); }, [this](int f, int c) { return filas[size_t(f)][size_t(c)]; }});
    rejilla->salir = [this](int f, int c, QString& texto) {
      dejadas.push_back(QStringLiteral("%1,%2=%3").arg(f).arg(c).arg(texto));
      if (texto == rechaza) return false;
      filas[size_t(f)][size_t(c)] = texto.toUpper();
      return true;
    };
    rejilla->pulsar = [this](int f, int c) { pulsado = QStringLiteral("%1,%2").arg(f).arg(c); };
    tecla(
        QKeyCombination(Qt::Key_F5), [this] { ++f5; }, "artículo");
    tecla(QKeyCombination(Qt::Key_Space), [this] { ++espacio; });
    cuerpo()->addWidget(rejilla);
    resize(640, 400);
    rejilla->setFocus();
  }
  QLineEdit* editor() { return rejilla->findChild<QLineEdit*>("editorCelda"); }
};

}  // namespace

TEST(Rejilla, TypingReplacesAndEnterGoesOn) {
  Ventana v;
  mostrar(v);
  v.filas = {{"1", "viejo", "1.00", "", "Pan"}, {"", "", "", "", ""}};
  v.rejilla->refrescar();
  ASSERT_TRUE(v.rejilla->irA({0, 1}));
  escribe("ab");
  EXPECT_EQ("ab", v.editor()->text()) << "the first character replaces what stood there";
  tecla(Qt::Key_Return);
  EXPECT_EQ(std::vector<QString>{"0,1=ab"}, v.dejadas);
  EXPECT_EQ("AB", v.rejilla->model()->index(0, 1).data().toString()) << "what the caller stored is shown";
  EXPECT_EQ((CeldaRejilla{0, 2}), v.rejilla->celda());
  EXPECT_EQ("TDBGrid1", foco());
  tecla(Qt::Key_Return);
  EXPECT_EQ((CeldaRejilla{1, 1}), v.rejilla->celda()) << "the next row's first cell that can be typed in";
  escribe("x");
  tecla(Qt::Key_Escape);
  EXPECT_EQ("", v.filas[1][1]);
  EXPECT_TRUE(v.isVisible()) << "Esc in a cell is not Esc of the screen";
  tecla(Qt::Key_Escape);
  EXPECT_FALSE(v.isVisible());
}

TEST(Rejilla, ARefusedTextKeepsTheEditor) {
  Ventana v;
  auto* otro = nuevoBoton("otro", "Otro", {}, &v);
  v.layout()->addWidget(otro);
  mostrar(v);
  v.rejilla->irA({0, 1});
  escribe("mal");
  tecla(Qt::Key_Return);
  ASSERT_TRUE(v.rejilla->editando());
  EXPECT_EQ("mal", v.editor()->property("estado").toString());
  EXPECT_EQ("editorCelda", foco());
  // Neither the mouse elsewhere nor Tab gets past it.
  v.dejadas.clear();
  QTest::mouseClick(v.rejilla->viewport(), Qt::LeftButton, {},
                    v.rejilla->visualRect(v.rejilla->model()->index(0, 2)).center());
  QCoreApplication::processEvents();
  EXPECT_EQ("editorCelda", foco());
  EXPECT_EQ((CeldaRejilla{0, 1}), v.rejilla->celda());
  EXPECT_EQ(1u, v.dejadas.size()) << "asked once a try";
  otro->setFocus();
  QCoreApplication::processEvents();
  EXPECT_EQ("editorCelda", foco());
  escribe("b");
  EXPECT_FALSE(v.editor()->property("estado").isValid()) << "the stop colour goes with the first change";
  tecla(Qt::Key_Tab);
  EXPECT_FALSE(v.rejilla->editando());
  EXPECT_EQ("B", v.filas[0][1]);
}

TEST(Rejilla, KeysOfTheScreenPass) {
  Ventana v;
  mostrar(v);
  v.rejilla->irA({0, 1});
  tecla(Qt::Key_F5);
  tecla(Qt::Key_Space);
  EXPECT_EQ(1, v.f5);
  EXPECT_EQ(1, v.espacio);
  EXPECT_FALSE(v.rejilla->editando());
  escribe("a");
  tecla(Qt::Key_F5);
  EXPECT_EQ(2, v.f5);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(1, v.espacio) << "a blank that is typed stays a blank";
  EXPECT_EQ("a ", v.editor()->text());
  tecla(Qt::Key_Escape);
  v.rejilla->irA({0, 0});
  escribe("a");
  EXPECT_FALSE(v.rejilla->editando()) << "a locked column";
  v.rejilla->irA({0, 3});
  tecla(Qt::Key_Return);
  EXPECT_EQ("0,3", v.pulsado);
}

TEST(Rejilla, ShowsWhatTheRowsAre) {
  Ventana v;
  mostrar(v);
  v.filas.assign(3, {"1", "a", "1", "", "x"});
  v.rejilla->refrescar();
  EXPECT_EQ(3, v.rejilla->model()->rowCount());
  v.rejilla->irA({2, 1});
  escribe("z");
  v.filas.erase(v.filas.begin() + 1, v.filas.end());
  v.rejilla->refrescar();
  EXPECT_FALSE(v.rejilla->editando()) << "the row under the editor has gone";
  EXPECT_EQ(1, v.rejilla->model()->rowCount());
  EXPECT_EQ(0, v.rejilla->celda().fila);
}

TEST(Rejilla, AKeyRepaintsTheCellsThatChanged) {
  Ventana v;
  v.filas.assign(200, std::vector<QString>{"1", "0001", "1.00", "", "Artículo de prueba"});
  mostrar(v);
  v.rejilla->refrescar();
  int cambios = 0;
  QObject::connect(v.rejilla->model(), &QAbstractItemModel::dataChanged, &v,
                   [&](const QModelIndex& a, const QModelIndex& b) { cambios += b.column() - a.column() + 1; });
  v.filas[7][2] = "2.00";
  v.filas[7][4] = "Otro";
  v.rejilla->refrescar();
  EXPECT_EQ(3, cambios) << "columns 2 to 4 of one row";
  cambios = 0;
  v.rejilla->refrescar();
  EXPECT_EQ(0, cambios);
}
