#include "app/frm_primer_inicio.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/puesto.h"
#include "platform/ui/tema.h"

frmPrimerInicio::frmPrimerInicio(Puesto& p, std::function<void()> hecho, std::function<void()> dejado)
    : Forma(QStringLiteral("frmPrimerInicio"), QStringLiteral("TarvoPos - Caja nueva")),
      p_(p),
      hecho_(std::move(hecho)),
      dejado_(std::move(dejado)) {
  auto* frase = nuevoTexto(
      QStringLiteral(
          "En esta computadora todavía no hay una caja. Escriba sus datos y pulse Crear caja. Si ya la había, "
          "no siga: restaure su última copia de respaldo (manual, «Recuperar una caja»)."),
      QStringLiteral("sentencia"));
  frase->setWordWrap(true);
  cuerpo()->addWidget(frase);

  auto* caja = new Panel(QStringLiteral("La caja"), 3);
  campo(caja, QStringLiteral("txtCaja"), QStringLiteral("Có&digo"), v_.txtCaja);
  campo(caja, QStringLiteral("txtAlmacen"), QStringLiteral("A&lmacén"), v_.txtAlmacen);
  campo(caja, QStringLiteral("txtServicio"), QStringLiteral("% Se&rvicio"), v_.txtServicio);
  cuerpo()->addWidget(caja);
  cuerpo()->addWidget(panelServidor(QStringLiteral("Servidor central"), "Central", v_.txtCentral, v_.txtBaseCentral,
                                    v_.txtUsuarioCentral, v_.txtClaveCentral));
  cuerpo()->addWidget(panelServidor(QStringLiteral("Servidor de clientes"), "Cliente", v_.txtCliente, v_.txtBaseCliente,
                                    v_.txtUsuarioCliente, v_.txtClaveCliente));
  auto* supervisor = new Panel(QStringLiteral("El primer supervisor"), 3);
  campo(supervisor, QStringLiteral("txtUsuario"), QStringLiteral("&Usuario"), v_.txtUsuario);
  campo(supervisor, QStringLiteral("txtPassword"), QStringLiteral("&Password"), v_.txtPassword, true);
  campo(supervisor, QStringLiteral("txtReingresarPassword"), QStringLiteral("Otra &vez"), v_.txtReingresarPassword,
        true);
  cuerpo()->addWidget(supervisor);
  auto* solo = new QCheckBox(QStringLiteral("&Abrir la caja al encender esta computadora"));
  solo->setObjectName(QStringLiteral("chkAutoarranque"));
  cuerpo()->addWidget(solo);
  enlaces_.marca(solo, v_.chkAutoarranque);

  auto* si = nuevoBoton(QStringLiteral("cmdCrear"), QStringLiteral("&Crear caja"), QStringLiteral("principal"));
  auto* prueba = nuevoBoton(QStringLiteral("cmdProbar"), QStringLiteral("Probar servid&ores"));
  auto* no = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
  connect(si, &QPushButton::clicked, this, &frmPrimerInicio::crear);
  connect(prueba, &QPushButton::clicked, this, &frmPrimerInicio::probar);
  connect(no, &QPushButton::clicked, this, &QDialog::reject);
  cuerpo()->addLayout(filaBotones({si, prueba, no}));
  indicio(QStringLiteral("Sin servidores propios, deje «sqlite:»: las bases se crean en esta computadora"));
  indicio(QStringLiteral("Carpeta de la caja: ") + p_.rutas.programa);
  enlaces_.mostrar();
  // A wrapped sentence tells its height late, and the panels would be squeezed for it.
  for (Panel* panel : findChildren<Panel*>()) panel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  for (QWidget* w : findChildren<QWidget*>()) w->ensurePolished();
  layout()->activate();
  resize(860, layout()->totalHeightForWidth(860));
  findChild<QWidget*>(QStringLiteral("txtCaja"))->setFocus();
}

Campo* frmPrimerInicio::campo(Panel* panel, const QString& nombre, const QString& etiqueta, QString& texto,
                              bool secreto) {
  Campo* c = panel->campo(nombre, etiqueta);
  if (secreto) c->setEchoMode(QLineEdit::Password);
  enlaces_.texto(c, texto);
  return c;
}

Panel* frmPrimerInicio::panelServidor(const QString& titulo, const char* sufijo, QString& servidor, QString& base,
                                      QString& usuario, QString& clave) {
  const QString s = QString::fromLatin1(sufijo);
  auto* panel = new Panel(titulo, 2);
  campo(panel, QStringLiteral("txt") + s, QStringLiteral("Servidor"), servidor);
  campo(panel, QStringLiteral("txtBase") + s, QStringLiteral("Base de datos"), base);
  campo(panel, QStringLiteral("txtUsuario") + s, QStringLiteral("Usuario"), usuario);
  campo(panel, QStringLiteral("txtClave") + s, QStringLiteral("Clave"), clave, true);
  return panel;
}

void frmPrimerInicio::crear() {
  enlaces_.recoger();
  QString foco;
  bool hecho = false;
  {
    const CursorEspera espera;
    hecho = CrearPrimerPuesto(p_, v_, foco);
  }
  if (hecho) {
    done(Accepted);
  } else if (auto* malo = findChild<Campo*>(foco)) {
    marcarMal(malo);
    malo->selectAll();
  }
}

void frmPrimerInicio::probar() {
  enlaces_.recoger();
  const CursorEspera espera;
  ProbarServidores(p_, v_);
}

void frmPrimerInicio::done(int resultado) {
  Forma::done(resultado);
  // The call may delete this screen or end the process.
  const auto despues = resultado == Accepted ? hecho_ : dejado_;
  if (despues) despues();
}
