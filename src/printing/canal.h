#pragma once
// The way a finished text reaches the paper, the print counters, the drawer pulse and the print header.
//
// Printer numbers and selectors are 1, the main printer, and 2, the alternate one. By the printer's flag
// (pnCortaPapel, pnCortaPapelAlterna) a document goes through the driver (0), raw to the port with a cut behind it
// (1), or nowhere. A document that can't be printed shows one box with the words of the failure; the caller goes on as
// if it had been printed.
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

struct AjustesImpresora;
struct DocumentoImpreso;
struct Puesto;

enum NumeroImpresora { kImpresoraPrincipal = 1, kImpresoraAlterna = 2 };

// Makes the printer of exactly that name the current one. A name that the system doesn't list changes nothing.
void SeleccionarImpresora(Puesto& p, const QString& dispositivo);

// Draws the printer's next correlative, six digits, and keeps it as the last one used; after maxid comes 1. On a
// failure of the store: one box, one log line, "".
QString CorrelativoImpresion(Puesto& p, int impresora);

// The printer's serial mark. Without its row in _Tmp1, or on a failure: one log line, "".
QString LeerSerieImpresora(Puesto& p, int impresora);

// Sends a text raw: reset, text, feed, cut, through the file <tronco>.prn of the temp folder. Any selector but 1 is the
// alternate route. A blank `tronco` becomes "textfile", also for the caller.
void ImprimirTextoPuerto(Puesto& p, const QString& texto, int selector, QString& tronco);

// A report under construction: blocks of lines, the last one open. What comes when all are full stays in the last.
struct BloquesInforme {
  std::array<QString, 21> bloques;
  int lineas = 0;  // lines in the current block
  int actual = 0;
};

// Appends a line. Below 100 lines in the block CR LF is put behind it, in the caller's text too; the line after those
// closes the block without one.
void AgregarLineaBloque(BloquesInforme& b, QString& linea);

// Sends blocks 0 to `ultimo` raw, one file each, resting a second for each started 150 characters. Reset in front of
// the first, feed and cut behind the last. The temp folder keeps <tronco>_ddmmyyyy.prn, the whole as sent.
void ImprimirBloquesPuerto(Puesto& p, const BloquesInforme& b, int selector, int ultimo, const QString& tronco);

// Sends the drawer pulse of the model ("SAMSUNG", "EPSON", "START", any case) to LPT1. Another word only empties the
// drawer's file. Failures are ignored.
void AbrirGaveta(Puesto& p, const QString& modelo);

// Sends a page to a place where a printer may be (Puertos::lugares, or a port's name): accents in its code page, cut,
// and the pulse of that drawer, none for a model that is none. Nothing is stored. Gives the words of a failure.
std::optional<QString> ImprimirPrueba(Puesto& p, const QString& lugar, const AjustesImpresora& ajustes,
                                      const QString& modeloGaveta);

struct Letra {
  QString nombre = QStringLiteral("Courier New");
  int puntos = 8;
};

// Prints a finished text on the printer of that number, by its flag.
void ImprimirDocumento(Puesto& p, const QString& texto, int impresora, const QString& tronco = {},
                       const Letra& letra = {});

// The same for a report, blocks 0 to the current one.
void ImprimirInforme(Puesto& p, const BloquesInforme& b, int impresora, const QString& tronco, const Letra& letra = {});

// Prints through the driver of the current printer, whatever its flag, and ends the document.
void ImprimirPorControlador(Puesto& p, const DocumentoImpreso& documento, const Letra& letra = {});

// Loads the print header into the session. Without rows it stays as it was; false when it can't be read, and then the
// box has been shown.
[[nodiscard]] bool CargarCabeceraImpresion(Puesto& p);
