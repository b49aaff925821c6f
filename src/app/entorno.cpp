#include "app/entorno.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QObject>
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

// One act is all that happens between two events: many short waits of it are a long one to who stands before it.
class EntornoSistema::Signo {
 public:
  explicit Signo(Mensajes& persona) : persona_(persona) {}

  void esperar(const QString& que, int ms) {
    if (que.isEmpty()) return;
    if (!acto_) {
      acto_ = QDeadlineTimer(kAvisoEspera_ms - ms);
      RelojSistema().unaVez(0, &contexto_, [this] {
        acto_.reset();
        ocupado_.reset();
      });
    }
    if (!acto_->hasExpired() || (ocupado_ && que == dicho_)) return;
    if (ocupado_) ocupado_->ahora(que);
    else ocupado_.emplace(persona_, que);
    dicho_ = que;
  }

 private:
  Mensajes& persona_;
  QObject contexto_;
  std::optional<QDeadlineTimer> acto_;  // of the one that waits, past once it is to be told
  std::optional<Ocupado> ocupado_;
  QString dicho_;
};

void SalidaSistema::terminar(int estado) {
  std::fflush(nullptr);
  std::_Exit(estado);
}

EntornoSistema::EntornoSistema(const QString& carpeta, std::function<QDateTime()> ahora)
    : rutas(rutasDe(carpeta)),
      impresoras(std::make_unique<ImpresorasQt>()),
      motores(motoresDelSistema(rutas.programa, {std::move(ahora),
                                                 procedimientosDeServidores(),
                                                 {},
                                                 [this](const QString& que, int ms) { signo_->esperar(que, ms); }})),
      puertos(std::make_unique<PuertosSistema>(rutas.programa, impresoras.get())),
      reloj(std::make_unique<RelojSistema>()),
      mensajes(std::make_unique<MensajesVentana>()),
      salida(std::make_unique<SalidaSistema>()) {
  avisarEsperas(*mensajes);
}

void EntornoSistema::avisarEsperas(Mensajes& persona) {
  signo_ = std::make_unique<Signo>(persona);
  puertos->alEsperar = [this](const QString& que, int ms) { signo_->esperar(que, ms); };
}

EntornoSistema::~EntornoSistema() = default;

QString carpetaDelPrograma() {
  QString casa = qEnvironmentVariable("TARVOPOS_HOME");
  if (!casa.isEmpty()) return casa;
  QString programa = QCoreApplication::applicationDirPath();
  if (QDir(programa).dirName() != u"bin" || !QDir(programa + QStringLiteral("/../share/tarvopos")).exists()) {
    return programa;
  }
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/TarvoPos");
}
