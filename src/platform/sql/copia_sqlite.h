#pragma once
#include <QString>
#include <optional>

// Copies the SQLite file `origen`, also while programs write to it: one moment of it, checked and on the disk before it
// gets its name. An existing `destino` is replaced if `reemplazar` says so, else it is a failure. Gives the words of a
// failure, which leaves no file behind.
[[nodiscard]] std::optional<QString> CopiarBaseSqlite(const QString& origen, const QString& destino, bool reemplazar);
