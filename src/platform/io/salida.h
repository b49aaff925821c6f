#pragma once

// "The process ends here."
class Salida {
 public:
  virtual ~Salida() = default;
  // Does not return: the process ends with `estado` (0 a wanted end, otherwise a failure), without unwinding.
  // In a test it throws.
  [[noreturn]] virtual void terminar(int estado) = 0;
};
