#pragma once
// The customer on the screen of a document: card, name and site, as shown, and the way they are found.
#include <QString>
#include <optional>
#include <vector>

struct Puesto;

// A card chosen in the customer search; `tarjeta` as it is stored.
struct TarjetaElegida {
  QString tarjeta;
  int idLocal = 0;
};

// The customer search, as a screen opens it.
class BuscadorClientes {
 public:
  virtual ~BuscadorClientes() = default;

  // With a `texto` the list is read for it at once; otherwise it waits for one. Nothing when none was chosen.
  virtual std::optional<TarjetaElegida> buscarCliente(const QString& texto = {}) = 0;
};

// A site of the list dcbLocal.
struct LocalCliente {
  int id = 0;
  QString nombre;
};

struct ClienteDocumento {
  QString txtTarjeta, txtNombres, txtLocal;
  int nIdLocal = 0;
  std::vector<LocalCliente> locales;  // entries of dcbLocal
  bool localVisible = false;          // lblLocal and dcbLocal are shown
  QString tarjetaHallada;             // the card that txtNombres and txtLocal were found by; "" when typed
};

// Reads the entries of dcbLocal, once in a screen's life; without the client database there are none.
void CargarLocales(Puesto& p, ClienteDocumento& c);

enum class ResultadoTarjeta { SinTarjeta, SinServidor, NoExiste, Hallada, VariosLocales };

// Looks the typed card up in the client database, within the chosen site if there is one, and fills name and site.
// Without the database the card stays and the sale goes on without a name. The connection is closed again.
[[nodiscard]] ResultadoTarjeta BuscaTarjeta(Puesto& p, ClienteDocumento& c, BuscadorClientes& pantallas);

// Whether somebody holds a card of that number, eight digits: by the store's copy, else by the client database. Without
// it the store's copy decides.
[[nodiscard]] bool HayTarjeta(Puesto& p, const QString& numero);

// A customer chosen in the search: card and site, then BuscaTarjeta.
[[nodiscard]] ResultadoTarjeta TomarCliente(Puesto& p, ClienteDocumento& c, BuscadorClientes& pantallas,
                                            const TarjetaElegida& elegida);

// Before a commit: a card that was typed and not looked up yet must not reach the rows when nobody has it (the box has
// been shown), nor without a word when the choice between its sites was left open. Gives the field that the cashier has
// to look at then, "" when the commit may go on; asked again about the same card it goes on without a site.
QString CampoPorMirar(Puesto& p, ClienteDocumento& c, BuscadorClientes& pantallas);

// Makes the customer's fields agree: name and site of the card found before go, once another card stands in
// txtTarjeta, since they would narrow a search or stand on another customer's ticket. Once another site stands behind
// the card, or none, the name goes and the pair counts as typed, to be looked up. nIdLocal follows txtLocal.
void AjustarCliente(ClienteDocumento& c);

// Name and site go, the card stays.
void OlvidarCliente(ClienteDocumento& c);

// Whether a document may go out with that RUC: blank or eleven digits. When not, the box has been shown.
[[nodiscard]] bool RucAceptado(Puesto& p, const QString& ruc);
