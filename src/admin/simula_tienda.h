#pragma once
// The shop of a simulation: its folder with the server, the databases and the desks; its days; what happens at the
// centre meanwhile.
#include <QProcess>
#include <functional>
#include <memory>

#include "admin/simula_cotejo.h"
#include "postgres/servidor_demo.h"

class TiendaSimulada {
 public:
  explicit TiendaSimulada(PlanSimulacion plan) : plan_(std::move(plan)) {}
  ~TiendaSimulada();

  using Fallo = std::optional<QString>;
  // Makes what is not there yet, or takes up what an earlier call has left: `hechos` days are done.
  [[nodiscard]] Fallo preparar(int& hechos);
  // All desks through one day, each a process of its own, until each has closed.
  [[nodiscard]] Fallo jugar(int dia);
  // Every desk once more without faults, then the proof.
  [[nodiscard]] Fallo terminar(ResultadoCotejo& r);
  // Each desk in a process of its own, with those words more, until all have ended; `entretanto` is asked until it has
  // given true.
  [[nodiscard]] Fallo todas(const QStringList& mas, int dia, const std::function<bool()>& entretanto);
  // Rows of all desks at the centre, and the knots of locks that its server has broken.
  [[nodiscard]] Fallo contarEnviadas(qint64& filas, qint64& nudos);
  const PlanSimulacion& plan() const { return plan_; }
  // The server writes to the disk as a shop's does.
  bool conDisco = false;

 private:
  Fallo arrancarServidor();
  void caerServidor();
  Fallo hacerBases();
  Fallo abrir(Conexion& cnn, bool central);
  Fallo cambiarMaestros(int dia);
  QStringList ordenDe(int caja, int dia, const QStringList& mas) const;

  PlanSimulacion plan_;
  ServidorDemo demo_;
  std::unique_ptr<QProcess> servidor_;
  std::unique_ptr<Motores> motores_;
};
