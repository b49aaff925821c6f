#include "platform/io/linea_impresora.h"

#include <QDeadlineTimer>
#include <QFile>
#include <algorithm>
#include <cerrno>

#include "platform/io/archivo.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr int kConexion_ms = 2'000, kSinAvance_ms = 10'000;
const QString kRed = QStringLiteral("tcp:"), kPuertoRed = QStringLiteral("9100");  // raw printing's usual one

const struct {
  int baudios;
  speed_t valor;
} kVelocidades[] = {{1200, B1200},   {2400, B2400},   {4800, B4800},   {9600, B9600},
                    {19200, B19200}, {38400, B38400}, {57600, B57600}, {115200, B115200}};

std::optional<speed_t> velocidadDe(const QString& texto) {
  for (const auto& v : kVelocidades)
    if (texto == QString::number(v.baudios)) return v.valor;
  return {};
}

// No echo, no line ends of its own, no signals: the bytes as they are. False when the device refuses.
bool ponerCrudo(int fd, std::optional<speed_t> velocidad) {
  termios t{};
  if (::tcgetattr(fd, &t) != 0) return false;
  ::cfmakeraw(&t);
  t.c_cflag |= CLOCAL | CREAD;
  t.c_cc[VMIN] = 0;
  t.c_cc[VTIME] = 0;
  if (velocidad) ::cfsetspeed(&t, *velocidad);
  return ::tcsetattr(fd, TCSANOW, &t) == 0;
}

}  // namespace

LineaImpresora::~LineaImpresora() {
  if (avisado_) aviso_({}, 0);
  if (fd_ < 0) return;
  // An answer left unread would make the system drop what is still on its way.
  char resto[64];
  while (red_ && ::recv(fd_, resto, sizeof resto, MSG_DONTWAIT) > 0) {
  }
  ::close(fd_);
}

std::optional<QString> LineaImpresora::abrir(const QString& destino, bool crear, const AvisoEspera& aviso) {
  aviso_ = aviso;
  abierta_.start();
  nombre_ = destino;
  red_ = destino.startsWith(kRed, Qt::CaseInsensitive);
  return red_ ? conectar(destino.mid(kRed.size())) : abrirArchivo(destino, crear);
}

std::optional<QString> LineaImpresora::palabras(int error) const {
  if (error == 0) return {};
  if (error == ETIMEDOUT) return QStringLiteral("la impresora no responde o no recibe más datos");
  if (red_ && (error == ECONNREFUSED || error == EHOSTUNREACH || error == ENETUNREACH || error == ECONNRESET)) {
    return QStringLiteral("la impresora no responde en la red; vea si está encendida y conectada");
  }
  return PalabrasDeError(error == EPIPE ? ENXIO : error, QFile(nombre_));
}

