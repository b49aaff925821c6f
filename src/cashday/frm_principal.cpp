#include "cashday/frm_principal.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <span>

#include "cashday/cierre.h"
#include "cashday/dia.h"
#include "cashday/frm_acerca_de.h"
#include "cashday/frm_apertura.h"
#include "cashday/pantallas_principal.h"
#include "cashday/reportes.h"
#include "cashday/tipo_cambio.h"
#include "foundation/puesto.h"
#include "platform/ui/anillo_foco.h"
#include "platform/ui/campo.h"
#include "platform/ui/forma.h"
#include "platform/ui/linea_estado.h"
#include "platform/ui/tema.h"

namespace {

constexpr int kIntervaloClientes_ms = 25'000;

struct EntradaNumerada {
  int n;
  const char* rotulo;  // "-" is a separator
  bool oculta = false;
};

// clang-format off
constexpr EntradaNumerada kMantenimiento[] = {
    {1, "&Productos", true},          {2, "&Tipo de Cambio"}, {3, "-"}, {4, "&Configuración del Teclado"},
    {5, "Cabecera de &Impresión"},    {6, "-"},               {7, "Configuración Impresora"}, {8, "Iniciar Caja"},
};
// clang-format on

// clang-format off
constexpr EntradaNumerada kOperaciones[] = {
    {1, "Cambio de Turno"},     {2, "-"},
    {3, "Caja Registradora"},   {4, "Caja Registradora (Versión Full)"},
    {5, "-"},                   {6, "Reporte X"},
    {7, "Cuadre de Caja", true}, {8, "Reporte Z"},
    {9, "-", true},             {10, "Reporte O/C", true},
    {11, "Reporte N/C", true},  {12, "Reporte PADE", true},
    {13, "Reporte PADV", true}, {14, "Reporte LIQPAD", true},
    {15, "Consulta OP"},        {16, "Reporte X-1"},
    {17, "Reporte X-1 formato  Excel"},
};
// clang-format on

struct BotonBarra {
  int n;
  const char *rotulo, *dibujo;  // "" is a separator
};

constexpr int kPrimerBotonFecha = 15;

// clang-format off
constexpr BotonBarra kBarra[] = {
    {1, "Productos", "productos"},  {2, "Tipo Cambio", "tipo_cambio"},   {3, "Botones", "botones"},
    {4, "Cabecera", "cabecera"},    {5, "", ""},                         {6, "Caja", "caja"},
    {7, "", ""},                    {8, "Cambio Turno", "cambio_turno"}, {9, "Reporte X", "reporte_x"},
    {10, "", ""},                   {11, "Reporte Z", "reporte_z"},      {12, "Cuadre Caja", "cuadre"},
    {13, "", ""},                   {14, "Salir", "salir"},              {15, "Z Fecha", "z_fecha"},
    {16, "Z1 Fecha", "z1_fecha"},   {17, "Sincronizar", "sincronizar"},
};
// clang-format on

QString deArreglo(const char* nombre, int n) { return QStringLiteral("%1(%2)").arg(QLatin1String(nombre)).arg(n); }

QString sinMnemonico(QString rotulo) { return rotulo.remove(u'&'); }

QString rotuloDe(std::span<const EntradaNumerada> entradas, int n) {
  return sinMnemonico(QString::fromUtf8(entradas[static_cast<size_t>(n - 1)].rotulo));
}

}  // namespace

frmPrincipal::frmPrincipal(Puesto& p, PantallasPrincipal& pantallas) : p_(p), pantallas_(pantallas) {
  setObjectName(QStringLiteral("frmPrincipal"));
  crearMenus();
  crearBarra();
  crearCentro();
  // What the supervisor dialog fills.
  txtsupervisor_ = new QLineEdit(this);
  txtsupervisor_->setObjectName(QStringLiteral("txtsupervisor"));
  txtsupervisor_->hide();
  new AnilloFoco(this);
  resize(1024, 740);
}

frmPrincipal::~frmPrincipal() = default;

std::function<void()> frmPrincipal::acto(std::function<void()> accion) {
  return [this, accion = std::move(accion)] {
    const QPointer<frmPrincipal> viva(this);
    accion();
    if (viva) refrescar();
  };
}

