#include "apoyo/formas.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryFile>

#include "platform/ui/ciclo_ventanas.h"
#include "platform/ui/tema.h"

QWidget* control(QWidget& ventana, const QString& nombre) {
  auto* w = ventana.findChild<QWidget*>(nombre);
  EXPECT_NE(nullptr, w) << "no control " << qPrintable(nombre);
  return w;
}

void tecla(Qt::Key tecla, Qt::KeyboardModifiers modificadores) {
  QWidget* w = QApplication::focusWidget();
  if (!w) w = QApplication::activeWindow();
  ASSERT_NE(nullptr, w) << "nothing has the keyboard";
  QTest::keyClick(w, tecla, modificadores);
  QCoreApplication::processEvents();
}

void escribe(const QString& texto) {
  for (const QChar c : texto) {
    QWidget* w = QApplication::focusWidget();
    ASSERT_NE(nullptr, w) << "nothing has the keyboard";
    QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
  }
  QCoreApplication::processEvents();
}

void mostrar(QWidget& ventana) {
  ventana.show();
  ventana.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&ventana));
}

QString foco() {
  const QWidget* w = QApplication::focusWidget();
  return w ? w->objectName() : QString();
}

void capturar(QWidget& ventana, const QString& nombre) {
  const QString carpeta = qEnvironmentVariable("TARVOPOS_CAPTURAS");
  if (carpeta.isEmpty()) return;
  QCoreApplication::processEvents();
  EXPECT_TRUE(ventana.grab().save(carpeta + u'/' + nombre + QStringLiteral(".png")));
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QTemporaryFile pantalla(QDir::tempPath() + QStringLiteral("/pantallaXXXXXX.json"));
  if (!pantalla.open()) return 1;
  pantalla.write(R"({"screens":[{"name":"s","x":0,"y":0,"width":1024,"height":768}]})");
  pantalla.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + pantalla.fileName().toLocal8Bit());
  CicloVentanas app(argc, argv);
  tema::aplicar(app);
  return RUN_ALL_TESTS();
}
