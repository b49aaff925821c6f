#pragma once
// The desk's closed work to the central database: operations, parallel documents and what has become of them since, Z
// rows, and the detail that no closing has written. Each row is one transaction there whose mark here ends right behind
// it; what a break leaves between the two is found by a comparison of both sides, so nothing is sent twice.
#include "sync/pasada.h"

// poCnnCentral is open. By pbSincronizaCierre a closing has written its detail itself. Mal: the run ends here.
[[nodiscard]] FinPasada EnviarOperaciones(Puesto& p, FrmUpdt& pantalla);
