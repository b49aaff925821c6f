// The tab "Pagos a Cuenta".
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "credit/frm_pestana_credito.h"
#include "credit/pagos.h"
#include "foundation/puesto.h"
#include "platform/ui/lista.h"
#include "platform/ui/tema.h"

namespace {

std::vector<ColumnaLista> columnasPagos() {
  return {{QStringLiteral("Recibo"), 0.16},
          {QStringLiteral("Fecha"), 0.14, false, ColumnaLista::Fecha},
          {QStringLiteral("Forma de Pago"), 0.24},
          {QStringLiteral("Documento"), 0.22},
          {QStringLiteral("Monto"), 0.13, true, ColumnaLista::Numero},
          {QStringLiteral("Moneda"), 0.11}};
}

class PestanaPagos final : public PestanaCredito {
 public:
  explicit PestanaPagos(const ContextoCredito& c)
      : PestanaCredito(c),
        v_(c.v.pago),
        tipo_(c, QStringLiteral("cboTipoDocumento1"), v_.cboTipoDocumento1),
        forma_(c, QStringLiteral("dcbFormaPago"), v_.dcbFormaPago, [this] { CambiarForma(c_.v); }),
        banco_(c, QStringLiteral("dcbBanco"), v_.dcbBanco, [this] { CambiarBanco(c_.v); }),
        tarjeta_(c, QStringLiteral("dcbTarjeta"), v_.dcbTarjeta),
        moneda_(c, QStringLiteral("cboMoneda1"), v_.cboMoneda1) {
    auto* v = new QVBoxLayout(this);
    v->setContentsMargins(4, tema::px(6), 4, tema::px(6));
    v->setSpacing(tema::px(6));
    auto* fila = new QHBoxLayout;
    fila->setSpacing(8);
    fila->addWidget(nuevoDocumento(), 1);
    fila->addWidget(nuevoSaldo());
    v->addLayout(fila);
    v->addWidget(nuevosPagos(), 1);
    v->addWidget(nuevoRegistro());
    // A line of its own: with large amounts it is as long as the screen.
    auto* ultimo = nuevoTexto({}, QStringLiteral("bien"));
    ultimo->setObjectName(QStringLiteral("lblNuevoSaldo"));
    ultimo->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    c.enlaces.rotulo(ultimo, v_.ultimo);
    v->addWidget(ultimo);
    v->addLayout(nuevosBotones());
  }

  void mostrar() override {
    tipo_.mostrar(kTiposCredito);
    tipo_.control()->setEnabled(!v_.documento);
    forma_.mostrar(TextosDe(c_.v.referencias.formas));
    banco_.mostrar(TextosDe(c_.v.referencias.bancos));
    tarjeta_.mostrar(TextosDe(c_.v.referencias.tarjetas));
    moneda_.mostrar(kMonedas);
    moneda_.control()->setEnabled(!v_.chkEsDetraccion);
    const CamposForma campos = CamposDelPago(c_.v);
    for (QWidget* w : deBanco_) w->setVisible(campos.banco);
    for (QWidget* w : deTarjeta_) w->setVisible(campos.tarjeta);
    for (QWidget* w : deCertificado_) w->setVisible(campos.certificado);
    detraccion_->setVisible(v_.chkEsDetraccion);
    for (QWidget* w : {static_cast<QWidget*>(lblDetraccion_), static_cast<QWidget*>(actualizar_)}) {
      w->setVisible(v_.lblDetraccion);
    }
    soles_->setReadOnly(!MontoEditable(v_, false));
    dolares_->setReadOnly(!MontoEditable(v_, true));
    cuenta_->setReadOnly(v_.chkEsDetraccion);
    mostrarPagos();
  }
  QString primerControl() const override { return QStringLiteral("cboTipoDocumento1"); }
  bool vacia() const override { return v_.txtMontoSoles.isEmpty() && v_.txtMontoDolares.isEmpty(); }

  void grabar() override {
    commit([this] { return GrabarPago(c_.p, c_.v); });
  }
  void buscarDocumento() override {
    std::optional<QString> campo;
    c_.con([&] { campo = BuscarDocumentoPago(c_.p, c_.v, c_.pantallas); });
    window()->activateWindow();
    if (campo) c_.enfocar(*campo);
  }
  void anular() override {
    const int fila = pagos_->actual();
    c_.con([&] { AnularPago(c_.p, v_, c_.pantallas, fila); });
    window()->activateWindow();
  }
  void reimprimir() override {
    const int fila = pagos_->actual();
    QString elegido = v_.ultimo.section(u' ', 1, 1);
    if (elegido.endsWith(u'.')) elegido.chop(1);
    if (fila >= 0) elegido = pagos_->fila(fila).celdas.front();
    pedirCopia(QStringLiteral("Número del recibo (serie-número):"), elegido,
               [this](const QString& serie, const QString& numero) { return ReimprimirRecibo(c_.p, serie, numero); });
  }