QAction* frmPrincipal::entrada(QMenu* menu, const QString& nombre, const QString& rotulo, std::function<void()> accion,
                               bool oculta) {
  QAction* a = rotulo == u"-" ? menu->addSeparator() : menu->addAction(rotulo);
  a->setObjectName(nombre);
  a->setVisible(!oculta);
  if (accion) connect(a, &QAction::triggered, this, acto(std::move(accion)));
  return a;
}

void frmPrincipal::crearMantenimiento() {
  QMenu* m = menuBar()->addMenu(QStringLiteral("&Mantenimiento"));
  m->menuAction()->setObjectName(QStringLiteral("mnuMantenimiento"));
  for (const auto& e : kMantenimiento) {
    mantenimiento_[static_cast<size_t>(e.n)] = entrada(
        m, deArreglo("mnuMantenimiento_Hijo", e.n), QString::fromUtf8(e.rotulo), [this, n = e.n] { mantenimiento(n); },
        e.oculta);
  }
  // clang-format off
  const struct { const char *nombre, *rotulo; QAction** guardar = nullptr; std::function<void()> accion = {}; } resto[] = {
      {"mnuraya", "-"},
      {"mnu_sincronizar_DiaAnt", "Sincronizar Datos (Dia Anterior)", &diaAnterior_, [this] { SincronizarDatos(p_, pantallas_, true); }},
      {"mnu_1", "-"},
      {"mnu_sincronizar", "Sincronizar Datos", nullptr, [this] { SincronizarDatos(p_, pantallas_, false); }},
      {"mnulin", "-"},
      {"mnuDepurarTablas", "Depurar Tablas"},
      {"mnuUsuarios", "&Usuarios", &usuarios_, [this] { ajustes(PantallaMantenimiento::Usuarios, QStringLiteral("Usuarios")); }},
      {"mnuConfigParam", "Configuración Parámetros", nullptr, [this] { configurarParametros(); }},
      {"mnu_rayita", "-"},
      {"mnu_tiptar", "Tipo de Tarjeta", nullptr, [this] { pantallas_.mantenimiento(PantallaMantenimiento::TiposTarjeta); }},
  };
  // clang-format on
  for (const auto& r : resto) {
    const QString rotulo = QString::fromUtf8(r.rotulo);
    const auto falta = [this, rotulo] { pantallas_.noDisponible(sinMnemonico(rotulo)); };
    QAction* a = entrada(m, QString::fromLatin1(r.nombre), rotulo, r.accion ? r.accion : falta);
    if (r.guardar) *r.guardar = a;
    if (a != diaAnterior_) demas_.push_back(a);
  }
}

void frmPrincipal::crearOperaciones() {
  QMenu* m = menuBar()->addMenu(QStringLiteral("Operaciones"));
  m->menuAction()->setObjectName(QStringLiteral("mnuOperaciones"));
  for (const auto& e : kOperaciones) {
    operaciones_[static_cast<size_t>(e.n)] = entrada(
        m, deArreglo("mnuOperaciones_Hijo", e.n), QString::fromUtf8(e.rotulo), [this, n = e.n] { operacion(n); },
        e.oculta);
  }
}

void frmPrincipal::crearMenus() {
  crearMantenimiento();
  crearOperaciones();
  const auto suelta = [this](QMenu* menu, const char* nombre, const QString& rotulo, std::function<void()> accion) {
    QAction* a = menu ? menu->addAction(rotulo) : menuBar()->addAction(rotulo);
    a->setObjectName(QLatin1String(nombre));
    connect(a, &QAction::triggered, this, acto(std::move(accion)));
    return a;
  };
  const auto falta = [this](const char* nombre) {
    return [this, n = QString::fromUtf8(nombre)] { pantallas_.noDisponible(n); };
  };
  demas_.push_back(suelta(nullptr, "mnuRptStock", QStringLiteral("Reporte Stock"), falta("Reporte Stock")));
  QMenu* futura = menuBar()->addMenu(QStringLiteral("Venta Futura"));
  futura->menuAction()->setObjectName(QStringLiteral("mnuCtaCte"));
  demas_.push_back(suelta(futura, "mnuOperCtaCte", QStringLiteral("Operaciones"), [this] {
    CapturaTipoCambio(p_, pantallas_);
    if (p_.ses.pnTipoCambio != 0) pantallas_.noDisponible(QStringLiteral("Venta Futura - Operaciones"));
  }));
  demas_.push_back(suelta(futura, "mnuConsCtaCte", QStringLiteral("Consultas"), falta("Venta Futura - Consultas")));
  demas_.push_back(
      suelta(nullptr, "mnuAcercaDe", QStringLiteral("Acerca de..."), [this] { frmAcercaDe(this).exec(); }));
  suelta(nullptr, "mnuSalir", QStringLiteral("&Salir"), [this] { p_.salida.terminar(0); });
}

