#pragma once
// The screens of other rooms that the maintenance screens open; wired where the program is put together.
#include <QString>
#include <optional>

class PantallasBackoffice {
 public:
  virtual ~PantallasBackoffice() = default;

  // The article search. Gives the code, six digits; nothing when none was chosen.
  virtual std::optional<QString> buscarArticulo() = 0;
};
