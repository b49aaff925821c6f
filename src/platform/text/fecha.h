#pragma once
// Dates as the screens, the paper and the statements show them.
#include <QDateTime>
#include <QString>
#include <QStringView>
#include <optional>

// `momento` through a mask, letters of any case: d, dd, ddd (the Spanish short day name: "lun"), m, mm, mmm, yy,
// yyyy, h, hh, n, nn (minutes), s, ss. An "mm" right behind hours is minutes. Other characters stand as they are,
// and so does anything between double quotes or behind a backslash. An invalid date gives "".
QString FormatearFecha(const QDateTime& momento, QStringView mascara);

enum class OrdenFecha { DiaMes, MesDia };

// A date text: day/month/year or, for a literal between number signs, month/day/year; a text that begins with the
// year is year/month/day; an order that is impossible is read the other way round. "/", "-" and "." separate; two
// digit years lie between 1930 and 2029; an hour "hh:mm" or "hh:mm:ss", with or without "AM"/"PM", may follow.
// A text that is no date, or not only a date, gives nothing.
std::optional<QDateTime> LeerFecha(QStringView texto, OrdenFecha orden = OrdenFecha::DiaMes);

// The form in which dates lie in the store: "YYYY-MM-DD hh:mm:ss".
QString FechaISO(const QDateTime& momento);
