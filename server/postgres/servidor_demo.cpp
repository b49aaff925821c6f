#include "postgres/servidor_demo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include "platform/io/archivo.h"
#include "platform/sql/motor_postgres.h"
#include "postgres/base_postgres.h"

#ifdef Q_OS_UNIX
#include <arpa/inet.h>
#include <pwd.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

const QString kUsuarioDemo = QStringLiteral("tarvopos");

QString ServidorDemo::palabras() const {
  return QStringLiteral("postgres:%1:%2@127.0.0.1:%3").arg(kUsuarioDemo, clave).arg(puerto);
}

#ifdef Q_OS_UNIX
namespace {

using Palabras = std::optional<QString>;

constexpr int kEspera_ms = 30000;

QString en(const QString& carpeta, const char* nombre) { return QDir(carpeta).filePath(QString::fromLatin1(nombre)); }

// The folder of the newest server program of this machine that is new enough; "" when there is none.
QString programas() {
  QStringList carpetas = QString::fromLocal8Bit(qgetenv("PATH")).split(u':', Qt::SkipEmptyParts);
  const QDir debian(QStringLiteral("/usr/lib/postgresql"));
  QStringList versiones = debian.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  std::sort(versiones.begin(), versiones.end(),
            [](const QString& a, const QString& b) { return a.toInt() > b.toInt(); });
  for (const QString& v : versiones) {
    if (v.toInt() >= kPostgresMinimo) carpetas << debian.filePath(v + QStringLiteral("/bin"));
  }
  for (const QString& c : carpetas) {
    if (QFileInfo(c + QStringLiteral("/initdb")).isExecutable() &&
        QFileInfo(c + QStringLiteral("/postgres")).isExecutable()) {
      return c;
    }
  }
  return {};
}

// The server refuses to run as the administrator; then it runs as the user that its package has made.
const passwd* otroUsuario() { return ::geteuid() == 0 ? ::getpwnam("postgres") : nullptr; }

QStringList comoUsuario(const QStringList& orden) {
  const passwd* otro = otroUsuario();
  if (!otro) return orden;
  return QStringList{QStringLiteral("setpriv"), QStringLiteral("--reuid=%1").arg(otro->pw_uid),
                     QStringLiteral("--regid=%1").arg(otro->pw_gid), QStringLiteral("--clear-groups")} +
         orden;
}

// A port that nobody uses now; 0 on failure.
int puertoLibre() {
  const int s = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t largo = sizeof a;
  int puerto = 0;
  if (s >= 0 && ::bind(s, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0 &&
      ::getsockname(s, reinterpret_cast<sockaddr*>(&a), &largo) == 0) {
    puerto = ntohs(a.sin_port);
  }
  if (s >= 0) ::close(s);
  return puerto;
}

QString leerLinea(const QString& archivo, int linea) {
  QFile f(archivo);
  if (!f.open(QIODevice::ReadOnly)) return {};
  return QString::fromUtf8(f.readAll()).section(u'\n', linea, linea).trimmed();
}

// The process that serves the folder, 0 when none does. A number that the system has given to another program since is
// not taken for it.
qint64 procesoDe(const QString& carpeta) {
  const QString estado = en(carpeta, "datos/postmaster.pid");
  const qint64 pid = leerLinea(estado, 0).toLongLong();
  if (pid <= 0 || ::kill(static_cast<pid_t>(pid), 0) != 0) return 0;
  QFile orden(QStringLiteral("/proc/%1/cmdline").arg(pid));
  if (orden.open(QIODevice::ReadOnly) && !orden.readAll().contains(en(carpeta, "datos").toUtf8())) return 0;
  return pid;
}

Palabras correr(const QStringList& orden) {
  QProcess p;
  p.setProcessChannelMode(QProcess::MergedChannels);
  p.setWorkingDirectory(QStringLiteral("/"));
  p.start(orden[0], orden.mid(1));
  if (!p.waitForFinished(kEspera_ms)) return QStringLiteral("no se pudo ejecutar %1.").arg(orden[0]);
  if (p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0) return {};
  return QString::fromUtf8(p.readAll()).trimmed();
}

QString claveNueva() {
  const QString letras = QStringLiteral("abcdefghjkmnpqrstuvwxyz23456789");
  QString clave;
  for (int i = 0; i < 16; ++i) clave += letras[QRandomGenerator::system()->bounded(int(letras.size()))];
  return clave;
}

// Password first: the server's own program reads it from the file when it makes the data.
Palabras hacerDatos(const QString& carpeta, const QString& programa) {
  const passwd* otro = otroUsuario();
  if (::geteuid() == 0 && !otro) return QStringLiteral("Falta el usuario «postgres», del paquete postgresql.");
  if (!QDir().mkpath(carpeta)) return QStringLiteral("No se pudo crear la carpeta %1.").arg(carpeta);
  const QString clave = en(carpeta, "clave");
  if (const auto error = SustituirArchivo(clave, claveNueva().toUtf8() + '\n')) {
    return QStringLiteral("No se pudo crear %1: %2.").arg(clave, *error);
  }
  QFile::setPermissions(clave, QFile::ReadOwner | QFile::WriteOwner);
  if (otro && (::chown(QFile::encodeName(carpeta).constData(), otro->pw_uid, otro->pw_gid) != 0 ||
               ::chown(QFile::encodeName(clave).constData(), otro->pw_uid, otro->pw_gid) != 0)) {
    return QStringLiteral("No se pudo dar la carpeta %1 al usuario «postgres».").arg(carpeta);
  }
  const auto error = correr(comoUsuario(
      {programa + QStringLiteral("/initdb"), QStringLiteral("-D"), en(carpeta, "datos"), QStringLiteral("-U"),
       kUsuarioDemo, QStringLiteral("-A"), QStringLiteral("scram-sha-256"), QStringLiteral("--pwfile=") + clave,
       QStringLiteral("-E"), QStringLiteral("UTF8"), QStringLiteral("--no-locale"), QStringLiteral("--no-sync")}));
  if (!error) return {};
  return QStringLiteral("No se pudo crear el servidor en %1: %2").arg(carpeta, *error);
}

}  // namespace

std::optional<QString> PrepararServidorDemo(const QString& carpeta, ServidorDemo& s) {
  s.carpeta = QDir(carpeta).absolutePath();
  const QString programa = programas();
  if (programa.isEmpty()) {
    return QStringLiteral("No se encuentra PostgreSQL %1 o posterior; instale el paquete postgresql.")
        .arg(kPostgresMinimo);
  }
  if (!QFileInfo::exists(en(s.carpeta, "datos/PG_VERSION"))) {
    if (QFileInfo::exists(s.carpeta) &&
        !QDir(s.carpeta).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
      return QStringLiteral("La carpeta %1 no está vacía y no es de un servidor de prueba; no se ha tocado.")
          .arg(s.carpeta);
    }
    if (auto error = hacerDatos(s.carpeta, programa)) return error;
  }
  s.clave = leerLinea(en(s.carpeta, "clave"), 0);
  s.puerto = puertoLibre();
  return {};
}

QStringList OrdenServidorDemo(const ServidorDemo& s, const QStringList& ajustes, bool atado) {
  QStringList orden;
  if (atado) orden << QStringLiteral("setpriv") << QStringLiteral("--pdeathsig") << QStringLiteral("INT");
  orden += QStringList{programas() + QStringLiteral("/postgres"), QStringLiteral("-D"), en(s.carpeta, "datos"),
                       QStringLiteral("-p"), QString::number(s.puerto)};
  for (const QString& a :
       QStringList{QStringLiteral("listen_addresses=127.0.0.1"), QStringLiteral("unix_socket_directories=")} +
           ajustes) {
    orden << QStringLiteral("-c") << a;
  }
  return comoUsuario(orden);
}

bool EsperarServidorDemo(const ServidorDemo& s, int espera_ms) {
  CadenaConexion c = leerServidorPostgres(s.palabras() + QStringLiteral("/postgres")).value_or(CadenaConexion{});
  for (int i = 0; i * 50 < espera_ms; ++i) {
    ErrorBD error;
    if (MotorPostgres::abrir(c, 2000, error)) return true;
    if (s.proceso > 0 && ::kill(static_cast<pid_t>(s.proceso), 0) != 0) return false;
    QThread::msleep(50);
  }
  return false;
}

std::optional<QString> ArrancarServidorDemo(const QString& carpeta, ServidorDemo& s) {
  s.carpeta = QDir(carpeta).absolutePath();
  if (const qint64 pid = procesoDe(s.carpeta)) {
    s.proceso = pid;
    s.clave = leerLinea(en(s.carpeta, "clave"), 0);
    s.puerto = leerLinea(en(s.carpeta, "datos/postmaster.pid"), 3).toInt();
    return {};
  }
  if (auto error = PrepararServidorDemo(carpeta, s)) return error;
  const QStringList orden = OrdenServidorDemo(s, {}, false);
  QProcess p;
  p.setProgram(orden[0]);
  p.setArguments(orden.mid(1));
  p.setWorkingDirectory(QStringLiteral("/"));
  p.setStandardInputFile(QProcess::nullDevice());
  p.setStandardOutputFile(en(s.carpeta, "servidor.log"), QIODevice::Append);
  p.setStandardErrorFile(en(s.carpeta, "servidor.log"), QIODevice::Append);
  if (p.startDetached(&s.proceso) && EsperarServidorDemo(s, kEspera_ms)) return {};
  return QStringLiteral("El servidor de %1 no arranca; vea %2.").arg(s.carpeta, en(s.carpeta, "servidor.log"));
}

std::optional<QString> PararServidorDemo(const QString& carpeta) {
  const QString ruta = QDir(carpeta).absolutePath();
  if (!QFileInfo::exists(en(ruta, "datos/PG_VERSION"))) {
    return QStringLiteral("En %1 no hay ningún servidor de prueba.").arg(ruta);
  }
  const qint64 pid = procesoDe(ruta);
  if (pid == 0) return {};
  ::kill(static_cast<pid_t>(pid), SIGINT);  // ends the sessions, loses nothing that was committed
  for (int i = 0; i * 50 < kEspera_ms; ++i) {
    if (procesoDe(ruta) != pid) return {};
    QThread::msleep(50);
  }
  return QStringLiteral("El servidor de %1 (proceso %2) no termina.").arg(ruta).arg(pid);
}
#else
namespace {
std::optional<QString> soloUnix() {
  return QStringLiteral("El servidor de prueba se arranca en Linux; aquí use un PostgreSQL instalado.");
}
}  // namespace
std::optional<QString> PrepararServidorDemo(const QString&, ServidorDemo&) { return soloUnix(); }
QStringList OrdenServidorDemo(const ServidorDemo&, const QStringList&, bool) { return {}; }
bool EsperarServidorDemo(const ServidorDemo&, int) { return false; }
std::optional<QString> ArrancarServidorDemo(const QString&, ServidorDemo&) { return soloUnix(); }
std::optional<QString> PararServidorDemo(const QString&) { return soloUnix(); }
#endif
