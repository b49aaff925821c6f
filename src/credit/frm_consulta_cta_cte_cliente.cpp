#include "credit/frm_consulta_cta_cte_cliente.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/puesto.h"
#include "platform/ui/lista.h"

namespace {

// The columns of the server that are shown.
constexpr int kPrimera = 2, kUltima = 10;

Lista* nuevaLista(const char* nombre, const QStringList& titulos, const std::vector<double>& fracciones,
                  const std::vector<bool>& derecha) {
  std::vector<ColumnaLista> columnas;
  for (size_t n = 0; n < fracciones.size(); ++n) {
    columnas.push_back({titulos.value(static_cast<qsizetype>(n)), fracciones[n], derecha[n],
                        derecha[n] ? ColumnaLista::Numero : ColumnaLista::Texto});
  }
  return new Lista(QString::fromLatin1(nombre), columnas);
}

}  // namespace

frmConsultaCtaCteCliente::frmConsultaCtaCteCliente(Puesto& p, BuscadorClientes& pantallas, QWidget* padre)
    : Forma(QStringLiteral("frmConsultaCtaCteCliente"), QStringLiteral("Consulta Cuenta Corriente x Cliente"), padre),
      p_(p),
      pantallas_(pantallas) {
  crearCliente();
  auto* consulta =
      nuevoBoton(QStringLiteral("cmdConsultar"), QStringLiteral("C&onsultar"), QStringLiteral("principal"));
  imprimir_ = nuevoBoton(QStringLiteral("cmdImprimir"), QStringLiteral("Ver &Reporte"));
  auto* busca = nuevoBoton(QStringLiteral("txtBuscaCliente"), QStringLiteral("&Buscar cliente"));
  auto* salir = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
  cuerpo()->addLayout(filaBotones({consulta, imprimir_, busca, salir}));
  documentos_ =
      nuevaLista("DgdDocumento",
                 {QStringLiteral("Documento"), QStringLiteral("Serie"), QStringLiteral("Numero"),
                  QStringLiteral("Fec Emision"), QStringLiteral("Moneda"), QStringLiteral("Total Vta"),
                  QStringLiteral("Total Vta USD"), QStringLiteral("M. Restante"), QStringLiteral("M. Restante USD")},
                 {0.115, 0.065, 0.085, 0.12, 0.09, 0.1, 0.14, 0.12, 0.165},
                 {false, false, false, false, false, true, true, true, true});
  documentos_->textoVacio = QStringLiteral("Escriba una tarjeta y pulse Enter, y luego Consultar");
  cuerpo()->addWidget(documentos_, 3);
  cuerpo()->addWidget(nuevoTexto(QStringLiteral("Pagos del documento"), QStringLiteral("suave")));
  pagos_ = nuevaLista(
      "dgdPagos",
      {QStringLiteral("Serie"), QStringLiteral("Numero"), QStringLiteral("Fecha"), QStringLiteral("Forma de Pago"),
       QStringLiteral("Documento"), QStringLiteral("Monto"), QStringLiteral("Moneda"), QStringLiteral("Anulado")},
      {0.06, 0.085, 0.115, 0.225, 0.215, 0.1, 0.09, 0.11}, {false, false, false, false, false, true, false, false});
  cuerpo()->addWidget(pagos_, 2);
  connect(consulta, &QPushButton::clicked, this, &frmConsultaCtaCteCliente::consultar);
  connect(busca, &QPushButton::clicked, this, &frmConsultaCtaCteCliente::buscarCliente);
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  connect(imprimir_, &QPushButton::clicked, this, [this] {
    const Ocupado ocupado(p_.mensajes, QStringLiteral("Imprimiendo el estado de cuenta…"));
    VerReporteCuenta(p_, v_);
  });
  connect(documentos_, &Lista::cambioActual, this, [this] { mostrarPagos(); });
  tecla(
      Qt::Key_F2, [this] { buscarCliente(); }, QStringLiteral("cliente"));
  tecla(
      Qt::ALT | Qt::Key_O, [this] { consultar(); }, QStringLiteral("consultar"));
  tecla(
      Qt::ALT | Qt::Key_R, [this] { imprimir_->click(); }, QStringLiteral("reporte"));
  tecla(
      Qt::ALT | Qt::Key_S, [this] { reject(); }, QStringLiteral("salir"));
  resize(1016, 720);
  CargarLocales(p_, v_.cliente);
  v_.cliente.localVisible = true;
  mostrar();
  cliente_.txtTarjeta->setFocus();
}

