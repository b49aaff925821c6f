#include "cashday/cifras_paralelas.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"

namespace {

enum TipoAdelanto { kPADE = 22, kPADV = 23 };

const char* const kOrdenes =
    " Select sum(d.nProdCant) as items  , sum({valorp}) as precio     FROM OperacionParalelaProducto d , "
    "OperacionParalela o    WHERE d.cOpercode = o.cOpercode      AND o.cOpercodeAnul=0 {p}     AND TRIM(o.cEstado)='1' "
    "AND o.cOperTipo + 0 in (20)  {t}";
const char* const kNotas =
    " Select sum(d.nProdCant) as items  , sum({valorp}) as precio     FROM OperacionParalelaProducto d , "
    "OperacionParalela o    WHERE d.cOpercode = o.cOpercode      AND o.cOpercodeAnul=0 {p}{t}     "
    "AND TRIM(o.cEstado)='1' AND o.cOperTipo + 0 in (21)  ";
const char* const kProductosNotas =
    " SELECT d.cProdCode , sum(d.nProdCant) as Cant ,  max(p.cCodcatalogo) as Catal, max(p.sProdDesc) as Descrip "
    " FROM OperacionParalelaProducto  d, OperacionParalela o,   Producto  p  WHERE d.cOpercode = o.cOpercode "
    "   AND d.cProdCode = p.cProdCode    AND d.cAlmaCode = p.cAlmaCode    AND d.cProdcode <> 0 {p}{t}"
    "   AND o.cOperCodeanul =  0 AND TRIM(o.cEstado)= '1' AND o.cOpertipo + 0 in (21)  GROUP BY d.cprodcode "
    " ORDER BY  4";
const char* const kNulosOrdenes = " SELECT sum(o.nmontoSoles) as monto, count(*) as items  FROM operacionparalela o "
                                  "WHERE o.copercodeanul <> 0 AND TRIM(o.cdoctipo)='10' {p}{t}";

const char* const kSumas = " SELECT sum(nMontosoles) as monto, count(*) as items ";
const char* const kCampos = " SELECT cOperCode, cOperTipo, nTarjNumb, sGlosa, nMontosoles, nMontoDolares, nMoneda ";

const char* const kDeRecibidos =
    "FROM OperacionParalela o  WHERE o.cOperTipo + 0 in (%1) and TRIM(o.cEstado) in ('1')  AND o.cOpercodeAnul = 0 {p}{t}";
const char* const kListaRecibidos =
    " SELECT o.cOperCode, o.cOperTipo, o.nTarjNumb, u.sUserName + ' ' + u.sUserApel as sGlosa, o.nMontosoles, "
    "o.nMontoDolares, o.nMoneda, o.cDocCodigo, o.cDocSerie FROM OperacionParalela o, usuario u "
    " WHERE o.cOperTipo + 0 in (%1) and TRIM(o.cEstado) in ('1')  {p}{t} AND o.cOpercodeAnul = 0 "
    "AND o.cUserDesc = u.sUserDesc ORDER BY o.cOperCode";
const char* const kDeLiqDia =
    "FROM OperacionParalela o  WHERE o.cOperTipo + 0 in (%1) and TRIM(o.cEstado) in ('2')  AND o.cOpercodeAnul = 0 {p}{t}";
// Those of earlier days that a document of this period settled.
const char* const kDeLiq =
    "FROM OperacionParalela  WHERE cOperTipo + 0 in (%1) and cOperFlagAbierto + 0=0 and TRIM(cEstado) in ('2') "
    " AND cOperCodeRela in (SELECT o.cOperCode from OperacionParalela o WHERE o.cOpercodeAnul = 0 {p}{t}) "
    " AND cOpercodeAnul = 0 ";

void sumar(SumaAdelantos& s, const FilaAdelanto& f) { (f.dolares ? s.dolares : s.soles) += f.importe; }

FilaAdelanto filaAdelanto(const Recordset::Fila& f) {
  FilaAdelanto r;
  r.sGlosa = LimpiarNulo(f[u"sGlosa"]).remove(QStringLiteral("\r\n"));
  r.nTarjNumb = LimpiarNulo(f[u"nTarjNumb"]);
  r.dolares = Numero(f[u"nMoneda"]) == 2;
  r.importe = Numero(r.dolares ? f[u"nMontoDolares"] : f[u"nMontoSoles"]);
  return r;
}

QString deTipo(const char* consulta, TipoAdelanto tipo) { return QString::fromLatin1(consulta).arg(tipo); }

// The head of a check and the rows of its list, which come back as read.
Recordset leerCheck(LectorReporte& l, TipoAdelanto tipo, const char* de, const QString& lista, CheckAdelantos& c) {
  const Recordset suma = l.filas(QString::fromLatin1(kSumas) + deTipo(de, tipo));
  c.cuenta = Numero(suma[u"items"]);
  c.monto = Numero(suma[u"monto"]);
  Recordset filas = l.filas(lista);
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
             QStringLiteral("SELECT COUNT(1) AS EXISTE FROM PAGOS WHERE FechaAnulacion is not null and "
                            "cSerieDocPago='%1' AND convert(int,NroDocPago)=%2")
                 .arg(LimpiarNulo(f[u"cDocSerie"]), TextoDe(Numero(f[u"cDocCodigo"]))),
             rs) &&
         Numero(rs[u"EXISTE"]) > 0;
}

Adelantos leerAdelantos(Puesto& p, LectorReporte& l, Conexion& central, TipoAdelanto tipo) {
  Adelantos a;
  const Recordset recibidos = leerCheck(l, tipo, kDeRecibidos, deTipo(kListaRecibidos, tipo), a.recibidos);
  for (const auto& f : recibidos) {
    if (!anuladoEnCentral(p, central, f)) continue;
    a.anulados.filas.push_back(filaAdelanto(f));
    sumar(a.anulados.suma, a.anulados.filas.back());
    a.anulados.cuenta += 1;
    a.anulados.monto += Numero(f[u"nMontoSoles"]);
  }
  const QString enOrden = QStringLiteral(" ORDER BY cOperCode");
  leerCheck(l, tipo, kDeLiqDia, QString::fromLatin1(kCampos) + deTipo(kDeLiqDia, tipo) + enOrden, a.liqDia);
  leerCheck(l, tipo, kDeLiq, QString::fromLatin1(kCampos) + deTipo(kDeLiq, tipo) + enOrden, a.liq);
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
  r.pade = leerAdelantos(p, l, central, kPADE);
  r.padv = leerAdelantos(p, l, central, kPADV);
  const Recordset nulos = l.filas(kNulosOrdenes);
  r.nulosOC = Numero(nulos[u"items"]);
  r.nulosOCMonto = Numero(nulos[u"monto"]);
  return r;
}
