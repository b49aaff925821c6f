#include "sync/fila_central.h"

#include "foundation/db_admin.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sync/maestros.h"

const LiteralSql kCabezaOperacion =
    u" INSERT INTO Operacion (cOperID, cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, "
    "nProdPrecUnit, dOperFech, cOperTipo, cOperFlagAnula, cOperCodeAnula, cOperFlagAbierto, nMontoDolares, cCajacodi, "
    "cFlagSincronizacion, cTurnoCodi, nDscto, nServicio, cCodiCLie, vDescClie, cDocCodigo, cdocserie, cdoctipo, cruc, "
    "iTipoCliente, idlocal) VALUES "_sql;
const LiteralSql kCabezaParalela =
    u" INSERT INTO OperacionParalela (cCajaCodi, cOpercode , cOperTipo, dOperFech, nTarjNumb, nMoneda, nMontoSoles, "
    "nMontoDolares, nEfectivoSoles, nVueltoSoles, sGlosa, cEstado, cFlagSincronizacion, cTurnoCodi, cUserDesc, "
    "cOperCodeRela, cOperCodeAnul, cCodiCLie, vDescClie, iTipocliente, cdoccodigo, cdocserie, cdoctipo) VALUES "_sql;
const LiteralSql kCabezaLineaParalela =
    u" INSERT INTO OperacionParalelaProducto (cCajaCodi, cOpercode , cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, "
    "nDscto, nServicio, nitem, cSupervisor) VALUES "_sql;
const LiteralSql kCabezaDetalleZ1 =
    u"INSERT INTO TDETALLEZ1(nidZ1,cCajaCodi,dOperFech,cAlmaCode,cdocTipo,cProdCode,nProdCant,nMonto) VALUES "_sql;

namespace {

Texto texto(const Recordset::Fila& f, QStringView campo) { return Texto(LimpiarNulo(f[campo])); }
double numero(const Recordset::Fila& f, QStringView campo) { return Numero(f[campo]); }
qint64 entero(const Recordset::Fila& f, QStringView campo) { return AEntero(Numero(f[campo])); }
Texto articulo(const Recordset::Fila& f) { return Texto(CodigoCentral(entero(f, u"cProdCode"))); }

}  // namespace

QString NumeroCentral(const QVariant& cDocCodigo) { return CodigoCentral(AEntero(Numero(cDocCodigo))); }

Sql MomentoCentral(const QVariant& momento) {
  return FormatearSQL(
      u"CONVERT(DATETIME,'$',120)"_sql,
      {momento.isNull() ? Valor() : Texto(FormatearFecha(momento.toDateTime(), u"yyyy-mm-dd hh:nn:ss"))});
}

Sql TuplaOperacion(const Recordset::Fila& f, qint64 id, const DatosFilaCentral& d) {
  return FormatearSQL(
      u"($, $, '$', '$', '$', '$', $, $, $, $, $, $, $, $, '$', $, '$', $, $, '$', '$', '$', '$', '$', '$', $, $)"_sql,
      {id,
       entero(f, u"cOperCode"),
       texto(f, u"cUserDesc"),
       texto(f, u"nTarjNumb"),
       texto(f, u"cAlmaCode"),
       articulo(f),
       numero(f, u"nProdCant"),
       numero(f, u"nProdPrecUnit"),
       MomentoCentral(f[u"dOperFech"]),
       entero(f, u"cOperTipo"),
       entero(f, u"cOperFlagAnula"),
       entero(f, u"cOperCodeAnula"),
       entero(f, u"cOperFlagAbierto"),
       numero(f, u"nMontoDolares"),
       Texto(d.caja),
       d.bandera,
       texto(f, u"cTurnoCodi"),
       numero(f, u"nDscto"),
       numero(f, u"nServicio"),
       Texto(d.cliente.codigo),
       Texto(d.cliente.nombre),
       Texto(NumeroCentral(f[u"cDocCodigo"])),
       texto(f, u"cDocSerie"),
       texto(f, u"cDocTipo"),
       texto(f, u"cRuc"),
       d.cliente.tipo,
       f[u"IdLocal"].isNull() ? Valor() : Valor(entero(f, u"IdLocal"))});
}

Sql TuplaParalela(const Recordset::Fila& f, const DatosFilaCentral& d) {
  const QString tipo = LimpiarNulo(f[u"cDocTipo"]);
  return FormatearSQL(
      u"('$', $, $, $, '$', $, $, $, $, $, '$', '$', $, '$', '$', $, $, '$', '$', $, '$', '$', '$')"_sql,
      {Texto(d.caja),
       entero(f, u"cOperCode"),
       entero(f, u"cOperTipo"),
       MomentoCentral(f[u"dOperFech"]),
       texto(f, u"nTarjNumb"),
       entero(f, u"nMoneda"),
       numero(f, u"nMontoSoles"),
       numero(f, u"nMontoDolares"),
       numero(f, u"nEfectivoSoles"),
       numero(f, u"nVueltoSoles"),
       texto(f, u"sGlosa"),
       texto(f, u"cEstado"),
       d.bandera,
       texto(f, u"cTurnoCodi"),
       texto(f, u"cUserDesc"),
       entero(f, u"cOperCodeRela"),
       entero(f, u"cOperCodeAnul"),
       Texto(d.cliente.codigo),
       Texto(d.cliente.nombre),
       d.cliente.tipo,
       Texto(NumeroCentral(f[u"cDocCodigo"])),
       texto(f, u"cDocSerie"),
       Texto(tipo.isEmpty() ? QStringLiteral("0") : tipo)});
}

// `nItem` is a column of the central copy alone; a store that has none gives 0.
Sql TuplaLineaParalela(const Recordset::Fila& f, const QString& caja) {
  return FormatearSQL(u"('$', $, '$', '$', $, $, $, $, $, '$')"_sql,
                      {Texto(caja), entero(f, u"cOperCode"), texto(f, u"cAlmaCode"), articulo(f),
                       numero(f, u"nProdCant"), numero(f, u"nProdPrecUnit"), numero(f, u"nDscto"),
                       numero(f, u"nServicio"), entero(f, u"nItem"), texto(f, u"cSupervisor")});
}

Sql TuplaDetalleZ1(const Recordset::Fila& linea, const Recordset::Fila& documento, const QString& idZ1,
                   const QString& caja) {
  const double bruto = numero(linea, u"nProdCant") * numero(linea, u"nProdPrecUnit");
  return FormatearSQL(u"($,'$',$,'$','$','$',$,$)"_sql,
                      {Cifras(idZ1), Texto(caja), MomentoCentral(documento[u"dOperFech"]), texto(linea, u"cAlmaCode"),
                       texto(documento, u"cDocTipo"), articulo(linea), numero(linea, u"nProdCant"),
                       bruto + bruto * numero(linea, u"nDscto") / 100});
}

std::optional<ErrorBD> InsertarTuplas(Conexion& central, LiteralSql cabeza, const std::vector<Sql>& tuplas) {
  constexpr size_t kPorSentencia = 20;
  for (size_t i = 0; i < tuplas.size(); i += kPorSentencia) {
    const std::vector<Sql> unas(
        tuplas.begin() + static_cast<std::ptrdiff_t>(i),
        tuplas.begin() + static_cast<std::ptrdiff_t>(std::min(i + kPorSentencia, tuplas.size())));
    if (auto e = central.ejecutar(cabeza + UnirSql(unas, u", "_sql))) return e;
  }
  return {};
}
