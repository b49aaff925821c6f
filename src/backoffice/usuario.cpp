#include "backoffice/usuario.h"

#include "foundation/clave.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

// What both password fields show of a user who has one: nobody can type it.
const QString kClavePuesta(8, QChar(0x2022));

Sql seleccion(const QString& usuario) {
  return FormatearSQL(u"SELECT * FROM Usuario WHERE TRIM(sUserDesc) = TRIM('$')"_sql, {Texto(usuario)});
}

bool leerPerfiles(Puesto& p, DetalleUsuario& v) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"SELECT * FROM Perfil"_sql, rs)) return false;
  for (const auto& f : rs) v.perfiles.emplace_back(LimpiarNulo(f[u"cPerfCode"]), LimpiarNulo(f[u"sPerfDesc"]));
  return true;
}

// Two names that the login can't tell apart are one user, whatever the key of the table makes of them.
bool yaEsta(Puesto& p, DetalleUsuario& v) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, seleccion(v.txtUsuario), rs)) return true;
  return !Comprobar(p, {{!rs.Eof(), u"txtUsuario", u"Ya hay un usuario con ese nombre."}}, v.campoMal);
}

// The text to store: the hash that is there while nobody touched it.
bool cifrar(Puesto& p, DetalleUsuario& v) {
  const bool igual = v.txtPassword == kClavePuesta;
  if (v.modo == ModoDetalle::Borrar || (igual && EstaCifrada(v.guardada))) return true;
  const auto cifrada = CifrarClave(igual ? v.guardada : v.txtPassword);
  if (cifrada) v.guardada = *cifrada;
  else p.mensajes.mostrar(QStringLiteral("No se pudo cifrar el password: falta memoria."));
  return cifrada.has_value();
}

bool validar(Puesto& p, DetalleUsuario& v) {
  const bool aMedias = v.txtPassword != kClavePuesta && v.txtPassword.contains(kClavePuesta.front());
  // clang-format off
  if (!Comprobar(p, {
          {Recortar(v.txtUsuario).isEmpty(), u"txtUsuario", u"Ingresar Nombre de Usuario"},
          {Recortar(v.txtReingresarPassword).isEmpty(), u"txtReingresarPassword", u"Reingresar Password de Usuario"},
          {aMedias || v.txtPassword != v.txtReingresarPassword, u"txtReingresarPassword",
              u"Password reingresado incorrecto"},
          {v.dcbPerfil.isEmpty(), u"dcbPerfil", u"Seleccionar Perfil"},
          {Recortar(v.txtApellidos).isEmpty(), u"txtApellidos", u"Ingresar Apellidos"},
          {Recortar(v.txtNombres).isEmpty(), u"txtNombres", u"Ingresar Nombres"},
          // The same as the list's button says: nobody shuts himself out.
          {v.modo == ModoDetalle::Editar && !v.activo && EsUsuarioActual(p, v.txtUsuario), u"optActivo(0)",
           u"El usuario no puede desactivarse a si mismo"},
      }, v.campoMal)) return false;
  return (v.modo != ModoDetalle::Nuevo || !yaEsta(p, v)) && cifrar(p, v);
}

SentenciasDetalle sentencias(const Puesto&, const DetalleUsuario& v) {
  const Texto usuario(v.txtUsuario), clave(v.guardada);
  const Texto apellidos(v.txtApellidos), nombres(v.txtNombres);
  return {FormatearSQL(u"INSERT INTO Usuario (sUserDesc, sUserPass, cPerfCode, sUserApel, sUserName, "
                       "cUserActi) VALUES ('$', '$', $, '$', '$', $)"_sql,
                       {usuario, clave, Cifras(v.dcbPerfil), apellidos, nombres, v.activo}),
          FormatearSQL(u"UPDATE Usuario SET sUserPass = '$', cPerfCode = $, sUserApel = '$', "
                       "sUserName = '$', cUserActi = $ WHERE TRIM(sUserDesc) = TRIM('$')"_sql,
                       {clave, Cifras(v.dcbPerfil), apellidos, nombres, v.activo, usuario}),
          FormatearSQL(u"DELETE * FROM Usuario WHERE TRIM(sUserDesc) = TRIM('$')"_sql, {usuario})};
}

}  // namespace

bool LeerUsuarios(Puesto& p, std::vector<FilaUsuario>& filas) {
  filas.clear();
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    u"SELECT sUserDesc, sPerfDesc, sUserApel, sUserName, cUserActi "
                                                   "FROM Usuario a, Perfil b "
                                                   "WHERE a.cPerfCode = b.cPerfCode Order by sUserName, sPerfDesc"_sql,
                                    rs)) return false;
  for (const auto& f : rs) {
    filas.push_back({LimpiarNulo(f[u"sUserDesc"]), LimpiarNulo(f[u"sPerfDesc"]),
                     LimpiarNulo(f[u"sUserName"]) + u' ' + LimpiarNulo(f[u"sUserApel"]), Numero(f[u"cUserActi"]) == 1});
  }
  // clang-format on
  return true;
}

bool EsUsuarioActual(const Puesto& p, const QString& usuario) {
  return Recortar(usuario).compare(Recortar(p.ses.psUsuario), Qt::CaseInsensitive) == 0;
}

bool CargarUsuario(Puesto& p, ModoDetalle modo, const QString& usuario, DetalleUsuario& v) {
  v = {};
  v.modo = modo;
  if (modo == ModoDetalle::Borrar && EsUsuarioActual(p, usuario)) {
    p.mensajes.mostrar(QStringLiteral("El usuario no puede borrarse a si mismo"));
    return false;
  }
  if (!leerPerfiles(p, v)) return false;
  if (modo == ModoDetalle::Nuevo) return true;
  Recordset rs;
  if (!LeerFilaDetalle(p, seleccion(usuario), QStringLiteral("El usuario %1 ya no existe.").arg(usuario), rs))
    return false;
  v.txtUsuario = LimpiarNulo(rs[u"sUserDesc"]);
  v.guardada = LimpiarNulo(rs[u"sUserPass"]);
  v.txtPassword = v.txtReingresarPassword = kClavePuesta;
  v.dcbPerfil = LimpiarNulo(rs[u"cPerfCode"]);
  v.txtApellidos = LimpiarNulo(rs[u"sUserApel"]);
  v.txtNombres = LimpiarNulo(rs[u"sUserName"]);
  v.activo = Numero(rs[u"cUserActi"]) == 1;
  return true;
}

bool GuardarUsuario(Puesto& p, DetalleUsuario& v) { return GuardarDetalle(p, v, validar, sentencias); }

FilaUsuario FilaDe(const DetalleUsuario& v) {
  QString perfil;
  for (const auto& [codigo, palabras] : v.perfiles)
    if (codigo == v.dcbPerfil) perfil = palabras;
  return {Recortar(v.txtUsuario), perfil, Recortar(v.txtNombres) + u' ' + Recortar(v.txtApellidos), v.activo};
}

bool ActivarUsuario(Puesto& p, FilaUsuario& fila) {
  if (EsUsuarioActual(p, fila.usuario)) {
    p.mensajes.mostrar(QStringLiteral("El usuario no puede desactivarse a si mismo"));
    return false;
  }
  if (!PreguntarActivar(p, fila.activo, fila.usuario)) return false;
  if (!EjecutarConAviso(p, FormatearSQL(u"UPDATE Usuario SET cUserActi = $ WHERE TRIM(sUserDesc) = "
                                        "TRIM('$')"_sql,
                                        {!fila.activo, Texto(fila.usuario)}))) {
    return false;
  }
  fila.activo = !fila.activo;
  return true;
}
