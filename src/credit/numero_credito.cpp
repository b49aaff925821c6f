#include "credit/numero_credito.h"

#include <algorithm>

#include "foundation/puesto.h"
#include "platform/text/numero.h"

namespace {

using Error = std::optional<ErrorBD>;

Error leerMayor(Conexion& cnn, const Sql& sql, qint64& mayor) {
  Recordset rs;
  if (auto error = cnn.consultar(sql, rs)) return error;
  mayor = std::max(mayor, AEntero(Numero(rs[u"maximo"])));
  return {};
}

// The counter's row, and the statements that move it on and back.
Error tomar(Puesto& p, qint64 mayor, const Sql& alGuardar, NumeroTomado& n) {
  const Texto tipo(Codigo(n.tipo));
  Recordset rs;
  if (auto error =
          p.poCnnLocal.consultar(FormatearSQL(u"SELECT  * FROM Config_Documento WHERE cTipoDoc='$'"_sql, {tipo}), rs)) {
    return error;
  }
  const qint64 antes = AEntero(Numero(rs[u"nDocCodigo"]));
  n.documento = {antes + 1, LimpiarNulo(rs[u"cSerieDoc"])};
  if (n.documento.serie.isEmpty()) n.documento.serie = SerieInicial(n.tipo, p.ses.psCaja);
  if (mayor > 0 && mayor + 1 != n.documento.numero) {
    n.corregido = n.documento.numero;
    n.documento.numero = mayor + 1;
  }
  const Texto serie(n.documento.serie);
  n.guardar =
      rs.Eof() ? FormatearSQL(
                     u"INSERT INTO Config_Documento "
                     "(cTipoDoc,cOperCode,nDocCodigo,cSerieDoc,cUserDesc,dUltAct,observacion) "
                     " VALUES ('$',$, $, '$','$','$','Primer Registro') "_sql,
                     {tipo, n.codigo, n.documento.numero, serie, Texto(p.ses.psUsuario), p.reloj.today().startOfDay()})
               : FormatearSQL(u"UPDATE Config_Documento  SET cSerieDoc='$', nDocCodigo=$$  WHERE cTipodoc='$'"_sql,
                              {serie, n.documento.numero, alGuardar, tipo});
  n.devolver = FormatearSQL(u"UPDATE Config_Documento SET nDocCodigo=$ WHERE cTipoDoc='$' AND nDocCodigo=$"_sql,
                            {n.documento.numero - 1, tipo, n.documento.numero});
  return {};
}

}  // namespace

std::optional<ErrorBD> TomarNumeroFiscal(Puesto& p, Conexion& central, NumeroTomado& n) {
  n = {};
  const Sql tipos = Codigos({TipoDocumento::Factura, TipoDocumento::Boleta});
  qint64 mayor = 0;
  for (const LiteralSql tabla : {u"Operacion"_sql, u"Operacion_Historico"_sql}) {
    if (auto error = leerMayor(
            p.poCnnLocal,
            FormatearSQL(u"SELECT MAX(cDocCodigo) AS maximo FROM $ WHERE cDocTipo in ($)"_sql, {tabla, tipos}),
            mayor)) {
      return error;
    }
  }
  if (auto error = leerMayor(central,
                             FormatearSQL(u"select isnull(max(cast(NroDoc as int)),0) as maximo from venta01"
                                          " WHERE cCodCaja='$' AND TipoDoc in ($)"_sql,
                                          {Texto(p.ses.psCaja), tipos}),
                             mayor)) {
    return error;
  }
  return tomar(p, mayor, {}, n);
}

std::optional<ErrorBD> TomarNumeroParalelo(Puesto& p, Conexion& central, TipoDocumento tipo, NumeroTomado& n) {
  n = {};
  n.tipo = tipo;
  qint64 mayor = 0;
  if (auto error = leerMayor(p.poCnnLocal, u"SELECT MAX(cOperCode) AS maximo FROM OperacionParalela"_sql, n.codigo)) {
    return error;
  }
  ++n.codigo;
  if (auto error = leerMayor(p.poCnnLocal,
                             FormatearSQL(u"SELECT MAX(cDocCodigo) AS maximo FROM OperacionParalela"
                                          " WHERE cDocTipo = '$'"_sql,
                                          {Texto(Codigo(tipo))}),
                             mayor)) {
    return error;
  }
  if (tipo == TipoDocumento::PADE || tipo == TipoDocumento::PADV) {
    Recordset rs;
    if (auto error = p.poCnnLocal.consultar(
            FormatearSQL(u"SELECT cSerieDoc FROM Config_Documento WHERE cTipoDoc='$'"_sql, {Texto(Codigo(tipo))}),
            rs)) {
      return error;
    }
    QString serie = LimpiarNulo(rs[u"cSerieDoc"]);
    if (serie.isEmpty()) serie = SerieInicial(tipo, p.ses.psCaja);
    if (auto error = leerMayor(central,
                               FormatearSQL(u"SELECT  ISNULL(MAX(CAST(NroDocPago AS INT)),0) AS maximo FROM Pagos"
                                            " WHERE cSerieDocPago='$'"_sql,
                                            {Texto(serie)}),
                               mayor)) {
      return error;
    }
  }
  return tomar(p, mayor, FormatearSQL(u", cOperCode=$, cUserDesc='$'"_sql, {n.codigo, Texto(p.ses.psUsuario)}), n);
}

void AvisarCorreccion(Puesto& p, const NumeroTomado& n) {
  if (n.corregido > 0) {
    AvisarNumeroCorregido(p, n.tipo, kLogFacturacion.conCentral, n.corregido, n.documento.numero);
  }
}

QString NumeroEscrito(qint64 numero) { return Formatear(static_cast<double>(numero), u"000000"); }
