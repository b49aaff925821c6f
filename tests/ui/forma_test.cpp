#include "platform/ui/forma.h"
#include "platform/ui/indicios.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "apoyo/formas.h"
#include "platform/ui/anillo_foco.h"

namespace {

class Ventana : public Forma {
 public:
  Campo *a, *b;
  QPushButton* boton;
  int pulsado = 0, f2 = 0, altA = 0, supr = 0;
  bool cierra = true;

  Ventana() : Forma("frmPrueba", "Prueba") {
    auto* panel = new Panel;
    a = panel->campo("txtA", "&Alfa");
    b = panel->importe("txtB", "&Beta");
    boton = nuevoBoton("cmdGrabar", "&Grabar", "principal");
    connect(boton, &QPushButton::clicked, this, [this] { ++pulsado; });
    cuerpo()->addWidget(panel);
    cuerpo()->addLayout(filaBotones({boton}));
    tecla(
        QKeyCombination(Qt::Key_F2), [this] { ++f2; }, "cliente");
    tecla(QKeyCombination(Qt::ALT, Qt::Key_B), [this] { ++altA; });
    tecla(
        QKeyCombination(Qt::Key_Delete), [this] { ++supr; }, "borrar");
    a->setFocus();
  }
  bool puedeCerrar() override { return cierra; }
};

}  // namespace

TEST(Forma, EnterLeavesAFieldAndPressesAButton) {
  Ventana v;
  QString dejado;
  v.b->alSalir = [&] { dejado = v.b->text(); };
  mostrar(v);
  EXPECT_EQ("txtA", foco());
  tecla(Qt::Key_Return);
  EXPECT_EQ("txtB", foco());
  EXPECT_EQ(0, v.pulsado) << "Enter on a field is not the main button";
  escribe("12");
  tecla(Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ("cmdGrabar", foco());
  EXPECT_EQ("12", dejado);
  tecla(Qt::Key_Return);
  EXPECT_EQ(1, v.pulsado);
}

TEST(Forma, KeysOfTheTableComeBeforeMnemonics) {
  Ventana v;
  mostrar(v);
  tecla(Qt::Key_F2);
  EXPECT_EQ(1, v.f2);
  tecla(Qt::Key_B, Qt::AltModifier);
  EXPECT_EQ(1, v.altA);
  EXPECT_EQ("txtA", foco()) << "the mnemonic of Beta must not move the keyboard";
  escribe("xy");
  tecla(Qt::Key_Home);
  tecla(Qt::Key_Delete);
  EXPECT_EQ("y", v.a->text()) << "a field that is typed in keeps its own keys";
  EXPECT_EQ(0, v.supr);
  v.boton->setFocus();
  tecla(Qt::Key_Delete);
  EXPECT_EQ(1, v.supr);
  QKeyEvent repetida(QEvent::KeyPress, Qt::Key_F2, Qt::NoModifier, QString(), true);
  QApplication::sendEvent(v.boton, &repetida);
  EXPECT_EQ(1, v.f2) << "a key that is held down acts once";
}

// A row holds whole hints, and the sign stands between two of them only: never at the end of a row.
TEST(Forma, HintsBreakBetweenTwoOfThem) {
  Indicios indicios;
  indicios.poner({QStringLiteral("F2 cliente"), QStringLiteral("F5 artículo"), QStringLiteral("Supr borrar")});
  EXPECT_EQ("F2 cliente  ·  F5 artículo  ·  Supr borrar", indicios.text());
  const QFontMetrics m = indicios.fontMetrics();
  const auto renglones = [&](const QString& cabe) {
    return indicios.heightForWidth(m.horizontalAdvance(cabe)) / m.lineSpacing();
  };
  EXPECT_EQ(1, renglones(indicios.text()));
  EXPECT_EQ(2, renglones(QStringLiteral("F2 cliente  ·  F5 artículo")));
  EXPECT_EQ(2, renglones(QStringLiteral("F2 cliente  ·  F5 artículo  ·")));
  EXPECT_EQ(3, renglones(QStringLiteral("F2 cliente  ·  ")));
}

TEST(Forma, EscClosesWhatMayBeClosed) {
  Ventana v;
  v.cierra = false;
  mostrar(v);
  tecla(Qt::Key_Escape);
  EXPECT_TRUE(v.isVisible());
  v.close();
  EXPECT_TRUE(v.isVisible());
  v.cierra = true;
  tecla(Qt::Key_Escape);
  EXPECT_FALSE(v.isVisible());
}

TEST(Forma, TheRingIsWhereTheKeyboardIs) {
  Ventana v;
  mostrar(v);
  auto* anillo = v.findChild<AnilloFoco*>();
  ASSERT_NE(nullptr, anillo);
  for (QWidget* w : {static_cast<QWidget*>(v.b), static_cast<QWidget*>(v.boton), static_cast<QWidget*>(v.a)}) {
    w->setFocus();
    EXPECT_TRUE(anillo->isVisible());
    EXPECT_TRUE(anillo->geometry().contains(QRect(w->mapTo(&v, QPoint()), w->size()))) << qPrintable(w->objectName());
  }
  v.a->hide();
  QCoreApplication::processEvents();
  EXPECT_FALSE(anillo->geometry().contains(v.a->mapTo(&v, QPoint()))) << "it went on with the keyboard";
}

TEST(Campo, FiltersKeysAndSelectsItsText) {
  Ventana v;
  v.b->filtro = [](QChar c) { return c.isDigit() ? c : c == u'u' ? QChar(u'U') : c == u'<' ? QChar(8) : QChar(0); };
  v.b->setText("99");
  mostrar(v);
  tecla(Qt::Key_Tab);
  EXPECT_EQ("99", v.b->selectedText());
  escribe("1x2u");
  EXPECT_EQ("12U", v.b->text());
  escribe("<");
  EXPECT_EQ("12", v.b->text());
  marcarMal(v.b);
  EXPECT_EQ("mal", v.b->property("estado").toString());
  escribe("3");
  EXPECT_FALSE(v.b->property("estado").isValid());
  v.b->clear();
  QInputMethodEvent compuesto;
  compuesto.setCommitString(QStringLiteral("1ú2u"));
  QApplication::sendEvent(v.b, &compuesto);
  EXPECT_EQ("12U", v.b->text()) << "composed text goes through the filter too";
}

TEST(Campo, LosingTheWindowIsNotLeavingTheField) {
  Ventana v;
  int dejado = 0;
  v.a->alSalir = [&] { ++dejado; };
  mostrar(v);
  Ventana caja;
  mostrar(caja);
  EXPECT_EQ(0, dejado);
  v.activateWindow();
  QCoreApplication::processEvents();
  v.b->setFocus();
  EXPECT_EQ(1, dejado);
}
