#pragma once
// What a scanner read in a register, and what becomes of it there. It is an article or a card, never a quantity or an
// amount.
#include <QString>
#include <optional>

#include "sale/caja_full.h"
#include "sale/caja_rapida.h"

struct Puesto;

// Whether a burst of keys can be a code at all: not one that is an amount with its point, nor a RUC where one is typed.
[[nodiscard]] bool PuedeSerCodigo(const QString& leido, bool enRUC);

struct CodigoLeido {
  enum Clase { Articulo, Tarjeta } clase = Articulo;
  QString codigo;  // six digits, or the card's eight
};

// The article whose catalogue code that is, else the card of that number. Nothing for a code that is nobody's, or when
// the store can't be read: the box has been shown.
[[nodiscard]] std::optional<CodigoLeido> ReconocerCodigo(Puesto& p, const QString& leido);

// The article goes into a line of its own, or adds one to the last line where that is the same article, as if the
// quantity had been typed; the card is looked up as Enter in its field does. Nothing changes where the kind of sale
// takes no lines, which the box says, or the article is not on sale.
//   Gives  where the keyboard belongs: the line's quantity, the card's field or list.
Foco TomarCodigo(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas, const CodigoLeido& leido);
TrasTeclaRapida TomarCodigo(Puesto& p, CajaRegistradora& v, PantallasVenta& pantallas, const CodigoLeido& leido);
