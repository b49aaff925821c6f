#pragma once
#include <QStringView>

// Whether a statement's text carries this value as it is: no null character, and none that Sql keeps for itself.
bool VaEntera(QStringView texto);
