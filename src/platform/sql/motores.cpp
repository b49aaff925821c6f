#include <QDir>
#include <QHash>

#include "platform/sql/cadena_conexion.h"
#include "platform/sql/motor_odbc.h"
#include "platform/sql/motor_postgres.h"
#include "platform/sql/motor_sqlite.h"

namespace {

class MotoresDelSistema final : public Motores {
 public:
  MotoresDelSistema(const QString& carpeta, const OpcionesMotores& opciones) : carpeta_(carpeta), opciones_(opciones) {}

  std::unique_ptr<Motor> abrir(const QString& cadena, int espera_ms, ErrorBD& error) override {
    error = {};
    if (!leidas_.contains(cadena)) leidas_.insert(cadena, leerCadenaConexion(cadena));
    const CadenaConexion& c = leidas_[cadena];
    switch (c.tipo) {
      case TipoMotor::Local:
        return MotorSqlite::abrir(c.archivo, Dialecto::Jet, espera_ms, opciones_, memoriaDe(cadena), error);
      case TipoMotor::Embebido:
        return MotorSqlite::abrir(QDir(carpeta_).filePath(c.archivo), Dialecto::TSql, espera_ms, opciones_,
                                  memoriaDe(cadena), error);
      case TipoMotor::Postgres:
        return MotorPostgres::abrir(c, espera_ms, error, memoriaDe(cadena), opciones_.alEsperar);
      case TipoMotor::SqlServer: break;
    }
    if (!c.servidor.isEmpty()) return MotorOdbc::abrir(c, espera_ms, opciones_, error);
    error = {kErrorGeneral, 0, QStringLiteral("La cadena de conexión no nombra ningún servidor.")};
    return {};
  }

 private:
  std::shared_ptr<MemoriaDeFormas> memoriaDe(const QString& cadena) {
    auto& memoria = memorias_[cadena];
    if (!memoria) memoria = std::make_shared<MemoriaDeFormas>();
    return memoria;
  }

  QString carpeta_;
  OpcionesMotores opciones_;
  // A sale opens the same servers again and again.
  QHash<QString, CadenaConexion> leidas_;
  QHash<QString, std::shared_ptr<MemoriaDeFormas>> memorias_;
};

}  // namespace

std::unique_ptr<Motores> motoresDelSistema(const QString& carpeta, const OpcionesMotores& opciones) {
  return std::make_unique<MotoresDelSistema>(carpeta, opciones);
}
