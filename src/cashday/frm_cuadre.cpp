#include "cashday/frm_cuadre.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/ui/lista.h"
#include "platform/ui/tema.h"
#include "printing/canal.h"

namespace {

enum Pestana { kFichas, kProductos, kCaja };

}  // namespace

frmCuadre::frmCuadre(Puesto& p, ModoCuadre modo, bool bReporteImpreso, QWidget* padre)
    : Forma(QStringLiteral("frmCuadre"), QStringLiteral("Cuadre del Día"), padre),
      p_(p),
      bReporteImpreso_(bReporteImpreso) {
  Inicio(p_, v_, modo);
  SeleccionarImpresora(p_, p_.ses.kPAR_IMPRESORA);
  CargarCuadre(p_, v_);
  SSTab1_ = new QTabWidget;
  SSTab1_->setObjectName(QStringLiteral("SSTab1"));
  SSTab1_->addTab(new QWidget, QStringLiteral(" Cuadre de Fichas"));
  SSTab1_->addTab(nuevosProductos(), QStringLiteral("&Cuadre de Productos"));
  SSTab1_->addTab(nuevaCaja(), QStringLiteral("Cuadre de Caja"));
  SSTab1_->setTabEnabled(kFichas, false);
  SSTab1_->setTabEnabled(kProductos, !v_.deCierre);
  SSTab1_->setFocusPolicy(Qt::NoFocus);
  SSTab1_->setCurrentIndex(kCaja);
  cuerpo()->addWidget(SSTab1_, 1);

  auto* boton =
      nuevoBoton(QStringLiteral("Command1"), v_.deCierre ? QStringLiteral("&Cerrar Caja") : QStringLiteral("Cerrar"),
                 QStringLiteral("principal"));
  connect(boton, &QPushButton::clicked, this, &frmCuadre::cerrar);
  cuerpo()->addLayout(filaBotones({boton}));
  if (!v_.deCierre) {
    tecla(
        QKeyCombination(Qt::ALT, Qt::Key_2), [this] { SSTab1_->setCurrentIndex(kProductos); },
        QStringLiteral("productos"));
    tecla(
        QKeyCombination(Qt::ALT, Qt::Key_3), [this] { SSTab1_->setCurrentIndex(kCaja); }, QStringLiteral("caja"));
  }
  connect(SSTab1_, &QTabWidget::currentChanged, this, [this](int n) {
    if (n == kProductos) lvwProductos_->setFocus();
    else findChild<QWidget*>(QStringLiteral("txtCaja(0)"))->setFocus();
  });
  indicio(v_.deCierre ? QStringLiteral("Enter siguiente") : QStringLiteral("Enter siguiente  ·  Esc cerrar"));
  caja_.mostrar();
  vigilarComas([this] { AvisarComaDecimal(p_); });
  resize(tema::px(1000), tema::px(640));
  findChild<QWidget*>(QStringLiteral("txtCaja(0)"))->setFocus();
}

