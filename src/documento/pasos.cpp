#include "documento/pasos.h"

#include "foundation/transaccion.h"

std::optional<size_t> GrabarJuntas(Puesto& p, size_t pasos, const std::function<std::vector<Sql>(size_t)>& filas) {
  size_t n = 0;
  Sql sentencia;
  std::optional<ErrorBD> fallo;
  // A failed statement doesn't undo the others: only the death of the process does.
  const auto fin = EnTransaccion(p.poCnnLocal, [&] {
    while (n < pasos && !(fallo = EjecutarTodas(p.poCnnLocal, filas(n), &sentencia))) ++n;
    return std::optional<ErrorBD>();
  });
  if (!fallo) fallo = fin;
  if (!fallo) return {};
  if (!fallo->claveDuplicada()) {
    p.mensajes.mostrar(fallo->descripcion + QStringLiteral(" - ") + sentencia.texto(p.poCnnLocal.dialecto()));
  }
  return std::min(n, pasos - 1);
}
