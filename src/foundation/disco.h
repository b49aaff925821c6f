#pragma once
#include <QString>

struct Puesto;

struct LimitesDisco {
  qint64 poco = 200'000'000;   // bytes free on the desk's disk below which the status line says so
  qint64 diario = 64'000'000;  // size of the store's write-ahead log from which on it has outgrown
};

// Looks at the room on the desk's disk and at the store's write-ahead log, before either hurts: p.ses.avisoDisco gets
// the words for the status line, "" when all is well. A log that has outgrown is brought back into the store first.
void RevisarDisco(Puesto& p, const LimitesDisco& limites = {});

// Bytes that this user may still write where `carpeta` lies; -1 when the system can't tell.
qint64 EspacioLibre(const QString& carpeta);

// A size in words, cut to whole ones: "850 KB", "12 MB", "3 GB".
QString EnBytes(qint64 bytes);
