#include "cashday/cierre_z.h"

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"

namespace {

const char* const kRango = " SELECT min(o.cdoccodigo) as mini,max(o.cdoccodigo) as maxi FROM Operacion o "
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

void agregarContador(QStringList& sentencias, const CierreZ& c, const QDateTime& momento) {
  const QString numero = QString::number(c.contador.numero), prn = QString::number(c.impresora);
  const QString venta = TextoDe(c.venta);
  sentencias << QStringLiteral(" UPDATE _Tmp1 SET idz=%1 , Imac= Imac + %2 WHERE prn=%3 ").arg(numero, venta, prn)
             << QStringLiteral("INSERT INTO _Tmp (idz, tvd, fec, prn) VALUES(%1 , %2, '%3', %4 )")
                    .arg(numero, venta, FormatearFecha(momento, u"DD/MM/YYYY hh:mm"), prn);
}

struct RangoZ {
  double ini = 0, fin = 0, iniP = 0, finP = 0;
};

RangoZ leerRango(LectorReporte& l) {
  RangoZ r;
  r.ini = l.numero("select coperid from Configuracion");
  r.iniP = l.numero("select coperidP from Configuracion");
  r.fin = l.numero("select max(coperid) from operacion");
  r.finP = l.numero("select max(copercode) from operacionParalela");
  return r;
}

// The Z row's number: that of an earlier report of this range or the next one. A desk without watermarks always begins
// at
// 0; there the range is the same while its operations are open.
QString leerIdZ(LectorReporte& l, const QString& caja, const RangoZ& r) {
  const Recordset rs =
      l.filas(QStringLiteral(
                  "SELECT MAX(IdZ) as MAXIMO FROM CabeceraZ WHERE Caja=%1 AND cOperIdIni=%2 AND cOperIdPIni=%3 "
                  "AND (cOperIdIni > 0 OR cOperIdFin >= (SELECT MIN(cOperID) FROM Operacion WHERE cOperFlagAbierto=1))")
                  .arg(caja, TextoDe(r.ini), TextoDe(r.iniP)));
  if (!rs[u"MAXIMO"].isNull()) return LimpiarNulo(rs[u"MAXIMO"]);
  return TextoDe(l.numero("SELECT MAX(IdZ) as MAXIMO FROM CabeceraZ") + 1);
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
bool agregarCabeceraZ(Puesto& p, QStringList& sentencias, const DatosReporte& d) {
  LectorReporte l(p, {}, {});
  const QString caja = entreComillas(d.caja);
  const RangoZ r = leerRango(l);
  const QString id = leerIdZ(l, caja, r);
  if (!l.bien()) return false;
  for (const char* tabla : {"DetalleZ", "CabeceraZ"}) {
    sentencias << QStringLiteral("DELETE FROM %1 WHERE IdZ=%2 AND Caja=%3").arg(QString::fromLatin1(tabla), id, caja);
  }
  const QStringList valores = {id,
                               caja,
                               QString::number(d.cifras.nItems),
                               TextoDe(d.cifras.nVenta),
                               entreComillas(FormatearFecha(d.momento, u"yyyy-mm-dd")),
                               entreComillas(enLineas(d.z->boletas)),
                               entreComillas(enLineas(d.z->facturas)),
                               entreComillas(d.z->codigo),
                               TextoDe(r.ini),
                               TextoDe(r.fin),
                               TextoDe(r.iniP),
                               TextoDe(r.finP)};
  sentencias << QStringLiteral("INSERT INTO CabeceraZ(IdZ,Caja,CantidadTotal,MontoTotal,Fecha,RangoTKBOL,RangoTKFAC,"
                               "CodigoRep,cOperIdIni,cOperIdFin,cOperIdPIni,cOperIdPFin) VALUES (") +
                    valores.join(u',') + u')';
  int nItem = 0;
  for (const auto& f : d.cifras.productos) {
    const QStringList fila = {id,
                              caja,
                              QString::number(++nItem),
                              QString::number(f.cProdCode),
                              entreComillas(f.descripcion),
                              TextoDe(f.cantidad)};
    sentencias << QStringLiteral("INSERT INTO DetalleZ(IdZ,Caja,nItem,CodProd,DscProd,Cantidad) VALUES (") +
                      fila.join(u',') + u')';
  }
  return true;
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

bool GrabarCierreZ(Puesto& p, const CierreZ& c, const DatosReporte& d, QString& error) {
  QStringList sentencias;
  if (c.impresora == kImpresoraAlterna) {
    if (!agregarCabeceraZ(p, sentencias, d)) return false;
  } else {
    sentencias << QStringLiteral("UPDATE Configuracion SET cCodiTurno = ''");
  }
  agregarContador(sentencias, c, d.momento);
  if (c.iCierreCaja != 0) {
    sentencias << QStringLiteral("update configuracion set icierrecaja=") + QString::number(c.iCierreCaja);
  }
  const auto fallo = EjecutarJuntas(p.poCnnLocal, sentencias);
  if (fallo) error = fallo->descripcion;
  return !fallo;
}
