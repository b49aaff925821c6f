#include "credit/frm_documentos_pendientes.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/puesto.h"
#include "platform/ui/lista.h"
#include "platform/ui/tema.h"

namespace {

// Ten columns fit on the screen only with titles of two lines.
QString enDosRenglones(QString titulo) {
  const qsizetype blanco = titulo.lastIndexOf(u' ');
  return blanco < 0 ? titulo : titulo.replace(blanco, 1, u'\n');
}

Lista* nuevaLista(const ClasePendientes& clase, const Recordset& rs) {
  std::vector<ColumnaLista> columnas;
  for (const ColumnaPendientes& c : clase.columnas) {
    const bool importe = c.clase == ColumnaPendientes::Importe;
    const QString titulo = c.titulo.isEmpty() ? rs.campos().value(c.posicion) : c.titulo;
    columnas.push_back({enDosRenglones(titulo), c.fraccion, importe,
                        importe                               ? ColumnaLista::Numero
                        : c.clase == ColumnaPendientes::Fecha ? ColumnaLista::Fecha
                                                              : ColumnaLista::Texto});
  }
  return new Lista(QStringLiteral("DgdPendientes"), columnas);
}

}  // namespace

frmDocumentosPendientes::frmDocumentosPendientes(Puesto& p, PendientesDe para, DocCredito doc, QWidget* padre)
    : Forma(ClaseDe(para).pantalla, ClaseDe(para).titulo, padre) {
  {
    const Ocupado ocupado(p.mensajes, QStringLiteral("Buscando los documentos…"));
    d_ = LeerPendientes(p, para, doc);
  }
  auto* fila = new QHBoxLayout;
  txtCliente_ = new Campo(QStringLiteral("txtCliente"));
  txtCliente_->installEventFilter(this);
  auto* rotulo = nuevoTexto(QStringLiteral("&Cliente"));
  rotulo->setBuddy(txtCliente_);
  fila->addWidget(rotulo);
  fila->addWidget(txtCliente_, 1);
  cuerpo()->addLayout(fila);
  lista_ = nuevaLista(ClaseDe(para), d_.rs);
  lista_->horizontalHeader()->setFixedHeight(tema::px(46));
  lista_->textoVacio = QStringLiteral("Sin documentos pendientes");
  cuerpo()->addWidget(lista_, 1);
  cuenta_ = nuevoTexto({}, QStringLiteral("suave"));
  auto* pie = new QHBoxLayout;
  pie->addWidget(cuenta_, 1);
  auto* elige =
      nuevoBoton(QStringLiteral("cmdSeleccionar"), QStringLiteral("&Seleccionar"), QStringLiteral("principal"));
  auto* sale = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("C&ancelar"));
  pie->addWidget(elige);
  pie->addWidget(sale);
  cuerpo()->addLayout(pie);
  connect(elige, &QPushButton::clicked, this, [this] { elegir(lista_->actual()); });
  connect(sale, &QPushButton::clicked, this, &QDialog::reject);
  connect(lista_, &Lista::elegida, this, &frmDocumentosPendientes::elegir);
  connect(txtCliente_, &QLineEdit::textChanged, this, &frmDocumentosPendientes::filtrar);
  tecla(Qt::ALT | Qt::Key_S, [this] { elegir(lista_->actual()); });
  tecla(Qt::ALT | Qt::Key_A, [this] { reject(); });
  indicio(QStringLiteral("Escriba parte del nombre  ·  ↓ a la lista  ·  Enter elegir  ·  Esc salir"));
  resize(1016, 700);
  filtrar();
  txtCliente_->setFocus();
}

// Typing asks the server nothing.
void frmDocumentosPendientes::filtrar() {
  filas_ = FiltrarPendientes(d_, txtCliente_->text());
  std::vector<FilaLista> filas;
  filas.reserve(filas_.size());
  for (const int n : filas_) filas.push_back({{}, n, true});
  lista_->llenar(std::move(filas), [this](const QVariant& n) { return CeldasPendientes(d_, n.toInt()); });
  cuenta_->setText(filas_.size() == 1 ? QStringLiteral("1 documento")
                                      : QStringLiteral("%1 documentos").arg(filas_.size()));
}

bool frmDocumentosPendientes::alEntrar(QWidget* campo) {
  if (campo != txtCliente_) return false;
  if (lista_->filas() > 0) lista_->setFocus();
  return true;
}

bool frmDocumentosPendientes::eventFilter(QObject* objeto, QEvent* evento) {
  // From the text down into the rows.
  const bool baja = objeto == txtCliente_ && evento->type() == QEvent::KeyPress &&
                    static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Down;
  if (!baja || lista_->filas() == 0) return Forma::eventFilter(objeto, evento);
  lista_->setFocus();
  return true;
}

// The list may have been sorted by a click: a row knows its own place.
void frmDocumentosPendientes::elegir(int n) {
  if (n < 0) return;
  elegida_ = lista_->fila(n).clave.toInt();
  accept();
}

std::optional<PendienteElegido> elegirPendiente(Puesto& p, QWidget* padre, PendientesDe para, DocCredito doc) {
  frmDocumentosPendientes f(p, para, doc, padre);
  if (f.exec() != QDialog::Accepted) return {};
  return PendienteElegido{f.documentos(), f.elegida()};
}
