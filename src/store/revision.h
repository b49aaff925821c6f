#pragma once
#include <QStringList>

class Conexion;

// The tables of the store that the open database lacks, by name; all of them when its catalogue can't be read. A quick
// look for the start-up: it reads no rows.
QStringList tablasQueFaltan(Conexion& local);
