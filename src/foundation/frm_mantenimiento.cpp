#include "foundation/frm_mantenimiento.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "foundation/puesto.h"
#include "platform/text/texto.h"
#include "platform/ui/tema.h"

std::vector<BotonLista> botonesDeLista() {
  std::vector<BotonLista> botones;
  for (const char* rotulo : {"&Nuevo", "&Editar", "&Borrar", "&Ver"}) {
    const int n = static_cast<int>(botones.size());
    botones.push_back(
        {QStringLiteral("cmdEditar(%1)").arg(n), QString::fromLatin1(rotulo), static_cast<ModoDetalle>(n)});
  }
  return botones;
}

frmMantenimientoLista::frmMantenimientoLista(Puesto& p, const AspectoLista& aspecto, Lista* lista, QWidget* padre)
    : Forma(aspecto.nombre, aspecto.titulo, padre),
      p_(p),
      lista_(lista),
      sinFilas_(aspecto.sinFilas),
      buscar_(new Campo(QStringLiteral("txtBuscar"))) {
  auto* arriba = new QHBoxLayout;
  auto* rotulo = nuevoTexto(QStringLiteral("Busca&r"));
  rotulo->setBuddy(buscar_);
  arriba->addWidget(rotulo);
  arriba->addWidget(buscar_, 1);
  cuerpo()->addLayout(arriba);
  if (!aspecto.encabezado.isEmpty()) {
    auto* titulo = nuevoTexto(aspecto.encabezado, QStringLiteral("titulo"));
    titulo->setObjectName(QStringLiteral("lblTit2"));
    cuerpo()->addWidget(titulo);
  }

  botones_ = new QVBoxLayout;
  botones_->setSpacing(tema::px(2 * tema::kPaso));
  for (const BotonLista& b : aspecto.botones) botones_->addWidget(nuevoDeLista(b));
  auto* salir = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
  connect(salir, &QPushButton::clicked, this, &QDialog::reject);
  botones_->addStretch();
  botones_->addWidget(salir);

  auto* medio = new QHBoxLayout;
  medio->setSpacing(tema::px(4 * tema::kPaso));
  medio->addWidget(lista_, 1);
  medio->addLayout(botones_);
  cuerpo()->addLayout(medio, 1);
  cuenta_ = nuevoTexto({}, QStringLiteral("suave"));
  cuenta_->setObjectName(QStringLiteral("lblCuenta"));
  cuerpo()->addWidget(cuenta_);

  indicio(QStringLiteral("Enter editar  ·  Esc salir"));
  // Behind the field's own listener, which takes the mark away with each change.
  connect(buscar_, &QLineEdit::textChanged, this, [this](const QString& texto) {
    hallado_ = Recortar(texto).isEmpty() || buscar(texto);
    if (hallado_) return;
    lista_->desmarcar();
    tema::aplicarRol(buscar_, "estado", QStringLiteral("mal"));
  });
  connect(lista_, &Lista::elegida, this, [this] { abrir(ModoDetalle::Editar); });
  connect(lista_, &Lista::cambioActual, this, &frmMantenimientoLista::actualizar);
  buscar_->installEventFilter(this);
  buscar_->setFocus();
  resize(tema::px(860), tema::px(600));
}

QPushButton* frmMantenimientoLista::nuevoDeLista(const BotonLista& b) {
  auto* boton = nuevoBoton(b.nombre, b.rotulo, b.modo == ModoDetalle::Editar ? QStringLiteral("principal") : QString());
  if (!b.modo) return boton;
  const ModoDetalle modo = *b.modo;
  connect(boton, &QPushButton::clicked, this, [this, modo] { abrir(modo); });
  if (modo != ModoDetalle::Nuevo && sinFilas_.isEmpty()) conFila_.push_back(boton);
  if (modo == ModoDetalle::Nuevo) {
    tecla(
        QKeyCombination(Qt::Key_Insert), [this] { abrir(ModoDetalle::Nuevo); }, QStringLiteral("nuevo"));
  } else if (modo == ModoDetalle::Borrar) {
    tecla(
        QKeyCombination(Qt::Key_Delete), [this] { abrir(ModoDetalle::Borrar); }, QStringLiteral("borrar"));
  }
  return boton;
}