std::optional<QString> LineaImpresora::conectar(const QString& direccion) {
  const qsizetype corte = direccion.lastIndexOf(u':');
  const bool conPuerto = corte > 0 && !direccion.endsWith(u']');
  QString casa = conPuerto ? direccion.first(corte) : direccion;
  const QString puerto = conPuerto ? direccion.mid(corte + 1) : kPuertoRed;
  if (casa.startsWith(u'[') && casa.endsWith(u']')) casa = casa.mid(1, casa.size() - 2);
  addrinfo pide{}, *hay = nullptr;
  pide.ai_socktype = SOCK_STREAM;
  pide.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
  if (::getaddrinfo(casa.toLatin1().constData(), puerto.toLatin1().constData(), &pide, &hay) != 0) {
    return QStringLiteral("la dirección se escribe en números, como tcp:192.168.1.50:9100");
  }
  fd_ = ::socket(hay->ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  int error = fd_ < 0 || ::connect(fd_, hay->ai_addr, hay->ai_addrlen) == 0 ? 0 : errno;
  if (fd_ < 0) error = errno;
  ::freeaddrinfo(hay);
  if (error == EINPROGRESS) {
    socklen_t largo = sizeof error;
    error = 0;
    if (!esperar(POLLOUT, QDeadlineTimer(kConexion_ms))) error = ETIMEDOUT;
    else if (::getsockopt(fd_, SOL_SOCKET, SO_ERROR, &error, &largo) != 0) error = errno;
  }
  responde_ = error == 0;
  return palabras(error);
}

std::optional<QString> LineaImpresora::abrirArchivo(const QString& destino, bool crear) {
  QString ruta = destino;
  std::optional<speed_t> velocidad;
  if (const qsizetype corte = ruta.lastIndexOf(u':'); ruta.startsWith(u"/dev/") && corte > 0) {
    velocidad = velocidadDe(ruta.mid(corte + 1));
    if (!velocidad) return QStringLiteral("la velocidad %1 no existe").arg(ruta.mid(corte + 1));
    ruta.truncate(corte);
  }
  const QByteArray nombre = QFile::encodeName(ruta);
  const int modo = O_APPEND | O_NOCTTY | O_CLOEXEC | O_NONBLOCK | (crear ? O_CREAT : 0);
  struct stat que {};
  const bool aparato = ::stat(nombre.constData(), &que) == 0 && S_ISCHR(que.st_mode);
  if (aparato) fd_ = ::open(nombre.constData(), O_RDWR | modo);
  responde_ = fd_ >= 0 && (::isatty(fd_) || ruta.contains(u"/usb/lp"));
  if (fd_ < 0) fd_ = ::open(nombre.constData(), O_WRONLY | modo, 0666);
  if (fd_ < 0) return palabras(errno);
  if (::isatty(fd_) && !ponerCrudo(fd_, velocidad)) return palabras(errno);
  return {};
}

// False when the time is up.
bool LineaImpresora::esperar(short que, const QDeadlineTimer& plazo) {
  for (;;) {
    const int queda = static_cast<int>(std::clamp<qint64>(plazo.remainingTime(), 0, kPasoEspera_ms));
    pollfd espera{fd_, que, 0};
    const int r = ::poll(&espera, 1, queda);
    if (r > 0 || (r < 0 && errno != EINTR)) return true;  // what is wrong tells the next call
    if (plazo.hasExpired()) return false;
    if (!aviso_) continue;
    avisado_ = true;
    aviso_(QStringLiteral("Esperando a la impresora…"), static_cast<int>(abierta_.elapsed()));
  }
}

std::optional<QString> LineaImpresora::escribir(const QByteArray& bytes) {
  qsizetype van = 0;
  while (van < bytes.size()) {
    const ssize_t n = ::write(fd_, bytes.constData() + van, static_cast<size_t>(bytes.size() - van));
    if (n >= 0) {
      van += n;
    } else if (errno == EAGAIN) {
      if (!esperar(POLLOUT, QDeadlineTimer(kSinAvance_ms))) return palabras(ETIMEDOUT);
    } else if (errno != EINTR) {
      return palabras(errno);
    }
  }
  if (red_ || responde_ || ::fsync(fd_) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS) return {};
  return palabras(errno);
}

QByteArray LineaImpresora::leer(int cuantos, int plazo_ms) {
  QByteArray sale;
  const QDeadlineTimer plazo(plazo_ms);
  while (sale.size() < cuantos && esperar(POLLIN, plazo)) {
    char b[64];
    const ssize_t n = ::read(fd_, b, static_cast<size_t>(std::min<qsizetype>(sizeof b, cuantos - sale.size())));
    if (n <= 0) break;
    sale.append(b, n);
  }
  return sale;
}

#else  // the devices of other systems are files that only take

LineaImpresora::~LineaImpresora() = default;

std::optional<QString> LineaImpresora::abrir(const QString& destino, bool, const AvisoEspera& aviso) {
  nombre_ = destino;
  aviso_ = aviso;
  return {};
}

std::optional<QString> LineaImpresora::escribir(const QByteArray& bytes) {
  QFile f(nombre_);
  errno = 0;
  if (!f.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) return PalabrasDeError(errno, f);
  if (f.write(bytes) != bytes.size() || !AlDisco(f)) return PalabrasDeError(errno, f);
  return {};
}

QByteArray LineaImpresora::leer(int, int) { return {}; }

#endif
