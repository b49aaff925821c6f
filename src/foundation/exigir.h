#pragma once
// What the program itself takes for granted. Where it does not hold the program has a fault: the act ends by an
// exception, in every build, EnTransaccion undoes its rows, and the event loop (platform/ui/ciclo_ventanas) has it
// logged and told in one box. Never for what a person, a file, a printer or a database can cause.
#include <stdexcept>

class InvarianteRota final : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

// Goes on when it holds, else throws InvarianteRota with the words of `que`, for the log.
inline void Exigir(bool seCumple, const char* que) {
  if (!seCumple) throw InvarianteRota(que);
}
