// Push, pull and purge of a desk beside the bare engine doing the same: the same round trips for rows that go one by
// one, a plain copy for a first load.
#include <libpq-fe.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <QDir>

#include "apoyo/servidor_prueba.h"
#include "breve.h"
#include "duelo.h"
#include "platform/sql/base_sqlite.h"
#include "postgres/base_postgres.h"
#include "sync/depuracion.h"
#include "sync/sincronizar.h"
#include "sync/updt.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

// Numbers 1 to n as a table.
QString hasta(qint64 n) {
  return q("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) ").arg(n);
}

// What a PostgreSQL server that is measured has taken of the processor, with all its processes; 0 without one.
QByteArray elServidor;
double cpuDelServidor_s() {
  if (elServidor.isEmpty()) return 0;
  double ticks = 0;
  for (const QString& proceso : QDir(q("/proc")).entryList({q("[0-9]*")}, QDir::Dirs)) {
    QFile f(q("/proc/%1/stat").arg(proceso));
    if (!f.open(QIODevice::ReadOnly)) continue;
    const QByteArrayList partes = f.readAll().split(')').last().simplified().split(' ');  // from the state on
    const bool padre = proceso.toUtf8() == elServidor;
    if (partes.size() < 15 || (!padre && partes[1] != elServidor)) continue;
    for (int i = 11; i < (padre ? 15 : 13); ++i) ticks += partes[i].toDouble();  // utime, stime; those of its dead too
  }
  return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
}
void mirarServidor(const CadenaConexion& base) {
  const auto rs = ServidorPrueba::uno().crudo(base, q("SELECT split_part(pg_read_file('postmaster.pid'), chr(10), 1)"));
  elServidor = rs[0].toString().toUtf8();
}

// What an act took: by the clock, and of the processor alone, which also tells on a machine that is busy.
struct Tiempo {
  double s = 0, cpu_s = 0;
};

template <class F>
Tiempo cronometrar(F f) {
  const auto cpu = [] {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec) + cpuDelServidor_s();
  };
  const auto antes = std::chrono::steady_clock::now();
  const double cpuAntes = cpu();
  f();
  return {std::chrono::duration<double>(std::chrono::steady_clock::now() - antes).count(), cpu() - cpuAntes};
}

struct Tienda : PuestoPrueba {
  Tienda() {
    persona().dejaPasar();
    ejecuta(q("INSERT INTO Sincronizacion (dFechSincro) VALUES (Null)"));
  }
  QString central() const { return rutas.enPrograma(q("central.db")); }
  // Closed rows of one Z, three to a ticket.
  void vender(qint64 n) {
    correrEn(
        ses.psRutaBD,
        hasta(n) + q("INSERT INTO Operacion (cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, "
                     "nProdPrecUnit, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, cDocTipo, cDocSerie, cDocCodigo, "
                     "cOperFlagAbierto) SELECT 1 + i / 3, 'CAJERO', '', '01', 100 + i % 40, 1 + i % 3, 4.5, "
                     "datetime('2026-11-23 08:00', '+' || (i / 30) || ' minutes'), 1, '00001', '01', '02', '001', "
                     "1 + i / 3, 0 FROM n"));
    correrEn(ses.psRutaBD, q("INSERT INTO CabeceraZ (IdZ, Caja, Fecha, cOperIdIni, cOperIdFin) VALUES (1, '00001', "
                             "'2026-11-23', 0, %1)")
                               .arg(n));
  }
  void maestros(qint64 articulos, qint64 clientes) {
    correrEn(central(), hasta(articulos) +
                            q("INSERT INTO Articulo (cCodartic, vDscartic, cCodCatal, vDscartCt, dFechCrea, dFechModi) "
                              "SELECT printf('%06d', i), 'ARTICULO ' || i, 'C' || i, 'ART ' || i, '2026-01-05', "
                              "'2026-01-05' FROM n"));
    correrEn(central(),
             hasta(articulos) + q("INSERT INTO ArticuloPrecioVenta SELECT printf('%06d', i), 1, i % 90 FROM n"));
    correrEn(central(), hasta(clientes) + q("INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, iTipo, "
                                            "dFechCrea, dFechModi) SELECT i, 1, 'APELLIDO ' || i, 'NOMBRE', 1, "
                                            "'2026-01-05', '2026-01-05' FROM n"));
  }
  Tiempo sincronizar(bool maestros, bool enLotes = true) {
    FrmUpdt v(*this);
    v.enLotes = enLotes;
    ses.pbSincronizaMaestros = maestros;
    return cronometrar([&] {
      if (!Sincronizar(*this, v)) romper("the run came to a bad end");
    });
  }
};