  void actualizarDetraccion() override {
    if (!v_.lblDetraccion) return;
    c_.con([this] { ActualizarDetraccion(c_.p, v_); });
    window()->activateWindow();
    c_.enfocar(primerControl());
  }

 private:
  QWidget* nuevoDocumento() {
    auto* panel = nuevoPanelCredito(QStringLiteral("Datos de la Boleta/Factura"), 3);
    panel->agregar(QStringLiteral("Tipo Documento:"), tipo_.control());
    auto* busca = nuevoBoton(QStringLiteral("cmdBuscarDocumento"), QStringLiteral("Buscar (F6)"));
    panel->agregar({}, busca);
    panel->saltar();
    lblDetraccion_ =
        nuevoTexto(QStringLiteral("(*) El documento registra pago de detracción pendiente"), QStringLiteral("cuidado"));
    lblDetraccion_->setObjectName(QStringLiteral("lblDetraccion"));
    panel->agregar({}, lblDetraccion_);
    actualizar_ = nuevoBoton(QStringLiteral("cmdActualizarDetracc"), QStringLiteral("Actualizar Pago Detracc. (F8)"));
    panel->agregar({}, actualizar_);
    agregarFilaDeTextos(panel, c_.enlaces,
                        {{"lblNroDocumento2", u"Nro Documento:", v_.lblNroDocumento2},
                         {"lblMoneda", u"Moneda:", v_.lblMoneda},
                         {"lblCliente", u"Cliente:", v_.lblCliente}});
    connect(busca, &QPushButton::clicked, this, [this] { buscarDocumento(); });
    connect(actualizar_, &QPushButton::clicked, this, [this] { actualizarDetraccion(); });
    return panel;
  }
  QWidget* nuevoSaldo() {
    auto* panel = nuevoPanelCredito(QStringLiteral("Saldo por Pagar"), 1);
    for (auto [nombre, etiqueta, texto] : {std::tuple("lblSaldoSoles", "Soles", &v_.lblSaldoSoles),
                                           {"lblSaldoDolares", "Dolares", &v_.lblSaldoDolares}}) {
      Campo* campo = panel->fijo(QString::fromLatin1(nombre), QString::fromLatin1(etiqueta));
      campo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      campo->setFixedWidth(140);
      c_.enlaces.texto(campo, *texto);
    }
    return panel;
  }
  QWidget* nuevosPagos() {
    auto* panel = nuevoPanelCredito(QStringLiteral("Pagos Realizados"), 1);
    pagos_ = new Lista(QStringLiteral("dgdPagos"), columnasPagos());
    pagos_->textoVacio = QStringLiteral("Sin pagos");
    panel->agregar({}, pagos_);
    auto* anula = nuevoBoton(QStringLiteral("cmdAnularTransaccionPag"), QStringLiteral("Anular Pago (F7)"));
    auto* fila = new QWidget;
    auto* h = new QHBoxLayout(fila);
    h->setContentsMargins(0, 0, 0, 0);
    h->addWidget(anula);
    h->addStretch();
    panel->agregar({}, fila);
    connect(anula, &QPushButton::clicked, this, [this] { anular(); });
    return panel;
  }
  QWidget* nuevoRegistro() {
    auto* panel = nuevoPanelCredito(QStringLiteral("Registro de Pago:"), 3);
    Campo* fecha = panel->campo(QStringLiteral("DTPFechaPago"), QStringLiteral("Fecha de Pago:"));
    fecha->setFixedWidth(120);
    c_.enlaces.texto(fecha, v_.DTPFechaPago);
    panel->agregar(QStringLiteral("Forma de Pago:"), forma_.control());
    panel->ensanchar(forma_.control());
    panel->agregar(QStringLiteral("Moneda:"), moneda_.control());
    panel->saltar();
    soles_ =
        campoImporte(panel, QStringLiteral("txtMontoSoles"), QStringLiteral("&Monto:"), c_.enlaces, v_.txtMontoSoles);
    dolares_ = campoImporte(panel, QStringLiteral("txtMontoDolares"), QStringLiteral("Monto Dolares:"), c_.enlaces,
                            v_.txtMontoDolares);
    for (Campo* campo : {soles_, dolares_}) {
      connect(campo, &QLineEdit::textEdited, this, [this] { c_.con([this] { CambiarMontoPago(c_.p, v_); }); });
    }
    detraccion_ = new QCheckBox(QStringLiteral("Es detracción"));
    detraccion_->setObjectName(QStringLiteral("chkEsDetraccion"));
    detraccion_->setChecked(true);
    detraccion_->setEnabled(false);  // its being shown is what counts
    panel->agregar({}, detraccion_);
    nuevaForma(panel);
    return panel;
  }
  // The fields of the forms share one row: only those of one form are shown.
  void nuevaForma(Panel* panel) {
    auto* fila = new QWidget;
    auto* h = new QHBoxLayout(fila);
    h->setContentsMargins(0, 0, 0, 0);
    fila->setMinimumHeight(tema::px(34));
    const auto poner = [h](std::vector<QWidget*>& grupo, const char* nombre, const char16_t* etiqueta, QWidget* w) {
      auto* l = nuevoTexto(QString::fromUtf16(etiqueta));
      l->setObjectName(QString::fromLatin1(nombre));
      h->addWidget(l);
      h->addWidget(w, 1);
      grupo.push_back(l);
      grupo.push_back(w);
    };
    const auto campo = [this](const char* nombre, QString& texto) {
      auto* c = new Campo(QString::fromLatin1(nombre));
      c_.enlaces.texto(c, texto);
      return c;
    };
    cuenta_ = campo("txtNroCuenta", v_.txtNroCuenta);
    poner(deTarjeta_, "lblTipoTarjeta", u"Tipo Tarjeta:", tarjeta_.control());
    poner(deCertificado_, "lblCertificadoRetencion", u"Nro Cert. Retencion:",
          campo("txtNroCertificadoRetencion", v_.txtNroCertificadoRetencion));
    poner(deBanco_, "lblBanco", u"Banco:", banco_.control());
    poner(deBanco_, "lblNroCuenta", u"Nro Cuenta:", cuenta_);
    poner(deBanco_, "lblNroOperacion", u"Nro Operacion:", campo("txtNroOperacion", v_.txtNroOperacion));
    h->addStretch();
    static_cast<QVBoxLayout*>(panel->layout())->addWidget(fila);
  }
  QHBoxLayout* nuevosBotones() {
    auto* fila = new QHBoxLayout;
    auto* nuevo = nuevoBoton(QStringLiteral("cmdBoton(0)"), QStringLiteral("&Nuevo"));
    auto* graba = nuevoBoton(QStringLiteral("cmdBoton(3)"), QStringLiteral("&Grabar"), QStringLiteral("principal"));
    auto* copia = nuevoBoton(QStringLiteral("cmdReimprimirRecibo"), QStringLiteral("Reimprimir (F9)"));
    fila->addStretch(1);
    for (QPushButton* b : {graba, nuevo, copia}) fila->addWidget(b);
    connect(nuevo, &QPushButton::clicked, this, [this] {
      c_.con([this] {
        v_.ultimo.clear();
        LimpiarPagos(c_.p, v_);
      });
      c_.enfocar(primerControl());
    });
    connect(graba, &QPushButton::clicked, this, [this] { grabar(); });
    connect(copia, &QPushButton::clicked, this, [this] { reimprimir(); });
    return fila;
  }

  void mostrarPagos() {
    std::vector<FilaLista> filas;
    for (const PagoHecho& g : v_.dgdPagos) {
      filas.push_back({{g.serie + u'-' + g.numero, g.fecha, g.forma, g.detalle, g.monto, g.moneda}, {}});
    }
    bool igual = static_cast<int>(filas.size()) == pagos_->filas();
    for (int i = 0; igual && i < pagos_->filas(); ++i)
      igual = pagos_->fila(i).celdas == filas[static_cast<size_t>(i)].celdas;
    if (!igual) pagos_->llenar(std::move(filas));
  }

  TabPagos& v_;
  ListaCredito tipo_, forma_, banco_, tarjeta_, moneda_;
  QLabel* lblDetraccion_ = nullptr;
  QPushButton* actualizar_ = nullptr;
  Lista* pagos_ = nullptr;
  Campo *soles_ = nullptr, *dolares_ = nullptr, *cuenta_ = nullptr;
  QCheckBox* detraccion_ = nullptr;
  std::vector<QWidget*> deBanco_, deTarjeta_, deCertificado_;
};

}  // namespace

PestanaCredito* nuevaPestanaPagos(const ContextoCredito& c) { return new PestanaPagos(c); }
