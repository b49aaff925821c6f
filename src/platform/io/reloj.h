#pragma once
#include <QDateTime>
#include <functional>
#include <memory>

// The only source of time and timers.
class Reloj {
 public:
  virtual ~Reloj() = default;
  virtual QDateTime now() const = 0;
  QDate today() const { return now().date(); }
  // Holds the desk. Does not run events.
  virtual void dormir(int ms) = 0;
  // Calls `f` every `ms` milliseconds, between events, until the returned handle is let go. `f` is not called again
  // while it still runs.
  virtual std::shared_ptr<void> cada(int ms, std::function<void()> f) = 0;
};