sqlite3_stmt* preparar(sqlite3* db, const QByteArray& sql) {
  sqlite3_stmt* s = nullptr;
  if (sqlite3_prepare_v2(db, sql.constData(), -1, &s, nullptr) != SQLITE_OK)
    romper("the floor", QLatin1String(sqlite3_errmsg(db)));
  return s;
}

void correr(sqlite3_stmt* s) {
  while (sqlite3_step(s) == SQLITE_ROW) {
  }
  sqlite3_reset(s);
}

BaseSqlite abrirPiso(const QString& archivo) {
  QString error;
  BaseSqlite base = AbrirSqlite(archivo, SQLITE_OPEN_READWRITE, error);
  sqlite3_exec(base.get(), "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL", nullptr, nullptr, nullptr);
  return base;
}

const char kMarca[] =
    "UPDATE Operacion SET cFlagSincronizacion='1' WHERE cOperID=(SELECT MIN(cOperID) FROM Operacion WHERE "
    "cFlagSincronizacion='0')";

// The round trips of a row on the bare engine: two questions and the row there, the mark here, a commit on each side.
Tiempo pisoDeEnvio(Tienda& t, qint64 n) {
  const BaseSqlite local = abrirPiso(t.ses.psRutaBD), central = abrirPiso(t.central());
  sqlite3_stmt* const pasos[] = {
      preparar(central.get(), "BEGIN IMMEDIATE"),
      preparar(central.get(),
               "SELECT COUNT(*) FROM Cuentacte WHERE cSerieDoc='001' AND cNroDoc='000001' AND cCodCaja='1'"),
      preparar(central.get(), "SELECT MAX(cOperID) + 1 FROM Operacion WHERE cCajaCodi='00001'"),
      preparar(central.get(),
               "INSERT INTO Operacion (cOperID, cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, "
               "nProdCant, nProdPrecUnit, dOperFech, cOperTipo, cCajaCodi, cDocTipo, cDocSerie, cDocCodigo) "
               "VALUES (ifnull((SELECT MAX(cOperID) FROM Operacion WHERE cCajaCodi='00001'), 0) + 1, 1, "
               "'CAJERO', '', '01', '000101', 1, 4.5, '2026-11-23 08:00:00', 1, '00001', '02', '001', "
               "'000001')"),
      preparar(local.get(), "BEGIN IMMEDIATE"),
      preparar(local.get(), kMarca),
      preparar(central.get(),
               "INSERT INTO TDETALLEZ1 VALUES (1, '00001', '2026-11-23', '01', '02', '000101', 1, 4.5, NULL)"),
      preparar(central.get(), "COMMIT"),
      preparar(local.get(), "COMMIT")};
  const Tiempo s = cronometrar([&] {
    for (qint64 i = 0; i < n; ++i) {
      for (sqlite3_stmt* p : pasos) correr(p);
    }
  });
  for (sqlite3_stmt* p : pasos) sqlite3_finalize(p);
  return s;
}

// A server's own library: prepared statements, one message where ours is one.
class PisoPostgres {
 public:
  explicit PisoPostgres(const CadenaConexion& donde) {
    const QStringList lugar = donde.servidor.split(u':');
    c_ = PQconnectdb(q("host=%1 port=%2 user=%3 password=%4 dbname=%5 gssencmode=disable options='-c "
                       "search_path=dbo,public -c jit=off'")
                         .arg(lugar[0], lugar[1], donde.usuario, donde.clave, donde.catalogo)
                         .toUtf8()
                         .constData());
    if (PQstatus(c_) != CONNECTION_OK) romper("the floor", q(PQerrorMessage(c_)));
  }
  ~PisoPostgres() { PQfinish(c_); }
  PisoPostgres(const PisoPostgres&) = delete;

