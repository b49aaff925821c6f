// An act over the store and a server, cut off wherever it can be: whole or not at all after the next start, never
// twice.
#include "foundation/acto_doble.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFileInfo>
#include <csignal>
#include <random>

#include "apoyo/puesto_prueba.h"
#include "platform/sql/cadena_conexion.h"

namespace {

// A kill does not try the disk's flush, so thousands of commits need no disk.
const bool kEnMemoria = QFileInfo(QStringLiteral("/dev/shm")).isWritable() && qputenv("TMPDIR", "/dev/shm");

enum class Mal { Nada, Falla, FallaTrasHacer, SinServidor, MuereAntes, MuereDespues };

// What goes wrong at the n-th statement that any connection is handed.
struct Plan {
  int n = 0;
  Mal mal = Mal::Nada;
  int van = 0;
  bool sinServidor = false;
  std::vector<bool> delServidor;  // of each statement so far: whether it went there

  void armar(int cual, Mal como) { *this = Plan{cual, como, 0, false, {}}; }
};

class MotorDelPlan final : public Motor {
 public:
  MotorDelPlan(std::unique_ptr<Motor> real, bool servidor, Plan& plan)
      : real_(std::move(real)), servidor_(servidor), plan_(plan) {}

  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override {
    return paso([&] { return real_->consultar(sql, rs); });
  }
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) override {
    return paso([&] { return real_->ejecutar(sql, afectadas); });
  }
  std::optional<ErrorBD> iniciar() override {
    if (plan_.mal == Mal::FallaTrasHacer && plan_.van + 1 == plan_.n) plan_.mal = Mal::Falla;
    return paso([&] { return real_->iniciar(); });
  }
  std::optional<ErrorBD> confirmar() override {
    return paso([&] { return real_->confirmar(); });
  }
  std::optional<ErrorBD> deshacer() override {
    return paso([&] { return real_->deshacer(); });
  }
  QString traducir(const QString& sql) override { return real_->traducir(sql); }

 private:
  template <class F>
  std::optional<ErrorBD> paso(F f) {
    const ErrorBD error{kErrorGeneral, 13, QStringLiteral("falla forzada")};
    const bool toca = ++plan_.van == plan_.n;
    plan_.delServidor.push_back(servidor_);
    if (toca && plan_.mal == Mal::SinServidor) plan_.sinServidor = true;
    if (plan_.sinServidor && servidor_) return error;
    if (!toca || plan_.mal == Mal::Nada || plan_.mal == Mal::SinServidor) return f();
    if (plan_.mal == Mal::Falla) return error;
    if (plan_.mal == Mal::MuereAntes) std::raise(SIGKILL);
    auto r = f();
    if (plan_.mal == Mal::MuereDespues) std::raise(SIGKILL);
    return r ? r : error;  // done, and the answer was lost
  }

  std::unique_ptr<Motor> real_;
  const bool servidor_;
  Plan& plan_;
};

class MotoresDelPlan final : public Motores {
 public:
  MotoresDelPlan(Motores& reales, Plan& plan) : reales_(reales), plan_(plan) {}
  std::unique_ptr<Motor> abrir(const QString& cadena, int espera_ms, ErrorBD& error) override {
    const bool servidor = leerCadenaConexion(cadena).tipo != TipoMotor::Local;
    if (servidor && plan_.sinServidor) {
      error = {kErrorGeneral, 13, QStringLiteral("no responde")};
      return nullptr;
    }
    auto motor = reales_.abrir(cadena, espera_ms, error);
    if (!motor) return motor;
    return std::make_unique<MotorDelPlan>(std::move(motor), servidor, plan_);
  }

 private:
  Motores& reales_;
  Plan& plan_;
};

const QString kCuentas = QStringLiteral("SELECT nCual, COUNT(*) FROM Prueba GROUP BY nCual ORDER BY nCual");
const QString kDiario = QStringLiteral("SELECT cActo, cEstado FROM Diario_Acto");

// One desk whose processes come and go; its files stay.
class Banco {
 public:
  Banco() {
    conServidor([this](Conexion& cliente) {
      for (Conexion* c : {&casa_.poCnnLocal, &cliente}) {
        casa_.ejecuta(*c, QStringLiteral("CREATE TABLE Prueba (nCual INTEGER, sTexto TEXT)"));
      }
    });
    casa_.poCnnLocal.cerrar();
  }

