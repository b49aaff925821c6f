// The tab "Facturacion".
#include "credit/facturacion.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "credit/frm_pestana_credito.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "loyalty/frm_cliente_documento.h"
#include "platform/ui/tema.h"

namespace {

class PestanaFacturacion final : public PestanaCredito {
 public:
  explicit PestanaFacturacion(const ContextoCredito& c)
      : PestanaCredito(c),
        v_(c.v.factura),
        credito_(c, QStringLiteral("dcbTipoCredito"), v_.dcbTipoCredito),
        tipo_(c, QStringLiteral("cboTipoDocumento"), v_.cboTipoDocumento),
        moneda_(c, QStringLiteral("cboMoneda"), v_.cboMoneda) {
    auto* v = new QVBoxLayout(this);
    v->setContentsMargins(4, tema::px(6), 4, tema::px(6));
    v->setSpacing(tema::px(6));
    v->addWidget(nuevoCliente());
    auto* fila = new QHBoxLayout;
    fila->setSpacing(8);
    fila->addWidget(nuevoCredito());
    fila->addWidget(nuevoDocumento(), 1);
    v->addLayout(fila);
    detalle_ =
        new DetalleLineas(c, QStringLiteral("TDGFacturacion"), {}, v_.rejilla, [this] { TotalesFactura(c_.p, v_); });
    v->addWidget(detalle_, 1);
    auto* botones = detalle_->nuevosBotones();
    botones->addStretch();
    v->addLayout(botones);
    v->addWidget(nuevaPantallaTotal(c.enlaces, QStringLiteral("txtSoles"), v_.txtSoles, QStringLiteral("txtDolares"),
                                    v_.txtDolares));
    v->addLayout(nuevosBotones());
  }

  void mostrar() override {
    cliente_.mostrar(v_);
    credito_.mostrar(TextosDe(c_.v.referencias.creditos));
    tipo_.mostrar(kTiposCredito);
    moneda_.mostrar(kMonedas);
    detalle_->mostrar();
  }
  QString primerControl() const override { return QStringLiteral("txtTarjeta"); }
  DetalleLineas* detalle() override { return detalle_; }
  bool vacia() const override { return SinLineas(v_.rejilla); }

  void grabar() override {
    if (!detalle_->dejarCelda()) return;
    commit([this] { return GrabarFactura(c_.p, c_.v, c_.pantallas); });
  }
  // On this tab what is looked for is the customer.
  void buscarDocumento() override {
    const auto elegida = c_.pantallas.buscarCliente({});
    window()->activateWindow();
    if (elegida) tomar(*elegida);
  }
  void anular() override {
    const auto doc = DocCreditoDe(v_.cboTipoDocumento);
    if (!doc) {
      c_.p.mensajes.mostrar(QStringLiteral("Debe elegir un tipo de documento...!"), QStringLiteral("Mensaje"));
      c_.enfocar(QStringLiteral("cboTipoDocumento"));
      return;
    }
    c_.pantallas.anularDocumento(*doc);
    window()->activateWindow();
  }
  void reimprimir() override {
    // The tab is empty behind a commit: the copy asked for then is that of the last document.
    const auto doc = v_.cboTipoDocumento < 0 ? v_.docUltimo : DocCreditoDe(v_.cboTipoDocumento);
    if (!doc) {
      c_.p.mensajes.mostrar(QStringLiteral("Debe elegir un tipo de documento...!"), QStringLiteral("Mensaje"));
      c_.enfocar(QStringLiteral("cboTipoDocumento"));
      return;
    }
    pedirCopia(
        QStringLiteral("Número de la ") + PalabraDe(*doc) + QStringLiteral(" (serie-número):"),
        doc == v_.docUltimo ? v_.ultimo.section(u' ', 2) : QString(),
        [&](const QString& serie, const QString& numero) { return ReimprimirFactura(c_.p, *doc, serie, numero); });
  }
  void registrarCliente() override {
    const auto elegida = c_.pantallas.nuevoCliente();
    window()->activateWindow();
    if (elegida) tomar(*elegida);
  }
  bool alEntrar(QWidget* campo) override {
    // Behind the currency come the articles, not the button that voids.
    if (campo == moneda_.control()) {
      c_.enfocar(QStringLiteral("TDGFacturacion"));
      return true;
    }
    if (!cliente_.buscaDesde(campo)) return false;
    ResultadoTarjeta r{};
    c_.con([&] { r = BuscaTarjeta(c_.p, v_, c_.pantallas); });
    tras(r);
    return true;
  }

