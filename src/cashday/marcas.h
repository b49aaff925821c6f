#pragma once
// Where the day begins in the store, and what it holds.
#include <QString>

struct Puesto;

// The highest codes among the closed rows: the reports of the day take what lies above them.
struct MarcasDia {
  QString cOperIdx;    // of Operacion
  QString cOperCodex;  // of OperacionParalela
};

// False when one of them can't be read: a box has told it, and the one that was not read is blank.
[[nodiscard]] bool LeerMarcas(Puesto& p, MarcasDia& m);

// Whether today is earlier than the last operation in the store; a box has then told it. False as well when the store
// can't be asked.
[[nodiscard]] bool AvisarRelojAtrasado(Puesto& p);

// Whether the day has at least one sale: above the day's watermark, or still open when there is none. False as well
// when the store can't be asked.
[[nodiscard]] bool HayOperaciones(Puesto& p);
