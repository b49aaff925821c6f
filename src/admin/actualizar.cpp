#include "admin/actualizar.h"

#include <QDir>

#include "admin/consola_sql.h"
#include "foundation/rutas.h"
#include "foundation/versiones.h"
#include "platform/io/cerrojo.h"
#include "platform/sql/cadena_conexion.h"
#include "servidores.h"
#include "store/tablas.h"

namespace {

std::optional<QString> actualizar(Conexion& cnn, const QString& archivo, const PasosDeVersion& pasos,
                                  const QDateTime& ahora, QStringList& hecho) {
  const Actualizacion a = ActualizarBase(cnn, archivo, pasos, ahora);
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
  if (auto error =
          actualizar(local, rutas.enPrograma(QStringLiteral("TarvoPos.mdb")), pasosDelPuesto(), ahora, hecho)) {
    return error;
  }
  const std::pair<BasePuesto, PasosDeVersion> servidores[] = {{BasePuesto::Central, pasosDelCentral()},
                                                              {BasePuesto::Cliente, pasosDelCliente()}};
  for (const auto& [base, pasos] : servidores) {
    const CadenaConexion c = leerCadenaConexion(CadenaDeServidor(local, rutas.programa, base));
    Conexion servidor;
    if (c.tipo != TipoMotor::Embebido) continue;
    if (const auto error = AbrirBase(*motores, rutas.programa, base, servidor)) return error;
    if (auto error = actualizar(servidor, QDir(rutas.programa).filePath(c.archivo), pasos, ahora, hecho)) return error;
  }
  return {};
}
