// The tab "Nota de Consumo".
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "credit/frm_pestana_credito.h"
#include "credit/nota_consumo.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/ui/lista.h"
#include "platform/ui/tema.h"

namespace {

std::vector<ColumnaLista> columnasLineas() {
  return {{QStringLiteral("Cod."), 0.12},
          {QStringLiteral("Descripción"), 0.4},
          {QStringLiteral("Cant."), 0.14, true, ColumnaLista::Numero},
          {QStringLiteral("Prec.Unit."), 0.16, true, ColumnaLista::Numero},
          {QStringLiteral("Dscto/Recar (%)"), 0.16, true, ColumnaLista::Numero}};
}

class PestanaNota final : public PestanaCredito {
 public:
  explicit PestanaNota(const ContextoCredito& c)
      : PestanaCredito(c), v_(c.v.nota), tipo_(c, QStringLiteral("cboTipoDocumento2"), v_.cboTipoDocumento2, [this] {
          const int elegido = v_.cboTipoDocumento2;
          LimpiarNota(v_);
          v_.cboTipoDocumento2 = elegido;
        }) {
    auto* v = new QVBoxLayout(this);
    v->setContentsMargins(4, tema::px(6), 4, tema::px(6));
    v->setSpacing(tema::px(6));
    v->addWidget(nuevoDocumento());
    v->addWidget(nuevasLineas(), 2);
    v->addWidget(nuevoConsumo(), 3);
    v->addWidget(nuevaPantallaTotal(c.enlaces, QStringLiteral("txtSolesNC"), v_.txtSolesNC,
                                    QStringLiteral("txtDolaresNC"), v_.txtDolaresNC));
    v->addLayout(nuevosBotones());
  }

  void mostrar() override {
    tipo_.mostrar(kTiposCredito);
    detalle_->mostrar();
    mostrarLineas();
  }
  QString primerControl() const override { return QStringLiteral("cboTipoDocumento2"); }
  DetalleLineas* detalle() override { return detalle_; }
  bool vacia() const override { return SinLineas(v_.rejilla); }

  void grabar() override {
    if (!detalle_->dejarCelda()) return;
    commit([this] { return GrabarNota(c_.p, c_.v, c_.pantallas); });
  }
  void buscarDocumento() override {
    detalle_->abandonarCelda();
    std::optional<QString> campo;
    c_.con([&] { campo = BuscarDocumentoNC(c_.p, c_.v, c_.pantallas); });
    window()->activateWindow();
    if (!campo) return;
    if (*campo == u"TDGNotaConsumo") lineas_->setFocus();
    else c_.enfocar(*campo);
  }

