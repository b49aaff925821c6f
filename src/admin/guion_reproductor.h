#pragma once
// Plays a screenplay: takes lines as they come, runs their steps between events and writes "ok" for each action.
#include <QDeadlineTimer>
#include <deque>

#include "admin/guion_acciones.h"

// The next turn is always armed before a step runs, so that it comes whether the step returns or stays inside the
// event loop of a modal screen that it opened: the play then goes on in that screen, as a person does, and the step
// returns whenever the screen closes. An action is over, and says "ok", once its steps have been taken and the event
// loop has come to rest.
class ReproductorGuion final : public QObject {
 public:
  ReproductorGuion(FuenteGuion& fuente, EscenaGuion& escena);

  // Runs the application's event loop until the play's end, with the program closed; gives 0. An action that cannot
  // be done writes "línea N: reason" and ends the process with 1.
  int reproducir();

 private:
  void armar(int ms);
  void turno();
  void darPaso();
  bool botonPorSoltar();
  // True when the action under way, if any, is over.
  bool accionAcabada();
  // Takes lines up to the next action. False while none has come.
  bool tomarAccion();
  [[noreturn]] void fallar(const ErrorGuion& error);

  FuenteGuion& fuente_;
  EscenaGuion& escena_;
  AccionesGuion acciones_;
  RelojSistema real_;

  std::deque<PasoGuion> pasos_;
  std::vector<int> niveles_;  // of the event loops in which the steps under way began, outermost first
  bool enAccion_ = false;     // an action has begun and has not said "ok" yet
  bool acabando_ = false;     // the lines are used up
  bool esperandoLinea_ = false;
  int reposo_ = 0;  // turns at rest since the last step
  QDeadlineTimer plazoBoton_;
  int linea_ = 0;      // of the action under way
  quint64 turno_ = 0;  // only the turn armed last counts
};
