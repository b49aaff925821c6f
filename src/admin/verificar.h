#pragma once
#include <QStringList>

// Looks the desk's folder over: settings, the file of the store, its tables and columns, its one-row tables, numbering
// and users. Changes nothing. Gives one Spanish line a finding; none when all is well.
QStringList VerificarPuesto(const QString& carpeta);
