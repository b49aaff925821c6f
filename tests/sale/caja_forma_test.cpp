// The register as a cashier uses it: by keys alone.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QTabWidget>
#include <QTest>

#include "apoyo/puesto_prueba.h"
#include "platform/ui/tema.h"
#include "sale/frm_autorizar.h"
#include "sale/frm_caja_full.h"
#include "sale/pantallas_guion.h"

namespace {

QString q(const char* t) { return QString::fromUtf8(t); }

struct CajaForma : testing::Test {
  PuestoPrueba p;
  PantallasGuion pantallas;
  std::unique_ptr<frmCajaRegistradoraFull> caja;

  void SetUp() override {
    p.articulo(1, q("CAFE PASADO"), 4.5, true, q("CAF-01"));
    p.articulo(2, q("TORTA DE CHOCOLATE"), 12, false, q("TOR-02"));
    p.ejecuta(q("INSERT INTO Regla_Punto (nImpoMaxi, nPuntImpo, nPuntCant) VALUES (1000, 10, 1)"));
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnCliente, p.ses.psConexionCliente));
    p.ejecuta(p.poCnnCliente, q("INSERT INTO Regla_Punto (nImpoMaxi, nPuntImpo, nPuntCant) VALUES (1000, 10, 1)"));
    p.poDBAdmin.CerrarBD(p.poCnnCliente);
    caja = std::make_unique<frmCajaRegistradoraFull>(p, pantallas);
    caja->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(caja.get()));
  }
  QString foco() const { return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString(); }
  void tecla(Qt::Key k, Qt::KeyboardModifiers m = Qt::NoModifier) { QTest::keyClick(QApplication::focusWidget(), k, m); }
  void escribe(const char* t) { QTest::keyClicks(QApplication::focusWidget(), q(t)); }
  QString texto(const char* nombre) const {
    if (const auto* l = caja->findChild<QLabel*>(q(nombre))) return l->text();
    const auto* campo = caja->findChild<QLineEdit*>(q(nombre));
    return campo ? campo->text() : q("no control");
  }
  Rejilla& rejilla() { return *caja->findChild<Rejilla*>(q("TDBGrid1")); }
  QString celda(int fila, int columna) { return rejilla().model()->index(fila, columna).data().toString(); }
};

