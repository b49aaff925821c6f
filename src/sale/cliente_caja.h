#pragma once
// The customer on a register's screen: card, name and site, as shown, and the way they are found.
#include <QString>
#include <vector>

struct Puesto;
class PantallasVenta;
struct TarjetaElegida;

// A site of the list dcbLocal.
struct LocalCliente {
  int id = 0;
  QString nombre;
};

struct ClienteCaja {
  QString txtTarjeta, txtNombres, txtLocal;
  int nIdLocal = 0;
  std::vector<LocalCliente> locales;  // entries of dcbLocal
  bool localVisible = false;          // lblLocal and dcbLocal are shown
  QString tarjetaHallada;             // the card that txtNombres and txtLocal were found by; "" when typed
};

// Reads the entries of dcbLocal, once in a screen's life; without the client database there are none.
void CargarLocales(Puesto& p, ClienteCaja& c);

enum class ResultadoTarjeta { SinTarjeta, SinServidor, NoExiste, Hallada, VariosLocales };

// Looks the typed card up in the client database, within the chosen site if there is one, and fills name and site.
// Without the database the card stays and the sale goes on without a name. The connection is closed again.
ResultadoTarjeta BuscaTarjeta(Puesto& p, ClienteCaja& c, PantallasVenta& pantallas);

// A customer chosen in the search: card and site, then BuscaTarjeta.
ResultadoTarjeta TomarCliente(Puesto& p, ClienteCaja& c, PantallasVenta& pantallas, const TarjetaElegida& elegida);

// Before a commit: a card that was typed and not looked up yet must not reach the rows when nobody has it (the box has
// been shown), nor without a word when the choice between its sites was left open. Gives the field that the cashier has
// to look at then, "" when the commit may go on; asked again about the same card it goes on without a site.
QString CampoPorMirar(Puesto& p, ClienteCaja& c, PantallasVenta& pantallas);

// Makes the customer's fields agree: name and site of the card found before go, once another card stands in
// txtTarjeta, since they would narrow a search or stand on another customer's ticket. Once another site stands behind
// the card, or none, the name goes and the pair counts as typed, to be looked up. nIdLocal follows txtLocal.
void AjustarCliente(ClienteCaja& c);

// Name and site go, the card stays.
void OlvidarCliente(ClienteCaja& c);

// Whether a document may go out with that RUC: blank or eleven digits. When not, the box has been shown.
bool RucAceptado(Puesto& p, const QString& ruc);
