#pragma once
#include "cashday/datos_reporte.h"
#include "cashday/informe.h"

// The checks of X-1 and Z1.
void ChecksParalelos(Informe& i, const DatosReporte& d);
