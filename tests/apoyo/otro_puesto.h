#pragma once
// A desk beside the one of a test, in its folder: in this process or in one that may be killed.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "apoyo/plan_fallas.h"
#include "apoyo/puesto_prueba.h"
#include "platform/io/puertos_sistema.h"

inline void abrirAlmacen(Puesto& p) {
  EXPECT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnLocal,
                                  QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + p.ses.psRutaBD));
}

// The ports of a desk's folder.
class PuertosDelPuesto : public Puertos {
 public:
  explicit PuertosDelPuesto(const QString& carpeta) : real_(carpeta) {}
  std::optional<QString> copiar(const QString& archivo, const QString& puerto) override {
    return real_.copiar(archivo, puerto);
  }
  void enviarSinEsperar(const QString& archivo, const QString& puerto) override { copiar(archivo, puerto); }
  QList<ImpresoraSistema> impresoras() override {
    return {{QStringLiteral("Ticketera"), QStringLiteral("LPT1")}, {QStringLiteral("Alterna"), QStringLiteral("LPT2")}};
  }
  QString impresoraPorDefecto() override { return real_.impresoraPorDefecto(); }
  std::optional<QString> imprimir(const QString& i, const QString& l, int t, const DocumentoImpreso& x) override {
    return real_.imprimir(i, l, t, x);
  }

 private:
  PuertosSistema real_;
};

template <class MisPuertos>
struct PartesDeOtro {
  MotoresConFallas misMotores;
  MisPuertos puertosReales;
  PuertosConFallas misPuertos;
};

// As after a start: statements and writes to ports go by the plan.
template <class MisPuertos = PuertosDelPuesto>
struct OtroPuesto : PartesDeOtro<MisPuertos>, Puesto {
  OtroPuesto(PuestoPrueba& p, PlanFallas& plan, Mensajes& persona)
      : PartesDeOtro<MisPuertos>{{p.motores, plan}, MisPuertos(p.rutas.programa), {this->puertosReales, plan}},
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
