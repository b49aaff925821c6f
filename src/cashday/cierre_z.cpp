#include "cashday/cierre_z.h"

#include "cashday/cifras.h"
#include "cashday/papel_reporte.h"
#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

constexpr LiteralSql kRango = u" SELECT min(o.cdoccodigo) as mini,max(o.cdoccodigo) as maxi FROM Operacion o "
                              "WHERE o.cOperTipo in (1,2,3,4,5) and o.cdoctipo IN ('01','02'){f}{t}"_sql;
constexpr LiteralSql kTotales =
    u"SELECT COUNT(*)AS TotDoc, sum ({valor})  AS TotMonto FROM Operacion AS O WHERE cOperTipo in (1,2,3) "
    "AND cprodcode <> 0 AND cOperflaganula= 0 AND cdoctipo='$' {f}{t}"_sql;
// All notes in force of any day: they wait for their sale.
constexpr LiteralSql kNotasConsumo =
    u"SELECT p.cCodCatalogo as Catal, p.sProdDescCrta as Descrip, Sum(d.nProdCant) AS Cant "
    "FROM (OperacionParalela o INNER JOIN OperacionParalelaProducto d ON o.cOperCode = d.cOperCode) "
    "INNER JOIN Producto p ON d.cProdCode = p.cProdCode AND d.cAlmaCode = p.cAlmaCode "
    "Where o.cdocTipo = {dNC} And o.cOperCodeAnul=0 GROUP BY p.cCodCatalogo, p.sProdDescCrta ORDER BY 1, 2"_sql;

std::vector<BloqueZ::Ticket> leerTickets(LectorReporte& l, const char* tipo) {
  std::vector<BloqueZ::Ticket> lista;
  const Recordset rs = l.filas(FormatearSQL(kTotales, {Texto(QString::fromLatin1(tipo))}));
  for (const auto& f : rs) lista.push_back({Numero(f[u"TotDoc"]), Numero(f[u"TotMonto"])});
  return lista;
}

void agregarContador(std::vector<Sql>& sentencias, const CierreZ& c, const DatosReporte& d) {
  const qint64 numero = d.z->contador.numero;
  const double venta = d.cifras.nVenta;
  sentencias.push_back(
      FormatearSQL(u" UPDATE _Tmp1 SET idz=$ , Imac= Imac + $ WHERE prn=$ "_sql, {numero, venta, c.impresora}));
  sentencias.push_back(
      FormatearSQL(u"INSERT INTO _Tmp (idz, tvd, fec, prn) VALUES($ , $, '$', $ )"_sql,
                   {numero, venta, Texto(FormatearFecha(d.momento, u"DD/MM/YYYY hh:mm")), c.impresora}));
}

struct RangoZ {
  double ini = 0, fin = 0, iniP = 0, finP = 0;
};

RangoZ leerRango(LectorReporte& l) {
  RangoZ r;
  r.ini = l.numero(u"select coperid from Configuracion"_sql);
  r.iniP = l.numero(u"select coperidP from Configuracion"_sql);
  r.fin = l.numero(u"select max(coperid) from operacion"_sql);
  r.finP = l.numero(u"select max(copercode) from operacionParalela"_sql);
  return r;
}

// The Z row's number: that of an earlier report of this range or the next one. A desk without watermarks always begins
// at 0; there the range is the same while its operations are open.
double leerIdZ(LectorReporte& l, const QString& caja, const RangoZ& r) {
  const Recordset rs = l.filas(FormatearSQL(
      u"SELECT MAX(IdZ) as MAXIMO FROM CabeceraZ WHERE Caja='$' AND cOperIdIni=$ AND cOperIdPIni=$ "
      "AND (cOperIdIni > 0 OR cOperIdFin >= (SELECT MIN(cOperID) FROM Operacion WHERE cOperFlagAbierto=1))"_sql,
      {Texto(caja), r.ini, r.iniP}));
  if (!rs[u"MAXIMO"].isNull()) return Numero(rs[u"MAXIMO"]);
  return l.numero(u"SELECT MAX(IdZ) as MAXIMO FROM CabeceraZ"_sql) + 1;
}

