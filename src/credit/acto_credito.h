#pragma once
// The one way in which the billing screen writes: an act over store and central database, told to the cashier.
#include <QString>
#include <functional>

#include "foundation/acto_doble.h"

struct Puesto;

// A reason that the database doesn't know, as the act's error.
ErrorBD RechazoDelActo(const QString& palabras);

// Opens the central database for an act. When it is away the box has been shown.
[[nodiscard]] bool AbrirCentralDelActo(Puesto& p);
void CerrarCentral(Puesto& p);

enum class FinCredito {
  Hecho,
  Pendiente,  // it stands here and will at the centre; the box has been shown, and there is no paper yet
  Nada        // nothing of it stands; the box has been shown
};

// Does the act on the open central database and closes that. `que` names it in the box: "El pago".
[[nodiscard]] FinCredito HacerActo(Puesto& p, const QString& que,
                                   const std::function<std::optional<ErrorBD>(ActoDoble&)>& preparar);
