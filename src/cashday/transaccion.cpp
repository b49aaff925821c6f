#include "cashday/transaccion.h"

std::optional<ErrorBD> EjecutarJuntas(Conexion& cnn, const QStringList& sentencias) {
  auto error = cnn.iniciar();
  if (error) return error;
  for (const QString& sql : sentencias) {
    if (!error) error = cnn.ejecutar(sql);
  }
  if (!error) error = cnn.confirmar();
  if (error) cnn.deshacer();
  return error;
}
