#pragma once
// The one synchronisation routine: master data in, closed operations out, old rows to the history.
struct FrmUpdt;
struct Puesto;

// Runs it by the session's flags: pbSincronizaMaestros pulls, pbSincronizaCierre tells that a closing has just ended.
// Nothing here stops the desk.
//   Shows    `pantalla`, and at a bad end one box that says why.
//   Returns  whether it came to its good end. Only then the watermark has moved; what was done before a bad end stays,
//            and the next run goes on from there.
bool Sincronizar(Puesto& p, FrmUpdt& pantalla);
