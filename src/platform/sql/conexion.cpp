#include "platform/sql/conexion.h"

#include "platform/sql/cadena_conexion.h"

namespace {

ErrorBD cerrada() { return {kErrorGeneral, 0, QStringLiteral("La conexión con la base de datos está cerrada.")}; }

}  // namespace

std::optional<ErrorBD> Conexion::abrir(Motores& motores, const QString& cadena, int espera_ms) {
  cerrar();
  cadena_ = cadena;
  dialecto_ = dialectoDe(cadena);
  ErrorBD error;
  motor_ = motores.abrir(cadena, espera_ms, error);
  if (motor_) return {};
  return error;
}

void Conexion::cerrar() {
  motor_.reset();
  enTransaccion_ = false;
  porDeshacer_ = false;
}

// What would run inside a transaction that was given up would be lost with it.
std::optional<ErrorBD> Conexion::listo() {
  if (!motor_) return cerrada();
  if (porDeshacer_) return deshacer();
  return {};
}

std::optional<ErrorBD> Conexion::consultar(const Sql& sql, Recordset& rs) {
  rs.llenar({}, {});
  if (auto e = listo()) return e;
  return motor_->consultar(sql.texto(dialecto_), rs);
}

std::optional<ErrorBD> Conexion::ejecutar(const Sql& sql, qint64* afectadas) {
  if (auto e = listo()) return e;
  return motor_->ejecutar(sql.texto(dialecto_), afectadas);
}

std::unique_ptr<Repetida> Conexion::repetir(const Sql& muestra) {
  if (!motor_ || porDeshacer_) return {};
  return motor_->repetir(muestra.texto(dialecto_));
}

std::unique_ptr<CursorBD> Conexion::abrirCursor(const Sql& consulta) {
  if (!motor_ || porDeshacer_) return {};
  return motor_->abrirCursor(consulta.texto(dialecto_));
}

std::optional<ErrorBD> Conexion::iniciar() {
  if (auto e = listo()) return e;
  auto e = motor_->iniciar();
  if (!e) enTransaccion_ = true;
  return e;
}

std::optional<ErrorBD> Conexion::confirmar() {
  if (auto e = listo()) return e;
  auto e = motor_->confirmar();
  if (!e) enTransaccion_ = false;
  return e;
}

std::optional<ErrorBD> Conexion::deshacer() {
  if (!motor_) return cerrada();
  auto e = motor_->deshacer();
  porDeshacer_ = e.has_value();
  if (!e) enTransaccion_ = false;
  return e;
}

QString Conexion::traducir(const QString& sql) { return motor_ ? motor_->traducir(sql) : sql; }
