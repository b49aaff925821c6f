#include "admin/guion_reloj.h"

#include <algorithm>

struct RelojGuion::Latido {
  int ms;
  std::function<void()> f;
  qint64 toca = 0;  // on the scale of transcurrido_
  bool corre = false;
  std::shared_ptr<void> deVerdad;  // while the clock runs
};

QDateTime RelojGuion::now() const { return parado_ ? momento_ : real_.now(); }

void RelojGuion::dormir(int ms) {
  if (alDormir) alDormir(ms);
}

std::shared_ptr<void> RelojGuion::cada(int ms, std::function<void()> f) {
  auto l = std::make_shared<Latido>();
  l->ms = std::max(ms, 1);
  l->f = std::move(f);
  l->toca = transcurrido_ + l->ms;
  if (!parado_) {
    l->deVerdad = real_.cada(l->ms, [debil = std::weak_ptr<Latido>(l)] {
      if (const auto vivo = debil.lock()) vivo->f();
    });
  }
  latidos_.push_back(l);
  return l;
}

void RelojGuion::parar(const QDateTime& momento) {
  momento_ = momento;
  if (parado_) return;
  parado_ = true;
  for (const auto& debil : latidos_) {
    if (const auto l = debil.lock()) l->deVerdad.reset();
  }
}

void RelojGuion::fijar(const QDateTime& momento) { parar(momento); }

// The living timer that falls due first, not later than `hasta`; of two at the same time the older one.
std::shared_ptr<RelojGuion::Latido> RelojGuion::proximo(qint64 hasta) {
  std::erase_if(latidos_, [](const auto& debil) { return debil.expired(); });
  std::shared_ptr<Latido> primero;
  for (const auto& debil : latidos_) {
    auto l = debil.lock();
    if (l->toca <= hasta && (!primero || l->toca < primero->toca)) primero = std::move(l);
  }
  return primero;
}

void RelojGuion::pasar(qint64 ms) {
  parar(now());
  const qint64 hasta = transcurrido_ + ms;
  const auto avanzar = [this](qint64 a) {
    if (a <= transcurrido_) return;  // a timer's work may itself have moved the clock further
    momento_ = momento_.addMSecs(a - transcurrido_);
    transcurrido_ = a;
  };
  while (const auto l = proximo(hasta)) {
    avanzar(l->toca);
    l->toca += l->ms;
    if (l->corre) continue;
    l->corre = true;
    l->f();
    l->corre = false;
  }
  avanzar(hasta);
}
