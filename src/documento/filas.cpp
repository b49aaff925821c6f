#include "documento/filas.h"

#include "foundation/puesto.h"

namespace {

// Columns that a brief row leaves out stand behind the others: name, place in the template, value.
struct Extras {
  QString columnas, lugares;
  std::vector<QVariant> valores;
};

bool insertar(Puesto& p, const DatosOperacion& o, const QString& columnas, const QString& lugares,
              std::vector<QVariant> valores, const Extras& extras) {
  QString plantilla = QStringLiteral(" INSERT INTO OPERACION (") + columnas;
  if (!o.breve) {
    plantilla += extras.columnas;
    valores.insert(valores.end(), extras.valores.begin(), extras.valores.end());
  }
  plantilla += QStringLiteral(")  VALUES (") + lugares + (o.breve ? QString() : extras.lugares) + QStringLiteral(")");
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, FormatearSQL(plantilla, valores), true);
}

}  // namespace

bool GrabarLinea(Puesto& p, const DatosOperacion& o, const LineaDocumento& l, const QString& supervisor) {
  return insertar(
      p, o,
      QStringLiteral("cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit,"
                     " nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nServicio, cDocCodigo, cRuc,"
                     " cDocSerie, cDocTipo, IdLocal"),
      QStringLiteral("$, '$', '$', '$', $, $, $, $, '$', $, '$', '$', $, $, '$', '$', '$', $"),
      {o.codigo, ReemplazarComilla(p.ses.psUsuario), o.tarjeta, l.cAlmaCode, l.cProdCode, l.cantidad, l.precio, 0,
       o.fecha, Codigo(o.tipo), p.ses.psCaja, p.ses.psTurno, l.conServicio ? p.ses.psPorcServ : QStringLiteral("0"),
       o.numero, o.ruc, o.serie, Codigo(o.documento), o.idLocal},
      {QStringLiteral(", nDscto, cEmisor, cOpercodeanula, cSupervisor"),
       QStringLiteral(", $, '$', $, '$'"),
       {l.porcentaje, o.emisor, o.liquidacion, l.porcentaje != 0 ? ReemplazarComilla(supervisor) : QString()}});
}

bool GrabarEfectivo(Puesto& p, const DatosOperacion& o, const EfectivoDocumento& e) {
  return insertar(
      p, o,
      QStringLiteral("cOperCode, cUserDesc, nTarjNumb, cProdCode, nProdCant, nProdPrecUnit, nMontoDolares, dOperFech,"
                     " cOperTipo, cCajaCodi, cTurnoCodi, nMontoSoles, nVueltoDolares, cDocCodigo, cRuc, cDocSerie,"
                     " cDocTipo, IdLocal"),
      QStringLiteral("$, '$', '$', $, $, $, $, '$', $, '$', '$', $, $, $, '$', '$', '$', $"),
      {o.codigo, ReemplazarComilla(p.ses.psUsuario), o.tarjeta, 0, 1, 0 - e.vueltoSoles, e.dolares, o.fecha,
       Codigo(o.tipo), p.ses.psCaja, p.ses.psTurno, e.soles, e.vueltoDolares, o.numero, o.ruc, o.serie,
       Codigo(o.documento), o.idLocal},
      {QStringLiteral(", cEmisor, cOpercodeAnula"), QStringLiteral(", '$', $"), {o.emisor, o.liquidacion}});
}
