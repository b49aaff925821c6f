#pragma once
// The photograph of a new customer, taken by a camera program that runs beside the till and leaves a file in a folder.
#include <QString>

struct Puesto;

struct FotoCliente {
  QString titulo;  // of the camera program, while it runs for this screen; "" otherwise
  QString prefijo, extension;
  int siguiente = 0;  // the number that the photograph takes
  int ticks = 0;
};

enum class TickFoto { Espera, Lista, SinFoto };

// Starts the camera program by the settings of the desk: sWebCRout is the command, which gets the path of the file that
// it is to write; an earlier copy is closed, and what lies in the folder of new photographs is deleted. False when
// there is none to start; the box has been shown.
[[nodiscard]] bool IniciarFoto(Puesto& p, FotoCliente& f);

// One second later: takes what the camera has left and gives its path in `ruta`; the program is then closed. After 60
// seconds without a picture it is closed too.
TickFoto MirarFoto(Puesto& p, FotoCliente& f, QString& ruta);

// Closes the camera program, if it runs for this screen.
void TerminarFoto(Puesto& p, FotoCliente& f);
