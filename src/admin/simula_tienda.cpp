#include "admin/simula_tienda.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QThread>

#include "admin/azar.h"
#include "admin/ordenes.h"
#include "admin/simula_caja.h"
#include "alta/crear_puesto.h"
#include "alta/crear_servidor.h"
#include "alta/tienda_demo.h"
#include "platform/text/numero.h"
#include "postgres/base_postgres.h"

#ifdef Q_OS_UNIX
#include <signal.h>
#endif

namespace {

constexpr int kEsperaServidor_ms = 60'000;
constexpr int kEsperaCaja_ms = 900'000;
constexpr int kVeces = 40;  // a desk dies so often in a day at most

QString q(const char* s) { return QString::fromUtf8(s); }

QString archivoDeHechos(const PlanSimulacion& plan) { return plan.carpeta + q("/hechos"); }

}  // namespace

TiendaSimulada::~TiendaSimulada() {
  if (!servidor_) return;
#ifdef Q_OS_UNIX
  if (servidor_->state() != QProcess::NotRunning) ::kill(static_cast<pid_t>(servidor_->processId()), SIGINT);
#endif
  servidor_->waitForFinished(kEsperaServidor_ms);
}

TiendaSimulada::Fallo TiendaSimulada::arrancarServidor() {
  // Only loopback, only invented rows: checking a password at thousands of connections would be most of the work.
  QFile acceso(demo_.carpeta + q("/acceso"));
  if (!acceso.open(QIODevice::WriteOnly) || acceso.write("host all all 127.0.0.1/32 trust\n") < 0) {
    return acceso.errorString();
  }
  acceso.close();
  const QStringList orden =
      OrdenServidorDemo(demo_,
                        {q("hba_file=") + acceso.fileName(), q("fsync=off"), q("deadlock_timeout=200ms"),
                         q("max_connections=%1").arg(plan_.puestos * 6 + 20)},
                        true);
  servidor_ = std::make_unique<QProcess>();
  servidor_->setWorkingDirectory(q("/"));
  servidor_->setProcessChannelMode(QProcess::MergedChannels);
  servidor_->setStandardOutputFile(demo_.carpeta + q("/servidor.log"), QIODevice::Append);
  servidor_->start(orden.value(0), orden.mid(1));
  servidor_->waitForStarted();
  demo_.proceso = servidor_->processId();
  if (EsperarServidorDemo(demo_, kEsperaServidor_ms)) return {};
  return q("El servidor de %1 no arranca; vea %1/servidor.log.").arg(demo_.carpeta);
}

// Without a chance to end anything, as when the power goes; then it is begun anew.
void TiendaSimulada::caerServidor() {
#ifdef Q_OS_UNIX
  ::kill(static_cast<pid_t>(servidor_->processId()), SIGQUIT);
#endif
  servidor_->waitForFinished(kEsperaServidor_ms);
  if (const auto e = arrancarServidor()) Quejarse(*e);
}

TiendaSimulada::Fallo TiendaSimulada::abrir(Conexion& cnn, bool central) {
  const auto servidor = leerServidorPostgres(BaseDeSimulacion(plan_, central));
  if (!servidor) return q("El servidor «%1» no se entiende.").arg(plan_.servidor);
  const auto error = cnn.abrir(*motores_, cadenaDe(*servidor), kEsperaServidor_ms);
  if (error) return error->descripcion;
  return {};
}

TiendaSimulada::Fallo TiendaSimulada::hacerBases() {
  const QDateTime ahora(DiaSimulado(1), QTime(7, 0));
  for (const BaseServidor base : {BaseServidor::Central, BaseServidor::Cliente}) {
    const bool central = base == BaseServidor::Central;
    const auto servidor = leerServidorPostgres(BaseDeSimulacion(plan_, central));
    if (!servidor) return q("El servidor «%1» no se entiende.").arg(plan_.servidor);
    const ResultadoBase r = CrearBasePostgres(
        *servidor, base,
        central ? FilasDelCentral(q("01")) + TiendaDelCentral(ahora)
                : FilasDelCliente() + TiendaDelCliente(ahora) + QStringList{q("UPDATE Cliente SET nPuntCant = 0")});
    if (r.fin == FinBase::YaEstaba) return q("La base %1 ya existe; no se ha tocado.").arg(servidor->catalogo);
    if (r.fin != FinBase::Hecha) return r.palabras;
  }
  for (int n = 1; n <= plan_.puestos; ++n) {
    DatosPuesto d;
    d.carpeta = plan_.caja(n);
    d.caja = plan_.codigo(n);
    d.central = BaseDeSimulacion(plan_, true);
    d.cliente = BaseDeSimulacion(plan_, false);
    d.clave = q("super");
    d.demo = true;
    d.ahora = ahora;
    if (auto e = CrearPuesto(d)) return e;
  }
  return {};
}

