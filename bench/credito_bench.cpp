// Billing documents: a FADE beside the floor of its round trips, and how long the lists of a large shop take to their
// first screen. `motor` is 0 for the embedded servers, 1 for PostgreSQL.
#include <libpq-fe.h>

#include <QElapsedTimer>
#include <QTest>

#include "con_ventanas.h"
#include "credit/credito_prueba.h"
#include "credit/frm_cons_cta_cte_cliente.h"
#include "credit/frm_documentos_pendientes.h"
#include "credit/operacion_paralela_consulta.h"
#include "duelo.h"

namespace {

QString q(const char* s) { return QString::fromUtf8(s); }

const qint64 kDocumentos = filas(200'000), kClientes = filas(20'000), kParalelas = filas(1'000'000);

// What the server does for a FADE of another desk, on the server's own library: the same statements in its own words,
// one message where ours is one.
class FadeLlana {
 public:
  explicit FadeLlana(const CadenaConexion& donde) : donde_(donde) {}
  void acto() {
    const QStringList lugar = donde_.servidor.split(u':');
    c_ = PQconnectdb(
        q("host=%1 port=%2 user=%3 password=%4 dbname=%5 gssencmode=disable options='-c search_path=dbo,public "
          "-c jit=off'")
            .arg(lugar[0], lugar[1], donde_.usuario, donde_.clave, donde_.catalogo)
            .toUtf8()
            .constData());
    if (PQstatus(c_) != CONNECTION_OK) romper("the floor", q(PQerrorMessage(c_)));
    const QByteArray n = QByteArray::number(++van_).rightJustified(6, '0');
    viaje({"BEGIN", "SELECT pg_advisory_xact_lock(7)",
           "SELECT coalesce(max(nrodoc::int), 0) FROM venta01 WHERE ccodcaja = '00099' AND tipodoc IN ('01', '02')"});
    viaje({"UPDATE parametro SET nmonto1 = nmonto1 WHERE ccodparam = 'IGV'"});
    viaje({"INSERT INTO venta01 (ccodvta, tipodoc, cseriedoc, nrodoc, ccodcaja, cclientecode, idlocal, dsccliente, "
           "nroruc, valorvta, igv, serv, totvta, nporcigv, totvtausd, ccodmoneda, ntipocambio, ccodtipocredito, "
           "fechaemision, btienedetraccion) SELECT coalesce(max(ccodvta), 0) + 1, '01', '099', '" +
           n +
           "', '00099', '00000007', 1, 'ANA', '20123456789', 169.49, 30.51, 0, 200, 0.18, 66.67, 'N', 3, '01', "
           "timestamp '2026-11-24', 0 FROM venta01"});
    viaje({"INSERT INTO venta02 (ccodvta, nroitem, ccodartic, sproddsccrta, nprecioorig, nqtdvendida, ndescuento, "
           "nservicio) SELECT ccodvta, i, '000101', 'CAFE', 10, 1, 0, 0 FROM venta01, generate_series(1, 20) i WHERE "
           "tipodoc = '01' AND cseriedoc = '099' AND nrodoc = '" +
           n + "'"});
    viaje({"INSERT INTO diario_acto (ccajacodi, cacto, cservidor, cestado, sfecha) VALUES ('00099', 'FADE 099-" + n +
           "', 'central', 'H', '24/11/2026 10:30:15')"});
    viaje({"COMMIT"});
    viaje({"DELETE FROM diario_acto WHERE ccajacodi = '00099' AND cacto = 'FADE 099-" + n + "'"});
    PQfinish(c_);
  }

 private:
  // Several statements with one round trip.
  void viaje(const QByteArrayList& sentencias) {
    PQenterPipelineMode(c_);
    for (const QByteArray& s : sentencias)
      PQsendQueryParams(c_, s.constData(), 0, nullptr, nullptr, nullptr, nullptr, 0);
    cerrar(static_cast<int>(sentencias.size()));
  }
  void cerrar(int pasos) {
    PQpipelineSync(c_);
    for (int i = 0; i <= pasos; ++i) {
      while (PGresult* r = PQgetResult(c_)) {
        const auto estado = PQresultStatus(r);
        const bool bien = estado == PGRES_TUPLES_OK || estado == PGRES_COMMAND_OK || estado == PGRES_PIPELINE_SYNC;
        PQclear(r);
        if (!bien) romper("the floor", q(PQerrorMessage(c_)));
        if (estado == PGRES_PIPELINE_SYNC) break;
      }
    }
    PQexitPipelineMode(c_);
  }

