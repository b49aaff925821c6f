#include "admin/fallas.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/sql/conexion.h"

namespace {

// Engines and ports that only write down what reaches them.
struct Anotados final : Motores, Puertos {
  QStringList llegado;

  struct MotorAnotado final : Motor {
    explicit MotorAnotado(QStringList& l) : llegado(l) {}
    std::optional<ErrorBD> anotar(const QString& q) {
      llegado << q;
      return {};
    }
    std::optional<ErrorBD> consultar(const QString& q, Recordset&) override { return anotar(q); }
    std::optional<ErrorBD> ejecutar(const QString& q, qint64*) override { return anotar(q); }
    std::optional<ErrorBD> iniciar() override { return anotar(QStringLiteral("begin")); }
    std::optional<ErrorBD> confirmar() override { return anotar(QStringLiteral("commit")); }
    std::optional<ErrorBD> deshacer() override { return anotar(QStringLiteral("rollback")); }
    QString traducir(const QString& q) override { return q; }
    QStringList& llegado;
  };

  std::unique_ptr<Motor> abrir(const QString&, int, ErrorBD&) override {
    return std::make_unique<MotorAnotado>(llegado);
  }
  std::optional<QString> copiar(const QString& archivo, const QString& puerto) override {
    llegado << archivo + u'>' + puerto;
    return {};
  }
  void enviarSinEsperar(const QString& archivo, const QString& puerto) override { copiar(archivo, puerto); }
  QList<ImpresoraSistema> impresoras() override { return {{QStringLiteral("Ticketera"), QStringLiteral("LPT1:")}}; }
  QString impresoraPorDefecto() override { return QStringLiteral("Ticketera"); }
  std::optional<QString> imprimir(const QString& impresora, const QString&, int, const DocumentoImpreso&) override {
    llegado << QStringLiteral("driver>") + impresora;
    return {};
  }
};

struct Banco {
  Anotados real;
  Fallas fallas;
  MotoresConFallas motores{real, fallas};
  PuertosConFallas puertos{real, fallas};
  Conexion local, central, cliente;

