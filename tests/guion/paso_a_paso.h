#pragma once
// Plays a screenplay step by step and tells what each step changed in the tables of all three databases.
#include <QString>

class PuestoDeObra;

struct DichoYHecho {
  QString dicho;  // what the play wrote, without its "ok" lines, and a last line "[estado N]"
  QString hecho;  // a block a step
};

// A step begins with a line "## name" and ends before the next one. Its block is that line and the rows that differ
// since the step before, tables by name, rows in the order of the table:
//   +Table column=value ...     a new row, all columns that aren't Null
//   ~Table first=value ...      a row of the same first column, with the columns that have other values
//   -Table first=value          a row that is gone
// Values are those of the console; tables of a server have its name and a colon in front.
DichoYHecho TocarPasoAPaso(const PuestoDeObra& p, const QString& guion);
