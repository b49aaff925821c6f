// A small program with screens that have nothing to do with a till, played by the real player: each control and each
// kind of window that the player must cope with. It reads its play as the service command does.
#include <QtWidgets>
#include <cstdio>

#include "admin/guion_acciones.h"
#include "admin/guion_escenario.h"
#include "platform/sql/conexion.h"
#include "platform/ui/forma.h"
#include "platform/ui/rejilla.h"

namespace {

struct MotorVacio final : Motor {
  std::optional<ErrorBD> consultar(const QString&, Recordset&) override { return {}; }
  std::optional<ErrorBD> ejecutar(const QString&, qint64*) override { return {}; }
  std::optional<ErrorBD> iniciar() override { return {}; }
  std::optional<ErrorBD> confirmar() override { return {}; }
  std::optional<ErrorBD> deshacer() override { return {}; }
  QString traducir(const QString& q) override { return q; }
};

struct MotoresVacios final : Motores {
  std::unique_ptr<Motor> abrir(const QString&, int, ErrorBD&) override { return std::make_unique<MotorVacio>(); }
};

struct Utiles {
  EscritorGuion& escritor;
  Mensajes& persona;
  Reloj& reloj;
  Motores& motores;
  Salida& salida;
};

// Writes what happened inside, so that a test sees it in its order among the player's own lines.
void decir(Utiles& u, const QString& texto) { u.escritor.linea(QStringLiteral("* ") + texto); }

class frmHija final : public Forma {
 public:
  frmHija(Utiles& u, QWidget* padre, int hondura)
      : Forma(QStringLiteral("frmHija%1").arg(hondura), QStringLiteral("Hija"), padre) {
    auto* texto = new Campo(QStringLiteral("txtDato"), this);
    texto->setText(QStringLiteral("viejo"));
    auto* otra = nuevoBoton(QStringLiteral("cmdOtra"), QStringLiteral("&Otra"));
    auto* aceptar = nuevoBoton(QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"));
    for (QWidget* w : QList<QWidget*>{texto, otra, aceptar}) cuerpo()->addWidget(w);
    connect(otra, &QPushButton::clicked, this, [this, &u, hondura] {
      frmHija nieta(u, this, hondura + 1);
      const int r = nieta.exec();
      decir(u, QStringLiteral("hija %1 cerró con %2").arg(hondura + 1).arg(r));
    });
    connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);
  }
};

class frmCampos final : public Forma {
 public:
  frmCampos(Utiles& u, QWidget* padre) : Forma(QStringLiteral("frmCampos"), QStringLiteral("Campos"), padre), u_(u) {
    auto* libre = new Campo(QStringLiteral("txtLibre"), this);
    auto* cifras = new Campo(QStringLiteral("txtCifras"), this);
    cifras->filtro = [](QChar c) { return c.isDigit() ? c : QChar(0); };
    auto* fijo = nuevoFijo(QStringLiteral("txtFijo"), this);
    fijo->setText(QStringLiteral("fijo"));
    auto* inactivo = new Campo(QStringLiteral("txtInactivo"), this);
    inactivo->setEnabled(false);
    auto* oculto = nuevoBoton(QStringLiteral("cmdOculto"), QStringLiteral("No"));
    auto* terco = new Campo(QStringLiteral("txtTerco"), this);
    terco->alSalir = [this, terco] {
      QMetaObject::invokeMethod(
          terco, [terco] { terco->setFocus(); }, Qt::QueuedConnection);
      decir(u_, QStringLiteral("terco: ") + terco->text());
    };
    auto* nota = new QPlainTextEdit;
    nota->setObjectName(QStringLiteral("txtNota"));
    nota->setPlainText(QStringLiteral("uno\ndos"));
    auto* si = new QCheckBox(QStringLiteral("Con servicio"));
    si->setObjectName(QStringLiteral("chkServicio"));
    auto* lista = new QComboBox;
    lista->setObjectName(QStringLiteral("cboTipo"));
    lista->addItems({QStringLiteral("EFECTIVO"), QStringLiteral("PELIGRO"), QStringLiteral("O/C")});
    for (QWidget* w : QList<QWidget*>{libre, cifras, fijo, inactivo, oculto, terco, nota, si, lista})
      cuerpo()->addWidget(w);
    oculto->hide();
    connect(lista, &QComboBox::activated, this,
            [this, lista](int) { decir(u_, QStringLiteral("elegido ") + lista->currentText()); });
    connect(lista, &QComboBox::currentIndexChanged, this, [this, lista](int i) {
      if (i == 1) decir(u_, QStringLiteral("peligro"));
    });
    tecla(
        Qt::ALT | Qt::Key_T, [libre] { libre->setFocus(); }, QStringLiteral("libre"));
    tecla(Qt::CTRL | Qt::Key_Return, [this] { decir(u_, QStringLiteral("grabar")); });
    tecla(Qt::Key_F3, [this] { decir(u_, QStringLiteral("F3")); });
  }