TEST_F(CajaForma, ASaleByKeysAlone) {
  EXPECT_EQ(q("txtTarjeta"), foco());
  tecla(Qt::Key_Return);
  ASSERT_TRUE(rejilla().hasFocus()) << "an empty card goes on to the lines";
  escribe("1");
  tecla(Qt::Key_Return);
  EXPECT_EQ((CeldaRejilla{0, kCant}), rejilla().celda()) << "after a code comes its quantity";
  escribe("2");
  tecla(Qt::Key_Enter);
  EXPECT_EQ((CeldaRejilla{0, kCant}), rejilla().celda());
  EXPECT_EQ(1, rejilla().model()->rowCount()) << "no line comes by itself";
  tecla(Qt::Key_D, Qt::AltModifier);
  EXPECT_EQ((CeldaRejilla{1, kCod}), rejilla().celda());
  tecla(Qt::Key_Right);
  escribe("TOR");
  tecla(Qt::Key_Return);
  EXPECT_EQ(q("000002"), celda(1, kCod));
  EXPECT_EQ(q("21.00"), texto("txtSoles"));
  EXPECT_EQ(q("7.00"), texto("txtDolares"));
  tecla(Qt::Key_E, Qt::AltModifier);
  EXPECT_EQ(q("txtEfectivoSoles"), foco());
  escribe("50");
  tecla(Qt::Key_Return);
  EXPECT_EQ(q("29.00"), texto("lblVuelto"));
  EXPECT_EQ(q("50.00"), texto("txtEfectivoSoles"));
  tecla(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(q("txtTarjeta"), foco());
  EXPECT_EQ(1, rejilla().model()->rowCount());
  EXPECT_EQ(q("3"), p.filas(q("SELECT COUNT(*) FROM Operacion")));
}

TEST_F(CajaForma, ARefusedCellKeepsItsTextAndTheKeyboard) {
  tecla(Qt::Key_Return);
  escribe("99");
  p.persona().espera(q("Articulo No Existe...!!!"));
  tecla(Qt::Key_Return);
  ASSERT_TRUE(rejilla().editando());
  EXPECT_EQ(QString(), celda(0, kCod));
  p.persona().espera(q("Articulo No Existe...!!!"));
  tecla(Qt::Key_Return, Qt::ControlModifier);  // nothing is committed while a cell is wrong
  EXPECT_EQ(1u, pantallas.faltan.size() + 1u);
  tecla(Qt::Key_Escape);
  EXPECT_FALSE(rejilla().editando());
  EXPECT_TRUE(caja->isVisible());
}

TEST_F(CajaForma, AnOpenCellIsLeftByTheCommit) {
  tecla(Qt::Key_Return);
  escribe("2");
  tecla(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(q("2|12"), p.filas(q("SELECT cProdCode, nProdPrecUnit FROM Operacion WHERE cProdCode <> 0")));
}

TEST_F(CajaForma, SpaceIsAKeyButInNames) {
  escribe("12 ");
  EXPECT_EQ(q("12"), texto("txtTarjeta"));
  EXPECT_EQ(QStringList{q("Caja Registradora")}, pantallas.faltan);
  tecla(Qt::Key_N, Qt::AltModifier);
  escribe("ANA DÍAZ");
  EXPECT_EQ(q("ANA DÍAZ"), texto("txtNombres"));
  EXPECT_EQ(1, pantallas.faltan.size());
}

TEST_F(CajaForma, KeysOfTheScreen) {
  const struct { Qt::Key tecla; const char* foco; } kFocos[] = {
      {Qt::Key_R, "txtRUC"}, {Qt::Key_V, "txtVueltoDolares"}, {Qt::Key_T, "txtTarjeta"}, {Qt::Key_L, "txtLocal"},
      {Qt::Key_X, "txtTX"}};
  for (const auto& c : kFocos) {
    tecla(c.tecla, Qt::AltModifier);
    EXPECT_EQ(q(c.foco), foco());
  }
  auto* pestanas = caja->findChild<QTabWidget*>(q("SSTab1"));
  EXPECT_EQ(1, pestanas->currentIndex());
  tecla(Qt::Key_1, Qt::AltModifier);
  EXPECT_EQ(0, pestanas->currentIndex());
  tecla(Qt::Key_F3);
  EXPECT_EQ(q("Recar(S/.)"), rejilla().model()->headerData(kPorc, Qt::Horizontal).toString());
  tecla(Qt::Key_F2);
  tecla(Qt::Key_F5);
  EXPECT_EQ((QStringList{q("clientes "), q("artículos")}), pantallas.abiertas);
  EXPECT_EQ((CeldaRejilla{0, kCod}), rejilla().celda());
  tecla(Qt::Key_V, Qt::AltModifier);
  tecla(Qt::Key_Tab);
  EXPECT_EQ(q("txtEfectivoSoles"), foco()) << "behind the dollars come the soles";
  tecla(Qt::Key_F4, Qt::AltModifier);
  EXPECT_FALSE(caja->isVisible());
}

TEST_F(CajaForma, AnEntryThatOpensAScreenGoesBack) {
  auto* tipo = caja->findChild<QComboBox*>(q("cboTipoVenta"));
  ASSERT_EQ(9, tipo->count());
  tipo->setCurrentIndex(7);
  EXPECT_EQ(q("EFECTIVO"), tipo->currentText());
  EXPECT_EQ(QStringList{q("ANULAR TRANSACCION")}, pantallas.faltan);
}

TEST_F(CajaForma, EscapeLeavesASaleOnTheScreen) {
  tecla(Qt::Key_Return);
  escribe("1");
  tecla(Qt::Key_Return);
  tecla(Qt::Key_Escape);
  EXPECT_TRUE(caja->isVisible());
  tecla(Qt::Key_C, Qt::AltModifier);
  EXPECT_EQ(QString(), celda(0, kCod));
  tecla(Qt::Key_Escape);
  EXPECT_FALSE(caja->isVisible());
}

TEST_F(CajaForma, TheSupervisorDialog) {
  p.ejecuta(q("INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, cUserActi) VALUES ('JEFE', 'Abc', 1, 1)"));
  frmAutorizarOperacion dialogo(p, q("Venta con descuento"), caja.get());
  dialogo.show();
  ASSERT_TRUE(QTest::qWaitFor([&dialogo] { return QApplication::activeWindow() == &dialogo; }));
  EXPECT_EQ(q("Autorizar: Venta con descuento"), dialogo.windowTitle());
  escribe("JEFE");
  tecla(Qt::Key_Return);
  EXPECT_EQ(q("txtPassword"), foco());
  escribe("abc");
  p.persona().espera(q("Password no válido"));
  tecla(Qt::Key_Return);
  EXPECT_TRUE(dialogo.isVisible());
  EXPECT_EQ(q("txtPassword"), foco());
  escribe("Abc");
  tecla(Qt::Key_Return);
  EXPECT_EQ(QDialog::Accepted, dialogo.result());
  EXPECT_EQ(q("JEFE"), dialogo.usuario());
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication app(argc, argv);
  tema::aplicar(app);
  return RUN_ALL_TESTS();
}
