#include "sale/supervisor.h"

#include "foundation/acceso.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"

std::optional<QString> RechazoAutorizacion(Puesto& p, const QString& usuario, const QString& clave) {
  const auto acceso = ProbarAcceso(p, usuario, clave);
  if (!acceso) return QString();
  const auto rechazo = [&p](const QString& texto, bool enClave) {
    p.mensajes.mostrar(texto);
    return enClave ? QStringLiteral("txtPassword") : QStringLiteral("txtUsuario");
  };
  if (!acceso->rechazo.isEmpty()) return rechazo(acceso->rechazo, acceso->enClave);
  if (Val(acceso->perfil) != kPerfilSupervisor) {
    return rechazo(QStringLiteral("Usuario no autorizado. Sólo el SUPERVISOR puede autorizar esta operación"), false);
  }
  return {};
}
