#include "foundation/acceso.h"

#include <QUrl>

#include "foundation/clave.h"
#include "foundation/puesto.h"
#include "platform/io/perfil.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

// The wrong passwords of one user in a row, and when the last one came. They lie in a file of their own: a restart must
// not begin anew, and what fails here keeps nobody out.
class Errores {
 public:
  Errores(const Puesto& p, const QString& usuario)
      : archivo_(p.rutas.enPrograma(QStringLiteral("Claves.cfg"))),
        usuario_(QString::fromLatin1(QUrl::toPercentEncoding(usuario.toUpper()))),
        ahora_(p.reloj.now()) {
    const QStringList partes = LeerPerfil(archivo_, kSeccion, usuario_).value_or(QString()).split(u' ');
    if (partes.size() != 2) return;
    veces_ = static_cast<int>(AEntero(Val(partes[0])));
    ultimo_ = QDateTime::fromString(partes[1], Qt::ISODate);
    // What lies ahead was written by a clock that has been put right since.
    const qint64 hace = ultimo_.isValid() ? ultimo_.secsTo(ahora_) : -1;
    if (veces_ >= kClavesErradas && (hace < 0 || hace >= kEsperaClave_s)) veces_ = 0;
  }
  bool hayQueEsperar() const { return veces_ >= kClavesErradas; }
  void sumar() { escribir(veces_ + 1); }
  void olvidar() {
    if (veces_ > 0) escribir(0);
  }

 private:
  void escribir(int veces) {
    veces_ = veces;
    (void)EscribirPerfil(archivo_, kSeccion, usuario_, QString::number(veces) + u' ' + ahora_.toString(Qt::ISODate));
  }

  inline static const QString kSeccion = QStringLiteral("ERRADAS");
  QString archivo_, usuario_;
  QDateTime ahora_, ultimo_;
  int veces_ = 0;
};

// A store that refuses leaves the password as it was, to be taken over another time.
void cifrarGuardada(Puesto& p, const QString& usuario, const QString& clave) {
  const auto cifrada = CifrarClave(clave);
  if (!cifrada) return;
  (void)p.poDBAdmin.EjecutarSentencia(
      p.poCnnLocal, FormatearSQL(u"UPDATE Usuario SET sUserPass = '$' WHERE TRIM(sUserDesc) = TRIM('$')"_sql,
                                 {Texto(*cifrada), Texto(usuario)}));
}

}  // namespace

std::optional<Acceso> ProbarAcceso(Puesto& p, const QString& usuario, const QString& clave) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal, FormatearSQL(u"SELECT * FROM Usuario WHERE TRIM(sUserDesc) = '$'"_sql, {Texto(usuario)}), rs)) {
    return {};
  }
  if (rs.Eof()) return Acceso{{}, QStringLiteral("Usuario no válido"), false};
  if (Numero(rs[u"cUserActi"]) != 1) {
    return Acceso{{}, QStringLiteral("Usuario no activo. Contactar al supervisor."), true};
  }
  const QString nombre = LimpiarNulo(rs[u"sUserDesc"]), guardada = LimpiarNulo(rs[u"suserPass"]);
  Errores errores(p, nombre);
  if (errores.hayQueEsperar()) {
    return Acceso{{}, QStringLiteral("Demasiadas claves equivocadas.\nEspere un minuto y vuelva a intentar."), true};
  }
  if (!EsLaClave(guardada, clave)) {
    errores.sumar();
    return Acceso{{}, QStringLiteral("Password no válido"), true};
  }
  errores.olvidar();
  if (!EstaCifrada(guardada)) cifrarGuardada(p, nombre, clave);
  return Acceso{LimpiarNulo(rs[u"cPerfCode"]), {}, false};
}
