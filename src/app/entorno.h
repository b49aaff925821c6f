#pragma once
// The machine's own engines, ports, clock, boxes and end of process: what a desk is built on outside of tests.
#include <functional>
#include <memory>

#include "foundation/rutas.h"
#include "platform/io/mensajes.h"
#include "platform/io/puertos.h"
#include "platform/io/reloj.h"
#include "platform/io/salida.h"
#include "platform/sql/motor.h"

class ImpresorasSistema;
class PuertosSistema;

// Ends the process at once; what was written to standard output has reached it.
class SalidaSistema final : public Salida {
 public:
  [[noreturn]] void terminar(int estado) override;
};

struct EntornoSistema {
  // Of the desk whose program folder is `carpeta`. Needs a QApplication for printers and boxes. `ahora` is what the
  // engines take for the present time; the machine's when not given.
  explicit EntornoSistema(const QString& carpeta, std::function<QDateTime()> ahora = {});
  ~EntornoSistema();

  // Says to that person, who outlives the desk, when printers and servers make an act wait for half a second, until it
  // ends or shows a box. At first it is `mensajes`.
  void avisarEsperas(Mensajes& persona);

  Rutas rutas;
  std::unique_ptr<ImpresorasSistema> impresoras;
  std::unique_ptr<Motores> motores;
  std::unique_ptr<PuertosSistema> puertos;
  std::unique_ptr<Reloj> reloj;
  std::unique_ptr<Mensajes> mensajes;
  std::unique_ptr<Salida> salida;

 private:
  class Signo;
  std::unique_ptr<Signo> signo_;
};

// The desk's folder: TARVOPOS_HOME; else, of a program that the system's packages installed, TarvoPos in the user's own
// data folder; else the folder of the program.
QString carpetaDelPrograma();
