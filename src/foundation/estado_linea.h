#pragma once
#include "platform/io/datos_estado.h"

struct Puesto;

// The status line of the session as it stands now.
DatosEstado EstadoDelPuesto(const Puesto& p);
