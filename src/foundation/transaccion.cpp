#include "foundation/transaccion.h"

std::optional<ErrorBD> EnTransaccion(Conexion& cnn, const std::function<std::optional<ErrorBD>()>& pasos) {
  auto error = cnn.iniciar();
  if (error) return error;
  error = pasos();
  if (!error) error = cnn.confirmar();
  if (error) (void)cnn.deshacer();  // the connection remembers what it still has to undo
  return error;
}

std::optional<ErrorBD> EjecutarTodas(Conexion& cnn, const std::vector<Sql>& sentencias) {
  for (const Sql& sql : sentencias) {
    if (auto error = cnn.ejecutar(sql)) return error;
  }
  return {};
}

std::optional<ErrorBD> EjecutarJuntas(Conexion& cnn, const std::vector<Sql>& sentencias) {
  return EnTransaccion(cnn, [&] { return EjecutarTodas(cnn, sentencias); });
}

std::optional<ErrorBD> EjecutarJuntas(Conexion& cnn, const QStringList& sentencias) {
  return EnTransaccion(cnn, [&]() -> std::optional<ErrorBD> {
    for (const QString& sql : sentencias) {
      if (auto error = cnn.ejecutar(sql)) return error;
    }
    return {};
  });
}
