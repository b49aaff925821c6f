#pragma once
// How both dialects compare texts, on whatever engine.
#include <QString>

#include "platform/sql/token.h"

// Less, equal or more: without regard to case, with regard to accents, in Spanish order. `sinFinales`: blanks at the end
// don't count.
int compararTextosSql(QString a, QString b, bool sinFinales);

// Whether `texto` is like `patron`: % and _, [a-z]; in Jet also *, ? and # (a digit). Case does not count.
bool pareceSql(QStringView texto, QStringView patron, Dialecto dialecto, QChar escape = QChar());
