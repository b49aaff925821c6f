#include <gtest/gtest.h>

#include <QLabel>

#include "apoyo/formas.h"
#include "app/frm_splash.h"
#include "foundation/version.h"

TEST(FrmSplash, TellsTheVersion) {
  frmSplash s;
  s.mostrar();
  EXPECT_EQ(QStringLiteral(" Versión ") + Version(), control<QLabel>(s, "lblVersion")->text());
}
