#include <QApplication>

#include "app/aplicacion.h"
#include "app/entorno.h"
#include "platform/io/senales.h"

int main(int argc, char** argv) {
  FallasDeEscrituraComoErrores();
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);  // between login and main window there is none
  EntornoSistema e(carpetaDelPrograma());
  Aplicacion programa(*e.motores, *e.puertos, *e.reloj, *e.mensajes, *e.salida, e.rutas);
  programa.iniciar();
  return QApplication::exec();
}
