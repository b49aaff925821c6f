#include "cashday/frm_principal.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include "apoyo/formas.h"
#include "apoyo/puesto_prueba.h"
#include "cashday/pantallas_guion.h"

namespace {

struct Escena {
  PuestoPrueba p;
  PantallasGuion pantallas;
  frmPrincipal ventana{p, pantallas};

  QAction* menu(const QString& nombre) {
    auto* a = ventana.findChild<QAction*>(nombre);
    EXPECT_NE(nullptr, a) << qPrintable(nombre);
    return a;
  }
  void clic(const QString& boton) { QTest::mouseClick(control(ventana, boton), Qt::LeftButton); }
  QWidget* apertura() { return ventana.findChild<QWidget*>("FrmApertura"); }
};

}  // namespace

TEST(FrmPrincipal, EntriesOpenTheirScreens) {
  const struct { const char *control, *abre; } casos[] = {
      {"mnuMantenimiento_Hijo(2)", "lista T.C."},
      {"mnuMantenimiento_Hijo(4)", "mantenimiento 1"},
      {"mnuOperaciones_Hijo(3)", "rápida"},
      {"mnuOperaciones_Hijo(4)", "full"},
      {"mnuOperaciones_Hijo(17)", "falta Reporte X-1 formato  Excel"},
      {"mnuUsuarios", "mantenimiento 4"},
      {"mnuRptStock", "falta Reporte Stock"},
      {"Toolbar1(2)", "lista T.C."},
      {"Toolbar1(3)", ""},
      {"Toolbar1(4)", ""},
      {"Toolbar1(6)", "rápida"},
      {"Toolbar1(9)", "autoriza Reporte X"},
      {"Toolbar1(12)", "cuadre 2"},
      {"cmdInicio(2)", "full"},
  };
  Escena e;
  e.p.ejecuta(QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('24/11/2026', '3.75')"));
  e.ventana.iniciar();
  for (const auto& c : casos) {
    SCOPED_TRACE(c.control);
    e.pantallas.abiertas.clear();
    const QString nombre = QString::fromLatin1(c.control);
    if (nombre.startsWith(u"mnu")) e.menu(nombre)->trigger();
    else e.clic(nombre);
    EXPECT_EQ(QString::fromUtf8(c.abre), e.pantallas.abiertas.join(u','));
  }
  EXPECT_FALSE(e.menu("mnuMantenimiento_Hijo(1)")->isVisible());
  EXPECT_FALSE(e.menu("mnuOperaciones_Hijo(7)")->isVisible());
  EXPECT_FALSE(control(e.ventana, "Toolbar1(15)")->isVisible());
  EXPECT_TRUE(control(e.ventana, "txtsupervisor")->isHidden());
  EXPECT_EQ("Control de Caja Registradora - Hoy: 24/11/2026", e.ventana.windowTitle());
  EXPECT_EQ("T.C. 3.75", control<QLabel>(e.ventana, "lblEstadoTC")->text());
  capturar(e.ventana, "principal_abierta");
}

TEST(FrmPrincipal, OpensTheDeskByKeys) {
  Escena e;
  e.p.ses.psTurno.clear();
  e.p.ejecuta(QStringLiteral("UPDATE Configuracion SET cCodiTurno = ''"));
  e.p.persona().espera("La caja se encuentra cerrada");
  e.ventana.iniciar();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&e.ventana));
  capturar(e.ventana, "principal_cerrada");
  EXPECT_EQ("cmdInicio(4)", foco());
  tecla(Qt::Key_Return);
  ASSERT_NE(nullptr, e.apertura());
  EXPECT_TRUE(QTest::qWaitForWindowActive(e.apertura()));
  EXPECT_EQ("txtimporsoles", foco());
  escribe("150");
  tecla(Qt::Key_Return);
  EXPECT_EQ("150.00", control<QLineEdit>(*e.apertura(), "txtimporsoles")->text());
  escribe("x");
  tecla(Qt::Key_Return);
  capturar(*e.apertura(), "apertura");
  e.p.persona().espera("El importe en dólares no es un número");
  tecla(Qt::Key_Return);
  EXPECT_EQ("TxtImporDolares", foco());
  capturar(*e.apertura(), "apertura_mal");
  EXPECT_EQ("x", control<QLineEdit>(*e.apertura(), "TxtImporDolares")->text()) << "a refused field keeps its text";
  tecla(Qt::Key_Backspace);
  escribe("20");
  tecla(Qt::Key_Return);
  e.p.persona().espera("Se ha aperturado la caja.");
  tecla(Qt::Key_Return);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(nullptr, e.apertura());
  EXPECT_EQ("01|150|20", e.p.filas("SELECT cCodiTurno, nImporApertSol, nImporApertDol FROM Configuracion"));
  EXPECT_TRUE(e.menu("mnuOperaciones_Hijo(4)")->isEnabled());
  EXPECT_EQ("CAJA 00001 · ABIERTA · TURNO 01", control<QLabel>(e.ventana, "lblEstadoDia")->text());
  EXPECT_EQ("cmdInicio(2)", foco());
}

TEST(FrmPrincipal, AnInterruptedClosingLeavesReporteZ) {
  Escena e;
  e.p.ejecuta(QStringLiteral("UPDATE Configuracion SET iCierreCaja = 3"));
  e.p.persona().espera("Se ha habilitado la Opcion Reporte Z");
  e.ventana.iniciar();
  capturar(e.ventana, "principal_cierre");
  QStringList libres;
  for (auto* a : e.ventana.findChildren<QAction*>())
    if (a->objectName().startsWith(u"mnu") && a->isEnabled() && !a->isSeparator() && !a->menu()) libres << a->objectName();
  libres.sort();
  EXPECT_EQ((QStringList{"mnuOperaciones_Hijo(8)", "mnuSalir"}), libres);
  EXPECT_TRUE(control(e.ventana, "Toolbar1(11)")->isEnabled());
  EXPECT_FALSE(control(e.ventana, "Toolbar1(14)")->isEnabled());
  EXPECT_TRUE(control(e.ventana, "cmdInicio(5)")->isVisible());
}

TEST(FrmPrincipal, TheDateButtonsFit) {
  Escena e;
  e.p.ses.psUsuario = QStringLiteral("rovel");
  e.p.ses.psPerfilUsuario = QStringLiteral("1");
  e.ventana.iniciar();
  capturar(e.ventana, "principal_fechas");
  for (int n : {1, 14, 15, 17}) {
    QWidget* b = control(e.ventana, QStringLiteral("Toolbar1(%1)").arg(n));
    EXPECT_TRUE(b->isVisible()) << n;
    EXPECT_TRUE(e.ventana.rect().contains(QRect(b->mapTo(&e.ventana, QPoint()), b->size()))) << n;
  }
}
