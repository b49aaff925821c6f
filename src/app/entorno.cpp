#include "app/entorno.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <cstdio>
#include <cstdlib>

#include "platform/io/puertos_sistema.h"
#include "platform/io/reloj_sistema.h"
#include "platform/ui/impresoras.h"
#include "platform/ui/mensajes_ventana.h"
#include "servidores.h"

namespace {

constexpr int kAvisoEspera_ms = 400;  // painted before half a second has gone

}  // namespace

void SalidaSistema::terminar(int estado) {
  std::fflush(nullptr);
  std::_Exit(estado);
}

EntornoSistema::EntornoSistema(const QString& carpeta, std::function<QDateTime()> ahora)
    : rutas(rutasDe(carpeta)),
      impresoras(std::make_unique<ImpresorasQt>()),
      motores(motoresDelSistema(rutas.programa, {std::move(ahora), procedimientosDeServidores(), {}})),
      puertos(std::make_unique<PuertosSistema>(rutas.programa, impresoras.get())),
      reloj(std::make_unique<RelojSistema>()),
      mensajes(std::make_unique<MensajesVentana>()),
      salida(std::make_unique<SalidaSistema>()) {
  avisarEsperas(*mensajes);
}

void EntornoSistema::avisarEsperas(Mensajes& persona) {
  puertos->alEsperar = [&persona, ocupado = std::make_shared<std::optional<Ocupado>>()](const QString& que, int ms) {
    if (que.isEmpty()) ocupado->reset();
    else if (ms >= kAvisoEspera_ms && !*ocupado) ocupado->emplace(persona, que);
  };
}

EntornoSistema::~EntornoSistema() = default;

QString carpetaDelPrograma() {
  const QString casa = qEnvironmentVariable("TARVOPOS_HOME");
  if (!casa.isEmpty()) return casa;
  const QString programa = QCoreApplication::applicationDirPath();
  if (QDir(programa).dirName() != u"bin" || !QDir(programa + QStringLiteral("/../share/tarvopos")).exists()) {
    return programa;
  }
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/TarvoPos");
}
