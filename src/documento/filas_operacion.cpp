#include "documento/filas_operacion.h"

#include "foundation/puesto.h"

namespace {

// Columns that a brief row leaves out stand behind the others: name, place in the template, value.
struct Extras {
  Sql columnas, lugares;
  std::vector<Valor> valores;
};

bool insertar(Puesto& p, const DatosOperacion& o, const Sql& columnas, const Sql& lugares, std::vector<Valor> valores,
              const Extras& extras) {
  Sql plantilla = u" INSERT INTO OPERACION ("_sql + columnas;
  if (!o.breve) {
    plantilla += extras.columnas;
    valores.insert(valores.end(), extras.valores.begin(), extras.valores.end());
  }
  plantilla += u")  VALUES ("_sql + lugares;
  if (!o.breve) plantilla += extras.lugares;
  plantilla += u")"_sql;
  return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, FormatearSQL(plantilla, valores), true);
}

}  // namespace

Valor ValorLocal(const DatosOperacion& o) { return o.idLocal.isEmpty() ? Valor() : Valor(Cifras(o.idLocal)); }

Valor ServicioDe(const Puesto& p, const LineaDocumento& linea) {
  return linea.conServicio ? Valor(Cifras(p.ses.psPorcServ)) : Valor(0);
}

bool GrabarLinea(Puesto& p, const DatosOperacion& o, const LineaDocumento& l, const QString& supervisor) {
  return insertar(p, o,
                  u"cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit,"
                  " nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nServicio, cDocCodigo, cRuc,"
                  " cDocSerie, cDocTipo, IdLocal"_sql,
                  u"$, '$', '$', '$', $, $, $, $, '$', $, '$', '$', $, $, '$', '$', '$', $"_sql,
                  {o.codigo, Texto(p.ses.psUsuario), Texto(o.tarjeta), Texto(l.cAlmaCode), l.cProdCode, l.cantidad,
                   l.precio, 0, Texto(o.fecha), Codigo(o.tipo), Texto(p.ses.psCaja), Texto(p.ses.psTurno),
                   ServicioDe(p, l), o.numero, Texto(o.ruc), Texto(o.serie), Texto(Codigo(o.documento)), ValorLocal(o)},
                  {u", nDscto, cEmisor, cOpercodeanula, cSupervisor"_sql,
                   u", $, '$', $, '$'"_sql,
                   {l.porcentaje, Texto(o.emisor), o.liquidacion, Texto(l.porcentaje != 0 ? supervisor : QString())}});
}

bool GrabarEfectivo(Puesto& p, const DatosOperacion& o, const EfectivoDocumento& e) {
  return insertar(p, o,
                  u"cOperCode, cUserDesc, nTarjNumb, cProdCode, nProdCant, nProdPrecUnit, nMontoDolares, dOperFech,"
                  " cOperTipo, cCajaCodi, cTurnoCodi, nMontoSoles, nVueltoDolares, cDocCodigo, cRuc, cDocSerie,"
                  " cDocTipo, IdLocal"_sql,
                  u"$, '$', '$', $, $, $, $, '$', $, '$', '$', $, $, $, '$', '$', '$', $"_sql,
                  {o.codigo, Texto(p.ses.psUsuario), Texto(o.tarjeta), 0, 1, 0 - e.vueltoSoles, e.dolares,
                   Texto(o.fecha), Codigo(o.tipo), Texto(p.ses.psCaja), Texto(p.ses.psTurno), e.soles, e.vueltoDolares,
                   o.numero, Texto(o.ruc), Texto(o.serie), Texto(Codigo(o.documento)), ValorLocal(o)},
                  {u", cEmisor, cOpercodeAnula"_sql, u", '$', $"_sql, {Texto(o.emisor), o.liquidacion}});
}
