// The commit of a cash sale of five lines beside its floor: the same statements through the engine's own interface,
// prepared, with the same flush, the same files written and the same databases opened. The two take turns.
#include "breve.h"
#include "duelo.h"
#include "sale/venta_prueba.h"

namespace {

constexpr int kVentas = 300;

QString q(const char* s) { return QString::fromUtf8(s); }

// Arguments: rows of history; 1 with the disk's flush, 0 without.
void Venta(benchmark::State& estado) {
  PuestoDeVenta base;
  correrEn(base.ses.psRutaBD, sentenciasDeHistoria(estado.range(0)));
  PantallasGuion pantallas;
  Duelo duelo(base, estado.range(1) != 0);
  duelo.aprender([&pantallas](Puesto& p) {
    CajaRegistradoraFull v;
    v.rejilla.filas.clear();
    for (int i = 0; i < 5; ++i) v.rejilla.filas.push_back(filaVenta(101 + i, q("ARTICULO"), 4.5 + i, 1 + i % 2));
    (void)GrabarVenta(p, v, pantallas);
  });
  duelo.medir(estado, {q("SELECT * FROM Operacion WHERE cOperFlagAbierto = 1 ORDER BY cOperId"),
                       q("SELECT * FROM _Tmp1"), q("SELECT * FROM Config_Documento")});
}
BENCHMARK(Venta)
    ->ArgNames({"filas", "disco"})
    ->Args({filas(1'000), 1})
    ->Args({filas(1'000'000), 1})
    ->Args({filas(1'000), 0})
    ->Args({filas(1'000'000), 0})
    ->UseManualTime()
    ->Iterations(vueltas(kVentas))
    ->Unit(benchmark::kMicrosecond);

// The totals of a grid of 200 lines; the register asks for them after each cell that changes.
void CalculaTotales200(benchmark::State& estado) {
  PuestoPrueba p;
  CajaRegistradoraFull v;
  v.rejilla.filas.clear();
  for (int i = 0; i < 200; ++i)
    v.rejilla.filas.push_back(filaVenta(100 + i, q("ARTICULO"), 3.35 + i, 1 + i % 4, i % 7));
  for (auto _ : estado) {
    CalculaTotales(p, v);
    CuadraPago(p, v);
    benchmark::DoNotOptimize(v.txtSoles);
  }
}
BENCHMARK(CalculaTotales200)->Unit(benchmark::kMicrosecond);

}  // namespace
