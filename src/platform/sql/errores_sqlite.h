#pragma once
#include "platform/sql/error_bd.h"

struct sqlite3;

// The failure that the engine of `base` reported last, in the numbers of error_bd.h. `codigo` is what its call gave.
ErrorBD errorDe(sqlite3* base, int codigo);
