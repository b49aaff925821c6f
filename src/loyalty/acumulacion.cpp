#include "loyalty/acumulacion.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"

bool LeerTitulares(Puesto& p, Conexion& cnn, const QString& tarjeta, int idLocal,
                   std::vector<TitularTarjeta>& titulares) {
  Sql sql = FormatearSQL(u"SELECT cClieCode, IdLocal FROM Tarjeta WHERE nTarjNumb = '$'"_sql, {Texto(tarjeta)});
  if (idLocal != 0) sql += FormatearSQL(u" AND IdLocal = $"_sql, {idLocal});
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(cnn, sql + u" ORDER BY IdLocal"_sql, rs)) return false;
  for (const auto& f : rs) {
    titulares.push_back({LimpiarNulo(f[u"cClieCode"]), static_cast<int>(AEntero(Numero(f[u"IdLocal"])))});
  }
  return true;
}

bool LeerTipoCliente(Puesto& p, Conexion& cnn, const QString& cliente, int idLocal, int& tipo) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(cnn,
                                    FormatearSQL(u"SELECT iTipo AS Tipo FROM Cliente "
                                                 "WHERE cClieCode = $ AND IdLocal=$ "_sql,
                                                 {Cifras(cliente), idLocal}),
                                    rs)) {
    return false;
  }
  tipo = rs.Eof()               ? kSinCliente
         : rs[u"Tipo"].isNull() ? kTipoDesconocido
                                : static_cast<int>(AEntero(Numero(rs[u"Tipo"])));
  return true;
}

bool SiguienteAcumulacion(Puesto& p, Conexion& cnn, const QString& cliente, int idLocal, qint64& codigo) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(cnn, UltimaAcumulacion(cliente, idLocal), rs)) return false;
  codigo = AEntero(Numero(rs[u"Codigo"])) + 1;
  return true;
}

Sql UltimaAcumulacion(const QString& cliente, int idLocal) {
  return FormatearSQL(u"SELECT MAX(cAcumCode) AS Codigo FROM Acumulacion_Punto WHERE cClieCode = $ AND IdLocal= $ "_sql,
                      {Cifras(cliente), idLocal});
}

Sql DelDocumento(const ClavePuntos& d) {
  return FormatearSQL(u" where cDocTipo='$' and cDocSerie='$' and cDocCodigo=$"_sql,
                      {Texto(d.tipo), Texto(d.serie), d.numero});
}

Sql FilaAcumulacion(const Acumulacion& a, const Sql& fecha, bool enCola) {
  return FormatearSQL(
      u"INSERT INTO Acumulacion_Punto (cClieCode, cAcumCode, nTarjNumb, nAcumImpo, nPuntCant, sUserDesc, "
      "dAcumDate, $cDocTipo, cDocSerie, cDocCodigo, IdLocal) "
      "VALUES ($, $, '$', $, $, '$', $, $'$', '$', $, $)"_sql,
      {enCola ? u"cSincroFlag, "_sql : Sql(), Cifras(a.cliente), a.codigo, Texto(a.tarjeta),
       Cifras(Formatear(a.importe, u"####0")), Cifras(Formatear(a.puntos, u"####0")), Texto(a.usuario), fecha,
       enCola ? u"0, "_sql : Sql(), Texto(a.documento.tipo), Texto(a.documento.serie), a.documento.numero, a.idLocal});
}
