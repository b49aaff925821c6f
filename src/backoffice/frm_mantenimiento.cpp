#include "backoffice/frm_mantenimiento.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/text/texto.h"
#include "platform/ui/tema.h"

frmMantenimientoLista::frmMantenimientoLista(const QString& nombre, const QString& titulo, Lista* lista, QWidget* padre)
    : Forma(nombre, titulo, padre), lista_(lista), buscar_(new Campo(QStringLiteral("txtBuscar"))) {
  auto* arriba = new QHBoxLayout;
  auto* rotulo = nuevoTexto(QStringLiteral("Bu&scar"));
  rotulo->setBuddy(buscar_);
  arriba->addWidget(rotulo);
  arriba->addWidget(buscar_, 1);
  cuerpo()->addLayout(arriba);

  botones_ = new QVBoxLayout;
  botones_->setSpacing(2 * tema::kPaso);
  const char* const rotulos[] = {"&Nuevo", "&Editar", "&Borrar", "&Ver"};
  for (int n = 0; n < 4; ++n) {
    auto* b = nuevoBoton(QStringLiteral("cmdEditar(%1)").arg(n), QString::fromLatin1(rotulos[n]),
                         n == 1 ? QStringLiteral("principal") : QString());
    connect(b, &QPushButton::clicked, this, [this, n] { abrir(static_cast<ModoDetalle>(n)); });
    cmdEditar_[static_cast<size_t>(n)] = b;
    botones_->addWidget(b);
  }
  auto* salir = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("Sa&lir"));
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  botones_->addStretch();
  botones_->addWidget(salir);

  auto* medio = new QHBoxLayout;
  medio->setSpacing(4 * tema::kPaso);
  medio->addWidget(lista_, 1);
  medio->addLayout(botones_);
  cuerpo()->addLayout(medio, 1);
  cuenta_ = nuevoTexto({}, QStringLiteral("suave"));
  cuenta_->setObjectName(QStringLiteral("lblCuenta"));
  cuerpo()->addWidget(cuenta_);

  tecla(QKeyCombination(Qt::Key_Insert), [this] { abrir(ModoDetalle::Nuevo); }, QStringLiteral("nuevo"));
  tecla(QKeyCombination(Qt::Key_Delete), [this] { abrir(ModoDetalle::Borrar); }, QStringLiteral("borrar"));
  indicio(QStringLiteral("Enter editar  ·  Esc salir"));
  connect(buscar_, &QLineEdit::textEdited, this, &frmMantenimientoLista::buscar);
  connect(lista_, &Lista::elegida, this, [this] { abrir(ModoDetalle::Editar); });
  connect(lista_, &Lista::cambioActual, this, &frmMantenimientoLista::actualizar);
  buscar_->installEventFilter(this);
  buscar_->setFocus();
  resize(760, 560);
}

QPushButton* frmMantenimientoLista::agregarBoton(const QString& nombre, const QString& rotulo) {
  auto* b = nuevoBoton(nombre, rotulo);
  botones_->insertWidget(4, b);
  return b;
}

void frmMantenimientoLista::actualizar(int fila) {
  for (size_t n = 1; n < cmdEditar_.size(); ++n) cmdEditar_[n]->setEnabled(fila >= 0);
  const int filas = lista_->filas();
  cuenta_->setText(filas == 1 ? QStringLiteral("1 fila") : QStringLiteral("%1 filas").arg(filas));
  alElegir(fila);
}

void frmMantenimientoLista::abrir(ModoDetalle modo) {
  const int n = lista_->actual();
  if (modo != ModoDetalle::Nuevo && n < 0) return;
  auto nueva = detalle(modo, modo == ModoDetalle::Nuevo ? nullptr : &lista_->fila(n));
  if (!nueva) return;
  switch (modo) {
    case ModoDetalle::Nuevo: lista_->agregar(std::move(*nueva)); break;
    case ModoDetalle::Editar: lista_->cambiar(n, std::move(*nueva)); break;
    case ModoDetalle::Borrar: lista_->quitar(n); break;
    case ModoDetalle::Ver: return;
  }
  actualizar(lista_->actual());
}

void frmMantenimientoLista::buscar(const QString& texto) {
  const QString busca = Recortar(texto);
  if (busca.isEmpty()) return;
  for (int n = 0; n < lista_->filas(); ++n) {
    for (const QString& celda : lista_->fila(n).celdas) {
      if (!celda.contains(busca, Qt::CaseInsensitive)) continue;
      lista_->elegir(n);
      return;
    }
  }
  tema::aplicarRol(buscar_, "estado", QStringLiteral("mal"));
}

bool frmMantenimientoLista::alEntrar(QWidget* campo) {
  if (campo != buscar_) return false;
  abrir(ModoDetalle::Editar);
  return true;
}

bool frmMantenimientoLista::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == buscar_ && evento->type() == QEvent::KeyPress) {
    const int tecla = static_cast<QKeyEvent*>(evento)->key();
    // The row moves while the keyboard stays in the search field.
    if (tecla == Qt::Key_Up || tecla == Qt::Key_Down) {
      lista_->elegir(lista_->actual() + (tecla == Qt::Key_Up ? -1 : 1));
      return true;
    }
    // With nothing typed there is nothing else to delete.
    if (tecla == Qt::Key_Delete && buscar_->text().isEmpty()) {
      abrir(ModoDetalle::Borrar);
      return true;
    }
  }
  return Forma::eventFilter(objeto, evento);
}

frmMantenimientoDetalle::frmMantenimientoDetalle(const QString& nombre, ModoDetalle modo, const QString& titulo,
                                                 QWidget* padre)
    : Forma(nombre, TituloDetalle(modo, titulo), padre), modo_(modo), panel_(new Panel) {
  cuerpo()->addWidget(panel_);
  if (modo == ModoDetalle::Borrar)
    cuerpo()->addWidget(nuevoTexto(QStringLiteral("Con Aceptar se borra del puesto."), QStringLiteral("cuidado")));
  aceptar_ = nuevoBoton(QStringLiteral("cmdEstandar(0)"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  auto* cancelar = nuevoBoton(QStringLiteral("cmdEstandar(1)"), QStringLiteral("&Cancelar"));
  connect(aceptar_, &QPushButton::clicked, this, &frmMantenimientoDetalle::aceptar);
  connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
  cuerpo()->addStretch();
  cuerpo()->addLayout(filaBotones({aceptar_, cancelar}));
  setMinimumWidth(420);
}

void frmMantenimientoDetalle::listo(QWidget* primero) {
  if (SeEdita(modo_)) {
    primero->setFocus();
    return;
  }
  for (QWidget* w : panel_->findChildren<QWidget*>())
    if (w->focusPolicy() != Qt::NoFocus) w->setEnabled(false);
  aceptar_->setFocus();
}

void frmMantenimientoDetalle::aceptar() {
  QString campoMal;
  if (guardar(campoMal)) {
    accept();
  } else if (auto* campo = campoMal.isEmpty() ? nullptr : findChild<QWidget*>(campoMal)) {
    marcarMal(campo);
  }
}
