#pragma once
#include <QString>
#include <optional>

// Copies the desk's store, as it stands at one moment, into `destino`, also beside a till that runs on it. What stands
// in `destino` afterwards is a whole and checked copy that is on the disk. An existing file is refused unless
// `reemplazar`. Gives Spanish words of a failure; then `destino` is as it was.
std::optional<QString> RespaldarPuesto(const QString& carpeta, const QString& destino, bool reemplazar);
