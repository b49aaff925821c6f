// What a play can't see of the main screen: that the buttons by date, and the words of a long step, fit on it.
#include "cashday/frm_principal.h"

#include <gtest/gtest.h>

#include <QLabel>

#include "apoyo/formas.h"
#include "apoyo/puesto_prueba.h"
#include "cashday/pantallas_guion.h"
#include "platform/ui/linea_estado.h"

TEST(FrmPrincipal, TheDateButtonsFit) {
  PuestoPrueba p;
  PantallasGuion pantallas;
  frmPrincipal ventana(p, pantallas);
  p.ses.psUsuario = QStringLiteral("rovel");
  p.ses.psPerfilUsuario = QStringLiteral("1");
  ventana.iniciar();
  for (int n : {1, 14, 15, 17}) {
    QWidget* b = control(ventana, QStringLiteral("Toolbar1(%1)").arg(n));
    EXPECT_TRUE(b->isVisible()) << n;
    EXPECT_TRUE(ventana.rect().contains(QRect(b->mapTo(&ventana, QPoint()), b->size()))) << n;
  }
}
