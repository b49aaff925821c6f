#include "cashday/cierre_z.h"

#include "cashday/transaccion.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

const char* const kRango =
    " SELECT min(o.cdoccodigo) as mini,max(o.cdoccodigo) as maxi FROM Operacion o "
    "WHERE o.cOperTipo in (1,2,3,4,5) and o.cdoctipo IN ('01','02'){f}{t}";
const char* const kTotales =
    "SELECT COUNT(*)AS TotDoc, sum ({valor})  AS TotMonto FROM Operacion AS O WHERE cOperTipo in (1,2,3) "
    "AND cprodcode <> 0 AND cOperflaganula= 0 AND cdoctipo='%1' {f}{t}";
// All notes in force of any day: they wait for their sale.
const char* const kNotasConsumo =
    "SELECT p.cCodCatalogo as Catal, p.sProdDescCrta as Descrip, Sum(d.nProdCant) AS Cant "
    "FROM (OperacionParalela o INNER JOIN OperacionParalelaProducto d ON o.cOperCode = d.cOperCode) "
    "INNER JOIN Producto p ON d.cProdCode = p.cProdCode AND d.cAlmaCode = p.cAlmaCode "
    "Where o.cdocTipo = '11' And o.cOperCodeAnul=0 GROUP BY p.cCodCatalogo, p.sProdDescCrta ORDER BY 1, 2";

std::vector<BloqueZ::Ticket> leerTickets(LectorReporte& l, const char* tipo) {
  std::vector<BloqueZ::Ticket> lista;
  const Recordset rs = l.filas(QString::fromLatin1(kTotales).arg(QString::fromLatin1(tipo)));
  for (const auto& f : rs) lista.push_back({Numero(f[u"TotDoc"]), Numero(f[u"TotMonto"])});
  return lista;
}

QString entreComillas(const QString& texto) { return u'\'' + ReemplazarComilla(texto) + u'\''; }

void grabarContador(Lote& lote, const CierreZ& c, const QDateTime& momento) {
  const QString numero = QString::number(c.contador.numero), prn = QString::number(c.impresora);
  const QString venta = TextoDe(c.venta);
  lote.ejecutar(QStringLiteral(" UPDATE _Tmp1 SET idz=%1 , Imac= Imac + %2 WHERE prn=%3 ").arg(numero, venta, prn));
  lote.ejecutar(QStringLiteral("INSERT INTO _Tmp (idz, tvd, fec, prn) VALUES(%1 , %2, '%3', %4 )")
                    .arg(numero, venta, FormatearFecha(momento, u"DD/MM/YYYY hh:mm"), prn));
}

struct RangoZ {
  double ini = 0, fin = 0, iniP = 0, finP = 0;
};

RangoZ leerRango(Lote& lote) {
  RangoZ r;
  r.ini = lote.numero(QStringLiteral("select coperid from Configuracion"));
  r.iniP = lote.numero(QStringLiteral("select coperidP from Configuracion"));
  r.fin = lote.numero(QStringLiteral("select max(coperid) from operacion"));
  r.finP = lote.numero(QStringLiteral("select max(copercode) from operacionParalela"));
  return r;
}

// The Z row's number: that of an earlier report of this range, whose rows go, or the next one. A desk without watermarks
// always begins at 0; there the range is the same while its operations are open.
QString tomarIdZ(Lote& lote, const QString& caja, const RangoZ& r) {
  const Recordset rs = lote.consultar(
      QStringLiteral("SELECT MAX(IdZ) as MAXIMO FROM CabeceraZ WHERE Caja=%1 AND cOperIdIni=%2 AND cOperIdPIni=%3 "
                     "AND (cOperIdIni > 0 OR cOperIdFin >= (SELECT MIN(cOperID) FROM Operacion WHERE cOperFlagAbierto=1))")
          .arg(caja, TextoDe(r.ini), TextoDe(r.iniP)));
  if (rs[u"MAXIMO"].isNull()) return TextoDe(lote.numero(QStringLiteral("SELECT MAX(IdZ) as MAXIMO FROM CabeceraZ")) + 1);
  const QString id = LimpiarNulo(rs[u"MAXIMO"]);
  for (const char* tabla : {"DetalleZ", "CabeceraZ"}) {
    lote.ejecutar(QStringLiteral("DELETE FROM %1 WHERE IdZ=%2 AND Caja=%3").arg(QString::fromLatin1(tabla), id, caja));
  }
  return id;
}

QString enLineas(const std::vector<BloqueZ::Ticket>& tickets) {
  QString s;
  for (const auto& t : tickets) {
    for (const QString& linea : LineasTicket(t)) s += linea + QStringLiteral("\r\n");
  }
  return s;
}

void grabarCabeceraZ(Lote& lote, const DatosReporte& d) {
  const QString caja = entreComillas(d.caja);
  const RangoZ r = leerRango(lote);
  const QString id = tomarIdZ(lote, caja, r);
  const QStringList valores = {
      id, caja, QString::number(d.cifras.nItems), TextoDe(d.cifras.nVenta),
      entreComillas(FormatearFecha(d.momento, u"yyyy-mm-dd")), entreComillas(enLineas(d.z->boletas)),
      entreComillas(enLineas(d.z->facturas)), entreComillas(d.z->codigo), TextoDe(r.ini), TextoDe(r.fin), TextoDe(r.iniP),
      TextoDe(r.finP)};
  lote.ejecutar(QStringLiteral("INSERT INTO CabeceraZ(IdZ,Caja,CantidadTotal,MontoTotal,Fecha,RangoTKBOL,RangoTKFAC,"
                               "CodigoRep,cOperIdIni,cOperIdFin,cOperIdPIni,cOperIdPFin) VALUES (") +
                valores.join(u',') + u')');
  int nItem = 0;
  for (const auto& f : d.cifras.productos) {
    const QStringList fila = {id, caja, QString::number(++nItem), QString::number(f.cProdCode),
                              entreComillas(f.descripcion), TextoDe(f.cantidad)};
    lote.ejecutar(QStringLiteral("INSERT INTO DetalleZ(IdZ,Caja,nItem,CodProd,DscProd,Cantidad) VALUES (") +
                  fila.join(u',') + u')');
  }
}

}  // namespace

ContadorZ LeerContadorZ(LectorReporte& l, NumeroImpresora impresora) {
  const Recordset rs =
      l.filas(QStringLiteral("SELECT idz + 1 as cod, maxid , Imac   FROM _tmp1  WHERE prn=%1").arg(impresora));
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

std::optional<QString> GrabarCierreZ(Puesto& p, const CierreZ& c, const DatosReporte& d) {
  Lote lote(p.poCnnLocal);
  if (c.impresora == kImpresoraAlterna) grabarCabeceraZ(lote, d);
  else lote.ejecutar(QStringLiteral("UPDATE Configuracion SET cCodiTurno = ''"));
  if (c.primerIntento) grabarContador(lote, c, d.momento);
  if (c.iCierreCaja != 0) {
    lote.ejecutar(QStringLiteral("update configuracion set icierrecaja=") + QString::number(c.iCierreCaja));
  }
  return lote.terminar();
}
