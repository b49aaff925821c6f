#pragma once
// The one search of the program, without its window: articles, customers or open parallel documents, filtered by a
// text, page by page.
#include <QString>
#include <QStringList>
#include <vector>

#include "sale/pantallas_venta.h"

struct Puesto;

enum class TipoBusqueda { Producto, Cliente, PagoAdelantado, Liquidacion0, Liquidacion1 };

// What a kind of search is called and shows; `fraccion` of the list's width, 0 for a column that is kept but not shown.
struct ColumnaBusqueda {
  QString titulo;
  double fraccion;
  bool derecha = false;
};
struct ClaseBusqueda {
  QString titulo;
  std::vector<ColumnaBusqueda> columnas;
};
const ClaseBusqueda& ClaseDe(TipoBusqueda tipo);

// A row as shown, with what is handed over when it is chosen.
struct FilaBusqueda {
  QStringList celdas;
  QString codigo;  // six digits; the card of a customer
  int idLocal = 0;
  DocumentoElegido documento;
};

struct Busqueda {
  TipoBusqueda tipo = TipoBusqueda::Producto;
  QString txtBuscar;
  int nPagina = 1;
  bool hayMas = false;  // rows follow behind this page
  bool sinServidor = false;
  std::vector<FilaBusqueda> filas;
};

constexpr int kFilasPorPagina = 17;

// What the screen does on opening: a customer search tries its database, any other kind reads its first page.
void InicioBusqueda(Puesto& p, Busqueda& b);

// Reads page nPagina. The text is matched anywhere in the fields, blanks around it aside, with the wildcards that the
// database knows; an empty one leaves nothing out. False, with an empty list, when the rows could not be read.
[[nodiscard]] bool LeerPagina(Puesto& p, Busqueda& b);

enum class Paginado { Primera, Anterior, Siguiente, Ultima };

// Whether the button can be pressed on the page shown.
[[nodiscard]] bool PuedePaginar(const Busqueda& b, Paginado a);
// Goes there; nothing when it can't. The rows are only counted for the last page.
void Paginar(Puesto& p, Busqueda& b, Paginado a);
