#pragma once
// What a ticket printer understands: its code page, and whether it has to be told of it.
//
// Kept in section [PAGINAS] of KEB.cfg, a line a printer: Ticketera=850 t. A printer without a line gets Windows-1252
// and no word of it.
//
// Source of the command: ESC/POS command set, ESC t n (1B 74 n), "select character code table": n = 0 page 437, 2 page
// 850, 16 Windows-1252, 19 page 858. ESC @ undoes it, so it stands right behind that.
#include <QString>
#include <optional>

#include "platform/text/pagina.h"

struct Puesto;

struct AjustesImpresora {
  Pagina pagina = Pagina::Windows1252;
  bool seleccionar = false;  // by ESC t; otherwise the printer is left as it was set by its owner
};

AjustesImpresora LeerAjustes(const Puesto& p, const QString& impresora);
// Gives the words of a failure; nothing is changed then.
std::optional<QString> GuardarAjustes(const Puesto& p, const QString& impresora, const AjustesImpresora& ajustes);

// ESC t n, or "" where the printer is left alone.
QString SeleccionDePagina(const AjustesImpresora& ajustes);
