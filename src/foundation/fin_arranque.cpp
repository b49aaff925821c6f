#include "foundation/fin_arranque.h"

#include <cstdlib>

#include "foundation/puesto.h"

void TerminarArranque(Puesto& p, const QString& queHacer, const QString& tecnico, const QString& titulo) {
  p.registro.RegistrarErrorLog(QStringLiteral("El arranque terminó: ") + tecnico.simplified());
  p.mensajes.mostrar(queHacer + QStringLiteral("\n\nPara soporte: ") + tecnico, titulo, Icono::Critico);
  p.salida.terminar(1);
  std::abort();  // never reached, which a virtual call does not tell the compiler
}
