// What a scanner's reader holds back and lets go.
#include "platform/ui/lector_codigos.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "apoyo/formas.h"

namespace {

// The first digit moves the keyboard, as on a grid whose cell it opens.
TEST(LectorCodigos, TheKeyBehindARunGoesWhereTheRunWent) {
  QWidget ventana;
  QLineEdit rejilla(&ventana), celda(&ventana);
  LectorCodigos lector(
      &ventana, [](const QString&) { return true; }, [](const QString&) { FAIL(); });
  QObject::connect(&rejilla, &QLineEdit::textEdited, [&] { celda.setFocus(); });
  int entradas = 0;
  QObject::connect(&celda, &QLineEdit::returnPressed, [&] { ++entradas; });
  ventana.show();
  QApplication::processEvents();  // what another test has pressed is over
  rejilla.setFocus();
  quint64 momento = 1000;
  for (const auto& [tecla, texto] : {std::pair(Qt::Key_1, "1"), {Qt::Key_2, "2"}, {Qt::Key_Return, "\r"}}) {
    QKeyEvent e(QEvent::KeyPress, tecla, Qt::NoModifier, QString::fromLatin1(texto));
    e.setTimestamp(momento += 10);
    QApplication::sendEvent(ventana.focusWidget(), &e);
  }
  EXPECT_EQ("1", rejilla.text().toStdString());
  EXPECT_EQ("2", celda.text().toStdString());
  EXPECT_EQ(1, entradas);
}

}  // namespace
