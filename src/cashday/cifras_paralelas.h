#pragma once
// Reads what X-1 and Z1 tell of the parallel documents.
#include "cashday/cifras.h"

class Conexion;

// Adds the O/C to c.nItems and c.nVenta. `central` tells which advance payments were voided in the accounts; while it
// is closed, or where a query fails, none counts as voided. Look at l.bien() afterwards.
CifrasParalelas LeerParalelas(Puesto& p, LectorReporte& l, Conexion& central, CifrasReporte& c);
