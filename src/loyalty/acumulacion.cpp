#include "loyalty/acumulacion.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"

bool LeerTitulares(Puesto& p, Conexion& cnn, const QString& tarjeta, int idLocal,
                   std::vector<TitularTarjeta>& titulares) {
  QString sql = FormatearSQL(QStringLiteral("SELECT cClieCode, IdLocal FROM Tarjeta WHERE nTarjNumb = '$'"),
                             {ReemplazarComilla(tarjeta)});
  if (idLocal != 0) sql += FormatearSQL(QStringLiteral(" AND IdLocal = $"), {idLocal});
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(cnn, sql + QStringLiteral(" ORDER BY IdLocal"), rs)) return false;
  for (const auto& f : rs) {
    titulares.push_back({LimpiarNulo(f[u"cClieCode"]), static_cast<int>(AEntero(Numero(f[u"IdLocal"])))});
  }
  return true;
}

bool LeerTipoCliente(Puesto& p, Conexion& cnn, const QString& cliente, int idLocal, int& tipo) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(cnn,
                                    FormatearSQL(QStringLiteral("SELECT iTipo AS Tipo FROM Cliente "
                                                                "WHERE cClieCode = $ AND IdLocal=$ "),
                                                 {cliente, idLocal}),
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
  if (!p.poDBAdmin.EjecutarConsulta(
          cnn,
          FormatearSQL(QStringLiteral("SELECT MAX(cAcumCode) AS Codigo FROM $ WHERE cClieCode = $ AND IdLocal= $ "),
                       {QStringLiteral("Acumulacion_Punto"), cliente, idLocal}),
          rs)) {
    return false;
  }
  codigo = AEntero(Numero(rs[u"Codigo"])) + 1;
  return true;
}

bool InsertarAcumulacion(Puesto& p, Conexion& cnn, const Acumulacion& a, const QString& fecha, bool enCola) {
  const QString sql = FormatearSQL(
      QStringLiteral("INSERT INTO Acumulacion_Punto (cClieCode, cAcumCode, nTarjNumb, nAcumImpo, nPuntCant, sUserDesc, "
                     "dAcumDate, $cDocTipo, cDocSerie, cDocCodigo, IdLocal) "
                     "VALUES ($, $, '$', $, $, '$', $, $'$', '$', $, $)"),
      {enCola ? QStringLiteral("cSincroFlag, ") : QString(), a.cliente, a.codigo, ReemplazarComilla(a.tarjeta),
       Formatear(a.importe, u"####0"), Formatear(a.puntos, u"####0"), ReemplazarComilla(a.usuario), fecha,
       enCola ? QStringLiteral("0, ") : QString(), ReemplazarComilla(a.documento.tipo),
       ReemplazarComilla(a.documento.serie), a.documento.numero, a.idLocal});
  return p.poDBAdmin.EjecutarSentencia(cnn, sql, true);
}
