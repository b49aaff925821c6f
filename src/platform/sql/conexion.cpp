#include "platform/sql/conexion.h"

namespace {

ErrorBD cerrada() {
  return {kErrorGeneral, 0, QStringLiteral("La conexión con la base de datos está cerrada.")};
}

}  // namespace

std::optional<ErrorBD> Conexion::abrir(Motores& motores, const QString& cadena, int espera_ms) {
  cerrar();
  ErrorBD error;
  motor_ = motores.abrir(cadena, espera_ms, error);
  if (motor_) return {};
  return error;
}

std::optional<ErrorBD> Conexion::consultar(const QString& sql, Recordset& rs) {
  rs.llenar({}, {});
  return motor_ ? motor_->consultar(sql, rs) : cerrada();
}

std::optional<ErrorBD> Conexion::ejecutar(const QString& sql, qint64* afectadas) {
  return motor_ ? motor_->ejecutar(sql, afectadas) : cerrada();
}

std::optional<ErrorBD> Conexion::iniciar() { return motor_ ? motor_->iniciar() : cerrada(); }
std::optional<ErrorBD> Conexion::confirmar() { return motor_ ? motor_->confirmar() : cerrada(); }
std::optional<ErrorBD> Conexion::deshacer() { return motor_ ? motor_->deshacer() : cerrada(); }

QString Conexion::traducir(const QString& sql) { return motor_ ? motor_->traducir(sql) : sql; }