  void preparar(const char* nombre, const char* sql) { mirar(PQprepare(c_, nombre, sql, 0, nullptr)); }
  struct Paso {
    const char* nombre;
    std::vector<const char*> valores = {};
  };
  // The steps with one round trip.
  void viaje(const std::vector<Paso>& pasos) {
    if (pasos.size() > 1) PQenterPipelineMode(c_);
    for (const Paso& p : pasos) {
      PQsendQueryPrepared(c_, p.nombre, static_cast<int>(p.valores.size()), p.valores.data(), nullptr, nullptr, 0);
    }
    if (pasos.size() > 1) PQpipelineSync(c_);
    for (size_t i = 0; i < pasos.size(); ++i) {
      while (PGresult* r = PQgetResult(c_)) mirar(r);
    }
    if (pasos.size() == 1) return;
    mirar(PQgetResult(c_));  // of the sync
    PQexitPipelineMode(c_);
  }

 private:
  void mirar(PGresult* r) {
    const auto estado = PQresultStatus(r);
    PQclear(r);
    if (estado != PGRES_TUPLES_OK && estado != PGRES_COMMAND_OK && estado != PGRES_PIPELINE_SYNC) {
      romper("the floor", q(PQerrorMessage(c_)));
    }
  }
  PGconn* c_ = nullptr;
};

