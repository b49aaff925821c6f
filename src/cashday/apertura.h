#pragma once
// The opening of the desk.
#include <QString>

struct Puesto;

// The opening screen: amounts as typed.
struct FrmApertura {
  QString txtimporsoles = QStringLiteral("0.00");    // soles
  QString TxtImporDolares = QStringLiteral("0.00");  // dollars
};

struct ResultadoApertura {
  bool hecha = false;             // the screen closes
  QString campoMal;               // name of the field that was refused
  bool quedoDiaAnterior = false;  // sales of an earlier day were still open and have been closed
};

// An amount as the opening screen shows it after its field was left; a text that is no number stays as it is.
QString MascaraApertura(const QString& texto);

// Opens the day as turn 01 with the opening float, sets the watermarks, and closes rows that an earlier day left open;
// the watermarks are then read and written again. Not done when an amount was no number, negative or of more than ten
// digits before the point, or the clock stands before the last operation (then nothing was changed), or the store
// failed, which a box has told; a turn may then be open.
[[nodiscard]] ResultadoApertura AbrirCaja(Puesto& p, const FrmApertura& v);

// Closes what an opening that died, or whose store failed, would still have closed: rows of earlier days at or below
// the watermarks of the open day. The person is told as by the opening itself; a store that fails has told its own
// message, and the next start tries again. True when there were sales among them.
[[nodiscard]] bool CompletarApertura(Puesto& p);
