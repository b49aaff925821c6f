#include "sale/supervisor.h"

#include "foundation/puesto.h"
#include "platform/text/texto.h"

std::optional<QString> RechazoAutorizacion(Puesto& p, const QString& usuario, const QString& clave) {
  const QString enUsuario = QStringLiteral("txtUsuario"), enClave = QStringLiteral("txtPassword");
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal, FormatearSQL(u"SELECT * FROM Usuario WHERE TRIM(sUserDesc) = '$'"_sql, {Texto(usuario)}), rs)) {
    return QString();
  }
  const auto rechazo = [&p](const QString& texto, const QString& control) {
    p.mensajes.mostrar(texto);
    return control;
  };
  if (rs.Eof()) return rechazo(QStringLiteral("Usuario no válido"), enUsuario);
  if (Numero(rs[u"cUserActi"]) != 1) {
    return rechazo(QStringLiteral("Usuario no activo. Contactar al supervisor."), enClave);
  }
  if (Recortar(clave) != LimpiarNulo(rs[u"suserPass"])) return rechazo(QStringLiteral("Password no válido"), enClave);
  if (Numero(rs[u"cPerfCode"]) != 1) {
    return rechazo(QStringLiteral("Usuario no autorizado. Sólo el SUPERVISOR puede autorizar esta operación"),
                   enUsuario);
  }
  return {};
}
