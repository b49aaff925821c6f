// The push of closed rows beside the same round trips on the bare engines: SQLite, and a PostgreSQL's own library.
#include <libpq-fe.h>

#include "postgres/base_postgres.h"
#include "sincronizacion_banco.h"

namespace {

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
               "cdocserie, cdoctipo, cruc, itipocliente, idlocal) VALUES ($1, $2, $3, $4, $5, $6, $7, $8, $9, $10, "
               "$11, $12, $13, $14, $15, $16, $17, $18, $19, $20, $21, $22, $23, $24, $25, $26, $27)"},
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

}  // namespace

BENCHMARK(Envio)->ArgName("motor")->Arg(0)->Arg(1)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
