#pragma once
// Settings, kept twice: in the row of the table Configuracion, which wins, and in KEB.cfg.
#include <QString>

struct Puesto;

// The setting, "" when there is none anywhere: the table first, then the file; a value read from the file, even an
// empty one, is written back to both. A key that is no column of the table shows the query's message.
QString LeerParametro(Puesto& p, const QString& seccion, const QString& clave, const QString& archivo);

// Writes the setting to the file, then to the table; `valor` isn't escaped. A failing file shows its words and a
// failing statement its message; the other store is written all the same. False when the store can't be written now
// (locked, full); a file that failed or a key that is no column is no reason to stop.
[[nodiscard]] bool EscribirParametro(Puesto& p, const QString& seccion, const QString& clave, const QString& archivo,
                                     const QString& valor);

// Whether the text can serve as the percentage of service: a number, not negative, without commas.
bool EsPorcentajeServicio(const QString& texto);

// The start-up's reading of all settings into the session, with its checks, the two connection strings, and the
// write-back. A missing mandatory key, a percentage that is none, an unknown language or a store that can't be read or
// written now shows its box and ends the process.
void LeerConfiguracion(Puesto& p);
