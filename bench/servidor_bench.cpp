// A PostgreSQL server under our engine beside the same work on the server's own library: prepared statements in its own
// words, the same number of round trips, the values read. Both take turns on one server and one set of tables.
#include <benchmark/benchmark.h>

#include <libpq-fe.h>

#include <chrono>

#include "apoyo/servidor_prueba.h"
#include "breve.h"
#include "platform/sql/conexion.h"
#include "postgres/base_postgres.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

const qint64 kClientes = filas(200'000), kLineas = filas(1'000'000);

// A central database full of rows, and a connection of each kind.
class Mesa {
 public:
  Mesa() {
    const CadenaConexion donde = ServidorPrueba::uno().base(BaseServidor::Central);
    // clang-format off
    ServidorPrueba::uno().crudo(donde, q(
        "SET search_path = dbo;"
        "INSERT INTO cliente (ccliecode, idlocal, sclieapel, scliename, itipo, npuntcant) "
        "SELECT i, 1, 'APELLIDO Ñ' || (i * 7919 % %1), 'NOMBRE', 1, 0 FROM generate_series(1, %1) i;"
        "INSERT INTO tarjeta (ccliecode, idlocal, ntarjnumb, ctarjacti, dcadudate) "
        "SELECT ccliecode, 1, lpad(ccliecode::text, 8, '0'), 1, '2030-01-01' FROM cliente;"
        "INSERT INTO articulo (ccodartic, vdscartic, ccodlinea) "
        "SELECT lpad(i::text, 6, '0'), 'ARTICULO ' || i, (i % 20)::text FROM generate_series(1, 5000) i;"
        "INSERT INTO operacion (coperid, copercode, ccajacodi, cprodcode, nprodcant, nprodprecunit, doperfech, "
        "cdocserie) "
        "SELECT i, i / 5, lpad((i % 8)::text, 5, '0'), lpad((i % 5000 + 1)::text, 6, '0'), 1 + i % 3, 5.5, "
        "timestamp '2026-01-01' + (i / 3000) * interval '1 day', '012' FROM generate_series(1, %2) i;"
        "CREATE TABLE llano (id bigint PRIMARY KEY, nombre text COLLATE \"C\");"
        "INSERT INTO llano SELECT ccliecode, sclieapel FROM cliente;"
        "CREATE INDEX llano_nombre ON llano (nombre);"
        // What the client database has beyond the central one.
        "CREATE INDEX cliente_nombre ON cliente (sclieapel, ccliecode, idlocal);"
        "CREATE INDEX tarjeta_cliente ON tarjeta (ccliecode, idlocal)").arg(kClientes).arg(kLineas));
    // clang-format on
    // As a server does by itself in its first minutes: an index of letters isn't whole before it.
    ServidorPrueba::uno().crudo(donde, q("VACUUM ANALYZE"));
    motores_ = motoresDelSistema(QString());
    if (cnn.abrir(*motores_, cadenaDe(donde), 20'000)) romper("the connection");
    const QStringList lugar = donde.servidor.split(u':');
    piso = PQconnectdb(q("host=%1 port=%2 user=%3 password=%4 dbname=%5 options='-c search_path=dbo,public -c jit=off'")
                           .arg(lugar[0], lugar[1], donde.usuario, donde.clave, donde.catalogo)
                           .toUtf8()
                           .constData());
    if (PQstatus(piso) != CONNECTION_OK) romper("the floor", q(PQerrorMessage(piso)));
  }
  ~Mesa() { PQfinish(piso); }

  Conexion cnn;
  PGconn* piso = nullptr;

 private:
  std::unique_ptr<Motores> motores_;
};

Mesa& mesa() {
  static Mesa m;
  return m;
}

// One statement of the floor: prepared at its first run, its values read as texts.
class Llana {
 public:
  explicit Llana(const char* sql) : sql_(sql) {}
  void correr(PGconn* c, std::initializer_list<QByteArray> valores = {}) {
    if (nombre_.isEmpty()) {
      static int n = 0;
      nombre_ = 'p' + QByteArray::number(++n);
      mirar(c, PQprepare(c, nombre_.constData(), sql_, 0, nullptr), false);
    }
    std::vector<const char*> v;
    for (const QByteArray& x : valores) v.push_back(x.constData());
    mirar(c, PQexecPrepared(c, nombre_.constData(), static_cast<int>(v.size()), v.data(), nullptr, nullptr, 0), true);
  }

 private:
  static void mirar(PGconn* c, PGresult* r, bool leer) {
    const auto estado = PQresultStatus(r);
    if (estado != PGRES_TUPLES_OK && estado != PGRES_COMMAND_OK) romper("the floor", q(PQerrorMessage(c)));
    for (int f = 0; leer && f < PQntuples(r); ++f) {
      for (int i = 0; i < PQnfields(r); ++i) benchmark::DoNotOptimize(q(PQgetvalue(r, f, i)));
    }
    PQclear(r);
  }

  const char* sql_;
  QByteArray nombre_;
};

void correr(const QString& sql, Recordset* rs = nullptr) {
  Recordset propio;
  if (const auto e = mesa().cnn.consultar(Sql::crudo(sql), rs ? *rs : propio)) romper("ours", e->descripcion + sql);
}

void medir(benchmark::State& estado, const std::function<void(int)>& nuestro, const std::function<void(int)>& llano) {
  std::vector<double> a, b;
  const auto tiempo = [](const std::function<void(int)>& f, int i) {
    const auto antes = std::chrono::steady_clock::now();
    f(i);
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - antes).count();
  };
  int i = 0;
  for (int k = 0; k < 6; ++k, ++i) {  // prepared, and planned for good
    nuestro(2 * i);
    llano(2 * i + 1);
  }
  for (auto _ : estado) {
    const bool primero = i % 2 == 0;  // who comes second finds the machine awake
    if (primero) a.push_back(tiempo(nuestro, 2 * i));
    b.push_back(tiempo(llano, 2 * i + 1));
    if (!primero) a.push_back(tiempo(nuestro, 2 * i));
    ++i;
  }
  const double x = mediana(a), y = mediana(b);
  estado.counters["ours_us"] = x;
  estado.counters["floor_us"] = y;
  estado.counters["times"] = x / y;
}

// The points of a customer: read, and written.
void Venta(benchmark::State& estado) {
  Llana lee("SELECT npuntcant FROM cliente WHERE itipo = 1 AND ccliecode = $1 AND idlocal = $2"),
      pone("UPDATE cliente SET npuntcant = coalesce(npuntcant, 0) + $3, dulttdate = $4::timestamp, ctrancode = 2 "
           "WHERE ccliecode = $1 AND idlocal = $2");
  medir(
      estado,
      [](int i) {
        const int c = i % 500 + 1;
        correr(q(" SELECT nPuntcant FROM CLIENTE   WHERE iTipo=1 AND cClieCode = %1     AND IdLocal = 1").arg(c));
        correr(q("UPDATE Cliente SET nPuntCant = ISNULL(nPuntCant,0) + 11, dUltTDate = "
                 "convert(datetime,'2026-11-24 17:05:30',120), cTranCode = 2 WHERE cClieCode = %1 AND "
                 "IdLocal= 1 ")
                   .arg(c));
      },
      [&](int i) {
        const QByteArray c = QByteArray::number(i % 500 + 1);
        lee.correr(mesa().piso, {c, "1"});
        pone.correr(mesa().piso, {c, "1", "11", "2026-11-24 17:05:30"});
      });
}
BENCHMARK(Venta)->Iterations(vueltas(1000))->Unit(benchmark::kMicrosecond);

// A line that is pushed and the mark behind it, one transaction.
void Envio(benchmark::State& estado) {
  Llana inicia("BEGIN"), confirma("COMMIT"),
      pone("INSERT INTO operacion (coperid, copercode, ccajacodi, cprodcode, nprodcant, nprodprecunit, doperfech, "
           "cdocserie) VALUES ($1, $1, '00099', '000012', 2, 5.5, $2, '012')"),
      marca("UPDATE cliente SET ctrancode = 1 WHERE ccliecode = $1 AND idlocal = 1");
  medir(
      estado,
      [](int i) {
        if (mesa().cnn.iniciar()) romper("begin");
        correr(
            q("INSERT INTO Operacion (cOperID, cOperCode, cCajacodi, cProdCode, nProdCant, nProdPrecUnit, dOperFech, "
              "cdocserie) VALUES (%1,%1,'00099','000012',2,5.5,CONVERT(DATETIME,'2026-11-24 17:05:00',120),'012')")
                .arg(10'000'000 + i));
        correr(q("UPDATE Cliente SET cTranCode = 1 WHERE cClieCode = %1 AND IdLocal = 1").arg(i % 500 + 1));
        if (mesa().cnn.confirmar()) romper("commit");
      },
      [&](int i) {
        inicia.correr(mesa().piso);
        pone.correr(mesa().piso, {QByteArray::number(10'000'000 + i), "2026-11-24 17:05:00"});
        marca.correr(mesa().piso, {QByteArray::number(i % 500 + 1)});
        confirma.correr(mesa().piso);
      });
}
BENCHMARK(Envio)->Iterations(vueltas(500))->Unit(benchmark::kMicrosecond);

// The first page of customers by a part of the surname.
void Pagina(benchmark::State& estado) {
  Llana lee(
      "SELECT c.ntarjnumb, a.ccliecode, a.sclieapel, a.sclieName, a.dnacmdate, c.idlocal, a.npuntcant FROM cliente a "
      "JOIN tarjeta c ON a.ccliecode = c.ccliecode AND a.idlocal = c.idlocal WHERE c.ctarjacti = 1 AND "
      "c.dcadudate >= $2 AND lower(a.sclieapel COLLATE \"es-x-icu\") COLLATE \"C\" LIKE $1 LIMIT 100");
  medir(
      estado,
      [](int i) {
        correr(
            q("SELECT TOP 100 c.nTarjNumb, a.cClieCode, a.sClieApel, a.sClieName, a.dNacmDate, c.IdLocal, a.nPuntCant "
              "FROM Cliente a, Tarjeta c WHERE c.cTarjActi = 1 AND c.dcadudate >= CONVERT(DATETIME,'2026-11-24 "
              "00:00:00',120) AND a.cClieCode = c.cClieCode AND a.IdLocal = c.IdLocal AND a.sClieApel LIKE '%O Ñ%1%'")
                .arg(i % 400 + 1000));
      },
      [&](int i) {
        lee.correr(mesa().piso, {q("%o ñ%1%").arg(i % 400 + 1000).toUtf8(), "2026-11-24"});
      });
}
BENCHMARK(Pagina)->Iterations(vueltas(100))->Unit(benchmark::kMicrosecond);

// A report over all lines with their articles.
void Reporte(benchmark::State& estado) {
  Llana lee(
      "SELECT a.ccodlinea, sum(o.nprodcant), sum(o.nprodcant * o.nprodprecunit) FROM operacion o JOIN articulo a ON "
      "a.ccodartic = o.cprodcode WHERE o.cdocserie = '012' AND o.doperfech >= $1 GROUP BY a.ccodlinea ORDER BY 1");
  medir(
      estado,
      [](int) {
        correr(q("SELECT A.cCodLinea, SUM(O.nProdCant) AS Cantidad, SUM(O.nProdCant * O.nProdPrecUnit) AS Monto FROM "
                 "Operacion O INNER JOIN Articulo A ON A.cCodArtic = O.cProdCode WHERE O.cDocSerie = '012' AND "
                 "O.dOperFech >= CONVERT(DATETIME,'20260101',112) GROUP BY A.cCodLinea ORDER BY A.cCodLinea"));
      },
      [&](int) { lee.correr(mesa().piso, {"2026-01-01"}); });
}
BENCHMARK(Reporte)->Iterations(vueltas(7))->Unit(benchmark::kMicrosecond);

// A name by its whole text and by its beginning, beside a look-up in an index without any rule of letters.
void Nombre(benchmark::State& estado) {
  Llana igual("SELECT id, nombre FROM llano WHERE nombre = $1");
  medir(
      estado,
      [](int i) {
        correr(q("SELECT cClieCode, sClieApel FROM Cliente WHERE sClieApel = 'apellido ñ%1'").arg(i * 7 % kClientes));
      },
      [&](int i) { igual.correr(mesa().piso, {q("APELLIDO Ñ%1").arg(i * 7 % kClientes).toUtf8()}); });
}
BENCHMARK(Nombre)->Iterations(vueltas(1000))->Unit(benchmark::kMicrosecond);

void Comienzo(benchmark::State& estado) {
  Llana lee("SELECT id, nombre FROM llano WHERE nombre LIKE $1");
  medir(
      estado,
      [](int i) {
        correr(q("SELECT cClieCode, sClieApel FROM Cliente WHERE sClieApel LIKE 'apellido ñ%1%'").arg(10000 + i));
      },
      [&](int i) { lee.correr(mesa().piso, {q("APELLIDO Ñ%1%").arg(10000 + i).toUtf8()}); });
}
BENCHMARK(Comienzo)->Iterations(vueltas(1000))->Unit(benchmark::kMicrosecond);

}  // namespace
