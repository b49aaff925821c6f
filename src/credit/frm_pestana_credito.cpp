#include "credit/frm_pestana_credito.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "documento/frm_lineas.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/text/texto.h"
#include "platform/ui/forma.h"
#include "platform/ui/tema.h"

ListaCredito::ListaCredito(const ContextoCredito& c, const QString& nombre, int& indice,
                           std::function<void()> alCambiar)
    : lista_(new QComboBox), indice_(indice) {
  lista_->setObjectName(nombre);
  // A long entry must not widen the screen; the open list shows it whole.
  if (nombre.startsWith(u"dcb")) {
    lista_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lista_->setMinimumContentsLength(3);
  }
  lista_->view()->setMinimumWidth(260);
  QObject::connect(lista_, &QComboBox::currentIndexChanged, lista_,
                   [con = c.con, &indice, alCambiar = std::move(alCambiar)](int n) {
                     con([&] {
                       indice = n;
                       if (alCambiar) alCambiar();
                     });
                   });
}

void ListaCredito::mostrar(const QStringList& entradas) {
  const QSignalBlocker guarda(lista_);  // being filled, not chosen from
  QStringList puestas;
  for (int i = 0; i < lista_->count(); ++i) puestas << lista_->itemText(i);
  if (puestas != entradas) {
    lista_->clear();
    lista_->addItems(entradas);
  }
  lista_->setCurrentIndex(indice_);
}

QStringList TextosDe(const std::vector<Referencia>& lista) {
  QStringList textos;
  for (const Referencia& r : lista) textos << r.texto;
  return textos;
}

Panel* nuevoPanelCredito(const QString& titulo, int pares) {
  auto* panel = new Panel(titulo, pares);
  panel->layout()->setContentsMargins(8, tema::px(6), 8, tema::px(8));
  if (auto* g = panel->findChild<QGridLayout*>()) {
    g->setHorizontalSpacing(2 * tema::kPaso);
    g->setVerticalSpacing(tema::px(tema::kPaso));
  }
  return panel;
}

void agregarRotulo(Panel* panel, const QString& nombre, const QString& etiqueta, Enlaces& enlaces,
                   const QString& texto) {
  auto* l = nuevoTexto({});
  l->setObjectName(nombre);
  l->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  l->setMinimumWidth(84);
  enlaces.rotulo(l, texto);
  panel->agregar(etiqueta, l);
}

void agregarFilaDeTextos(Panel* panel, Enlaces& enlaces, std::initializer_list<TextoDeFila> textos) {
  auto* fila = new QWidget;
  auto* h = new QHBoxLayout(fila);
  h->setContentsMargins(0, 0, 0, 0);
  h->setSpacing(2 * tema::kPaso);
  for (const TextoDeFila* t = textos.begin(); t != textos.end(); ++t) {
    const bool ultimo = t + 1 == textos.end();
    auto* l = nuevoTexto({});
    l->setObjectName(QString::fromLatin1(t->nombre));
    l->setTextFormat(Qt::PlainText);
    if (ultimo) l->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    else l->setMinimumWidth(84);
    enlaces.rotulo(l, t->texto);
    h->addWidget(nuevoTexto(QString::fromUtf16(t->etiqueta)));
    h->addWidget(l, ultimo ? 1 : 0);
    if (!ultimo) h->addSpacing(3 * tema::kPaso);
  }
  static_cast<QVBoxLayout*>(panel->layout())->addWidget(fila);
}

Campo* campoImporte(Panel* panel, const QString& nombre, const QString& etiqueta, Enlaces& enlaces, QString& texto) {
  Campo* campo = panel->importe(nombre, etiqueta);
  campo->setMinimumWidth(112);
  campo->filtro = [](QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Decimal}); };
  enlaces.texto(campo, texto);
  return campo;
}

QFrame* nuevaPantallaTotal(Enlaces& enlaces, const QString& nombreSoles, const QString& soles,
                           const QString& nombreDolares, const QString& dolares) {
  auto* marco = new QFrame;
  marco->setProperty("papel", "pantalla");
  auto* h = new QHBoxLayout(marco);
  h->setContentsMargins(16, 2, 16, 2);
  h->setSpacing(3 * tema::kPaso);
  const auto cifra = [&](const QString& leyenda, const QString& nombre, const QString& texto, const char* papel) {
    h->addWidget(nuevoTexto(leyenda, QStringLiteral("leyenda")));
    auto* l = nuevoTexto({}, QString::fromLatin1(papel));
    l->setObjectName(nombre);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    enlaces.rotulo(l, texto);
    h->addWidget(l);
  };
  cifra(QStringLiteral("US$"), nombreDolares, dolares, "articulo");
  h->addStretch();
  cifra(QStringLiteral("TOTAL S/."), nombreSoles, soles, "cifra");
  return marco;
}

