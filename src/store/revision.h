#pragma once
#include <QStringList>

class Conexion;

// The tables that the open database lacks of a store of that version, by name; all of them when its catalogue can't be
// read. A quick look for the start-up: it reads no rows.
QStringList tablasQueFaltan(Conexion& local, int version);
