#pragma once
#include <QString>

// What the status line of a window says, ready to be shown.
struct DatosEstado {
  QString caja, turno, usuario;
  QString tipoCambio;                    // soles per dollar, masked; "" while it is not known
  bool central = true, clientes = true;  // whether each database answered last time
  QString aviso = {};                    // what will hurt if nobody cares, such as a full disk; "" when all is well
  QString papel;                         // printer and correlative of the last paper; "" before the first
};
