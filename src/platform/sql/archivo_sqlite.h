#pragma once
#include <QString>
#include <optional>

// Whether a program can work on the SQLite file `archivo`: it is there, begins like a database, and it, its log (-wal)
// and the log's index (-shm) can be written. Gives the words of what stands in the way. Changes and leaves nothing, and
// may be asked while this process has the file open.
[[nodiscard]] std::optional<QString> RevisarArchivoSqlite(const QString& archivo);

// A store that could only be read for a while has left a log and an index that nobody may write: they get their owner's
// right to write back. What can't be mended, RevisarArchivoSqlite tells.
void LiberarAuxiliaresSqlite(const QString& archivo);
