// A closing and its push beside a PostgreSQL that something happens to: told plainly, nothing that is stored here lost,
// and what the next run sends leaves the centre as if nothing had been.
#include <pwd.h>
#include <sys/mount.h>

#include <QDir>
#include <thread>

#include "apoyo/motores_con_gancho.h"
#include "apoyo/servidor_mudo.h"
#include "apoyo/servidor_prueba.h"
#include "cashday/cierre_prueba.h"
#include "platform/sql/motor_postgres.h"
#include "postgres/base_postgres.h"
#include "sync/sync_prueba.h"

namespace {

using prueba_sync::q;

ServidorPrueba& servidor() { return ServidorPrueba::uno(); }

struct ConGancho {
  std::function<void()> gancho = [] {};
  Envolver envolver() {
    return [this](Motores& m) { return std::make_unique<MotoresConGancho>(m, gancho); };
  }
};

// A desk whose day is to be closed and sent, with its centre on PostgreSQL.
struct Tienda : ConGancho {
  Tienda() : base(servidor().base(BaseServidor::Central)), p(envolver()) {
    p.ses.psConexionCentral = cadenaDe(base);
    p.ses.psConexionCliente.clear();
    p.ejecuta(q("INSERT INTO Sincronizacion (dFechSincro) VALUES ('20/11/2026')"));
    p.persona().dejaPasar(q("Sí"));
  }
  Recordset crudo(const QString& sql) { return servidor().crudo(base, sql); }

  // Its closing sends by itself, as the window does.
  struct Pantallas : PantallasCierre {
    using PantallasCierre::PantallasCierre;
    void sincronizar(bool) override { (void)prueba_sync::sincronizar(p); }
  };
  void cerrar() {
    Principal v;
    Pantallas pantallas(p);
    CerrarCaja(p, v, pantallas, [](const QString&) {});
  }
  // The day at its end, whatever it takes: what a person does when the server is there again.
  void acabar() {
    if (p.paso() != 6) cerrar();
    (void)prueba_sync::sincronizar(p);
    EXPECT_TRUE(prueba_sync::sincronizar(p).bien);
  }
  void cortarSesiones() {
    crudo(QStringLiteral("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = '%1' AND pid <> "
                         "pg_backend_pid()")
              .arg(base.catalogo));
  }
  // What stands at the end, here and there.
  QString todo() {
    QString t = p.totales() + q("\n") + p.cerradas();
    for (const char* sql :
         {"SELECT copercode, cprodcode, nprodcant, nprodprecunit FROM dbo.operacion ORDER BY 1, 2",
          "SELECT copercode, copertipo, cestado, nmontosoles FROM dbo.operacionparalela ORDER BY 1",
          "SELECT copercode, cprodcode, nprodcant FROM dbo.operacionparalelaproducto ORDER BY 1, 2",
          "SELECT idz, cantidadtotal, montototal FROM dbo.cabeceraz ORDER BY 1",
          "SELECT cdoctipo, cprodcode::int, sum(nprodcant), sum(nmonto), count(*) FROM dbo.tdetallez1 GROUP BY 1, 2 "
          "ORDER BY 1, 2",
          "SELECT count(*) FROM dbo.tcabeceraz1 WHERE nidestado = -1"}) {
      t += q("\n-");
      for (const auto f : crudo(q(sql))) {
        t += u'\n';
        for (int i = 0; i < 5 && f[i].isValid(); ++i) t += f[i].toString() + u'|';
      }
    }
    return t + q("\n") + p.filas("SELECT COUNT(*) FROM Operacion WHERE cProdCode <> 0 AND cFlagSincronizacion <> '1'");
  }
  QString dicho() {
    QStringList cajas;
    for (const auto& c : p.persona().vistas) cajas << c.texto;
    return cajas.join(u'\n');
  }

  CadenaConexion base;
  DiaVendido p;
};

const QString kSoloLectura = QStringLiteral("BEGIN READ WRITE; ALTER DATABASE %1 %2; COMMIT");

QString sinDesgracia() {
  static const QString todo = [] {
    Tienda t;
    t.cerrar();
    t.acabar();
    EXPECT_EQ(6, t.p.paso());
    return t.todo();
  }();
  return todo;
}

}  // namespace

