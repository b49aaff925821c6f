#include "printing/frm_configura_impresora.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "platform/text/texto.h"
#include "platform/ui/tema.h"

namespace {

struct Rotulos {
  const char *pregunta, *marca;
};
// clang-format off
constexpr Rotulos kRotulos[] = {
    {"Seleccione la impresora que usará por default:", "ChkFlagcortaPapel"},
    {"Seleccione la impresora alternativa", "ChkFlagcortaPapelAlterna"},
};
// clang-format on
constexpr Pagina kPaginas[] = {Pagina::Windows1252, Pagina::Pc858, Pagina::Pc850, Pagina::Pc437};
constexpr int kAnchoLista = 230;

QString deArreglo(const char* nombre, size_t n) { return QStringLiteral("%1(%2)").arg(QLatin1String(nombre)).arg(n); }

QComboBox* nuevaLista(const QString& nombre, const QStringList& entradas, bool seEscribe) {
  auto* lista = new QComboBox;
  lista->setObjectName(nombre);
  lista->setEditable(seEscribe);
  lista->setInsertPolicy(QComboBox::NoInsert);
  if (seEscribe) lista->setCompleter(nullptr);
  lista->addItems(entradas);
  lista->setMinimumWidth(tema::px(kAnchoLista));
  lista->setSizeAdjustPolicy(
      QComboBox::AdjustToMinimumContentsLengthWithIcon);  // a long name must not widen the window
  return lista;
}

}  // namespace

frmConfiguraImpresora::frmConfiguraImpresora(Puesto& p, QWidget* padre)
    : Forma(QStringLiteral("frmConfiguraImpresora"), QStringLiteral("Configurar Impresora"), padre), p_(p) {
  CargarImpresoras(p_, v_);
  for (size_t n : {0, 1}) crearImpresora(n);
  auto* acepta = nuevoBoton(QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  auto* sale = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
  connect(acepta, &QPushButton::clicked, this, &frmConfiguraImpresora::aceptar);
  connect(sale, &QPushButton::clicked, this, &frmConfiguraImpresora::reject);
  cuerpo()->addStretch();
  cuerpo()->addLayout(filaBotones({acepta, sale}));
  indicio(QStringLiteral("Espacio marca la casilla  ·  Conexión por red: tcp:192.168.1.50:9100  ·  Esc salir"));
  resize(tema::px(860), height());
}

void frmConfiguraImpresora::crearImpresora(size_t n) {
  Controles& c = c_[n];
  // The name can be typed too: a network path, or one that the system doesn't list any more.
  c.impresora = nuevaLista(deArreglo("cboImpresora", n), v_.impresoras, true);
  c.impresora->setCurrentText(v_.cboImpresora[n]);
  c.corta = new QCheckBox(QStringLiteral("Impresora Corta Papel"));
  c.corta->setObjectName(QLatin1String(kRotulos[n].marca));
  c.corta->setChecked(v_.flagCortaPapel[n]);
  c.lugar = nuevaLista(deArreglo("cboLugar", n), QStringList{QString()} + v_.lugares, true);
  QStringList paginas;
  for (const Pagina p : kPaginas) paginas << NombrePagina(p);
  c.pagina = nuevaLista(deArreglo("cboPagina", n), paginas, false);
  c.conOrden = new QCheckBox(QStringLiteral("Elegirla con ESC t"));
  c.conOrden->setObjectName(deArreglo("chkPagina", n));
  c.prueba = nuevoBoton(deArreglo("cmdPrueba", n), QStringLiteral("Página de prueba"));
  auto* panel = new Panel(QString::fromUtf8(kRotulos[n].pregunta), 2);
  panel->agregar({}, c.impresora);
  panel->agregar({}, c.corta);
  panel->agregar(QStringLiteral("Conexión:"), c.lugar);
  panel->agregar(QStringLiteral("Página de códigos:"), c.pagina);
  panel->agregar({}, c.prueba);
  panel->agregar({}, c.conOrden);
  cuerpo()->addWidget(panel);
  mostrar(n);
  enlazar(n);
}

void frmConfiguraImpresora::enlazar(size_t n) {
  const Controles& c = c_[n];
  connect(c.impresora, &QComboBox::currentTextChanged, this, [this, n] { elegida(n); });
  connect(c.corta, &QCheckBox::toggled, this, [this, n](bool si) {
    v_.flagCortaPapel[n] = si;
    mostrar(n);
  });
  connect(c.lugar, &QComboBox::currentTextChanged, this, [this, n](const QString& t) { v_.cboLugar[n] = t; });
  connect(c.pagina, &QComboBox::currentIndexChanged, this,
          [this, n](int i) { v_.ajustes[n].pagina = kPaginas[static_cast<size_t>(qMax(0, i))]; });
  connect(c.conOrden, &QCheckBox::toggled, this, [this, n](bool si) { v_.ajustes[n].seleccionar = si; });
  connect(c.prueba, &QPushButton::clicked, this, [this, n] { ProbarImpresora(p_, v_, static_cast<int>(n)); });
}

void frmConfiguraImpresora::elegida(size_t n) {
  ElegirImpresora(p_, v_, static_cast<int>(n), c_[n].impresora->currentText());
  mostrar(n);
}

// The struct to the controls.
void frmConfiguraImpresora::mostrar(size_t n) {
  const Controles& c = c_[n];
  const QSignalBlocker guardas[] = {QSignalBlocker(c.corta), QSignalBlocker(c.lugar), QSignalBlocker(c.pagina),
                                    QSignalBlocker(c.conOrden)};
  c.corta->setChecked(v_.flagCortaPapel[n]);
  c.corta->setEnabled(!Recortar(v_.cboImpresora[n]).isEmpty());
  c.lugar->setCurrentText(v_.cboLugar[n]);
  c.pagina->setCurrentText(NombrePagina(v_.ajustes[n].pagina));
  c.conOrden->setChecked(v_.ajustes[n].seleccionar);
  for (QWidget* w : {static_cast<QWidget*>(c.lugar), static_cast<QWidget*>(c.pagina), static_cast<QWidget*>(c.conOrden),
                     static_cast<QWidget*>(c.prueba)}) {
    w->setEnabled(v_.flagCortaPapel[n]);
  }
}

void frmConfiguraImpresora::aceptar() {
  if (GrabarImpresoras(p_, v_)) accept();
}
