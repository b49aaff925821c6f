#include "apoyo/cable.h"

#include <arpa/inet.h>
<<<<<<< HEAD
#include <netinet/in.h>
#include <netinet/tcp.h>
=======
>>>>>>> main
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

<<<<<<< HEAD
#include <cstring>
=======
#include <QByteArray>
>>>>>>> main
#include <vector>

namespace {

sockaddr_in lugar(int puerto) {
<<<<<<< HEAD
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
=======
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
    if (delPuesto && !h.pregunta) {
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
>>>>>>> main
}
