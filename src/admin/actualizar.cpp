#include "admin/actualizar.h"

#include <QDir>

#include "admin/consola_sql.h"
#include "foundation/rutas.h"
#include "foundation/versiones.h"
#include "platform/io/cerrojo.h"
#include "platform/sql/cadena_conexion.h"
#include "postgres/base_postgres.h"
#include "servidores.h"
#include "store/tablas.h"

namespace {

std::optional<QString> anotar(const Actualizacion& a, QStringList& hecho) {
  if (a.fin == FinActualizacion::MasNueva || a.fin == FinActualizacion::Fallo) return a.palabras;
  if (a.fin == FinActualizacion::Actualizada) hecho << a.palabras;
  return {};
}

}  // namespace

std::optional<QString> ActualizarPuesto(const QString& carpeta, const QDateTime& ahora, QStringList& hecho) {
  const Rutas rutas = rutasDe(QDir(carpeta).absolutePath());
  const auto motores = motoresDelSistema(rutas.programa, {{}, procedimientosDeServidores(), {}});
  Conexion local;
  if (const auto error = AbrirBase(*motores, rutas.programa, BasePuesto::Local, local)) return error;
  Cerrojo unico(rutas.enPrograma(QStringLiteral("TarvoPos.lock")));
  if (unico.tomar(ahora) != Cerrojo::Fin::Tomado) {
    return QStringLiteral("La caja de %1 está abierta, o no se puede escribir en su carpeta; no se ha tocado nada.")
        .arg(carpeta);
  }
  const Actualizacion almacen =
      ActualizarBase(local, rutas.enPrograma(QStringLiteral("TarvoPos.mdb")), pasosDelPuesto(), ahora);
  if (auto error = anotar(almacen, hecho)) return error;
  const struct {
    BasePuesto base;
    BaseServidor clase;
  } kServidores[] = {{BasePuesto::Central, BaseServidor::Central}, {BasePuesto::Cliente, BaseServidor::Cliente}};
  for (const auto& [base, clase] : kServidores) {
    const CadenaConexion c = leerCadenaConexion(CadenaDeServidor(local, rutas.programa, base));
    Conexion servidor;
    if (c.tipo == TipoMotor::Postgres) {
      if (auto error = anotar(ActualizarBasePostgres(c, clase), hecho)) return error;
    }
    if (c.tipo != TipoMotor::Embebido) continue;
    if (const auto error = AbrirBase(*motores, rutas.programa, base, servidor)) return error;
    const Actualizacion a = ActualizarBase(servidor, QDir(rutas.programa).filePath(c.archivo),
                                           pasosDelServidor(clase, LenguajeMotor::Sqlite), ahora);
    if (auto error = anotar(a, hecho)) return error;
  }
  return {};
}
