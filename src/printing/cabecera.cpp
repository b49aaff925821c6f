#include "printing/cabecera.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

bool LeerCabecera(Puesto& p, std::vector<FilaCabecera>& filas) {
  filas.clear();
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                    u"SELECT cCabeLinea, sCabeDescripcion "
                                    "FROM Cabecera_Impresion ORDER BY cCabeLinea"_sql,
                                    rs))
    return false;
  for (const auto& f : rs) filas.push_back({LimpiarNulo(f[u"cCabeLinea"]), LimpiarNulo(f[u"sCabeDescripcion"])});
  return true;
}

QString TituloCabecera(ModoDetalle modo) {
  switch (modo) {
    case ModoDetalle::Nuevo: return QStringLiteral("Nueva Línea");
    case ModoDetalle::Editar: return QStringLiteral("Editar Línea");
    case ModoDetalle::Borrar: return QStringLiteral("Borrar Línea");
    case ModoDetalle::Ver: break;
  }
  return QStringLiteral("Ver Línea");
}

bool CargarCabecera(Puesto& p, ModoDetalle modo, const QString& linea, DetalleCabecera& v) {
  v = {};
  v.modo = modo;
  Recordset rs;
  if (modo == ModoDetalle::Nuevo) {
    if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"SELECT MAX(cCabeLinea) AS Linea FROM Cabecera_Impresion"_sql,
                                      rs)) {
      return false;
    }
    v.txtLinea = TextoDe(Numero(rs[u"Linea"]) + 1);
    return true;
  }
  if (!LeerFilaDetalle(p,
                       FormatearSQL(u"SELECT * FROM Cabecera_Impresion "
                                    "WHERE TRIM(cCabeLinea) = TRIM($)"_sql,
                                    {Cifras(linea)}),
                       QStringLiteral("La línea %1 ya no existe.").arg(linea), rs))
    return false;
  v.txtLinea = linea;
  v.txtDescripcion = LimpiarNulo(rs[u"sCabeDescripcion"]);
  return true;
}

bool GuardarCabecera(Puesto& p, const DetalleCabecera& v) {
  const Texto texto(v.txtDescripcion);
  const Cifras linea(v.txtLinea);
  return GuardarPorModo(
      p, v.modo,
      {FormatearSQL(u"INSERT INTO Cabecera_Impresion (cCabeLinea, sCabeDescripcion) VALUES ($, '$')"_sql,
                    {linea, texto}),
       FormatearSQL(u"UPDATE Cabecera_Impresion SET sCabeDescripcion = '$'WHERE cCabeLinea = $"_sql, {texto, linea}),
       FormatearSQL(u"DELETE * FROM cabecera_impresion WHERE cCabeLinea = $"_sql, {linea})});
}

FilaCabecera FilaDe(const DetalleCabecera& v) { return {v.txtLinea, Recortar(v.txtDescripcion)}; }
