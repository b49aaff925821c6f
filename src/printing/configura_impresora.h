#pragma once
// Which two printers the desk prints on, the way to each, and what each understands.
#include <QString>
#include <QStringList>
#include <array>

#include "printing/ajustes_impresora.h"

struct Puesto;

// The screen "Configurar Impresora". 0 is the main printer, 1 the alternate one. Where a ticket printer hangs and its
// code page count for one that cuts its paper; any other prints through its driver.
struct ConfiguraImpresora {
  QStringList impresoras;                // the system's, in its order
  std::array<QString, 2> cboImpresora;   // device name; also one that the system doesn't list
  std::array<bool, 2> flagCortaPapel{};  // ChkFlagcortaPapel, ChkFlagcortaPapelAlterna
  QStringList lugares;                   // what was found, see Puertos::lugares
  std::array<QString, 2> cboLugar;       // where its bytes go; "" for nowhere of its own
  std::array<QString, 2> lugarGuardado;  // what the settings have there
  std::array<AjustesImpresora, 2> ajustes{};
};

void CargarImpresoras(Puesto& p, ConfiguraImpresora& v);

// Without a printer there is no paper to cut. What was kept of that printer comes with it.
void ElegirImpresora(Puesto& p, ConfiguraImpresora& v, int cual, const QString& dispositivo);

// Sends the test page of a printer as it stands on the screen, stored or not, and tells in a box how that went.
void ProbarImpresora(Puesto& p, const ConfiguraImpresora& v, int cual);

// Stores the choice; it counts from the next document on. A name that nothing lists becomes a printer of the desk's own
// where a place was given. False when the settings or the store refused: the box has been shown, and the session prints
// as before.
[[nodiscard]] bool GrabarImpresoras(Puesto& p, ConfiguraImpresora& v);
