#pragma once
// What the void screen and the reprint screen share: their fields, and the ways to a document.
#include <QString>
#include <optional>

#include "voiding/documento_guardado.h"
#include "voiding/texto_transaccion.h"

struct Puesto;

enum class Uso { Anular, Reimprimir };

struct PantallaTransaccion {
  Uso uso = Uso::Anular;
  QString txttipo, txtSerie, txtNumero, txtTransaccion, txtTexto;
  bool chkAlterno = false;  // parallel documents instead of sales
  bool accion = true;       // cmdAnular or cmdImprimir may be pressed
  QString txtsupervisor;    // who authorised the void
  QString idLocal;          // the site that the register handed over

  // What txtTexto shows; nothing until a document has been loaded.
  std::optional<DocumentoGuardado> cargada;
  double tipoCambio = 0;  // soles per dollar of the document's day, 0 when not registered
  BloquesTransaccion bloques;
};

// The opening: the newest sale, without a word when there is none. Void: one that is voided already isn't shown.
void AbrirTransacciones(Puesto& p, PantallaTransaccion& v);

void Busca_operacion(Puesto& p, PantallaTransaccion& v, bool silencio = false);
void Busca_operparalela(Puesto& p, PantallaTransaccion& v);

// The cashier's change of chkAlterno.
void CambiarAlterno(Puesto& p, PantallaTransaccion& v, bool marcado);

// By txtSerie and txtNumero, either of which may be blank: one match is loaded, several only free the button.
void BuscarDocumento(Puesto& p, PantallaTransaccion& v);

// By txtTransaccion; a text that is no number does nothing. A document that may not be voided (or reprinted) is refused
// with its box, and the text of the one before stays on the screen.
void BuscarTransaccion(Puesto& p, PantallaTransaccion& v, bool silencio = false);
