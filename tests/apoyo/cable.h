#pragma once
// The wire between a desk and a PostgreSQL server: a relay on loopback that counts round trips and can be cut at any of
// them.
#include <QString>
#include <atomic>
#include <thread>

class Cable {
 public:
  enum class Corte {
    Antes,     // what was asked does not arrive
    EnCamino,  // it arrives, and nobody waits for what comes of it
    Despues    // it is done there, and the answer does not arrive
  };

  // `servidor` is "127.0.0.1:PORT".
  explicit Cable(const QString& servidor);
  ~Cable();
  Cable(const Cable&) = delete;
  Cable& operator=(const Cable&) = delete;

  QString servidor() const { return QStringLiteral("127.0.0.1:%1").arg(puerto_); }

  // Counts round trips anew and cuts all connections at the n-th, opening ones included; 0 only counts. Afterwards
  // nobody gets through until the wire is mended, unless it `vuelve` at once.
  void cortar(int n, Corte corte, bool vuelve);
  void arreglar() { cortar(0, Corte::Antes, true); }
  int viajes() const { return viajes_; }
  bool cortado() const { return cortado_; }

 private:
  struct Hilo;
  void correr();

  int escucha_ = -1, puerto_ = 0, destino_ = 0;
  std::atomic<int> viajes_ = 0, corteEn_ = 0;
  std::atomic<bool> cortado_ = false, caido_ = false, vuelve_ = true, fin_ = false;
  std::atomic<Corte> corte_ = Corte::Antes;
  std::thread hilo_;
};
