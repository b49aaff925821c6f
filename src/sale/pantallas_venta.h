#pragma once
// The screens that a register opens; wired where the program is put together, scripted in a test.
#include <QString>
#include <functional>
#include <optional>

class PantallasVenta {
 public:
  virtual ~PantallasVenta() = default;

  // The supervisor dialog. `acto` names in the title what is authorised. Gives the supervisor's name as typed;
  // nothing when it was refused.
  virtual std::optional<QString> autorizar(const QString& acto) = 0;
  // The void screen.
  virtual void anular() { noDisponible(QStringLiteral("ANULAR TRANSACCION")); }
  // The reprint screen of the desk `caja`.
  virtual void reimprimir(const QString& /*caja*/) { noDisponible(QStringLiteral("AC/TC")); }
  // The quick register is to open once the full one has closed. False when there is none; the box has been shown.
  virtual bool irARapida() {
    noDisponible(QStringLiteral("Caja Registradora"));
    return false;
  }
  // Says in one plain box that the screen of that name is not there yet.
  virtual void noDisponible(const QString& pantalla) = 0;
};
