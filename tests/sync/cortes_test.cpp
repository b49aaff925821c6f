// Push, purge, reprocess, pull and the queue of points, with a statement that fails, the process dying before or behind
// it, a server that goes away there, or the wire to it cut before or behind an exchange: the next run ends as an
// undisturbed one, on the embedded servers and on PostgreSQL. Some points of each; all of them in the long run.
#include <QFile>
#include <QThread>
#include <atomic>
#include <thread>

#include "apoyo/cable.h"
#include "apoyo/servidor_prueba.h"
#include "loyalty/cliente_bd.h"
#include "loyalty/pendientes.h"
#include "sync/reproceso.h"
#include "sync_prueba.h"

using namespace prueba_sync;

namespace {

const QString kDia = QStringLiteral("20/11/2026");

struct Plan : PlanFallas {
  Plan() {
    cuenta = {};
    catalogo = false;
    morir = [] { throw Muerto(); };
  }
};

// A desk and its servers, as they stood before an act as often as they are asked for.
class Puestos {
 public:
  explicit Puestos(bool postgres) : p([this](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); }) {
    if (!postgres) return;
    servidor_.emplace();
    p.ses.psConexionCentral = cadena(servidor_->central);
    p.ses.psConexionCliente = cadena(servidor_->cliente);
  }
  Cable& cable() { return servidor_->cable; }
  const CadenaConexion& central() const { return servidor_->central; }
  Conexion& cliente() {
    EXPECT_TRUE(p.poCnnCliente.abierta() || p.poDBAdmin.AbrirBD(p.poCnnCliente, p.ses.psConexionCliente));
    return p.poCnnCliente;
  }

  void guardar() {
    cerrar();
    sesion_ = p.ses;
    hora_ = p.elReloj().ahora;
    for (const char* nombre : {"TarvoPos.mdb", "central.db", "cliente.db"}) {
      QFile f(p.rutas.enPrograma(q(nombre)));
      EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << nombre;
      archivos_.emplace_back(f.fileName(), f.readAll());
    }
    if (servidor_) enServidor(q("CREATE TABLE copia.%1 AS TABLE dbo.%1;"), q("CREATE SCHEMA copia;"));
    seguir();
  }
  void devolver() {
    cerrar();
    for (const auto& [nombre, bytes] : archivos_) {
      for (const char* fin : {"-wal", "-shm"}) QFile::remove(nombre + q(fin));
      QFile f(nombre);
      EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
    }
    if (servidor_) enServidor(q("DELETE FROM dbo.%1; INSERT INTO dbo.%1 OVERRIDING SYSTEM VALUE TABLE copia.%1;"));
    p.elReloj().ahora = hora_;
    seguir();
  }
  // As after a start, with everything mended.
  void empezarDeNuevo() {
    plan.armar(0);
    plan.apagar(false);
    if (servidor_) servidor_->cable.arreglar();
    cerrar();
    // What was on its way when the wire was cut has come to its end there.
    while (servidor_ && sesiones() > 0) QThread::msleep(5);
    seguir();
  }

  Plan plan;
  CajaConDias p;

 private:
  struct Servidor {
    CadenaConexion central = ServidorPrueba::uno().base(BaseServidor::Central),
                   cliente = ServidorPrueba::uno().base(BaseServidor::Cliente);
    Cable cable{ServidorPrueba::uno().servidor()};
  };
  QString cadena(const CadenaConexion& c) const {
    return cadenaDeServidor(c.usuario, c.clave, c.catalogo, q("postgres:") + servidor_->cable.servidor());
  }
  // For each table of the servers that a desk writes.
  void enServidor(const QString& porTabla, const QString& antes = {}) {
    const QStringList central{q("Operacion"),          q("OperacionParalela"), q("OperacionParalelaProducto"),
                              q("CabeceraZ"),          q("DetalleZ"),          q("TCABECERAZ1"),
                              q("TDETALLEZ1"),         q("Cuentacte"),         q("ZANKEBMOVIVNTA"),
                              q("SincronizacionCaja"), q("SaldoArticulo")},
        cliente{q("Cliente"), q("Acumulacion_Punto")};
    for (const auto& [base, tablas] : {std::pair(servidor_->central, central), {servidor_->cliente, cliente}}) {
      QString todo = antes;
      for (const QString& t : tablas) todo += porTabla.arg(t);
      ServidorPrueba::uno().crudo(base, todo);
    }
  }
  int sesiones() {
    return ServidorPrueba::uno()
        .crudo(servidor_->central, q("SELECT count(*) FROM pg_stat_activity WHERE datname IN ('%1', '%2') AND pid <> "
                                     "pg_backend_pid()")
                                       .arg(servidor_->central.catalogo, servidor_->cliente.catalogo))[0]
        .toInt();
  }
  void cerrar() {
    for (Conexion* c : {&p.poCnnLocal, &p.poCnnCentral, &p.poCnnCliente}) c->cerrar();
  }
  void seguir() {
    if (!sesion_.psCaja.isEmpty()) p.ses = sesion_;
    abrirAlmacen(p);
  }

