#pragma once
// The subcommand `guion`: plays a screenplay through the real screens of a desk.
#include <QStringList>
#include <functional>

class EscritorGuion;
struct EscenaGuion;

struct OpcionesGuion {
  QString guion;   // file, "-" for standard input, or a resource of the program
  QString puesto;  // the desk's folder
  QString salida;  // pictures go there
};

// Plays on a desk; needs an AplicacionGrafica. `prepara`, if any, is called before the first action. Gives 0 when the
// play is over and 2 when desk or play can't be read (words on standard error); does not return when the till ends
// itself (the process ends with its status) or when an action cannot be done (1).
int tocarGuion(const OpcionesGuion& opciones, EscritorGuion& escritor,
               const std::function<void(EscenaGuion&)>& prepara = {});

// `palabras` are those behind the word "guion". Gives the exit status, as tocarGuion.
int ordenGuion(const QStringList& palabras);
