#pragma once
// The numbering start, the warehouse and the service percentage of the desk.
#include <QString>
#include <utility>
#include <vector>

struct Puesto;

// The screen "Parametros": texts as typed.
struct Parametros {
  bool chkNumeracion = false, chkAlmacen = false;
  QString txtNumeracion;
  QString dcbAlmacen;                                  // code of the chosen warehouse; "" for none
  QString txtServicio;                                 // percentage
  std::vector<std::pair<QString, QString>> almacenes;  // code, name; by name
  QString campoMal;
};

// What the screen starts with. The warehouses come from the central database; when they can't be read a box tells
// why and the list stays empty.
void CargarParametros(Puesto& p, Parametros& v);

// Makes the next operation code the chosen one by a bare row with the code before it. False when the number is refused
// or the store fails; a box has told it.
[[nodiscard]] bool GrabarNumeracion(Puesto& p, Parametros& v);

// Moves the whole catalogue to the chosen warehouse and makes that the desk's. False when the store refuses, because an
// article stands in two warehouses; then nothing has moved and the desk keeps its warehouse.
[[nodiscard]] bool GrabarAlmacen(Puesto& p, Parametros& v);

// Stores the service percentage. False when it is refused; a box has told it.
[[nodiscard]] bool GrabarServicio(Puesto& p, Parametros& v);

// All that is ticked, in that order. True closes the screen. False leaves it open, with what was already written
// standing; `campoMal` names the field, "" when the store refused.
[[nodiscard]] bool GrabarParametros(Puesto& p, Parametros& v);
