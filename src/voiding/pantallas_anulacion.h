#pragma once
// The screens of other rooms that the void screen opens; wired where the program is put together.
#include <QString>
#include <optional>

class PantallasAnulacion {
 public:
  virtual ~PantallasAnulacion() = default;

  // The supervisor dialog. `acto` names in the title what is authorised. Gives the supervisor's name as typed;
  // nothing when it was refused.
  virtual std::optional<QString> autorizar(const QString& acto) = 0;
};