QFrame* frmCuadre::nuevoLado(size_t n, const QString& nota) {
  LadoCuadre& c = v_.lado[n];
  const char* const voucherDolares = n == kLadoZ1 ? "txtVoucherDolares" : nullptr;
  struct Renglon {
    const char *etiqueta, *soles;
    QString* texto;
    const char* dolares;
    QString* textoDolares;
  };
  // clang-format off
  const Renglon renglones[] = {
      {"Pagos :", "txtPagos", &c.txtPagos, nullptr, nullptr},
      {"Voucher :", "txtVoucher", &c.txtVoucher, voucherDolares, &c.txtVoucherDolares},
      {"Total Cash :", "txtCash", &c.txtCash, "txtCashDolares", &c.txtCashDolares},
      {"Imp. Apertura :", "txtapersoles", &c.txtapersoles, "txtaperdolares", &c.txtaperdolares},
      {"Cash-DRW :", "txtCashDRW", &c.txtCashDRW, "txtCashDRWDolares", &c.txtCashDRWDolares},
      {"Saldo CAJA :", "txtCaja", &c.txtCaja, "txtCajaDolares", &c.txtCajaDolares},
      {"FALT/SOB :", "txtFALTSOB", &c.txtFALTSOB, "txtFALTSOBDolares", &c.txtFALTSOBDolares},
  };
  // clang-format on
  auto* marco = new QFrame;
  marco->setProperty("papel", "tarjeta");
  auto* rejilla = new QGridLayout(marco);
  rejilla->setContentsMargins(tema::px(16), tema::px(12), tema::px(16), tema::px(12));
  rejilla->setHorizontalSpacing(tema::px(3 * tema::kPaso));
  rejilla->setVerticalSpacing(tema::px(3 * tema::kPaso));
  rejilla->addWidget(nuevoTexto(QStringLiteral(" Cuadre de Caja "), QStringLiteral("titulo")), 0, 0, 1, 3);
  auto* abajo = nuevoTexto(nota, QStringLiteral("suave"));
  abajo->setWordWrap(true);
  rejilla->addWidget(abajo, 1, 0, 1, 3);
  int fila = 2;
  for (int columna : {1, 2}) {
    auto* t = nuevoTexto(columna == 1 ? QStringLiteral("Soles") : QStringLiteral("Dólares"), QStringLiteral("suave"));
    t->setAlignment(Qt::AlignRight);
    rejilla->addWidget(t, fila, columna);
    rejilla->setColumnStretch(columna, 1);
  }
  const auto poner = [&](const char* nombre, QString& texto, int columna) {
    const QString deArreglo = QStringLiteral("%1(%2)").arg(QLatin1String(nombre)).arg(n);
    const bool cuenta = deArreglo.startsWith(u"txtCaja");
    Campo* campo = cuenta ? nuevoImporte(deArreglo) : nuevoFijo(deArreglo);
    campo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    campo->setMinimumWidth(tema::px(120));
    if (cuenta) {
      campo->filtro = [](QChar t) { return FiltrarTecla(t, {ClaseTecla::Decimal}); };
      campo->alSalir = [this] { dejarCaja(); };
    }
    caja_.texto(campo, texto);
    rejilla->addWidget(campo, fila, columna);
  };
  for (const auto& r : renglones) {
    ++fila;
    rejilla->addWidget(nuevoTexto(QString::fromLatin1(r.etiqueta)), fila, 0);
    poner(r.soles, *r.texto, 1);
    if (r.dolares) poner(r.dolares, *r.textoDolares, 2);
  }
  return marco;
}

QWidget* frmCuadre::nuevaCaja() {
  auto* hoja = new QWidget;
  auto* todo = new QVBoxLayout(hoja);
  todo->setContentsMargins(tema::px(10), tema::px(10), tema::px(10), tema::px(10));
  todo->addWidget(nuevoTexto(QStringLiteral("Cuente el dinero del cajón y escriba el saldo en «Saldo CAJA»."),
                             QStringLiteral("sentencia")));
  auto* lados = new QHBoxLayout;
  lados->setSpacing(tema::px(3 * tema::kPaso));
  lados->addWidget(nuevoLado(kLadoZ1, QStringLiteral("Con O/C, N/C y pagos adelantados: CUADRE CAJA Z1")));
  lados->addWidget(nuevoLado(kLadoZ, QStringLiteral("Solo ventas: CUADRE CAJA")));
  todo->addLayout(lados);
  auto* entregado = new Panel;
  caja_.texto(entregado->fijo(QStringLiteral("txtEntregado"), QStringLiteral("Total Entregado :")), v_.txtEntregado);
  todo->addWidget(entregado, 0, Qt::AlignLeft);
  todo->addStretch();
  return hoja;
}

