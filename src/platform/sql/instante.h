#pragma once
#include <QDateTime>
#include <optional>

#include "platform/sql/token.h"

// The moment that a stored date or a date text (day/month/year) stands for.
std::optional<QDateTime> leerInstante(const QString& texto, Dialecto dialecto = Dialecto::Jet);

// ... and a number, which counts days from the dialect's day 0; invalid for one without a date.
QDateTime instanteDeNumero(double dias, Dialecto dialecto);

// A date as databases hold it, "YYYY-MM-DD hh:mm:ss", and nothing else: whether the text is one, and its moment.
bool esInstanteGuardado(const char* texto, int largo);
std::optional<std::pair<QDate, QTime>> instanteGuardado(const char* texto, int largo);
