#pragma once
// What the main window shows and what of it can be used, as values of the state of the cash day.
#include <QString>
#include <array>
#include <span>

struct Sesion;

enum class ClaseDia { Cerrada, Abierta, CierreInterrumpido };

// An entry of a menu or a button of the toolbar, by its number in the control array; "-" is a separator.
struct EntradaNumerada {
  int n;
  const char* rotulo;
  bool oculta = false;
};
struct BotonBarra {
  int n;
  const char *rotulo, *dibujo;
};

std::span<const EntradaNumerada> EntradasMantenimiento();  // mnuMantenimiento_Hijo
std::span<const EntradaNumerada> EntradasOperaciones();    // mnuOperaciones_Hijo
std::span<const BotonBarra> BotonesBarra();                // Toolbar1

// The caption of an entry without its mnemonic; the entries stand in the order of their numbers.
QString RotuloEntrada(std::span<const EntradaNumerada> entradas, int n);

// The numbers that the program itself asks for.
enum Mantenimiento { kProductos = 1, kTipoCambio = 2, kTeclado = 4, kCabecera = 5, kImpresora = 7, kIniciarCaja = 8 };
enum Operacion {
  kCambioTurno = 1,
  kCajaRapida = 3,
  kCajaFull = 4,
  kReporteX = 6,
  kCuadreCaja = 7,
  kReporteZ = 8,
  kReporteOC = 10,  // and those of the other kinds behind it, up to kReporteLIQPAD
  kReporteLIQPAD = 14,
  kConsultaOP = 15,
  kReporteX1 = 16,
  kReporteX1Excel = 17
};
enum Boton {
  kBotonProductos = 1,
  kBotonTipoCambio = 2,
  kBotonTeclado = 3,
  kBotonCabecera = 4,
  kBotonCaja = 6,
  kBotonCambioTurno = 8,
  kBotonReporteX = 9,
  kBotonReporteZ = 11,
  kBotonCuadre = 12,
  kBotonSalir = 14,
  kBotonZFecha = 15,
  kBotonZ1Fecha = 16,
  kBotonSincronizar = 17
};

// By number: what can be used, and of the toolbar also what is seen.
struct Menus {
  std::array<bool, 9> mantenimiento{};
  std::array<bool, 18> operaciones{}, botones{}, botonVisible{};
  bool demasMenus = true;  // every other entry but "&Salir"
  bool sincronizarDiaAnt = false;
  bool usuariosVisible = true;
};

// `sincronizarDiaAnt`: an opening has closed sales of an earlier day.
Menus MenusDelDia(ClaseDia clase, bool sincronizarDiaAnt, const Sesion& ses);