void frmMantenimientoLista::conActivar() {
  activar_ = nuevoBoton(QStringLiteral("cmdActivar"), QStringLiteral("Desac&tivar"));
  connect(activar_, &QPushButton::clicked, this, &frmMantenimientoLista::turnar);
  botones_->insertWidget(botones_->count() - 2, activar_);
  conFila_.push_back(activar_);
  actualizar(lista_->actual());
}

void frmMantenimientoLista::actualizar(int fila) {
  for (QPushButton* b : conFila_) b->setEnabled(fila >= 0);
  const int filas = lista_->filas();
  cuenta_->setText(filas == 1 ? QStringLiteral("1 fila") : QStringLiteral("%1 filas").arg(filas));
  if (!activar_) return;
  const bool activa = fila < 0 || lista_->fila(fila).activa;
  activar_->setText(activa ? QStringLiteral("Desac&tivar") : QStringLiteral("Ac&tivar"));
}

void frmMantenimientoLista::abrir(ModoDetalle modo) {
  const int n = lista_->actual();
  if (modo != ModoDetalle::Nuevo && n < 0) {
    if (!sinFilas_.isEmpty()) p_.mensajes.mostrar(sinFilas_, QStringLiteral("Mensaje"));
    return;
  }
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

void frmMantenimientoLista::turnar() {
  const int n = lista_->actual();
  if (n < 0) return;
  if (auto nueva = activar(lista_->fila(n))) lista_->cambiar(n, std::move(*nueva));
  actualizar(n);
}

bool frmMantenimientoLista::buscar(const QString& texto, int columna) {
  const QString busca = Recortar(texto);
  for (int n = 0; n < lista_->filas(); ++n) {
    const QStringList& celdas = lista_->fila(n).celdas;
    const QStringList donde = columna < 0 ? celdas : QStringList{celdas.value(columna)};
    if (donde.filter(busca, Qt::CaseInsensitive).isEmpty()) continue;
    lista_->elegir(n);
    return true;
  }
  return false;
}

QString frmMantenimientoLista::textoBuscado() const { return Recortar(buscar_->text()); }

bool frmMantenimientoLista::alEntrar(QWidget* campo) {
  if (campo != buscar_) return false;
  if (hallado_) abrir(ModoDetalle::Editar);
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
    if (tecla == Qt::Key_Delete && buscar_->text().isEmpty() && findChild<QWidget*>(QStringLiteral("cmdEditar(2)"))) {
      abrir(ModoDetalle::Borrar);
      return true;
    }
  }
  return Forma::eventFilter(objeto, evento);
}

