#pragma once
// A desk beside the one of a test, in its folder: in this process or in one that may be killed.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "apoyo/puertos_que_matan.h"
#include "apoyo/puesto_prueba.h"

inline void abrirAlmacen(Puesto& p) {
  EXPECT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnLocal,
                                  QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + p.ses.psRutaBD));
}

template <class MisPuertos>
struct PartesDeOtro {
  MotoresQueFallan misMotores;
  MisPuertos misPuertos;
};

// As after a start: statements and writes to ports go by the plan.
template <class MisPuertos = PuertosQueMatan>
struct OtroPuesto : PartesDeOtro<MisPuertos>, Puesto {
  OtroPuesto(PuestoPrueba& p, PlanFallas& plan, Mensajes& persona)
      : PartesDeOtro<MisPuertos>{{p.motores, plan}, {p.rutas.programa, plan}},
        Puesto(this->misMotores, this->misPuertos, p.reloj, persona, p.salida, p.rutas) {
    ses = p.ses;
    abrirAlmacen(*this);
  }
};

// Runs `f` in a process of its own, and gives how that ended. No connection lives in both.
template <class F>
int enOtroProceso(PuestoPrueba& p, F f) {
  p.poCnnLocal.cerrar();
  const pid_t hijo = ::fork();
  if (hijo == 0) {
    f();
    ::_exit(0);
  }
  int estado = -1;
  EXPECT_TRUE(hijo > 0 && hijo == ::waitpid(hijo, &estado, 0));
  abrirAlmacen(p);
  return estado;
}
inline bool murio(int estado) { return WIFSIGNALED(estado) && WTERMSIG(estado) == SIGKILL; }
