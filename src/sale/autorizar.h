#pragma once
// The supervisor's authorisation of an operation, without its window.
#include <QString>
#include <optional>

struct Puesto;

// Whether `usuario` and `clave` are those of an active supervisor. Gives nothing when they are; otherwise the box has
// been shown and the name of the control comes back to which the focus goes, "" when the store can't be asked.
std::optional<QString> RechazoAutorizacion(Puesto& p, const QString& usuario, const QString& clave);

// What the dialog leaves with the screen that asked: `nombre` as typed after an acceptance, nothing after any other
// end. A screen that already held a name keeps its flag as it was; without one the flag goes off.
void CerrarAutorizacion(const std::optional<QString>& nombre, bool& bAcceso, QString& txtsupervisor);
