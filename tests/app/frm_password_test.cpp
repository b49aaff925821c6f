#include "app/frm_password.h"

#include <gtest/gtest.h>

#include <QLabel>

#include "app/frm_splash.h"
#include "apoyo/formas.h"
#include "apoyo/puesto_prueba.h"

namespace {

struct Escena {
  PuestoPrueba p;
  int aceptado = 0, rechazado = 0;
  std::unique_ptr<frmPassword> v;

  Escena() {
    p.ejecuta(QStringLiteral("INSERT INTO Usuario (sUserDesc, suserPass, cUserActi, cUserFlag, cPerfCode) "
                             "VALUES ('ANA', 'clave', 1, 1, '2')"));
    v = std::make_unique<frmPassword>(p, [this] { ++aceptado; }, [this] { ++rechazado; });
    mostrar(*v);
  }
};

}  // namespace

TEST(FrmPassword, TheLastUserTypesOnlyThePassword) {
  Escena e;
  EXPECT_EQ("txtPassword", foco());
  escribe("mal");
  e.p.persona().espera("Password no válido");
  tecla(Qt::Key_Return);
  EXPECT_EQ("txtPassword", foco());
  capturar(*e.v, "login");
  escribe("clave");
  tecla(Qt::Key_Return);
  EXPECT_EQ(1, e.aceptado);
  EXPECT_EQ(0, e.rechazado);
  EXPECT_FALSE(e.v->isVisible());
}

TEST(FrmPassword, EveryOtherEndIsARefusal) {
  {
    Escena e;
    tecla(Qt::Key_Escape);
    EXPECT_EQ(1, e.rechazado);
  }
  {
    Escena e;
    QTest::mouseClick(control(*e.v, "cmdCancelar"), Qt::LeftButton);
    EXPECT_EQ(1, e.rechazado);
  }
  {
    Escena e;
    e.p.persona().dejaPasar();
    for (int n = 0; n < 3; ++n) QTest::mouseClick(control(*e.v, "cmdAceptar"), Qt::LeftButton);
    EXPECT_EQ(1, e.rechazado);
    EXPECT_EQ(0, e.aceptado);
    EXPECT_FALSE(e.v->isVisible());
  }
}

TEST(FrmSplash, TellsTheVersion) {
  frmSplash s;
  s.mostrar();
  EXPECT_EQ(QStringLiteral(" Versión %1.%2.%3")
                .arg(TARVOPOS_VERSION_MAYOR).arg(TARVOPOS_VERSION_MENOR).arg(TARVOPOS_VERSION_REVISION),
            control<QLabel>(s, "lblVersion")->text());
  capturar(s, "splash");
}
