#pragma once
// The supervisor's authorisation of an operation, without its window.
#include <QString>
#include <optional>

struct Puesto;

// Whether `usuario` and `clave` are those of an active supervisor. Gives nothing when they are; otherwise the box has
// been shown and the name of the control comes back to which the focus goes, "" when the store can't be asked.
std::optional<QString> RechazoAutorizacion(Puesto& p, const QString& usuario, const QString& clave);