QWidget* frmCuadre::nuevosProductos() {
  auto* hoja = new QWidget;
  auto* todo = new QVBoxLayout(hoja);
  todo->setContentsMargins(tema::px(10), tema::px(10), tema::px(10), tema::px(10));
  todo->setSpacing(tema::px(2 * tema::kPaso));
  using C = ColumnaLista;
  lvwProductos_ = new Lista(QStringLiteral("lvwProductos"), {{QStringLiteral("Cód."), 0.08, true, C::Numero},
                                                             {QStringLiteral("Cód. Catalog."), 0.14},
                                                             {QStringLiteral("Producto"), 0.28},
                                                             {QStringLiteral("Ingreso"), 0.1, true, C::Numero},
                                                             {QStringLiteral("Inv.Inic."), 0.1, true, C::Numero},
                                                             {QStringLiteral("Salidas"), 0.1, true, C::Numero},
                                                             {QStringLiteral("Inv.Finl."), 0.1, true, C::Numero},
                                                             {QStringLiteral("FALT/SOB"), 0.1, true, C::Numero}});
  lvwProductos_->textoVacio = QStringLiteral("Hoy no se ha movido ningún producto");
  todo->addWidget(lvwProductos_, 1);

  auto* panel = new Panel({}, 3);
  const auto digitos = [](QChar t) { return FiltrarTecla(t, {ClaseTecla::Digitos}); };
  ProductoCuadre& q = v_.producto;
  // clang-format off
  const struct { const char *nombre, *etiqueta; QString* texto; bool seEscribe; } campos[] = {
      {"txtProductosNombre", "Producto", &q.txtProductosNombre, false},
      {"txtProductosID", "Ingreso", &q.txtProductosID, true},
      {"txtProductosII", "Inv.Inic.", &q.txtProductosII, true},
      {"txtProductosT", "Salidas", &q.txtProductosT, false},
      {"txtProductosIF", "Inv.Finl.", &q.txtProductosIF, true},
      {"txtProductosFS", "FALT/SOB", &q.txtProductosFS, false},
  };
  // clang-format on
  for (const auto& c : campos) {
    const QString nombre = QString::fromLatin1(c.nombre), etiqueta = QString::fromLatin1(c.etiqueta);
    Campo* campo = c.seEscribe ? panel->importe(nombre, etiqueta) : panel->fijo(nombre, etiqueta);
    if (c.texto == &q.txtProductosNombre) txtProductosNombre_ = campo;
    else campo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    producto_.texto(campo, *c.texto);
    if (!c.seEscribe) continue;
    campo->filtro = digitos;
    connect(campo, &QLineEdit::textEdited, this, [this] {
      producto_.recoger();
      CuadreProductosTotal(v_);
      producto_.mostrar();
    });
    if (!txtProductosID_) txtProductosID_ = campo;
  }
  todo->addWidget(panel);
  auto* acepta = nuevoBoton(QStringLiteral("cmdCuadraProductos"), QStringLiteral("Aceptar"));
  todo->addLayout(filaBotones({acepta}));
  panel->ensanchar(txtProductosNombre_);

  std::vector<FilaLista> filas;
  filas.reserve(v_.lvwProductos.size());
  for (int n = 0; n < static_cast<int>(v_.lvwProductos.size()); ++n) {
    filas.push_back({v_.lvwProductos[static_cast<size_t>(n)], n, true});
  }
  connect(lvwProductos_, &Lista::cambioActual, this, &frmCuadre::mostrarProducto);
  connect(lvwProductos_, &Lista::elegida, this, [this] { txtProductosID_->setFocus(); });
  connect(acepta, &QPushButton::clicked, this, [this] {
    const int n = lvwProductos_->actual();
    if (n < 0) return;
    FilaLista f = lvwProductos_->fila(n);
    producto_.recoger();
    DevolverProducto(v_, f.clave.toInt());
    f.celdas = v_.lvwProductos[f.clave.value<size_t>()];
    lvwProductos_->cambiar(n, std::move(f));
    producto_.mostrar();
    lvwProductos_->setFocus();
  });
  lvwProductos_->llenar(std::move(filas));
  return hoja;
}

void frmCuadre::mostrarProducto(int fila) {
  TomarProducto(v_, fila < 0 ? -1 : lvwProductos_->fila(fila).clave.toInt());
  producto_.mostrar();
  txtProductosNombre_->home(false);
}

void frmCuadre::dejarCaja() {
  caja_.recoger();
  DejarCaja(v_);
  caja_.mostrar();
}

void frmCuadre::cerrar() {
  if (!importesSinComa()) return;
  caja_.recoger();
  const QString mal = DejarCaja(v_);
  caja_.mostrar();
  if (!mal.isEmpty()) {
    p_.mensajes.mostrar(
        QStringLiteral("El saldo de caja no es un número.\nEscriba un importe como 150.00, o 0.00 si no "
                       "hay."));
    marcarMal(findChild<QWidget*>(mal));
    return;
  }
  if (v_.deCierre && !AceptarDiferencia(p_, v_)) {
    findChild<QWidget*>(QStringLiteral("txtCaja(0)"))->setFocus();
    return;
  }
  if (bReporteImpreso_) {
    const Ocupado ocupado(p_.mensajes, QStringLiteral("Imprimiendo el cuadre de caja…"));
    Imprimir(p_, v_);
  }
  accept();
}
