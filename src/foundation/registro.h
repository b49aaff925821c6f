#pragma once
#include "foundation/rutas.h"
#include "platform/io/reloj.h"

// The daily logs in the program folder: one line a text, "dd/mm/yyyy hh:mm:ss text", Windows-1252, opened and closed
// for each line. A line that can't be written is lost; nothing is shown.
class Registro {
 public:
  Registro(const Rutas& rutas, const Reloj& reloj) : rutas_(rutas), reloj_(reloj) {}
  // Err_yyyymmdd.log: faults, nothing else.
  void RegistrarErrorLog(const QString& texto);
  // Imp_yyyymmdd.log: the way of each paper to its printer.
  void RegistrarImpresion(const QString& texto);
  // Takes away the desk's daily logs, those of the synchronisation too, of more than `dias` days ago by their names.
  void BorrarViejos(int dias);

 private:
  void agregar(const QString& tronco, const QString& texto);
  Rutas rutas_;
  const Reloj& reloj_;
};
