#include "admin/simula_alambre.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <list>
#include <vector>

namespace {

constexpr int kRonda_ms = 20;
constexpr int kEsperaRespuesta_ms = 10'000;

sockaddr_in enLoopback(int puerto) {
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  a.sin_port = htons(static_cast<std::uint16_t>(puerto));
  return a;
}

void sinDemora(int s) {
  const int si = 1;
  (void)::setsockopt(s, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
}

}  // namespace

struct Alambre::Par {
  int caja = -1, servidor = -1;

  Par(int c, int s) : caja(c), servidor(s) {}
  ~Par() {
    ::close(caja);
    ::close(servidor);
  }
  Par(const Par&) = delete;
  Par& operator=(const Par&) = delete;
};

Alambre::~Alambre() {
  fin_ = true;
  if (hilo_.joinable()) hilo_.join();
  if (escucha_ >= 0) ::close(escucha_);
}

bool Alambre::tender(int puertoServidor) {
  puertoServidor_ = puertoServidor;
  escucha_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in a = enLoopback(0);
  socklen_t largo = sizeof a;
  if (escucha_ < 0 || ::bind(escucha_, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0 || ::listen(escucha_, 64) != 0 ||
      ::getsockname(escucha_, reinterpret_cast<sockaddr*>(&a), &largo) != 0) {
    return false;
  }
  puerto_ = ntohs(a.sin_port);
  hilo_ = std::thread([this] { relevar(); });
  return true;
}

void Alambre::cortar(int n, bool respuestaPerdida, bool lejos) {
  perdida_ = respuestaPerdida;
  lejos_ = lejos;
  cortado_ = false;
  faltan_ = n;
}

bool Alambre::reponer() {
  faltan_ = 0;
  caido_ = false;
  return cortado_.exchange(false);
}

bool Alambre::tocaCortar() {
  if (faltan_ == 0 || --faltan_ > 0) return false;
  cortado_ = true;
  caido_ = lejos_.load();
  return true;
}

// What one side has to say goes to the other. False when the pair is over.
bool Alambre::pasar(Par& par, bool haciaServidor) {
  char bytes[65536];
  const int de = haciaServidor ? par.caja : par.servidor, a = haciaServidor ? par.servidor : par.caja;
  const ssize_t n = ::recv(de, bytes, sizeof bytes, 0);
  if (n <= 0) return false;
  const bool corte = haciaServidor && tocaCortar();
  if (corte && !perdida_) return false;
  for (ssize_t van = 0; van < n;) {
    const ssize_t k = ::send(a, bytes + van, static_cast<size_t>(n - van), MSG_NOSIGNAL);
    if (k <= 0) return false;
    van += k;
  }
  if (!corte) return true;
  // The server has done it once it answers.
  pollfd p{par.servidor, POLLIN, 0};
  (void)::poll(&p, 1, kEsperaRespuesta_ms);
  return false;
}

void Alambre::relevar() {
  std::list<Par> pares;
  while (!fin_) {
    std::vector<pollfd> ojos{{escucha_, POLLIN, 0}};
    for (const Par& p : pares) {
      ojos.push_back({p.caja, POLLIN, 0});
      ojos.push_back({p.servidor, POLLIN, 0});
    }
    if (::poll(ojos.data(), ojos.size(), kRonda_ms) <= 0) continue;
    size_t i = 1;
    bool todas = false;
    for (auto p = pares.begin(); p != pares.end(); i += 2) {
      const bool antes = cortado_;
      bool sigue = ojos[i].revents == 0 || pasar(*p, true);
      todas = todas || (cortado_ && !antes);
      sigue = sigue && (ojos[i + 1].revents == 0 || pasar(*p, false));
      p = sigue ? std::next(p) : pares.erase(p);
    }
    if (todas) pares.clear();
    if ((ojos[0].revents & POLLIN) == 0) continue;
    const int caja = ::accept4(escucha_, nullptr, nullptr, SOCK_CLOEXEC);
    const int servidor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in alla = enLoopback(puertoServidor_);
    if (caja >= 0 && servidor >= 0 && !caido_ &&
        ::connect(servidor, reinterpret_cast<const sockaddr*>(&alla), sizeof alla) == 0) {
      sinDemora(caja);
      sinDemora(servidor);
      pares.emplace_back(caja, servidor);
      continue;
    }
    if (caja >= 0) ::close(caja);
    if (servidor >= 0) ::close(servidor);
  }
}
#else
struct Alambre::Par {};
Alambre::~Alambre() = default;
bool Alambre::tender(int) { return false; }
void Alambre::cortar(int, bool, bool) {}
bool Alambre::reponer() { return false; }
#endif

std::unique_ptr<Motor> MotoresPorAlambre::abrir(const QString& cadena, int espera_ms, ErrorBD& error) {
  QString desviada = cadena;
  desviada.replace(QStringLiteral("127.0.0.1:%1").arg(puertoServidor_),
                   QStringLiteral("127.0.0.1:%1").arg(alambre_.puerto()));
  return real_.abrir(desviada, espera_ms, error);
}