  bool mira = true;  // as after a start, the servers are to be looked at when they are opened

  // A process of the desk does `f` under the plan.
  template <class F>
  void proceso(int n, Mal mal, F f) {
    Plan plan;
    MotoresDelPlan motores(casa_.motores, plan);
    Puesto p(motores, casa_.puertos, casa_.reloj, casa_.mensajes, casa_.salida, casa_.rutas);
    p.ses = casa_.ses;
    p.ses.actosPorMirar = {mira, mira};
    ASSERT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnLocal,
                                    QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + p.ses.psRutaBD));
    (void)p.poDBAdmin.AbrirBD(p.poCnnCliente, p.ses.psConexionCliente);
    plan.armar(n, mal);
    f(p, plan);
  }
  // The same in a process that may die.
  template <class F>
  bool procesoQueMuere(int n, Mal mal, F f) {
    const pid_t hijo = ::fork();
    if (hijo == 0) {
      proceso(n, mal, f);
      ::_exit(0);
    }
    int estado = -1;
    EXPECT_TRUE(hijo > 0 && hijo == ::waitpid(hijo, &estado, 0));
    return WIFSIGNALED(estado) && WTERMSIG(estado) == SIGKILL;
  }
  // The next start, with nothing wrong.
  void arrancar() {
    proceso(0, Mal::Nada, [](Puesto& p, Plan&) {
      EXPECT_FALSE(p.ses.actosPorMirar[static_cast<size_t>(ServidorActo::Cliente)]) << "nothing is left";
    });
  }

  QString local(const QString& sql) {
    QString sale;
    abrirLocal();
    sale = casa_.filas(sql);
    casa_.poCnnLocal.cerrar();
    return sale;
  }
  QString servidor(const QString& sql) {
    QString sale;
    conServidor([&](Conexion& c) { sale = casa_.filas(c, sql); });
    return sale;
  }
  void enServidor(const QString& sql) {
    conServidor([&](Conexion& c) { casa_.ejecuta(c, sql); });
  }
  bool esta(int cual) {
    return local(QStringLiteral("SELECT COUNT(*) FROM Prueba WHERE nCual = %1").arg(cual)) != u"0";
  }
  MensajesGuion& persona() { return casa_.persona(); }

 private:
  void abrirLocal() {
    ASSERT_FALSE(casa_.poCnnLocal.abrir(
        casa_.motores, QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + casa_.ses.psRutaBD, 1000));
  }
  template <class F>
  void conServidor(F f) {
    Conexion c;
    ASSERT_FALSE(c.abrir(casa_.motores, casa_.ses.psConexionCliente, 1000));
    f(c);
  }

  PuestoPrueba casa_;
};

Sql mete(int cual) {
  return FormatearSQL(u"INSERT INTO Prueba (nCual, sTexto) VALUES ($, '$')"_sql,
                      {cual, Texto(QStringLiteral("O'Higgins \"%1\" #1/2/2026# ñ").arg(cual))});
}

ActoDoble acto(int cual, ActoDoble::Orden orden, bool espera = false) {
  ActoDoble a;
  a.nombre = QStringLiteral("prueba %1").arg(cual);
  a.servidor = ServidorActo::Cliente;
  a.orden = orden;
  a.enLocal = {mete(cual), FormatearSQL(u"UPDATE Prueba SET sTexto = sTexto WHERE nCual = $"_sql, {cual})};
  a.enServidor = a.enLocal;
  a.puedeEsperar = espera;
  return a;
}

bool esMuerte(Mal mal) { return mal == Mal::MuereAntes || mal == Mal::MuereDespues; }

// Both halves the same, each act once at most, nothing left in the journals.
void esperarEnteros(Banco& b) {
  const QString cuentas = b.local(kCuentas);
  EXPECT_EQ(cuentas, b.servidor(kCuentas));
  for (const QString& fila : cuentas.split(u'\n', Qt::SkipEmptyParts)) EXPECT_EQ("1", fila.section(u'|', 1));
  EXPECT_EQ("", b.local(kDiario));
  EXPECT_EQ("", b.servidor(kDiario));
}

