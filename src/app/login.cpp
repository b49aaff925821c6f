#include "app/login.h"

#include "foundation/puesto.h"
#include "platform/text/texto.h"

namespace {

const QString kUsuario = QStringLiteral("txtUsuario"), kPassword = QStringLiteral("txtPassword");

// Why the row of the user does not let him in, and the field to go to; "" lets him in.
struct Rechazo {
  QString texto, foco;
};

Rechazo rechazoDe(const Recordset& rs, const QString& clave) {
  if (rs.Eof()) return {QStringLiteral("Usuario no válido"), kUsuario};
  if (Numero(rs[u"cUserActi"]) != 1) return {QStringLiteral("Usuario no activo. Contactar al supervisor."), kPassword};
  if (Recortar(clave) != LimpiarNulo(rs[u"suserPass"])) return {QStringLiteral("Password no válido"), kPassword};
  return {};
}

void recordarUsuario(Puesto& p, const QString& nombre) {
  p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, FormatearSQL(u"UPDATE Usuario SET cUserFlag = $"_sql, {0}), true);
  p.poDBAdmin.EjecutarSentencia(
      p.poCnnLocal,
      FormatearSQL(u"UPDATE Usuario SET cUserFlag = $ WHERE TRIM(sUserDesc) = '$'"_sql, {1, Texto(nombre)}), true);
}

}  // namespace

void CargarLogin(Puesto& p, Login& v) {
  Recordset rs;
  v.foco = kUsuario;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    FormatearSQL(u"SELECT sUserDesc FROM Usuario WHERE cUserFlag = $"_sql, {1}), rs)) {
    return;
  }
  v.txtUsuario = LimpiarNulo(rs[u"sUserDesc"]);
  if (!v.txtUsuario.isEmpty()) v.foco = kPassword;
}

void ProbarLogin(Puesto& p, Login& v) {
  const QString nombre = Recortar(v.txtUsuario), clave = Recortar(v.txtPassword);
  v.foco = kUsuario;
  if (nombre.isEmpty()) {
    p.mensajes.mostrar(QStringLiteral("Ingresar Usuario"));
    return;
  }
  ++v.intentos;
  Recordset rs;
  const bool leido = p.poDBAdmin.EjecutarConsulta(
      p.poCnnLocal, FormatearSQL(u"SELECT * FROM Usuario WHERE TRIM(sUserDesc) = '$'"_sql, {Texto(nombre)}), rs);
  if (leido) {
    const Rechazo r = rechazoDe(rs, clave);
    if (r.texto.isEmpty()) {
      v.aceptado = v.cierra = true;
      p.ses.psPerfilUsuario = LimpiarNulo(rs[u"cPerfCode"]);
      p.ses.psUsuario = nombre;
      p.ses.psClaveUsuario = clave;
      recordarUsuario(p, nombre);
      return;
    }
    p.mensajes.mostrar(r.texto);
    v.foco = r.foco;
  }
  v.cierra = v.intentos >= kIntentosLogin;
}
