// Pull and purge of a desk beside the bare engine doing the same: a plain copy for a first load.
#include <sys/resource.h>

#include "sincronizacion_banco.h"
#include "sync/depuracion.h"

namespace {

// What is read there goes in here, in one transaction: the two databases stand on two machines.
Tiempo pisoDeTraida(Tienda& t) {
  QString error;
  const BaseSqlite local = AbrirSqlite(t.ses.psRutaBD, SQLITE_OPEN_READWRITE, error),
                   central = AbrirSqlite(t.central(), SQLITE_OPEN_READWRITE, error);
  const QByteArray cliente =
      "cClieCode, IdLocal, sClieApel, sClieName, sClieAddr, cDistCode, cProvCode, cDepaCode, sClieTelf, sClieMail, "
      "dNacmDate, dUltTDate, cTranCode, nPuntCant, nTickCant, sClieRout, sDistDesc, sProvDesc, sDepaDesc, iTipo";
  const std::pair<QByteArray, QByteArray> copias[] = {
      {"SELECT '01', CAST(cCodartic AS INTEGER), vDscartic, vDscartCt, (SELECT nPrecioVtaNew FROM ArticuloPrecioVenta "
       "p WHERE p.cCodArtic = a.cCodartic), cCodCatal FROM Articulo a",
       "INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cCodCatalogo) VALUES "
       "(?, ?, ?, ?, ?, ?)"},
      {"SELECT " + cliente + " FROM Cliente",
       "INSERT INTO Cliente (" + cliente + ", cSincroFlag) VALUES (" + QByteArray("?, ").repeated(20) + "1)"}};
  return cronometrar([&] {
    sqlite3_exec(local.get(), "PRAGMA synchronous=FULL; BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    for (const auto& [lee, pone] : copias) {
      sqlite3_stmt *de = preparar(central.get(), lee), *a = preparar(local.get(), pone);
      while (sqlite3_step(de) == SQLITE_ROW) {
        for (int i = 0; i < sqlite3_column_count(de); ++i) sqlite3_bind_value(a, i + 1, sqlite3_column_value(de, i));
        sqlite3_step(a);
        if (sqlite3_reset(a) != SQLITE_OK) romper("the copy", QLatin1String(sqlite3_errmsg(local.get())));
      }
      sqlite3_finalize(de);
      sqlite3_finalize(a);
    }
    sqlite3_exec(local.get(), "COMMIT", nullptr, nullptr, nullptr);
  });
}

// A first load beside a plain copy of the same columns, and the day behind it, when nothing has changed.
void Traida(benchmark::State& estado) {
  for (auto _ : estado) {
    Tienda t, copia;
    for (Tienda* x : {&t, &copia}) x->maestros(filas(50'000), filas(200'000));
    copia.poCnnLocal.cerrar();
    const Tiempo suelo = pisoDeTraida(copia);
    const Tiempo primera = t.sincronizar(true), vacia = t.sincronizar(true);
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    estado.counters["copy_s"] = suelo.s;
    estado.counters["first_pull"] = primera.s / suelo.s;
    estado.counters["first_pull_cpu"] = primera.cpu_s / suelo.cpu_s;
    estado.counters["empty_pull_ms"] = 1000 * vacia.s;
    estado.counters["empty_pull_cpu_ms"] = 1000 * vacia.cpu_s;
    estado.counters["peak_MB"] = static_cast<double>(uso.ru_maxrss) / 1024;
    estado.SetIterationTime(primera.s);
  }
}

// A day of 2,000 rows moves; `historia` rows of older ones must not show.
void Depuracion(benchmark::State& estado) {
  const qint64 historia = estado.range(0);
  for (auto _ : estado) {
    Tienda t;
    t.poCnnLocal.cerrar();
    correrEn(t.ses.psRutaBD,
             hasta(20'000) + q("INSERT INTO Operacion (cOperCode, cProdCode, nProdCant, dOperFech, cDocTipo, "
                               "cDocCodigo, cOperFlagAbierto, cFlagSincronizacion) SELECT 2000000 + i, 101, 1, "
                               "datetime('2026-11-24', '-' || (i / 2000) || ' days'), '02', 2000000 + i, 0, "
                               "'1' FROM n"));
    if (historia > 0) {
      correrEn(t.ses.psRutaBD, hasta(filas(historia)) +
                                   q("INSERT INTO Operacion_Historico (cOperID, cOperCode, cProdCode, nProdCant, "
                                     "dOperFech, cDocTipo, cDocCodigo, cFlagSincronizacion) SELECT i, i, 101, 1, "
                                     "datetime('2026-11-10', '-' || (i / 20000) || ' days'), '02', i, '1' FROM n"));
    }
    if (!t.poDBAdmin.AbrirBD(t.poCnnLocal, q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + t.ses.psRutaBD)) {
      romper("no store");
    }
    FrmUpdt v(t);
    const Tiempo s = cronometrar([&] {
      if (!DepurarHistoria(t, v)) romper("the purge failed");
    });
    estado.counters["ms"] = 1000 * s.s;
    estado.counters["cpu_ms"] = 1000 * s.cpu_s;
    estado.SetIterationTime(s.s);
  }
}

}  // namespace

BENCHMARK(Traida)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Depuracion)->Arg(0)->Arg(1'000'000)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
