#pragma once
// The subcommand `guion`: plays a screenplay through the real screens of a desk.
#include <QStringList>
#include <functional>

struct EscenaGuion;

// `argumentos` are those behind the word "guion". Gives the exit status: 0 the play is over, 1 an action could not be
// done, 2 the call is wrong (words on standard error); does not return when the till ends itself (its status) or
// when an action fails.
int ordenGuion(const QStringList& argumentos);

struct OpcionesGuion {
  QString guion;    // file, "-" for standard input, or a resource of the program
  QString puesto;   // the desk's folder
  QString salida;   // pictures go there
};

// Plays on a desk; needs an application object. As ordenGuion. `prepara`, if any, is called before the first action.
int tocarGuion(const OpcionesGuion& opciones, const std::function<void(EscenaGuion&)>& prepara = {});
