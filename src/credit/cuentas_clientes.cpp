#include "credit/cuentas_clientes.h"

#include <QHash>
#include <algorithm>

#include "foundation/db_admin.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

// The newest document of a customer names him.
constexpr LiteralSql kCuentas =
    u"SELECT g.cClienteCode, g.IdLocal, v.DscCliente FROM (SELECT x.cClienteCode, x.IdLocal, MAX(x.cCodVta) AS Ultima"
    " FROM venta01 x WHERE x.FechaAnulacion IS NULL GROUP BY x.cClienteCode, x.IdLocal) g"
    " INNER JOIN venta01 v ON v.cCodVta = g.Ultima"_sql;
constexpr LiteralSql kSoles = u"SUM(CASE p.Moneda WHEN 'E' THEN p.Monto * p.nTipoCambio ELSE p.Monto END)"_sql;
constexpr LiteralSql kDolares =
    u"SUM(CASE WHEN p.Moneda = 'E' THEN p.Monto WHEN p.nTipoCambio > 0 THEN p.Monto / p.nTipoCambio ELSE 0 END)"_sql;
constexpr LiteralSql kDelDocumento =
    u" FROM Pagos p WHERE p.TipoDoc = v.TipoDoc AND p.cSerieDoc = v.cSerieDoc AND p.NroDoc = v.NroDoc"
    " AND p.FechaAnulacion IS NULL"_sql;

int entero(const QVariant& v) { return static_cast<int>(AEntero(Numero(v))); }

// Adds a figure of each customer to its place.
ErrorCuentas sumar(Conexion& central, const Sql& consulta, const QHash<std::pair<qint64, int>, CuentaCliente*>& suyas,
                   double CuentaCliente::*cifra) {
  Recordset rs;
  if (auto error = central.consultar(consulta, rs)) return error;
  for (const auto& f : rs) {
    if (CuentaCliente* c = suyas.value({AEntero(Val(LimpiarNulo(f[0]))), entero(f[1])})) c->*cifra += Numero(f[2]);
  }
  return {};
}

}  // namespace

QString CuentaCliente::local() const {
  return IdLocal == 1 ? QStringLiteral("Sur") : IdLocal == 2 ? QStringLiteral("Norte") : QString();
}

QString DocumentoCuenta::estado() const {
  const double resto = enDolares ? totalUSD - pagadoUSD : total - pagado;
  return Redondear(resto, 2) == 0 ? QStringLiteral("Cancelado") : QStringLiteral("Pendiente");
}

ErrorCuentas LeerCuentas(Conexion& central, std::vector<CuentaCliente>& cuentas) {
  Recordset rs;
  cuentas.clear();
  if (auto error = central.consultar(kCuentas, rs)) return error;
  cuentas.reserve(static_cast<size_t>(rs.RecordCount()));
  for (const auto& f : rs) {
    CuentaCliente c;
    c.cClienteCode = LimpiarNulo(f[0]);
    c.IdLocal = entero(f[1]);
    c.DscCliente = LimpiarNulo(f[2]);
    cuentas.push_back(std::move(c));
  }
  std::sort(cuentas.begin(), cuentas.end(), [](const CuentaCliente& a, const CuentaCliente& b) {
    const int d = CompararEspanol(a.DscCliente, b.DscCliente);
    if (d != 0) return d < 0;
    return std::pair(a.cClienteCode, a.IdLocal) < std::pair(b.cClienteCode, b.IdLocal);
  });
  return {};
}

ErrorCuentas LeerTotales(Conexion& central, std::vector<CuentaCliente>& cuentas, size_t desde, size_t cuantas) {
  const size_t fin = std::min(cuentas.size(), desde + cuantas);
  std::vector<Sql> textos, numeros;
  QHash<std::pair<qint64, int>, CuentaCliente*> suyas;
  for (size_t n = desde; n < fin; ++n) {
    CuentaCliente& c = cuentas[n];
    const qint64 numero = AEntero(Val(c.cClienteCode));
    textos.push_back(FormatearSQL(u"'$'"_sql, {Texto(c.cClienteCode)}));
    numeros.push_back(FormatearSQL(u"$"_sql, {numero}));
    c.ventas = c.pagos = 0;
    c.conTotales = false;
    suyas.insert({numero, c.IdLocal}, &c);
  }
  if (textos.empty()) return {};
  if (auto error = sumar(central,
                         FormatearSQL(u"SELECT v.cClienteCode, v.IdLocal, SUM(v.TotVta) FROM venta01 v"
                                      " WHERE v.cClienteCode IN ($) AND v.FechaAnulacion IS NULL"
                                      " GROUP BY v.cClienteCode, v.IdLocal"_sql,
                                      {UnirSql(textos, u", "_sql)}),
                         suyas, &CuentaCliente::ventas)) {
    return error;
  }
  if (auto error = sumar(central,
                         FormatearSQL(u"SELECT p.cClieCode, p.idLocal, $ FROM Pagos p WHERE p.cClieCode IN ($)"
                                      " AND p.FechaAnulacion IS NULL GROUP BY p.cClieCode, p.idLocal"_sql,
                                      {kSoles, UnirSql(numeros, u", "_sql)}),
                         suyas, &CuentaCliente::pagos)) {
    return error;
  }
  for (size_t n = desde; n < fin; ++n) cuentas[n].conTotales = true;
  return {};
}

