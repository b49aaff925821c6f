#pragma once
// Standard input as the lines of a play, read as they come.
#include <memory>

#include "admin/guion_lexico.h"

class QSocketNotifier;

class EntradaGuion {
 public:
  explicit EntradaGuion(FuenteGuion& fuente);
  ~EntradaGuion();
  EntradaGuion(const EntradaGuion&) = delete;
  EntradaGuion& operator=(const EntradaGuion&) = delete;

 private:
  void leer();

  FuenteGuion& fuente_;
  std::unique_ptr<QSocketNotifier> aviso_;
};
