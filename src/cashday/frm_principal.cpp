#include "cashday/frm_principal.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "cashday/cierre.h"
#include "cashday/frm_acerca_de.h"
#include "cashday/frm_apertura.h"
#include "cashday/pantallas_principal.h"
#include "cashday/reporte_stock.h"
#include "cashday/reportes.h"
#include "cashday/tipo_cambio.h"
#include "cashday/turno.h"
#include "foundation/puesto.h"
#include "platform/ui/anillo_foco.h"
#include "platform/ui/campo.h"
#include "platform/ui/forma.h"
#include "platform/ui/linea_estado.h"
#include "platform/ui/tema.h"

namespace {

constexpr int kIntervaloClientes_ms = 25'000;

QString deArreglo(const char* nombre, int n) { return QStringLiteral("%1(%2)").arg(QLatin1String(nombre)).arg(n); }

QString sinMnemonico(QString rotulo) { return rotulo.remove(u'&'); }

}  // namespace

frmPrincipal::frmPrincipal(Puesto& p, PantallasPrincipal& pantallas) : p_(p), pantallas_(pantallas) {
  setObjectName(QStringLiteral("frmPrincipal"));
  crearMenus();
  crearBarra();
  crearCentro();
  crearTeclas();
  // What the supervisor dialog fills.
  txtsupervisor_ = new QLineEdit(this);
  txtsupervisor_->setObjectName(QStringLiteral("txtsupervisor"));
  txtsupervisor_->hide();
  new AnilloFoco(this);
  resize(QSize(1024, 740).boundedTo(tema::sitio(this)));
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
  for (const auto& e : EntradasMantenimiento()) {
    mantenimiento_[static_cast<size_t>(e.n)] = entrada(
        m, deArreglo("mnuMantenimiento_Hijo", e.n), QString::fromUtf8(e.rotulo), [this, n = e.n] { mantenimiento(n); },
        e.oculta);
  }
  const auto sincroniza = [this](bool diaAnterior) {
    return [this, diaAnterior] { SincronizarDatos(p_, pantallas_, diaAnterior); };
  };
  // clang-format off
  const struct {
    const char *nombre, *rotulo;
    QAction** guardar = nullptr;
    std::function<void()> accion = {};
  } resto[] = {
      {"mnuraya", "-"},
      {"mnu_sincronizar_DiaAnt", "Sincronizar Datos (Dia Anterior)", &diaAnterior_, sincroniza(true)},
      {"mnu_1", "-"},
      {"mnu_sincronizar", "Sincronizar Datos", nullptr, sincroniza(false)},
      {"mnulin", "-"},
      {"mnuDepurarTablas", "Depurar Tablas", nullptr,
       [this] { pantallas_.mantenimiento(PantallaMantenimiento::DepurarTablas); }},
      {"mnuUsuarios", "&Usuarios", &usuarios_,
       [this] { ajustes(PantallaMantenimiento::Usuarios, QStringLiteral("Usuarios")); }},
      {"mnuConfigParam", "Configuración Parámetros", nullptr, [this] { configurarParametros(); }},
      {"mnu_rayita", "-"},
      {"mnu_tiptar", "Tipo de Tarjeta", nullptr,
       [this] { pantallas_.mantenimiento(PantallaMantenimiento::TiposTarjeta); }},
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
  for (const auto& e : EntradasOperaciones()) {
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
  demas_.push_back(suelta(nullptr, "mnuRptStock", QStringLiteral("Reporte Stock"), [this] {
    const Ocupado ocupado(p_.mensajes, QStringLiteral("Leyendo el stock…"));
    ReporteStock(p_);
  }));
  QMenu* futura = menuBar()->addMenu(QStringLiteral("Venta Futura"));
  futura->menuAction()->setObjectName(QStringLiteral("mnuCtaCte"));
  ventaFutura_ = suelta(futura, "mnuOperCtaCte", QStringLiteral("Operaciones"), [this] {
    CapturaTipoCambio(p_, pantallas_);
    if (p_.ses.pnTipoCambio != 0) pantallas_.ventaFutura();
  });
  ventaFutura_->setShortcut(Qt::CTRL | Qt::Key_F);
  demas_.push_back(
      suelta(futura, "mnuConsCtaCte", QStringLiteral("Consultas"), [this] { pantallas_.cuentasDeClientes(); }));
  demas_.back()->setShortcut(Qt::CTRL | Qt::Key_K);
  demas_.push_back(suelta(futura, "mnuConsCtaCteCliente", QStringLiteral("Estado de Cuenta por Cliente"),
                          [this] { pantallas_.cuentaDeCliente(); }));
  demas_.back()->setShortcut(Qt::CTRL | Qt::Key_E);
  operaciones_[kConsultaOP]->setShortcut(Qt::CTRL | Qt::Key_O);
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
  for (const auto& b : BotonesBarra()) {
    const auto i = static_cast<size_t>(b.n);
    QToolBar* barra = b.n < kBotonZFecha ? principal : barraFecha_;
    if (QLatin1String(b.rotulo) == QLatin1String("-")) {
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
  fila->setSpacing(tema::px(6 * tema::kPaso));
  fila->addStretch();
  // They only press the menu entries.
  const auto atajo = [&](const char* nombre, const QString& rotulo, QAction* entrada, const char* papel) {
    QPushButton* b = nuevoBoton(QString::fromLatin1(nombre), rotulo, QString::fromLatin1(papel));
    b->setAutoDefault(true);
    connect(b, &QPushButton::clicked, entrada, &QAction::trigger);
    fila->addWidget(b);
    return b;
  };
  abierta_ = {
      atajo("cmdInicio(1)", QStringLiteral("Caja Registradora (F-teclas)"), operaciones_[kCajaRapida], "mediano"),
      atajo("cmdInicio(2)", QStringLiteral("Versión FULL"), operaciones_[kCajaFull], "grande"),
      atajo("cmdInicio(3)", QStringLiteral("Reporte X"), operaciones_[kReporteX], "mediano")};
  iniciar_ = atajo("cmdInicio(4)", QStringLiteral("Iniciar Caja"), mantenimiento_[kIniciarCaja], "grande");
  reporteZ_ = atajo("cmdInicio(5)", QStringLiteral("Reporte Z"), operaciones_[kReporteZ], "grande");
  fila->addStretch();
  columna->addStretch(2);
  columna->addWidget(titular_);
  columna->addSpacing(tema::px(2 * tema::kPaso));
  columna->addWidget(sentencia_);
  columna->addSpacing(tema::px(8 * tema::kPaso));
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
  for (QPushButton* b : abierta_) b->setVisible(e.clase == ClaseDia::Abierta);
  iniciar_->setVisible(e.clase == ClaseDia::Cerrada);
  reporteZ_->setVisible(e.clase == ClaseDia::CierreInterrumpido);
  QPushButton* principal = e.clase == ClaseDia::Abierta   ? abierta_[1]
                           : e.clase == ClaseDia::Cerrada ? iniciar_
                                                          : reporteZ_;
  const QWidget* foco = focusWidget();
  const bool otroDia = titular_->property("clase").toInt() != static_cast<int>(e.clase) + 1;
  titular_->setProperty("clase", static_cast<int>(e.clase) + 1);
  if (otroDia || !foco || !foco->isVisible() || !foco->isEnabled()) principal->setFocus();
}

void frmPrincipal::refrescar() {
  setWindowTitle(TituloPrincipal(p_));
  const Menus m = MenusDelDia(ClaseDelDia(p_, v_), v_.sincronizarDiaAnt, p_.ses);
  for (size_t n = 1; n < mantenimiento_.size(); ++n) mantenimiento_[n]->setEnabled(m.mantenimiento[n]);
  for (size_t n = 1; n < operaciones_.size(); ++n) operaciones_[n]->setEnabled(m.operaciones[n]);
  for (QAction* a : demas_) a->setEnabled(m.demasMenus);
  ventaFutura_->setEnabled(m.operaciones[kCajaFull]);  // its payments belong to a turn
  diaAnterior_->setEnabled(m.sincronizarDiaAnt);
  usuarios_->setVisible(m.usuariosVisible);
  txtsupervisor_->setText(v_.txtsupervisor);
  for (size_t n = 1; n < botones_.size(); ++n) {
    accionBoton_[n]->setVisible(m.botonVisible[n]);
    if (botones_[n]) botones_[n]->setEnabled(m.botones[n]);
  }
  barraFecha_->setVisible(m.botonVisible[kBotonZFecha]);
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
  tmrBDCliente_ = p_.reloj.cada(kIntervaloClientes_ms, acto([this] { RevisarEntreActos(p_, pantallas_); }));
}

void frmPrincipal::mantenimiento(int n) {
  switch (n) {
    case kProductos: ajustes(PantallaMantenimiento::Productos, RotuloEntrada(EntradasMantenimiento(), n)); return;
    case kTipoCambio: pantallas_.tipoCambioLista(); return;
    case kTeclado: ajustes(PantallaMantenimiento::Teclado, RotuloEntrada(EntradasMantenimiento(), n)); return;
    case kCabecera: ajustes(PantallaMantenimiento::Cabecera, RotuloEntrada(EntradasMantenimiento(), n)); return;
    case kImpresora: ajustes(PantallaMantenimiento::Impresora, RotuloEntrada(EntradasMantenimiento(), n)); return;
    case kIniciarCaja: abrirApertura(); return;
    default: pantallas_.noDisponible(RotuloEntrada(EntradasMantenimiento(), n));
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
  pantallas_.contactarCentral();
  if (n == kCajaRapida || n == kCajaFull) OlvidarTipoCambioPasado(p_);
  PrepararOperacion(p_, v_, pantallas_);
  const bool hayTipoCambio = p_.ses.pnTipoCambio != 0;
  switch (n) {
    case kCajaRapida:
      if (hayTipoCambio) pantallas_.abrirRapida();
      return;
    case kCajaFull:
      if (hayTipoCambio) pantallas_.abrirFull();
      return;
    case kCambioTurno: cambioTurno(); return;
    case kReporteX: reporte(n, ReportesEspeciales); return;
    case kCuadreCaja:
      v_.bReporteImpreso = false;
      pantallas_.cuadreDeCaja(v_, kCuadreVista);
      return;
    case kReporteZ: cerrarCaja(); return;
    case kConsultaOP: pantallas_.consultaParalelas(); return;
    case kReporteX1: reporte(n, ReportesEspeciales1); return;
    case kReporteX1Excel: exportar(); return;
    default: pantallas_.noDisponible(RotuloEntrada(EntradasOperaciones(), n));
  }
}

void frmPrincipal::cambioTurno() {
  if (!p_.mensajes.preguntar(QStringLiteral("Esta Operación Cambiará el Turno\r Desea Continuar?"),
                             QStringLiteral("Confirmar Cambio de Turno"), false)) {
    return;
  }
  if (!AutorizarOperacion(v_, pantallas_, RotuloEntrada(EntradasOperaciones(), kCambioTurno))) return;
  CambioTurno(p_, v_, pantallas_);
}

void frmPrincipal::cerrarCaja() {
  Ocupado ocupado(p_.mensajes, {});
  CerrarCaja(p_, v_, pantallas_, [&](const QString& texto) { ocupado.ahora(texto); });
}

void frmPrincipal::boton(int n) {
  switch (n) {
    case kBotonProductos: mantenimiento(kProductos); return;
    case kBotonTipoCambio: mantenimiento(kTipoCambio); return;
    case kBotonTeclado:
    case kBotonCabecera: return;  // they stand there and do nothing
    case kBotonCaja:
      CapturaTipoCambio(p_, pantallas_);
      if (p_.ses.pnTipoCambio != 0) operacion(kCajaRapida);
      return;
    case kBotonCambioTurno: operacion(kCambioTurno); return;
    case kBotonReporteX: operacion(kReporteX); return;
    case kBotonReporteZ: operacion(kReporteZ); return;
    case kBotonCuadre: operacion(kCuadreCaja); return;
    case kBotonSalir: p_.salida.terminar(0); return;
    case kBotonZFecha: reporteDeFecha(ReportesEspecialesFecha); return;
    case kBotonZ1Fecha: reporteDeFecha(ReportesEspeciales1Fecha); return;
    case kBotonSincronizar: pantallas_.sincronizarFecha(); return;
    default: pantallas_.noDisponible(botones_[static_cast<size_t>(n)]->text());
  }
}

void frmPrincipal::abrirApertura() {
  if (!apertura_) {
    auto* f = new frmApertura(p_, this);
    f->alAbrir = [this](const ResultadoApertura& r) {
      v_.sincronizarDiaAnt = v_.sincronizarDiaAnt || r.quedoDiaAnterior;
      if (r.hecha) pantallas_.respaldar(MotivoRespaldo::Apertura);
      refrescar();
    };
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
