#include "apoyo/cable.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QByteArray>
#include <vector>

namespace {

sockaddr_in lugar(int puerto) {
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_port = htons(static_cast<uint16_t>(puerto));
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return a;
}

// Gone at once, so that nobody waits for an answer.
void soltar(int socket) {
  const linger ya{1, 0};
  ::setsockopt(socket, SOL_SOCKET, SO_LINGER, &ya, sizeof ya);
  ::close(socket);
}

// The end of an answer: the server is ready for the next question, or asks for the password.
bool completa(const QByteArray& respuesta) {
  const bool listo = respuesta.size() >= 6 && respuesta.mid(respuesta.size() - 6, 5) == QByteArray("Z\0\0\0\5", 5);
  return listo || (respuesta.startsWith('R') && !respuesta.mid(5, 4).startsWith(QByteArray(4, '\0'))) ||
         respuesta == "N" || respuesta.startsWith('E');
}

}  // namespace

// Both ends of one connection.
struct Cable::Hilo {
  int puesto = -1, servidor = -1;
  bool pregunta = false;  // what came last came from the desk
  bool traga = false;     // its answer is waited for and not handed on
  QByteArray respuesta{};
};

Cable::Cable(const QString& servidor) : destino_(servidor.section(u':', 1).toInt()) {
  escucha_ = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in a = lugar(0);
  socklen_t largo = sizeof a;
  if (::bind(escucha_, reinterpret_cast<sockaddr*>(&a), largo) != 0 || ::listen(escucha_, 16) != 0 ||
      ::getsockname(escucha_, reinterpret_cast<sockaddr*>(&a), &largo) != 0) {
    qFatal("the relay does not open");
  }
  puerto_ = ntohs(a.sin_port);
  hilo_ = std::thread([this] { correr(); });
}

Cable::~Cable() {
  fin_ = true;
  hilo_.join();
  ::close(escucha_);
}

void Cable::cortar(int n, Corte corte, bool vuelve) {
  corteEn_ = 0;
  viajes_ = 0;
  cortado_ = caido_ = false;
  corte_ = corte;
  vuelve_ = vuelve;
  corteEn_ = n;
}

void Cable::correr() {
  std::vector<Hilo> hilos;
  QByteArray trozo(1 << 16, '\0');
  const auto cerrarTodos = [&] {
    for (const Hilo& h : hilos) {
      soltar(h.puesto);
      ::close(h.servidor);
    }
    hilos.clear();
  };
  // The n-th round trip is here: all connections go.
  const auto cortarYa = [&] {
    cortado_ = true;
    caido_ = !vuelve_;
    corteEn_ = 0;
    cerrarTodos();
  };
  // One piece of one side; false when the connection has ended, or all have.
  const auto pasar = [&](Hilo& h, bool delPuesto) {
    const ssize_t n = ::recv(delPuesto ? h.puesto : h.servidor, trozo.data(), static_cast<size_t>(trozo.size()), 0);
    if (n <= 0) return false;
    const bool adios = delPuesto && n == 5 && trozo[0] == 'X';  // nobody answers that
    if (delPuesto && !h.pregunta && !adios) {
      h.pregunta = true;
      const bool toca = ++viajes_ == corteEn_;
      if (toca && corte_ == Corte::Antes) {
        cortarYa();
        return false;
      }
      if (toca && corte_ == Corte::EnCamino) {
        (void)::send(h.servidor, trozo.constData(), static_cast<size_t>(n), MSG_NOSIGNAL);
        cortarYa();
        return false;
      }
      h.traga = toca;
      h.respuesta.clear();
    }
    if (!delPuesto) {
      h.pregunta = false;
      if (h.traga) {
        h.pregunta = true;
        h.respuesta.append(trozo.constData(), n);
        if (completa(h.respuesta)) cortarYa();
        return !hilos.empty();
      }
    }
    return ::send(delPuesto ? h.servidor : h.puesto, trozo.constData(), static_cast<size_t>(n), MSG_NOSIGNAL) == n;
  };
  while (!fin_) {
    std::vector<pollfd> miran{{escucha_, POLLIN, 0}};
    for (const Hilo& h : hilos) {
      miran.push_back({h.puesto, POLLIN, 0});
      miran.push_back({h.servidor, POLLIN, 0});
    }
    if (::poll(miran.data(), miran.size(), 20) <= 0) continue;
    for (size_t i = 1; i < miran.size(); ++i) {
      if (miran[i].revents == 0) continue;
      const size_t cual = (i - 1) / 2;
      if (pasar(hilos[cual], i % 2 == 1)) continue;
      if (hilos.empty()) break;
      soltar(hilos[cual].puesto);
      ::close(hilos[cual].servidor);
      hilos.erase(hilos.begin() + static_cast<std::ptrdiff_t>(cual));
      break;  // the places have moved
    }
    if (miran[0].revents == 0) continue;
    Hilo h;
    h.puesto = ::accept(escucha_, nullptr, nullptr);
    h.servidor = ::socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in a = lugar(destino_);
    if (caido_ || ::connect(h.servidor, reinterpret_cast<const sockaddr*>(&a), sizeof a) != 0) {
      soltar(h.puesto);
      ::close(h.servidor);
    } else {
      hilos.push_back(h);
    }
  }
  cerrarTodos();
}
