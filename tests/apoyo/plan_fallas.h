#pragma once
// The faults of a test: those of a play, with the statements of the store alone counted and kept.
#include "admin/fallas.h"
#include "platform/sql/cadena_conexion.h"

enum class Falla { unaVez, desdeAhi };  // a lock that passes; a disk that stays full
enum class Muerte { no, antes, despues };

struct PlanFallas : Fallas {
  int n = 0;
  Falla falla = Falla::unaVez;
  Muerte muerte = Muerte::no;

  PlanFallas() {
    cuenta = [](const QString& cadena) { return leerCadenaConexion(cadena).tipo == TipoMotor::Local; };
    palabras = QStringLiteral("falla forzada");
    anota = catalogo = true;
  }
  // How many have been handed over.
  int van() const { return static_cast<int>(sentencias.size()); }
  // Starts counting anew; n = 0 only counts. A process that is to die does so at the n-th, which doesn't fail.
  void armar(int cual, Falla como = Falla::unaVez, Muerte m = Muerte::no) {
    n = cual;
    falla = como;
    muerte = m;
    sentencias.clear();
    fallar(m == Muerte::no ? n : 0, falla == Falla::unaVez ? Alcance::UnaVez : Alcance::DesdeAhi);
    matar(m == Muerte::no ? 0 : n, m == Muerte::antes ? Momento::Antes : Momento::Despues);
  }
};
