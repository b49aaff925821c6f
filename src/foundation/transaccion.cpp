#include "foundation/transaccion.h"

namespace {
constexpr int kVeces = 10;  // a knot of locks in a row is rare; so many are a fault
}

std::optional<ErrorBD> EnTransaccion(Conexion& cnn, const std::function<std::optional<ErrorBD>()>& pasos) {
  auto error = cnn.iniciar();
  if (error) return error;
  try {
    error = pasos();
  } catch (...) {
    (void)cnn.deshacer();
    throw;
  }
  if (!error) error = cnn.confirmar();
  if (error) (void)cnn.deshacer();  // the connection remembers what it still has to undo
  return error;
}

std::optional<ErrorBD> EjecutarTodas(Conexion& cnn, const std::vector<Sql>& sentencias, Sql* laQueFallo) {
  for (const Sql& sql : sentencias) {
    auto error = cnn.ejecutar(sql);
    if (!error) continue;
    if (laQueFallo) *laQueFallo = sql;
    return error;
  }
  return {};
}

std::optional<ErrorBD> EjecutarJuntas(Conexion& cnn, const std::vector<Sql>& sentencias, Sql* laQueFallo) {
  std::optional<ErrorBD> error;
  for (int vez = 0; vez < kVeces; ++vez) {
    if (laQueFallo) *laQueFallo = Sql();
    error = EnTransaccion(cnn, [&] { return EjecutarTodas(cnn, sentencias, laQueFallo); });
    if (!error || !error->repetible()) break;
  }
  return error;
}
