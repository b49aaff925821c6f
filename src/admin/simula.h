#pragma once
#include <QStringList>

// "simular": a shop of desks on one PostgreSQL through whole days with faults out of a seed, and the proof at the end.
int ordenSimular(const QStringList& palabras);
