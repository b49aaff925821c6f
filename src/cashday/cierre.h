#pragma once
// The closing of the day: a chain of steps that remembers in the store (iCierreCaja) how far it has come, so that a
// closing that was cut off goes on from there.
#include <QString>
#include <functional>

struct Principal;
struct Puesto;
class PantallasPrincipal;

// The entry "Reporte Z": asks, has it authorised, looks whether there is anything to close and runs the steps from the
// stored one on. `avance` hears what is being done, and "" when a step waits for a person or all is over.
//   Leaves   the window as with no turn open once the day is closed; as with an interrupted closing (only "Reporte Z"
//            and "&Salir") when a step holds it. A refusal before the first step changes nothing.
//   Fails    a detail that can't be sent: told there, and the next step follows; the synchronisation sends it later. A
//            Z1 or Z whose figures could not be written, and a last step that could not be done,
//            hold the closing at that step; so does a store that can't note its beginning, with nothing done.
void CerrarCaja(Puesto& p, Principal& v, PantallasPrincipal& pantallas,
                const std::function<void(const QString&)>& avance);

// The last step: closes the rows of the day here and its mark in the central database, then, in one transaction, moves
// the watermarks, blanks a turn that no Z has blanked and sets iCierreCaja to 6; then synchronises. False when it could
// not be done: one box has told why, iCierreCaja is as it was, and it can be done again.
[[nodiscard]] bool BlanqueaTransacciones(Puesto& p, PantallasPrincipal& pantallas);
