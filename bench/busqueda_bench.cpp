// The first page of the search over a large catalogue and a large register of customers. `texto`: 0 none (articles), 1
// a common one, 2 one that a single row holds, 3 one that no row holds.
#include <benchmark/benchmark.h>

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>

#include "apoyo/puesto_prueba.h"
#include "breve.h"
#include "foundation/puesto.h"
#include "platform/text/texto.h"
#include "sale/buscador.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

const qint64 kArticulos = filas(50'000), kClientes = filas(200'000);

struct PuestoGrande : PuestoPrueba {
  PuestoGrande() {
    sembrar(ses.psRutaBD,
            q("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
              "INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, cCodCatalogo, nProdPrecUnit, "
              "cProdEstd,"
              " nActivo) SELECT '01', i, 'ARTICULO ' || (i * 7919 % %1) || ' DE CAMPO', 'CORTA ' || i, 'CAT' || i, 4.5,"
              " 1, 1 FROM n")
                .arg(kArticulos));
    sembrar(rutas.enPrograma(q("cliente.db")),
            q("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
              "INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, iTipo) "
              "SELECT i, 1, 'APELLIDO ' || (i * 7919 % %1), 'NOMBRE', 1 FROM n;"
              "INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, dCaduDate) "
              "SELECT cClieCode, 1, substr('00000000' || cClieCode, -8), '2030-01-01 00:00:00' FROM Cliente")
                .arg(kClientes));
  }

 private:
  static void sembrar(const QString& archivo, const QString& sql) {
    sqlite3* base = nullptr;
    char* error = nullptr;
    if (sqlite3_open(archivo.toUtf8().constData(), &base) != SQLITE_OK ||
        sqlite3_exec(base, sql.toUtf8().constData(), nullptr, nullptr, &error) != SQLITE_OK) {
      std::fprintf(stderr, "%s\n", error ? error : "cannot open");
      std::exit(1);
    }
    sqlite3_close(base);
  }
};

PuestoGrande& grande() {
  static PuestoGrande p;
  return p;
}

void primeraPagina(benchmark::State& estado, TipoBusqueda tipo, const QString (&textos)[4]) {
  PuestoGrande& p = grande();
  for (auto _ : estado) {
    Busqueda b;
    b.tipo = tipo;
    b.txtBuscar = textos[estado.range(0)];
    if (!LeerPagina(p, b) || (estado.range(0) < 2 && b.filas.size() != kFilasPorPagina)) {
      estado.SkipWithError("the page is not there");
      break;
    }
  }
}

void Articulos50000(benchmark::State& estado) {
  primeraPagina(estado, TipoBusqueda::Producto, {{}, q("campo"), q("CAT%1").arg(kArticulos - 1), q("zzz")});
}
BENCHMARK(Articulos50000)->ArgName("texto")->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

void Clientes200000(benchmark::State& estado) {
  primeraPagina(estado, TipoBusqueda::Cliente, {{}, q("apellido"), Ceros(QString::number(kClientes - 1), 8), q("zzz")});
}
BENCHMARK(Clientes200000)->ArgName("texto")->DenseRange(1, 3)->Unit(benchmark::kMillisecond);

}  // namespace
