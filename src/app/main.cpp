#include <cstdio>

#include "app/aplicacion.h"
#include "app/entorno.h"
#include "foundation/version.h"
#include "platform/io/puertos_sistema.h"
#include "platform/io/senales.h"
#include "platform/ui/ciclo_ventanas.h"

namespace {

// The words for a call that only asks; nothing for one that starts the till.
std::optional<QString> respuesta(int argc, char** argv) {
  if (argc < 2) return {};
  const QString pregunta = QString::fromLocal8Bit(argv[1]);
  if (pregunta == u"--version") return QStringLiteral("tarvopos ") + Version();
  if (pregunta != u"--help" && pregunta != u"--ayuda" && pregunta != u"-h") return {};
  return QStringLiteral(
      "Uso: tarvopos\n\nAbre la caja de la carpeta TARVOPOS_HOME. Sin ella, la de ~/.local/share/TarvoPos si el "
      "programa\nestá instalado por paquete, o la de la carpeta del programa. Si la carpeta no tiene una "
      "caja, ofrece crearla.\n"
      "  --help     muestra esto\n  --version  muestra la versión\n\n"
      "También se crea una con «tarvopos-admin crear-puesto DIR». Salida: 0 si se sale, 1 si no pudo abrir.");
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto texto = respuesta(argc, argv)) {
    std::puts(texto->toUtf8().constData());
    return 0;
  }
  FallasDeEscrituraComoErrores();
  NombrarZona();
  CicloVentanas ciclo(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);  // between login and main window there is none
  EntornoSistema e(carpetaDelPrograma());
  Aplicacion programa(*e.motores, *e.puertos, *e.reloj, *e.mensajes, *e.salida, e.rutas);
  programa.iniciar();
  return QApplication::exec();
}
