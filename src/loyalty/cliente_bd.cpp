#include "loyalty/cliente_bd.h"

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/numero.h"

namespace {

constexpr LiteralSql kRegla = u"SELECT * FROM Regla_Punto"_sql;

int entero(const QVariant& v) { return static_cast<int>(AEntero(Numero(v))); }

bool tomarRegla(Sesion& ses, const Recordset& rs) {
  if (rs.Eof()) return false;
  ses.pnImpoMaxi = entero(rs[u"nImpoMaxi"]);
  ses.pnPuntImpo = entero(rs[u"nPuntImpo"]);
  ses.pnPuntCant = entero(rs[u"nPuntCant"]);
  return true;
}

// A copy that could not be kept is made again by the next start.
void copiarReglaAlPuesto(Puesto& p) {
  (void)p.poDBAdmin.EjecutarSentencia(p.poCnnLocal,
                                      FormatearSQL(u" UPDATE Regla_Punto "
                                                   "    SET nImpoMaxi = $, "
                                                   "        nPuntImpo = $, "
                                                   "        nPuntCant = $"_sql,
                                                   {p.ses.pnImpoMaxi, p.ses.pnPuntImpo, p.ses.pnPuntCant}));
}

void anotarConexion(Puesto& p, bool abrio, bool mensaje) {
  p.ses.pbClienteConectado = abrio;
  p.ses.pbClienteCaido = !abrio;
  if (abrio) {
    p.ses.bAvisoCliente = false;
  } else if (mensaje && !p.ses.bAvisoCliente) {
    p.ses.bAvisoCliente = true;
    p.mensajes.mostrar(
        QStringLiteral("No se pudo conectar a la Base de Datos Cliente.\n"
                       "Las Operaciones se guardaran temporalmente hasta que se restablesca la conexión."),
        Mensajes::kTitulo, Icono::Aviso);
  }
}

}  // namespace

bool ConectarCliente(Puesto& p, bool mensaje, clsDBAdmin::Espera espera) {
  const bool abrio = p.poDBAdmin.AbrirBD(p.poCnnCliente, p.ses.psConexionCliente, false, espera);
  anotarConexion(p, abrio, mensaje);
  return abrio;
}

ResultadoCliente EjecutarEnCliente(Puesto& p, const std::vector<Sql>& sentencias, bool mensaje) {
  return ActuarEnCliente(
      p, [&](Sql& laQueFallo) { return EjecutarTodas(p.poCnnCliente, sentencias, &laQueFallo); }, mensaje);
}

ResultadoCliente ActuarEnCliente(Puesto& p, const std::function<std::optional<ErrorBD>(Sql&)>& pasos, bool mensaje) {
  Sql laQueFallo;
  const auto error = EnTransaccion(p.poCnnCliente, [&] { return pasos(laQueFallo); });
  if (!error) return ResultadoCliente::Hecho;
  if (!laQueFallo.vacia() && error->numero == kErrorSentencia) {
    p.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + laQueFallo.texto(p.poCnnCliente.dialecto()));
    return ResultadoCliente::Fallo;
  }
  // Locked by another program, full or gone: closing undoes what was begun, and a sale leaves it alone for a while.
  p.poDBAdmin.CerrarBD(p.poCnnCliente);
  p.ses.tiempoAgotado.insert(p.ses.psConexionCliente, p.reloj.now());
  anotarConexion(p, false, mensaje);
  return ResultadoCliente::NoResponde;
}

void DesconectarCliente(Puesto& p) {
  p.poDBAdmin.CerrarBD(p.poCnnCliente);
  p.ses.pbClienteConectado = false;
}

bool TomarReglaPunto(Puesto& p) {
  const bool enCliente = p.ses.pbClienteConectado;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(enCliente ? p.poCnnCliente : p.poCnnLocal, kRegla, rs)) return false;
  if (!tomarRegla(p.ses, rs)) {
    p.mensajes.mostrar(QStringLiteral("Reglas en relación a los puntos no han sido establecidos"));
    return false;
  }
  if (enCliente) copiarReglaAlPuesto(p);
  return true;
}

void LeerReglaPunto(Puesto& p) {
  if (!p.ses.pbClienteCaido) (void)ConectarCliente(p, true);
  (void)TomarReglaPunto(p);
  DesconectarCliente(p);
}
