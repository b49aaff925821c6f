#pragma once
// One shape for a pass over rows, up or down: a source that is read in pages, what each row becomes, the words of the
// log, and how far the bar moves.
#include <functional>
#include <vector>

#include "platform/sql/conexion.h"

struct FrmUpdt;
struct Puesto;

// What became of a row.
enum class Suerte {
  Hecha,    // its line with the good words
  Fallo,    // its line with the bad words; the pass goes on
  Callada,  // no line
  Termina   // the whole run ends here
};

struct Palabras {
  QString bien, mal;  // in front of the code; "" for no line
};

struct FinFila {
  Suerte suerte = Suerte::Callada;
  QString codigo;                      // what the line names
  const Palabras* palabras = nullptr;  // in the place of the pass's own
};

using Filas = std::vector<Recordset::Fila>;

struct Pasada {
  Conexion& origen;
  Palabras palabras;
  int barra = 0;
  bool sePuedeDetener = false;  // between its rows
  // The source behind a row; behind none for its first page. A page of fewer than kFilasPorPagina rows is the last one.
  std::function<Sql(const Recordset::Fila* ultima)> pagina;
  // The whole source, for an engine that reads it piece by piece, in no order: no row is written where it is read.
  Sql entera = {};
  std::function<FinFila(const Recordset::Fila&)> fila;
  // The batched way: all of them with one result each, or nothing at all changed and an empty list, and then they are
  // taken one by one. Without it they always are.
  std::function<std::vector<FinFila>(const Filas&)> lote = {};
  qsizetype filasPorLote = 250;
};

// Rows of one page of a source, and the fewest that go the batched way.
constexpr int kFilasPorPagina = 2000;
constexpr qsizetype kFilasParaLote = 40;

enum class FinPasada { Bien, Mal, Detenida };

// Runs the pass. Mal: its source could not be read, which a box has told, or a row has ended the run.
[[nodiscard]] FinPasada Recorrer(Puesto& p, FrmUpdt& pantalla, const Pasada& pasada);

// The batched way of rows that go to one connection with a statement or two each: the same rows within one transaction.
std::function<std::vector<FinFila>(const Filas&)> EnUnaTransaccion(Conexion& destino,
                                                                   std::function<FinFila(const Recordset::Fila&)> fila);
