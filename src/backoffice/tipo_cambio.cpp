#include "backoffice/tipo_cambio.h"

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

const QString kFecha = QStringLiteral("dd/mm/yyyy");

QString montoMostrado(const QVariant& monto) { return Formatear(Numero(monto), u"###,###,##0.00"); }

bool rechazar(Puesto& p, TipoCambio& v, const QString& campo, const QString& texto) {
  v.campoMal = campo;
  p.mensajes.mostrar(texto);
  return false;
}

bool validar(Puesto& p, TipoCambio& v) {
  const QString fecha = MascaraFecha(v.txtFecha);
  if (!LeerFecha(fecha)) {
    return rechazar(p, v, QStringLiteral("txtFecha"), QStringLiteral("Ingrese un tipo de fecha válido."));
  }
  v.txtFecha = fecha;
  // A rate of nothing would close the registers without a word, so it counts as not entered.
  if (!EsNumerico(v.txtTC) || Redondear(LeerImporte(v.txtTC), 2) <= 0) {
    return rechazar(p, v, QStringLiteral("txtTC"), QStringLiteral("Ingrese el tipo de cambio."));
  }
  return true;
}

bool ejecutar(Puesto& p, const QString& sql) { return p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, sql, true); }

// The store says nothing of a rate that is there already; a clerk must know why nothing was saved.
bool hayTipoCambio(Puesto& p, const QString& fecha) {
  Recordset rs;
  return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                      FormatearSQL(QStringLiteral(" SELECT dTipoCambFech, nTipoCambMont FROM Tipo_Cambio"
                                                                  " WHERE FORMAT(dTipoCambFech, 'dd/mm/yyyy') = '$'"),
                                                   {fecha}), rs) &&
         !rs.Eof();
}

bool insertar(Puesto& p, TipoCambio& v, const QString& monto) {
  if (ejecutar(p, FormatearSQL(QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) "
                                              "VALUES ('$', '$')"), {v.txtFecha, monto}))) return true;
  if (!hayTipoCambio(p, v.txtFecha)) return false;
  return rechazar(p, v, QStringLiteral("txtFecha"),
                  QStringLiteral("Ya hay un tipo de cambio para el %1.\nPara cambiarlo use Editar.").arg(v.txtFecha));
}

}  // namespace

bool LeerTiposCambio(Puesto& p, std::vector<FilaTipoCambio>& filas) {
  filas.clear();
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    QStringLiteral(" SELECT dTipoCambFech, nTipoCambMont "
                                                   "FROM Tipo_Cambio ORDER BY dTipoCambFech"), rs)) return false;
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
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    FormatearSQL(QStringLiteral(" SELECT dTipoCambFech, nTipoCambMont FROM Tipo_Cambio"
                                                                " WHERE FORMAT(dTipoCambFech, 'dd/mm/yyyy') = '$'"),
                                                 {fecha}), rs)) return false;
  if (rs.Eof()) {
    p.mensajes.mostrar(QStringLiteral("El tipo de cambio del %1 ya no existe.").arg(fecha));
    return false;
  }
  v.txtFecha = fecha;
  v.txtTC = montoMostrado(rs[u"nTipoCambMont"]);
  return true;
}

bool GuardarTipoCambio(Puesto& p, TipoCambio& v) {
  v.campoMal.clear();
  if (v.modo == ModoDetalle::Ver) return true;
  if (!validar(p, v)) return false;
  const QString monto = Formatear(LeerImporte(v.txtTC), u"########0.00");
  switch (v.modo) {
    case ModoDetalle::Nuevo:
      if (!insertar(p, v, monto)) return false;
      break;
    case ModoDetalle::Editar:
      if (!ejecutar(p, FormatearSQL(QStringLiteral("UPDATE Tipo_Cambio SET nTipoCambMont = '$' "
                                                   "WHERE FORMAT(dTipoCambFech,'dd/mm/yyyy') = '$'"),
                                    {monto, v.txtFecha}))) return false;
      break;
    case ModoDetalle::Borrar:
      if (!ejecutar(p, FormatearSQL(QStringLiteral("DELETE * FROM Tipo_Cambio "
                                                   "WHERE format(dTipoCambFech,'dd/mm/yyyy') = '$'"),
                                    {v.txtFecha}))) return false;
      break;
    case ModoDetalle::Ver: break;
  }
  v.txtTC = MascaraTipoCambio(monto);
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
