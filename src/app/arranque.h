#pragma once
// The start-up's steps, from the store's path to the synchronisation; splash and login follow in Aplicacion.
#include <functional>

struct Puesto;

// What the start calls in rooms that it does not know.
struct PasosArranque {
  // Sends the queued points; called with the client database open.
  std::function<void(Puesto&)> enviarPendientes;
  // The synchronisation, by the session's two flags, not for the previous day.
  std::function<void(Puesto&)> sincronizar;
};

// Those of this program.
PasosArranque PasosDelPrograma();

// Runs the steps on an empty session. Whatever stops the start has been shown and has ended the process, with a
// status other than 0, through p.salida. Also run again after a change of turn.
//
// Without the central database it asks once whether to go on; then the rate is the last one received, numbers and
// masters are those of the store, and p.ses.bSinCentral stays set until ContactarCentral has done the rest.
void Arrancar(Puesto& p, const PasosArranque& pasos);

// Once the central database answers again after such a start: rate, repair of the numbers, synchronisation, in this
// order and once. True when nothing is left to do. Called between acts, never while a register is open: it may change
// the rate and the articles. Waits as a sale does.
bool ContactarCentral(Puesto& p, const PasosArranque& pasos);

// The words shown after an accepted login: the warehouse of this desk, by name when the central database answers.
void MostrarAlmacen(Puesto& p);