const qint64 kFilasDelCentro = filas(200'000);

// The same round trips on PostgreSQL. A number of the till's own run is drawn under its lock, and a detail that fails
// must not take the row with it.
Tiempo pisoDeEnvio(Tienda& t, const CadenaConexion& donde, qint64 n) {
  const BaseSqlite local = abrirPiso(t.ses.psRutaBD);
  PisoPostgres central(donde);
  // clang-format off
  const std::pair<const char*, const char*> sentencias[] = {
      {"inicia", "BEGIN"}, {"confirma", "COMMIT"}, {"punto", "SAVEPOINT s"}, {"suelta", "RELEASE s"},
      {"cuenta", "SELECT count(*) FROM cuentacte WHERE cseriedoc = $1 AND cnrodoc = $2 AND ccodcaja = $3"},
      {"cierra", "SELECT pg_advisory_xact_lock(7)"},
      {"numero", "SELECT coalesce(max(coperid), 0) + 1 FROM operacion WHERE ccajacodi = $1"},
      {"fila", "INSERT INTO operacion (coperid, copercode, cuserdesc, ntarjnumb, calmacode, cprodcode, nprodcant, "
               "nprodprecunit, doperfech, copertipo, coperflaganula, copercodeanula, coperflagabierto, nmontodolares, "
               "ccajacodi, cflagsincronizacion, cturnocodi, ndscto, nservicio, ccodiclie, vdescclie, cdoccodigo, "
               "cdocserie, cdoctipo, cruc, itipocliente, idlocal) VALUES ($1, $2, $3, $4, $5, $6, $7, $8, $9, $10, $11, "
               "$12, $13, $14, $15, $16, $17, $18, $19, $20, $21, $22, $23, $24, $25, $26, $27)"},
      {"detalle", "INSERT INTO tdetallez1 (nidz1, ccajacodi, doperfech, calmacode, cdoctipo, cprodcode, nprodcant, "
                  "nmonto) VALUES ($1, $2, $3, $4, $5, $6, $7, $8)"}};
  // clang-format on
  for (const auto& [nombre, sql] : sentencias) central.preparar(nombre, sql);
  sqlite3_stmt* const marca[] = {preparar(local.get(), "BEGIN IMMEDIATE"), preparar(local.get(), kMarca),
                                 preparar(local.get(), "COMMIT")};
  const Tiempo s = cronometrar([&] {
    for (qint64 i = 0; i < n; ++i) {
      const QByteArray id = QByteArray::number(kFilasDelCentro + i), doc = QByteArray::number(i).rightJustified(6, '0');
      central.viaje({{"inicia"}, {"cuenta", {"001", doc.constData(), "00001"}}});
      central.viaje({{"cierra"}, {"numero", {"00001"}}});
      central.viaje({{"fila",
                      {id.constData(),
                       id.constData(),
                       "CAJERO",
                       "",
                       "01",
                       "000101",
                       "1",
                       "4.5",
                       "2026-11-23 08:00:00",
                       "1",
                       "0",
                       "0",
                       "0",
                       "0",
                       "00001",
                       "0",
                       "01",
                       "0",
                       "0",
                       "0",
                       "Público en General",
                       doc.constData(),
                       "001",
                       "02",
                       "",
                       "0",
                       nullptr}}});
      correr(marca[0]);
      correr(marca[1]);
      central.viaje({{"punto"},
                     {"detalle", {"1", "00001", "2026-11-23 08:00:00", "01", "02", "000101", "1", "4.5"}},
                     {"suelta"}});
      central.viaje({{"confirma"}});
      correr(marca[2]);
    }
  });
  for (sqlite3_stmt* p : marca) sqlite3_finalize(p);
  return s;
}

// A centre that eight tills have sent to for some days; it has looked at its tables, as a server does by itself in its
// first minutes.
CadenaConexion centroDePostgres() {
  ServidorPrueba& servidor = ServidorPrueba::uno();
  const CadenaConexion base = servidor.base(BaseServidor::Central);
  servidor.crudo(base, q("INSERT INTO dbo.operacion (coperid, copercode, ccajacodi, cprodcode, nprodcant, "
                         "nprodprecunit, doperfech, cdoctipo, cdocserie, cdoccodigo, cflagsincronizacion) "
                         "SELECT i, i / 3, lpad((i % 8 + 1)::text, 5, '0'), lpad((i % 500)::text, 6, '0'), 1, 5.5, "
                         "timestamp '2026-11-01' + (i / 10000) * interval '1 day', '02', '001', "
                         "lpad((i / 3)::text, 6, '0'), '1' FROM generate_series(1, %1) i")
                           .arg(kFilasDelCentro - 1));
  servidor.crudo(base, q("VACUUM ANALYZE"));
  mirarServidor(base);
  return base;
}

// `motor` is 0 for the embedded servers, 1 for PostgreSQL.
void Envio(benchmark::State& estado) {
  const qint64 n = filas(10'000);
  elServidor.clear();
  const bool postgres = estado.range(0) == 1;
  for (auto _ : estado) {
    Tienda piso, deUna, lotes;
    std::vector<CadenaConexion> centrales;
    for (Tienda* t : {&piso, &deUna, &lotes}) {
      t->poCnnLocal.cerrar();
      t->vender(n);
      if (!postgres) continue;
      centrales.push_back(centroDePostgres());
      t->ses.psConexionCentral = cadenaDe(centrales.back());
    }
    for (Tienda* t : {&deUna, &lotes}) {
      if (!t->poDBAdmin.AbrirBD(t->poCnnLocal, q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + t->ses.psRutaBD)) {
        romper("no store");
      }
    }
    const Tiempo suelo = postgres ? pisoDeEnvio(piso, centrales[0], n) : pisoDeEnvio(piso, n),
                 una = deUna.sincronizar(false, false), lote = lotes.sincronizar(false);
    estado.counters["floor_s"] = suelo.s;
    estado.counters["row_by_row"] = una.s / suelo.s;
    estado.counters["row_by_row_cpu"] = una.cpu_s / suelo.cpu_s;
    estado.counters["batched"] = suelo.s / lote.s;
    estado.counters["batched_cpu"] = suelo.cpu_s / lote.cpu_s;
    estado.SetIterationTime(una.s);
  }
}

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

BENCHMARK(Envio)->ArgName("motor")->Arg(0)->Arg(1)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Traida)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Depuracion)->Arg(0)->Arg(1'000'000)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
