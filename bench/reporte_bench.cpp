// The reports of a day of 20,000 rows and the closing's own work, beside the floor of their own statements. `filas`:
// rows of older days, which must not show.
#include "breve.h"
#include "cashday/cierre.h"
#include "cashday/pantallas_guion.h"
#include "cashday/reportes.h"
#include "duelo.h"

namespace {

constexpr int kVeces = 15;
const qint64 kDelDia = filas(20'000);

QString q(const char* s) { return QString::fromUtf8(s); }

struct Tienda : PuestoPrueba {
  explicit Tienda(qint64 antiguas) {
    for (int i = 101; i <= 140; ++i) articulo(i, q("ARTICULO %1").arg(i), 4.5);
    ejecuta(q("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('24/11/2026', 3.75)"));
    persona().dejaPasar();
    poCnnLocal.cerrar();
    correrEn(ses.psRutaBD, sentenciasDeHistoria(antiguas, kDelDia));
  }
};

void medir(benchmark::State& estado, const Duelo::Acto& acto, const QString& preparar = {}) {
  Tienda base(estado.range(0));
  Duelo duelo(base, true);
  duelo.aprender(acto, preparar);
  duelo.medir(estado,
              {q("SELECT COUNT(*), MAX(cOperID), SUM(cOperCode), SUM(cOperFlagAbierto) FROM Operacion"),
               q("SELECT prn, idct, idz, Imac FROM _Tmp1"), q("SELECT COUNT(*), SUM(idz), SUM(tvd) FROM _Tmp"),
               q("SELECT cOperId, cOperIdP, iCierreCaja, cCodiTurno FROM Configuracion"),
               q("SELECT COUNT(*), MAX(CodigoRep) FROM CabeceraZ"), q("SELECT COUNT(*), SUM(Cantidad) FROM DetalleZ")});
}

void exigir(bool hecho) {
  if (!hecho) romper("the act was not done");
}

void ReporteX(benchmark::State& estado) {
  medir(estado, [](Puesto& p) { exigir(ReportesEspeciales(p, PedidoX()).hecho()); });
}

void ReporteX1(benchmark::State& estado) {
  medir(estado, [](Puesto& p) { exigir(ReportesEspeciales1(p, PedidoX()).hecho()); });
}

// As the closing asks for them: on a first attempt, which moves the counters.
void CierreZ1(benchmark::State& estado) {
  medir(estado, [](Puesto& p) { exigir(ReportesEspeciales1(p, PedidoZ(3)).hecho()); });
}

void CierreZ(benchmark::State& estado) {
  medir(estado, [](Puesto& p) {
    p.ses.psTurno = q("01");
    exigir(ReportesEspeciales(p, PedidoZ(4)).hecho());
  });
}

void Blanqueo(benchmark::State& estado) {
  const QString reabrir = q("UPDATE Operacion SET cOperFlagAbierto = 1 WHERE cOperID > %1").arg(estado.range(0));
  medir(
      estado,
      [](Puesto& p) {
        PantallasGuion pantallas;
        p.ses.psTurno = q("01");
        exigir(BlanqueaTransacciones(p, pantallas));
      },
      reabrir);
}

void argumentos(benchmark::internal::Benchmark* b) {
  b->ArgName("filas")
      ->Arg(filas(1'000))
      ->Arg(filas(1'000'000))
      ->UseManualTime()
      ->Iterations(vueltas(kVeces))
      ->Unit(benchmark::kMillisecond);
}
BENCHMARK(ReporteX)->Apply(argumentos);
BENCHMARK(ReporteX1)->Apply(argumentos);
BENCHMARK(CierreZ1)->Apply(argumentos);
BENCHMARK(CierreZ)->Apply(argumentos);
BENCHMARK(Blanqueo)->Apply(argumentos);

}  // namespace
