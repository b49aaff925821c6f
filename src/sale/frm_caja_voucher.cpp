#include "sale/frm_caja_voucher.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/rutinas.h"
#include "platform/ui/lista.h"
#include "platform/ui/rejilla.h"
#include "platform/ui/tema.h"
#include "sale/frm_caja_full_paneles.h"

namespace {

constexpr int kColumnaPago = 1;

// A card with a title whose letter leads to its grid.
QFrame* marco(const QString& titulo, QWidget* rejilla) {
  auto* m = new QFrame;
  m->setProperty("papel", "tarjeta");
  auto* v = new QVBoxLayout(m);
  v->setContentsMargins(16, 12, 16, 12);
  auto* rotulo = nuevoTexto(titulo, QStringLiteral("titulo"));
  rotulo->setBuddy(rejilla);
  v->addWidget(rotulo);
  v->addWidget(rejilla, 1);
  return m;
}

}  // namespace

FrmCajaVoucher::FrmCajaVoucher(Puesto& p, const PedidoVoucher& pedido, QWidget* padre)
    : Forma(QStringLiteral("FrmCajaVoucher"), QStringLiteral("Caja Voucher"), padre), p_(p) {
  AbrirVoucher(p_, pedido, v_);
  cuerpo()->addWidget(nuevoTexto(QStringLiteral("Elija las tarjetas que pagan la venta y el monto de cada una."),
                                 QStringLiteral("sentencia")));
  cuerpo()->addWidget(nuevasListas(), 1);
  cuerpo()->addWidget(nuevosImportes());
  cmdAceptar_ = nuevoBoton(QStringLiteral("CmdAceptar"), QStringLiteral("&Aceptar  (F5)"), QStringLiteral("principal"));
  cmdCancelar_ = nuevoBoton(QStringLiteral("CmdCancelar"), QStringLiteral("&Cancelar  (Esc)"));
  cuerpo()->addLayout(filaBotones({cmdAceptar_, cmdCancelar_}));
  connect(cmdAceptar_, &QPushButton::clicked, this, &FrmCajaVoucher::aceptar);
  connect(cmdCancelar_, &QPushButton::clicked, this, &QDialog::reject);

  tecla(
      Qt::Key_F1,
      [this] {
        if (grdPagTar_->dejarCelda()) grdTar_->setFocus();
      },
      QStringLiteral("emisores"));
  tecla(
      Qt::Key_F2, [this] { editarMonto(grdPagTar_->celda().fila); }, QStringLiteral("monto"));
  tecla(
      Qt::Key_Delete, [this] { quitar(); }, QStringLiteral("quitar tarjeta"));
  tecla(
      Qt::Key_F5,
      [this] {
        if (grdPagTar_->dejarCelda()) cmdAceptar_->setFocus();
      },
      QStringLiteral("aceptar"));
  tecla(
      Qt::Key_Escape, [this] { cmdCancelar_->setFocus(); }, QStringLiteral("cancelar"));
  // The buttons' letters: a mnemonic presses a moment later, when the next key has been typed already.
  tecla(Qt::ALT | Qt::Key_A, [this] { aceptar(); });
  tecla(Qt::ALT | Qt::Key_C, [this] { reject(); });
  txtEfectivoSoles_->alSalir = [this] { salirEfectivo(); };
  resize(tema::px(860), tema::px(600));
  vigilarComas([this] { AvisarComaDecimal(p_); });
  mostrar();
  grdTar_->setFocus();
}

