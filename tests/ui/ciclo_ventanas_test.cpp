#include "platform/ui/ciclo_ventanas.h"

#include <gtest/gtest.h>

#include <QPushButton>

#include "apoyo/formas.h"

TEST(CicloVentanas, WhatAnActThrowsEndsThatActAlone) {
  auto* ciclo = dynamic_cast<CicloVentanas*>(qApp);
  ASSERT_NE(nullptr, ciclo);
  QStringList dicho;
  ciclo->alRomper = [&dicho](const QString& que) { dicho += que; };
  QPushButton boton;
  int vueltas = 0;
  QObject::connect(&boton, &QPushButton::clicked, [&vueltas] {
    if (++vueltas == 1) throw std::logic_error("dos y dos");
  });
  boton.show();
  for (int i = 0; i < 2; ++i) QTest::keyClick(&boton, Qt::Key_Space);
  ciclo->alRomper = {};
  EXPECT_EQ(QStringList{QStringLiteral("dos y dos")}, dicho);
  EXPECT_EQ(2, vueltas);
}
