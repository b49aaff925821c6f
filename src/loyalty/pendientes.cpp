#include "loyalty/pendientes.h"

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "loyalty/acumulacion.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

int enteroDe(const QVariant& v) { return static_cast<int>(AEntero(Numero(v))); }

// Month first whatever the server's language is.
Sql fechaDelServidor(const QVariant& v) {
  return FormatearSQL(u"CONVERT(DATETIME,'$',101)"_sql,
                      {v.isNull() ? Valor() : Texto(FormatearFecha(v.toDateTime(), u"mm/dd/yyyy"))});
}

// A row of the store as sent.
bool marcar(Puesto& p, LiteralSql plantilla, const std::vector<Valor>& valores) {
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, FormatearSQL(plantilla, valores), true);
}

// What one row changes in the client database stands there whole or not at all. A database that is locked is asked
// again by the next run, without a word.
bool enviar(Puesto& p, const std::vector<Sql>& cambio) {
  return EjecutarEnCliente(p, cambio, false) == ResultadoCliente::Hecho;
}

bool leerLocales(Puesto& p, Conexion& cnn, const Sql& consulta, std::vector<int>& locales) {
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
          FormatearSQL(u"SELECT DISTINCT IdLocal FROM Acumulacion_Punto WHERE cSincroFlag = 0 AND IdLocal <> 0 "
                       "AND cClieCode = $"_sql,
                       {Cifras(codigo)}),
          locales)) {
    return false;
  }
  if (!locales.empty()) return true;
  if (!leerLocales(p, p.poCnnCliente,
                   FormatearSQL(u"SELECT IdLocal FROM Cliente WHERE cClieCode = $"_sql, {Cifras(codigo)}), locales)) {
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
  std::vector<Sql> cambio;
  cambio.reserve(locales.size());
  for (const int suyo : locales) {
    cambio.push_back(
        FormatearSQL(u"UPDATE Cliente    SET dUltTDate = $,        cTranCode = $ "
                     " WHERE cClieCode = $   AND IdLocal = $"_sql,
                     {fechaDelServidor(f[u"dUltTDate"]), enteroDe(f[u"cTranCode"]), Cifras(codigo), suyo}));
  }
  return enviar(p, cambio) &&
         marcar(p, u"UPDATE Cliente    SET cSincroFlag = 1  WHERE cClieCode = $   AND IdLocal = $"_sql,
                {Cifras(codigo), local});
}

// Number, row and balance; nothing when the document's points stand there already: a sending was cut off before its
// mark, or the answer to the sale's own commit was lost.
std::optional<ErrorBD> acumularUna(Conexion& cliente, Acumulacion& a, const Sql& fecha, Sql& laQueFallo) {
  Recordset rs;
  const auto consultar = [&](const Sql& sql) {
    auto error = cliente.consultar(sql, rs);
    if (error) laQueFallo = sql;
    return error;
  };
  if (auto e = consultar(u"SELECT COUNT(*) AS nCuenta FROM Acumulacion_Punto"_sql + DelDocumento(a.documento) +
                         FormatearSQL(u" and cClieCode=$ and IdLocal=$"_sql, {Cifras(a.cliente), a.idLocal}))) {
    return e;
  }
  if (Numero(rs[u"nCuenta"]) > 0) return {};
  if (auto e = consultar(UltimaAcumulacion(a.cliente, a.idLocal))) return e;
  a.codigo = AEntero(Numero(rs[u"Codigo"])) + 1;
  return EjecutarTodas(cliente,
                       {FilaAcumulacion(a, fecha, false),
                        FormatearSQL(u" UPDATE Cliente    SET nPuntCant = ISNULL(nPuntCant,0) + $  WHERE cClieCode = $ "
                                     "   AND IdLocal = $"_sql,
                                     {a.puntos, Cifras(a.cliente), a.idLocal})},
                       &laQueFallo);
}

bool enviarAcumulacion(Puesto& p, const Recordset::Fila& f) {
  Acumulacion a;
  a.tarjeta = LimpiarNulo(f[u"nTarjNumb"]);
  a.importe = Numero(f[u"nAcumImpo"]);
  a.puntos = enteroDe(f[u"nPuntCant"]);
  a.usuario = LimpiarNulo(f[u"sUserDesc"]);
  a.documento = {LimpiarNulo(f[u"cDocTipo"]), LimpiarNulo(f[u"cDocSerie"]), AEntero(Numero(f[u"cDocCodigo"]))};
  a.momento = f[u"dAcumDate"].toDateTime();
  const int local = enteroDe(f[u"IdLocal"]);
  // Whose they are the client database tells, by the card: a row without a site takes the card's only one.
  std::vector<TitularTarjeta> titulares;
  if (!LeerTitulares(p, p.poCnnCliente, a.tarjeta, local, titulares)) return false;
  if (titulares.size() != 1) return true;  // for the site, or for somebody to hold the card, points wait on
  a.cliente = titulares.front().cliente;
  a.idLocal = titulares.front().idLocal;
  int tipo = kSinCliente;
  if (!LeerTipoCliente(p, p.poCnnCliente, a.cliente, a.idLocal, tipo)) return false;
  if (tipo == kSinCliente) return true;
  // A row of the store's copies may turn out to be of a customer who earns nothing.
  if (tipo == kClienteConPuntos) {
    const Sql fecha = fechaDelServidor(f[u"dAcumDate"]);
    const auto hecho = ActuarEnCliente(
        p, [&](Sql& laQueFallo) { return acumularUna(p.poCnnCliente, a, fecha, laQueFallo); }, false);
    if (hecho != ResultadoCliente::Hecho) return false;
  }
  return marcar(p,
                u" UPDATE Acumulacion_Punto    SET cSincroFlag = 1  WHERE cClieCode = $ "
                "   AND cAcumCode = $    AND IdLocal = $"_sql,
                {Cifras(LimpiarNulo(f[u"cClieCode"])), Cifras(LimpiarNulo(f[u"cAcumCode"])), local});
}

bool enviarTodos(Puesto& p, LiteralSql consulta, bool (*una)(Puesto&, const Recordset::Fila&)) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, consulta, rs)) return false;
  for (const auto& fila : rs) {
    if (!una(p, fila)) return false;
  }
  return true;
}

}  // namespace

void EnviarPendientesCliente(Puesto& p) {
  if (enviarTodos(p, u"SELECT * FROM Cliente WHERE cSincroFlag = 0 ORDER BY dUltTDate"_sql, enviarCliente)) {
    enviarTodos(p, u"SELECT *   FROM Acumulacion_Punto  WHERE cSincroFlag = 0"_sql, enviarAcumulacion);
  }
}
