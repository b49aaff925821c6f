#include "sync/cotejo.h"

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "sync/fila_central.h"

namespace {

QString documento(const Recordset::Fila& f) {
  QString tipo = LimpiarNulo(f[u"cDocTipo"]);
  if (tipo == u"0") tipo.clear();
  return FechaISO(f[u"dOperFech"].toDateTime()) + u'|' + LimpiarNulo(f[u"cOperCode"]) + u'|' + tipo + u'|' +
         LimpiarNulo(f[u"cDocSerie"]) + u'|' + NumeroCentral(f[u"cDocCodigo"]);
}

QString cifra(const Recordset::Fila& f, QStringView campo) { return u'|' + TextoDe(Numero(f[campo])); }

}  // namespace

QString Cotejo::claveDeOperacion(const Recordset::Fila& f) {
  return documento(f) + cifra(f, u"cProdCode") + cifra(f, u"nProdCant") + cifra(f, u"nProdPrecUnit") +
         cifra(f, u"nDscto");
}

QString Cotejo::claveDeParalela(const Recordset::Fila& f) {
  return documento(f) + cifra(f, u"cOperTipo") + cifra(f, u"nMontoSoles") + cifra(f, u"nMontoDolares");
}

bool Cotejo::tomar(const QString& clave) {
  const auto i = cuantas_.find(clave);
  if (i == cuantas_.end() || *i == 0) return false;
  --*i;
  return true;
}

bool Cotejo::leer(Puesto& p, const Sql& cabeza, const QDateTime& desde, const QDateTime& hasta,
                  QString (*clave)(const Recordset::Fila&)) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnCentral,
          cabeza + FormatearSQL(u" WHERE cCajaCodi = '$' AND dOperFech >= $ AND dOperFech <= $"_sql,
                                {Texto(p.ses.psCaja), MomentoCentral(desde), MomentoCentral(hasta)}),
          rs)) {
    return false;
  }
  for (const auto& f : rs) ++cuantas_[clave(f)];
  return true;
}

bool Cotejo::leerOperaciones(Puesto& p, const QDateTime& desde, const QDateTime& hasta) {
  return leer(p,
              u"SELECT dOperFech, cOperCode, cDocTipo, cDocSerie, cDocCodigo, cProdCode, nProdCant, nProdPrecUnit, "
              "nDscto FROM Operacion"_sql,
              desde, hasta, claveDeOperacion);
}

bool Cotejo::leerParalelas(Puesto& p, const QDateTime& desde, const QDateTime& hasta) {
  return leer(p,
              u"SELECT dOperFech, cOperCode, cDocTipo, cDocSerie, cDocCodigo, cOperTipo, nMontoSoles, nMontoDolares "
              "FROM OperacionParalela"_sql,
              desde, hasta, claveDeParalela);
}
