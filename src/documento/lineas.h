#pragma once
// The lines grid of a document's screen, as data: rows of texts as they are shown, and what happens when a cell is
// left. A screen holds one, shows it and takes its totals from it. Amounts in soles, masks "0.00"; rows count from 0.
#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "documento/linea.h"

struct Puesto;

// Its columns, by position.
enum ColumnaLinea {
  kItem,
  kCod,
  kCatalogo,
  kDescripcion,
  kBoton,
  kVacia,
  kCant,
  kPrecio,
  kSigno,
  kPorc,
  kSubTotal,
  kCanje,
  kPtos,
  kConServ,
  kServ,
  kIgv,
  kColumnas
};
using FilaVenta = std::array<QString, kColumnas>;

struct RejillaLineas {
  std::vector<FilaVenta> filas{FilaVenta{}};  // never without a row: an empty grid holds one empty row
  bool bloqueada = false;                     // the lines stand as they were consumed, nothing can be typed
};

// Nothing has been entered.
[[nodiscard]] bool SinLineas(const RejillaLineas& l);

// Adds a line, or takes the last one when it still has no article. Gives its row.
int AgregarFila(RejillaLineas& l);

// Takes a line out; the last one left is emptied instead. Without such a row nothing happens.
void QuitarFila(RejillaLineas& l, int fila);

// Whether the cashier may type into the cell: codes always, the rest only on a line with an article, the percentage
// only where DFlag allows it.
[[nodiscard]] bool CeldaEditable(const Puesto& p, const RejillaLineas& l, int fila, int columna);

enum class TrasCelda {
  Rechazada,  // the row is as it was; a box has been shown where the rule has words
  Igual,
  Cambiada  // the line's other cells follow; the totals are still to be taken
};

// The cashier leaves a cell with `texto` in it.
TrasCelda DejarCelda(Puesto& p, RejillaLineas& l, int fila, int columna, const QString& texto);

// Fills subtotal, service and IGV of each line and gives the total, never negative: the sum of the unrounded lines.
// A line whose quantity or price can't be read is passed over.
double TotalDeLineas(const Puesto& p, RejillaLineas& l);

// The first line without an article, which blocks a document. It gets its number and the defaults that the cashier
// would have seen after a code.
std::optional<int> FilaSinArticulo(RejillaLineas& l);

// Fills a row with quantity 1 and discount 0 from the article as the price list has it, on sale or not. An article that
// is gone leaves price and service as they are in the row. False when the store can't be read; the box has been shown.
[[nodiscard]] bool LeerArticulo(Puesto& p, const QString& almacen, const QString& codigo, FilaVenta& fila);

// The six digits of the article whose whole catalogue code that is, or the same number without its points; "" for none.
// On sale comes before withdrawn, exact before the number. Nothing when the store can't be read; the box has been
// shown.
[[nodiscard]] std::optional<QString> CodigoDeCatalogo(Puesto& p, const QString& catalogo);

// The line that a row sells: a percentage with its sign, an empty quantity as 1.
LineaDocumento LineaDe(const Puesto& p, const FilaVenta& fila);
