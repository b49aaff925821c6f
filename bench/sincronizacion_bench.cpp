// Pull and purge of a desk beside the bare engine doing the same: a plain copy for a first load.
#include <libpq-fe.h>
#include <sys/resource.h>

#include "postgres/base_postgres.h"
#include "sincronizacion_banco.h"
#include "sync/depuracion.h"

namespace {

const QByteArray kCliente =
    "cClieCode, IdLocal, sClieApel, sClieName, sClieAddr, cDistCode, cProvCode, cDepaCode, sClieTelf, sClieMail, "
    "dNacmDate, dUltTDate, cTranCode, nPuntCant, nTickCant, sClieRout, sDistDesc, sProvDesc, sDepaDesc, iTipo";
// What reads there, and what puts it here.
const std::pair<QByteArray, QByteArray> kCopias[] = {
    {"SELECT '01', CAST(cCodartic AS INTEGER), vDscartic, vDscartCt, (SELECT nPrecioVtaNew FROM ArticuloPrecioVenta "
     "p WHERE p.cCodArtic = a.cCodartic), cCodCatal FROM Articulo a",
     "INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cCodCatalogo) VALUES "
     "(?, ?, ?, ?, ?, ?)"},
    {"SELECT " + kCliente + " FROM Cliente",
     "INSERT INTO Cliente (" + kCliente + ", cSincroFlag) VALUES (" + QByteArray("?, ").repeated(20) + "1)"}};

// In one transaction; `copiar` takes what a statement reads there to one here.
Tiempo pisoDeTraida(Tienda& t, const std::function<void(const QByteArray&, sqlite3_stmt*)>& copiar) {
  QString error;
  const BaseSqlite local = AbrirSqlite(t.ses.psRutaBD, SQLITE_OPEN_READWRITE, error);
  return cronometrar([&] {
    sqlite3_exec(local.get(), "PRAGMA synchronous=FULL; BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    for (const auto& [lee, pone] : kCopias) {
      sqlite3_stmt* a = preparar(local.get(), pone);
      copiar(lee, a);
      sqlite3_finalize(a);
    }
    sqlite3_exec(local.get(), "COMMIT", nullptr, nullptr, nullptr);
  });
}

void poner(sqlite3_stmt* a) {
  sqlite3_step(a);
  if (sqlite3_reset(a) != SQLITE_OK) romper("the copy", QLatin1String(sqlite3_errmsg(sqlite3_db_handle(a))));
}

Tiempo pisoDeTraida(Tienda& t) {
  QString error;
  const BaseSqlite central = AbrirSqlite(t.central(), SQLITE_OPEN_READWRITE, error);
  return pisoDeTraida(t, [&](const QByteArray& lee, sqlite3_stmt* a) {
    sqlite3_stmt* de = preparar(central.get(), lee);
    while (sqlite3_step(de) == SQLITE_ROW) {
      for (int i = 0; i < sqlite3_column_count(de); ++i) sqlite3_bind_value(a, i + 1, sqlite3_column_value(de, i));
      poner(a);
    }
    sqlite3_finalize(de);
  });
}

Tiempo pisoDeTraida(Tienda& t, PGconn* c) {
  return pisoDeTraida(t, [&](const QByteArray& lee, sqlite3_stmt* a) {
    PGresult* r = PQexec(c, lee.constData());
    if (PQresultStatus(r) != PGRES_TUPLES_OK) romper("the floor", q(PQerrorMessage(c)));
    for (int f = 0; f < PQntuples(r); ++f) {
      for (int i = 0; i < PQnfields(r); ++i) {
        if (PQgetisnull(r, f, i) != 0) sqlite3_bind_null(a, i + 1);
        else sqlite3_bind_text(a, i + 1, PQgetvalue(r, f, i), PQgetlength(r, f, i), SQLITE_STATIC);
      }
      poner(a);
    }
    PQclear(r);
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

// The same with the centre on a PostgreSQL server, whose own work counts as well.
void TraidaDeServidor(benchmark::State& estado) {
  const CadenaConexion donde = ServidorPrueba::uno().base(BaseServidor::Central);
  ServidorPrueba::uno().crudo(
      donde,
      q("SET search_path = dbo;"
        "INSERT INTO articulo (ccodartic, vdscartic, ccodcatal, vdscartct, dfechcrea, dfechmodi) SELECT "
        "lpad(i::text, 6, '0'), 'ARTICULO ' || i, 'C' || i, 'ART ' || i, '2026-01-05', '2026-01-05' FROM "
        "generate_series(1, %1) i;"
        "INSERT INTO articuloprecioventa SELECT ccodartic, 1, ccodartic::int % 90 FROM articulo;"
        "INSERT INTO cliente (ccliecode, idlocal, sclieapel, scliename, itipo, dfechcrea, dfechmodi) SELECT i, 1, "
        "'APELLIDO ' || i, 'NOMBRE', 1, '2026-01-05', '2026-01-05' FROM generate_series(1, %2) i")
          .arg(filas(50'000))
          .arg(filas(200'000)));
  ServidorPrueba::uno().crudo(donde, q("VACUUM ANALYZE"));
  mirarServidor(donde);
  const QStringList lugar = donde.servidor.split(u':');
  PGconn* c = PQconnectdb(q("host=%1 port=%2 user=%3 password=%4 dbname=%5 options='-c search_path=dbo,public'")
                              .arg(lugar[0], lugar[1], donde.usuario, donde.clave, donde.catalogo)
                              .toUtf8()
                              .constData());
  for (auto _ : estado) {
    Tienda t, copia;
    t.ses.psConexionCentral = cadenaDe(donde);
    copia.poCnnLocal.cerrar();
    const Tiempo suelo = pisoDeTraida(copia, c), primera = t.sincronizar(true), vacia = t.sincronizar(true);
    estado.counters["copy_s"] = suelo.s;
    estado.counters["first_pull"] = primera.s / suelo.s;
    estado.counters["first_pull_cpu"] = primera.cpu_s / suelo.cpu_s;
    estado.counters["empty_pull_ms"] = 1000 * vacia.s;
    estado.counters["empty_pull_cpu_ms"] = 1000 * vacia.cpu_s;
    estado.SetIterationTime(primera.s);
  }
  PQfinish(c);
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
BENCHMARK(TraidaDeServidor)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Depuracion)->Arg(0)->Arg(1'000'000)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
