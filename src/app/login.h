#pragma once
// The login without its window.
#include <QString>

struct Puesto;

struct Login {
  QString txtUsuario, txtPassword;
  int intentos = 0;
  bool aceptado = false;
  bool cierra = false;  // accepted, or the third attempt failed
  QString foco;         // name of the field that takes the keyboard
};

constexpr int kIntentosLogin = 3;

// The name of the last user, so that only the password is left to type.
void CargarLogin(Puesto& p, Login& v);

// One press of "&Aceptar": checks name and password and counts the attempt; a blank name counts none. Refusals are
// shown. On success user and profile go to the session and the user becomes the last one.
void ProbarLogin(Puesto& p, Login& v);
