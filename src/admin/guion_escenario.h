#pragma once
// The stage of a play: the application object and the run of one play from its lines to its end.
#include <QString>
#include <memory>
#include <optional>

struct EscenaGuion;

// A screen in memory: pixels, those that a panel of the desktop takes at its foot, and how large one unit is drawn.
struct PantallaGuion {
  int ancho = 1024, alto = 768, panel = 0;
  QString escala;  // "1.25"; "" for 1
};

// "1024x768", "1024x768-40" with a panel of 40 pixels, "1920x1080@1.5". Nothing for anything else.
std::optional<PantallaGuion> leerPantalla(const QString& texto);

// Makes the application object that screens need. Without a display, or with a screen of its own told, it draws on one
// in memory.
class AplicacionGrafica {
 public:
  explicit AplicacionGrafica(const std::optional<PantallaGuion>& pantalla = {});
  ~AplicacionGrafica();

 private:
  struct Interno;
  std::unique_ptr<Interno> d_;
};

// Plays `guion` (a file, "-" for standard input, or a resource of the program) on a scene whose program has not been
// started. Gives 0, or 2 when the file can't be read (words on standard error); ends the process with 1 when an
// action cannot be done.
int tocarEscena(const QString& guion, EscenaGuion& escena);