struct Forma {
  const char* porque;
  ActoDoble::Orden orden;
  bool espera;
};
const Forma kFormas[] = {{"local first", ActoDoble::LocalPrimero, false},
                         {"server first", ActoDoble::ServidorPrimero, false},
                         {"local first, may wait", ActoDoble::LocalPrimero, true}};

TEST(ActoDoble, WithNothingWrongBothHalvesStand) {
  for (const Forma& forma : kFormas) {
    SCOPED_TRACE(forma.porque);
    Banco b;
    b.proceso(0, Mal::Nada, [&](Puesto& p, Plan&) {
      EXPECT_EQ(FinActo::Entero, EjecutarActo(p, acto(1, forma.orden, forma.espera)).fin);
    });
    EXPECT_EQ("1|1", b.local(kCuentas));
    EXPECT_EQ("O'Higgins \"1\" #1/2/2026# ñ", b.servidor(QStringLiteral("SELECT sTexto FROM Prueba")));
    esperarEnteros(b);
  }
}

// Each statement, begin and commit of the act has its turn, and what it tells of its end holds after the next start.
TEST(ActoDoble, EndsWholeOrNotAtAllWhereverItIsCutOff) {
  for (const Forma& forma : kFormas) {
    for (const Mal mal : {Mal::Falla, Mal::FallaTrasHacer, Mal::SinServidor, Mal::MuereAntes, Mal::MuereDespues}) {
      int visto = 0;
      Banco b;
      for (int n = 1; n < 40; ++n) {
        SCOPED_TRACE(std::string(forma.porque) + ", fault " + std::to_string(static_cast<int>(mal)) + " at statement " +
                     std::to_string(n));
        FinActo fin = FinActo::EnDuda;
        bool toco = false;
        const auto hacer = [&](Puesto& p, Plan& plan) {
          fin = EjecutarActo(p, acto(n, forma.orden, forma.espera)).fin;
          toco = plan.van >= n;
        };
        if (esMuerte(mal)) toco = b.procesoQueMuere(n, mal, hacer);
        else b.proceso(n, mal, hacer);
        if (!toco) break;
        visto = n;
        b.arrancar();
        esperarEnteros(b);
        if (fin != FinActo::EnDuda) {
          EXPECT_EQ(fin != FinActo::Nada, b.esta(n));
        }
      }
      EXPECT_GE(visto, 12) << forma.porque;  // begin, three statements and commit on each side, and the two clean-ups
    }
  }
}

// What one start has left the next one may be cut off in as well.
TEST(ActoDoble, AnActThatIsBeingFinishedIsNeverDoneTwice) {
  for (const Forma& forma : kFormas) {
    for (const Mal mal : {Mal::Falla, Mal::FallaTrasHacer, Mal::MuereAntes, Mal::MuereDespues}) {
      Banco b;
      for (int n = 1; n < 40; ++n) {
        SCOPED_TRACE(std::string(forma.porque) + ", " + std::to_string(static_cast<int>(mal)) + " at " +
                     std::to_string(n));
        const int primerCommit = 9;  // two begins, three statements each, and then the commit that makes the half
        ASSERT_TRUE(b.procesoQueMuere(primerCommit, Mal::MuereDespues, [&](Puesto& p, Plan&) {
          (void)EjecutarActo(p, acto(n, forma.orden, forma.espera));
        }));
        bool toco = false;
        const auto seguir = [&](Puesto& p, Plan& plan) {
          (void)TerminarActos(p, ServidorActo::Cliente, p.poCnnCliente);
          toco = plan.van >= n;
        };
        b.mira = false;  // it would be finished before the plan counts
        if (esMuerte(mal)) toco = b.procesoQueMuere(n, mal, seguir);
        else b.proceso(n, mal, seguir);
        b.mira = true;
        b.arrancar();
        esperarEnteros(b);
        EXPECT_TRUE(b.esta(n));
        if (!toco) break;
      }
    }
  }
}

