#include "apoyo/servidor_postgres.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QFile>

#include "apoyo/servidor_prueba.h"
#include "platform/sql/motor_postgres.h"
#include "postgres/base_postgres.h"

namespace {

// The server that the environment names, or the test program's own.
CadenaConexion enBase(const QString& base) {
  CadenaConexion c;
  if (const QString dado = qEnvironmentVariable("TARVOPOS_PG"); !dado.isEmpty()) {
    c.tipo = TipoMotor::Postgres;
    c.servidor = dado;
    c.usuario = QStringLiteral("postgres");
  } else {
    c = ServidorPrueba::uno().sinBase();
  }
  c.catalogo = base;
  return c;
}

const QString kComun = QStringLiteral("postgres");

}  // namespace

ServidorPostgres& ServidorPostgres::uno() {
  if (!qEnvironmentVariableIsSet("TARVOPOS_PG")) (void)ServidorPrueba::uno();  // made before, and so ended after
  static ServidorPostgres s;
  return s;
}

ServidorPostgres::ServidorPostgres() : plantilla_(QStringLiteral("tp_%1").arg(::getpid())) {
  EXPECT_TRUE(correr(
      kComun, QStringLiteral("CREATE DATABASE %1 TEMPLATE template0 ENCODING 'UTF8' LOCALE 'C'").arg(plantilla_)));
  EXPECT_TRUE(correr(plantilla_, dialectoDePostgres()));
  EXPECT_TRUE(correr(plantilla_, QStringLiteral("CREATE OR REPLACE FUNCTION dbo.tp_ahora() RETURNS timestamp LANGUAGE "
                                                "sql STABLE AS $$ SELECT timestamp '2026-11-24 17:05:30' $$")));
}

ServidorPostgres::~ServidorPostgres() { borrarBase(plantilla_); }

QString ServidorPostgres::servidor() const { return enBase(kComun).servidor; }

bool ServidorPostgres::correr(const QString& base, const QString& guion) {
  ErrorBD error;
  const auto m = MotorPostgres::abrir(enBase(base), 10'000, error);
  const auto e = m ? m->crudo(guion) : std::optional(error);
  if (e) std::fprintf(stderr, "%s\n", e->descripcion.toUtf8().constData());
  return !e;
}

QString ServidorPostgres::crearBase() {
  const QString nombre = plantilla_ + u'_' + QString::number(++bases_);
  EXPECT_TRUE(correr(kComun, QStringLiteral("CREATE DATABASE %1 TEMPLATE %2").arg(nombre, plantilla_)));
  return nombre;
}

void ServidorPostgres::borrarBase(const QString& nombre) {
  (void)correr(kComun, QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(nombre));
}

QString ServidorPostgres::cadena(const QString& base) const { return cadenaDe(enBase(base)); }
