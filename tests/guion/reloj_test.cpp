#include "admin/guion_reloj.h"

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QDeadlineTimer>

namespace {

const QDateTime kInicio(QDate(2026, 11, 25), QTime(9, 0, 0));

// Writes "name@seconds since kInicio" at each tick.
struct Diario {
  RelojGuion reloj;
  QStringList lineas;

  void anotar(const QString& nombre) { lineas << nombre + u'@' + QString::number(kInicio.msecsTo(reloj.now()) / 1000); }
  QString leido() {
    const QString todo = lineas.join(u' ');
    lineas.clear();
    return todo;
  }
};

TEST(RelojGuion, TimersFireInTheirOrderEachAtItsOwnTime) {
  Diario d;
  d.reloj.fijar(kInicio);
  const auto a = d.reloj.cada(25'000, [&] { d.anotar(QStringLiteral("a")); });
  auto b = d.reloj.cada(10'000, [&] { d.anotar(QStringLiteral("b")); });
  d.reloj.pasar(9'999);
  EXPECT_EQ(d.leido(), "");
  d.reloj.pasar(20'001);
  EXPECT_EQ(d.leido(), "b@10 b@20 a@25 b@30");
  EXPECT_EQ(d.reloj.now(), kInicio.addSecs(30));

  b.reset();
  d.reloj.pasar(25'000);
  EXPECT_EQ(d.leido(), "a@50");
}

TEST(RelojGuion, SettingTheClockBringsNoTimerNearer) {
  Diario d;
  d.reloj.fijar(kInicio.addDays(-1));
  const auto a = d.reloj.cada(10'000, [&] { d.anotar(QStringLiteral("a")); });
  d.reloj.pasar(4'000);
  d.reloj.fijar(kInicio);
  d.reloj.pasar(5'999);
  EXPECT_EQ(d.leido(), "");
  d.reloj.pasar(1);
  EXPECT_EQ(d.leido(), "a@6");
}

TEST(RelojGuion, ATimerDoesNotFireInsideItsOwnWork) {
  Diario d;
  d.reloj.fijar(kInicio);
  const auto b = d.reloj.cada(3'000, [&] { d.anotar(QStringLiteral("b")); });
  const auto a = d.reloj.cada(10'000, [&] {
    d.anotar(QStringLiteral("a"));
    if (d.lineas.size() < 6) d.reloj.pasar(11'000);  // as a screen that the tick opened might
  });
  d.reloj.pasar(10'000);
  EXPECT_EQ(d.leido(), "b@3 b@6 b@9 a@10 b@12 b@15 b@18 b@21");
  EXPECT_EQ(d.reloj.now(), kInicio.addSecs(21));
}

TEST(RelojGuion, ATimerThatLetsGoOfItselfEnds) {
  Diario d;
  d.reloj.fijar(kInicio);
  std::shared_ptr<void> a = d.reloj.cada(1'000, [&] {
    d.anotar(QStringLiteral("a"));
    a.reset();
  });
  d.reloj.pasar(5'000);
  EXPECT_EQ(d.leido(), "a@1");
}

TEST(RelojGuion, RunsWithTheMachineUntilItIsStopped) {
  int argc = 1;
  char nombre[] = "prueba";
  char* argv[] = {nombre, nullptr};
  const QCoreApplication app(argc, argv);
  const RelojSistema real;
  Diario d;
  int veces = 0;
  const auto a = d.reloj.cada(1, [&] { ++veces; });
  QDeadlineTimer plazo(5'000);
  while (veces < 2 && !plazo.hasExpired()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  EXPECT_GE(veces, 2);
  EXPECT_LT(std::abs(d.reloj.now().msecsTo(real.now())), 5'000);

  d.reloj.fijar(kInicio);
  const int antes = veces;
  for (int i = 0; i < 5; ++i) {
    real.unaVez(2, &app, [] {});
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
  }
  EXPECT_EQ(veces, antes) << "a clock that stands still ticks no more by itself";
  EXPECT_EQ(d.reloj.now(), kInicio);
}

TEST(RelojSistema, AnInnerLoopDoesNotTickATimerWhoseWorkStillRuns) {
  int argc = 1;
  char nombre[] = "prueba";
  char* argv[] = {nombre, nullptr};
  QCoreApplication app(argc, argv);
  RelojSistema reloj;
  int dentro = 0, veces = 0;
  std::shared_ptr<void> a = reloj.cada(1, [&] {
    ++veces;
    EXPECT_EQ(++dentro, 1);
    QEventLoop bucle;
    reloj.unaVez(20, &bucle, [&] { bucle.quit(); });
    bucle.exec();
    --dentro;
    a.reset();  // the last handle goes while the work runs
    app.quit();
  });
  app.exec();
  EXPECT_EQ(veces, 1);
}

}  // namespace
