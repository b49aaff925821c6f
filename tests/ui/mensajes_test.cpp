#include "platform/ui/mensajes_ventana.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QMetaObject>

#include "apoyo/formas.h"

namespace {

// Runs `f` as soon as the next box waits for its answer.
void alMostrar(std::function<void(QWidget&)> f) {
  QMetaObject::invokeMethod(
      qApp,
      [f = std::move(f)] {
        QWidget* caja = QApplication::activeModalWidget();
        ASSERT_NE(nullptr, caja);
        caja->activateWindow();
        QCoreApplication::processEvents();
        f(*caja);
      },
      Qt::QueuedConnection);
}

}  // namespace

TEST(MensajesVentana, AnswersByKey) {
  // clang-format off
  const struct { const char* porque; bool siPorDefecto; Qt::Key tecla; bool respuesta; } casos[] = {
      {"Enter takes the default", true, Qt::Key_Return, true},
      {"Enter takes the default No", false, Qt::Key_Return, false},
      {"Esc is No", true, Qt::Key_Escape, false},
      {"S answers", false, Qt::Key_S, true},
      {"N answers", true, Qt::Key_N, false},
  };
  // clang-format on
  MensajesVentana m;
  for (const auto& c : casos) {
    SCOPED_TRACE(c.porque);
    alMostrar([&](QWidget& caja) {
      QStringList rotulos;
      for (auto* b : caja.findChildren<QAbstractButton*>()) rotulos << b->text().remove(u'&');
      rotulos.sort();
      EXPECT_EQ((QStringList{"No", "Sí"}), rotulos);
      EXPECT_EQ("Confirmar", caja.windowTitle());
      tecla(c.tecla);
    });
    EXPECT_EQ(c.respuesta, m.preguntar("¿Sigue?", "Confirmar", c.siPorDefecto));
  }
}

TEST(MensajesVentana, GivesTheKeyboardBack) {
  QWidget debajo;
  debajo.setObjectName("debajo");
  mostrar(debajo);
  MensajesVentana m;
  alMostrar([](QWidget&) { tecla(Qt::Key_Return); });
  m.mostrar("Listo");
  QCoreApplication::processEvents();
  EXPECT_EQ(&debajo, QApplication::activeWindow());
}

TEST(MensajesVentana, AsksForAText) {
  MensajesVentana m;
  alMostrar([](QWidget&) {
    escribe("nueva");
    tecla(Qt::Key_Return);
  });
  EXPECT_EQ(std::optional<QString>("nueva"), m.pedir("Serie", "TarvoPos", "vieja"));
  alMostrar([](QWidget&) { tecla(Qt::Key_Escape); });
  EXPECT_EQ(std::nullopt, m.pedir("Serie"));
}
