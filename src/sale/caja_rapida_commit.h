#pragma once
struct Puesto;
struct CajaRegistradora;
class PantallasVenta;

// Turns the sale of the quick register into a printed ticket and stored rows, then clears the screen. A sale with
// change asks for the cash first; closed without accepting, nothing is done.
//
// As in the full register the number is stored first, the ticket printed next, and the rows are written last, each
// statement by itself: one that fails has shown its box and ends the commit where it is, with the sale on the screen.
// Only the reading of the number has a way on: series and number then come from the settings.
void GrabarVentaRapida(Puesto& p, CajaRegistradora& v, PantallasVenta& pantallas);
