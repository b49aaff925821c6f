#pragma once
// Faults on order: decorators round the engines and the ports that make a server or a port go away, fail a statement
// or kill the process there. The till itself knows nothing of them.
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "platform/io/puertos.h"
#include "platform/sql/motor.h"

// What is wrong at present; the decorators ask it at each call. A step is a statement handed to a connection (begin,
// commit and rollback included, PRAGMAs not) or, for `matar` alone, a write to a port.
class Fallas {
 public:
  enum class Servidor { Central, Cliente };
  enum class Alcance { UnaVez, DesdeAhi };
  enum class Momento { Antes, Despues };

  // Which connections the orders are about, asked when they are opened; all of them unless set.
  std::function<bool(const QString& cadena)> cuenta;
  // Whether questions about the tables themselves, and PRAGMAs, count as statements.
  bool catalogo = false;
  // The words of a statement that is made to fail.
  QString palabras = QStringLiteral("Falla pedida por el guion.");
  // What came by, in its order, while somebody wants to know: statements, BEGIN, COMMIT, ROLLBACK and "PUERTO NAME".
  bool anota = false;
  QStringList sentencias;

  // Tells which connection string is which server's; asked at each open, since the till reads them when it starts.
  std::function<QString(Servidor)> cadenaDe;

  void caer(Servidor s, bool caido) { (s == Servidor::Central ? central_ : cliente_) = caido; }
  void caerPuerto(const QString& puerto, bool caido);

  // The n-th statement from now on, or it and all behind it, fails without effect; 0 takes the order back. A new
  // order takes the place of the last one.
  void fallar(int n, Alcance alcance);
  // The process kills itself right before or after the n-th statement or port write from now on; 0 takes it back.
  void matar(int n, Momento momento);

  // What a kill does; it must not return. The process's own end unless set. Nothing is opened, run or printed any more
  // behind it, so that a test can throw here and let the desk go.
  std::function<void()> morir;

  // From now on nothing is opened, run or printed any more, or all is as before.
  void apagar(bool apagado) { apagado_ = apagado; }

  // For the decorators.
  bool caido(const QString& cadena) const;
  bool puertoCaido(const QString& puerto) const;
  bool apagado() const { return apagado_; }
  void anotar(const QString& que) {
    if (anota) sentencias << que;
  }
  bool tocaFallar();
  // How many statements have failed by the order under way.
  int fallidas() const { return fallidas_; }
  // Takes one step: the kill before it, the kill after it.
  template <class Llamada>
  auto paso(Llamada llamada) {
    const bool muere = mataEn_ > 0 && --mataEn_ == 0;
    if (muere && momento_ == Momento::Antes) matarYa();
    auto resultado = llamada();
    if (muere) matarYa();
    return resultado;
  }

 private:
  [[noreturn]] void matarYa();

  bool central_ = false, cliente_ = false, apagado_ = false;
  QSet<QString> puertos_;
  int fallidas_ = 0;
  int fallaEn_ = 0, mataEn_ = 0;  // steps still to come up to the ordered one; 0 without an order
  Alcance alcance_ = Alcance::UnaVez;
  Momento momento_ = Momento::Antes;
};

class MotoresConFallas final : public Motores {
 public:
  MotoresConFallas(Motores& real, Fallas& fallas) : real_(real), fallas_(fallas) {}
  std::unique_ptr<Motor> abrir(const QString& cadena, int espera_ms, ErrorBD& error) override;

 private:
  Motores& real_;
  Fallas& fallas_;
};

// A port is away under its own name and under that of the printer that stands on it.
class PuertosConFallas final : public Puertos {
 public:
  PuertosConFallas(Puertos& real, Fallas& fallas) : real_(real), fallas_(fallas) {}
  std::optional<QString> copiar(const QString& archivo, const QString& puerto) override;
  void enviarSinEsperar(const QString& archivo, const QString& puerto) override;
  QList<ImpresoraSistema> impresoras() override { return real_.impresoras(); }
  QString impresoraPorDefecto() override { return real_.impresoraPorDefecto(); }
  QStringList lugares() override { return real_.lugares(); }
  QString lugarDe(const QString& puerto) override { return real_.lugarDe(puerto); }
  std::optional<QString> llevar(const QString& puerto, const QString& lugar) override {
    return real_.llevar(puerto, lugar);
  }
  std::optional<QString> nombrar(const QString& impresora, const QString& puerto) override {
    return real_.nombrar(impresora, puerto);
  }
  std::optional<QString> imprimir(const QString& impresora, const QString& letra, int tamano,
                                  const DocumentoImpreso& documento) override;

 private:
  std::optional<QString> caida(const QString& puerto) const;

  Puertos& real_;
  Fallas& fallas_;
};