TiendaSimulada::Fallo TiendaSimulada::preparar(int& hechos) {
  motores_ = motoresDelSistema(plan_.carpeta);
  QFile f(archivoDeHechos(plan_));
  const bool sigue = f.open(QIODevice::ReadOnly);
  hechos = sigue ? f.readAll().trimmed().toInt() : 0;
  const bool propio =
      sigue ? plan_.puertoLocal > 0 && QDir(plan_.carpeta + q("/servidor")).exists() : plan_.servidor.isEmpty();
  if (propio) {
    if (auto e = PrepararServidorDemo(plan_.carpeta + q("/servidor"), demo_)) return e;
    if (sigue) demo_.puerto = plan_.puertoLocal;
    plan_.puertoLocal = demo_.puerto;
    plan_.servidor = demo_.palabras();
    if (auto e = arrancarServidor()) return e;
  }
  if (sigue) return {};
  if (auto e = GuardarPlan(plan_)) return e;
  if (auto e = hacerBases()) return e;
  if (!f.open(QIODevice::WriteOnly)) return f.errorString();
  f.write("0\n");
  return {};
}

// What the centre does to prices, articles and customers, by its own clock.
TiendaSimulada::Fallo TiendaSimulada::cambiarMaestros(int dia) {
  Azar azar(SemillaDe(plan_, 0, dia, 0, 8));
  if (!plan_.con(kFallasSimuladas[4]) || !azar.unoDe(2)) return {};
  Conexion central, cliente;
  if (auto e = abrir(central, true)) return e;
  if (auto e = abrir(cliente, false)) return e;
  const auto correr = [](Conexion& cnn, const Sql& sql) -> Fallo {
    const auto e = cnn.ejecutar(sql);
    if (e) return e->descripcion;
    return {};
  };
  Recordset rs;
  if (const auto e =
          central.consultar(u"SELECT cCodartic FROM Articulo WHERE bSwActivo = 0 ORDER BY cCodartic"_sql, rs)) {
    return e->descripcion;
  }
  std::vector<QString> articulos;
  for (const auto& r : rs) articulos.push_back(LimpiarNulo(r[0]));
  const auto precio = [&](const QString& articulo) {
    return correr(central,
                  FormatearSQL(u"INSERT INTO ArticuloPrecioVenta (cCodArtic, nNumItem, nPrecioVtaNew) SELECT '$', "
                               "ISNULL(MAX(nNumItem),0) + 1, $ FROM ArticuloPrecioVenta WHERE cCodArtic = '$'"_sql,
                               {Texto(articulo), azar.entre(10, 400) / 10.0, Texto(articulo)}));
  };
  if (auto e = precio(azar.de(articulos))) return e;
  const QString nuevo = QString::number(3000 + dia).rightJustified(6, u'0');
  if (azar.unoDe(3)) {
    if (auto e = correr(
            central,
            FormatearSQL(u"INSERT INTO Articulo (cCodartic, vDscartic, cCodCatal, vDscartCt, bSwActivo, cUndSalida, "
                         "bFlagVenta, bFlagDesc, CCODLINEA, dFechCrea, dFechModi) VALUES ('$', 'ARTICULO $', "
                         "'N$', 'NUEVO $', 0, 'UND', 1, 0, '01', GETDATE(), GETDATE())"_sql,
                         {Texto(nuevo), dia, dia, dia}))) {
      return e;
    }
    if (auto e = precio(nuevo)) return e;
  }
  if (azar.unoDe(3)) {
    if (auto e = correr(central,
                        FormatearSQL(u"UPDATE Articulo SET bFlagVenta = 1 - bFlagVenta, dFechModi = GETDATE() WHERE "
                                     "cCodartic = '$'"_sql,
                                     {Texto(azar.de(articulos))}))) {
      return e;
    }
  }
  if (azar.unoDe(3)) {
    for (Conexion* cnn : {&central, &cliente}) {
      const Sql fechas = cnn == &central ? Sql(u", dFechCrea, dFechModi"_sql) : Sql();
      const Sql ahora = cnn == &central ? Sql(u", GETDATE(), GETDATE()"_sql) : Sql();
      if (auto e =
              correr(*cnn, u"INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, iTipo, nPuntCant"_sql +
                               fechas + FormatearSQL(u") VALUES ($, 1, 'NUEVO', 'CLIENTE', 1, 0"_sql, {1000 + dia}) +
                               ahora + u")"_sql)) {
        return e;
      }
    }
  }
  return {};
}