  std::optional<Servidor> servidor_;
  std::vector<std::pair<QString, QByteArray>> archivos_;
  decltype(Puesto::ses) sesion_;
  QDateTime hora_;
};

struct Escena {
  const char* nombre;
  void (*preparar)(Puestos&);
  void (*hacer)(Puestos&);
  QString (*historia)(Puestos&);
};

void enviar(Puestos& e) { (void)sincronizar(e.p); }
void traer(Puestos& e) { (void)sincronizar(e.p, true); }
void mandarPuntos(Puestos& e) {
  e.p.elReloj().ahora = e.p.elReloj().ahora.addSecs(120);
  if (ConectarCliente(e.p, false)) EnviarPendientesCliente(e.p);
  DesconectarCliente(e.p);
}

QString enviado(Puestos& e) {
  return e.p.todoElCentral() + e.p.porEnviar() + e.p.enCentral("SELECT COUNT(*), SUM(nMonto) FROM Cuentacte");
}
QString traido(Puestos& e) {
  QString todo;
  for (const char* sql : {"SELECT cUndmedid, vDscundmd FROM UnidadMedida ORDER BY 1",
                          "SELECT cProdCode, sProdDesc, nProdPrecUnit, nActivo, vDescProv FROM Producto ORDER BY 1",
                          "SELECT cClieCode, IdLocal, sClieApel, nPuntCant FROM Cliente ORDER BY 1, 2",
                          "SELECT nTarjNumb, IdLocal, cTarjActi FROM Tarjeta ORDER BY 1, 2",
                          "SELECT cTeclCode, cProdCode FROM ConfiguracionTeclado ORDER BY 1"}) {
    todo += q("\n-\n") + e.p.filas(q(sql));
  }
  return todo;
}

