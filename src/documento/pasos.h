#pragma once
// The one shape of a commit: named steps over the commit's own data, in the order in which they must happen. A kind of
// document is a list of steps; kinds that differ share the steps that don't.
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "foundation/puesto.h"

template <class Datos>
struct Paso {
  using Acto = bool (*)(Puesto&, Datos&);
  using Filas = std::vector<Sql> (*)(Puesto&, Datos&);

  constexpr Paso(const char* como, Acto acto, bool esFalla = true) : nombre(como), hacer(acto), falla(esFalla) {}
  // What writes to the store. Such steps beside each other are one transaction: a desk that dies in it has written
  // nothing of them.
  constexpr Paso(const char* como, Filas sus) : nombre(como), filas(sus) {}

  const char* nombre;
  Acto hacer = nullptr;  // false ends the commit; what was done stays done, and any box has been shown
  bool falla = true;     // such an end is a fault; a person who says no, or typed it wrong, is none
  Filas filas = nullptr;
};

// A step that several commits share, written over what their data have in common: a base of `Datos`.
template <auto hacer, class Datos>
[[nodiscard]] auto Comun(Puesto& p, Datos& datos) {
  return hacer(p, datos);
}

// Writes the rows of so many steps as one transaction of the store. Nothing when all stand. Else the step that ended
// it, and its box has been shown: what stood before a statement that failed stays, nothing does when the transaction
// itself could not begin or end.
[[nodiscard]] std::optional<size_t> GrabarJuntas(Puesto& p, size_t pasos,
                                                 const std::function<std::vector<Sql>(size_t)>& filas);

// Gives the name of the step that ended the commit, nullptr when all were done. For a fault the day's log gets a line
// with `commit` and that step: paper that lacks its rows is understood from there.
template <class Datos>
const char* EjecutarPasos(Puesto& p, const QString& commit, Datos& datos, std::span<const Paso<Datos>> pasos) {
  for (size_t i = 0; i < pasos.size();) {
    size_t fin = i;
    while (fin < pasos.size() && pasos[fin].filas) ++fin;
    const Paso<Datos>* fallo = nullptr;
    if (fin > i) {
      const auto cual = GrabarJuntas(p, fin - i, [&](size_t n) { return pasos[i + n].filas(p, datos); });
      if (cual) fallo = &pasos[i + *cual];
    } else if (!pasos[fin++].hacer(p, datos)) {
      fallo = &pasos[i];
    }
    if (!fallo) {
      i = fin;
      continue;
    }
    const QString nombre = QString::fromLatin1(fallo->nombre);
    if (fallo->falla) p.registro.RegistrarErrorLog(commit + QStringLiteral(" terminó en el paso ") + nombre);
    return fallo->nombre;
  }
  return nullptr;
}