TEST(ActoDoble, TheServersAbsenceIsWaitedForOrEndsTheAct) {
  for (const bool espera : {true, false}) {
    Banco b;
    b.proceso(1, Mal::SinServidor, [&](Puesto& p, Plan& plan) {
      plan.sinServidor = true;
      p.poCnnCliente.cerrar();
      EXPECT_EQ(espera ? FinActo::Pendiente : FinActo::Nada,
                EjecutarActo(p, acto(1, ActoDoble::LocalPrimero, espera)).fin);
      // While it waits no other act of that name begins.
      EXPECT_EQ(FinActo::Nada, EjecutarActo(p, acto(1, ActoDoble::LocalPrimero, espera)).fin);
      EXPECT_EQ(FinActo::Nada, EjecutarActo(p, acto(2, ActoDoble::ServidorPrimero)).fin);
      plan.sinServidor = false;
      EXPECT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnCliente, p.ses.psConexionCliente));
    });
    EXPECT_EQ(espera ? "1|1" : "", b.servidor(kCuentas)) << "at the next opening, not only at the next start";
    esperarEnteros(b);
  }
}

// A half that the other database refuses for good.
TEST(ActoDoble, WhatCanNeverBeDoneIsTakenBackOrTold) {
  // A first half with a way back, one without, and one that is nothing.
  // clang-format off
  const struct { const char *primera, *vuelta, *palabra, *cuentas, *diario; } casos[] = {
      {"", "DELETE FROM Prueba WHERE nCual = 1", "se deshizo", "", ""},
      {"", "", "quedó a medias", "1|1", "prueba 1|R"},
      {"nada", "", "se deshizo", "", ""}};
  // clang-format on
  for (const auto& c : casos) {
    SCOPED_TRACE(c.palabra);
    Banco b;
    b.proceso(1, Mal::SinServidor, [&](Puesto& p, Plan& plan) {
      plan.sinServidor = true;
      ActoDoble a = acto(1, ActoDoble::LocalPrimero, true);
      if (*c.primera != '\0') a.enLocal.clear();
      if (*c.vuelta != '\0') a.deshacer = {Sql::crudo(QString::fromUtf8(c.vuelta))};
      EXPECT_EQ(FinActo::Pendiente, EjecutarActo(p, a).fin);
    });
    b.enServidor(QStringLiteral("DROP TABLE Prueba"));
    b.persona().espera(QStringLiteral("«prueba 1» con el servidor cliente ") + QString::fromUtf8(c.palabra));
    b.arrancar();
    b.arrancar();  // told once
    EXPECT_EQ(c.cuentas, b.local(kCuentas));
    EXPECT_EQ(c.diario, b.local(kDiario));
  }
}

// One number decides all of a run; a run that fails prints it.
TEST(ActoDoble, FiveHundredRandomRunsEndWholeOrNotAtAll) {
  std::unique_ptr<Banco> b;
  for (int semilla = 1; semilla <= 500 && !HasFailure(); ++semilla) {
    SCOPED_TRACE("seed " + std::to_string(semilla));
    std::mt19937 azar(static_cast<unsigned>(semilla));
    const auto hasta = [&azar](int n) { return static_cast<int>(azar() % static_cast<unsigned>(n)); };
    if (semilla % 50 == 1) b = std::make_unique<Banco>();
    QHash<int, FinActo> fines;
    const int actos = 1 + hasta(3);
    for (int cual = semilla * 10; cual < semilla * 10 + actos; ++cual) {
      const Forma& forma = kFormas[hasta(3)];
      const Mal mal = static_cast<Mal>(hasta(6));
      const int n = 1 + hasta(18);
      fines[cual] = FinActo::EnDuda;
      const auto hacer = [&](Puesto& p, Plan&) {
        fines[cual] = EjecutarActo(p, acto(cual, forma.orden, forma.espera)).fin;
      };
      if (esMuerte(mal)) b->procesoQueMuere(n, mal, hacer);
      else b->proceso(n, mal, hacer);
    }
    b->arrancar();
    esperarEnteros(*b);
    for (auto f = fines.cbegin(); f != fines.cend(); ++f) {
      if (f.value() == FinActo::EnDuda) continue;
      EXPECT_EQ(f.value() != FinActo::Nada, b->esta(f.key())) << "act " << f.key();
    }
  }
}

}  // namespace
