#pragma once
#include <QDateTime>
#include <QStringList>
#include <optional>

// Brings the desk's store and the embedded servers that it names up to date, as its next start would. `hecho` gets what
// was done, in Spanish. Gives the words of a failure: a till that is running, a folder without a store, a database that
// is newer than this program or can't be brought up to date; what was done before that stays done.
[[nodiscard]] std::optional<QString> ActualizarPuesto(const QString& carpeta, const QDateTime& ahora,
                                                      QStringList& hecho);
