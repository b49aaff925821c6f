#pragma once
<<<<<<< HEAD
// The wire between a desk and a PostgreSQL server, both on loopback, that can be cut at an exchange: a question with
// its answer, or the connecting itself.
#include <atomic>
#include <list>
#include <thread>

#include "platform/sql/cadena_conexion.h"

enum class Corte { antes, despues };  // the server never hears the question; the desk never hears its answer

class Cable {
 public:
  explicit Cable(const QString& servidor);  // "HOST:PORT"
=======
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
>>>>>>> main
  ~Cable();
  Cable(const Cable&) = delete;
  Cable& operator=(const Cable&) = delete;

<<<<<<< HEAD
  // "postgres:127.0.0.1:PORT", to connect to.
  QString servidor() const { return QStringLiteral("postgres:127.0.0.1:%1").arg(puerto_); }
  // The n-th exchange from now on is cut, with all other connections, and nobody connects any more; 0 mends the wire.
  void cortarEn(int n, Corte corte);
  bool cortado() const { return cortado_; }

 private:
  struct Tramo {
    int caja, servidor;
    bool pregunta = false;  // the desk spoke last
    bool abierta = false;   // past its beginning
    bool callar = false;    // its answer does not arrive
  };
  void servir();
  void recibir();
  bool llevar(Tramo& t, bool deCaja);
  bool toca();
  void cortarTodo();

  QString destino_;
  int puerto_ = 0, escucha_ = -1;
  std::atomic<int> faltan_{0};
  std::atomic<bool> despues_{false}, cortado_{false}, acaba_{false};
  std::list<Tramo> tramos_;
=======
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
>>>>>>> main
  std::thread hilo_;
};