QWidget* FrmCajaVoucher::nuevasListas() {
  grdTar_ = new Lista(QStringLiteral("grdTar"), {{QStringLiteral("Cód."), 0.25, false, ColumnaLista::Texto},
                                                 {QStringLiteral("Emisor"), 0.7, false, ColumnaLista::Texto}});
  grdTar_->horizontalHeader()->setSectionsClickable(false);
  grdTar_->textoVacio = QStringLiteral("Sin tarjetas registradas");
  std::vector<FilaLista> emisores;
  for (const auto& e : v_.emisores) emisores.push_back({{e.Cod_tar, e.descrip}, {}, true});
  grdTar_->llenar(std::move(emisores));

  grdPagTar_ = new Rejilla(QStringLiteral("grdPagTar"),
                           {{QStringLiteral("Tarjeta"), 0, false, false, false, false},
                            {QStringLiteral("Pago"), 130, true, true, false, false},
                            {QStringLiteral("Moneda"), 84, false, false, false, false},
                            {QStringLiteral("Cód."), 60, false, false, false, true}},
                           {[this] { return static_cast<int>(v_.pagos.size()); },
                            [this](int f, int c) {
                              const FilaVoucher& r = v_.pagos[static_cast<size_t>(f)];
                              const QString* const celdas[] = {&r.descrip, &r.Pago, &r.SD, &r.cod_tar};
                              return *celdas[c];
                            }});
  grdPagTar_->textoVacio = QStringLiteral("Enter en un emisor agrega su tarjeta");
  grdPagTar_->filtro = [](int, int columna, QChar t) { return columna == kColumnaPago ? filtroImporte(t) : QChar(); };
  grdPagTar_->salir = [this](int fila, int, QString& texto) {
    if (!SinComaDecimal(p_, texto) || !PonerPago(v_, fila, texto)) {
      QApplication::beep();
      return false;
    }
    texto = v_.pagos[static_cast<size_t>(fila)].Pago;
    mostrar();
    return true;
  };
  grdPagTar_->siguiente = [](int, int) { return std::optional<CeldaRejilla>(); };
  grdPagTar_->alAbandonar = [this] { cmdCancelar_->setFocus(); };
  grdPagTar_->alSuprimir = [this] { quitar(); };

  auto* fila = new QWidget;
  auto* h = new QHBoxLayout(fila);
  h->setContentsMargins(0, 0, 0, 0);
  h->setSpacing(tema::px(3 * tema::kPaso));
  h->addWidget(marco(QStringLiteral("&EMISORES  - - (F1)"), grdTar_), 2);
  h->addWidget(marco(QStringLiteral("&PAGO TARJETA (S/.)  - -  (F2)"), grdPagTar_), 3);
  connect(grdTar_, &Lista::elegida, this, &FrmCajaVoucher::agregar);
  return fila;
}

QWidget* FrmCajaVoucher::nuevosImportes() {
  auto* fila = new QWidget;
  auto* h = new QHBoxLayout(fila);
  h->setContentsMargins(0, 0, 0, 0);
  h->setSpacing(tema::px(3 * tema::kPaso));
  const auto fijo = [this](Panel* panel, const QString& nombre, const QString& etiqueta, QString& campo) {
    Campo* c = panel->fijo(nombre, etiqueta);
    c->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    enlaces_.texto(c, campo);
  };
  auto* efectivo = new Panel(QStringLiteral("EFECTIVO"), 2);
  txtEfectivoSoles_ = efectivo->importe(QStringLiteral("txtEfectivoSoles"), QStringLiteral("&Efectivo:"));
  txtEfectivoSoles_->filtro = filtroImporte;
  enlaces_.texto(txtEfectivoSoles_, v_.txtEfectivoSoles);
  fijo(efectivo, QStringLiteral("txtVueltoSoles"), QStringLiteral("Vuelto:"), v_.txtVueltoSoles);
  auto* totales = new Panel(QStringLiteral("TOTALES"), 2);
  fijo(totales, QStringLiteral("txtSoles"), QStringLiteral("S/."), v_.txtSoles);
  fijo(totales, QStringLiteral("txtDolares"), QStringLiteral("US$"), v_.txtDolares);
  h->addWidget(efectivo, 1);
  h->addWidget(totales, 1);
  return fila;
}

bool FrmCajaVoucher::alEntrar(QWidget* campo) {
  if (campo != txtEfectivoSoles_) return false;
  cmdAceptar_->setFocus();
  return true;
}

void FrmCajaVoucher::agregar(int emisor) {
  if (!AgregarTarjeta(p_, v_, emisor)) return;
  mostrar();
  editarMonto(static_cast<int>(v_.pagos.size()) - 1);
}

void FrmCajaVoucher::editarMonto(int fila) {
  if (v_.pagos.empty()) {
    grdPagTar_->setFocus();
  } else if (grdPagTar_->irA({qMax(fila, 0), kColumnaPago})) {
    grdPagTar_->editar();
  }
}

void FrmCajaVoucher::quitar() {
  if (!grdPagTar_->hasFocus()) return;
  QuitarTarjeta(v_, grdPagTar_->celda().fila);
  mostrar();
}

void FrmCajaVoucher::salirEfectivo() {
  enlaces_.recoger();
  RecalculaVueltoVoucher(v_);
  mostrar();
}

void FrmCajaVoucher::aceptar() {
  // What stands in an open cell or in the cash field counts as left.
  if (!grdPagTar_->dejarCelda() || !importesSinComa()) return;
  cmdAceptar_->setFocus();
  const auto cobro = AceptarVoucher(p_, v_);
  if (!cobro) {
    if (v_.pagos.empty()) grdTar_->setFocus();
    else txtEfectivoSoles_->setFocus();
    return;
  }
  cobro_ = *cobro;
  accept();
}

void FrmCajaVoucher::mostrar() {
  enlaces_.mostrar();
  grdPagTar_->refrescar();
}

std::optional<CobroTarjetas> pedirVoucher(Puesto& p, QWidget* padre, const PedidoVoucher& pedido) {
  FrmCajaVoucher f(p, pedido, padre);
  if (f.exec() != QDialog::Accepted) return {};
  return f.cobro();
}
