#pragma once
// Sends one day of the desk again, in the place of what the central database holds of it.
struct FrmUpdt;
struct Puesto;

// Asks for the day and does it: one transaction there, from live rows and history alike. Only a closed day whose Z is
// there, and of which the store holds no less than the centre; otherwise a box says why and nothing changes. A row that
// is refused is logged and left to the next synchronisation.
void SincronizarFecha(Puesto& p, FrmUpdt& pantalla);
