#pragma once
// Who is let in by name and password: at the login, and where a supervisor consents.
#include <QString>
#include <optional>

struct Puesto;

struct Acceso {
  QString perfil;        // cPerfCode of who is let in
  QString rechazo;       // why he isn't; "" when he is
  bool enClave = false;  // what has to be put right is the password, not the name
};

// Profiles (cPerfCode) that decide rights; any other one has those of a cashier.
constexpr int kPerfilSupervisor = 1;
constexpr int kPerfilCajero = 3;

// Five wrong passwords of one user in a row, and no password of his is looked at for a minute.
constexpr int kClavesErradas = 5;
constexpr int kEsperaClave_s = 60;

// Looks for an active user of that name and password; blanks round either don't count. Shows nothing, but keeps count
// of wrong passwords, over the end of the process too, and stores a plain password of an older desk as a hash once it
// has let its user in. Nothing when the users can't be read; the box has been shown.
[[nodiscard]] std::optional<Acceso> ProbarAcceso(Puesto& p, const QString& usuario, const QString& clave);
