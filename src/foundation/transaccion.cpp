#include "foundation/transaccion.h"

#include <QRandomGenerator>
#include <QThread>
#include <algorithm>

// Up to 4, 8, 16 ... ms.
void DejarPasarNudo(int vez) {
  constexpr int kPausaMayor_ms = 160;
  const int tope = std::min(2 << std::min(vez, 10), kPausaMayor_ms);
  QThread::msleep(QRandomGenerator::global()->bounded(1, tope + 1));
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
  for (int vez = 0; vez < kVecesDelNudo; ++vez) {
    if (vez > 0) DejarPasarNudo(vez);
    if (laQueFallo) *laQueFallo = Sql();
    error = EnTransaccion(cnn, [&] { return EjecutarTodas(cnn, sentencias, laQueFallo); });
    if (!error || !error->repetible()) break;
  }
  return error;
}
