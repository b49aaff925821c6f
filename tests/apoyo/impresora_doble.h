#pragma once
// A ticket printer that speaks DLE EOT, on a pseudo terminal or on loopback TCP, in a thread of its own.
#include <QByteArray>
#include <QString>
#include <atomic>
#include <mutex>
#include <thread>

class ImpresoraDoble {
 public:
  enum class Linea { Terminal, Red };
  // What it says of itself. Mudo: takes bytes and answers nothing, as a printer does that knows no such question.
  // Atascada: takes nothing at all.
  enum class Animo { Bien, SinPapel, TapaAbierta, FueraDeLinea, Mudo, Atascada };

  explicit ImpresoraDoble(Linea linea);
  ~ImpresoraDoble();
  ImpresoraDoble(const ImpresoraDoble&) = delete;
  ImpresoraDoble& operator=(const ImpresoraDoble&) = delete;

  // Where a port is to be led: the terminal's device or "tcp:127.0.0.1:PORT".
  QString lugar() const { return lugar_; }
  std::atomic<Animo> animo{Animo::Bien};

  // What it has printed so far, questions left out. Waits for `cuantos` bytes, two seconds at most.
  QByteArray papel(qsizetype cuantos);
  int preguntas() const { return preguntas_; }

 private:
  void servir();
  void tomar(int fd, const QByteArray& bytes);

  Linea linea_;
  int fd_ = -1, esclavo_ = -1;  // terminal: its master, and its other end, held so that it never hangs up
  QString lugar_;
  std::atomic<bool> fin_{false};
  std::atomic<int> preguntas_{0};
  std::mutex cerrojo_;
  QByteArray papel_, resto_;
  std::thread hilo_;
};
