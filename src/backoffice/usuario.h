#pragma once
// The users of the desk, who log in and who authorise.
#include <QString>
#include <vector>

#include "foundation/mantenimiento.h"

struct Puesto;

struct FilaUsuario {
  QString usuario, perfil, nombre;  // nombre: first names, a blank, surnames
  bool activo = true;
};

// The detail screen: texts as typed. Of a password that is there its fields show a text that nobody can type, and as
// long as they do it stays.
struct DetalleUsuario {
  ModoDetalle modo = ModoDetalle::Nuevo;
  QString guardada;  // the password as it is stored
  QString txtUsuario, txtPassword, txtReingresarPassword;
  QString dcbPerfil;  // cPerfCode; "" while none is chosen
  QString txtApellidos, txtNombres;
  bool activo = true;                                 // optActivo
  std::vector<std::pair<QString, QString>> perfiles;  // cPerfCode, sPerfDesc
  QString campoMal;
};

// All users by name. On failure false: the message has been shown and `filas` is empty.
[[nodiscard]] bool LeerUsuarios(Puesto& p, std::vector<FilaUsuario>& filas);

// Whether `usuario` is the one who is logged in; case and blanks round it aside, as the login finds him.
bool EsUsuarioActual(const Puesto& p, const QString& usuario);

// Fills the detail and its profiles. Deleting oneself is refused. False when it isn't to be shown; a box has told why.
[[nodiscard]] bool CargarUsuario(Puesto& p, ModoDetalle modo, const QString& usuario, DetalleUsuario& v);

// Checks and stores by the mode; viewing stores nothing and succeeds. On failure false: a box has told why, and
// `campoMal` names the field, "" when the store refused. Passwords are stored as hashes.
[[nodiscard]] bool GuardarUsuario(Puesto& p, DetalleUsuario& v);

FilaUsuario FilaDe(const DetalleUsuario& v);

// Asks, then turns the active flag round; `fila` follows. False when nothing was changed.
[[nodiscard]] bool ActivarUsuario(Puesto& p, FilaUsuario& fila);
