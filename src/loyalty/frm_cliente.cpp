#include "loyalty/frm_cliente.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/text/texto.h"
#include "platform/ui/tema.h"

namespace {

constexpr int kTick_ms = 1000;
constexpr QSize kFoto(280, 210);

QComboBox* nuevaLista(const QString& nombre) {
  auto* lista = new QComboBox;
  lista->setObjectName(nombre);
  QObject::connect(lista, &QComboBox::currentIndexChanged, lista, [lista] { quitarMal(lista); });
  return lista;
}

}  // namespace

frmCliente::frmCliente(Puesto& p, BuscadorClientes& pantallas, QWidget* padre)
    : Forma(QStringLiteral("frmCliente"), QStringLiteral("Nuevo Cliente"), padre), p_(p), pantallas_(pantallas) {
  const CursorEspera espera;
  auto* fila = new QHBoxLayout;
  fila->setSpacing(4 * tema::kPaso);
  cuerpo()->addLayout(fila, 1);
  crearDatos();
  fila->addWidget(findChild<QWidget*>(QStringLiteral("datos")), 1);
  fila->addWidget(crearFoto());
  auto* acepta = nuevoBoton(QStringLiteral("cmdEstandar(0)"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  auto* cancela = nuevoBoton(QStringLiteral("cmdEstandar(1)"), QStringLiteral("&Cancelar"));
  auto* busca = nuevoBoton(QStringLiteral("cmdBuscar"), QStringLiteral("&Buscar Cliente"));
  busca->setToolTip(QStringLiteral("Buscar Coincidencia de Cliente"));
  cuerpo()->addLayout(filaBotones({acepta, cancela, busca}));
  connect(acepta, &QPushButton::clicked, this, &frmCliente::aceptar);
  connect(cancela, &QPushButton::clicked, this, &QDialog::reject);
  connect(busca, &QPushButton::clicked, this, &frmCliente::buscar);
  // The buttons' letters: a mnemonic presses a moment later, when the next key has been typed already.
  tecla(
      Qt::ALT | Qt::Key_A, [this] { aceptar(); }, QStringLiteral("guardar"));
  tecla(
      Qt::ALT | Qt::Key_B, [this] { buscar(); }, QStringLiteral("buscar coincidencia"));
  tecla(
      Qt::ALT | Qt::Key_F, [this] { fotografiar(); }, QStringLiteral("fotografiar"));
  tecla(Qt::ALT | Qt::Key_C, [this] { reject(); });
  indicio(QStringLiteral("Esc salir sin guardar"));
  resize(1000, 660);

  CargarClienteNuevo(p_, v_);
  mostrar();
  txtApellidos_->setFocus();
}

frmCliente::~frmCliente() {
  timer_.reset();
  TerminarFoto(p_, foto_);
}

Campo* frmCliente::texto(Panel* panel, const QString& nombre, const QString& rotulo, QString& dato, bool mayusculas) {
  Campo* c = panel->campo(nombre, rotulo);
  if (mayusculas) c->filtro = [](QChar t) { return FiltrarTecla(t, {ClaseTecla::Mayusculas}); };
  enlaces_.texto(c, dato);
  return c;
}

frmCliente::ControlesLugar frmCliente::lugar(Panel* panel, const QString& nombre, const QString& rotulo,
                                             EleccionLugar& datos, void (frmCliente::*elegir)(int)) {
  ControlesLugar c;
  c.datos = &datos;
  auto* juntos = new QWidget;
  auto* fila = new QHBoxLayout(juntos);
  fila->setContentsMargins(0, 0, 0, 0);
  fila->setSpacing(2 * tema::kPaso);
  c.lista = nuevaLista(QStringLiteral("dcb") + nombre);
  c.otro = new Campo(QStringLiteral("txt") + nombre);
  c.otro->filtro = [](QChar t) { return FiltrarTecla(t, {ClaseTecla::Mayusculas}); };
  c.otro->setAccessibleName(nombre + QStringLiteral(", otro"));
  enlaces_.texto(c.otro, datos.otro);
  fila->addWidget(c.lista, 1);
  fila->addWidget(c.otro, 1);
  juntos->setFocusProxy(c.lista);  // for the caption's letter
  panel->agregar(rotulo, juntos);
  connect(c.lista, &QComboBox::currentIndexChanged, this, [this, lista = c.lista, elegir](int n) {
    if (n >= 0) (this->*elegir)(lista->itemData(n).toInt());
  });
  return c;
}

QWidget* frmCliente::crearNacimiento() {
  auto* juntos = new QWidget;
  auto* fila = new QHBoxLayout(juntos);
  fila->setContentsMargins(0, 0, 0, 0);
  chkFNacimiento_ = new QCheckBox(QStringLiteral("dada"));
  chkFNacimiento_->setObjectName(QStringLiteral("chkFNacimiento"));
  dtpFNacimiento_ = new Campo(QStringLiteral("dtpFNacimiento"));
  dtpFNacimiento_->setPlaceholderText(QStringLiteral("dd/mm/aaaa"));
  enlaces_.texto(dtpFNacimiento_, v_.dtpFNacimiento);
  fila->addWidget(chkFNacimiento_);
  fila->addWidget(dtpFNacimiento_, 1);
  connect(chkFNacimiento_, &QCheckBox::toggled, this, [this](bool dada) {
    recoger();
    CambiarNacimiento(p_, v_, dada);
    mostrar();
  });
  return juntos;
}

void frmCliente::crearDatos() {
  auto* panel = new Panel({}, 1, this);
  panel->setObjectName(QStringLiteral("datos"));
  Campo* tarjeta = texto(panel, QStringLiteral("txtTarjeta"), QStringLiteral("Nuevo Nro. &Tarjeta"), v_.txtTarjeta);
  tarjeta->filtro = [](QChar t) { return t.isDigit() ? t : QChar(); };
  panel->findChild<QLabel*>()->setMinimumWidth(tema::px(164));
  txtApellidos_ = texto(panel, QStringLiteral("txtApellidos"), QStringLiteral("Ape&llidos"), v_.txtApellidos);
  txtNombres_ = texto(panel, QStringLiteral("txtNombres"), QStringLiteral("&Nombres"), v_.txtNombres);
  texto(panel, QStringLiteral("txtDireccion"), QStringLiteral("&Dirección"), v_.txtDireccion);
  departamento_ = lugar(panel, QStringLiteral("Departamento"), QStringLiteral("De&partamento"), v_.departamento,
                        &frmCliente::elegirDepartamento);
  provincia_ = lugar(panel, QStringLiteral("Provincia"), QStringLiteral("Pro&vincia"), v_.provincia,
                     &frmCliente::elegirProvincia);
  distrito_ =
      lugar(panel, QStringLiteral("Distrito"), QStringLiteral("Di&strito"), v_.distrito, &frmCliente::elegirDistrito);
  texto(panel, QStringLiteral("txtTelefono"), QStringLiteral("Telé&fonos"), v_.txtTelefono);
  texto(panel, QStringLiteral("txtEMail"), QStringLiteral("E-&Mail"), v_.txtEMail, false);
  panel->agregar(QStringLiteral("F.Nacimiento"), crearNacimiento());
  cboTip_ = nuevaLista(QStringLiteral("cboTip"));
  cboTip_->addItems({QStringLiteral("PN"), QStringLiteral("Colegios"), QStringLiteral("Empresas")});
  panel->agregar(QStringLiteral("Tipo"), cboTip_);
  dcbLocal_ = nuevaLista(QStringLiteral("dcbLocal"));
  txtLocal_ = new Campo(QStringLiteral("txtLocal"));
  txtLocal_->setFixedWidth(56);
  txtLocal_->filtro = [](QChar t) { return t.isDigit() ? t : QChar(); };
  auto* local = new QWidget;
  auto* fila = new QHBoxLayout(local);
  fila->setContentsMargins(0, 0, 0, 0);
  fila->addWidget(txtLocal_);
  fila->addWidget(dcbLocal_, 1);
  panel->agregar(QStringLiteral("Local"), local);
  connect(dcbLocal_, &QComboBox::currentIndexChanged, this, [this](int n) {
    v_.dcbLocal = n < 0 ? -1 : dcbLocal_->itemData(n).toInt();
    txtLocal_->setText(n < 0 ? QString() : QString::number(v_.dcbLocal));
  });
  txtLocal_->alSalir = [this] { dcbLocal_->setCurrentIndex(dcbLocal_->findData(txtLocal_->text().toInt())); };
}

QWidget* frmCliente::crearFoto() {
  fraFoto_ = new QFrame;
  fraFoto_->setProperty("papel", "tarjeta");
  auto* columna = new QVBoxLayout(fraFoto_);
  lblFoto_ = nuevoTexto(QStringLiteral("Sin fotografía"), QStringLiteral("suave"));
  lblFoto_->setObjectName(QStringLiteral("fraFoto"));
  imgFoto_ = new QLabel;
  imgFoto_->setObjectName(QStringLiteral("imgFoto"));
  imgFoto_->setFixedSize(kFoto);
  imgFoto_->setAlignment(Qt::AlignCenter);
  auto* foto = nuevoBoton(QStringLiteral("cmdFoto"), QStringLiteral("&Fotografiar"));
  columna->addWidget(lblFoto_);
  columna->addWidget(imgFoto_);
  columna->addWidget(foto);
  columna->addStretch();
  connect(foto, &QPushButton::clicked, this, &frmCliente::fotografiar);
  return fraFoto_;
}

void frmCliente::mostrarLugar(const ControlesLugar& c) {
  const QSignalBlocker guarda(c.lista);  // being filled, not chosen from
  c.lista->clear();
  for (const Lugar& l : c.datos->lugares) c.lista->addItem(l.nombre, l.codigo);
  c.lista->setCurrentIndex(c.datos->codigo == 0 ? -1 : c.lista->findData(c.datos->codigo));
  c.otro->setEnabled(c.datos->esOtro());
}

void frmCliente::mostrar() {
  for (const auto& c : {departamento_, provincia_, distrito_}) mostrarLugar(c);
  {
    const QSignalBlocker guarda(chkFNacimiento_);
    chkFNacimiento_->setChecked(v_.chkFNacimiento);
  }
  dtpFNacimiento_->setEnabled(v_.chkFNacimiento);
  if (dcbLocal_->count() == 0 && !v_.locales.empty()) {
    const int elegido = v_.dcbLocal;
    for (const LocalCliente& l : v_.locales) dcbLocal_->addItem(l.nombre, l.id);
    dcbLocal_->setCurrentIndex(dcbLocal_->findData(elegido));
  }
  enlaces_.mostrar();
}

void frmCliente::elegirDepartamento(int codigo) {
  recoger();
  ElegirDepartamento(p_, v_, codigo);
  trasElegir(departamento_);
}

void frmCliente::elegirProvincia(int codigo) {
  recoger();
  ElegirProvincia(p_, v_, codigo);
  trasElegir(provincia_);
}

void frmCliente::elegirDistrito(int codigo) {
  recoger();
  ElegirDistrito(v_, codigo);
  trasElegir(distrito_);
}

void frmCliente::trasElegir(const ControlesLugar& c) {
  mostrar();
  if (c.datos->esOtro()) c.otro->setFocus();
}

bool frmCliente::alEntrar(QWidget* campo) {
  if (campo == txtApellidos_ || campo == txtNombres_) {
    buscar();
    return true;
  }
  if (campo == chkFNacimiento_) {
    chkFNacimiento_->toggle();
    return true;
  }
  return false;
}

// Only to see whether the person is a customer already: what is chosen there changes nothing here.
void frmCliente::buscar() { (void)pantallas_.buscarCliente(Recortar(txtApellidos_->text())); }

void frmCliente::fotografiar() {
  timer_.reset();
  TerminarFoto(p_, foto_);
  if (!IniciarFoto(p_, foto_)) return;
  lblFoto_->setText(QStringLiteral("Esperando a la cámara..."));
  timer_ = p_.reloj.cada(kTick_ms, [this] { tick(); });
}

void frmCliente::tick() {
  QString ruta;
  switch (MirarFoto(p_, foto_, ruta)) {
    case TickFoto::Espera: return;
    case TickFoto::SinFoto: lblFoto_->setText(QStringLiteral("La cámara no dejó ninguna fotografía")); break;
    case TickFoto::Lista:
      v_.foto = ruta;
      lblFoto_->setText(QFileInfo(ruta).fileName());
      // A file that is no picture is kept all the same.
      if (const QPixmap foto(ruta); !foto.isNull()) {
        imgFoto_->setPixmap(foto.scaled(kFoto, Qt::KeepAspectRatio, Qt::SmoothTransformation));
      }
      break;
  }
  timer_.reset();
}

void frmCliente::aceptar() {
  recoger();
  v_.cboTip = cboTip_->currentIndex();
  QString campoMal;
  const CursorEspera espera;
  if (!ValidarCliente(p_, v_, campoMal)) {
    mostrar();
    if (auto* campo = findChild<QWidget*>(campoMal)) marcarMal(campo);
    return;
  }
  if (const auto tarjeta = GrabarCliente(p_, v_)) {
    tarjeta_ = *tarjeta;
    accept();
  }
}
