#pragma once
// The clock of a play: real time until it is first set or moved; from then on it stands still between moves.
#include <vector>

#include "platform/io/reloj_sistema.h"

class RelojGuion final : public Reloj {
 public:
  QDateTime now() const override;
  // Returns at once; a clock that stands still does not move.
  void dormir(int ms) override;
  std::shared_ptr<void> cada(int ms, std::function<void()> f) override;

  // Called at each sleep with its length, the one moment at which a passing screen can be seen.
  std::function<void(int)> alDormir;

  // Sets the clock; it stands still from now on. Timers neither fire nor come nearer.
  void fijar(const QDateTime& momento);
  // Moves the clock on, stopping it first if it still ran. Timers that fall due fire in their order, each at its own
  // time; one whose work has not ended yet is passed over.
  void pasar(qint64 ms);
  bool parado() const { return parado_; }

 private:
  struct Latido;
  void parar(const QDateTime& momento);
  std::shared_ptr<Latido> proximo(qint64 hasta);

  RelojSistema real_;
  bool parado_ = false;
  QDateTime momento_;
  qint64 transcurrido_ = 0;  // milliseconds moved since the clock stands still; setting it does not count
  std::vector<std::weak_ptr<Latido>> latidos_;
};
