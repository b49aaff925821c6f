#pragma once
// The main window without its window: what the clerk may use in the state of the cash day.
#include "cashday/menus.h"
#include "platform/io/datos_estado.h"

struct Puesto;
class PantallasPrincipal;

struct Principal {
  bool bAcceso = false;             // a supervisor has authorised the operation under way
  bool bReporteImpreso = false;     // a report has gone to print
  QString txtsupervisor;            // "" until a supervisor has authorised something
  bool sincronizarDiaAnt = false;   // an opening has closed sales of an earlier day
  bool cierreInterrumpido = false;  // a closing is half done: only "Reporte Z" and "&Salir" are left
};

// What stands in the middle of the window.
struct EstadoDia {
  ClaseDia clase = ClaseDia::Cerrada;
  QString titular;    // "CAJA 00001 · ABIERTA · TURNO 01"
  QString sentencia;  // what to do next; "" while a turn is open
};

// What the window does when it loads; its boxes are shown here.
void CargarPrincipal(Puesto& p, Principal& v);

// Before each entry of mnuOperaciones: the flag is cleared, and the rate of the day is captured if it is
// not known.
void PrepararOperacion(Puesto& p, Principal& v, PantallasPrincipal& pantallas);

// Asks a supervisor; `acto` names in the title what is authorised. True, with v.bAcceso set, when there is one.
bool AutorizarOperacion(Principal& v, PantallasPrincipal& pantallas, const QString& acto);

// The same before a screen of settings, which a supervisor who is logged in opens without being asked. An earlier
// consent doesn't count.
bool ExigirSupervisor(const Puesto& p, Principal& v, PantallasPrincipal& pantallas, const QString& acto);

// What the main window's status line tells: as everywhere, and the rate of the day also before anything has asked for
// it. A rate that can't be read is left out without a word.
DatosEstado EstadoPrincipal(Puesto& p);

ClaseDia ClaseDelDia(const Puesto& p, const Principal& v);
EstadoDia EstadoDelDia(const Puesto& p, const Principal& v);
QString TituloPrincipal(const Puesto& p);

// The menu entries "Sincronizar Datos" (which asks about the master tables) and, with `diaAnterior`, "Sincronizar Datos
// (Dia Anterior)" (which asks whether at all).
void SincronizarDatos(Puesto& p, PantallasPrincipal& pantallas, bool diaAnterior);

// One tick of tmrBDCliente: at most once a minute the client database is tried and the queued points are sent.
void RevisarCliente(Puesto& p);
// All that the timer looks after: client database, disk, a central database that comes back.
void RevisarEntreActos(Puesto& p, PantallasPrincipal& pantallas);