// clang-format off
const Escena kEscenas[] = {
    {"Envio", [](Puestos& e) { e.p.diaCorto(kDia); }, enviar, enviado},
    // A document that was sent is settled, its neighbour voided, and another day closed.
    {"Estados", [](Puestos& e) {
       e.p.diaCorto(kDia); EXPECT_TRUE(sincronizar(e.p).bien); e.p.dia(q("21/11/2026"), 10);
       e.p.ejecuta(q("UPDATE OperacionParalela SET cEstado = '2', cOperCodeRela = 9 WHERE cOperCode = 1"));
       e.p.ejecuta(q("UPDATE OperacionParalela SET cEstado = '0', cOperCodeAnul = 9 WHERE cOperCode = 2")); },
     enviar, enviado},
    {"Lote", [](Puestos& e) {
       for (int d = 0; d < 9; ++d) e.p.dia(q("0%1/11/2026").arg(d + 1), 10 + 10 * d); },
     enviar, [](Puestos& e) { return enviado(e) + e.p.viejas(); }},
    {"Reproceso", [](Puestos& e) {
       e.p.diaCorto(kDia); EXPECT_TRUE(sincronizar(e.p).bien); e.p.persona().dejaPasar(kDia);
       e.p.ejecuta(e.p.central(), q("DELETE FROM Operacion"));
       e.p.ejecuta(e.p.central(), q("UPDATE OperacionParalela SET nMontoSoles = 1")); },
     [](Puestos& e) { FrmUpdt v(e.p); SincronizarFecha(e.p, v); }, enviado},
    {"Primera", [](Puestos& e) {
       maestros(e.p); e.p.ejecuta(q("UPDATE Sincronizacion SET dFechSincro = Null")); },
     traer, traido},
    // As many as go in by the quick way.
    {"PrimeraEnLotes", [](Puestos& e) {
       maestros(e.p); e.p.ejecuta(q("UPDATE Sincronizacion SET dFechSincro = Null"));
       for (int i = 0; i < 45; ++i) {
         articuloCentral(e.p, qPrintable(q("%1").arg(2000 + i, 6, 10, QChar(u'0'))), "DE MUCHOS", i);
         e.p.ejecuta(e.p.central(), q("INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, iTipo, dFechCrea) VALUES "
                                      "(%1, 1, 'D''ORO', 1, '20261101')").arg(2000 + i)); } },
     traer, traido},
    {"Traida", [](Puestos& e) {
       maestros(e.p); EXPECT_TRUE(sincronizar(e.p, true).bien);
       e.p.ejecuta(q("INSERT INTO ConfiguracionTeclado (cTeclCode, cTeclFlagAsig, cProdCode) VALUES (1, '1', 206)"));
       e.p.ejecuta(q("UPDATE Sincronizacion SET dFechSincro = '24/11/2026'"));  // a server has its own clock
       cambiosDeMaestros(e.p); },
     traer, traido},
    {"Puntos", [](Puestos& e) {
       for (const char* sql : {"INSERT INTO Cliente (cClieCode, IdLocal, iTipo, nPuntCant) VALUES (5, 1, 1, 20)",
                               "INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb) VALUES (5, 1, '00000005')"}) {
         e.p.ejecuta(e.cliente(), q(sql)); }
       e.p.ejecuta(q("INSERT INTO Cliente (cClieCode, IdLocal, dUltTDate, cTranCode, cSincroFlag) VALUES (5, 1, "
                     "'24/11/2026', 1, 0)"));
       for (int n = 1; n < 3; ++n) {
         e.p.ejecuta(q("INSERT INTO Acumulacion_Punto (cClieCode, cAcumCode, nTarjNumb, nAcumImpo, nPuntCant, "
                       "dAcumDate, cDocTipo, cDocSerie, cDocCodigo, IdLocal, cSincroFlag) VALUES (5, %1, '00000005', "
                       "30, 3, '24/11/2026', '02', '001', %1, 1, 0)").arg(n)); } },
     mandarPuntos, [](Puestos& e) {
       return e.p.filas(e.cliente(), q("SELECT nPuntCant, cTranCode, dUltTDate FROM Cliente")) +
              e.p.filas(e.cliente(), q("SELECT cAcumCode, cDocCodigo, nPuntCant FROM Acumulacion_Punto ORDER BY 1")) +
              e.p.filas(q("SELECT SUM(cSincroFlag) FROM Acumulacion_Punto")); }},
};
// clang-format on

enum class Modo { Falla, MuereAntes, MuereDespues, CaeServidor, CorteAntes, CorteEnCamino, CorteDespues };

bool corta(Modo m) { return m >= Modo::CorteAntes; }

// One act with the fault at its n-th step; false when it was over before.
bool conFalla(Puestos& e, const Escena& escena, Modo modo, int n) {
  const Muerte muerte = modo == Modo::MuereAntes     ? Muerte::antes
                        : modo == Modo::MuereDespues ? Muerte::despues
                                                     : Muerte::no;
  const Cable::Corte corte = modo == Modo::CorteAntes      ? Cable::Corte::Antes
                             : modo == Modo::CorteEnCamino ? Cable::Corte::EnCamino
                                                           : Cable::Corte::Despues;
  if (corta(modo)) e.cable().cortar(n, corte, false);
  else e.plan.armar(n, modo == Modo::CaeServidor ? Falla::desdeAhi : Falla::unaVez, muerte);
  try {
    escena.hacer(e);
  } catch (const Muerto&) {
    return true;
  }
  return corta(modo) ? e.cable().cortado() : muerte == Muerte::no && e.plan.van() >= n;
}

class Cortes : public testing::TestWithParam<std::tuple<bool, Escena>> {};