TEST(DesgraciasCierre, TheDayClosesAndGoesUpLater) {
  EXPECT_TRUE(sinDesgracia().contains(q("02|102|2|"))) << qPrintable(sinDesgracia());
  // clang-format off
  const struct {
    const char* porque; void (*estorbo)(Tienda&); void (*remedio)(Tienda&); const char* dice; bool detalle = true;
  } kCasos[] = {
      {"refusing", [](Tienda& t) { t.p.ses.psConexionCentral = ServidorMudo(Mudez::nadie).cadena(); },
       [](Tienda& t) { t.p.ses.psConexionCentral = cadenaDe(t.base); },
       "(Z1) no llegó a la base central: no responde."},
      {"away", [](Tienda&) { servidor().cortar(); }, [](Tienda&) { servidor().volver(); }, "no responde."},
      {"wrong password",
       [](Tienda& t) { t.p.ses.psConexionCentral = cadenaDe(t.base).replace(t.base.clave, q("otra")); },
       [](Tienda& t) { t.p.ses.psConexionCentral = cadenaDe(t.base); }, "no responde."},
      {"the detail's table missing", [](Tienda& t) { t.crudo(q("ALTER TABLE TDETALLEZ1 RENAME TO otra")); },
       [](Tienda& t) { t.crudo(q("ALTER TABLE otra RENAME TO tdetallez1")); }, "tdetallez1", false},
      {"the heads' table missing", [](Tienda& t) { t.crudo(q("ALTER TABLE TCABECERAZ1 RENAME TO otra")); },
       [](Tienda& t) { t.crudo(q("ALTER TABLE otra RENAME TO tcabeceraz1")); }, "tcabeceraz1"},
      {"the operations' table missing", [](Tienda& t) { t.crudo(q("ALTER TABLE operacion RENAME TO otra")); },
       [](Tienda& t) { t.crudo(q("ALTER TABLE otra RENAME TO operacion")); }, ""},
      {"nothing may be written",
       [](Tienda& t) { t.crudo(kSoloLectura.arg(t.base.catalogo, q("SET default_transaction_read_only = on"))); },
       [](Tienda& t) { t.crudo(kSoloLectura.arg(t.base.catalogo, q("RESET default_transaction_read_only"))); },
       "es de solo lectura"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    Tienda t;
    c.estorbo(t);
    t.cerrar();
    EXPECT_TRUE(t.dicho().contains(q(c.dice))) << qPrintable(t.dicho());
    EXPECT_EQ(q("3"), t.p.filas("SELECT COUNT(*) FROM Operacion WHERE cOperTipo < 10"));
    c.remedio(t);
    t.acabar();
    EXPECT_EQ(6, t.p.paso());
    // The push goes on without a line of the detail that fails.
    if (!c.detalle)
      t.crudo(q("INSERT INTO TDETALLEZ1 (nidz1, cdoctipo, cprodcode, nprodcant, nmonto) VALUES "
                "(1, '02', '101', 1, 19), (1, '02', '102', 2, 22.5), (1, '10', '101', 3, 57)"));
    EXPECT_EQ(sinDesgracia().toStdString(), t.todo().toStdString());
  }
}

// Right before each thing that the closing and its push ask: the sessions are ended by their numbers, another session
// holds the tables for a moment, or the whole server dies as in a power cut and is there again.
TEST(DesgraciasCierre, WhateverHappensAtAnyStep) {
  enum { Corte, Cerrojo, Apagon, kModos };
  const bool largo = qEnvironmentVariableIsSet("TARVOPOS_LARGO");
  for (int modo = 0; modo < kModos; ++modo) {
    int van = 0, todas = 0;
    for (int en = 1; en == 1 || van >= en; en += largo ? 1 : modo == Corte ? 7 : 16) {
      SCOPED_TRACE(QStringLiteral("%1 %2").arg(modo).arg(en).toStdString());
      Tienda t;
      van = 0;
      ErrorBD error;
      auto otra = MotorPostgres::abrir(t.base, 5000, error);
      ASSERT_TRUE(otra);
      std::thread suelta;
      t.gancho = [&] {
        if (++van != en) return;
        if (modo == Corte) t.cortarSesiones();
        if (modo == Apagon) {
          servidor().cortar();
          servidor().volver();
        }
        // Where the desk has rows of them by then, it keeps them.
        if (modo != Cerrojo || otra->crudo(q("BEGIN; LOCK TABLE operacion, tdetallez1, tcabeceraz1 NOWAIT"))) return;
        suelta = std::thread([&otra] {
          std::this_thread::sleep_for(std::chrono::milliseconds(200));
          (void)otra->crudo(q("ROLLBACK"));
        });
      };
      t.cerrar();
      if (suelta.joinable()) suelta.join();
      t.gancho = [] {};
      todas = qMax(todas, van);
      t.acabar();
      EXPECT_EQ(6, t.p.paso());
      ASSERT_EQ(sinDesgracia().toStdString(), t.todo().toStdString()) << qPrintable(t.dicho());
    }
    EXPECT_GT(todas, 20);
  }
}

// A disk of the server that is full in truth, or, where no small one can be had, says so.
TEST(DesgraciasCierre, AFullDiskIsToldAndTheRestGoesUpLater) {
  Tienda t;
  QTemporaryDir lugar(QDir::tempPath() + q("/tarvopos-lleno-XXXXXX"));
  const QByteArray disco = lugar.path().toUtf8();
  const passwd* otro = ::getpwnam("postgres");  // whom the server belongs to when root runs the tests
  const QByteArray como = QStringLiteral("size=600k,mode=0700,uid=%1,gid=%2")
                              .arg(otro ? otro->pw_uid : 0)
                              .arg(otro ? otro->pw_gid : 0)
                              .toUtf8();
  const bool deVerdad = ::mount("none", disco.constData(), "tmpfs", 0, como.constData()) == 0;
  const char* const kTablas[] = {"tdetallez1", "operacion", "operacionparalela"};
  const auto enTodas = [&](const char* sql) {
    for (const char* tabla : kTablas) t.crudo(q(sql).arg(q(tabla)));
  };
  if (deVerdad) {
    t.crudo(q("CREATE TABLESPACE lleno LOCATION '%1'").arg(lugar.path()));
    enTodas("ALTER TABLE %1 SET TABLESPACE lleno");
    t.crudo(q("CREATE TABLE tapon (t text) TABLESPACE lleno; ALTER TABLE tapon ALTER t SET STORAGE PLAIN;"
              "DO $$ BEGIN LOOP INSERT INTO tapon VALUES (repeat('x', 7000)); END LOOP; "
              "EXCEPTION WHEN disk_full THEN NULL; END $$"));
  } else {
    t.crudo(q("CREATE FUNCTION dbo.lleno() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN RAISE EXCEPTION 'no queda "
              "sitio' USING ERRCODE = '53100'; END $$"));
    enTodas("CREATE TRIGGER lleno BEFORE INSERT ON %1 EXECUTE FUNCTION dbo.lleno()");
  }
  RecordProperty("full_in_truth", deVerdad ? 1 : 0);
  t.cerrar();
  EXPECT_TRUE(t.dicho().contains(q("El detalle de ventas del cierre (Z1) no llegó a la base central: "
                                   "El disco del servidor está lleno")))
      << qPrintable(t.dicho());
  EXPECT_EQ(6, t.p.paso());
  EXPECT_EQ(q("3"), t.p.filas("SELECT COUNT(*) FROM Operacion WHERE cOperTipo < 10"));
  if (deVerdad) t.crudo(q("DROP TABLE tapon"));
  else t.crudo(q("DROP FUNCTION dbo.lleno CASCADE"));
  t.acabar();
  EXPECT_EQ(sinDesgracia().toStdString(), t.todo().toStdString()) << qPrintable(t.dicho());
  if (!deVerdad) return;
  enTodas("ALTER TABLE %1 SET TABLESPACE pg_default");
  t.crudo(q("DROP TABLESPACE lleno"));
  EXPECT_EQ(0, ::umount(disco.constData()));
}
