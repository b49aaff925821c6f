#include "cashday/cifras_paralelas.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "store/codigos.h"

namespace {

constexpr LiteralSql kOrdenes =
    u" Select sum(d.nProdCant) as items  , sum({valorp}) as precio     FROM OperacionParalelaProducto d , "
    "OperacionParalela o    WHERE d.cOpercode = o.cOpercode      AND o.cOpercodeAnul=0 {p}     AND TRIM(o.cEstado)='1' "
    "AND o.cOperTipo + 0 in ({OC})  {t}"_sql;
constexpr LiteralSql kNotas =
    u" Select sum(d.nProdCant) as items  , sum({valorp}) as precio     FROM OperacionParalelaProducto d , "
    "OperacionParalela o    WHERE d.cOpercode = o.cOpercode      AND o.cOpercodeAnul=0 {p}{t}     "
    "AND TRIM(o.cEstado)='1' AND o.cOperTipo + 0 in ({NC})  "_sql;
constexpr LiteralSql kProductosNotas =
    u" SELECT d.cProdCode , sum(d.nProdCant) as Cant ,  max(p.cCodcatalogo) as Catal, max(p.sProdDesc) as Descrip "
    " FROM OperacionParalelaProducto  d, OperacionParalela o,   Producto  p  WHERE d.cOpercode = o.cOpercode "
    "   AND d.cProdCode = p.cProdCode    AND d.cAlmaCode = p.cAlmaCode    AND d.cProdcode <> 0 {p}{t}"
    "   AND o.cOperCodeanul =  0 AND TRIM(o.cEstado)= '1' AND o.cOpertipo + 0 in ({NC})  GROUP BY d.cprodcode "
    " ORDER BY  4"_sql;
constexpr LiteralSql kNulosOrdenes =
    u" SELECT sum(o.nmontoSoles) as monto, count(*) as items  FROM operacionparalela o "
    "WHERE o.copercodeanul <> 0 AND TRIM(o.cdoctipo)={dOC} {p}{t}"_sql;

constexpr LiteralSql kSumas = u" SELECT sum(nMontosoles) as monto, count(*) as items "_sql;
constexpr LiteralSql kCampos =
    u" SELECT cOperCode, cOperTipo, nTarjNumb, sGlosa, nMontosoles, nMontoDolares, nMoneda "_sql;

constexpr LiteralSql kDeRecibidos =
    u"FROM OperacionParalela o  WHERE o.cOperTipo + 0 in ($) and TRIM(o.cEstado) in ('1')  AND o.cOpercodeAnul = 0 "
    "{p}{t}"_sql;
constexpr LiteralSql kListaRecibidos =
    u" SELECT o.cOperCode, o.cOperTipo, o.nTarjNumb, u.sUserName + ' ' + u.sUserApel as sGlosa, o.nMontosoles, "
    "o.nMontoDolares, o.nMoneda, o.cDocCodigo, o.cDocSerie FROM OperacionParalela o, usuario u "
    " WHERE o.cOperTipo + 0 in ($) and TRIM(o.cEstado) in ('1')  {p}{t} AND o.cOpercodeAnul = 0 "
    "AND o.cUserDesc = u.sUserDesc ORDER BY o.cOperCode"_sql;
constexpr LiteralSql kDeLiqDia =
    u"FROM OperacionParalela o  WHERE o.cOperTipo + 0 in ($) and TRIM(o.cEstado) in ('2')  AND o.cOpercodeAnul = 0 "
    "{p}{t}"_sql;
// Those of earlier days that a document of this period settled.
constexpr LiteralSql kDeLiq =
    u"FROM OperacionParalela  WHERE cOperTipo + 0 in ($) and cOperFlagAbierto + 0=0 and TRIM(cEstado) in ('2') "
    " AND cOperCodeRela in (SELECT o.cOperCode from OperacionParalela o WHERE o.cOpercodeAnul = 0 {p}{t}) "
    " AND cOpercodeAnul = 0 "_sql;

void sumar(SumaAdelantos& s, const FilaAdelanto& f) { (f.dolares ? s.dolares : s.soles) += f.importe; }

FilaAdelanto filaAdelanto(const Recordset::Fila& f) {
  FilaAdelanto r;
  r.sGlosa = LimpiarNulo(f[u"sGlosa"]).remove(QStringLiteral("\r\n"));
  r.nTarjNumb = LimpiarNulo(f[u"nTarjNumb"]);
  r.dolares = Numero(f[u"nMoneda"]) == 2;
  r.importe = Numero(r.dolares ? f[u"nMontoDolares"] : f[u"nMontoSoles"]);
  return r;
}

// The head of a check and the rows of its list, which come back as read.
Recordset leerCheck(LectorReporte& l, TipoOperacion tipo, const Sql& de, const Sql& lista, CheckAdelantos& c) {
  const Recordset suma = l.filas(FormatearSQL(kSumas + de, {Codigo(tipo)}));
  c.cuenta = Numero(suma[u"items"]);
  c.monto = Numero(suma[u"monto"]);
  Recordset filas = l.filas(FormatearSQL(lista, {Codigo(tipo)}));
  for (const auto& f : filas) {
    c.filas.push_back(filaAdelanto(f));
    sumar(c.suma, c.filas.back());
  }
  return filas;
}

bool anuladoEnCentral(Puesto& p, Conexion& central, const Recordset::Fila& f) {
  if (!central.abierta()) return false;
  Recordset rs;
  return p.poDBAdmin.EjecutarConsulta(
             central,
             FormatearSQL(u"SELECT COUNT(1) AS EXISTE FROM PAGOS WHERE FechaAnulacion is not null and "
                          "cSerieDocPago='$' AND convert(int,NroDocPago)=$"_sql,
                          {Texto(LimpiarNulo(f[u"cDocSerie"])), Numero(f[u"cDocCodigo"])}),
             rs) &&
         Numero(rs[u"EXISTE"]) > 0;
}

Adelantos leerAdelantos(Puesto& p, LectorReporte& l, Conexion& central, TipoOperacion tipo) {
  Adelantos a;
  const Recordset recibidos = leerCheck(l, tipo, kDeRecibidos, kListaRecibidos, a.recibidos);
  for (const auto& f : recibidos) {
    if (!anuladoEnCentral(p, central, f)) continue;
    a.anulados.filas.push_back(filaAdelanto(f));
    sumar(a.anulados.suma, a.anulados.filas.back());
    a.anulados.cuenta += 1;
    a.anulados.monto += Numero(f[u"nMontoSoles"]);
  }
  const Sql enOrden = u" ORDER BY cOperCode"_sql;
  leerCheck(l, tipo, kDeLiqDia, kCampos + kDeLiqDia + enOrden, a.liqDia);
  leerCheck(l, tipo, kDeLiq, kCampos + kDeLiq + enOrden, a.liq);
  return a;
}

}  // namespace

CifrasParalelas LeerParalelas(Puesto& p, LectorReporte& l, Conexion& central, CifrasReporte& c) {
  CifrasParalelas r;
  r.nVentaTicket = c.nVenta;
  const Recordset ordenes = l.filas(kOrdenes);
  r.nItemsOC = AEntero(Numero(ordenes[u"items"]));
  r.nMontoOC = Numero(ordenes[u"precio"]);
  c.nItems += r.nItemsOC;
  c.nVenta += r.nMontoOC;
  const Recordset notas = l.filas(kNotas);
  r.itemsNC = Numero(notas[u"items"]);
  r.montoNC = Numero(notas[u"precio"]);
  if (r.itemsNC > 0) r.productosNC = FilasDeProducto(l.filas(kProductosNotas));
  r.pade = leerAdelantos(p, l, central, TipoOperacion::PADE);
  r.padv = leerAdelantos(p, l, central, TipoOperacion::PADV);
  const Recordset nulos = l.filas(kNulosOrdenes);
  r.nulosOC = Numero(nulos[u"items"]);
  r.nulosOCMonto = Numero(nulos[u"monto"]);
  return r;
}
