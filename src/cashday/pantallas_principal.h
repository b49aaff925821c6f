#pragma once
// The screens of other rooms that the main window opens; wired where the program is put together, scripted in a
// test. All of them return when the screen has closed.
#include <QString>
#include <optional>

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

  // The supervisor dialog. `acto` names in the title what is authorised. Gives the supervisor's name as typed;
  // nothing when it was refused.
  virtual std::optional<QString> autorizar(const QString& acto) = 0;
  // Says in one plain box that the screen of that name is not there yet.
  virtual void noDisponible(const QString& nombre) = 0;
};