frmMantenimientoDetalle::frmMantenimientoDetalle(const AspectoDetalle& aspecto, const std::vector<CampoDetalle>& campos,
                                                 QWidget* padre)
    : Forma(aspecto.nombre, aspecto.titulo, padre), modo_(aspecto.modo), panel_(new Panel(aspecto.marco)) {
  cuerpo()->addWidget(panel_);
  QWidget* primero = nullptr;
  for (const CampoDetalle& c : campos) {
    QWidget* w = crear(c);
    if (!primero && !c.ajustes.fijo) primero = w;
  }
  if (modo_ == ModoDetalle::Borrar)
    cuerpo()->addWidget(nuevoTexto(QStringLiteral("Con Aceptar se borra del puesto."), QStringLiteral("cuidado")));
  aceptar_ = nuevoBoton(QStringLiteral("cmdEstandar(0)"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  auto* cancelar = nuevoBoton(QStringLiteral("cmdEstandar(1)"), QStringLiteral("&Cancelar"));
  connect(aceptar_, &QPushButton::clicked, this, &frmMantenimientoDetalle::aceptar);
  connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
  cuerpo()->addStretch();
  cuerpo()->addLayout(filaBotones({aceptar_, cancelar}));
  setMinimumWidth(tema::px(600));
  if (seEdita() && primero) {
    primero->setFocus();
  } else {
    bloquear();
  }
}

QWidget* frmMantenimientoDetalle::crear(const CampoDetalle& c) {
  QWidget* w = nullptr;
  switch (c.clase) {
    case CampoDetalle::Texto:
    case CampoDetalle::Importe:
    case CampoDetalle::Clave: w = crearTexto(c); break;
    case CampoDetalle::Marca: {
      auto* marca = new QCheckBox(c.rotulo);
      marca->setObjectName(c.nombre);
      marca->setChecked(*c.marca);
      recoger_.push_back([marca, v = c.marca] { *v = marca->isChecked(); });
      panel_->agregar({}, marca);
      return marca;
    }
    case CampoDetalle::Opciones: w = crearOpciones(c); break;
    case CampoDetalle::Eleccion: w = crearEleccion(c); break;
  }
  panel_->agregar(c.rotulo.section(u'|', 0, 0), w);
  return w;
}

Campo* frmMantenimientoDetalle::crearTexto(const CampoDetalle& c) {
  Campo* campo = c.ajustes.fijo                     ? nuevoFijo(c.nombre)
                 : c.clase == CampoDetalle::Importe ? nuevoImporte(c.nombre)
                                                    : new Campo(c.nombre);
  if (c.clase == CampoDetalle::Clave) campo->setEchoMode(QLineEdit::Password);
  if (!c.ajustes.filtro.empty()) {
    campo->filtro = [clases = c.ajustes.filtro](QChar tecla) {
      for (ClaseTecla clase : clases) tecla = FiltrarTecla(tecla, {clase});
      return tecla;
    };
  }
  if (c.ajustes.mascara)
    campo->alSalir = [campo, mascara = c.ajustes.mascara] { campo->setText(mascara(campo->text())); };
  campo->setText(*c.texto);
  campo->setCursorPosition(0);  // a long text is read from its beginning
  recoger_.push_back([campo, v = c.texto] { *v = campo->text(); });
  return campo;
}

QWidget* frmMantenimientoDetalle::crearOpciones(const CampoDetalle& c) {
  auto* juntas = new QWidget;
  auto* fila = new QHBoxLayout(juntas);
  fila->setContentsMargins(0, 0, 0, 0);
  fila->setSpacing(tema::px(6 * tema::kPaso));
  for (int n = 0; n < 2; ++n) {
    auto* opcion = new QRadioButton(c.rotulo.section(u'|', n + 1, n + 1));
    opcion->setObjectName(QStringLiteral("%1(%2)").arg(c.nombre).arg(n));
    opcion->setChecked(*c.marca == (n == 0));
    fila->addWidget(opcion);
    if (n == 0) recoger_.push_back([opcion, v = c.marca] { *v = opcion->isChecked(); });
  }
  fila->addStretch();
  return juntas;
}

QWidget* frmMantenimientoDetalle::crearEleccion(const CampoDetalle& c) {
  auto* lista = new QComboBox;
  lista->setObjectName(c.nombre);
  for (const auto& [codigo, palabras] : c.ajustes.entradas) lista->addItem(palabras, codigo);
  lista->setCurrentIndex(c.texto->isEmpty() ? -1 : lista->findData(*c.texto));
  connect(lista, &QComboBox::currentIndexChanged, lista, [lista] { quitarMal(lista); });
  recoger_.push_back([lista, v = c.texto] { *v = lista->currentData().toString(); });
  return lista;
}

void frmMantenimientoDetalle::bloquear() {
  for (QWidget* w : panel_->findChildren<QWidget*>())
    if (w->focusPolicy() != Qt::NoFocus) w->setEnabled(false);
  aceptar_->setFocus();
}

void frmMantenimientoDetalle::aceptar() {
  if (!importesSinComa()) return;
  for (const auto& recoger : recoger_) recoger();
  QString campoMal;
  if (guardar(campoMal)) {
    accept();
  } else if (auto* campo = campoMal.isEmpty() ? nullptr : findChild<QWidget*>(campoMal)) {
    marcarMal(campo);
  }
}
