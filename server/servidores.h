#pragma once
// The central and client databases: one description of their tables, which every engine's are made of.
#include <memory>

#include "foundation/versiones.h"
#include "platform/sql/esquema.h"

class Procedimientos;

enum class BaseServidor { Central, Cliente };

// The statements that make every table and index of an empty server database. Embedded ones keep the version of their
// tables in their file.
QStringList tablasDelServidor(BaseServidor base, LenguajeMotor motor);
QStringList tablasDelCentral();  // on the embedded engine
QStringList tablasDelCliente();

// What brings the servers of an older program to those tables.
PasosDeVersion pasosDelServidor(BaseServidor base, LenguajeMotor motor);
PasosDeVersion pasosDelCentral();  // on the embedded engine
PasosDeVersion pasosDelCliente();

// PostgreSQL: the schema dbo with the dialect's functions and the collation of texts, which the tables need; and the
// procedures, which need the tables. Both can be run anew over what an older program left.
QString dialectoDePostgres();
QString procedimientosDePostgres(BaseServidor base);

// The procedures and functions that the embedded central database offers.
std::shared_ptr<const Procedimientos> procedimientosDeServidores();
