#include "loyalty/pendientes.h"

#include "foundation/puesto.h"
#include "loyalty/acumulacion.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

int enteroDe(const QVariant& v) { return static_cast<int>(AEntero(Numero(v))); }

// Month first whatever the server's language is.
QString fechaDelServidor(const QVariant& v) {
  return FormatearSQL(QStringLiteral("CONVERT(DATETIME,'$',101)"),
                      {v.isNull() ? QVariant() : QVariant(FormatearFecha(v.toDateTime(), u"mm/dd/yyyy"))});
}

bool hacer(Puesto& p, Conexion& cnn, const QString& plantilla, const std::vector<QVariant>& valores) {
  return p.poDBAdmin.EjecutarSentencia(cnn, FormatearSQL(plantilla, valores), true);
}

bool leerLocales(Puesto& p, Conexion& cnn, const QString& consulta, std::vector<int>& locales) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(cnn, consulta, rs)) return false;
  for (const auto& f : rs) locales.push_back(enteroDe(f[u"IdLocal"]));
  return true;
}

// The sites that a customer's copy without one stands for: those of his waiting points, else his only one. False when a
// query fails.
bool localesDe(Puesto& p, const QString& codigo, std::vector<int>& locales) {
  if (!leerLocales(
          p, p.poCnnLocal,
          QStringLiteral("SELECT DISTINCT IdLocal FROM Acumulacion_Punto WHERE cSincroFlag = 0 AND IdLocal <> 0 "
                         "AND cClieCode = ") +
              codigo,
          locales)) {
    return false;
  }
  if (!locales.empty()) return true;
  if (!leerLocales(p, p.poCnnCliente, QStringLiteral("SELECT IdLocal FROM Cliente WHERE cClieCode = ") + codigo,
                   locales)) {
    return false;
  }
  if (locales.size() != 1) locales.clear();
  return true;
}

// A copy whose site can't be told waits on.
bool enviarCliente(Puesto& p, const Recordset::Fila& f) {
  const QString codigo = LimpiarNulo(f[u"cClieCode"]);
  const int local = enteroDe(f[u"IdLocal"]);
  std::vector<int> locales;
  if (local != 0) locales.push_back(local);
  else if (!localesDe(p, codigo, locales)) return false;
  if (locales.empty()) return true;
  for (const int suyo : locales) {
    if (!hacer(p, p.poCnnCliente,
               QStringLiteral("UPDATE Cliente    SET dUltTDate = $,        cTranCode = $ "
                              " WHERE cClieCode = $   AND IdLocal = $"),
               {fechaDelServidor(f[u"dUltTDate"]), enteroDe(f[u"cTranCode"]), codigo, suyo})) {
      return false;
    }
  }
  return hacer(p, p.poCnnLocal,
               QStringLiteral("UPDATE Cliente    SET cSincroFlag = 1  WHERE cClieCode = $   AND IdLocal = $"),
               {codigo, local});
}

// The site of a row that was stored without one: that of the card, where only one customer carries it. False when the
// query fails.
bool completarLocal(Puesto& p, Acumulacion& a) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnCliente,
          FormatearSQL(QStringLiteral("SELECT IdLocal FROM Tarjeta WHERE nTarjNumb = '$' AND cClieCode = $"),
                       {ReemplazarComilla(a.tarjeta), a.cliente}),
          rs)) {
    return false;
  }
  if (rs.RecordCount() == 1) a.idLocal = enteroDe(rs[u"IdLocal"]);
  return true;
}

bool enviarAcumulacion(Puesto& p, const Recordset::Fila& f) {
  Acumulacion a;
  a.cliente = LimpiarNulo(f[u"cClieCode"]);
  a.tarjeta = LimpiarNulo(f[u"nTarjNumb"]);
  a.importe = Numero(f[u"nAcumImpo"]);
  a.puntos = enteroDe(f[u"nPuntCant"]);
  a.usuario = LimpiarNulo(f[u"sUserDesc"]);
  a.documento = {LimpiarNulo(f[u"cDocTipo"]), LimpiarNulo(f[u"cDocSerie"]), AEntero(Numero(f[u"cDocCodigo"]))};
  const int local = a.idLocal = enteroDe(f[u"IdLocal"]);
  if (local == 0 && !completarLocal(p, a)) return false;
  int tipo = kSinCliente;
  if (!LeerTipoCliente(p, p.poCnnCliente, a.cliente, a.idLocal, tipo)) return false;
  if (tipo == kSinCliente) return true;  // points that nobody would get wait on
  // A row of the store's copies may turn out to be of a customer who earns nothing.
  if (tipo == kClienteConPuntos) {
    if (!SiguienteAcumulacion(p, p.poCnnCliente, a.cliente, a.idLocal, a.codigo) ||
        !InsertarAcumulacion(p, p.poCnnCliente, a, fechaDelServidor(f[u"dAcumDate"]), false) ||
        !hacer(p, p.poCnnCliente,
               QStringLiteral(" UPDATE Cliente    SET nPuntCant = ISNULL(nPuntCant,0) + $  WHERE cClieCode = $ "
                              "   AND IdLocal = $"),
               {a.puntos, a.cliente, a.idLocal})) {
      return false;
    }
  }
  return hacer(p, p.poCnnLocal,
               QStringLiteral(" UPDATE Acumulacion_Punto    SET cSincroFlag = 1  WHERE cClieCode = $ "
                              "   AND cAcumCode = $    AND IdLocal = $"),
               {a.cliente, LimpiarNulo(f[u"cAcumCode"]), local});
}

bool enviarTodos(Puesto& p, const QString& consulta, bool (*enviar)(Puesto&, const Recordset::Fila&)) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, consulta, rs)) return false;
  for (const auto& fila : rs) {
    if (!enviar(p, fila)) return false;
  }
  return true;
}

}  // namespace

void EnviarPendientesCliente(Puesto& p) {
  if (enviarTodos(p, QStringLiteral("SELECT * FROM Cliente WHERE cSincroFlag = 0 ORDER BY dUltTDate"), enviarCliente)) {
    enviarTodos(p, QStringLiteral("SELECT *   FROM Acumulacion_Punto  WHERE cSincroFlag = 0"), enviarAcumulacion);
  }
}
