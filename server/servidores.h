#pragma once
// The central and client databases on the embedded engine.
#include <QStringList>

// The statements, in SQLite's own language, that make every table and index of an empty server database.
QStringList tablasDelCentral();
QStringList tablasDelCliente();
