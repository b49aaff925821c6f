#pragma once
// What the main window opens and starts beside itself; wired where the program is put together, scripted in a test.
// Screens return when they have closed.
#include <QString>
#include <optional>

#include "foundation/respaldo.h"

struct Principal;

// How the cash count is opened: as the step of a closing or as a plain view.
enum ModoCuadre { kCuadreCierre = 1, kCuadreVista = 2 };

// The maintenance screens without a method of their own, by the menu entries that open them.
enum class PantallaMantenimiento { Productos, Teclado, Cabecera, Impresora, Usuarios, Parametros, TiposTarjeta };

class PantallasPrincipal {
 public:
  virtual ~PantallasPrincipal() = default;

  virtual void abrirRapida() = 0;  // the quick register
  virtual void abrirFull() = 0;    // the full register, initialised
  virtual void tipoCambioLista() = 0;
  // The detail of the exchange rate in mode 0 (new) to 3 (view).
  virtual void tipoCambioDetalle(int modo) = 0;
  virtual void mantenimiento(PantallaMantenimiento cual) = 0;
  // The cash count, which prints when v.bReporteImpreso says that the day's report went to print.
  virtual void cuadreDeCaja(Principal& v, ModoCuadre modo) = 0;

  // The synchronisation by the session's two flags, of today or of the day before; it shows itself what it does. False
  // when this version has none: nothing was done and nothing was said.
  virtual bool sincronizar(bool diaAnterior) = 0;
  // Ends this session and starts the program again from its first step, once the act under way has returned.
  virtual void rearrancar() = 0;

  // After a start without the central database: does what that left undone once the server answers again. Nothing
  // while a screen stands over the main window: a sale keeps the rate and the articles that it began with.
  virtual void contactarCentral() {}
  // A dated copy of the whole desk, at an opening or a closing; a failure is told by the status line.
  virtual void respaldar(MotivoRespaldo) {}

  // The supervisor dialog. `acto` names in the title what is authorised. Gives the supervisor's name as typed;
  // nothing when it was refused.
  virtual std::optional<QString> autorizar(const QString& acto) = 0;
  // Says in one plain box that the screen of that name is not there yet.
  virtual void noDisponible(const QString& nombre) = 0;
};
