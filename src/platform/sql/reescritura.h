#pragma once
// From either dialect to SQLite's language: one walk over the statement that finds the tables in sight, gives each
// expression a type, and notes the edits. What it doesn't know it leaves alone; the engine then has its say.
#include <optional>

#include "platform/sql/catalogo.h"
#include "platform/sql/edicion.h"

struct Reescritura {
  std::vector<Columna> salida;  // columns of the result; empty when they can't be told
  bool cambiaEsquema = false;   // CREATE, ALTER, DROP: what is known of tables is stale afterwards
  QString tablaNueva;           // SELECT ... INTO: the table that its rows go to
  std::optional<ErrorBD> error; // the statement must not run
};

Reescritura reescribir(Edicion& edicion, const Catalogo& catalogo);
