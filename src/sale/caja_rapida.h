#pragma once
// The quick register's fields as shown, and the routines that compute on them. A sale is typed with 24 product keys and
// lives only here until it is committed. Amounts in soles.
#include <array>
#include <vector>

#include "documento/clase.h"
#include "documento/linea.h"
#include "documento/totales.h"
#include "loyalty/cliente_documento.h"

class PantallasVenta;

// The full description is the one that its ticket prints; the others are for the display and the full register.
struct LineaRapida : LineaDocumento {
  QString corta, catalogo;
};

// A product key as it is shown.
struct TeclaConArticulo {
  QString rotulo;        // the key's own name or, without one, the article's
  QString articulo;      // short description, at most 25 characters and "..." when cut
  int nCodigoTecla = 0;  // 0: no article
};

constexpr int kTeclasProducto = 24;

// Buttons of cmdTecla that are no product keys.
enum BotonRapida {
  kBotonCodProd = 0,
  kBotonBorra = 41,
  kBotonACTC = 42,
  kBotonImprime = 43,
  kBotonTipo = 44,
  kBotonAnula = 45,
  kBotonPago = 46
};

// The customer's name, txtCliente on the screen, is the base's txtNombres.
struct CajaRegistradora : ClienteDocumento {
  ClaseDocumento clase = ClaseDocumento::VentaConVuelto;  // CASH, VOUCHER or C/VUELTO
  bool bVentaIniciada = false;                            // a sale is on the screen: `lineas` has at least one
  std::vector<LineaRapida> lineas;
  double nTotalVenta = 0;
  std::array<TeclaConArticulo, kTeclasProducto + 1> teclas;  // 1 to 24

  QString txtCantidad, txtRuc;
  QString lblProducto, lblSubtotal, lblTotal, lblTipo;
};

// Opening: printer, keys, sites and points rule. A keyboard that can't be read leaves all keys free, after its box.
void AbrirRapida(Puesto& p, CajaRegistradora& v);

// Adds a line of one piece of that article. False, with the sale as it was and the box shown, for code 0, an article
// that is gone or not on sale, and a store that can't be read.
[[nodiscard]] bool CapturaDatosProducto(Puesto& p, CajaRegistradora& v, int nCodigo);

// The cashier leaves txtCantidad: blank is 1, a fraction is rounded. False, with the line as it was, when the text is
// no quantity from 1 up, or is more than a shop sells and he said so; the field then shows the line's own again.
[[nodiscard]] bool SalirCantidad(Puesto& p, CajaRegistradora& v);

// Shows the last line: article, quantity, value, and the sale's sum.
void MostrarLinea(CajaRegistradora& v);

// Sums the lines into nTotalVenta and shows the last one's value and the sum.
void TotalVenta(CajaRegistradora& v);

// The next kind: CASH, VOUCHER, C/VUELTO. Without a rate a box says so and C/VUELTO is passed over.
void SiguienteTipoVenta(Puesto& p, CajaRegistradora& v);
// Sets the kind, one of the three sales, and lblTipo.
void PonerTipoRapida(CajaRegistradora& v, ClaseDocumento clase);

// Clears the sale and its customer.
void CancelarACTC(CajaRegistradora& v);

// The change of the last ticket, on the display while no other sale has begun; nothing where there was none.
void MostrarVuelto(CajaRegistradora& v, const EfectivoDocumento& pago);
void OlvidarVuelto(CajaRegistradora& v);

// What the screen does after a key.
struct TrasTeclaRapida {
  bool cierra = false;
  QString foco;      // a control; "" leaves it where it is
  bool mal = false;  // the text in it was refused
};

// A button of cmdTecla by its index, 0 to 46; 25 to 40 have no action.
TrasTeclaRapida PulsarBotonRapida(Puesto& p, CajaRegistradora& v, PantallasVenta& pantallas, int indice);

// cmdSalir and its keys: whether the screen may close. A sale on it is asked for; "No" is what Enter presses.
[[nodiscard]] bool PuedeSalirRapida(Puesto& p, const CajaRegistradora& v);

// cmdCambio: hands the sale to the full register.
TrasTeclaRapida CambiarAFull(Puesto& p, CajaRegistradora& v, PantallasVenta& pantallas);
