#include "apoyo/servidor_postgres.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

#include "platform/sql/motor_postgres.h"

namespace {

CadenaConexion cadenaDe(const QString& servidor, const QString& base) {
  CadenaConexion c;
  c.tipo = TipoMotor::Postgres;
  c.servidor = servidor;
  c.usuario = QStringLiteral("postgres");
  c.catalogo = base;
  return c;
}

QString binarios() {
  const QDir d(QStringLiteral("/usr/lib/postgresql"));
  const QStringList versiones = d.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::Reversed);
  return versiones.isEmpty() ? QString() : d.filePath(versiones[0] + QStringLiteral("/bin/"));
}

QString puertoLibre() {
  const int s = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in d{};
  d.sin_family = AF_INET;
  d.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t largo = sizeof d;
  EXPECT_EQ(0, ::bind(s, reinterpret_cast<sockaddr*>(&d), largo));
  EXPECT_EQ(0, ::getsockname(s, reinterpret_cast<sockaddr*>(&d), &largo));
  ::close(s);
  return QString::number(ntohs(d.sin_port));
}

// The server refuses to run as root.
bool correrComoSuUsuario(const QString& programa, QStringList argumentos, qint64* proceso = nullptr) {
  QString que = programa;
  if (::geteuid() == 0) {
    argumentos = QStringList{QStringLiteral("--reuid=postgres"), QStringLiteral("--regid=postgres"),
                             QStringLiteral("--clear-groups"), programa} +
                 argumentos;
    que = QStringLiteral("setpriv");
  }
  QProcess p;
  p.setProgram(que);
  p.setArguments(argumentos);
  p.setStandardOutputFile(QProcess::nullDevice());
  p.setStandardErrorFile(QProcess::nullDevice());
  if (proceso) return p.startDetached(proceso);
  p.start();
  return p.waitForFinished(60'000) && p.exitCode() == 0;
}

}  // namespace

ServidorPostgres& ServidorPostgres::uno() {
  static ServidorPostgres s;
  return s;
}

ServidorPostgres::ServidorPostgres() {
  servidor_ = qEnvironmentVariable("TARVOPOS_PG");
  if (servidor_.isEmpty()) arrancar();
  plantilla_ = QStringLiteral("tp_%1").arg(::getpid());
  EXPECT_TRUE(
      correr(QStringLiteral("postgres"),
             QStringLiteral("CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8' LOCALE 'C'").arg(plantilla_)));
  QFile f(QStringLiteral(TARVOPOS_FUENTES "/server/postgres/dialecto.sql"));
  EXPECT_TRUE(f.open(QIODevice::ReadOnly));
  EXPECT_TRUE(correr(plantilla_, QString::fromUtf8(f.readAll())));
  EXPECT_TRUE(correr(plantilla_, QStringLiteral("CREATE OR REPLACE FUNCTION dbo.tp_ahora() RETURNS timestamp LANGUAGE "
                                                "sql STABLE AS $$ SELECT timestamp '2026-11-24 17:05:30' $$")));
}

void ServidorPostgres::arrancar() {
  QTemporaryDir d;
  d.setAutoRemove(false);
  carpeta_ = d.path();
  QFile::setPermissions(carpeta_, QFile::Permissions(0x7755));
  const QString datos = carpeta_ + QStringLiteral("/datos");
  if (::geteuid() == 0) QProcess::execute(QStringLiteral("chown"), {QStringLiteral("postgres"), carpeta_});
  const QString puerto = puertoLibre();
  EXPECT_TRUE(correrComoSuUsuario(binarios() + QStringLiteral("initdb"),
                                  {QStringLiteral("-D"), datos, QStringLiteral("-E"), QStringLiteral("UTF8"),
                                   QStringLiteral("--locale=C"), QStringLiteral("-A"), QStringLiteral("trust"),
                                   QStringLiteral("-U"), QStringLiteral("postgres"), QStringLiteral("-N")}))
      << "no PostgreSQL here: install the package postgresql";
  EXPECT_TRUE(correrComoSuUsuario(binarios() + QStringLiteral("postgres"),
                                  {QStringLiteral("-D"), datos, QStringLiteral("-p"), puerto, QStringLiteral("-k"),
                                   carpeta_, QStringLiteral("-h"), QStringLiteral("127.0.0.1"), QStringLiteral("-F")},
                                  &proceso_));
  servidor_ = QStringLiteral("127.0.0.1:") + puerto;
  for (int i = 0; i < 200; ++i) {
    ErrorBD error;
    if (MotorPostgres::abrir(cadenaDe(servidor_, QStringLiteral("postgres")), 1000, error)) return;
    ::usleep(50'000);
  }
  ADD_FAILURE() << "the server doesn't start";
}

ServidorPostgres::~ServidorPostgres() {
  if (proceso_ > 0) {
    ::kill(static_cast<pid_t>(proceso_), SIGQUIT);
    for (int i = 0; i < 100 && ::kill(static_cast<pid_t>(proceso_), 0) == 0; ++i) ::usleep(50'000);
    QDir(carpeta_).removeRecursively();
  } else {
    borrarBase(plantilla_);
  }
}

bool ServidorPostgres::correr(const QString& base, const QString& guion) {
  ErrorBD error;
  const auto m = MotorPostgres::abrir(cadenaDe(servidor_, base), 10'000, error);
  const auto e = m ? m->crudo(guion) : std::optional(error);
  if (e) std::fprintf(stderr, "%s\n", e->descripcion.toUtf8().constData());
  return !e;
}

QString ServidorPostgres::crearBase() {
  const QString nombre = plantilla_ + u'_' + QString::number(++bases_);
  EXPECT_TRUE(
      correr(QStringLiteral("postgres"), QStringLiteral("CREATE DATABASE %1 TEMPLATE %2").arg(nombre, plantilla_)));
  return nombre;
}

void ServidorPostgres::borrarBase(const QString& nombre) {
  (void)correr(QStringLiteral("postgres"), QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(nombre));
}

QString ServidorPostgres::cadena(const QString& base) const {
  return cadenaDeServidor(QStringLiteral("postgres"), QString(), base, QStringLiteral("postgres:") + servidor_);
}
