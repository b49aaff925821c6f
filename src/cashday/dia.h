#pragma once
// The cash day: the opening of the desk, its marks and the change of turns.
#include <QString>

struct Principal;
struct Puesto;
class PantallasPrincipal;

// The highest codes among the closed rows: the reports of the day take what lies above them.
struct MarcasDia {
  QString cOperIdx;    // of Operacion
  QString cOperCodex;  // of OperacionParalela
};

// False when one of them can't be read: a box has told it, and the one that was not read is blank.
[[nodiscard]] bool LeerMarcas(Puesto& p, MarcasDia& m);

// Whether today is earlier than the last operation in the store; a box has then told it. False as well when the store
// can't be asked.
bool AvisarRelojAtrasado(Puesto& p);

// Whether the day has at least one sale: above the day's watermark, or still open when there is none. False as well
// when the store can't be asked.
bool HayOperaciones(Puesto& p);

// The opening screen: amounts as typed.
struct FrmApertura {
  QString txtimporsoles = QStringLiteral("0.00");    // soles
  QString TxtImporDolares = QStringLiteral("0.00");  // dollars
  QString campoMal;                                  // name of the field that was refused
};

// An amount as the opening screen shows it after its field was left; a text that is no number stays as it is.
QString MascaraApertura(const QString& texto);

// Opens the day as turn 01 with the opening float, sets the watermarks, frees the menus, and closes rows that an
// earlier day left open; the watermarks are then read and written again.
//   Returns  true when the screen closes; false when it stays: an amount was no number, negative or of more than ten
//            digits before the point (`campoMal` names the field and nothing was changed), the clock stands before the last operation (nothing was changed), or the store
//            failed, which a box has told.
[[nodiscard]] bool AbrirCaja(Puesto& p, FrmApertura& v, Principal& principal);

// Closes what an opening that died, or whose store failed, would still have closed: rows of earlier days at or below
// the watermarks of the open day. The person is told as by the opening itself; a store that fails has told its own
// message, and the next start tries again.
void CompletarApertura(Puesto& p, Principal& principal);

// Prints the X of the turn that ends, with its own authorisation, then moves the turn on (after "99" comes "00"),
// synchronises and starts the program again for the next clerk. The turn moves also when the report was refused; when
// the store refuses it, a box has told so and everything is as before.
void CambioTurno(Puesto& p, Principal& v, PantallasPrincipal& pantallas);
