#pragma once
// The one shape of a commit: named steps over the commit's own data, in the order in which they must happen. A kind of
// document is a list of steps; kinds that differ share the steps that don't.
#include <span>

#include "foundation/puesto.h"

template <class Datos>
struct Paso {
  const char* nombre;
  bool (*hacer)(Puesto&, Datos&);  // false ends the commit; what was done stays done, and any box has been shown
  bool falla = true;               // such an end is a fault; a person who says no, or typed it wrong, is none
};

// A step that several commits share, written over what their data have in common: a base of `Datos`.
template <auto hacer, class Datos>
[[nodiscard]] bool Comun(Puesto& p, Datos& datos) {
  return hacer(p, datos);
}

// Gives the name of the step that ended the commit, nullptr when all were done. For a fault the day's log gets a line
// with `commit` and that step: paper that lacks its rows is understood from there.
template <class Datos>
const char* EjecutarPasos(Puesto& p, const QString& commit, Datos& datos, std::span<const Paso<Datos>> pasos) {
  for (const auto& paso : pasos) {
    if (paso.hacer(p, datos)) continue;
    if (paso.falla)
      p.registro.RegistrarErrorLog(commit + QStringLiteral(" terminó en el paso ") + QString::fromLatin1(paso.nombre));
    return paso.nombre;
  }
  return nullptr;
}
