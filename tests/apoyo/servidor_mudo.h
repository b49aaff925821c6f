#pragma once
// A server on loopback that never says a word: it lets everybody connect, or, with its queue full, nobody.
#include <fcntl.h>

#include <QString>
#include <vector>

#include "apoyo/enchufe.h"

enum class Mudez { recibe, colaLlena, nadie };  // accepts; drops the first packet of each newcomer; refuses

class ServidorMudo {
 public:
  explicit ServidorMudo(Mudez como) : fd_(EnchufeEnLoopback(puerto_)) {
    if (como != Mudez::nadie) ::listen(fd_, como == Mudez::recibe ? 16 : 0);
    if (como != Mudez::colaLlena) return;
    sockaddr_in d = EnLoopback(puerto_);
    for (int i = 0; i < 4; ++i) {
      clientes_.push_back(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0));
      ::connect(clientes_.back(), reinterpret_cast<sockaddr*>(&d), sizeof d);
    }
  }
  ~ServidorMudo() {
    for (int c : clientes_) ::close(c);
    ::close(fd_);
  }
  ServidorMudo(const ServidorMudo&) = delete;
  ServidorMudo& operator=(const ServidorMudo&) = delete;

  QString cadena() const {
    return QStringLiteral(
               "Provider=SQLOLEDB.1;User ID=u;Password=p;Initial Catalog=c;Data Source=postgres:127.0.0.1:%1")
        .arg(puerto_);
  }

 private:
  int puerto_ = 0;  // before the socket, which tells it
  int fd_;
  std::vector<int> clientes_;
};