 private:
  QWidget* nuevoDocumento() {
    auto* panel = nuevoPanelCredito(QStringLiteral("Datos de la Boleta/Factura"), 3);
    panel->agregar(QStringLiteral("Tipo Doc:"), tipo_.control());
    auto* busca = nuevoBoton(QStringLiteral("cmdBuscarDocumentoNC"), QStringLiteral("Buscar (F6)"));
    panel->agregar({}, busca);
    rotulo(panel, "lblNroDocumentoNC", u"Nro Documento:", v_.lblNroDocumentoNC);
    rotulo(panel, "lblFecEmisionNC", u"F. de Emision:", v_.lblFecEmisionNC);
    importe(panel, "txtMontoDocumento", u"Monto Documento:", v_.txtMontoDocumento);
    importe(panel, "txtMontoPorConsumirDocumento", u"Monto Por Consumir:", v_.txtMontoPorConsumirDocumento);
    agregarFilaDeTextos(panel, c_.enlaces,
                        {{"lblLocalNC", u"Local:", v_.lblLocalNC},
                         {"lblCreditoaNC", u"Credito a:", v_.lblCreditoaNC},
                         {"lblClienteNC", u"Cliente:", v_.lblClienteNC}});
    connect(busca, &QPushButton::clicked, this, [this] { buscarDocumento(); });
    return panel;
  }
  QWidget* nuevasLineas() {
    auto* panel = nuevoPanelCredito(QStringLiteral("Artículos del documento: Enter lo pasa a la nota"), 1);
    lineas_ = new Lista(QStringLiteral("lvwLineas"), columnasLineas());
    lineas_->textoVacio = QStringLiteral("Elija el documento");
    lineas_->setMinimumHeight(tema::px(64));
    panel->agregar({}, lineas_);
    connect(lineas_, &Lista::elegida, this, [this](int linea) { tomarLinea(linea); });
    return panel;
  }
  QWidget* nuevoConsumo() {
    auto* panel = nuevoPanelCredito({}, 1);
    detalle_ = new DetalleLineas(c_, QStringLiteral("TDGNotaConsumo"), QStringLiteral("NC"), v_.rejilla,
                                 [this] { TotalesNota(c_.p, v_); });
    panel->agregar({}, detalle_);
    // Title and buttons share a row: what it saves is one more line of the grid.
    auto* titulo = new QHBoxLayout;
    titulo->addWidget(nuevoTexto(QStringLiteral("Ingrese su Consumo"), QStringLiteral("titulo")));
    titulo->addStretch();
    titulo->addLayout(detalle_->nuevosBotones());
    static_cast<QVBoxLayout*>(panel->layout())->insertLayout(0, titulo);
    return panel;
  }
  QHBoxLayout* nuevosBotones() {
    auto* fila = new QHBoxLayout;
    auto* graba = nuevoBoton(QStringLiteral("cmdGrabarNC"), QStringLiteral("&Grabar"), QStringLiteral("principal"));
    auto* sale = nuevoBoton(QStringLiteral("Command3"), QStringLiteral("&Salir"));
    fila->addStretch(1);
    for (QPushButton* b : {graba, sale}) fila->addWidget(b);
    connect(graba, &QPushButton::clicked, this, [this] { grabar(); });
    connect(sale, &QPushButton::clicked, this, [this] { window()->close(); });
    return fila;
  }

  void rotulo(Panel* panel, const char* nombre, const char16_t* etiqueta, const QString& texto) {
    agregarRotulo(panel, QString::fromLatin1(nombre), QString::fromUtf16(etiqueta), c_.enlaces, texto);
  }
  void importe(Panel* panel, const char* nombre, const char16_t* etiqueta, QString& texto) {
    Campo* campo = panel->fijo(QString::fromLatin1(nombre), QString::fromUtf16(etiqueta));
    campo->setMinimumWidth(110);
    campo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    c_.enlaces.texto(campo, texto);
  }
  // Behind an article that was taken its quantity comes next.
  void tomarLinea(int linea) {
    if (!detalle_->dejarCelda()) return;
    std::optional<int> fila;
    c_.con([&] { fila = TomarLineaVendida(c_.p, v_, linea); });
    if (fila) detalle_->rejilla()->irA({*fila, kCant});
  }
  void mostrarLineas() {
    std::vector<FilaLista> filas;
    for (const LineaVendida& l : v_.lineas) {
      filas.push_back({{l.codigo, l.descripcion, TextoDe(l.cantidad), Formatear(l.precio, u"0.00"),
                        Formatear(l.porcentaje, u"0.00")},
                       {}});
    }
    bool igual = static_cast<int>(filas.size()) == lineas_->filas();
    for (int i = 0; igual && i < lineas_->filas(); ++i) {
      igual = lineas_->fila(i).celdas == filas[static_cast<size_t>(i)].celdas;
    }
    if (!igual) lineas_->llenar(std::move(filas));
  }

  TabNota& v_;
  ListaCredito tipo_;
  Lista* lineas_ = nullptr;
  DetalleLineas* detalle_ = nullptr;
};

}  // namespace

PestanaCredito* nuevaPestanaNota(const ContextoCredito& c) { return new PestanaNota(c); }
