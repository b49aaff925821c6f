#pragma once
// The customer's fields, as the screens of documents show them.
#include <functional>

#include "loyalty/cliente_documento.h"

class Campo;
class Enlaces;
class Panel;
class QComboBox;
class QLabel;
class QWidget;

struct ControlesCliente {
  Campo *txtTarjeta = nullptr, *txtNombres = nullptr, *txtLocal = nullptr;
  QLabel* lblLocal = nullptr;
  QComboBox* dcbLocal = nullptr;

  // The list of sites; the fields' texts come by their links.
  void mostrar(const ClienteDocumento& c) const;
  // Enter there looks the card up.
  bool buscaDesde(const QWidget* campo) const;
};

// What the screens differ in.
struct PedidoCliente {
  QString nombres, local;                                 // name of the name's field, caption of the site's
  bool nombresAparte = false;                             // the name's field below its caption, as wide as the panel
  std::function<void()> antesDelLocal = [] {};            // puts more into the panel between the two
  std::function<void(const std::function<void()>&)> con;  // runs an action between the controls' texts in and out
};

// Puts card, name, site and the list of sites into `panel`, whose they are. Leaving card or site adjusts the customer;
// choosing a site looks the card up there. `c`, the desk and the screens outlive the panel.
ControlesCliente nuevosControlesCliente(Panel* panel, Enlaces& enlaces, Puesto& p, ClienteDocumento& c,
                                        BuscadorClientes& pantallas, const PedidoCliente& pedido);
