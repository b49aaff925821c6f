#pragma once
// The registry of a new customer with a first card, without its window.
#include <QDate>
#include <QString>
#include <optional>
#include <vector>

#include "loyalty/cliente_documento.h"

struct Puesto;

constexpr int kLugarOtro = 999;  // a place that is not in the lists; its name is typed

struct Lugar {
  int codigo = 0;
  QString nombre;
};

// A list of places with what was chosen, 0 for nothing, and the text that stands for kLugarOtro.
struct EleccionLugar {
  std::vector<Lugar> lugares;
  int codigo = 0;
  QString otro;

  bool esOtro() const { return codigo == kLugarOtro; }
};

// The screen "Nuevo Cliente": texts as shown.
struct ClienteNuevo {
  QString txtTarjeta, txtApellidos, txtNombres, txtDireccion, txtTelefono, txtEMail;
  EleccionLugar departamento, provincia, distrito;
  bool chkFNacimiento = true;
  QString dtpFNacimiento;  // "dd/mm/yyyy"
  int cboTip = 0;          // 0 "PN", 1 "Colegios", 2 "Empresas"
  std::vector<LocalCliente> locales;
  int dcbLocal = -1;  // the site's id; -1 for none
  QString foto;       // path of the photograph, "" for none
};

// Fills the lists, proposes the desk's own site and the next card. What can't be read has been told by its box and
// stays empty.
void CargarClienteNuevo(Puesto& p, ClienteNuevo& v);

// A place was chosen: the lists below it are read for it and nothing is chosen there.
void ElegirDepartamento(Puesto& p, ClienteNuevo& v, int codigo);
void ElegirProvincia(Puesto& p, ClienteNuevo& v, int codigo);
void ElegirDistrito(ClienteNuevo& v, int codigo);

// The box of birth was ticked or cleared: the date is today's again.
void CambiarNacimiento(const Puesto& p, ClienteNuevo& v, bool dado);

// Whether all that a customer needs is there; else the box has been shown and `campoMal` names the field. Fills the
// card with zeros to eight digits.
[[nodiscard]] bool ValidarCliente(Puesto& p, ClienteNuevo& v, QString& campoMal);

// Stores customer and card in the client database and in the store's copies, as one act. The code is the next one of
// the site, drawn under a lock, and the card carries it; a typed card that differs is told. Nothing when it was not
// stored: the box has been shown. A customer of the same surnames and names, whatever the site, is refused.
[[nodiscard]] std::optional<TarjetaElegida> GrabarCliente(Puesto& p, const ClienteNuevo& v);
