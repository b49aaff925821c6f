#pragma once
// The rate of the day, soles per dollar, as the session holds it.
#include "platform/sql/sentencia.h"

struct Puesto;
class PantallasPrincipal;

// Asks the store for the rate of today.
Sql ConsultaTipoCambio(const Puesto& p);

// Reads the rate of today into pnTipoCambio. Without one it stays 0 until the next capture: the box says so and the
// detail of the exchange rate is opened. A query that fails has shown its message and leaves 0.
void CapturaTipoCambio(Puesto& p, PantallasPrincipal& pantallas);

// Before a register opens: a rate that was read on another day is no longer known.
void OlvidarTipoCambioPasado(Puesto& p);

// Before a register takes over a sale, which it does with or without a rate: today's is asked for when the session has
// none of today, and what was typed then counts at once.
void AsegurarTipoCambio(Puesto& p, PantallasPrincipal& pantallas);