void frmConsultaCtaCteCliente::crearCliente() {
  auto* panel = new Panel(QStringLiteral(" Datos del Cliente "), 3);
  PedidoCliente pedido;
  pedido.nombres = QStringLiteral("txtNombres");
  pedido.local = QStringLiteral("&Local:");
  pedido.con = [this](const std::function<void()>& accion) { con(accion); };
  cliente_ = nuevosControlesCliente(panel, enlaces_, p_, v_.cliente, pantallas_, pedido);
  cliente_.txtTarjeta->setFixedWidth(120);
  cliente_.txtLocal->setFixedWidth(56);
  panel->ensanchar(cliente_.txtNombres);
  cuerpo()->addWidget(panel);
}

void frmConsultaCtaCteCliente::con(const std::function<void()>& accion) {
  enlaces_.recoger();
  accion();
  mostrar();
}

// The name is the found customer's as long as a card stands there.
void frmConsultaCtaCteCliente::mostrar() {
  enlaces_.mostrar();
  v_.cliente.localVisible = true;
  cliente_.mostrar(v_.cliente);
  cliente_.txtNombres->setReadOnly(!v_.cliente.txtTarjeta.isEmpty());
  imprimir_->setEnabled(!v_.pagos.empty());
}

bool frmConsultaCtaCteCliente::alEntrar(QWidget* campo) {
  if (!cliente_.buscaDesde(campo)) return false;
  ResultadoTarjeta r{};
  con([&] { r = BuscaTarjeta(p_, v_.cliente, pantallas_); });
  if (r == ResultadoTarjeta::Hallada) consultar();
  else cliente_.txtTarjeta->setFocus();
  return true;
}

void frmConsultaCtaCteCliente::buscarCliente() {
  const auto elegida = pantallas_.buscarCliente();
  if (!elegida) return;
  con([&] { (void)TomarCliente(p_, v_.cliente, pantallas_, *elegida); });
  consultar();
}

void frmConsultaCtaCteCliente::consultar() {
  const Ocupado ocupado(p_.mensajes, QStringLiteral("Leyendo la cuenta…"));
  con([this] { ConsultarCuenta(p_, v_); });
  documentos_->textoVacio = QStringLiteral("Sin documentos");
  std::vector<FilaLista> filas;
  for (const auto& f : v_.documentos) {
    FilaLista fila;
    for (int c = kPrimera; c <= kUltima; ++c) fila.celdas << CeldaCuenta(f[c]);
    fila.clave = static_cast<int>(filas.size());
    filas.push_back(std::move(fila));
  }
  documentos_->llenar(std::move(filas));
  if (documentos_->filas() > 0) documentos_->setFocus();
  mostrarPagos();
}

void frmConsultaCtaCteCliente::mostrarPagos() {
  std::vector<FilaLista> filas;
  const int n = documentos_->actual();
  const Recordset& pagos = PagosDe(p_, v_, n < 0 ? -1 : documentos_->fila(n).clave.toInt());
  for (const auto& f : pagos) {
    FilaLista fila;
    for (int c = 0; c < 7; ++c) fila.celdas << CeldaCuenta(f[c]);
    fila.celdas << CeldaCuenta(f[u"FechaAnulacion"]);
    fila.activa = f[u"FechaAnulacion"].isNull();
    filas.push_back(std::move(fila));
  }
  pagos_->llenar(std::move(filas));
}
