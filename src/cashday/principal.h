#pragma once
// The main window without its window: what the clerk may use in the state of the cash day.
#include <QString>
#include <array>

#include "platform/io/datos_estado.h"

struct Puesto;
class PantallasPrincipal;

struct Principal {
  bool bAcceso = false;          // a supervisor has authorised the operation under way
  bool bReporteImpreso = false;  // a report has gone to print
  QString txtsupervisor;

  // By their numbers: mnuMantenimiento_Hijo(1) to (8), mnuOperaciones_Hijo(1) to (17), Toolbar1(1) to (17).
  std::array<bool, 9> mantenimiento;
  std::array<bool, 18> operaciones, botones, botonVisible;
  bool demasMenus = true;  // every other entry but "&Salir"
  bool sincronizarDiaAnt = false;
  bool usuariosVisible = true;
  bool cierreInterrumpido = false;

  Principal();
};

constexpr int kIniciarCaja = 8;  // of mnuMantenimiento_Hijo
constexpr int kReporteZ = 8;     // of mnuOperaciones_Hijo
constexpr int kBotonReporteZ = 11;

// What stands in the middle of the window.
struct EstadoDia {
  enum Clase { Cerrada, Abierta, CierreInterrumpido } clase;
  QString titular;    // "CAJA 00001 · ABIERTA · TURNO 01"
  QString sentencia;  // what to do next; "" while a turn is open
};

// Menus for an open (true) or a closed desk.
void ProcesoCaja(Principal& v, bool bApertura);

// The day buttons of the toolbar: positions 2, 6, 8, 9 and 11.
void HabilitarBotonesDia(Principal& v, bool habilitados);

// The menus and buttons of a desk whose closing is half done: only "Reporte Z" and "&Salir" are left.
void BloquearPorCierre(Principal& v);
// Those of a desk whose closing has ended: as with no turn open.
void LiberarTrasCierre(Principal& v);

// What the window does when it loads; its boxes are shown here. The menus of a desk whose closing was interrupted
// leave only "Reporte Z" and "&Salir".
void CargarPrincipal(Puesto& p, Principal& v);

// Before each entry of mnuOperaciones: the flag is cleared, and the rate of the day is captured if it is
// not known.
void PrepararOperacion(Puesto& p, Principal& v, PantallasPrincipal& pantallas);

// Asks a supervisor; `acto` names in the title what is authorised. True, with v.bAcceso set, when there is one.
bool AutorizarOperacion(Principal& v, PantallasPrincipal& pantallas, const QString& acto);

// What the main window's status line tells: as everywhere, and the rate of the day also before anything has asked for
// it. A rate that can't be read is left out without a word.
DatosEstado EstadoPrincipal(Puesto& p);

// The same before a screen of settings, which a supervisor who is logged in opens without being asked. An earlier
// consent doesn't count.
bool ExigirSupervisor(const Puesto& p, Principal& v, PantallasPrincipal& pantallas, const QString& acto);

EstadoDia EstadoDelDia(const Puesto& p, const Principal& v);
QString TituloPrincipal(const Puesto& p);

// The menu entries "Sincronizar Datos" (which asks about the master tables) and, with `diaAnterior`, "Sincronizar Datos
// (Dia Anterior)" (which asks whether at all).
void SincronizarDatos(Puesto& p, PantallasPrincipal& pantallas, bool diaAnterior);

// One tick of tmrBDCliente: at most once a minute the client database is tried and the queued points are sent.
void RevisarCliente(Puesto& p);
