#pragma once
// Who is told while something outside makes the desk wait: a printer that takes no bytes, a server that is silent.
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QString>
#include <algorithm>
#include <functional>

// Called again and again, every tenth of a second at least, with what is waited for and for how long so far, and with
// "" once that is over. May paint, must not run events. Empty where nobody wants to know.
using AvisoEspera = std::function<void(const QString& que, int ms)>;

constexpr int kPasoEspera_ms = 100;

// Waits for what `lista(ms)` waits for, in steps: it gives true as soon as that is there, false after `ms`. False when
// `plazo_ms` have passed in all.
template <class Lista>
bool EsperarAvisando(const AvisoEspera& aviso, const QString& que, int plazo_ms, Lista lista) {
  if (!aviso) return lista(plazo_ms);
  constexpr int kSeNota_ms = 20;  // many short waits make a long one
  QElapsedTimer van;
  van.start();
  const QDeadlineTimer plazo(plazo_ms);
  for (;;) {
    const bool ya = lista(static_cast<int>(std::clamp<qint64>(plazo.remainingTime(), 0, kPasoEspera_ms)));
    const bool seNota = van.elapsed() >= kSeNota_ms;
    if (seNota) aviso(que, static_cast<int>(van.elapsed()));
    if (!ya && !plazo.hasExpired()) continue;
    if (seNota) aviso({}, 0);
    return ya;
  }
}
