#include "voiding/documento_guardado.h"

#include <algorithm>

#include "foundation/puesto.h"
#include "platform/text/numero.h"

Sql SinParalelas() {
  return FormatearSQL(u" AND (cDocTipo IS NULL OR cDocTipo NOT IN ($))"_sql,
                      {Codigos({TipoDocumento::OC, TipoDocumento::NC, TipoDocumento::PADE, TipoDocumento::PADV,
                                TipoDocumento::LIQPAD})});
}

namespace {

qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }

bool leerLineas(Puesto& p, LiteralSql sql, DocumentoGuardado& t) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, FormatearSQL(sql, {t.codigo}), rs)) return false;
  for (const auto& f : rs) {
    LineaGuardada l;
    l.linea.cAlmaCode = LimpiarNulo(f[u"cAlmaCode"]);
    l.linea.cProdCode = static_cast<int>(entero(f[u"cProdCode"]));
    l.linea.descripcion = LimpiarNulo(f[u"sProdDescCrta"]);
    l.linea.precio = Numero(f[u"nProdPrecUnit"]);
    l.linea.cantidad = static_cast<int>(entero(f[u"nProdCant"]));
    l.linea.porcentaje = Numero(f[u"nDscto"]);
    l.servicio = Numero(f[u"nServicio"]);
    l.linea.conServicio = l.servicio != 0;
    t.lineas.push_back(l);
  }
  return true;
}

// What both tables name alike.
void tomarComun(const Recordset& rs, DocumentoGuardado& t) {
  t.tipo = static_cast<TipoOperacion>(entero(rs[u"cOperTipo"]));
  t.fecha = rs[u"dOperFech"].toDateTime();
  t.docTipo = LimpiarNulo(rs[u"cDocTipo"]);
  t.docSerie = LimpiarNulo(rs[u"cDocSerie"]);
  t.docNumero = LimpiarNulo(rs[u"cDocCodigo"]);
  t.tarjeta = LimpiarNulo(rs[u"nTarjNumb"]);
  t.usuario = LimpiarNulo(rs[u"cUserDesc"]);
  t.caja = LimpiarNulo(rs[u"cCajaCodi"]);
  t.turno = LimpiarNulo(rs[u"cTurnoCodi"]);
  t.abierta = entero(rs[u"cOperFlagAbierto"]) == 1;
}

LecturaDocumento leerVenta(Puesto& p, DocumentoGuardado& t) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    FormatearSQL(u"Select * FROM Operacion WHERE cOperCode= $"_sql, {t.codigo}) +
                                        SinParalelas() + u" ORDER BY cOperID"_sql,
                                    rs)) {
    return LecturaDocumento::Fallo;
  }
  if (rs.Eof()) return LecturaDocumento::NoExiste;
  tomarComun(rs, t);
  t.ruc = LimpiarNulo(rs[u"cRuc"]);
  t.idLocal = LimpiarNulo(rs[u"IdLocal"]);
  t.relacion = entero(rs[u"cOperCodeAnula"]);
  for (const auto& f : rs) {
    t.dolares = std::max(t.dolares, Numero(f[u"nMontoDolares"]));
    t.anulada = t.anulada || entero(f[u"cOperFlagAnula"]) != 0;
  }
  const bool leidas =
      leerLineas(p,
                 u"SELECT O.cProdCode, O.cAlmaCode, O.nProdCant, O.nProdPrecUnit, P.sProdDescCrta, O.nDscto,"
                 " O.nServicio FROM Operacion AS O INNER JOIN Producto AS P ON (O.cProdCode = P.cProdCode)"
                 " AND (O.cAlmaCode = P.cAlmaCode) WHERE O.cOperCode =$ ORDER BY O.cOperID"_sql,
                 t);
  return leidas ? LecturaDocumento::Leida : LecturaDocumento::Fallo;
}

LecturaDocumento leerParalela(Puesto& p, DocumentoGuardado& t) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u"Select * FROM OperacionParalela WHERE cOperCode= $ AND cOperTipo <> $"_sql,
                       {t.codigo, Codigo(TipoOperacion::ReporteParalelas)}),
          rs)) {
    return LecturaDocumento::Fallo;
  }
  if (rs.Eof()) return LecturaDocumento::NoExiste;
  tomarComun(rs, t);
  const QString estado = LimpiarNulo(rs[u"cEstado"]);
  t.vigente = estado == u"1";
  t.anulada = estado == u"0";
  t.relacion = entero(rs[u"cOperCodeRela"]);
  t.glosa = LimpiarNulo(rs[u"sGlosa"]);
  t.montoSoles = Numero(rs[u"nMontoSoles"]);
  t.montoDolares = Numero(rs[u"nMontoDolares"]);
  t.enDolares = LimpiarNulo(rs[u"nMoneda"]) == u"2";
  t.efectivo = Numero(rs[u"nEfectivoSoles"]);
  t.vuelto = Numero(rs[u"nVueltoSoles"]);
  const bool leidas =
      leerLineas(p,
                 u"SELECT A.cAlmaCode, A.cProdCode, A.nProdCant, A.nProdPrecUnit, A.nDscto, P.sProdDescCrta,"
                 " A.nServicio FROM OperacionParalelaProducto AS A INNER JOIN Producto AS P"
                 " ON (A.cProdCode = P.cProdCode) AND (A.cAlmaCode = P.cAlmaCode) WHERE A.cOperCode = $"_sql,
                 t);
  return leidas ? LecturaDocumento::Leida : LecturaDocumento::Fallo;
}

}  // namespace

LecturaDocumento LeerDocumento(Puesto& p, qint64 codigo, bool paralela, DocumentoGuardado& t) {
  t = {};
  t.codigo = codigo;
  t.paralela = paralela;
  return paralela ? leerParalela(p, t) : leerVenta(p, t);
}

bool LeerAnulada(Puesto& p, const DocumentoGuardado& t, bool& anulada) {
  anulada = t.anulada;
  if (t.paralela) return true;
  Recordset rs;
  // Only mirrors: the rows of a voided sale document carry its liquidation's code in the same column.
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u" SELECT count(*) as TOTAL FROM Operacion WHERE cOperCodeAnula =$"
                       " AND cOperFlagAbierto = 1 AND cOperFlagAnula = 1 AND nProdCant < 0"_sql,
                       {t.codigo}),
          rs)) {
    return false;
  }
  anulada = entero(rs[u"TOTAL"]) != 0;
  return true;
}