void frmPrincipal::crearBarra() {
  const auto nuevaBarra = [this](const char* nombre) {
    auto* b = new QToolBar(this);
    b->setObjectName(QLatin1String(nombre));
    b->setMovable(false);
    b->setContextMenuPolicy(Qt::PreventContextMenu);
    addToolBar(b);
    return b;
  };
  QToolBar* principal = nuevaBarra("Toolbar1");
  // The date buttons have a row of their own: all seventeen don't fit into 1024 pixels.
  addToolBarBreak();
  barraFecha_ = nuevaBarra("Toolbar1Fecha");
  for (const auto& b : kBarra) {
    const auto i = static_cast<size_t>(b.n);
    QToolBar* barra = b.n < kPrimerBotonFecha ? principal : barraFecha_;
    if (!*b.rotulo) {
      accionBoton_[i] = barra->addSeparator();
      continue;
    }
    auto* t = new QToolButton;
    t->setObjectName(deArreglo("Toolbar1", b.n));
    t->setText(QString::fromUtf8(b.rotulo));
    t->setIcon(tema::icono(QString::fromLatin1(b.dibujo)));
    t->setIconSize({24, 24});
    t->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    t->setFocusPolicy(Qt::TabFocus);
    connect(t, &QToolButton::clicked, this, acto([this, n = b.n] { boton(n); }));
    botones_[i] = t;
    accionBoton_[i] = barra->addWidget(t);
  }
}

void frmPrincipal::crearCentro() {
  auto* todo = new QWidget;
  auto* columna = new QVBoxLayout(todo);
  columna->setContentsMargins(0, 0, 0, 0);
  titular_ = nuevoTexto({}, QStringLiteral("titular"));
  titular_->setObjectName(QStringLiteral("lblEstadoDia"));
  sentencia_ = nuevoTexto({}, QStringLiteral("sentencia"));
  sentencia_->setObjectName(QStringLiteral("lblSentencia"));
  sentencia_->setWordWrap(true);
  for (QLabel* l : {titular_, sentencia_}) l->setAlignment(Qt::AlignCenter);
  auto* fila = new QHBoxLayout;
  fila->setSpacing(6 * tema::kPaso);
  fila->addStretch();
  // They only press the menu entries.
  const auto atajo = [&](const char* nombre, const QString& rotulo, QAction* entrada, const char* papel) {
    QPushButton* b = nuevoBoton(QString::fromLatin1(nombre), rotulo, QString::fromLatin1(papel));
    b->setAutoDefault(true);
    connect(b, &QPushButton::clicked, entrada, &QAction::trigger);
    fila->addWidget(b);
    return b;
  };
  abierta_ = {atajo("cmdInicio(1)", QStringLiteral("Caja Registradora (F-teclas)"), operaciones_[3], "mediano"),
              atajo("cmdInicio(2)", QStringLiteral("Versión FULL"), operaciones_[4], "grande"),
              atajo("cmdInicio(3)", QStringLiteral("Reporte X"), operaciones_[6], "mediano")};
  iniciar_ = atajo("cmdInicio(4)", QStringLiteral("Iniciar Caja"), mantenimiento_[kIniciarCaja], "grande");
  reporteZ_ = atajo("cmdInicio(5)", QStringLiteral("Reporte Z"), operaciones_[kReporteZ], "grande");
  fila->addStretch();
  columna->addStretch(2);
  columna->addWidget(titular_);
  columna->addSpacing(2 * tema::kPaso);
  columna->addWidget(sentencia_);
  columna->addSpacing(8 * tema::kPaso);
  columna->addLayout(fila);
  columna->addStretch(3);
  estado_ = new LineaEstado;
  columna->addWidget(estado_);
  setCentralWidget(todo);
}

