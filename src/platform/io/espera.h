#pragma once
// Who is told while something outside makes the desk wait: a printer that takes no bytes, a server that is silent.
#include <QString>
#include <functional>

// Called again and again, every tenth of a second at least, with what is waited for and for how long so far, and with
// "" once that is over. May paint, must not run events. Empty where nobody wants to know.
using AvisoEspera = std::function<void(const QString& que, int ms)>;

constexpr int kPasoEspera_ms = 100;
