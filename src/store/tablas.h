#pragma once
// The tables of the desk's store.
#include "foundation/versiones.h"

// The statements, in SQLite's own language, that make every table and index of an empty store. Built-in collations
// only, so that any SQLite tool can open the file.
QStringList tablasDelPuesto();

// What brings the store of an older program to those tables.
PasosDeVersion pasosDelPuesto();
