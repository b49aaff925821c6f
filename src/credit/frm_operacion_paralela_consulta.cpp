#include "credit/frm_operacion_paralela_consulta.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/ui/lista.h"

namespace {

Lista* nuevaLista(const char* nombre, const std::vector<ColumnaConsulta>& columnas) {
  std::vector<ColumnaLista> c;
  for (const ColumnaConsulta& x : columnas) {
    const bool numero = x.clase == ColumnaConsulta::Numero;
    c.push_back({QString::fromUtf16(x.titulo), x.fraccion, numero,
                 numero                              ? ColumnaLista::Numero
                 : x.clase == ColumnaConsulta::Fecha ? ColumnaLista::Fecha
                                                     : ColumnaLista::Texto});
  }
  return new Lista(QString::fromLatin1(nombre), c);
}

QComboBox* nuevaEleccion(const char* nombre, const QStringList& entradas) {
  auto* c = new QComboBox;
  c->setObjectName(QString::fromLatin1(nombre));
  c->addItems(entradas);
  return c;
}

const QString kTodos = QStringLiteral("-->");

}  // namespace

frmOperacionParalelaConsulta::frmOperacionParalelaConsulta(Puesto& p, QWidget* padre)
    : Forma(QStringLiteral("frmOperacionParalelaConsulta"), QStringLiteral("Operaciones Paralelas"), padre), p_(p) {
  InicioConsulta(p_, v_);
  auto* panel = new Panel({}, 4);
  cboTipoVenta_ =
      nuevaEleccion("cboTipoVenta", {kTodos, QStringLiteral("O/C"), QStringLiteral("N/C"), QStringLiteral("PADE"),
                                     QStringLiteral("PADV"), QStringLiteral("LIQPAD")});
  cboEstado_ = nuevaEleccion(
      "cboEstado", {kTodos, QStringLiteral("Vigente"), QStringLiteral("Liquidado"), QStringLiteral("Anulado")});
  panel->agregar(QStringLiteral("Tipo de Operación:"), cboTipoVenta_);
  panel->agregar(QStringLiteral("Estado:"), cboEstado_);
  desde_ = panel->campo(QStringLiteral("DTDesde"), QStringLiteral("&Fechas:"));
  hasta_ = panel->campo(QStringLiteral("DTHasta"), QStringLiteral("a"));
  desde_->setText(v_.DTDesde);
  hasta_->setText(v_.DTHasta);
  cuerpo()->addWidget(panel);
  auto* busca = nuevoBoton(QStringLiteral("cmdBuscar"), QStringLiteral("&Buscar"), QStringLiteral("principal"));
  auto* sale = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
  cuerpo()->addLayout(filaBotones({busca, sale}));
  cuerpo()->addWidget(nuevoTexto(QStringLiteral(" Operación ")));
  operaciones_ = nuevaLista("lvwOperacion", ColumnasOperacion());
  operaciones_->textoVacio = QStringLiteral("Elija tipo, estado y fechas, y pulse Buscar");
  cuerpo()->addWidget(operaciones_, 3);
  cuerpo()->addWidget(nuevoTexto(QStringLiteral(" Productos ")));
  productos_ = nuevaLista("lvwProducto", ColumnasProducto());
  cuerpo()->addWidget(productos_, 2);
  connect(busca, &QPushButton::clicked, this, &frmOperacionParalelaConsulta::buscar);
  connect(sale, &QPushButton::clicked, this, &QDialog::reject);
  connect(operaciones_, &Lista::cambioActual, this, [this] { cargarLineas(); });
  tecla(
      Qt::ALT | Qt::Key_B, [this] { buscar(); }, QStringLiteral("buscar"));
  tecla(
      Qt::ALT | Qt::Key_S, [this] { reject(); }, QStringLiteral("salir"));
  resize(1016, 720);
  cboTipoVenta_->setFocus();
}

bool frmOperacionParalelaConsulta::alEntrar(QWidget* campo) {
  if (campo != hasta_) return false;
  buscar();
  return true;
}

void frmOperacionParalelaConsulta::buscar() {
  v_ = {cboTipoVenta_->currentIndex(), cboEstado_->currentIndex(), desde_->text(), hasta_->text()};
  std::vector<FilaOperacionParalela> filas;
  QString campoMal;
  const CursorEspera espera;
  operaciones_->textoVacio = QStringLiteral("Sin operaciones");
  if (!BuscarOperaciones(p_, v_, filas, campoMal)) {
    operaciones_->llenar({});
    if (auto* campo = campoMal.isEmpty() ? nullptr : findChild<Campo*>(campoMal)) marcarMal(campo);
    return;
  }
  std::vector<FilaLista> mostradas;
  mostradas.reserve(filas.size());
  for (auto& f : filas) mostradas.push_back({std::move(f.celdas), f.cOperCode, true});
  operaciones_->llenar(std::move(mostradas));
  operaciones_->setFocus();
  cargarLineas();
}

void frmOperacionParalelaConsulta::cargarLineas() {
  std::vector<FilaLista> filas;
  const int n = operaciones_->actual();
  if (n >= 0) {
    for (auto& celdas : LineasOperacion(p_, operaciones_->fila(n).clave.toLongLong())) {
      filas.push_back({std::move(celdas), {}, true});
    }
  }
  productos_->llenar(std::move(filas));
}