  Banco() {
    fallas.cadenaDe = [](Fallas::Servidor s) {
      return s == Fallas::Servidor::Central ? QStringLiteral("CENTRAL") : QStringLiteral("CLIENTE");
    };
    abrir(local, "LOCAL");
    abrir(central, "CENTRAL");
    abrir(cliente, "CLIENTE");
  }
  bool abrir(Conexion& c, const char* cadena) { return !c.abrir(motores, QString::fromLatin1(cadena), 0); }
  // '+' for each statement that ran, '-' for each that failed.
  QString siete() {
    Recordset rs;
    QString r;
    const auto marca = [&](const auto& error) { r += error ? u'-' : u'+'; };
    marca(local.iniciar());
    marca(local.ejecutar(Sql::crudo(QStringLiteral("INSERT 1"))));
    marca(local.ejecutar(Sql::crudo(QStringLiteral(" pragma x"))));  // never counted, nor is
    marca(local.consultar(Sql::crudo(QStringLiteral("SELECT name FROM sqlite_master")), rs));
    marca(central.consultar(Sql::crudo(QStringLiteral("SELECT 2")), rs));
    marca(local.confirmar());
    marca(cliente.ejecutar(Sql::crudo(QStringLiteral("UPDATE 3"))));
    return r;
  }
};

TEST(Fallas, TheOrderedStatementFailsOnceOrFromThereOn) {
  // clang-format off
  const struct { const char* porque; int n; Fallas::Alcance alcance; const char *vez1, *vez2; } kCasos[] = {
      {"the begin", 1, Fallas::Alcance::UnaVez, "-++++++", "+++++++"},
      {"on another connection, the PRAGMA not counted", 3, Fallas::Alcance::UnaVez, "++++-++", "+++++++"},
      {"the commit and all behind it", 4, Fallas::Alcance::DesdeAhi, "+++++--", "--++---"},
      {"in the second act", 6, Fallas::Alcance::UnaVez, "+++++++", "-++++++"},
      {"taken back", 0, Fallas::Alcance::DesdeAhi, "+++++++", "+++++++"},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    Banco b;
    b.fallas.fallar(2, Fallas::Alcance::DesdeAhi);  // the next order takes its place
    b.fallas.fallar(c.n, c.alcance);
    EXPECT_EQ(b.siete(), c.vez1);
    EXPECT_EQ(b.real.llegado.size(), QString::fromLatin1(c.vez1).count(u'+')) << "a failed one has no effect";
    EXPECT_EQ(b.siete(), c.vez2);
  }
}

TEST(Fallas, AServerThatIsAwayFailsItsConnectionsAndOpensUntilItIsBack) {
  Banco b;
  b.fallas.caer(Fallas::Servidor::Central, true);
  EXPECT_EQ(b.siete(), "++++-++");
  Conexion otra;
  EXPECT_FALSE(b.abrir(otra, "CENTRAL"));
  EXPECT_TRUE(b.abrir(otra, "CLIENTE"));
  b.fallas.caer(Fallas::Servidor::Central, false);
  EXPECT_EQ(b.siete(), "+++++++");
  EXPECT_TRUE(b.abrir(otra, "CENTRAL"));
}

TEST(Fallas, APortIsAwayUnderItsNameAndItsPrinters) {
  Banco b;
  const QString a = QStringLiteral("a"), lpt1 = QStringLiteral("LPT1"), com1 = QStringLiteral("COM1:");
  b.fallas.caerPuerto(QStringLiteral("lpt1"), true);
  EXPECT_TRUE(b.puertos.copiar(a, lpt1).has_value());
  EXPECT_TRUE(b.puertos.copiar(a, QStringLiteral("LPT1:")).has_value());
  EXPECT_TRUE(b.puertos.imprimir(QStringLiteral("Ticketera"), {}, 9, {}).has_value());
  b.puertos.enviarSinEsperar(a, lpt1);
  EXPECT_FALSE(b.puertos.copiar(a, com1).has_value());
  EXPECT_EQ(b.real.llegado.join(u' '), "a>COM1:");
  b.fallas.caerPuerto(QStringLiteral("LPT1:"), false);
  EXPECT_FALSE(b.puertos.copiar(a, lpt1).has_value());
}

TEST(Fallas, NothingIsWrittenAnyMoreOnceAllIsOff) {
  Banco b;
  b.fallas.apagar(true);
  EXPECT_EQ(b.siete(), "--++---");
  EXPECT_TRUE(b.puertos.copiar(QStringLiteral("a"), QStringLiteral("LPT1")).has_value());
  EXPECT_EQ(b.real.llegado.join(u' '), " pragma x SELECT name FROM sqlite_master");
  b.fallas.apagar(false);
  EXPECT_EQ(b.siete(), "+++++++");
}

// Runs statements and one port write in a child process that writes what reached the engine into a pipe.
QByteArray loQueLlegoAntesDeMorir(int n, Fallas::Momento momento, int* senal) {
  int tubo[2];
  if (pipe(tubo) != 0) return "no pipe";
  const pid_t hijo = fork();
  if (hijo == 0) {
    Banco b;
    b.fallas.matar(n, momento);
    const auto decir = [&] {
      const QByteArray t = b.real.llegado.isEmpty() ? QByteArray() : b.real.llegado.last().toLatin1() + ' ';
      b.real.llegado.clear();
      (void)!write(tubo[1], t.constData(), static_cast<size_t>(t.size()));
    };
    // The engine itself reports, so that what ran before a kill is told even though its caller never comes back.
    struct Avisa final : Puertos {
      explicit Avisa(Puertos& p, std::function<void()> f) : real(p), avisar(std::move(f)) {}
      std::optional<QString> copiar(const QString& a, const QString& p) override {
        auto r = real.copiar(a, p);
        avisar();
        return r;
      }
      void enviarSinEsperar(const QString&, const QString&) override {}
      QList<ImpresoraSistema> impresoras() override { return {}; }
      QString impresoraPorDefecto() override { return {}; }
      std::optional<QString> imprimir(const QString&, const QString&, int, const DocumentoImpreso&) override {
        return {};
      }
      Puertos& real;
      std::function<void()> avisar;
    } avisa(b.real, decir);
    PuertosConFallas puertos(avisa, b.fallas);
    (void)b.local.ejecutar(Sql::crudo(QStringLiteral("uno")), nullptr);
    decir();
    (void)puertos.copiar(QStringLiteral("dos"), QStringLiteral("LPT1"));
    (void)b.local.ejecutar(Sql::crudo(QStringLiteral("tres")), nullptr);
    decir();
    _exit(0);
  }
  close(tubo[1]);
  QByteArray todo;
  char trozo[256];
  for (ssize_t leidos; (leidos = read(tubo[0], trozo, sizeof trozo)) > 0;) todo.append(trozo, leidos);
  close(tubo[0]);
  int estado = 0;
  waitpid(hijo, &estado, 0);
  *senal = WIFSIGNALED(estado) ? WTERMSIG(estado) : 0;
  return todo;
}

TEST(Fallas, TheProcessDiesRightBeforeOrAfterTheStep) {
  // clang-format off
  const struct { const char* porque; int n; Fallas::Momento momento; const char* llegado; int senal; } kCasos[] = {
      {"before the first", 1, Fallas::Momento::Antes, "", SIGKILL},
      {"before the port", 2, Fallas::Momento::Antes, "uno ", SIGKILL},
      {"after the port", 2, Fallas::Momento::Despues, "uno dos>LPT1 ", SIGKILL},
      {"before what follows the port", 3, Fallas::Momento::Antes, "uno dos>LPT1 ", SIGKILL},
      {"not reached", 4, Fallas::Momento::Antes, "uno dos>LPT1 tres ", 0},
  };
  // clang-format on
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.porque);
    int senal = -1;
    EXPECT_EQ(loQueLlegoAntesDeMorir(c.n, c.momento, &senal), c.llegado);
    EXPECT_EQ(senal, c.senal);
  }
}

}  // namespace
