#pragma once
struct Principal;
struct Puesto;
class PantallasPrincipal;

// Prints the X of the turn that ends, with its own authorisation, then moves the turn on (after "99" comes "00"),
// synchronises and starts the program again for the next clerk. The turn moves also when the report was refused; when
// the store refuses it, a box has told so and everything is as before.
void CambioTurno(Puesto& p, Principal& v, PantallasPrincipal& pantallas);
