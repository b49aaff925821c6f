#pragma once
// A server on loopback that never says a word: it lets everybody connect, or, with its queue full, nobody.
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QString>
#include <vector>

enum class Mudez { recibe, colaLlena, nadie };  // accepts; drops the first packet of each newcomer; refuses

class ServidorMudo {
 public:
  explicit ServidorMudo(Mudez como) : fd_(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in d{};
    d.sin_family = AF_INET;
    d.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t largo = sizeof d;
    ::bind(fd_, reinterpret_cast<sockaddr*>(&d), largo);
    ::getsockname(fd_, reinterpret_cast<sockaddr*>(&d), &largo);
    puerto_ = ntohs(d.sin_port);
    if (como != Mudez::nadie) ::listen(fd_, como == Mudez::recibe ? 16 : 0);
    if (como != Mudez::colaLlena) return;
    for (int i = 0; i < 4; ++i) {
      clientes_.push_back(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0));
      ::connect(clientes_.back(), reinterpret_cast<sockaddr*>(&d), largo);
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
  int fd_;
  int puerto_ = 0;
  std::vector<int> clientes_;
};
