#pragma once
// An engine that fails, or kills the process, at the n-th statement that a connection is handed. What it does is told
// by a plan, which outlives it; a plan with n = 0 only counts.
#include <csignal>

#include "platform/sql/cadena_conexion.h"
#include "platform/sql/motor.h"

enum class Falla { unaVez, desdeAhi };  // a lock that passes; a disk that stays full
enum class Muerte { no, antes, despues };

struct PlanFallas {
  int n = 0;
  Falla falla = Falla::unaVez;
  Muerte muerte = Muerte::no;
  int van = 0;
  QStringList sentencias;  // what was handed over, in order

  bool toca() const { return n > 0 && (van == n || (van > n && falla == Falla::desdeAhi)); }
  // Starts counting anew.
  void armar(int cual, Falla como = Falla::unaVez, Muerte m = Muerte::no) { *this = PlanFallas{cual, como, m, 0, {}}; }
};

class MotorQueFalla final : public Motor {
 public:
  MotorQueFalla(std::unique_ptr<Motor> real, PlanFallas& plan) : real_(std::move(real)), plan_(plan) {}

  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override {
    rs = {};
    return paso(sql, [&] { return real_->consultar(sql, rs); });
  }
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) override {
    return paso(sql, [&] { return real_->ejecutar(sql, afectadas); });
  }
  std::optional<ErrorBD> iniciar() override {
    return paso(QStringLiteral("BEGIN"), [&] { return real_->iniciar(); });
  }
  std::optional<ErrorBD> confirmar() override {
    return paso(QStringLiteral("COMMIT"), [&] { return real_->confirmar(); });
  }
  std::optional<ErrorBD> deshacer() override {
    return paso(QStringLiteral("ROLLBACK"), [&] { return real_->deshacer(); });
  }
  QString traducir(const QString& sql) override { return real_->traducir(sql); }

 private:
  template <class F>
  std::optional<ErrorBD> paso(const QString& sql, F f) {
    ++plan_.van;
    plan_.sentencias << sql;
    if (!plan_.toca()) return f();
    if (plan_.muerte == Muerte::no) return ErrorBD{kErrorGeneral, 13, QStringLiteral("falla forzada")};
    if (plan_.muerte == Muerte::despues) f();
    std::raise(SIGKILL);
    return {};
  }

  std::unique_ptr<Motor> real_;
  PlanFallas& plan_;
};

// Puts the double under the store's connection; the servers answer as they are.
class MotoresQueFallan final : public Motores {
 public:
  MotoresQueFallan(Motores& reales, PlanFallas& plan) : reales_(reales), plan_(plan) {}
  std::unique_ptr<Motor> abrir(const QString& cadena, int espera_ms, ErrorBD& error) override {
    auto motor = reales_.abrir(cadena, espera_ms, error);
    if (!motor || leerCadenaConexion(cadena).tipo != TipoMotor::Local) return motor;
    return std::make_unique<MotorQueFalla>(std::move(motor), plan_);
  }

 private:
  Motores& reales_;
  PlanFallas& plan_;
};