void frmPrincipal::pintarCentro() {
  const EstadoDia e = EstadoDelDia(p_, v_);
  titular_->setText(e.titular);
  sentencia_->setText(e.sentencia);
  sentencia_->setVisible(!e.sentencia.isEmpty());
  for (QPushButton* b : abierta_) b->setVisible(e.clase == EstadoDia::Abierta);
  iniciar_->setVisible(e.clase == EstadoDia::Cerrada);
  reporteZ_->setVisible(e.clase == EstadoDia::CierreInterrumpido);
  QPushButton* principal = e.clase == EstadoDia::Abierta   ? abierta_[1]
                           : e.clase == EstadoDia::Cerrada ? iniciar_
                                                           : reporteZ_;
  const QWidget* foco = focusWidget();
  if (!foco || !foco->isVisible() || !foco->isEnabled()) principal->setFocus();
}

void frmPrincipal::refrescar() {
  setWindowTitle(TituloPrincipal(p_));
  for (size_t n = 1; n < mantenimiento_.size(); ++n) mantenimiento_[n]->setEnabled(v_.mantenimiento[n]);
  for (size_t n = 1; n < operaciones_.size(); ++n) operaciones_[n]->setEnabled(v_.operaciones[n]);
  for (QAction* a : demas_) a->setEnabled(v_.demasMenus);
  diaAnterior_->setEnabled(v_.sincronizarDiaAnt && v_.demasMenus);
  usuarios_->setVisible(v_.usuariosVisible);
  txtsupervisor_->setText(v_.txtsupervisor);
  for (size_t n = 1; n < botones_.size(); ++n) {
    accionBoton_[n]->setVisible(v_.botonVisible[n]);
    if (botones_[n]) botones_[n]->setEnabled(v_.botones[n]);
  }
  barraFecha_->setVisible(v_.botonVisible[kPrimerBotonFecha]);
  pintarCentro();
  estado_->mostrar(EstadoPrincipal(p_));
}

void frmPrincipal::iniciar() {
  refrescar();
  show();
  raise();
  activateWindow();
  {
    const CursorEspera espera;
    CargarPrincipal(p_, v_);
  }
  refrescar();
  tmrBDCliente_ = p_.reloj.cada(kIntervaloClientes_ms, acto([this] { RevisarCliente(p_); }));
}

void frmPrincipal::mantenimiento(int n) {
  switch (n) {
    case 1: ajustes(PantallaMantenimiento::Productos, rotuloDe(kMantenimiento, n)); return;
    case 2: pantallas_.tipoCambioLista(); return;
    case 4: ajustes(PantallaMantenimiento::Teclado, rotuloDe(kMantenimiento, n)); return;
    case 5: ajustes(PantallaMantenimiento::Cabecera, rotuloDe(kMantenimiento, n)); return;
    case 7: ajustes(PantallaMantenimiento::Impresora, rotuloDe(kMantenimiento, n)); return;
    case kIniciarCaja: abrirApertura(); return;
    default: pantallas_.noDisponible(rotuloDe(kMantenimiento, n));
  }
}

void frmPrincipal::ajustes(PantallaMantenimiento cual, const QString& acto) {
  if (ExigirSupervisor(p_, v_, pantallas_, acto)) pantallas_.mantenimiento(cual);
}

void frmPrincipal::configurarParametros() {
  v_.bAcceso = false;  // an earlier consent doesn't open protected settings
  if (AutorizarOperacion(v_, pantallas_, QStringLiteral("Configuración Parámetros"))) {
    pantallas_.mantenimiento(PantallaMantenimiento::Parametros);
  }
}

