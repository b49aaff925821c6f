#pragma once
// What each action of a screenplay does, cut into steps between which the event loop runs.
#include <deque>
#include <functional>
#include <memory>

#include "admin/fallas.h"
#include "admin/guion_lexico.h"
#include "admin/guion_pantallas.h"
#include "admin/guion_persona.h"
#include "admin/guion_reloj.h"

struct TeclaGuion;

// The program that a play drives.
class ProgramaGuion {
 public:
  virtual ~ProgramaGuion() = default;
  // Returns when the program waits for its user.
  virtual void iniciar() = 0;
  // Closes all windows without asking, innermost first.
  virtual void cerrar() = 0;
};

// What a play acts on.
struct EscenaGuion {
  EscritorGuion& escritor;
  PersonaDeGuion& persona;
  RelojGuion& reloj;
  Fallas& fallas;
  QString carpetaCapturas;  // made when the first picture is taken
  std::function<std::unique_ptr<ProgramaGuion>()> crear;

  PantallasGuion pantallas{};
  std::unique_ptr<ProgramaGuion> programa{};
};

// One step; false when it has to be tried again a little later. Throws ErrorGuion when it cannot be done.
using PasoGuion = std::function<bool()>;

class AccionesGuion {
 public:
  explicit AccionesGuion(EscenaGuion& escena) : e_(escena) {}

  // The steps of an action, to be run in turn. Checks what can be checked before the first one; throws ErrorGuion.
  std::deque<PasoGuion> pasos(const Accion& a);
  // Those of `termina`.
  std::deque<PasoGuion> cierre();

 private:
  using Metodo = std::deque<PasoGuion> (AccionesGuion::*)(const Accion&);

  std::deque<PasoGuion> reloj(const Accion& a);
  std::deque<PasoGuion> pasa(const Accion& a);
  std::deque<PasoGuion> inicia(const Accion& a);
  std::deque<PasoGuion> termina(const Accion& a);
  std::deque<PasoGuion> espera(const Accion& a);
  std::deque<PasoGuion> escribe(const Accion& a);
  std::deque<PasoGuion> tecla(const Accion& a);
  std::deque<PasoGuion> ritmo(const Accion& a);
  std::deque<PasoGuion> escanea(const Accion& a);
  std::deque<PasoGuion> clic(const Accion& a);
  std::deque<PasoGuion> fila(const Accion& a);
  std::deque<PasoGuion> elige(const Accion& a);
  std::deque<PasoGuion> celda(const Accion& a);
  std::deque<PasoGuion> marca(const Accion& a);
  std::deque<PasoGuion> responde(const Accion& a);
  std::deque<PasoGuion> lee(const Accion& a);
  std::deque<PasoGuion> foco(const Accion& a);
  std::deque<PasoGuion> estado(const Accion& a);
  std::deque<PasoGuion> captura(const Accion& a);
  std::deque<PasoGuion> revisa(const Accion& a);
  std::deque<PasoGuion> caeVuelve(const Accion& a);
  std::deque<PasoGuion> falla(const Accion& a);
  std::deque<PasoGuion> mata(const Accion& a);

  // Steps that press keys, one each, on whatever has the keyboard then. `ms` behind the one before; without it at the
  // pace that was set.
  void anadirTecla(std::deque<PasoGuion>& pasos, const TeclaGuion& t, std::optional<int> ms = {});
  void anadirTexto(std::deque<PasoGuion>& pasos, QString texto);

  void fotografiar(const QString& nombre);
  void revisarPantalla();

  EscenaGuion& e_;
  std::shared_ptr<void> vigia_;  // of a screen that comes and goes within one action
  std::optional<int> ritmo_ms_;  // without it keys carry no time, as from hands
  quint64 momento_ms_ = 1;       // of the last key that carried one
};
