#pragma once
// Quantities and lines beyond what a shop sells: somebody's scanner or thumb.
struct Puesto;

constexpr int kCantidadNormal = 9999;
constexpr double kImporteNormal = 99999.99;  // soles

// Asks whether such a line is meant; "No" is what Enter presses. `importe` is its value in soles.
[[nodiscard]] bool PreguntarDesmesura(Puesto& p, int cantidad, double importe);
