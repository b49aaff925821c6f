#include "app/login.h"

#include "foundation/acceso.h"
#include "foundation/puesto.h"
#include "platform/text/texto.h"

namespace {

const QString kUsuario = QStringLiteral("txtUsuario"), kPassword = QStringLiteral("txtPassword");

// Only the name that the next login offers; what fails has its box.
void recordarUsuario(Puesto& p, const QString& nombre) {
  (void)p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, FormatearSQL(u"UPDATE Usuario SET cUserFlag = $"_sql, {0}), true);
  (void)p.poDBAdmin.EjecutarSentencia(
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
  const QString nombre = Recortar(v.txtUsuario);
  v.foco = kUsuario;
  if (nombre.isEmpty()) {
    p.mensajes.mostrar(QStringLiteral("Ingresar Usuario"));
    return;
  }
  ++v.intentos;
  if (const auto acceso = ProbarAcceso(p, nombre, v.txtPassword)) {
    if (acceso->rechazo.isEmpty()) {
      v.aceptado = v.cierra = true;
      p.ses.psPerfilUsuario = acceso->perfil;
      p.ses.psUsuario = nombre;
      recordarUsuario(p, nombre);
      return;
    }
    p.mensajes.mostrar(acceso->rechazo);
    v.foco = acceso->enClave ? kPassword : kUsuario;
  }
  v.cierra = v.intentos >= kIntentosLogin;
}
