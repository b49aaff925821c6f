#pragma once
// The program: start-up in its steps, splash, login, session. Builds the desk and wires the screens of the rooms.
#include <memory>

#include "foundation/puesto.h"

class Aplicacion {
 public:
  // All of them are owned by the caller and outlive the program.
  Aplicacion(Motores& motores, Puertos& puertos, Reloj& reloj, Mensajes& mensajes, Salida& salida, const Rutas& rutas);
  ~Aplicacion();
  Aplicacion(const Aplicacion&) = delete;
  Aplicacion& operator=(const Aplicacion&) = delete;

  // Runs the start-up and returns with the login on the screen; from there on windows' events drive the session.
  // Any failure that stops the start has been shown and has ended the process through Salida.
  void iniciar();

  // Closes every window, the innermost first, without asking, and the connections. The process lives on.
  void cerrar();

  Puesto& puesto();

 private:
  struct Interno;
  std::unique_ptr<Interno> d_;
};