DetalleLineas::DetalleLineas(const ContextoCredito& c, const QString& nombre, const QString& sufijo, RejillaLineas& l,
                             std::function<void()> alCambiar)
    : c_(c), l_(l), sufijo_(sufijo), alCambiar_(std::move(alCambiar)), rejilla_(nuevaRejillaLineas(nombre, c.p, l)) {
  auto* v = new QVBoxLayout(this);
  v->setContentsMargins(0, 0, 0, 0);
  v->setSpacing(tema::px(6));
  rejilla_->textoVacio = QStringLiteral("Sin artículos: F5 para agregar");
  rejilla_->setMinimumHeight(tema::px(80));  // its titles and a line
  rejilla_->salir = [this](int f, int col, QString& texto) { return salirCelda(f, col, texto); };
  rejilla_->pulsar = [this](int fila, int) { buscarArticulo(fila); };
  v->addWidget(rejilla_, 1);
}

QHBoxLayout* DetalleLineas::nuevosBotones() {
  auto* fila = new QHBoxLayout;
  auto* agrega = nuevoBoton(QStringLiteral("CmdAddArt") + sufijo_, QStringLiteral("A&dicionar"));
  auto* elimina = nuevoBoton(QStringLiteral("CmdDelArt") + sufijo_, QStringLiteral("E&liminar"));
  fila->addWidget(agrega);
  fila->addWidget(elimina);
  connect(agrega, &QPushButton::clicked, this, [this] { (void)agregarFila(); });
  connect(elimina, &QPushButton::clicked, this, [this] { eliminarFila(); });
  return fila;
}

void DetalleLineas::mostrar() {
  rejilla_->refrescar();
  if (SinLineas(l_)) rejilla_->ponerCelda({0, kCod});
}

bool DetalleLineas::salirCelda(int fila, int columna, QString& texto) {
  bool acepta = true;
  c_.con([&] {
    const TrasCelda tras = DejarCelda(c_.p, l_, fila, columna, texto);
    acepta = tras != TrasCelda::Rechazada;
    if (tras == TrasCelda::Cambiada) alCambiar_();
    if (acepta) texto = l_.filas[static_cast<size_t>(fila)][static_cast<size_t>(columna)];
  });
  if (!acepta) QApplication::beep();
  return acepta;
}

bool DetalleLineas::agregarFila() {
  if (!rejilla_->dejarCelda()) return false;
  int fila = 0;
  c_.con([&] { fila = AgregarFila(l_); });
  rejilla_->irA({fila, kCod});
  return true;
}

void DetalleLineas::eliminarFila() {
  rejilla_->abandonarCelda();
  const int fila = rejilla_->celda().fila;
  c_.con([&] {
    QuitarFila(l_, fila);
    alCambiar_();
  });
  rejilla_->irA({qMin(qMax(fila, 0), static_cast<int>(l_.filas.size()) - 1), kCod});
}

void DetalleLineas::buscarArticulo(int fila) {
  if (fila < 0) {
    if (!agregarFila()) return;
    fila = static_cast<int>(l_.filas.size()) - 1;
  } else if (!rejilla_->dejarCelda()) {
    return;
  }
  const auto codigo = c_.pantallas.buscarArticulo();
  window()->activateWindow();
  QString texto = codigo.value_or(QString());
  const bool acepta = codigo && salirCelda(fila, kCod, texto);
  rejilla_->irA({fila, acepta ? kCant : kCod});
}

void DetalleLineas::irAlFinal(int columna) { rejilla_->irA({static_cast<int>(l_.filas.size()) - 1, columna}); }

void PestanaCredito::pedirCopia(const QString& pregunta, const QString& porDefecto,
                                const std::function<bool(const QString&, const QString&)>& imprimir) {
  const auto numero = c_.p.mensajes.pedir(pregunta, QStringLiteral("Reimprimir"), porDefecto);
  if (!numero || Recortar(*numero).isEmpty()) return;
  const qsizetype guion = numero->lastIndexOf(u'-');
  if (guion <= 0) {
    c_.p.mensajes.mostrar(QStringLiteral("Escriba la serie, un guion y el número: 001-000012"));
    return;
  }
  const Ocupado ocupado(c_.p.mensajes, QStringLiteral("Imprimiendo la copia…"));
  (void)imprimir(Recortar(numero->left(guion)), Recortar(numero->mid(guion + 1)));
}

void PestanaCredito::commit(const std::function<std::optional<QString>()>& hacer) {
  std::optional<QString> campo;
  c_.con([&] { campo = hacer(); });
  window()->activateWindow();
  c_.enfocar(campo ? *campo : primerControl());
}
