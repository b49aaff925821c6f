#include "sync/comparar.h"

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

const QString kEnAccess = QStringLiteral("Error No cuadran ");

// A question that fails ends its check, with a line in the error log and no box: nobody asked for the check.
bool leer(Puesto& p, Conexion& cnn, const Sql& sql, Recordset& rs) {
  const auto error = cnn.consultar(sql, rs);
  if (error) p.registro.RegistrarErrorLog(QStringLiteral("Comparar ventas - ") + error->descripcion);
  return !error;
}

bool central(Puesto& p) {
  return p.poCnnCentral.abierta() || p.poDBAdmin.AbrirBD(p.poCnnCentral, p.ses.psConexionCentral);
}

// The series of the desk; empty when they can't be read.
QStringList series(Puesto& p) {
  Recordset rs;
  QStringList s;
  if (!leer(p, p.poCnnLocal, u"SELECT cSerieDoc FROM Config_Documento WHERE cTipoDoc IN('01','02')"_sql, rs)) {
    return s;
  }
  for (const auto& f : rs) {
    const QString serie = LimpiarNulo(f[0]);
    if (!serie.isEmpty() && !s.contains(serie)) s << serie;
  }
  return s;
}

// ('A','B')
Sql lista(const QStringList& series) {
  std::vector<Sql> piezas;
  for (const QString& s : series) piezas.push_back(FormatearSQL(u"'$'"_sql, {Texto(s)}));
  return u"("_sql + UnirSql(piezas, u","_sql) + u")"_sql;
}

QString etiquetaDeCaja(const QStringList& series) {
  return QStringLiteral("Caja ") + Derecha(Recortar(series.last()), 2);
}

Sql delDia(QDate dia, LiteralSql columna) {
  return FormatearSQL(u" and year($)=$ and month($)=$ and day($)=$ "_sql,
                      {columna, dia.year(), columna, dia.month(), columna, dia.day()});
}

QString parametro(Puesto& p, const char* codigo) {
  Recordset rs;
  if (p.poCnnCentral.consultar(
          FormatearSQL(u"SELECT vtexto1 FROM parametro WHERE cCodParam='$'"_sql, {Texto(QString::fromLatin1(codigo))}),
          rs)) {
    return {};
  }
  return LimpiarNulo(rs[0]);
}

// Nothing looks at what becomes of mail and row: the box has to be seen in any case.
void alarma(Puesto& p, const QString& asunto, const QString& cuerpo, const QString& caja, bool conFila = true) {
  const QString para = parametro(p, "CORREOPARA");
  if (!para.isEmpty()) {
    (void)p.poCnnCentral.ejecutar(
        FormatearSQL(u"exec sp_send_cdosysmail '$','$','$','$'"_sql,
                     {Texto(parametro(p, "CORREODE")), Texto(para), Texto(asunto), Texto(cuerpo)}));
  }
  if (conFila) {
    (void)p.poCnnCentral.ejecutar(
        FormatearSQL(u"INSERT INTO MsgErrorRegistroVentas VALUES ('$','$','$')"_sql,
                     {Texto(FormatearFecha(p.reloj.now(), u"yyyyMMdd")), Texto(asunto), Texto(cuerpo)}));
  }
  p.mensajes.mostrar(caja, QStringLiteral("Mensaje"), Icono::Critico);
}

// One figure on each side; false when one of them can't be read.
bool cifras(Puesto& p, const Sql& local, const Sql& alla, qint64& aqui, qint64& enCentral) {
  Recordset rs;
  if (!leer(p, p.poCnnLocal, local, rs)) return false;
  aqui = AEntero(Numero(rs[0]));
  if (!leer(p, p.poCnnCentral, alla, rs)) return false;
  enCentral = AEntero(Numero(rs[0]));
  return true;
}

void comparar(Puesto& p, QDate dia, LiteralSql local, LiteralSql alla, const QString& que) {
  if (!central(p)) return;
  const QStringList suyas = series(p);
  if (suyas.isEmpty()) return;
  const Sql enSerie = u" AND cDocSerie in "_sql + lista(suyas) + delDia(dia, u"dOperFech"_sql);
  qint64 aqui = 0, enCentral = 0;
  if (!cifras(p, local + u" WHERE cProdCode<>0 AND cOperFlagAnula=0"_sql + enSerie,
              alla + u" WHERE COPERFLAGANULA=0"_sql + enSerie, aqui, enCentral) ||
      aqui == enCentral) {
    return;
  }
  alarma(p, QStringLiteral("Error Comparativo RegVta - Caja: ") + etiquetaDeCaja(suyas),
         QStringLiteral("La %1 de productos vendidos entre Access y SQL para el dia de hoy no coincide").arg(que),
         kEnAccess + QStringLiteral("la %1 de productos vendidos en esta caja, entre Access y SQL...Informe al "
                                    "administrador!")
                         .arg(que));
}

// A day of a range, newest first; more than one when sales ran past midnight.
std::vector<QDate> diasCerrados(Puesto& p) {
  Recordset rs;
  std::vector<QDate> dias;
  if (p.poCnnLocal.consultar(
          u"SELECT cOperIdIni, cOperIdFin FROM CabeceraZ WHERE bFlagSincro = 1 AND IdZ = (SELECT MAX(IdZ) FROM "
          "CabeceraZ)"_sql,
          rs) ||
      rs.Eof()) {
    return dias;
  }
  Recordset fechas;
  if (p.poCnnLocal.consultar(
          FormatearSQL(
              u"SELECT DISTINCT FORMAT(dOperFech, 'dd/mm/yyyy') FROM Operacion WHERE cProdCode <> 0 AND cOperID > "
              "$ AND cOperID <= $"_sql,
              {Numero(rs[0]), Numero(rs[1])}),
          fechas)) {
    return dias;
  }
  for (const auto& f : fechas) {
    if (const auto dia = LeerFecha(LimpiarNulo(f[0]))) dias.push_back(dia->date());
  }
  return dias;
}

}  // namespace

