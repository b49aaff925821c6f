#pragma once
// The stock of the desk's warehouse over the last month, as the central database keeps it.
#include <QDate>
#include <QString>
#include <vector>

struct Puesto;

struct FilaStock {
  QString codigo, descripcion, unidad;
  double cantidad = 0;
};
struct DatosStock {
  QStringList cabecera;
  QDate desde, hasta;
  QString almacen;
  std::vector<FilaStock> filas;
};

// Without a line end behind its last rule.
QString PapelStock(const DatosStock& d);

// Prints it through the driver of the current printer: no port, no correlative. Opens a connection of its own. Without
// the central database, or without rows, one box says so and nothing is printed.
void ReporteStock(Puesto& p);
