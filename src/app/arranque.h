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

// Runs the steps on an empty session. Whatever stops the start has been shown and has ended the process, with a
// status other than 0, through p.salida. Also run again after a change of turn.
void Arrancar(Puesto& p, const PasosArranque& pasos);

// The words shown after an accepted login: the warehouse of this desk, by name when the central database answers.
void MostrarAlmacen(Puesto& p);
