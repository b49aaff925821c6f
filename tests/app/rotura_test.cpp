#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QPushButton>

#include "apoyo/formas.h"
#include "apoyo/puesto_prueba.h"
#include "app/aplicacion.h"
#include "foundation/exigir.h"

TEST(Aplicacion, ABrokenInvariantIsLoggedAndToldAndTheWindowsLiveOn) {
  PuestoPrueba p;
  Aplicacion programa(p.motores, p.puertos, p.reloj, p.mensajes, p.salida, p.rutas);
  QPushButton boton;
  int vueltas = 0;
  QObject::connect(&boton, &QPushButton::clicked, [&vueltas] { Exigir(++vueltas > 1, "dos y dos"); });
  boton.show();
  p.persona().espera(QStringLiteral("Ocurrió un error interno.\nLa operación no se hizo."));
  for (int i = 0; i < 2; ++i) QTest::keyClick(&boton, Qt::Key_Space);
  EXPECT_EQ(2, vueltas);
  const QStringList diarios = QDir(p.ruta()).entryList({QStringLiteral("Err_*.log")});
  ASSERT_EQ(1, diarios.size());
  QFile f(p.ruta() + u'/' + diarios.front());
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  EXPECT_TRUE(f.readAll().endsWith("Error interno: dos y dos\r\n"));
}
