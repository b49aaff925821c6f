#include "platform/io/puertos_sistema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <cerrno>

#include "platform/io/archivo.h"
#include "platform/io/perfil.h"
#include "platform/io/senales.h"
#include "platform/text/texto.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

constexpr qint64 kMaximoEnvio = 64 << 20;
constexpr int kEsperaDispositivo_ms = 10'000;
const QString kImpresoraPdf = QStringLiteral("Impresora PDF");
const QString kPuertoPorDefecto = QStringLiteral("LPT1");

// A name that may stand in a folder on every system.
QString comoArchivo(const QString& nombre) {
  QString sale = nombre;
  for (QChar& c : sale) {
    if (c.unicode() < 0x20 || QStringLiteral("\\/:*?\"<>|").contains(c)) c = u'_';
  }
  while (sale.endsWith(u'.') || sale.endsWith(u' ')) sale.chop(1);
  return sale.isEmpty() ? QStringLiteral("_") : sale;
}

#ifdef Q_OS_UNIX
// An open file whose failures read as system error numbers; a device that takes no more is given up after a while.
class ArchivoAbierto {
 public:
  ArchivoAbierto(const QString& ruta, bool crear) {
    fd_ = ::open(QFile::encodeName(ruta).constData(),
                 O_WRONLY | O_APPEND | O_NOCTTY | O_CLOEXEC | O_NONBLOCK | (crear ? O_CREAT : 0), 0666);
  }
  ~ArchivoAbierto() {
    if (fd_ >= 0) ::close(fd_);
  }
  ArchivoAbierto(const ArchivoAbierto&) = delete;
  ArchivoAbierto& operator=(const ArchivoAbierto&) = delete;

  // 0 when all bytes are out and, for a file, on the disk.
  int escribir(const QByteArray& bytes) {
    if (fd_ < 0) return errno;
    qsizetype van = 0;
    while (van < bytes.size()) {
      const ssize_t n = ::write(fd_, bytes.constData() + van, static_cast<size_t>(bytes.size() - van));
      if (n >= 0) {
        van += n;
      } else if (errno == EAGAIN) {
        pollfd espera{fd_, POLLOUT, 0};
        const int r = ::poll(&espera, 1, kEsperaDispositivo_ms);
        if (r == 0) return ETIMEDOUT;
        if (r < 0 && errno != EINTR) return errno;
      } else if (errno != EINTR) {
        return errno == EPIPE ? ENXIO : errno;
      }
    }
    if (::fsync(fd_) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS) return 0;
    return errno;
  }

 private:
  int fd_;
};
#endif

QByteArray comoBytes(const QStringList& textos) {
  QString todo;
  for (const QString& t : textos) todo += t + QStringLiteral("\r\n");
  return AUnByte(todo);
}

}  // namespace

struct PuertosSistema::Destino {
  QString ruta;
  bool crear = false;  // a file that is made when it isn't there; a device never is

  std::optional<QString> agregar(const QByteArray& bytes) const {
    QFile f(ruta);
#ifdef Q_OS_UNIX
    const int error = ArchivoAbierto(ruta, crear).escribir(bytes);
    if (error != 0) return PalabrasDeError(error, f);
#else
    errno = 0;
    if (!f.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) return PalabrasDeError(errno, f);
    if (f.write(bytes) != bytes.size() || !AlDisco(f)) return PalabrasDeError(errno, f);
#endif
    return {};
  }
};

PuertosSistema::PuertosSistema(const QString& carpeta, ImpresorasSistema* sistema)
    : carpeta_(carpeta), sistema_(sistema) {
  FallasDeEscrituraComoErrores();  // a printer server that hangs up must not end the till
}

PuertosSistema::Destino PuertosSistema::destinoDe(const QString& puerto) const {
  QString nombre = puerto.trimmed();
  QString mapa;
  for (const auto& [clave, valor] :
       LeerSeccionPerfil(carpeta_ + QStringLiteral("/KEB.cfg"), QStringLiteral("PUERTOS"))) {
    const bool igual = clave.compare(nombre, Qt::CaseInsensitive) == 0;
    const bool sinDosPuntos = nombre.endsWith(u':') && clave.compare(nombre.chopped(1), Qt::CaseInsensitive) == 0;
    if (igual || sinDosPuntos) mapa = valor;
    if (igual) break;
  }
  if (!mapa.isEmpty()) {
    const QString ruta = QDir(carpeta_).absoluteFilePath(mapa);
    return {ruta, !ruta.startsWith(QStringLiteral("/dev/")) && !ruta.startsWith(QStringLiteral("\\\\.\\"))};
  }
#ifdef Q_OS_WIN
  return {nombre, false};
#else
  return {carpeta_ + QStringLiteral("/puertos/") + comoArchivo(nombre), true};
#endif
}

QStringList DocumentoImpreso::textos() const {
  QStringList lista;
  for (const auto& parte : partes) lista << parte.texto;
  return lista;
}

