#pragma once
// Passwords of users, stored as salted hashes.
#include <QString>
#include <optional>

// The text that is stored for `clave`, another one each time; blanks round the password don't count. Takes about a
// twentieth of a second and 64 MB, so that guessing is slow. Nothing when the machine has not that memory.
[[nodiscard]] std::optional<QString> CifrarClave(const QString& clave);

// Whether a stored text is a hash and not a password as older desks kept it.
[[nodiscard]] bool EstaCifrada(const QString& guardada);

// Whether `clave` is the password of a stored text, hash or plain. Case counts, blanks round it don't.
[[nodiscard]] bool EsLaClave(const QString& guardada, const QString& clave);
