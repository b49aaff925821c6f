#pragma once
#include "foundation/rutas.h"
#include "platform/io/reloj.h"

// The daily error log, Err_yyyymmdd.log in the program folder: one line a text, "dd/mm/yyyy hh:mm:ss text",
// Windows-1252, opened and closed for each line. A line that can't be written is lost; nothing is shown.
class Registro {
 public:
  Registro(const Rutas& rutas, const Reloj& reloj) : rutas_(rutas), reloj_(reloj) {}
  void RegistrarErrorLog(const QString& texto);

 private:
  Rutas rutas_;
  const Reloj& reloj_;
};