 private:
  QWidget* nuevoCliente() {
    auto* panel = nuevoPanelCredito(QStringLiteral(" Datos del Cliente "), 6);
    cliente_ = nuevosControlesCliente(panel, c_.enlaces, c_.p, v_, c_.pantallas,
                                      {.nombres = QStringLiteral("txtNombres"),
                                       .local = QStringLiteral("&Local:"),
                                       .con = [con = c_.con](const std::function<void()>& accion) { con(accion); }});
    cliente_.txtTarjeta->setFixedWidth(110);
    cliente_.txtNombres->setMinimumWidth(110);
    panel->ensanchar(cliente_.txtNombres);
    cliente_.txtLocal->setFixedWidth(48);
    auto* busca = nuevoBoton(QStringLiteral("txtBuscaCliente"), QStringLiteral("Buscar (F2)"));
    auto* nuevo = nuevoBoton(QStringLiteral("cmdNuevoCliente"), QStringLiteral("Nuevo Cliente (F3)"));
    auto* botones = new QWidget;
    auto* h = new QHBoxLayout(botones);
    h->setContentsMargins(0, 0, 0, 0);
    h->addWidget(busca);
    h->addWidget(nuevo);
    panel->agregar({}, botones);
    connect(busca, &QPushButton::clicked, this, [this] { buscarDocumento(); });
    connect(nuevo, &QPushButton::clicked, this, [this] { registrarCliente(); });
    return panel;
  }
  QWidget* nuevoCredito() {
    auto* panel = nuevoPanelCredito(QStringLiteral("Datos del Credito"), 2);
    Campo* ruc = panel->campo(QStringLiteral("txtRUC"), QStringLiteral("&RUC Cliente:"));
    ruc->setMinimumWidth(118);
    ruc->filtro = [](QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Digitos}); };
    c_.enlaces.texto(ruc, v_.txtRUC);
    panel->agregar(QStringLiteral("Credito a:"), credito_.control());
    Campo* fecha = panel->campo(QStringLiteral("DTPFechaEmision"), QStringLiteral("Fecha de Emision:"));
    fecha->setMinimumWidth(116);
    c_.enlaces.texto(fecha, v_.DTPFechaEmision);
    return panel;
  }
  QWidget* nuevoDocumento() {
    auto* panel = nuevoPanelCredito(QStringLiteral("Datos del Documento"), 2);
    panel->agregar(QStringLiteral("Tipo Documento:"), tipo_.control());
    panel->agregar(QStringLiteral("Moneda:"), moneda_.control());
    agregarRotulo(panel, QStringLiteral("lblNroDocumento"), QStringLiteral("Nro Documento:"), c_.enlaces,
                  v_.lblNroDocumento);
    auto* anula = nuevoBoton(QStringLiteral("cmdAnulacionFact"), QStringLiteral("Anular Documento"));
    panel->agregar({}, anula);
    connect(anula, &QPushButton::clicked, this, [this] { anular(); });
    return panel;
  }
  QHBoxLayout* nuevosBotones() {
    auto* fila = new QHBoxLayout;
    auto* ultimo = nuevoTexto({}, QStringLiteral("bien"));
    ultimo->setObjectName(QStringLiteral("lblUltimoDocumento"));
    c_.enlaces.rotulo(ultimo, v_.ultimo);
    auto* copia = nuevoBoton(QStringLiteral("cmdReimprimir"), QStringLiteral("Reimprimir (F9)"));
    auto* graba =
        nuevoBoton(QStringLiteral("cmdGrabarFactura"), QStringLiteral("&Grabar"), QStringLiteral("principal"));
    auto* sale = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
    fila->addWidget(ultimo, 1);
    for (QPushButton* b : {graba, copia, sale}) fila->addWidget(b);
    connect(copia, &QPushButton::clicked, this, [this] { reimprimir(); });
    connect(graba, &QPushButton::clicked, this, [this] { grabar(); });
    connect(sale, &QPushButton::clicked, this, [this] { window()->close(); });
    return fila;
  }

  void tomar(const TarjetaElegida& elegida) {
    ResultadoTarjeta r{};
    c_.con([&] { r = TomarCliente(c_.p, v_, c_.pantallas, elegida); });
    tras(r);
  }
  void tras(ResultadoTarjeta r) {
    if (r == ResultadoTarjeta::NoExiste) c_.enfocar(QStringLiteral("txtTarjeta"));
    else if (r == ResultadoTarjeta::VariosLocales) c_.enfocar(QStringLiteral("dcbLocal"));
    else c_.enfocar(QStringLiteral("txtRUC"));
  }

  TabFacturacion& v_;
  ControlesCliente cliente_;
  ListaCredito credito_, tipo_, moneda_;
  DetalleLineas* detalle_;
};

}  // namespace

PestanaCredito* nuevaPestanaFacturacion(const ContextoCredito& c) { return new PestanaFacturacion(c); }
