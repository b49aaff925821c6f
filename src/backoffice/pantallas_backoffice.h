#pragma once
// The screens of other rooms that the maintenance screens open; wired where the program is put together.
#include <QString>
#include <optional>

class PantallasBackoffice {
 public:
  virtual ~PantallasBackoffice() = default;

  // The article search. The code of the article that was chosen; nothing when it was left without one.
  virtual std::optional<QString> buscarProducto() = 0;
};
