#include "apoyo/servidor_prueba.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <QDir>

#include "platform/sql/motor_postgres.h"
#include "postgres/base_postgres.h"

namespace {

// The disk is not what is tested.
const QStringList kAjustes{QStringLiteral("fsync=off"),           QStringLiteral("full_page_writes=off"),
                           QStringLiteral("shared_buffers=32MB"), QStringLiteral("max_connections=150"),
                           QStringLiteral("autovacuum=off"),      QStringLiteral("jit=off")};

QString nombreDe(BaseServidor clase) {
  return clase == BaseServidor::Central ? QStringLiteral("modelo_central") : QStringLiteral("modelo_cliente");
}

}  // namespace

ServidorPrueba& ServidorPrueba::uno() {
  static ServidorPrueba servidor;
  return servidor;
}

// Not a folder of QTemporaryDir's: the server's user must be able to enter it.
ServidorPrueba::ServidorPrueba() {
  char carpeta[] = "/tmp/tarvopos-pg-XXXXXX";
  if (!::mkdtemp(carpeta)) qFatal("no folder for the server");
  if (const auto error = PrepararServidorDemo(QString::fromLatin1(carpeta), demo_)) qFatal("%s", qPrintable(*error));
  arrancar();
}

// A child that a test forked has a copy of this, and must leave its parent's server alone.
ServidorPrueba::~ServidorPrueba() {
  if (::getpid() != duenio_) return;
  cortar();
  QDir(demo_.carpeta).removeRecursively();
}

void ServidorPrueba::arrancar() {
  const QStringList orden = OrdenServidorDemo(demo_, kAjustes, true);
  proceso_ = std::make_unique<QProcess>();
  proceso_->setWorkingDirectory(QStringLiteral("/"));
  proceso_->setProcessChannelMode(QProcess::MergedChannels);
  proceso_->setStandardOutputFile(demo_.carpeta + QStringLiteral("/servidor.log"), QIODevice::Append);
  proceso_->start(orden[0], orden.mid(1));
  proceso_->waitForStarted();
  demo_.proceso = proceso_->processId();
  if (!EsperarServidorDemo(demo_, 30000)) qFatal("the server in %s does not start", qPrintable(demo_.carpeta));
}

void ServidorPrueba::cortar() {
  if (!proceso_) return;
  ::kill(static_cast<pid_t>(proceso_->processId()), SIGQUIT);
  proceso_->waitForFinished();
  proceso_.reset();
}

void ServidorPrueba::volver() {
  if (!proceso_) arrancar();
}

CadenaConexion ServidorPrueba::sinBase() {
  auto c = leerServidorPostgres(palabras() + QStringLiteral("/p%1").arg(++bases_));
  return c.value_or(CadenaConexion{});
}

CadenaConexion ServidorPrueba::base(BaseServidor clase, const QStringList& filas) {
  CadenaConexion modelo = sinBase(), nueva = modelo, comun = modelo;
  modelo.catalogo = nombreDe(clase);
  comun.catalogo = QStringLiteral("postgres");
  bool& hecho = modelos_[clase == BaseServidor::Central ? 0 : 1];
  if (!hecho) {
    const ResultadoBase r = CrearBasePostgres(modelo, clase, {});
    EXPECT_EQ(FinBase::Hecha, r.fin) << qPrintable(r.palabras);
    hecho = true;
  }
  crudo(comun, QStringLiteral("CREATE DATABASE %1 TEMPLATE %2").arg(nueva.catalogo, modelo.catalogo));
  crudo(comun, QStringLiteral("ALTER DATABASE %1 SET search_path = dbo, public").arg(nueva.catalogo));
  for (const QString& f : filas) crudo(nueva, f);
  return nueva;
}

Recordset ServidorPrueba::crudo(const CadenaConexion& base, const QString& sql) {
  ErrorBD error;
  Recordset rs;
  const auto m = MotorPostgres::abrir(base, 20000, error);
  EXPECT_TRUE(m) << qPrintable(error.descripcion);
  if (!m) return rs;
  const auto e = m->crudo(sql, &rs);
  EXPECT_FALSE(e) << qPrintable(sql) << "\n" << qPrintable(e.value_or(ErrorBD{}).descripcion);
  return rs;
}