QString enLineas(const std::vector<BloqueZ::Ticket>& tickets) {
  QString s;
  for (const auto& t : tickets) {
    for (const QString& linea : LineasTicket(t)) s += linea + QStringLiteral("\r\n");
  }
  return s;
}

// The Z row and its detail, in the place of those of an earlier report of the range. False when the store can't be
// read.
bool agregarCabeceraZ(Puesto& p, std::vector<Sql>& sentencias, const DatosReporte& d) {
  LectorReporte l(p, {}, {});
  const RangoZ r = leerRango(l);
  const double id = leerIdZ(l, d.caja, r);
  if (!l.bien()) return false;
  for (const LiteralSql tabla : {u"DetalleZ"_sql, u"CabeceraZ"_sql}) {
    sentencias.push_back(FormatearSQL(u"DELETE FROM $ WHERE IdZ=$ AND Caja='$'"_sql, {tabla, id, Texto(d.caja)}));
  }
  sentencias.push_back(FormatearSQL(
      u"INSERT INTO CabeceraZ(IdZ,Caja,CantidadTotal,MontoTotal,Fecha,RangoTKBOL,RangoTKFAC,CodigoRep,cOperIdIni,"
      "cOperIdFin,cOperIdPIni,cOperIdPFin) VALUES ($,'$',$,$,'$','$','$','$',$,$,$,$)"_sql,
      {id, Texto(d.caja), d.cifras.nItems, d.cifras.nVenta, Texto(FormatearFecha(d.momento, u"yyyy-mm-dd")),
       Texto(enLineas(d.z->boletas)), Texto(enLineas(d.z->facturas)), Texto(LineaCodigo(d)), r.ini, r.fin, r.iniP,
       r.finP}));
  int nItem = 0;
  for (const auto& f : d.cifras.productos) {
    sentencias.push_back(
        FormatearSQL(u"INSERT INTO DetalleZ(IdZ,Caja,nItem,CodProd,DscProd,Cantidad) VALUES ($,'$',$,$,'$',$)"_sql,
                     {id, Texto(d.caja), ++nItem, f.cProdCode, Texto(f.descripcion), f.cantidad}));
  }
  return true;
}

}  // namespace

ContadorZ LeerContadorZ(LectorReporte& l, NumeroImpresora impresora) {
  const Recordset rs =
      l.filas(FormatearSQL(u"SELECT idz + 1 as cod, maxid , Imac   FROM _tmp1  WHERE prn=$"_sql, {impresora}));
  ContadorZ c;
  c.Imac = Numero(rs[u"Imac"]);
  if (rs[u"cod"].isNull()) return c;
  const double cod = Numero(rs[u"cod"]);
  c.numero = cod > Numero(rs[u"maxid"]) ? 1 : AEntero(cod);
  return c;
}

BloqueZ LeerBloqueZ(LectorReporte& l, NumeroImpresora impresora) {
  BloqueZ z;
  const Recordset rango = l.filas(kRango);
  for (const auto& f : rango) z.rangos.emplace_back(LimpiarNulo(f[u"mini"]), LimpiarNulo(f[u"maxi"]));
  z.boletas = leerTickets(l, "02");
  z.facturas = leerTickets(l, "01");
  if (impresora == kImpresoraAlterna) z.notas = FilasDeProducto(l.filas(kNotasConsumo));
  return z;
}

bool GrabarCierreZ(Puesto& p, const CierreZ& c, const DatosReporte& d, QString& error) {
  std::vector<Sql> sentencias;
  if (c.impresora == kImpresoraAlterna) {
    if (!agregarCabeceraZ(p, sentencias, d)) return false;
  } else {
    sentencias.push_back(u"UPDATE Configuracion SET cCodiTurno = ''"_sql);
  }
  agregarContador(sentencias, c, d);
  if (c.iCierreCaja != 0) {
    sentencias.push_back(FormatearSQL(u"update configuracion set icierrecaja=$"_sql, {c.iCierreCaja}));
  }
  const auto fallo = EjecutarJuntas(p.poCnnLocal, sentencias);
  if (fallo) error = fallo->descripcion;
  return !fallo;
}
