#pragma once
#include <QString>
#include <optional>

// Whether the till of the desk in `carpeta` opens by itself when this user logs in to the machine: a desktop entry in
// the user's autostart folder. `programa` is the till's own file. Gives the words of a failure.
[[nodiscard]] std::optional<QString> PonerAutoarranque(const QString& programa, const QString& carpeta);
[[nodiscard]] std::optional<QString> QuitarAutoarranque();