std::optional<QString> PuertosSistema::copiar(const QString& archivo, const QString& puerto) {
  if (puerto.trimmed().isEmpty()) {
    return QStringLiteral("No se pudo imprimir: la impresora no tiene puerto. Revise la configuración de impresoras.");
  }
  QByteArray bytes;
  if (const auto e = LeerBytes(archivo, bytes, kMaximoEnvio)) {
    return QStringLiteral("No se pudo leer el archivo de impresión %1: %2.").arg(archivo, *e);
  }
  const Destino d = destinoDe(puerto);
  if (d.crear) QDir().mkpath(QFileInfo(d.ruta).path());
  if (const auto e = d.agregar(bytes)) {
    return QStringLiteral(
               "No se pudo enviar al puerto %1 (%2): %3. Revise la impresora y vuelva a imprimir el documento.")
        .arg(puerto, d.ruta, *e);
  }
  return {};
}

void PuertosSistema::enviarSinEsperar(const QString& archivo, const QString& puerto) {
  const Destino d = destinoDe(puerto);
  if (d.crear) {  // a file takes the bytes at once, there is nothing to wait for
    copiar(archivo, puerto);
    return;
  }
#ifdef Q_OS_WIN
  QProcess::startDetached(QStringLiteral("cmd.exe"),
                          {QStringLiteral("/c"), QStringLiteral("TYPE"), archivo, QStringLiteral(">"), d.ruta});
#else
  QProcess::startDetached(QStringLiteral("/bin/sh"),
                          {QStringLiteral("-c"), QStringLiteral("cat \"$0\" > \"$1\" 2>/dev/null"), archivo, d.ruta});
#endif
}

QList<ImpresoraSistema> PuertosSistema::impresoras() {
  QList<ImpresoraSistema> lista;
  auto propias = LeerSeccionPerfil(carpeta_ + QStringLiteral("/KEB.cfg"), QStringLiteral("IMPRESORAS"));
  if (sistema_) {
    for (const QString& nombre : sistema_->nombres()) {
      // A system printer named in the section too takes its port from there.
      ImpresoraSistema una{nombre, kPuertoPorDefecto};
      propias.removeIf([&una](const auto& propia) {
        if (propia.first != una.nombre) return false;
        una.puerto = propia.second;
        return true;
      });
      lista << una;
    }
  }
  for (const auto& [nombre, puerto] : propias) lista << ImpresoraSistema{nombre, puerto};
  if (lista.isEmpty()) lista << ImpresoraSistema{kImpresoraPdf, kPuertoPorDefecto};
  return lista;
}

QString PuertosSistema::impresoraPorDefecto() {
  const QString propia = sistema_ ? sistema_->porDefecto() : QString();
  return propia.isEmpty() ? impresoras().front().nombre : propia;
}

std::optional<QString> PuertosSistema::imprimir(const QString& impresora, const QString& letra, int tamano,
                                                const DocumentoImpreso& documento) {
  if (sistema_ && sistema_->nombres().contains(impresora)) {
    const auto e = sistema_->imprimir(impresora, letra, tamano, documento);
    if (!e) return {};
    return QStringLiteral("No se pudo imprimir en %1: %2. Revise la impresora y vuelva a imprimir el documento.")
        .arg(impresora, *e);
  }
  const auto lista = impresoras();
  for (const auto& i : lista) {
    if (i.nombre == impresora) return imprimirEnCarpeta(impresora, letra, tamano, documento);
  }
  return QStringLiteral("La impresora %1 no está en este equipo. Elija otra en la configuración de impresoras.")
      .arg(impresora);
}

std::optional<QString> PuertosSistema::guardarPdf(const QString& archivo, const QString& letra, int tamano,
                                                  const DocumentoImpreso& documento) {
  if (!sistema_) return Puertos::guardarPdf(archivo, letra, tamano, documento);
  const auto e = sistema_->escribirPdf(archivo, letra, tamano, documento);
  return e ? std::optional(QStringLiteral("No se pudo guardar %1: %2.").arg(archivo, *e)) : std::nullopt;
}

std::optional<QString> PuertosSistema::imprimirEnCarpeta(const QString& impresora, const QString& letra, int tamano,
                                                         const DocumentoImpreso& documento) {
  const QDir impresos(carpeta_ + QStringLiteral("/impresos"));
  const auto fallo = [&impresos](const QString& palabras) {
    return QStringLiteral("No se pudo guardar el documento en %1: %2.").arg(impresos.path(), palabras);
  };
  if (!QDir().mkpath(impresos.path())) return fallo(QStringLiteral("no se pudo crear la carpeta"));
  if (ultimoImpreso_ < 0) {
    ultimoImpreso_ = 0;
    for (const QString& nombre : impresos.entryList({QStringLiteral("*.txt")}, QDir::Files)) {
      ultimoImpreso_ = std::max(ultimoImpreso_, nombre.chopped(4).section(u'_', -1).toInt());
    }
  }
  const QString base = impresos.filePath(comoArchivo(impresora) + u'_' + Ceros(QString::number(++ultimoImpreso_), 6));
  if (const auto e = SustituirArchivo(base + QStringLiteral(".txt"), comoBytes(documento.textos()))) return fallo(*e);
  if (!sistema_) return {};
  if (const auto e = sistema_->escribirPdf(base + QStringLiteral(".pdf"), letra, tamano, documento)) return fallo(*e);
  return {};
}
