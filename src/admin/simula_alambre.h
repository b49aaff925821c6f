#pragma once
// The wire between a simulated desk and its server: a relay on loopback, in a thread of its own, that can be cut at a
// round trip, before the server has seen it or behind its answer, which is then lost.
#include <QString>
#include <atomic>
#include <memory>
#include <thread>

#include "platform/sql/motor.h"

class Alambre {
 public:
  Alambre() = default;
  ~Alambre();
  Alambre(const Alambre&) = delete;
  Alambre& operator=(const Alambre&) = delete;

  // Relays to that port of loopback from now on; false when no port could be had.
  [[nodiscard]] bool tender(int puertoServidor);
  int puerto() const { return puerto_; }

  // All connections break at the n-th round trip from now on. `lejos`: none can be made either until reponer().
  void cortar(int n, bool respuestaPerdida, bool lejos);
  // Takes an order back that has not come, and lets connections through again. True when the wire was cut meanwhile.
  bool reponer();

 private:
  struct Par;
  void relevar();
  bool pasar(Par& par, bool haciaServidor);
  bool tocaCortar();

  int escucha_ = -1, puertoServidor_ = 0, puerto_ = 0;
  std::thread hilo_;
  std::atomic<bool> fin_{false}, caido_{false}, cortado_{false};
  std::atomic<int> faltan_{0};  // round trips up to the cut; 0 without an order
  std::atomic<bool> perdida_{false}, lejos_{false};
};

// Engines whose PostgreSQL servers at `puertoServidor` of loopback are reached through the wire.
class MotoresPorAlambre final : public Motores {
 public:
  MotoresPorAlambre(Motores& real, int puertoServidor, const Alambre& alambre)
      : real_(real), puertoServidor_(puertoServidor), alambre_(alambre) {}
  std::unique_ptr<Motor> abrir(const QString& cadena, int espera_ms, ErrorBD& error) override;

 private:
  Motores& real_;
  const int puertoServidor_;
  const Alambre& alambre_;
};