  CadenaConexion donde_;
  PGconn* c_ = nullptr;
  int van_ = 0;
};

// From the button to its paper, over stores and server alike; the card was looked up when it was typed.
void Fade20(benchmark::State& estado) {
  Credito base({}, servidoresEn(EnMotor::Postgres));
  FadeLlana llana(base.servidores->central);
  Duelo duelo(base.p, estado.range(0) != 0);
  duelo.conServidor([&llana] { llana.acto(); });
  CajaFacturacionPagos v = base.v;
  v.factura.txtTarjeta = q("00000007");
  duelo.aprender([&](Puesto& p) {
    base.v = v;
    base.cliente(0);
    base.v.factura.nIdLocal = 1;
    base.v.factura.txtLocal = q("1");
    base.v.factura.txtNombres = q("O'HIGGINS ANA");
    base.v.factura.tarjetaHallada = q("00000007");
    for (int i = 0; i < 20; ++i) {
      FilaVenta f;
      f[kCod] = q("101");
      f[kDescripcion] = q("CAFE");
      f[kCant] = q("1.00");
      f[kPrecio] = q("10.00");
      base.v.factura.rejilla.filas.push_back(f);
    }
    if (GrabarFactura(p, base.v, base.pantallas)) romper("the FADE is refused");
  });
  duelo.medir(estado, {q("SELECT nDocCodigo FROM Config_Documento WHERE cTipoDoc = '02'")});
}
BENCHMARK(Fade20)
    ->ArgName("disco")
    ->Arg(1)
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(vueltas(200))
    ->Unit(benchmark::kMicrosecond);

// A shop's accounts: one open document of ten, a payment on each.
struct Cuentas {
  Credito e;

  explicit Cuentas(EnMotor motor) : e({}, servidoresEn(motor)) {
    const QString filas =
        q("INSERT INTO Venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, cCodCaja, cClienteCode, IdLocal, DscCliente, "
          "TotVta, TotVtaUSD, cCodMoneda, nTipoCambio, cCodTipoCredito, fechaemision, bLiquidado) SELECT i, '01', "
          "'001', %1, '00001', %2, 1, 'APELLIDO ' || (i % %3) || ' NOMBRE', 100, 33.33, 'N', 3, '01', %4, "
          "CASE WHEN i % 10 = 0 THEN 0 ELSE 1 END FROM n; INSERT INTO Pagos (cSerieDocPago, NroDocPago, TipoDoc, "
          "cSerieDoc, NroDoc, NroItem, FormaPago, FechaPago, Monto, Moneda, nTipoCambio, cClieCode, idLocal) "
          "SELECT 'PA1', %1, '01', '001', %1, 1, '01', %4, 40, 'N', 3, i % %3, 1 FROM n;")
            .replace(q("%3"), QString::number(kClientes));
    if (motor == EnMotor::Postgres) {
      ServidorPrueba::uno().crudo(
          e.servidores->central,
          q("SET search_path = dbo; CREATE TEMP TABLE n AS SELECT generate_series(1, %1) AS i;").arg(kDocumentos) +
              QString(filas)
                  .replace(q("%1"), q("lpad(i::text, 6, '0')"))
                  .replace(q("%2"), q("lpad((i % %1)::text, 8, '0')").arg(kClientes))
                  .replace(q("%4"), q("timestamp '2026-01-01' + (i / 1000) * interval '1 day'")) +
              q("ANALYZE"));
      ServidorPrueba::uno().crudo(e.servidores->central, q("VACUUM dbo.venta01"));  // as a server does by itself
    } else {
      correrEn(e.p.rutas.enPrograma(q("central.db")),
               q("PRAGMA synchronous=OFF; BEGIN; CREATE TEMP TABLE n AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
                 "SELECT i + 1 FROM n WHERE i < %1) SELECT i FROM n;")
                       .arg(kDocumentos) +
                   QString(filas)
                       .replace(q("%1"), q("printf('%06d', i)"))
                       .replace(q("%2"), q("printf('%08d', i % %1)").arg(kClientes))
                       .replace(q("%4"), q("datetime('2026-01-01', '+' || (i / 1000) || ' days')")) +
                   q("COMMIT; ANALYZE"));
    }
  }
};

Cuentas& cuentas(int motor) {
  static std::unique_ptr<Cuentas> una;
  static int cual = -1;
  if (cual != motor) {
    una.reset();
    una = std::make_unique<Cuentas>(motor == 1 ? EnMotor::Postgres : EnMotor::Embebido);
    cual = motor;
  }
  return *una;
}

// What `abrir` shows until it is painted.
template <class Abrir>
void primeraPantalla(benchmark::State& estado, Abrir abrir) {
  std::vector<double> ms, procesador;
  for (auto _ : estado) {
    QElapsedTimer reloj;
    const double antes = procesador_us();
    reloj.start();
    const auto ventana = abrir();
    ventana->show();
    if (!QTest::qWaitForWindowExposed(ventana.get())) romper("the window does not come up");
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 0);
    const double s = static_cast<double>(reloj.nsecsElapsed()) / 1e9;
    estado.SetIterationTime(s);
    ms.push_back(s * 1e3);
    procesador.push_back((procesador_us() - antes) / 1e3);
  }
  estado.counters["mediana_ms"] = mediana(ms);
  estado.counters["cpu_ms"] = mediana(procesador);
}

