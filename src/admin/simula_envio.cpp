#include "admin/simula_envio.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include "admin/ordenes.h"
#include "admin/simula_caja.h"
#include "admin/simula_tienda.h"
#include "app/arranque.h"
#include "foundation/transaccion.h"
#include "platform/text/numero.h"
#include "servidores.h"
#include "store/numeracion.h"
#include "sync/sincronizar.h"
#include "sync/updt.h"

namespace {

constexpr int kLineasPorTicket = 3;
constexpr int kEsperaSalida_ms = 600'000;

QString q(const char* s) { return QString::fromUtf8(s); }
QString salida(const PlanSimulacion& plan) { return plan.carpeta + q("/ya"); }
QString listo(const PlanSimulacion& plan, int caja) { return plan.carpeta + q("/listo%1").arg(caja); }
QString tiempo(const PlanSimulacion& plan, int caja) { return plan.carpeta + q("/tiempo%1").arg(caja); }

std::optional<QString> escribir(const QString& archivo, const QByteArray& bytes) {
  QFile f(archivo);
  if (f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size()) return {};
  return f.errorString();
}

bool esperarArchivo(const QString& archivo) {
  QElapsedTimer reloj;
  for (reloj.start(); !QFile::exists(archivo); QThread::msleep(10)) {
    if (reloj.elapsed() > kEsperaSalida_ms) return false;
  }
  return true;
}

}  // namespace

std::optional<QString> LlenarPorEnviar(const PlanSimulacion& plan, int caja, int filas) {
  const auto motores = motoresDelSistema(plan.caja(caja));
  Conexion cnn;
  const QString almacen =
      q("driver={Microsoft Access Driver (*.mdb)};DBQ=") + plan.caja(caja) + QStringLiteral("/TarvoPos.mdb");
  if (const auto e = cnn.abrir(*motores, almacen, 5000)) return e->descripcion;
  const Texto codigo(plan.codigo(caja)), serie(SerieInicial(TipoDocumento::Boleta, plan.codigo(caja)));
  const QDateTime abre(DiaSimulado(1), QTime(8, 0));
  const int articulos[] = {101, 102, 104, 105, 107};
  std::vector<Sql> sentencias;
  for (int n = 0; n < filas; ++n) {
    const int ticket = n / kLineasPorTicket + 1;
    sentencias.push_back(FormatearSQL(
        u"INSERT INTO Operacion (cOperCode, cUserDesc, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, dOperFech, "
        "cOperTipo, cCajaCodi, cTurnoCodi, cDocTipo, cDocSerie, cDocCodigo, cOperFlagAbierto, cFlagSincronizacion) "
        "VALUES ($, 'CAJERO', '01', $, $, $, '$', $, '$', '01', '02', '$', $, 0, '0')"_sql,
        {ticket, articulos[n % 5], n % 4 + 1, 1.5 + n % 50, abre.addSecs(ticket * 7), Codigo(TipoOperacion::Efectivo),
         codigo, serie, ticket}));
  }
  sentencias.push_back(FormatearSQL(
      u"INSERT INTO CabeceraZ (IdZ, Caja, Fecha, cOperIdIni, cOperIdFin, cOperIdPIni, cOperIdPFin, bFlagSincro) VALUES "
      "(1, '$', '$', 0, $, 0, 0, 0)"_sql,
      {codigo, abre, filas}));
  if (const auto e = EjecutarJuntas(cnn, sentencias)) return e->descripcion;
  return {};
}

int EnviarALaVez(const PlanSimulacion& plan, int caja) {
  const QString carpeta = plan.caja(caja);
  RelojParado reloj;
  reloj.ahora = QDateTime(DiaSimulado(2), QTime(8, 0));
  PersonaQueAsiente persona;
  SalidaComoExcepcion fin;
  PuertosSistema puertos(carpeta);
  const auto motores = motoresDelSistema(carpeta, {[&] { return reloj.now(); }, procedimientosDeServidores(), {}});
  Puesto p(*motores, puertos, reloj, persona, fin, rutasDe(carpeta));
  bool bien = false;
  try {
    Arrancar(p, {});
    p.ses.pbSincronizaMaestros = false;
    if (escribir(listo(plan, caja), "1\n") || !esperarArchivo(salida(plan))) return kFallo;
    QElapsedTimer t;
    t.start();
    FrmUpdt pantalla(p);
    bien = Sincronizar(p, pantalla);
    const QByteArray tardo = QByteArray::number(t.elapsed());
    if (escribir(tiempo(plan, caja), tardo)) return kFallo;
  } catch (const ProgramaTerminado&) {
  }
  if (!bien) Quejarse(q("caja %1: ").arg(caja) + persona.cajas.join(u'/'));
  return bien ? kBien : kFallo;
}

bool MedirEnvio(TiendaSimulada& tienda, int filas, QStringList& dicho) {
  const PlanSimulacion& plan = tienda.plan();
  for (int n = 1; n <= plan.puestos; ++n) {
    if (const auto e = LlenarPorEnviar(plan, n, filas)) {
      dicho << *e;
      return false;
    }
  }
  const auto salen = [&] {
    for (int n = 1; n <= plan.puestos; ++n) {
      if (!QFile::exists(listo(plan, n))) return false;
    }
    return !escribir(salida(plan), "ya\n").has_value();
  };
  const auto fallo = tienda.todas({q("--envio"), QString::number(filas)}, 1, salen);
  if (fallo) dicho << *fallo;
  double segundos = 0.001;  // of the slowest desk: all begin together
  for (int n = 1; n <= plan.puestos; ++n) {
    QFile f(tiempo(plan, n));
    if (f.open(QIODevice::ReadOnly)) segundos = std::max(segundos, f.readAll().toDouble() / 1000);
  }
  qint64 hay = 0, nudos = 0;
  if (const auto e = tienda.contarEnviadas(hay, nudos)) {
    dicho << *e;
    return false;
  }
  const qint64 debidas = qint64(filas) * plan.puestos;
  dicho << q("%1 cajas a la vez, %2 filas cada una: %3 filas en %4 s, %5 por segundo; nudos de cerrojos deshechos: %6")
               .arg(plan.puestos)
               .arg(filas)
               .arg(hay)
               .arg(Formatear(segundos, u"0.00"), Formatear(static_cast<double>(hay) / segundos, u"0"))
               .arg(nudos);
  if (hay != debidas) dicho << q("DIFERENCIA: van %1 filas").arg(debidas);
  return hay == debidas && !fallo;
}
