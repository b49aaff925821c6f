#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

#include "apoyo/formas.h"
#include "apoyo/puesto_prueba.h"
#include "backoffice/frm_tipo_cambio_lista.h"

namespace {

// Runs `f` on the next modal screen, once it waits.
void enElDetalle(std::function<void(QWidget&)> f) {
  QMetaObject::invokeMethod(qApp, [f = std::move(f)] {
    QWidget* detalle = QApplication::activeModalWidget();
    ASSERT_NE(nullptr, detalle);
    EXPECT_EQ("frmTipoCambio", detalle->objectName());
    // A window counts as active while the one that it stands over is.
    EXPECT_TRUE(QTest::qWaitFor([detalle] { return QApplication::activeWindow() == detalle; }));
    const QPointer<QWidget> vivo(detalle);
    f(*detalle);
    if (!vivo || !vivo->isVisible()) return;
    ADD_FAILURE() << "the detail stayed open";
    qobject_cast<QDialog*>(detalle)->done(QDialog::Rejected);
  }, Qt::QueuedConnection);
}

QString filas(const Lista& l) {
  QStringList r;
  for (int n = 0; n < l.filas(); ++n) r << l.fila(n).celdas.join(u' ');
  return r.join(u'|');
}

}  // namespace

TEST(FrmTipoCambio, TheListFollowsTheDetail) {
  PuestoPrueba p;
  frmTipoCambioLista v(p);
  auto* lista = control<Lista>(v, "lvwTipoCambio");
  mostrar(v);
  capturar(v, "tipo_cambio_vacia");
  EXPECT_EQ("txtBuscar", foco());
  EXPECT_FALSE(control(v, "cmdEditar(1)")->isEnabled());
  EXPECT_TRUE(control(v, "cmdEditar(0)")->isEnabled());

  enElDetalle([](QWidget& d) {
    EXPECT_EQ("Nuevo Tipo de Cambio", d.windowTitle());
    EXPECT_EQ("24/11/2026", control<QLineEdit>(d, "txtFecha")->text());
    EXPECT_EQ("txtTC", foco());
    escribe("3.a5");
    tecla(Qt::Key_Return);
    EXPECT_EQ("3.50", control<QLineEdit>(d, "txtTC")->text());
    EXPECT_EQ("cmdEstandar(0)", foco());
    capturar(d, "tipo_cambio_nuevo");
    tecla(Qt::Key_Return);
  });
  tecla(Qt::Key_Insert);
  EXPECT_EQ("24/11/2026 3.50", filas(*lista));
  EXPECT_TRUE(control(v, "cmdEditar(1)")->isEnabled());
  capturar(v, "tipo_cambio_lista");

  v.activateWindow();
  enElDetalle([](QWidget& d) {
    EXPECT_TRUE(control<QLineEdit>(d, "txtFecha")->isReadOnly()) << "the date is the row";
    escribe("3.62");
    tecla(Qt::Key_Return);
    tecla(Qt::Key_Return);
  });
  control(v, "txtBuscar")->setFocus();
  tecla(Qt::Key_Return);
  EXPECT_EQ("24/11/2026 3.62", filas(*lista));

  v.activateWindow();
  enElDetalle([](QWidget& d) {
    EXPECT_FALSE(control(d, "txtTC")->isEnabled());
    capturar(d, "tipo_cambio_borrar");
    tecla(Qt::Key_Escape);
  });
  tecla(Qt::Key_Delete);
  EXPECT_EQ("24/11/2026 3.62", filas(*lista)) << "left without deleting";

  v.activateWindow();
  enElDetalle([](QWidget&) { tecla(Qt::Key_Return); });
  tecla(Qt::Key_Delete);
  EXPECT_EQ("", filas(*lista));
  EXPECT_FALSE(control(v, "cmdEditar(2)")->isEnabled());
}