 private:
  Utiles& u_;
};

class frmListas final : public Forma {
 public:
  frmListas(Utiles& u, QWidget* padre) : Forma(QStringLiteral("frmListas"), QStringLiteral("Listas"), padre) {
    rejilla_ = new Rejilla(QStringLiteral("grdLineas"),
                           {{QStringLiteral("Item"), 60},
                            {QStringLiteral("Cant."), 80, true, true},
                            {QStringLiteral("Nota"), 0, false, true}},
                           {[this] { return static_cast<int>(filas_.size()); },
                            [this](int f, int c) { return filas_[static_cast<size_t>(f)][static_cast<size_t>(c)]; }});
    rejilla_->salir = [this, &u](int f, int c, QString& t) {
      if (c == 1 && t == u"0") {
        u.persona.mostrar(QStringLiteral("Cantidad\r\nincorrecta"), QStringLiteral("Mensaje"));
        return false;
      }
      filas_[static_cast<size_t>(f)][static_cast<size_t>(c)] = c == 1 ? t + QStringLiteral(".00") : t;
      return true;
    };
    auto* lista = new QTableWidget(3, 2);
    lista->setObjectName(QStringLiteral("lvwTX"));
    lista->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lista->setSelectionBehavior(QAbstractItemView::SelectRows);
    for (int f = 0; f < 3; ++f) {
      lista->setItem(f, 0, new QTableWidgetItem(QStringLiteral("00000%1").arg(f + 1)));
      lista->setItem(f, 1, new QTableWidgetItem(QStringLiteral("TX %1").arg(f + 1)));
    }
    connect(lista, &QTableWidget::itemDoubleClicked, this,
            [&u](const QTableWidgetItem* i) { decir(u, QStringLiteral("abre ") + i->text()); });
    connect(lista, &QTableWidget::currentCellChanged, this,
            [&u](int f) { decir(u, QStringLiteral("fila %1").arg(f + 1)); });
    auto* vacia = new QListWidget;
    vacia->setObjectName(QStringLiteral("lstVacia"));
    vacia->setMaximumHeight(40);
    auto* arbol = new QTreeWidget;
    arbol->setObjectName(QStringLiteral("tvwCuentas"));
    arbol->setColumnCount(2);
    auto* rama = new QTreeWidgetItem(arbol, {QStringLiteral("Cliente"), QStringLiteral("10.00")});
    new QTreeWidgetItem(rama, {QStringLiteral("Documento"), QStringLiteral("4.00")});
    auto* tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("SSTab1"));
    tabs->addTab(rejilla_, QStringLiteral(" Artículos "));
    tabs->addTab(lista, QStringLiteral("Pago &Adelantado"));
    for (QWidget* w : QList<QWidget*>{tabs, vacia, arbol}) cuerpo()->addWidget(w);
  }

 private:
  std::vector<std::array<QString, 3>> filas_{{QStringLiteral("1"), {}, {}}, {QStringLiteral("2"), {}, {}}};
  Rejilla* rejilla_;
};

