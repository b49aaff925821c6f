#pragma once
#include <functional>

#include "platform/sql/formas.h"
#include "platform/sql/recordset.h"

// Leaves of `rs`, which holds what the shape's text gives, the rows that TOP asks for. `todas` fills it anew from a
// text without limit: whether a row equals the last one is seen by one more, and only then are all read.
[[nodiscard]] std::optional<ErrorBD> DejarTope(const FormaEscrita& forma, Dialecto dialecto, Recordset& rs,
                                               const std::function<std::optional<ErrorBD>(const QByteArray&)>& todas);
