#include "foundation/transaccion.h"

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
  return EnTransaccion(cnn, [&] { return EjecutarTodas(cnn, sentencias, laQueFallo); });
}
