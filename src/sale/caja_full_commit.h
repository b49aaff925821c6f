#pragma once
struct Puesto;
struct CajaRegistradoraFull;
class PantallasVenta;

// Turns what stands on the screen of the full register into a printed ticket and stored rows, then clears the screen.
//
// The number is taken and stored first, the ticket printed next, the rows are written last, each statement by itself:
// paper may lack its rows, a row never lacks its number. A statement that fails has shown its box and ends the commit
// where it is; what was done stays, the screen stays as it was, and the next commit makes a new ticket. A refused
// supervisor ends it with nothing done. A server or a printer that is away ends nothing.
//   Returns  whether everything was written and the screen is ready for what follows: the next sale or, behind a
//            liquidation, its sale document.
[[nodiscard]] bool GrabarVenta(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas);