void CompararCorrelativos(Puesto& p, QDate dia) {
  if (!central(p)) return;
  const QStringList suyas = series(p);
  if (suyas.isEmpty()) return;
  const Sql numeros = u"select distinct cDocCodigo as NroDoc from operacion where  cDocSerie in "_sql + lista(suyas) +
                      FormatearSQL(u" and cCajaCodi='$'"_sql, {Texto(p.ses.psCaja)}) + delDia(dia, u"doperfech"_sql) +
                      u" Union select NroDoc from venta01 where cSerieDoc in "_sql + lista(suyas) +
                      delDia(dia, u"fechaemision"_sql) + u") o "_sql;
  double cifra[3];
  const LiteralSql preguntas[] = {u"select count(NroDoc)-1 as cantidad from ("_sql,
                                  u"select min(cast(NroDoc as int)) as nromin from ("_sql,
                                  u"select max(cast(NroDoc as int)) as nromax from ("_sql};
  for (size_t i = 0; i < std::size(preguntas); ++i) {
    Recordset rs;
    if (!leer(p, p.poCnnCentral, preguntas[i] + numeros, rs)) return;
    cifra[i] = Numero(rs[0]);
  }
  // A day without documents is quiet.
  if (cifra[0] < 0 || cifra[0] + cifra[1] == cifra[2]) return;
  const QString& serie = suyas.last();
  alarma(p, QStringLiteral("Error Comparativo RegVta Correlativos SQL - Caja: ") + etiquetaDeCaja(suyas),
         QStringLiteral("Error en correlativo SQL Tipo Doc: ") + serie,
         QStringLiteral("Error en correlativo SQL para el Tipo Doc: ") + serie +
             QStringLiteral(" ...Informe al administrador"));
}

void CompararSumaProductos(Puesto& p, QDate dia) {
  comparar(p, dia, u"SELECT Sum(nProdCant) AS SumaDeProdCant From Operacion"_sql,
           u"SELECT SUM(NPRODCANT) as SumaDeProdCant FROM OPERACION"_sql, QStringLiteral("suma"));
}

void CompararCantidadProductos(Puesto& p, QDate dia) {
  comparar(p, dia, u"SELECT Count(cProdCode) AS CuentaDeProdCode From Operacion"_sql,
           u"SELECT count (CPRODCODE) as CuentaDeProdCode FROM OPERACION"_sql, QStringLiteral("cantidad"));
}

bool TotalesLocalesSerie(Puesto& p, const QString& serie, QDate dia, qint64& cantidad, double& monto) {
  Recordset rs;
  cantidad = 0;
  monto = 0;
  if (!leer(p, p.poCnnLocal,
            FormatearSQL(u"SELECT nProdCant, nProdPrecUnit From Operacion WHERE cProdCode<>0 AND cDocSerie = '$' AND "
                         "cOperFlagAnula=0"_sql,
                         {Texto(serie)}) +
                delDia(dia, u"dOperFech"_sql),
            rs)) {
    return false;
  }
  cantidad = rs.RecordCount();
  for (const auto& f : rs) monto += Redondear(qAbs(Numero(f[0])) * Numero(f[1]) / (1 + p.ses.pnIGV), 2);
  return cantidad > 0;
}

void CompararTotalesSerie(Puesto& p, QDate dia) {
  if (!central(p)) return;
  const QStringList suyas = series(p);
  Recordset rs;
  if (suyas.isEmpty() ||
      !leer(p, p.poCnnCentral,
            u"select cDocSerie as SerieDoc, count(cDocCodigo) as CantNroDoc,"
            "ValVta = Sum(Round(Abs(nProdCant) * nProdPrecUnit / (1 + dbo.fnRetornarIGV()), 2)) "
            "From operacion Where cDocSerie in "_sql +
                lista(suyas) + delDia(dia, u"dOperFech"_sql) +
                u" and   case cOperFlagAnula when 0 then 'N' when 1 then 'S' end='N' group by cDocSerie "_sql,
            rs)) {
    return;
  }
  for (const auto& f : rs) {
    const QString serie = LimpiarNulo(f[u"SerieDoc"]);
    qint64 cantidad = 0;
    double monto = 0;
    const bool hay = TotalesLocalesSerie(p, serie, dia, cantidad, monto);
    const double alla = Redondear(Numero(f[u"ValVta"]), 2);
    monto = Redondear(monto, 2);
    if (hay && AEntero(Numero(f[u"CantNroDoc"])) == cantidad && monto == alla) continue;
    alarma(p, QStringLiteral("Error Comparativo RegVta - Serie: ") + serie,
           hay ? QStringLiteral("Monto Access: %1, Monto SQL=%2").arg(TextoDe(monto), TextoDe(alla))
               : QStringLiteral("No hay informacion en Access para el dia de hoy"),
           kEnAccess + QStringLiteral("la cantidad y/o totales emitidos en esta caja entre Access y SQL...Informe al "
                                      "administrador!"),
           hay);
  }
}

void CompararUltimoCierre(Puesto& p) {
  const std::vector<QDate> dias = diasCerrados(p);
  if (dias.empty()) return;
  const Ocupado ocupado(p.mensajes, QStringLiteral("Comparando las ventas con el servidor central…"));
  for (const QDate dia : dias) {
    for (const auto uno :
         {CompararCorrelativos, CompararSumaProductos, CompararCantidadProductos, CompararTotalesSerie}) {
      if (!central(p)) return;  // told once
      uno(p, dia);
    }
  }
}
