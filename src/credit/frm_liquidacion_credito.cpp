// The tab "Liquidacion".
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "credit/frm_pestana_credito.h"
#include "credit/liquidacion_credito.h"
#include "documento/importe_tecleado.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/ui/lista.h"
#include "platform/ui/tema.h"

namespace {

std::vector<ColumnaLista> columnasDe(int lista) {
  std::vector<ColumnaLista> columnas{{QStringLiteral("TX"), 0.07},
                                     {QStringLiteral("Tipo"), 0.07},
                                     {QStringLiteral("Doc"), 0.12},
                                     {QStringLiteral("Tarjeta"), 0.11},
                                     {QStringLiteral("Total(S/.)"), 0.11, true, ColumnaLista::Numero},
                                     {QStringLiteral("Fecha"), 0.11, false, ColumnaLista::Fecha}};
  if (lista == 1) {
    columnas.push_back({QStringLiteral("FADE/BADE"), 0.14});
    return columnas;
  }
  columnas.push_back({QStringLiteral("Monto Orig."), 0.13, true});
  columnas.push_back({QStringLiteral("Cliente - Glosa"), 0.28});
  return columnas;
}

QStringList celdasDe(const LineaLQ& l, int lista) {
  QStringList c{l.tx, l.tipo, l.doc, l.tarjeta, l.total, l.fecha};
  if (lista == 0) c << l.original << l.cliente;
  else c << l.relacion;
  return c;
}

class PestanaLiquidacion final : public PestanaCredito {
 public:
  explicit PestanaLiquidacion(const ContextoCredito& c)
      : PestanaCredito(c), v_(c.v.liquidacion), tipo_(c, QStringLiteral("cboTipoDocumento3"), v_.cboTipoDocumento3) {
    auto* v = new QVBoxLayout(this);
    v->setContentsMargins(4, tema::px(6), 4, tema::px(6));
    v->setSpacing(tema::px(6));
    v->addWidget(nuevoDocumento());
    v->addWidget(nuevaLista(0, "Sin documento: F6 para buscar", "Total FADE/BADE (S/.):", "txtTotalPA", v_.txtTotalPA),
                 2);
    v->addWidget(nuevaLista(1, "Sin notas de consumo", "Total N/C (S/.):", "txtTotalNC", v_.txtTotalNC), 3);
    v->addWidget(nuevoDinero());
    v->addWidget(nuevaPantallaTotal(c.enlaces, QStringLiteral("txtSolesLQ"), v_.txtSolesLQ,
                                    QStringLiteral("txtDolaresLQ"), v_.txtDolaresLQ));
    v->addLayout(nuevosBotones());
  }

  void mostrar() override {
    tipo_.mostrar(kTiposCredito);
    for (Campo* campo : efectivo_) campo->setReadOnly(!CobraLQ(v_));
    for (int n = 0; n < 2; ++n) {
      const auto i = static_cast<size_t>(n);
      if (mostradas_[i] == v_.lvwTX[i]) continue;
      mostradas_[i] = v_.lvwTX[i];
      std::vector<FilaLista> filas;
      for (const LineaLQ& l : v_.lvwTX[i]) filas.push_back({celdasDe(l, n), l.tx});
      listas_[i]->llenar(std::move(filas));
    }
  }
  QString primerControl() const override { return QStringLiteral("cboTipoDocumento3"); }
  // A document that was only looked at is no loss.
  bool vacia() const override {
    return LeerImporte(v_.txtEfectivoSolesLQ) == 0 && LeerImporte(v_.txtEfectivoDolaresLQ) == 0;
  }

  void grabar() override {
    commit([this] { return GrabarLiquidacion(c_.p, c_.v); });
  }
  void buscarDocumento() override {
    std::optional<QString> campo;
    c_.con([&] { campo = BuscarDocumentoLQ(c_.p, c_.v, c_.pantallas); });
    window()->activateWindow();
    if (campo) c_.enfocar(*campo);
  }
  bool alEntrar(QWidget* campo) override {
    if (campo != codigo_) return false;
    agregar();
    return true;
  }