TEST_P(Cortes, TheNextRunEndsAsAnUndisturbedOne) {
  const auto& [postgres, escena] = GetParam();
  Puestos e(postgres);
  escena.preparar(e);
  e.guardar();
  const QString marca = e.p.filas(q("SELECT FORMAT(dFechSincro, 'dd/mm/yyyy') FROM Sincronizacion"));
  e.plan.armar(0);
  escena.hacer(e);
  const int total = e.plan.van();
  escena.hacer(e);
  const QString esperado = escena.historia(e);
  const std::vector<Modo> embebido{Modo::Falla, Modo::MuereAntes, Modo::MuereDespues, Modo::CaeServidor},
      deServidor{Modo::MuereAntes, Modo::MuereDespues, Modo::CorteAntes, Modo::CorteEnCamino, Modo::CorteDespues};
  int vez = 0;
  for (const Modo modo : postgres ? deServidor : embebido) {
    // A server alone goes away: the store's statements do not count.
    e.plan.cuenta = {};
    if (modo == Modo::CaeServidor) {
      e.plan.cuenta = [](const QString& cadena) { return leerCadenaConexion(cadena).tipo != TipoMotor::Local; };
    }
    const int pasos = corta(modo) ? total / 3 : total;  // most statements ask the store
    const int paso = qEnvironmentVariableIsSet("TARVOPOS_LARGO") ? 1 : qMax(1, pasos / (postgres ? 2 : 3));
    int tocados = 0;
    for (int n = 1 + ++vez % paso;; n += paso, ++tocados) {
      e.devolver();
      e.empezarDeNuevo();
      const bool tocado = conFalla(e, escena, modo, n);
      const QString sentencia = e.plan.sentencias.value(n - 1);
      SCOPED_TRACE(QStringLiteral("%1 %2 %3").arg(static_cast<int>(modo)).arg(n).arg(sentencia).toStdString());
      e.empezarDeNuevo();
      if (!tocado) break;
      // A row of the pull that failed is not tried again by itself.
      if (modo == Modo::Falla) {
        e.p.ejecuta(marca.isEmpty() ? q("UPDATE Sincronizacion SET dFechSincro = Null")
                                    : q("UPDATE Sincronizacion SET dFechSincro = '%1'").arg(marca));
      }
      escena.hacer(e);
      escena.hacer(e);  // what a Z that could not go has left
      // A detail that fails takes only itself back.
      if (modo == Modo::Falla && sentencia.startsWith(q("INSERT INTO TDETALLEZ1"))) continue;
      ASSERT_EQ(esperado, escena.historia(e));
    }
    EXPECT_GT(tocados, 0);
  }
}

std::string nombreDe(const testing::TestParamInfo<std::tuple<bool, Escena>>& caso) {
  return std::string(std::get<1>(caso.param).nombre) + (std::get<0>(caso.param) ? "Postgres" : "Embebido");
}

INSTANTIATE_TEST_SUITE_P(Sync, Cortes, testing::Combine(testing::Bool(), testing::ValuesIn(kEscenas)), nombreDe);

// The commit of a push whose wire was cut may still be on its way when the next one looks what stands there.
TEST(CortesPostgres, APushWaitsForTheOneThatIsOnItsWay) {
  Puestos t(true);
  t.p.diaCorto(kDia);
  Conexion otra;
  ASSERT_TRUE(t.p.poDBAdmin.AbrirBD(otra, t.p.ses.psConexionCentral));
  ASSERT_FALSE(otra.iniciar());
  t.p.ejecuta(otra, q("dbo.spr_bloquear_serie 'envio-00001'"));
  t.p.ejecuta(otra, q("INSERT INTO OperacionParalela (cCajaCodi, cOperCode, cOperTipo, dOperFech, nMontoSoles, "
                      "nMontoDolares, cEstado, cDocTipo, cDocSerie, cDocCodigo) VALUES ('00001', 1, 20, '2026-11-20 "
                      "09:02:00', 38, 0, '1', '10', 'OC1', '000001')"));
  const auto hay = [&](const char* sql) { return ServidorPrueba::uno().crudo(t.central(), q(sql))[0].toInt(); };
  std::atomic<bool> acabo = false;
  std::thread enCamino([&] {
    while (!acabo && hay("SELECT count(*) FROM pg_locks WHERE NOT granted") == 0) QThread::msleep(5);
    EXPECT_FALSE(otra.confirmar());
  });
  EXPECT_TRUE(sincronizar(t.p).bien);
  acabo = true;
  enCamino.join();
  EXPECT_EQ(1, hay("SELECT count(*) FROM dbo.operacionparalela WHERE cdocserie = 'OC1'"));
}

}  // namespace
