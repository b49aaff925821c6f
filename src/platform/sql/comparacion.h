#pragma once
// How both dialects compare texts, on whatever engine.
#include <QString>
#include <QStringList>

#include "platform/sql/token.h"

// Less, equal or more: without regard to case, with regard to accents, in Spanish order. `sinFinales`: blanks at the
// end don't count.
int compararTextosSql(QString a, QString b, bool sinFinales);

// All ways to write the text that differ in the case of letters beyond ASCII only, so that a comparison which knows the
// case of ASCII finds what equals it. None for more than three such letters, or one whose case has other forms.
QStringList variantesDeCaso(const QString& texto);

// The same of as much of the text's beginning as has so few; one empty text where it has none.
QStringList iniciosDeCaso(const QString& texto);

// What all texts begin with that are like `patron`, case aside.
QString inicioFijo(const QString& patron, Dialecto dialecto);

// Whether `texto` is like `patron`: % and _, [a-z]; in Jet also *, ? and # (a digit). Case does not count.
bool pareceSql(QStringView texto, QStringView patron, Dialecto dialecto, QChar escape = QChar());