 private:
  void agregar() {
    std::optional<QString> campo;
    c_.con([&] { campo = AgregarDocumentoLQ(c_.p, v_); });
    if (campo) c_.enfocar(*campo);
  }
  QWidget* nuevoDocumento() {
    auto* panel = nuevoPanelCredito(QStringLiteral("Documento"), 6);
    panel->agregar(QStringLiteral("Tipo Documento:"), tipo_.control());
    codigo_ = panel->campo(QStringLiteral("txtTXL(0)"), QStringLiteral("TX:"));
    codigo_->setFixedWidth(104);
    codigo_->filtro = [](QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Digitos}); };
    c_.enlaces.texto(codigo_, v_.txtTXL);
    const std::pair<const char*, const char16_t*> botones[] = {
        {"CmdAdd(0)", u"Adicionar"}, {"cmdTXL(0)", u"Buscar (F6)"}, {"CmdDel(0)", u"Eliminar"}};
    std::vector<QPushButton*> b;
    for (const auto& [nombre, texto] : botones) {
      b.push_back(nuevoBoton(QString::fromLatin1(nombre), QString::fromUtf16(texto)));
      panel->agregar({}, b.back());
    }
    connect(b[0], &QPushButton::clicked, this, [this] { agregar(); });
    connect(b[1], &QPushButton::clicked, this, [this] { buscarDocumento(); });
    connect(b[2], &QPushButton::clicked, this, [this] {
      const int fila = listas_[0]->actual();
      c_.con([this, fila] { QuitarDocumentoLQ(c_.p, v_, fila); });
    });
    return panel;
  }
  QWidget* nuevaLista(int n, const char* vacia, const char* leyenda, const char* nombreTotal, QString& total) {
    auto* caja = new QWidget;
    auto* v = new QVBoxLayout(caja);
    v->setContentsMargins(0, 0, 0, 0);
    v->setSpacing(2);
    auto* lista = new Lista(QStringLiteral("lvwTX(%1)").arg(n), columnasDe(n));
    lista->textoVacio = QString::fromUtf8(vacia);
    listas_[static_cast<size_t>(n)] = lista;
    v->addWidget(lista, 1);
    auto* fila = new QHBoxLayout;
    fila->addStretch();
    fila->addWidget(nuevoTexto(QString::fromUtf8(leyenda), QStringLiteral("suave")));
    Campo* campo = nuevoFijo(QString::fromLatin1(nombreTotal));
    campo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    campo->setFixedWidth(130);
    c_.enlaces.texto(campo, total);
    fila->addWidget(campo);
    v->addLayout(fila);
    return caja;
  }
  QWidget* nuevoDinero() {
    auto* panel = nuevoPanelCredito({}, 4);
    efectivo_ = {campoImporte(panel, QStringLiteral("txtEfectivoSolesLQ"), QStringLiteral("&Efectivo:  S/."),
                              c_.enlaces, v_.txtEfectivoSolesLQ),
                 campoImporte(panel, QStringLiteral("txtEfectivoDolaresLQ"), QStringLiteral("US$"), c_.enlaces,
                              v_.txtEfectivoDolaresLQ)};
    for (Campo* campo : efectivo_) {
      campo->alSalir = [this] {
        c_.con([this] {
          for (QString* t : {&v_.txtEfectivoSolesLQ, &v_.txtEfectivoDolaresLQ}) *t = ImporteTecleado(*t, u"0.00");
          TotalesLQ(c_.p, v_);
        });
      };
    }
    for (auto [nombre, etiqueta, texto] : {std::tuple("txtVueltoSolesLQ", "Vuelto:  S/.", &v_.txtVueltoSolesLQ),
                                           {"txtVueltoDolaresLQ", "US$", &v_.txtVueltoDolaresLQ}}) {
      Campo* campo = panel->fijo(QString::fromLatin1(nombre), QString::fromLatin1(etiqueta));
      campo->setMinimumWidth(112);
      campo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      c_.enlaces.texto(campo, *texto);
    }
    return panel;
  }
  QHBoxLayout* nuevosBotones() {
    auto* fila = new QHBoxLayout;
    auto* graba = nuevoBoton(QStringLiteral("cmdGrabaLiq"), QStringLiteral("&Grabar"), QStringLiteral("principal"));
    auto* sale = nuevoBoton(QStringLiteral("Command1"), QStringLiteral("&Salir"));
    fila->addStretch(1);
    for (QPushButton* b : {graba, sale}) fila->addWidget(b);
    connect(graba, &QPushButton::clicked, this, [this] { grabar(); });
    connect(sale, &QPushButton::clicked, this, [this] { window()->close(); });
    return fila;
  }

  TabLiquidacion& v_;
  ListaCredito tipo_;
  Campo* codigo_ = nullptr;
  std::array<Lista*, 2> listas_{};
  std::array<std::vector<LineaLQ>, 2> mostradas_;
  std::vector<Campo*> efectivo_;
};

}  // namespace

PestanaCredito* nuevaPestanaLiquidacion(const ContextoCredito& c) { return new PestanaLiquidacion(c); }