void Pendientes20000(benchmark::State& estado) {
  Cuentas& c = cuentas(static_cast<int>(estado.range(0)));
  const PendientesDe para[] = {PendientesDe::Pago, PendientesDe::Consumo, PendientesDe::Liquidacion};
  primeraPantalla(estado, [&] {
    auto f = std::make_unique<frmDocumentosPendientes>(c.e.p, para[estado.range(1)], DocCredito::FADE);
    if (f->documentos().rs.RecordCount() != kDocumentos / 10) romper("the documents are not there");
    return f;
  });
}
BENCHMARK(Pendientes20000)
    ->ArgNames({"motor", "lista"})
    ->ArgsProduct({{0, 1}, {0, 1, 2}})
    ->UseManualTime()
    ->Iterations(vueltas(9))
    ->Unit(benchmark::kMillisecond);

void Arbol200000(benchmark::State& estado) {
  Cuentas& c = cuentas(static_cast<int>(estado.range(0)));
  primeraPantalla(estado, [&] { return std::make_unique<frmConsCtaCteCliente>(c.e.p); });
}
BENCHMARK(Arbol200000)
    ->ArgName("motor")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Iterations(vueltas(9))
    ->Unit(benchmark::kMillisecond);

// Thirty days out of ten years.
void Consulta1000000(benchmark::State& estado) {
  PuestoPrueba p;
  correrEn(
      p.ses.psRutaBD,
      q("PRAGMA synchronous=OFF; BEGIN; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
        "INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, nTarjNumb, sGlosa, nMontoSoles, cEstado, "
        "cCajaCodi, cDocTipo, cDocSerie, cDocCodigo, cOperFlagAbierto) SELECT i, 20 + i % 4, "
        "datetime('2026-11-24', '-' || (i * 3650 / %1) || ' days'), '00000007', 'REF', 10.5, 1 + i % 2, '00001', '2', "
        "'NC1', i, 0 FROM n; COMMIT; ANALYZE")
          .arg(kParalelas));
  const QString desde = q("25/10/2026"), hasta = q("23/11/2026");
  std::vector<double> ms;
  for (auto _ : estado) {
    QElapsedTimer reloj;
    reloj.start();
    std::vector<FilaOperacionParalela> filas;
    QString mal;
    if (!BuscarOperaciones(p, {static_cast<int>(estado.range(0)), 0, desde, hasta}, filas, mal) || filas.empty()) {
      romper("the rows are not there");
    }
    ms.push_back(static_cast<double>(reloj.nsecsElapsed()) / 1e6);
    estado.counters["filas"] = static_cast<double>(filas.size());
    estado.SetIterationTime(ms.back() / 1e3);
  }
  estado.counters["mediana_ms"] = mediana(ms);
}
BENCHMARK(Consulta1000000)
    ->ArgName("tipo")
    ->Arg(0)
    ->Arg(2)
    ->UseManualTime()
    ->Iterations(vueltas(15))
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return MedirConVentanas(argc, argv); }
