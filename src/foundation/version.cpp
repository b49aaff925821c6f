#include "foundation/version.h"

QString Version() { return QStringLiteral(TARVOPOS_VERSION); }
