#include "credit/estado_documento.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"

double EstadoDocumento::saldo() const { return Redondear(total - pagado, 2); }

double EstadoDocumento::saldoUSD() const { return Redondear(totalUSD - pagadoUSD, 2); }

double EstadoDocumento::porConsumir() const { return Redondear(total - consumido, 2); }

QString EstadoDocumento::nombre() const { return PalabraDe(doc) + u' ' + serie + u'-' + numero; }

QString EstadoDocumento::palabras() const {
  if (anulado) return QStringLiteral("El documento ") + nombre() + QStringLiteral(" fue anulado.");
  if (liquidado) return QStringLiteral("El documento ") + nombre() + QStringLiteral(" ya fue liquidado.");
  return {};
}

Sql DeCodigo(qint64 cCodVta) { return FormatearSQL(u" WHERE cCodVta = $"_sql, {cCodVta}); }

Sql DeNumero(DocCredito doc, const QString& serie, const QString& numero) {
  return FormatearSQL(u" WHERE TipoDoc = '$' AND cSerieDoc = '$' AND NroDoc = '$'"_sql,
                      {Texto(Codigo(doc)), Texto(serie), Texto(numero)});
}

Sql SentenciaBloqueo(const Sql& donde) { return u"UPDATE Venta01 SET bLiquidado = bLiquidado"_sql + donde; }

std::optional<ErrorBD> LeerEstado(Conexion& central, const Sql& donde, std::optional<EstadoDocumento>& estado) {
  constexpr LiteralSql kEstado =
      u"SELECT v.cCodVta, v.TipoDoc, v.cSerieDoc, v.NroDoc, v.cClienteCode, v.IdLocal, v.DscCliente, v.NroRuc,"
      " v.TotVta, v.TotVtaUSD, v.cCodMoneda, v.fechaemision, v.FechaAnulacion, v.bLiquidado,"
      " (SELECT vDscTipoCredito FROM TipoCredito t WHERE t.cCodTipoCredito = v.cCodTipoCredito) AS Credito,"
      " (SELECT SUM(CASE p.Moneda WHEN 'E' THEN p.Monto * p.nTipoCambio ELSE p.Monto END) FROM Pagos p"
      " WHERE p.TipoDoc = v.TipoDoc AND p.cSerieDoc = v.cSerieDoc AND p.NroDoc = v.NroDoc"
      " AND p.FechaAnulacion IS NULL) AS PagSol,"
      " (SELECT SUM(CASE WHEN p.Moneda = 'E' THEN p.Monto WHEN p.nTipoCambio > 0 THEN p.Monto / p.nTipoCambio"
      " ELSE 0 END) FROM Pagos p WHERE p.TipoDoc = v.TipoDoc AND p.cSerieDoc = v.cSerieDoc AND p.NroDoc = v.NroDoc"
      " AND p.FechaAnulacion IS NULL) AS PagUSD,"
      " (SELECT SUM(c.nMonto) FROM ConsumoVenta c WHERE c.cCodVta = v.cCodVta AND c.bAnulado = 0) AS Consumido,"
      " (SELECT MAX(d.MontoDetracc) FROM Detraccion d WHERE d.SerieDoc = v.cSerieDoc AND d.NroDoc = v.NroDoc"
      " AND d.Estado = 'P' AND v.TipoDoc = '01') AS Detraccion"
      " FROM Venta01 v"_sql;
  Recordset rs;
  estado.reset();
  if (auto error = central.consultar(kEstado + donde, rs)) return error;
  if (rs.Eof()) return {};
  EstadoDocumento e;
  e.cCodVta = AEntero(Numero(rs[u"cCodVta"]));
  e.doc = DocCreditoDe(LimpiarNulo(rs[u"TipoDoc"])).value_or(DocCredito::FADE);
  e.serie = LimpiarNulo(rs[u"cSerieDoc"]);
  e.numero = LimpiarNulo(rs[u"NroDoc"]);
  e.tarjeta = LimpiarNulo(rs[u"cClienteCode"]);
  e.cliente = LimpiarNulo(rs[u"DscCliente"]);
  e.ruc = LimpiarNulo(rs[u"NroRuc"]);
  e.tipoCredito = LimpiarNulo(rs[u"Credito"]);
  e.idLocal = static_cast<int>(AEntero(Numero(rs[u"IdLocal"])));
  e.emision = rs[u"fechaemision"].toDateTime();
  e.enDolares = LimpiarNulo(rs[u"cCodMoneda"]) == u"E";
  e.total = Numero(rs[u"TotVta"]);
  e.totalUSD = Numero(rs[u"TotVtaUSD"]);
  e.anulado = !rs[u"FechaAnulacion"].isNull();
  e.liquidado = Numero(rs[u"bLiquidado"]) != 0;
  e.pagado = Numero(rs[u"PagSol"]);
  e.pagadoUSD = Numero(rs[u"PagUSD"]);
  e.consumido = Redondear(Numero(rs[u"Consumido"]), 2);
  if (!rs[u"Detraccion"].isNull()) e.detraccion = Redondear(Numero(rs[u"Detraccion"]), 2);
  estado = e;
  return {};
}

namespace {

// Why the document can't be worked on; "" when it can.
QString rechazo(const std::optional<EstadoDocumento>& e) {
  return e ? e->palabras() : QStringLiteral("El documento ya no existe en la base de datos central.");
}

}  // namespace

std::optional<ErrorBD> LeerBloqueado(Conexion& central, const Sql& donde, EstadoDocumento& estado) {
  std::optional<EstadoDocumento> e;
  if (auto error = central.ejecutar(SentenciaBloqueo(donde))) return error;
  if (auto error = LeerEstado(central, donde, e)) return error;
  if (const QString porque = rechazo(e); !porque.isEmpty()) return ErrorBD{kErrorGeneral, 0, porque};
  estado = *e;
  return {};
}

bool LeerAbierto(Puesto& p, Conexion& central, const Sql& donde, EstadoDocumento& estado) {
  std::optional<EstadoDocumento> e;
  const auto error = LeerEstado(central, donde, e);
  const QString porque = error ? error->descripcion : rechazo(e);
  if (!porque.isEmpty()) p.mensajes.mostrar(porque);
  else estado = *e;
  return porque.isEmpty();
}

ImporteDoble ImporteDe(double monto, bool enDolares, double tipoCambio) {
  const double cent = Redondear(monto, 2);
  if (enDolares) return {Redondear(cent * tipoCambio, 2), cent};
  return {cent, tipoCambio > 0 ? Redondear(cent / tipoCambio, 2) : 0};
}

bool Cabe(const EstadoDocumento& d, const ImporteDoble& importe) {
  return (d.enDolares ? importe.dolares : importe.soles) <= d.saldoPropio();
}
