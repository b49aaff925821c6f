#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "apoyo/formas.h"
#include "platform/io/reloj_sistema.h"
#include "platform/ui/forma.h"
#include "platform/ui/mensajes_ventana.h"

namespace {

// A screen whose button takes long.
class Lenta : public Forma {
 public:
  QPushButton* boton = nuevoBoton("cmdReporte", "&Reporte");
  Campo* campo = new Campo("txtDato");
  int pulsado = 0;
  std::function<void()> trabajo;

  Lenta() : Forma("frmLenta", "Lenta") {
    connect(boton, &QPushButton::clicked, this, [this] {
      ++pulsado;
      if (trabajo) trabajo();
    });
    cuerpo()->addWidget(campo);
    cuerpo()->addWidget(boton);
    boton->setFocus();
  }
};

// As the window system hands them over: while the work goes on they wait.
void pulsarMientras(QWidget* w, Qt::Key tecla) {
  for (const auto tipo : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QCoreApplication::postEvent(w, new QKeyEvent(tipo, tecla, Qt::NoModifier, tecla == Qt::Key_Return ? "\r" : "x"));
  }
}

}  // namespace

TEST(Busy, SaysWhatIsDoneAndDropsWhatIsPressedMeanwhile) {
  Lenta v;
  MensajesVentana mensajes;
  mostrar(v);
  QString dice;
  v.trabajo = [&] {
    const Ocupado ocupado(mensajes, QStringLiteral("Haciendo el Reporte X…"));
    auto* cartel = v.findChild<QLabel*>("lblOcupado");
    ASSERT_TRUE(cartel && cartel->isVisible());
    dice = cartel->text();
    EXPECT_TRUE(v.rect().contains(cartel->geometry()));
    EXPECT_TRUE(QApplication::overrideCursor());
    {
      const Ocupado dentro(mensajes, QStringLiteral("Esperando a la impresora…"));
      EXPECT_EQ("Esperando a la impresora…", cartel->text());
    }
    EXPECT_EQ(dice, cartel->text()) << "the step around it has the word again";
    pulsarMientras(v.boton, Qt::Key_Return);  // it would make the report again
    pulsarMientras(v.campo, Qt::Key_X);
  };
  tecla(Qt::Key_Return);
  QTest::qWait(1);
  EXPECT_EQ("Haciendo el Reporte X…", dice);
  EXPECT_EQ(1, v.pulsado);
  EXPECT_EQ("", v.campo->text());
  EXPECT_EQ(nullptr, v.findChild<QLabel*>("lblOcupado"));
  EXPECT_EQ(nullptr, QApplication::overrideCursor());
  v.trabajo = {};
  pulsarMientras(v.boton, Qt::Key_Return);
  QTest::qWait(1);
  EXPECT_EQ(2, v.pulsado) << "what comes behind it counts";
}

TEST(Busy, TheStepThatBeganLastHasTheWordInWhateverOrderTheyEnd) {
  struct : Mensajes {
    QString dice;
    void mostrar(const QString&, const QString&, Icono) override {}
    bool preguntar(const QString&, const QString&, bool) override { return false; }
    std::optional<QString> pedir(const QString&, const QString&, const QString&) override { return {}; }
    void mostrarOcupado(const QString& que) override { dice = que; }
  } m;
  std::optional<Ocupado> uno(std::in_place, m, QStringLiteral("uno")), dos(std::in_place, m, QStringLiteral("dos"));
  uno->ahora(QStringLiteral("uno, más"));
  EXPECT_EQ("dos", m.dice);
  uno.reset();
  EXPECT_EQ("dos", m.dice);
  dos.reset();
  EXPECT_EQ("", m.dice);
}

TEST(Busy, ABoxIsNotAnsweredByWhatWasPressedBeforeIt) {
  Lenta v;
  MensajesVentana mensajes;
  mostrar(v);
  bool si = true;
  RelojSistema reloj;
  v.trabajo = [&] {
    const Ocupado ocupado(mensajes, QStringLiteral("Cerrando…"));
    pulsarMientras(v.boton, Qt::Key_Return);
    reloj.unaVez(200, &v, [&] {
      const Ocupado dentro(mensajes, QStringLiteral("Esperando al servidor…"));
      EXPECT_EQ(nullptr, QApplication::activeModalWidget()->findChild<QLabel*>("lblOcupado")) << "it must be read";
      tecla(Qt::Key_Escape);
    });
    si = mensajes.preguntar(QStringLiteral("¿Seguro?"));
  };
  tecla(Qt::Key_Return);
  EXPECT_FALSE(si);
}
