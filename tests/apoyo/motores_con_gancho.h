#pragma once
// Something that happens to a server between two things that the desk asks it.
#include <functional>

#include "platform/sql/motor.h"

// Calls `antes` before each thing that is asked of a PostgreSQL server.
class MotorConGancho final : public Motor {
 public:
  MotorConGancho(std::unique_ptr<Motor> real, const std::function<void()>& antes)
      : real_(std::move(real)), antes_(antes) {}
  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override {
    antes_();
    return real_->consultar(sql, rs);
  }
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* n) override {
    antes_();
    return real_->ejecutar(sql, n);
  }
  std::optional<ErrorBD> iniciar() override {
    antes_();
    return real_->iniciar();
  }
  std::optional<ErrorBD> confirmar() override {
    antes_();
    return real_->confirmar();
  }
  std::optional<ErrorBD> deshacer() override { return real_->deshacer(); }
  QString traducir(const QString& sql) override { return real_->traducir(sql); }
  void deUnaPieza(bool si) override { real_->deUnaPieza(si); }
  int filasPorSentencia() const override { return real_->filasPorSentencia(); }
  std::unique_ptr<Repetida> repetir(const QString& sql) override {
    auto real = real_->repetir(sql);
    if (!real) return {};
    return std::make_unique<RepetidaConGancho>(antes_, std::move(real));
  }

 private:
  class RepetidaConGancho final : public Repetida {
   public:
    RepetidaConGancho(const std::function<void()>& antes, std::unique_ptr<Repetida> real)
        : antes_(antes), real_(std::move(real)) {}
    std::optional<ErrorBD> correr(const std::vector<CeldaBD>& valores) override {
      antes_();
      return real_->correr(valores);
    }

   private:
    const std::function<void()>& antes_;
    std::unique_ptr<Repetida> real_;
  };

  std::unique_ptr<Motor> real_;
  const std::function<void()>& antes_;
};

class MotoresConGancho final : public Motores {
 public:
  explicit MotoresConGancho(Motores& reales, const std::function<void()>& antes) : reales_(reales), antes_(antes) {}
  std::unique_ptr<Motor> abrir(const QString& cadena, int espera_ms, ErrorBD& error) override {
    auto m = reales_.abrir(cadena, espera_ms, error);
    if (!m || !cadena.contains(u"postgres:")) return m;
    return std::make_unique<MotorConGancho>(std::move(m), antes_);
  }

 private:
  Motores& reales_;
  const std::function<void()>& antes_;
};
