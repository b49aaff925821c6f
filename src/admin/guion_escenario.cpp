#include "admin/guion_escenario.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <cstdio>

#include "admin/guion_entrada.h"
#include "admin/guion_reproductor.h"
#include "platform/ui/ciclo_ventanas.h"

namespace {

// The in-memory screen takes its size from a file alone. The panel is what it leaves out: it knows no other way.
QByteArray configuracionDe(const PantallaGuion& p) {
  return QStringLiteral(R"({"screens": [{"name": "pantalla", "x": 0, "y": 0, "width": %1, "height": %2, )"
                        R"("logicalDpi": 96, "dpr": 1}]})")
      .arg(p.ancho)
      .arg(p.alto - p.panel)
      .toUtf8();
}

bool sinPantalla() {
  const QByteArray elegida = qgetenv("QT_QPA_PLATFORM");
  if (!elegida.isEmpty()) return elegida == "offscreen";
  return !qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

// The in-memory screen says at each window what it lacks; nobody who reads a play wants to know.
QtMessageHandler siguiente = nullptr;
void callarPantalla(QtMsgType tipo, const QMessageLogContext& contexto, const QString& texto) {
  for (const char* ruido : {"This plugin does not support", "QStandardPaths: XDG_RUNTIME_DIR"})
    if (texto.startsWith(QLatin1String(ruido))) return;
  siguiente(tipo, contexto, texto);
}

}  // namespace

struct AplicacionGrafica::Interno {
  int argc = 1;
  char nombre[15] = "tarvopos-admin";
  char* argv[2] = {nombre, nullptr};
  std::unique_ptr<CicloVentanas> app;
};

std::optional<PantallaGuion> leerPantalla(const QString& texto) {
  static const QRegularExpression forma(
      QStringLiteral("^(\\d{3,4})x(\\d{3,4})(?:-(\\d{1,3}))?(?:@(\\d(?:\\.\\d+)?))?$"));
  const auto m = forma.match(texto);
  if (!m.hasMatch()) return {};
  return PantallaGuion{m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt(), m.captured(4)};
}

AplicacionGrafica::AplicacionGrafica(const std::optional<PantallaGuion>& pedida) : d_(std::make_unique<Interno>()) {
  QTemporaryFile pantalla;
  const QByteArray configuracion = configuracionDe(pedida.value_or(PantallaGuion{}));
  if (pedida && !pedida->escala.isEmpty()) qputenv("QT_SCALE_FACTOR", pedida->escala.toLatin1());
  // A file that the disk had no room for would end the process; the screen is then of the toolkit's own size.
  if ((pedida || sinPantalla()) && pantalla.open() && pantalla.write(configuracion) == configuracion.size() &&
      pantalla.flush()) {
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(pantalla.fileName()));
  }
  if (qgetenv("QT_QPA_PLATFORM").startsWith("offscreen")) siguiente = qInstallMessageHandler(callarPantalla);
  d_->app = std::make_unique<CicloVentanas>(d_->argc, d_->argv);
  QApplication::setQuitOnLastWindowClosed(false);
}

AplicacionGrafica::~AplicacionGrafica() = default;

int tocarEscena(const QString& guion, EscenaGuion& escena) {
  FuenteGuion fuente;
  std::unique_ptr<EntradaGuion> entrada;
  ReproductorGuion reproductor(fuente, escena);
  if (guion == u"-") {
    entrada = std::make_unique<EntradaGuion>(fuente);
  } else {
    QFile archivo(guion);
    if (!archivo.open(QIODevice::ReadOnly)) {
      std::fprintf(stderr, "No se puede leer %s: %s\n", qUtf8Printable(guion), qUtf8Printable(archivo.errorString()));
      return 2;
    }
    fuente.alimentar(archivo.readAll());
    fuente.cerrar();
  }
  return reproductor.reproducir();
}
