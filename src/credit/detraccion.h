#pragma once
// The detraction: the part of a FADE that its customer deposits in an account of the state bank.
#include <QString>
#include <vector>

#include "documento/linea.h"

class Conexion;
struct Puesto;

struct Detraccion {
  bool afecta = false;
  double porcentaje = 0;  // 12 is twelve per cent
  double monto = 0;       // soles, to the cent
  QString cuenta;
};

// Whether a FADE over `total` soles falls under it: an article of the lines is marked so and the total lies above the
// threshold; percentage and account come from the open central database. False when a database can't be read; the box
// has been shown.
[[nodiscard]] bool CalcularDetraccion(Puesto& p, Conexion& central, const std::vector<LineaDocumento>& lineas,
                                      double total, Detraccion& d);

// The account of the deposits.
[[nodiscard]] bool LeerCuentaDetraccion(Puesto& p, Conexion& central, QString& cuenta);
