#include "apoyo/impresora_doble.h"

#include <gtest/gtest.h>

#include <chrono>

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

#include "apoyo/enchufe.h"

namespace {

using namespace std::chrono_literals;

// The answers to n = 1 to 4.
QByteArray respuestas(ImpresoraDoble::Animo animo) {
  switch (animo) {
    case ImpresoraDoble::Animo::SinPapel: return "\x1A\x32\x12\x72";
    case ImpresoraDoble::Animo::TapaAbierta: return "\x1A\x16\x12\x12";
    case ImpresoraDoble::Animo::FueraDeLinea: return "\x1A\x12\x12\x12";
    default: return "\x12\x12\x12\x12";
  }
}

}  // namespace

ImpresoraDoble::ImpresoraDoble(Linea linea) : linea_(linea) {
  if (linea == Linea::Terminal) {
    fd_ = ::posix_openpt(O_RDWR | O_NOCTTY);
    EXPECT_TRUE(fd_ >= 0 && ::grantpt(fd_) == 0 && ::unlockpt(fd_) == 0);
    lugar_ = QString::fromLocal8Bit(::ptsname(fd_));
    esclavo_ = ::open(::ptsname(fd_), O_RDWR | O_NOCTTY);
  } else {
    int puerto = 0;
    fd_ = EnchufeEnLoopback(puerto);
    EXPECT_EQ(0, ::listen(fd_, 4));
    lugar_ = QStringLiteral("tcp:127.0.0.1:%1").arg(puerto);
  }
  hilo_ = std::thread([this] { servir(); });
}

ImpresoraDoble::~ImpresoraDoble() {
  fin_ = true;
  hilo_.join();
  if (esclavo_ >= 0) ::close(esclavo_);
  ::close(fd_);
}

QByteArray ImpresoraDoble::papel(qsizetype cuantos) {
  for (int n = 0;; ++n) {
    {
      const std::lock_guard guarda(cerrojo_);
      if (papel_.size() >= cuantos || n == 200) return papel_;
    }
    std::this_thread::sleep_for(10ms);
  }
}

// One caller after the other, as such printers have it.
void ImpresoraDoble::servir() {
  int cliente = linea_ == Linea::Terminal ? fd_ : -1;
  while (!fin_) {
    pollfd p{cliente >= 0 ? cliente : fd_, POLLIN, 0};
    if (animo == Animo::Atascada || ::poll(&p, 1, 10) <= 0) {
      std::this_thread::sleep_for(2ms);
      continue;
    }
    if (cliente < 0) {
      cliente = ::accept(fd_, nullptr, nullptr);
      continue;
    }
    char b[256];
    const ssize_t n = ::read(cliente, b, sizeof b);
    if (n > 0) {
      tomar(cliente, QByteArray(b, n));
    } else if (linea_ == Linea::Red) {
      ::close(cliente);
      cliente = -1;
    }
  }
  if (linea_ == Linea::Red && cliente >= 0) ::close(cliente);
}

void ImpresoraDoble::tomar(int fd, const QByteArray& bytes) {
  const std::lock_guard guarda(cerrojo_);
  resto_ += bytes;
  while (!resto_.isEmpty()) {
    const bool pregunta = resto_.startsWith("\x10\x04");
    if (resto_[0] == '\x10' && resto_.size() < 3) return;
    if (!pregunta) {
      papel_ += resto_[0];
      resto_.remove(0, 1);
      continue;
    }
    ++preguntas_;
    const int n = resto_[2];
    resto_.remove(0, 3);
    if (animo == Animo::Mudo || n < 1 || n > 4) continue;
    const QByteArray todas = respuestas(animo);
    EXPECT_EQ(1, ::write(fd, todas.constData() + n - 1, 1));
  }
}
