#include "backoffice/tipo_cambio.h"

#include <cstdlib>

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

const QString kFecha = QStringLiteral("dd/mm/yyyy");

QString montoMostrado(const QVariant& monto) { return Formatear(Numero(monto), u"###,###,##0.00"); }

Sql seleccion(const QString& fecha) {
  return FormatearSQL(u" SELECT dTipoCambFech, nTipoCambMont FROM Tipo_Cambio"
                      " WHERE FORMAT(dTipoCambFech, 'dd/mm/yyyy') = '$'"_sql,
                      {Texto(fecha)});
}

// The engine's words on a key that is there already tell a clerk nothing.
bool yaEsta(Puesto& p, TipoCambio& v) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, seleccion(v.txtFecha), rs)) return true;
  if (rs.Eof()) return false;
  v.campoMal = QStringLiteral("txtFecha");
  p.mensajes.mostrar(
      QStringLiteral("Ya hay un tipo de cambio para el %1.\nPara cambiarlo use Editar.").arg(v.txtFecha));
  return true;
}

// A rate of nothing would close the registers without a word, so it counts as not entered; one that an older desk has
// stored can still be deleted.
bool falta(const TipoCambio& v) {
  if (!EsNumerico(v.txtTC)) return true;
  return v.modo != ModoDetalle::Borrar && Redondear(LeerImporte(v.txtTC), 2) <= 0;
}

// A figure that was typed beside the point costs a day's sales in dollars: what is off the last rate by more than a
// tenth is asked for. The last rate is that of the latest other day before it. One that can't be read asks nothing.
bool seEsperaba(Puesto& p, const TipoCambio& v) {
  if (!SeEdita(v.modo)) return true;
  Recordset rs;
  const Sql sql = FormatearSQL(u"SELECT TOP 1 nTipoCambMont FROM Tipo_Cambio WHERE dTipoCambFech < $"
                               " AND nTipoCambMont > 0 ORDER BY dTipoCambFech DESC"_sql,
                               {LeerFecha(v.txtFecha)->date()});
  if (p.poCnnLocal.consultar(sql, rs) || rs.Eof()) return true;
  const qint64 ultimo = AEntero(Numero(rs[0]) * 100), nuevo = AEntero(LeerImporte(v.txtTC) * 100);
  if (std::abs(nuevo - ultimo) * 10 <= ultimo) return true;
  return p.mensajes.preguntar(QStringLiteral("El tipo de cambio %1 se aparta más de la décima parte del último, %2.\n"
                                             "¿Desea continuar?")
                                  .arg(montoMostrado(LeerImporte(v.txtTC)), montoMostrado(rs[0])),
                              Mensajes::kTitulo, false);
}

bool validar(Puesto& p, TipoCambio& v) {
  v.txtFecha = MascaraFecha(v.txtFecha);
  // clang-format off
  if (!Comprobar(p, {
          {!LeerFecha(v.txtFecha), u"txtFecha", u"Ingrese un tipo de fecha válido."},
          {falta(v), u"txtTC", u"Ingrese el tipo de cambio."},
      }, v.campoMal)) return false;
  if (v.modo == ModoDetalle::Nuevo && yaEsta(p, v)) return false;
  if (seEsperaba(p, v)) return true;
  v.campoMal = QStringLiteral("txtTC");
  return false;
}

SentenciasDetalle sentencias(const Puesto&, const TipoCambio& v) {
  const QString monto = Formatear(LeerImporte(v.txtTC), u"########0.00");
  return {FormatearSQL(u"INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('$', '$')"_sql,
                       {Texto(v.txtFecha), Texto(monto)}),
          FormatearSQL(u"UPDATE Tipo_Cambio SET nTipoCambMont = '$' "
                                      "WHERE FORMAT(dTipoCambFech,'dd/mm/yyyy') = '$'"_sql, {Texto(monto),
                                          Texto(v.txtFecha)}),
          FormatearSQL(u"DELETE * FROM Tipo_Cambio WHERE format(dTipoCambFech,'dd/mm/yyyy') = '$'"_sql,
                       {Texto(v.txtFecha)})};
}

}  // namespace

bool LeerTiposCambio(Puesto& p, std::vector<FilaTipoCambio>& filas) {
  filas.clear();
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    u" SELECT dTipoCambFech, nTipoCambMont "
                                                   "FROM Tipo_Cambio ORDER BY dTipoCambFech"_sql, rs)) return false;
  for (const auto& f : rs)
    filas.push_back({FormatearFecha(f[u"dTipoCambFech"].toDateTime(), kFecha), montoMostrado(f[u"nTipoCambMont"])});
  return true;
}

bool CargarTipoCambio(Puesto& p, ModoDetalle modo, const QString& fecha, TipoCambio& v) {
  v = {};
  v.modo = modo;
  if (modo == ModoDetalle::Nuevo) {
    v.txtFecha = FormatearFecha(p.reloj.now(), kFecha);
    return true;
  }
  // clang-format on
  Recordset rs;
  if (!LeerFilaDetalle(p, seleccion(fecha), QStringLiteral("El tipo de cambio del %1 ya no existe.").arg(fecha), rs)) {
    return false;
  }
  v.txtFecha = fecha;
  v.txtTC = montoMostrado(rs[u"nTipoCambMont"]);
  return true;
}

bool GuardarTipoCambio(Puesto& p, TipoCambio& v) {
  if (!GuardarDetalle(p, v, validar, sentencias)) return false;
  v.txtTC = MascaraTipoCambio(v.txtTC);
  return true;
}

FilaTipoCambio FilaDe(const TipoCambio& v) { return {v.txtFecha, Formatear(LeerImporte(v.txtTC), u"###,###,##0.00")}; }

QString MascaraFecha(const QString& texto) {
  const auto fecha = LeerFecha(Recortar(texto));
  return fecha ? FormatearFecha(*fecha, kFecha) : texto;
}

QString MascaraTipoCambio(const QString& texto) {
  return EsNumerico(texto) ? Formatear(LeerImporte(texto), u"###,###,###,##0.00") : texto;
}
