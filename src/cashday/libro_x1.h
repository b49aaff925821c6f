#pragma once
// The Report X-1 as a workbook: every sale row, every parallel document, what was voided, and the totals of the period.
#include <QStringList>

#include "platform/io/libro.h"

struct Puesto;

struct LibroX1 {
  Libro libro;
  QStringList faltan;  // the sections that could not be read, as they are called; each says so in the workbook too
};

// Reads the period of the Report X. Amounts in soles unless a label says dollars, as numbers; discounts and surcharges
// are counted. A statement that fails has shown its box; the other sections are read all the same.
LibroX1 LeerLibroX1(Puesto& p);

// Writes the workbook beside the papers of the temp folder, under a name with date and hour, and opens it with the
// system's program for it. Where there is none one box tells its path; another one names the sections that are missing.
void ExportaX1aExcel(Puesto& p);
