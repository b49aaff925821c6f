#pragma once
// Which two printers the desk prints on, and the way to each.
#include <QString>
#include <QStringList>
#include <array>

struct Puesto;

// The screen "Configurar Impresora". 0 is the main printer, 1 the alternate one.
struct ConfiguraImpresora {
  QStringList impresoras;                // the system's, in its order
  std::array<QString, 2> cboImpresora;   // device name; also one that the system doesn't list
  std::array<bool, 2> flagCortaPapel{};  // ChkFlagcortaPapel, ChkFlagcortaPapelAlterna
};

void CargarImpresoras(Puesto& p, ConfiguraImpresora& v);

// Without a printer there is no paper to cut.
void ElegirImpresora(ConfiguraImpresora& v, int cual, const QString& dispositivo);

// Stores the choice; it counts from the next document on. False when the store refused: its box has been shown and the
// session prints as before.
[[nodiscard]] bool GrabarImpresoras(Puesto& p, const ConfiguraImpresora& v);
