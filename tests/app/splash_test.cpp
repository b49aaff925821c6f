#include <gtest/gtest.h>

#include <QLabel>

#include "apoyo/formas.h"
#include "app/frm_splash.h"

TEST(FrmSplash, TellsTheVersion) {
  frmSplash s;
  s.mostrar();
  EXPECT_EQ(QStringLiteral(" Versión %1.%2.%3")
                .arg(TARVOPOS_VERSION_MAYOR)
                .arg(TARVOPOS_VERSION_MENOR)
                .arg(TARVOPOS_VERSION_REVISION),
            control<QLabel>(s, "lblVersion")->text());
}