QStringList TiendaSimulada::ordenDe(int caja, int dia, const QStringList& mas) const {
  return QStringList{q("simular"),          q("--dir"), plan_.carpeta,       q("--caja"),
                     QString::number(caja), q("--dia"), QString::number(dia)} +
         mas;
}

// A desk that kills itself is begun again, as its shop would.
TiendaSimulada::Fallo TiendaSimulada::todas(const QStringList& mas, int dia, const std::function<bool()>& entretanto) {
  struct Marcha {
    std::unique_ptr<QProcess> proceso;
    int veces = 0;
  };
  std::vector<Marcha> marchas(static_cast<size_t>(plan_.puestos));
  const auto lanzar = [&](int n) {
    Marcha& m = marchas[static_cast<size_t>(n - 1)];
    m.proceso = std::make_unique<QProcess>();
    m.proceso->setProcessChannelMode(QProcess::ForwardedChannels);
    m.proceso->start(QCoreApplication::applicationFilePath(), ordenDe(n, dia, mas));
    ++m.veces;
  };
  for (int n = 1; n <= plan_.puestos; ++n) lanzar(n);
  QElapsedTimer reloj;
  reloj.start();
  bool hecho = false;
  Fallo fallo;
  for (int vivas = plan_.puestos; vivas > 0;) {
    vivas = 0;
    for (int n = 1; n <= plan_.puestos; ++n) {
      Marcha& m = marchas[static_cast<size_t>(n - 1)];
      if (!m.proceso) continue;
      if (!m.proceso->waitForFinished(10) && m.proceso->state() != QProcess::NotRunning) {
        ++vivas;
        continue;
      }
      const bool empezo = m.proceso->error() != QProcess::FailedToStart;
      const bool murio = m.proceso->exitStatus() == QProcess::CrashExit;
      const int estado = m.proceso->exitCode();
      m.proceso.reset();
      if (murio && empezo && m.veces < kVeces) {
        ++vivas;
        lanzar(n);
      } else if (murio || !empezo || estado != kBien) {
        fallo = q("La caja %1 no terminó el día %2.").arg(plan_.codigo(n)).arg(dia);
      }
    }
    hecho = hecho || entretanto();
    if (reloj.elapsed() > kEsperaCaja_ms) return q("El día %1 no termina.").arg(dia);
  }
  return fallo;
}

TiendaSimulada::Fallo TiendaSimulada::jugar(int dia) {
  const int cae = ServidorCaeElDia(plan_, dia) ? Azar(SemillaDe(plan_, 0, dia, 0, 9)).entre(300, 3000) : 0;
  QElapsedTimer reloj;
  reloj.start();
  Fallo maestros = cambiarMaestros(dia);
  if (maestros) return maestros;
  const auto entretanto = [&] {
    if (reloj.elapsed() < cae) return false;
    if (cae > 0) caerServidor();
    return true;
  };
  if (auto e = todas({}, dia, entretanto)) return e;
  QFile f(archivoDeHechos(plan_));
  if (!f.open(QIODevice::WriteOnly)) return f.errorString();
  f.write(QByteArray::number(dia) + '\n');
  return {};
}

TiendaSimulada::Fallo TiendaSimulada::terminar(ResultadoCotejo& r) {
  if (auto e = todas({q("--ultima")}, plan_.dias + 1, [] { return true; })) Quejarse(*e);  // the proof tells it
  Conexion central, cliente;
  if (auto e = abrir(central, true)) return e;
  if (auto e = abrir(cliente, false)) return e;
  r = CotejarSimulacion(plan_, central, cliente);
  return {};
}

TiendaSimulada::Fallo TiendaSimulada::contarEnviadas(qint64& filas, qint64& nudos) {
  Conexion central;
  if (auto e = abrir(central, true)) return e;
  Recordset rs;
  if (const auto e = central.consultar(u"SELECT COUNT(*) FROM Operacion"_sql, rs)) return e->descripcion;
  filas = AEntero(Numero(rs[0]));
  if (const auto e = central.consultar(u"SELECT SUM(deadlocks) FROM pg_stat_database"_sql, rs)) return e->descripcion;
  nudos = AEntero(Numero(rs[0]));
  return {};
}
