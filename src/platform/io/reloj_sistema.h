#pragma once
// The machine's clock: the one place that holds the toolkit's timers.
#include "platform/io/reloj.h"

class QObject;

class RelojSistema final : public Reloj {
 public:
  QDateTime now() const override;
  void dormir(int ms) override;
  // Needs an event loop to run. A handle that is let go while `f` runs lets that run end.
  std::shared_ptr<void> cada(int ms, std::function<void()> f) override;

  // Calls `f` once, between events, `ms` milliseconds from now; never when `contexto` has died by then. With 0 as soon
  // as the event loop, which may be an inner one, has nothing else in hand.
  void unaVez(int ms, const QObject* contexto, std::function<void()> f) const;
};
