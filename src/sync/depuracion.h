#pragma once
// What the central database has received and is older than the last eight days with rows moves to the history tables;
// history of more than three months goes.
struct FrmUpdt;
struct Puesto;

// Moves and drops. A copy and its delete are one transaction, so a row stands in one place whatever happens. False when
// a statement failed; the box has been shown.
[[nodiscard]] bool DepurarHistoria(Puesto& p, FrmUpdt& pantalla);
