#include "credit/frm_anular_transaccion_cta_cte.h"

#include <QComboBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/ui/lista.h"

namespace {

Lista* nuevaLista(ModoAnular modo) {
  std::vector<ColumnaLista> columnas;
  const QStringList titulos = TitulosDetalle(modo);
  for (const QString& t : titulos) {
    const bool importe = t.startsWith(QStringLiteral("Tot")) || t == u"Monto";
    // What is long takes more than its share.
    const bool fecha = t.startsWith(QStringLiteral("Fecha")), nombre = t == u"Cliente" || t == u"Forma Pago";
    const double fraccion = nombre ? 0.3 : fecha ? 0.15 : t == u"Local" ? 0.075 : 0.12;
    columnas.push_back({t, fraccion, importe});
  }
  return new Lista(QStringLiteral("dgdDetalle"), columnas);
}

}  // namespace

frmAnularTransaccionCtaCte::frmAnularTransaccionCtaCte(Puesto& p, PantallasCredito& pantallas, ModoAnular modo,
                                                       QWidget* padre)
    : Forma(QStringLiteral("frmAnularTransaccionCtaCte"), QStringLiteral("Anular Documento"), padre),
      p_(p),
      pantallas_(pantallas) {
  v_.Modo = modo;
  auto* panel = new Panel({}, 3);
  auto* tipo = new QComboBox;
  tipo->setObjectName(QStringLiteral("cboTipoDocumento"));
  tipo->addItems({QStringLiteral("FADE"), QStringLiteral("BADE"), QStringLiteral("PADE")});
  tipo->setCurrentIndex(static_cast<int>(modo));
  tipo->setEnabled(false);
  panel->agregar(QStringLiteral("Tipo Documento:"), tipo);
  txtSerie_ = panel->campo(QStringLiteral("txtSerie"), QStringLiteral("&Serie:"));
  txtNumero_ = panel->campo(QStringLiteral("txtNumero"), QStringLiteral("&Número:"));
  cuerpo()->addWidget(panel);
  cmdCargar_ = nuevoBoton(QStringLiteral("cmdCargar"), QStringLiteral("Car&gar Doc."));
  cuerpo()->addWidget(cmdCargar_, 0, Qt::AlignRight);
  dgdDetalle_ = nuevaLista(modo);
  dgdDetalle_->textoVacio = QStringLiteral("Escriba serie y número, y pulse Enter");
  dgdDetalle_->setMinimumHeight(120);
  cuerpo()->addWidget(dgdDetalle_, 1);
  // What the supervisor dialog fills.
  txtsupervisor_ = nuevoFijo(QStringLiteral("txtsupervisor"), this);
  txtsupervisor_->hide();
  cmdAceptar_ = nuevoBoton(QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  auto* salir = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Cancelar"));
  cuerpo()->addLayout(filaBotones({cmdAceptar_, salir}));
  connect(cmdCargar_, &QPushButton::clicked, this, &frmAnularTransaccionCtaCte::cargar);
  connect(cmdAceptar_, &QPushButton::clicked, this, &frmAnularTransaccionCtaCte::aceptar);
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  tecla(
      Qt::ALT | Qt::Key_G, [this] { cargar(); }, QStringLiteral("cargar"));
  tecla(
      Qt::ALT | Qt::Key_A, [this] { aceptar(); }, QStringLiteral("anular"));
  tecla(Qt::ALT | Qt::Key_C, [this] { reject(); });
  indicio(QStringLiteral("Esc salir sin anular"));
  resize(900, 360);
  txtSerie_->setFocus();
}

bool frmAnularTransaccionCtaCte::recibir(const QString& serie, const QString& numero) {
  v_.fijo = true;
  txtSerie_->setText(serie.trimmed());
  txtNumero_->setText(numero.trimmed());
  for (QWidget* w :
       {static_cast<QWidget*>(txtSerie_), static_cast<QWidget*>(txtNumero_), static_cast<QWidget*>(cmdCargar_)}) {
    w->setEnabled(false);
  }
  v_.txtSerie = txtSerie_->text();
  v_.txtNumero = txtNumero_->text();
  const CursorEspera espera;
  const bool sePuede = CargarDocumentoAnular(p_, v_);
  mostrar();
  cmdAceptar_->setFocus();
  return sePuede && v_.cargado();
}

bool frmAnularTransaccionCtaCte::alEntrar(QWidget* campo) {
  if (campo != txtNumero_) return false;
  cargar();
  return true;
}

void frmAnularTransaccionCtaCte::cargar() {
  if (v_.fijo) return;
  v_.txtSerie = txtSerie_->text();
  v_.txtNumero = txtNumero_->text();
  bool sePuede = true;
  {
    const CursorEspera espera;
    sePuede = CargarDocumentoAnular(p_, v_);
  }
  mostrar();
  if (!sePuede) reject();
  else if (v_.cargado()) cmdAceptar_->setFocus();
  else txtNumero_->setFocus();
}

// What was typed since the row was read must not be taken for it.
void frmAnularTransaccionCtaCte::aceptar() {
  if (!v_.fijo && (txtSerie_->text() != v_.txtSerie || txtNumero_->text() != v_.txtNumero)) {
    cargar();
    return;
  }
  if (AceptarAnulacion(p_, v_, pantallas_)) accept();
}

void frmAnularTransaccionCtaCte::mostrar() {
  std::vector<FilaLista> filas;
  if (v_.cargado()) filas.push_back({v_.dgdDetalle, {}, true});
  dgdDetalle_->llenar(std::move(filas));
}
