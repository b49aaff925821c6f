#include "apoyo/cable.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <vector>

namespace {

sockaddr_in lugar(int puerto) {
  sockaddr_in d{};
  d.sin_family = AF_INET;
  d.sin_port = htons(static_cast<uint16_t>(puerto));
  d.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return d;
}

int enchufe() {
  const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const int uno = 1;
  ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &uno, sizeof uno);
  return fd;
}

bool enviar(int fd, const char* datos, ssize_t n) {
  while (n > 0) {
    const ssize_t van = ::send(fd, datos, static_cast<size_t>(n), MSG_NOSIGNAL);
    if (van <= 0) return false;
    datos += van;
    n -= van;
  }
  return true;
}

// The server is ready for the next question.
bool listo(const char* datos, ssize_t n) { return n >= 6 && !std::memcmp(datos + n - 6, "Z\0\0\0\5", 5); }

}  // namespace

Cable::Cable(const QString& servidor) : destino_(servidor), escucha_(enchufe()) {
  sockaddr_in d = lugar(0);
  socklen_t largo = sizeof d;
  ::bind(escucha_, reinterpret_cast<sockaddr*>(&d), largo);
  ::getsockname(escucha_, reinterpret_cast<sockaddr*>(&d), &largo);
  puerto_ = ntohs(d.sin_port);
  ::listen(escucha_, 16);
  hilo_ = std::thread([this] { servir(); });
}

Cable::~Cable() {
  acaba_ = true;
  hilo_.join();
  cortarTodo();
  ::close(escucha_);
}

void Cable::cortarEn(int n, Corte corte) {
  cortado_ = false;
  despues_ = corte == Corte::despues;
  faltan_ = n;
}

bool Cable::toca() { return faltan_ > 0 && --faltan_ == 0; }

void Cable::cortarTodo() {
  for (const Tramo& t : tramos_) {
    ::close(t.caja);
    ::close(t.servidor);
  }
  tramos_.clear();
}

void Cable::recibir() {
  const int caja = ::accept4(escucha_, nullptr, nullptr, SOCK_CLOEXEC);
  if (caja < 0) return;
  if (cortado_ || toca()) {
    cortado_ = true;
    ::close(caja);
    return cortarTodo();
  }
  const int servidor = enchufe();
  sockaddr_in d = lugar(destino_.section(u':', -1).toInt());
  ::connect(servidor, reinterpret_cast<sockaddr*>(&d), sizeof d);
  tramos_.push_back({caja, servidor});
}

// False when the stretch is over.
bool Cable::llevar(Tramo& t, bool deCaja) {
  char datos[65536];
  const ssize_t n = ::recv(deCaja ? t.caja : t.servidor, datos, sizeof datos, 0);
  if (n <= 0) return false;
  const bool despedida = n == 5 && datos[0] == 'X';
  if (deCaja && t.abierta && !t.pregunta && !despedida && toca()) {
    if (!despues_) {
      cortado_ = true;
      return false;
    }
    t.callar = true;
  }
  t.pregunta = deCaja;
  if (!deCaja && listo(datos, n)) {
    t.abierta = true;
    if (t.callar) {
      cortado_ = true;
      return false;
    }
  }
  return (!deCaja && t.callar) || enviar(deCaja ? t.servidor : t.caja, datos, n);
}

void Cable::servir() {
  while (!acaba_) {
    std::vector<pollfd> oidos{{escucha_, POLLIN, 0}};
    for (const Tramo& t : tramos_) {
      oidos.push_back({t.caja, POLLIN, 0});
      oidos.push_back({t.servidor, POLLIN, 0});
    }
    if (::poll(oidos.data(), oidos.size(), 20) <= 0) continue;
    size_t i = 1;
    for (auto t = tramos_.begin(); t != tramos_.end(); i += 2) {
      const bool sigue = (!oidos[i].revents || llevar(*t, true)) && (!oidos[i + 1].revents || llevar(*t, false));
      if (sigue) {
        ++t;
        continue;
      }
      ::close(t->caja);
      ::close(t->servidor);
      t = tramos_.erase(t);
    }
    if (cortado_) cortarTodo();
    if (oidos[0].revents) recibir();
  }
}
