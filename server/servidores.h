#pragma once
// The central and client databases on the embedded engine.
#include <memory>

#include "foundation/versiones.h"

class Procedimientos;

// The statements, in SQLite's own language, that make every table and index of an empty server database.
QStringList tablasDelCentral();
QStringList tablasDelCliente();

// What brings the servers of an older program to those tables.
PasosDeVersion pasosDelCentral();
PasosDeVersion pasosDelCliente();

// The procedures and functions that the central database offers.
std::shared_ptr<const Procedimientos> procedimientosDeServidores();
