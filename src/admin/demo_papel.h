#pragma once
#include <QByteArray>
#include <QString>

// What a person reads on the paper that these bytes made: the text without the printer's and the drawer's commands,
// lines ended by "\n", never more than one blank line in a row, none at either end.
QString TextoDePapel(const QByteArray& bytes);
