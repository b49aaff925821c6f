#include "app/aplicacion.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <utility>

#include "app/arranque.h"
#include "app/frm_password.h"
#include "app/frm_primer_inicio.h"
#include "app/frm_splash.h"
#include "app/pantallas.h"
#include "cashday/frm_principal.h"
#include "foundation/fin_arranque.h"
#include "platform/io/cerrojo.h"
#include "platform/ui/ciclo_ventanas.h"
#include "platform/ui/tema.h"

namespace {

constexpr int kSplash_ms = 1000;

CicloVentanas* ciclo() { return dynamic_cast<CicloVentanas*>(QCoreApplication::instance()); }

}  // namespace

struct Aplicacion::Interno {
  Interno(Motores& motores, Puertos& puertos, Reloj& reloj, Mensajes& mensajes, Salida& salida, const Rutas& rutas)
      : puesto(motores, puertos, reloj, mensajes, salida, rutas),
        pantallas(puesto, [this] { rearrancar(); }),
        unico(rutas.enPrograma(QStringLiteral("TarvoPos.lock"))) {}

  void iniciar();
  void preguntarPuesto();
  void rearrancar();
  void exigirUnicaCopia();
  void login();
  void sesion();
  void contarRotura(const QString& que);

  Puesto puesto;
  Pantallas pantallas;
  Cerrojo unico;
  std::unique_ptr<frmPrimerInicio> primero;
  std::unique_ptr<frmPassword> password;
  std::unique_ptr<frmPrincipal> principal;
  bool contando = false;
  QObject contexto;  // what is still to be called ends with the program
};

void Aplicacion::Interno::iniciar() {
  try {
    exigirUnicaCopia();
    if (FaltaElPuesto(puesto)) return preguntarPuesto();
    Arrancar(puesto, PasosDelPrograma());
    login();
  } catch (const std::exception& e) {
    TerminarArranque(puesto,
                     QStringLiteral("El programa no pudo abrir la caja. Vuelva a abrirlo y, si sigue igual, llame a "
                                    "quien lo instaló con las palabras de abajo."),
                     QString::fromUtf8(e.what()));
  }
}

// A folder without a desk: it is made here, and then the start goes on.
void Aplicacion::Interno::preguntarPuesto() {
  primero = std::make_unique<frmPrimerInicio>(
      puesto,
      [this] {
        QMetaObject::invokeMethod(
            &contexto, [this] { iniciar(); }, Qt::QueuedConnection);
      },
      [this] { puesto.salida.terminar(1); });
  primero->show();
  primero->activateWindow();
}

// The main window has asked for it from one of its own acts, so it goes once that has returned.
void Aplicacion::Interno::rearrancar() {
  principal->hide();
  QMetaObject::invokeMethod(
      &contexto,
      [this] {
        principal.reset();
        iniciar();
      },
      Qt::QueuedConnection);
}

void Aplicacion::Interno::exigirUnicaCopia() {
  (void)QDir().mkpath(puesto.rutas.programa);  // what can't be made can't be locked either
  const Cerrojo::Fin fin = unico.tomar(puesto.reloj.now());
  if (fin == Cerrojo::Fin::Tomado) return;
  if (fin == Cerrojo::Fin::Ocupado) {
    TerminarArranque(puesto,
                     QStringLiteral("El programa ya está abierto en esta computadora. Búsquelo en la barra de ventanas "
                                    "y siga trabajando en él."),
                     QStringLiteral("La aplicación ya se encuentra en uso"));
  }
  TerminarArranque(
      puesto,
      QStringLiteral("La caja no puede escribir en su carpeta. Revise que el disco no esté lleno, o pida a "
                     "quien instaló el programa que dé permiso en ella."),
      QStringLiteral("No se puede escribir en la carpeta del programa: ") + puesto.rutas.programa +
          QStringLiteral(" (sin permiso o disco lleno)"));
}

void Aplicacion::Interno::login() {
  frmSplash splash;
  splash.mostrar();
  puesto.reloj.dormir(kSplash_ms);

  password = std::make_unique<frmPassword>(
      puesto, [this] { sesion(); },
      [this] {
        puesto.poDBAdmin.CerrarBD(puesto.poCnnLocal);
        puesto.salida.terminar(1);
      });
  password->show();
  password->repaint();
  splash.close();
  password->activateWindow();
}

void Aplicacion::Interno::sesion() {
  principal = std::make_unique<frmPrincipal>(puesto, pantallas);
  principal->iniciar();
  MostrarAlmacen(puesto);
}

// One box, whatever its own painting may throw again.
void Aplicacion::Interno::contarRotura(const QString& que) {
  puesto.registro.RegistrarErrorLog(QStringLiteral("Error interno: ") + que);
  if (std::exchange(contando, true)) return;
  puesto.mensajes.mostrar(
      QStringLiteral("Ocurrió un error interno.\nLa operación no se hizo. Revise lo último que registró y avise a "
                     "soporte."),
      Mensajes::kTitulo, Icono::Critico);
  contando = false;
}

Aplicacion::Aplicacion(Motores& motores, Puertos& puertos, Reloj& reloj, Mensajes& mensajes, Salida& salida,
                       const Rutas& rutas) {
  tema::aplicar(*qApp);
  QApplication::setWindowIcon(QIcon(tema::logo(256)));
  QApplication::setDesktopFileName(QStringLiteral("tarvopos"));
  d_ = std::make_unique<Interno>(motores, puertos, reloj, mensajes, salida, rutas);
  if (CicloVentanas* c = ciclo()) c->alRomper = [this](const QString& que) { d_->contarRotura(que); };
}

Aplicacion::~Aplicacion() {
  if (CicloVentanas* c = ciclo()) c->alRomper = {};
}

void Aplicacion::iniciar() { d_->iniciar(); }

void Aplicacion::cerrar() {
  // Modal screens unwind when their own loops go on; those below them follow then.
  while (QWidget* modal = QApplication::activeModalWidget()) {
    auto* dialogo = qobject_cast<QDialog*>(modal);
    if (!dialogo) break;
    dialogo->QDialog::done(QDialog::Rejected);
    if (QApplication::activeModalWidget() == modal) break;
  }
  const auto ventanas = QApplication::topLevelWidgets();
  for (QWidget* v : ventanas) v->hide();
}

Puesto& Aplicacion::puesto() { return d_->puesto; }