void frmPrincipal::operacion(int n) {
  if (n == 3 || n == 4) OlvidarTipoCambioPasado(p_);
  PrepararOperacion(p_, v_, pantallas_);
  const bool hayTipoCambio = p_.ses.pnTipoCambio != 0;
  switch (n) {
    case 3:
      if (hayTipoCambio) pantallas_.abrirRapida();
      return;
    case 4:
      if (hayTipoCambio) pantallas_.abrirFull();
      return;
    case 1: cambioTurno(); return;
    case 6: reporte(n, ReportesEspeciales); return;
    case 7:
      v_.bReporteImpreso = false;
      pantallas_.cuadreDeCaja(v_, kCuadreVista);
      return;
    case kReporteZ: cerrarCaja(); return;
    case 16: reporte(n, ReportesEspeciales1); return;
    default: pantallas_.noDisponible(rotuloDe(kOperaciones, n));
  }
}

void frmPrincipal::cambioTurno() {
  if (!p_.mensajes.preguntar(QStringLiteral("Esta Operación Cambiará el Turno\r Desea Continuar?"),
                             QStringLiteral("Confirmar Cambio de Turno"), false)) {
    return;
  }
  if (!AutorizarOperacion(v_, pantallas_, rotuloDe(kOperaciones, 1))) return;
  CambioTurno(p_, v_, pantallas_);
}

void frmPrincipal::cerrarCaja() {
  std::unique_ptr<CursorEspera> espera;
  CerrarCaja(p_, v_, pantallas_, [&](const QString& texto) {
    espera.reset();
    if (!texto.isEmpty()) espera = std::make_unique<CursorEspera>();
    estado_->ocupado(texto);
  });
}

void frmPrincipal::reporte(int n, ResultadoReporte (*imprimir)(Puesto&, const PedidoReporte&)) {
  if (!AutorizarOperacion(v_, pantallas_, rotuloDe(kOperaciones, n))) return;
  const CursorEspera espera;
  v_.bReporteImpreso = imprimir(p_, PedidoX()).impreso || v_.bReporteImpreso;
}

void frmPrincipal::reporteDeFecha(ResultadoReporte (*imprimir)(Puesto&, const QString&)) {
  const CursorEspera espera;
  v_.bReporteImpreso = imprimir(p_, QStringLiteral("Z")).impreso || v_.bReporteImpreso;
}

void frmPrincipal::boton(int n) {
  switch (n) {
    case 1: mantenimiento(1); return;
    case 2: mantenimiento(2); return;
    case 3:
    case 4: return;  // they stand there and do nothing
    case 6:
      CapturaTipoCambio(p_, pantallas_);
      if (p_.ses.pnTipoCambio != 0) operacion(3);
      return;
    case 8: operacion(1); return;
    case 9: operacion(6); return;
    case 11: operacion(kReporteZ); return;
    case 12: operacion(7); return;
    case 14: p_.salida.terminar(0); return;
    case 15: reporteDeFecha(ReportesEspecialesFecha); return;
    case 16: reporteDeFecha(ReportesEspeciales1Fecha); return;
    default: pantallas_.noDisponible(botones_[static_cast<size_t>(n)]->text());
  }
}

void frmPrincipal::abrirApertura() {
  if (!apertura_) {
    auto* f = new frmApertura(p_, v_, this);
    f->alCambiar = [this] { refrescar(); };
    f->setAttribute(Qt::WA_DeleteOnClose);
    apertura_ = f;
  }
  apertura_->show();
  apertura_->raise();
  apertura_->activateWindow();
}

void frmPrincipal::keyPressEvent(QKeyEvent* e) {
  const bool enter = e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter;
  auto* t = qobject_cast<QToolButton*>(focusWidget());
  if (enter && t && !e->isAutoRepeat()) t->click();
  else QMainWindow::keyPressEvent(e);
}

void frmPrincipal::changeEvent(QEvent* e) {
  QMainWindow::changeEvent(e);
  // A register or another screen has given the keyboard back: the rate or a server may have changed meanwhile.
  if (e->type() == QEvent::ActivationChange && isActiveWindow()) estado_->mostrar(EstadoPrincipal(p_));
}

void frmPrincipal::closeEvent(QCloseEvent* e) {
  e->accept();
  tmrBDCliente_.reset();
  p_.poDBAdmin.CerrarBD(p_.poCnnLocal);
  p_.salida.terminar(0);
}
