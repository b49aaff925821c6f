// The commit of a cash sale of five lines beside its floor: the same statements through the engine's own interface,
// prepared, with the same flush, the same files written and the same databases opened. The two take turns.
#include <benchmark/benchmark.h>

#include <QDir>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "grabadora.h"
#include "sale/venta_prueba.h"

namespace {

constexpr int kVentas = 300;

QString q(const char* s) { return QString::fromUtf8(s); }

[[noreturn]] void romper(const char* porque) {
  std::fprintf(stderr, "%s\n", porque);
  std::exit(1);
}

// Old days of the desk: `filas` rows, six a ticket, closed and pushed.
void llenarHistoria(const QString& archivo, qint64 filas) {
  sqlite3* base = nullptr;
  sqlite3_open(archivo.toUtf8().constData(), &base);
  const QByteArray sql = QStringLiteral(
      "PRAGMA synchronous=OFF; BEGIN;"
      "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < %1 - 1) "
      "INSERT INTO Operacion (cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit,"
      " nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nDscto, nServicio, cDocCodigo, cRuc, cDocSerie,"
      " cDocTipo, cEmisor, cOperCodeAnula, cOperFlagAbierto, cFlagSincronizacion) "
      "SELECT i / 6 + 1, 'CAJERO', '', '01', 101 + i % 40, 1 + i % 3, 4.5 + i % 20, 0, "
      "datetime('2026-11-23 22:00:00', '-' || ((%1 - i) / 40) || ' minutes'), 1, '00001', '01', 0, 10, i / 6 + 1, '',"
      " '001', '02', '', 0, 0, '1' FROM n;"
      "UPDATE Config_Documento SET nDocCodigo = (SELECT max(cDocCodigo) FROM Operacion) WHERE cTipoDoc = '02';"
      "COMMIT; PRAGMA wal_checkpoint(TRUNCATE);").arg(filas).toUtf8();
  char* error = nullptr;
  if (sqlite3_exec(base, sql.constData(), nullptr, nullptr, &error) != SQLITE_OK) romper(error);
  sqlite3_close(base);
}

QByteArray contenido(const QString& archivo) {
  QFile f(archivo);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The ports of the tests, on the tape too.
class PuertosGrabados final : public Puertos {
 public:
  PuertosGrabados(Puertos& reales, MotoresGrabados& cinta) : reales_(reales), cinta_(cinta) {}
  std::optional<QString> copiar(const QString& archivo, const QString& puerto) override {
    if (cinta_.grabando) {
      cinta_.eventos.push_back({Evento::Archivo, {}, QString::fromLatin1(contenido(archivo)), archivo});
    }
    return reales_.copiar(archivo, puerto);
  }
  void enviarSinEsperar(const QString& archivo, const QString& puerto) override { copiar(archivo, puerto); }
  QList<ImpresoraSistema> impresoras() override { return reales_.impresoras(); }
  QString impresoraPorDefecto() override { return reales_.impresoraPorDefecto(); }
  std::optional<QString> imprimir(const QString& i, const QString& l, int t, const DocumentoImpreso& textos) override {
    return reales_.imprimir(i, l, t, textos);
  }

 private:
  Puertos& reales_;
  MotoresGrabados& cinta_;
};

// A shop with a history, its twin for the floor, and the tape of two sales.
class Tienda {
 public:
  Tienda(qint64 filas, bool conDisco) : cinta_(base_.motores), puertos_(base_.puertos, cinta_) {
    base_.poCnnLocal.cerrar();
    llenarHistoria(base_.ses.psRutaBD, filas);
    for (const QString& nombre : {q("TarvoPos.mdb"), q("central.db"), q("cliente.db")}) {
      QFile::copy(base_.rutas.enPrograma(nombre), gemela_.filePath(nombre));
    }
    p_ = std::make_unique<Puesto>(cinta_, puertos_, base_.reloj, base_.mensajes, base_.salida, base_.rutas);
    p_->ses = base_.ses;
    if (!p_->poDBAdmin.AbrirBD(p_->poCnnLocal, q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + base_.ses.psRutaBD)) {
      romper("the store does not open");
    }
    if (!conDisco) p_->poCnnLocal.ejecutar(q("PRAGMA synchronous=OFF"));
    const auto primera = grabar();
    const QString diario = base_.rutas.enPrograma(q("Err_20261124.log"));
    QList<QByteArray> log;
    for (const QByteArray& l : contenido(diario).split('\n')) {
      if (!l.isEmpty()) log << l + '\n';
    }
    const auto segunda = grabar();
    piso_ = std::make_unique<Piso>(primera, segunda, gemela_.path(), log, conDisco);
    piso_->venta();
    piso_->venta();
  }

  void venta() {
    CajaRegistradoraFull v;
    for (int i = 0; i < 5; ++i) v.lineas.push_back(filaVenta(101 + i, q("ARTICULO"), 4.5 + i, 1 + i % 2));
    v.lineas.erase(v.lineas.begin());
    GrabarVenta(*p_, v, pantallas_);
  }
  void piso() { piso_->venta(); }

  // Both roads have left the same rows.
  bool iguales() {
    base_.poCnnLocal.cerrar();
    Conexion gemela;
    if (gemela.abrir(base_.motores, q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + gemela_.filePath(q("TarvoPos.mdb")), 1000)) {
      return false;
    }
    for (const char* sql : {"SELECT * FROM Operacion WHERE cOperFlagAbierto = 1 ORDER BY cOperId", "SELECT * FROM _Tmp1",
                            "SELECT * FROM Config_Documento"}) {
      const QString nuestro = base_.filas(p_->poCnnLocal, q(sql));
      if (nuestro.isEmpty() || nuestro != base_.filas(gemela, q(sql))) return false;
    }
    return true;
  }

 private:
  std::vector<Evento> grabar() {
    cinta_.eventos.clear();
    cinta_.grabando = true;
    venta();
    cinta_.grabando = false;
    return cinta_.eventos;
  }

  PuestoDeVenta base_;
  QTemporaryDir gemela_;
  MotoresGrabados cinta_;
  PuertosGrabados puertos_;
  PantallasGuion pantallas_;
  std::unique_ptr<Puesto> p_;
  std::unique_ptr<Piso> piso_;
};

double mediana(std::vector<double>& v) {
  std::nth_element(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(v.size() / 2), v.end());
  return v[v.size() / 2];
}

double procesador_us() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e6 + static_cast<double>(t.tv_nsec) / 1e3;
}

// Arguments: rows of history; 1 with the disk's flush, 0 without.
void Venta(benchmark::State& estado) {
  Tienda t(estado.range(0), estado.range(1) != 0);
  std::vector<double> nuestro, piso, nuestroCpu, pisoCpu;
  const auto medir = [](auto f, std::vector<double>& pared, std::vector<double>& cpu) {
    QElapsedTimer reloj;
    const double antes = procesador_us();
    reloj.start();
    f();
    pared.push_back(static_cast<double>(reloj.nsecsElapsed()) / 1e3);
    cpu.push_back(procesador_us() - antes);
  };
  bool primero = false;
  for (auto _ : estado) {
    primero = !primero;
    if (primero) medir([&] { t.venta(); }, nuestro, nuestroCpu);
    medir([&] { t.piso(); }, piso, pisoCpu);
    if (!primero) medir([&] { t.venta(); }, nuestro, nuestroCpu);
    estado.SetIterationTime(nuestro.back() / 1e6);
  }
  if (!t.iguales()) estado.SkipWithError("the two roads left different rows");
  const double n = mediana(nuestro), p = mediana(piso), nc = mediana(nuestroCpu), pc = mediana(pisoCpu);
  estado.counters["nuestro_us"] = n;
  estado.counters["piso_us"] = p;
  estado.counters["veces"] = n / p;
  estado.counters["nuestro_cpu_us"] = nc;
  estado.counters["piso_cpu_us"] = pc;
}
BENCHMARK(Venta)
    ->ArgNames({"filas", "disco"})
    ->Args({1'000, 1})->Args({1'000'000, 1})->Args({1'000, 0})->Args({1'000'000, 0})
    ->UseManualTime()->Iterations(kVentas)->Unit(benchmark::kMicrosecond);

// The totals of a grid of 200 lines; the register asks for them after each cell that changes.
void CalculaTotales200(benchmark::State& estado) {
  PuestoPrueba p;
  CajaRegistradoraFull v;
  v.lineas.clear();
  for (int i = 0; i < 200; ++i) v.lineas.push_back(filaVenta(100 + i, q("ARTICULO"), 3.35 + i, 1 + i % 4, i % 7));
  for (auto _ : estado) {
    CalculaTotales(p, v);
    CuadraPago(p, v);
    benchmark::DoNotOptimize(v.txtSoles);
  }
}
BENCHMARK(CalculaTotales200)->Unit(benchmark::kMicrosecond);

}  // namespace
