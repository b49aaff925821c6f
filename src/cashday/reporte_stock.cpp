#include "cashday/reporte_stock.h"

#include "cashday/informe.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"

namespace {

const QString kFin = QStringLiteral("\r\n"), kRaya = QString(39, u'-');

QString corta(const QDate& dia) { return FormatearFecha(dia.startOfDay(), u"dd/mm/yyyy"); }

bool leer(Puesto& p, Conexion& central, DatosStock& d) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          central, FormatearSQL(u"select vdscalmac  from almacen where ccodalmac='$'"_sql, {Texto(p.ses.psAlmacen)}),
          rs)) {
    return false;
  }
  d.almacen = LimpiarNulo(rs[u"vDscAlmac"]);
  const auto dia = [](const QDate& f) { return Texto(FormatearFecha(f.startOfDay(), u"yyyymmdd")); };
  if (!p.poDBAdmin.EjecutarConsulta(central,
                                    FormatearSQL(u" usp_Log_Saldos '$',                '$',                '*',"
                                                 "                '',                0,               0,"
                                                 "                '$'"_sql,
                                                 {dia(d.desde), dia(d.hasta), Texto(p.ses.psAlmacen)}),
                                    rs)) {
    return false;
  }
  for (const auto& f : rs) {
    d.filas.push_back({LimpiarNulo(f[u"ccodidart"]), LimpiarNulo(f[u"descarticulo"]), LimpiarNulo(f[u"unidmed"]),
                       Numero(f[u"saldoanterior"]) - Numero(f[u"saldos"])});
  }
  if (d.filas.empty()) p.mensajes.mostrar(QStringLiteral("No existen datos para su consulta."));
  return !d.filas.empty();
}

}  // namespace

QString PapelStock(const DatosStock& d) {
  QString t;
  const auto linea = [&t](const QString& texto) { t += texto + kFin; };
  for (const QString& l : d.cabecera) {
    if (!Recortar(l).isEmpty()) linea(Derecha(Espacios(60) + l, (static_cast<int>(l.size()) + 40) / 2));
  }
  linea(kRaya);
  linea(Espacios(10) + QStringLiteral("LISTADO DE SALDOS"));
  linea(kRaya);
  linea(QStringLiteral("Fecha Inicio: ") + corta(d.desde));
  linea(QStringLiteral("Fecha Fin   : ") + corta(d.hasta));
  linea(QStringLiteral("Almacen     : ") + d.almacen);
  linea({});
  linea(QStringLiteral("Codigo ") + Espacios(5) + QStringLiteral("Descripcion ") + Espacios(3) + QStringLiteral("UM") +
        Espacios(2) + QStringLiteral("Cantidad"));
  for (const FilaStock& f : d.filas) {
    linea(f.codigo + Espacios(2) + ALaIzquierda(f.descripcion, 16) + Espacios(2) + Izquierda(f.unidad, 3) +
          Espacios(2) + TextoDe(f.cantidad));
  }
  return t + kRaya;
}

void ReporteStock(Puesto& p) {
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral)) {
    p.mensajes.mostrar(QStringLiteral("La base de datos central no responde: el stock no se puede leer ahora."));
    return;
  }
  DatosStock d;
  d.hasta = p.reloj.today();
  d.desde = d.hasta.addMonths(-1);
  const bool hay = leer(p, central, d);
  p.poDBAdmin.CerrarBD(central);
  if (!hay || !CargarCabeceraImpresion(p)) return;
  d.cabecera = p.ses.psCabeceraImpresion;
  ImprimirPorControlador(p, {PapelStock(d), QStringLiteral(" "), QStringLiteral(" ")});
}
