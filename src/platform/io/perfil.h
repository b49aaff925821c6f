#pragma once
// Settings files in the private-profile form: sections in square brackets, lines "key=value", ";" before a comment.
// Windows-1252. Sections and keys are found without regard to case, the first of several counts, blanks round keys
// and values don't. A value in quotes comes without them.
#include <QList>
#include <QString>
#include <optional>
#include <utility>

constexpr int kLargoValorPerfil = 254;  // longest value, in characters

// The value, "" when there is no such file, section or key, cut to 254 characters. Nothing when the file is there but
// can't be read or isn't text; ComprobarPerfil then has the words.
std::optional<QString> LeerPerfil(const QString& archivo, const QString& seccion, const QString& clave);

// Keys and values of a section in the file's order; empty where LeerPerfil would give "" or nothing.
QList<std::pair<QString, QString>> LeerSeccionPerfil(const QString& archivo, const QString& seccion);

// Writes one key, making file, section and key where they are missing. All other lines stay as they are. The file is
// replaced as a whole and is on the disk when this returns. Gives the words of a failure, and then the file is as it
// was: a value over 254 characters or with a line end is refused, and so is a file that isn't text.
std::optional<QString> EscribirPerfil(const QString& archivo, const QString& seccion, const QString& clave,
                                      const QString& valor);

// Words, with the file's path, when the file is there but can't be read or isn't text. A missing file is no fault.
std::optional<QString> ComprobarPerfil(const QString& archivo);
