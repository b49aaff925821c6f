#pragma once
// Whole files as bytes. Every failure comes back as Spanish words that name what is wrong, nothing else.
#include <QByteArray>
#include <QString>
#include <optional>

class QFileDevice;

// The words for a system error number; `f` serves those that have none of their own.
QString PalabrasDeError(int error, const QFileDevice& f);

// Sends what was written to the disk itself. A device that knows no such thing counts as done.
bool AlDisco(QFileDevice& f);

// The same for a folder: a rename in it is on the disk once the folder is. Failures are passed over.
void CarpetaAlDisco(const QString& carpeta);

// Fills `bytes`; a file above `maximo` bytes is a failure.
std::optional<QString> LeerBytes(const QString& ruta, QByteArray& bytes, qint64 maximo);

// Creates the file anew or cuts the one that stands there, then writes. Not flushed to the disk.
std::optional<QString> EscribirBytes(const QString& ruta, const QByteArray& bytes);

// The file holds either all of its old or all of its new bytes, also when the power goes: written beside it, flushed
// to the disk, renamed over it.
std::optional<QString> SustituirArchivo(const QString& ruta, const QByteArray& bytes);
