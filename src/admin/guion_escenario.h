#pragma once
// The stage of a play: the application object and the run of one play from its lines to its end.
#include <QString>
#include <memory>

struct EscenaGuion;

// Makes the application object that screens need. Without a display it draws on a screen of its own in memory, of
// 1024 x 768.
class AplicacionGrafica {
 public:
  AplicacionGrafica();
  ~AplicacionGrafica();

 private:
  struct Interno;
  std::unique_ptr<Interno> d_;
};

// Plays `guion` (a file, "-" for standard input, or a resource of the program) on a scene whose program has not been
// started. Gives 0, or 2 when the file can't be read (words on standard error); ends the process with 1 when an
// action cannot be done.
int tocarEscena(const QString& guion, EscenaGuion& escena);
