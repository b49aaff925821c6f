#pragma once
#include <QDateTime>
#include <QStringList>
#include <optional>

// Brings the desk's store and the servers that it names, embedded or PostgreSQL, up to date. `hecho` gets what
// was done, in Spanish. Gives the words of a failure: a till that is running, a folder without a store, a database that
// is newer than this program or can't be brought up to date; what was done before that stays done.
[[nodiscard]] std::optional<QString> ActualizarPuesto(const QString& carpeta, const QDateTime& ahora,
                                                      QStringList& hecho);