class frmPrincipal final : public QMainWindow {
 public:
  explicit frmPrincipal(Utiles& u) : u_(u) {
    setObjectName(QStringLiteral("frmPrincipal"));
    setWindowTitle(QStringLiteral("Principal"));
    auto* menu = menuBar()->addMenu(QStringLiteral("&Operaciones"));
    menu->setObjectName(QStringLiteral("mnuOperaciones"));
    const auto entrada = [&](const QString& nombre, const QString& rotulo, std::function<void()> f) {
      QAction* a = menu->addAction(rotulo);
      a->setObjectName(nombre);
      connect(a, &QAction::triggered, this, std::move(f));
      return a;
    };
    entrada(QStringLiteral("mnu(1)"), QStringLiteral("&Hija"), [this] {
      frmHija h(u_, this, 1);
      decir(u_, QStringLiteral("hija 1 cerró con %1").arg(h.exec()));
      u_.persona.mostrar(QStringLiteral("De vuelta"));
    });
    entrada(QStringLiteral("mnu(2)"), QStringLiteral("Campos"), [this] { frmCampos(u_, this).exec(); });
    entrada(QStringLiteral("mnu(3)"), QStringLiteral("Listas"), [this] { frmListas(u_, this).exec(); });
    entrada(QStringLiteral("mnu(4)"), QStringLiteral("Cerrado"), [] {})->setEnabled(false);
    entrada(QStringLiteral("mnu(5)"), QStringLiteral("Escondido"), [] {})->setVisible(false);
    entrada(QStringLiteral("mnu(6)"), QStringLiteral("Preguntas"), [this] { preguntar(); });
    entrada(QStringLiteral("mnu(7)"), QStringLiteral("Datos"), [this] { datos(); });
    entrada(QStringLiteral("mnu(8)"), QStringLiteral("Suelta"), [this] {
      auto* h = new frmHija(u_, nullptr, 9);
      h->setAttribute(Qt::WA_DeleteOnClose);
      h->show();
    });
    entrada(QStringLiteral("mnu(9)"), QStringLiteral("Con eventos"), [this] {
      for (int i = 0; i < 20; ++i) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
      decir(u_, QStringLiteral("rutina acabada"));
    });
    entrada(QStringLiteral("mnuSalir"), QStringLiteral("&Salir"), [this] { u_.salida.terminar(7); });
    auto* barra = addToolBar(QStringLiteral("Barra"));
    QAction* boton = barra->addAction(QStringLiteral("Caja"));
    boton->setObjectName(QStringLiteral("Toolbar1(6)"));
    connect(boton, &QAction::triggered, this, [this] { decir(u_, QStringLiteral("caja")); });
    setCentralWidget(new QLabel(QStringLiteral("centro")));
    centralWidget()->setObjectName(QStringLiteral("lblCentro"));
    tic_ = u_.reloj.cada(25'000, [this] {
      decir(u_, QStringLiteral("tic ") + u_.reloj.now().toString(QStringLiteral("HH:mm:ss")));
      if (u_.reloj.now().time() >= QTime(10, 1)) frmHija(u_, this, 5).exec();
    });
  }

 private:
  void preguntar() {
    const bool si = u_.persona.preguntar(QStringLiteral("¿Uno?\rDos"), QStringLiteral("Seleccione"), false);
    const auto texto = u_.persona.pedir(QStringLiteral("Fecha"), QStringLiteral("Reporte"), QStringLiteral("hoy"));
    u_.reloj.dormir(100'000);
    decir(u_, QStringLiteral("%1 %2").arg(si ? QStringLiteral("si") : QStringLiteral("no"),
                                          texto.value_or(QStringLiteral("nada"))));
  }
  void datos() {
    Conexion c;
    if (c.abrir(u_.motores, QStringLiteral("CENTRAL"), 0)) return decir(u_, QStringLiteral("no abre"));
    QString r;
    for (int i = 0; i < 3; ++i) r += c.ejecutar(Sql::crudo(QStringLiteral("UPDATE"))) ? u'-' : u'+';
    decir(u_, r);
  }

  Utiles& u_;
  std::shared_ptr<void> tic_;
};

class Programa final : public ProgramaGuion {
 public:
  explicit Programa(Utiles u) : u_(u) {}
  void iniciar() override {
    ventana_ = std::make_unique<frmPrincipal>(u_);
    ventana_->showFullScreen();
  }
  void cerrar() override {
    while (QWidget* modal = QApplication::activeModalWidget()) {
      modal->close();
      if (QApplication::activeModalWidget() == modal) break;
    }
    ventana_->close();
  }

 private:
  Utiles u_;
  std::unique_ptr<frmPrincipal> ventana_;
};

}  // namespace

int main(int argc, char** argv) {
  const AplicacionGrafica app;
  EscritorGuion escritor;
  PersonaDeGuion persona(escritor);
  SalidaGuion salida(escritor);
  RelojGuion reloj;
  Fallas fallas;
  fallas.cadenaDe = [](Fallas::Servidor s) {
    return s == Fallas::Servidor::Central ? QStringLiteral("CENTRAL") : QString();
  };
  MotoresVacios vacios;
  MotoresConFallas motores(vacios, fallas);
  EscenaGuion escena{escritor, persona, reloj, fallas, argc > 2 ? QFile::decodeName(argv[2]) : QString(), {}};
  escena.crear = [&] { return std::make_unique<Programa>(Utiles{escritor, persona, reloj, motores, salida}); };
  return tocarEscena(argc > 1 ? QFile::decodeName(argv[1]) : QStringLiteral("-"), escena);
}
