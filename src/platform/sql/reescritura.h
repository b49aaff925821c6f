#pragma once
// From either dialect to SQLite's language: one walk over the statement that finds the tables in sight, gives each
// expression a type, and notes the edits. What it doesn't know it leaves alone; the engine then has its say.
#include <optional>

#include "platform/sql/catalogo.h"
#include "platform/sql/edicion.h"

// What TOP leaves of a query's rows where LIMIT can't tell: those that equal the last one in the order, or a share.
struct Tope {
  qint64 filas = -1;      // -1: no such query
  double porciento = -1;  // in their place
  bool empates = false;
  QString limite;           // behind the statement: one row more than asked shows whether any equals the last
  std::vector<int> claves;  // places of the columns in the order; -1, -2 ... are those added behind the list
  int agregadas = 0;
  bool vale() const { return filas >= 0 || porciento >= 0; }
};

struct Reescritura {
  std::vector<Columna> salida;  // columns of the result; empty when they can't be told
  bool cambiaEsquema = false;   // CREATE, ALTER, DROP: what is known of tables is stale afterwards
  QString tablaNueva;           // SELECT ... INTO: the table that its rows go to
  QString serie;                // SELECT MAX(...): the table whose highest number it asks for, perhaps to draw the next
  Tope tope;
  std::optional<ErrorBD> error;  // the statement must not run
};

Reescritura reescribir(Edicion& edicion, const Catalogo& catalogo);
