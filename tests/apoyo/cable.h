#pragma once
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
  ~Cable();
  Cable(const Cable&) = delete;
  Cable& operator=(const Cable&) = delete;

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
  std::thread hilo_;
};