ErrorCuentas LeerDocumentosCuenta(Conexion& central, const CuentaCliente& cuenta,
                                  std::vector<DocumentoCuenta>& documentos) {
  Recordset rs;
  documentos.clear();
  if (auto error = central.consultar(
          FormatearSQL(u"SELECT v.TipoDoc, v.cSerieDoc, v.NroDoc, v.TotVta, v.TotVtaUSD, v.cCodMoneda, v.fechaemision,"
                       " (SELECT t.vDscTipoCredito FROM tipocredito t WHERE t.cCodTipoCredito = v.cCodTipoCredito)"
                       " AS Credito, (SELECT $$) AS PagSol, (SELECT $$) AS PagUSD FROM venta01 v"
                       " WHERE v.cClienteCode = '$' AND v.IdLocal = $ AND v.FechaAnulacion IS NULL"
                       " ORDER BY v.fechaemision, v.cSerieDoc, v.NroDoc"_sql,
                       {kSoles, kDelDocumento, kDolares, kDelDocumento, Texto(cuenta.cClienteCode), cuenta.IdLocal}),
          rs)) {
    return error;
  }
  for (const auto& f : rs) {
    DocumentoCuenta d;
    d.TipoDoc = LimpiarNulo(f[u"TipoDoc"]);
    d.cSerieDoc = LimpiarNulo(f[u"cSerieDoc"]);
    d.NroDoc = LimpiarNulo(f[u"NroDoc"]);
    d.credito = LimpiarNulo(f[u"Credito"]);
    d.emision = f[u"fechaemision"].toDateTime();
    d.enDolares = LimpiarNulo(f[u"cCodMoneda"]) == u"E";
    d.total = Numero(f[u"TotVta"]);
    d.totalUSD = Numero(f[u"TotVtaUSD"]);
    d.pagado = Redondear(Numero(f[u"PagSol"]), 2);
    d.pagadoUSD = Redondear(Numero(f[u"PagUSD"]), 2);
    documentos.push_back(std::move(d));
  }
  return {};
}

ErrorCuentas LeerPagosCuenta(Conexion& central, const DocumentoCuenta& documento, std::vector<PagoCuenta>& pagos) {
  Recordset rs;
  pagos.clear();
  if (auto error = central.consultar(
          FormatearSQL(u"SELECT p.cSerieDocPago, p.NroDocPago, p.FechaPago, p.Moneda, p.Monto, p.nTipoCambio,"
                       " (SELECT t.vDscTipoPago FROM tipoformapago t WHERE t.cCodTipoPago = p.FormaPago) AS Forma"
                       " FROM Pagos p WHERE p.TipoDoc = '$' AND p.cSerieDoc = '$' AND p.NroDoc = '$'"
                       " AND p.FechaAnulacion IS NULL ORDER BY p.FechaPago, p.NroItem"_sql,
                       {Texto(documento.TipoDoc), Texto(documento.cSerieDoc), Texto(documento.NroDoc)}),
          rs)) {
    return error;
  }
  for (const auto& f : rs) {
    PagoCuenta p;
    p.recibo = LimpiarNulo(f[u"cSerieDocPago"]) + u'-' + LimpiarNulo(f[u"NroDocPago"]);
    p.formaPago = LimpiarNulo(f[u"Forma"]);
    p.fecha = f[u"FechaPago"].toDateTime();
    p.enDolares = LimpiarNulo(f[u"Moneda"]) == u"E";
    const double monto = Numero(f[u"Monto"]), tipoCambio = Numero(f[u"nTipoCambio"]);
    p.soles = p.enDolares ? monto * tipoCambio : monto;
    p.dolares = p.enDolares ? monto : tipoCambio > 0 ? monto / tipoCambio : 0;
    pagos.push_back(std::move(p));
  }
  return {};
}
