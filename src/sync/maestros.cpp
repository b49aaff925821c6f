#include "sync/maestros.h"

#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sync/pasadas_maestros.h"
#include "sync/updt.h"

namespace {

Texto texto(const Recordset::Fila& f, QStringView campo) { return TextoDeCampo(f, campo); }
Valor numero(const Recordset::Fila& f, QStringView campo) { return NumeroDeCampo(f, campo); }
qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }

Valor dia(const Recordset::Fila& f, QStringView campo) {
  if (f[campo].isNull()) return {};
  return Texto(FormatearFecha(f[campo].toDateTime(), u"DD/MM/YYYY"));
}

QString claveDe(const Recordset::Fila& f, QStringView codigo) {
  return LimpiarNulo(f[codigo]) + u'/' + LimpiarNulo(f[u"IdLocal"]);
}

constexpr LiteralSql kCreadas = u" where dFechCrea > CONVERT(DATETIME, '$',112)"_sql;
constexpr LiteralSql kCambiadas =
    u" WHERE dFechModi > CONVERT(DATETIME, '$',112) and dFechCrea <= CONVERT(DATETIME, '$',112)"_sql;

constexpr LiteralSql kNuevoCliente =
    u" INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, sClieAddr, cDistCode, cProvCode, "
    "cDepaCode, sClieTelf, sClieMail, dNacmDate, dUltTDate, cTranCode, nPuntCant, nTickCant, sClieRout, "
    "sDistDesc, sProvDesc, sDepaDesc, iTipo, cSincroFlag) VALUES ($, $, '$', '$', '$', $, $, $, '$', '$', "
    "'$', '$', $, $, $, '$', '$', '$', '$', $, 1)"_sql;

std::vector<Valor> valoresCliente(const Recordset::Fila& f) {
  return {texto(f, u"sClieApel"),  texto(f, u"sClieName"),  texto(f, u"sClieAddr"),  numero(f, u"cDistCode"),
          numero(f, u"cProvCode"), numero(f, u"cDepaCode"), texto(f, u"sClieTelf"),  texto(f, u"sClieMail"),
          dia(f, u"dNacmDate"),    dia(f, u"dUltTDate"),    numero(f, u"cTranCode"), numero(f, u"nPuntCant"),
          numero(f, u"nTickCant"), texto(f, u"sClieRout"),  texto(f, u"sDistDesc"),  texto(f, u"sProvDesc"),
          texto(f, u"sDepaDesc"),  numero(f, u"iTipo")};
}

}  // namespace

Sql ConMarca(const QString& marca, LiteralSql plantilla, int veces) {
  if (marca.isEmpty()) return {};
  return FormatearSQL(plantilla, std::vector<Valor>(static_cast<size_t>(veces), Texto(marca)));
}

Sql PaginaDeMaestro(const Maestro& m, const Sql& donde, const Recordset::Fila* ultima) {
  Sql sql = FormatearSQL(u" SELECT TOP $ "_sql, {kFilasPorPagina}) + m.columnas + donde;
  if (ultima) sql += (donde.vacia() ? Sql(u" WHERE "_sql) : Sql(u" AND "_sql)) + m.detras(*ultima);
  return sql + u" ORDER BY "_sql + m.orden;
}

FinFila PasadasDeMaestros::nueva(const Maestro& m, const Recordset::Fila& f) {
  const QString codigo = m.codigo(f);
  if (directas_ && directas_->tomar(f)) {
    if (!marca_.isEmpty()) tomadas_.insert(m.clave(f));
    return {Suerte::Hecha, codigo, &m.inserta};
  }
  const Sql sql = m.insertar(f);
  if (sql.vacia()) return {Suerte::Fallo, codigo, &m.inserta};
  const auto error = ejecutar(sql);
  if (!error) {
    if (!marca_.isEmpty()) tomadas_.insert(m.clave(f));
    return {Suerte::Hecha, codigo, &m.inserta};
  }
  // A row of the watermark's own day may have come before, and may have changed since.
  if (marca_.isEmpty() || !error->claveDuplicada()) return {Suerte::Fallo, codigo, &m.inserta};
  tomadas_.insert(m.clave(f));
  return {ejecutar(m.actualizar(f)) ? Suerte::Fallo : Suerte::Hecha, codigo, &m.actualiza};
}

FinFila PasadasDeMaestros::cambiada(const Maestro& m, const Recordset::Fila& f) {
  if (tomadas_.contains(m.clave(f))) return {};
  const Sql sql = m.actualizar(f);
  qint64 filas = 0;
  bool mal = sql.vacia() || p_.poCnnLocal.ejecutar(sql, &filas);
  // One that the store does not hold, or only without its site, from older days.
  if (!mal && filas == 0) mal = ejecutar(m.insertar(f)).has_value();
  return {mal ? Suerte::Fallo : Suerte::Hecha, m.codigo(f), &m.actualiza};
}

FinPasada PasadasDeMaestros::pasada(const Maestro& m, const Sql& donde, bool nuevas) {
  const auto una = [&, nuevas](const Recordset::Fila& f) { return nuevas ? nueva(m, f) : cambiada(m, f); };
  const auto origen = [&](const Recordset::Fila* ultima) { return PaginaDeMaestro(m, donde, ultima); };
  return Recorrer(p_, pantalla_,
                  {.origen = p_.poCnnCentral,
                   .palabras = m.inserta,
                   .barra = m.barra,
                   .sePuedeDetener = true,
                   .pagina = origen,
                   .entera = u" SELECT "_sql + m.columnas + donde,
                   .fila = una,
                   .lote = nuevas ? loteDeNuevas(m, una) : EnUnaTransaccion(p_.poCnnLocal, una),
                   .filasPorLote = kFilasPorPagina});
}

bool PasadasDeMaestros::haySuyas(LiteralSql tabla, bool elMismoDia, bool& creadas, bool& cambiadas) {
  creadas = cambiadas = true;
  if (marca_.isEmpty()) return true;
  const QDateTime marca = QDate::fromString(marca_, QStringLiteral("yyyyMMdd")).startOfDay();
  const auto hay = [&](LiteralSql columna, bool& si) {
    Recordset rs;
    if (!p_.poDBAdmin.EjecutarConsulta(p_.poCnnCentral,
                                       FormatearSQL(u"SELECT MAX($) AS dUltima FROM $"_sql, {columna, tabla}), rs)) {
      return false;
    }
    const QDateTime ultima = rs[u"dUltima"].toDateTime();
    si = ultima.isValid() && (elMismoDia ? ultima >= marca : ultima > marca);
    return true;
  };
  return hay(u"dFechCrea"_sql, creadas) && hay(u"dFechModi"_sql, cambiadas);
}

FinPasada PasadasDeMaestros::dosPasadas(const Maestro& m, LiteralSql tabla) {
  bool creadas = true, cambiadas = true;
  if (!haySuyas(tabla, false, creadas, cambiadas)) return FinPasada::Mal;
  if (marca_.isEmpty()) cambiadas = false;
  vinieron_ = creadas || cambiadas;
  tomadas_.clear();
  FinPasada fin = FinPasada::Bien;
  for (const bool nuevas : {true, false}) {
    if (fin != FinPasada::Bien) return fin;
    if (nuevas ? creadas : cambiadas)
      fin = pasada(m, ConMarca(marca_, nuevas ? kCreadas : kCambiadas, nuevas ? 1 : 2), nuevas);
    else pantalla_.AumentaBarra(m.barra);
  }
  return fin;
}

FinPasada PasadasDeMaestros::unidades() {
  pantalla_.InsertaLinea(QStringLiteral("Sincronizando Unidades de Medida"));
  const auto codigo = [](const Recordset::Fila& f) { return LimpiarNulo(f[u"cUndmedid"]); };
  const Maestro m{
      .columnas = u"cUndmedid, vDscundmd, vDscCrta FROM UnidadMedida"_sql,
      .orden = u"cUndmedid"_sql,
      .inserta = {QStringLiteral("Se inserto UM de código: "), QStringLiteral("No se pudo insertar UM de código: ")},
      .actualiza = {QStringLiteral("Se actualizó UM de código: "),
                    QStringLiteral("No se pudo actualizar UM de código: ")},
      .barra = 5,
      .detras = [](const auto& f) { return FormatearSQL(u"cUndmedid > '$'"_sql, {texto(f, u"cUndmedid")}); },
      .codigo = codigo,
      .clave = codigo,
      .insertar =
          [](const auto& f) {
            return FormatearSQL(
                u" INSERT INTO UNIDADMEDIDA (cUndmedid, vDscundmd, vDscCrta) VALUES ('$', '$', '$')"_sql,
                {texto(f, u"cUndmedid"), texto(f, u"vDscundmd"), texto(f, u"vDscCrta")});
          },
      .actualizar =
          [](const auto& f) {
            return FormatearSQL(u" UPDATE UNIDADMEDIDA SET vDscundmd = '$', vDscCrta = '$' WHERE cUndmedid = '$'"_sql,
                                {texto(f, u"vDscundmd"), texto(f, u"vDscCrta"), texto(f, u"cUndmedid")});
          }};
  return dosPasadas(m, u"UnidadMedida"_sql);
}

// Those that stay are only one copy too many.
void PasadasDeMaestros::quitarSinLocal(LiteralSql tabla, LiteralSql clave, LiteralSql condicion) {
  const auto quitar = [&](const Sql& cuales) {
    (void)ejecutar(FormatearSQL(u"DELETE FROM $ WHERE IdLocal = 0 $ AND $"_sql, {tabla, condicion, cuales}));
  };
  if (marca_.isEmpty())
    return quitar(FormatearSQL(u"EXISTS (SELECT 1 FROM $ c WHERE c.$ = $.$ AND c.IdLocal <> 0)"_sql,
                               {tabla, clave, tabla, clave}));
  Recordset aqui, alla;
  if (p_.poCnnLocal.consultar(
          FormatearSQL(u"SELECT $ AS cClave, COUNT(*) AS nLocales FROM $ WHERE IdLocal <> 0 AND $ IN (SELECT $ FROM $ "
                       "WHERE IdLocal = 0 $) GROUP BY $"_sql,
                       {clave, tabla, clave, clave, tabla, condicion, clave}),
          aqui)) {
    return;
  }
  for (const auto& f : aqui) {
    const bool texto = f[u"cClave"].typeId() == QMetaType::QString;
    const Sql esa = texto ? FormatearSQL(u"$ = '$'"_sql, {clave, TextoDeCampo(f, u"cClave")})
                          : FormatearSQL(u"$ = $"_sql, {clave, entero(f[u"cClave"])});
    if (!p_.poCnnCentral.consultar(FormatearSQL(u"SELECT COUNT(*) FROM $ WHERE $"_sql, {tabla, esa}), alla) &&
        entero(alla[0]) <= entero(f[u"nLocales"])) {
      quitar(esa);
    }
  }
}

FinPasada PasadasDeMaestros::clientes() {
  pantalla_.InsertaLinea(QStringLiteral("Sincronizando Clientes"));
  const auto par = [](const Recordset::Fila& f) {
    return std::vector<Valor>{entero(f[u"cClieCode"]), entero(f[u"IdLocal"])};
  };
  const Maestro m{
      .columnas = u"* FROM Cliente"_sql,
      .orden = u"cClieCode, IdLocal"_sql,
      .inserta = {QStringLiteral("Se insertó Cliente de código: "),
                  QStringLiteral("No se pudo insertar Cliente de código: ")},
      .actualiza = {QStringLiteral("Se actualizó Cliente de código: "),
                    QStringLiteral("No se pudo actualizar Cliente de código: ")},
      .barra = 10,
      .detras =
          [](const auto& f) {
            const qint64 c = entero(f[u"cClieCode"]);
            return FormatearSQL(u"(cClieCode >= $ AND (cClieCode > $ OR IdLocal > $))"_sql,
                                {c, c, entero(f[u"IdLocal"])});
          },
      .codigo = [](const auto& f) { return LimpiarNulo(f.celda(u"cClieCode")); },
      .clave = [](const auto& f) { return claveDe(f, u"cClieCode"); },
      .insertar =
          [par](const auto& f) {
            std::vector<Valor> v = par(f);
            const std::vector<Valor> resto = valoresCliente(f);
            v.insert(v.end(), resto.begin(), resto.end());
            return FormatearSQL(kNuevoCliente, v);
          },
      .actualizar =
          [par](const auto& f) {
            std::vector<Valor> v = valoresCliente(f);
            const std::vector<Valor> clave = par(f);
            v.insert(v.end(), clave.begin(), clave.end());
            return FormatearSQL(
                u" UPDATE Cliente SET sClieApel = '$', sClieName = '$', sClieAddr = '$', cDistCode = $, cProvCode = $, "
                "cDepaCode = $, sClieTelf = '$', sClieMail = '$', dNacmDate = '$', dUltTDate = '$', cTranCode = $, "
                "nPuntCant = $, nTickCant = $, sClieRout = '$', sDistDesc = '$', sProvDesc = '$', sDepaDesc = '$', "
                "iTipo = $ WHERE cClieCode = $ AND IdLocal = $"_sql,
                v);
          },
      .plantilla = kNuevoCliente,
      .campos = {{Lee::Entero, u"cClieCode"}, {Lee::Entero, u"IdLocal"},   {Lee::Texto, u"sClieApel"},
                 {Lee::Texto, u"sClieName"},  {Lee::Texto, u"sClieAddr"},  {Lee::Numero, u"cDistCode"},
                 {Lee::Numero, u"cProvCode"}, {Lee::Numero, u"cDepaCode"}, {Lee::Texto, u"sClieTelf"},
                 {Lee::Texto, u"sClieMail"},  {Lee::Dia, u"dNacmDate"},    {Lee::Dia, u"dUltTDate"},
                 {Lee::Numero, u"cTranCode"}, {Lee::Numero, u"nPuntCant"}, {Lee::Numero, u"nTickCant"},
                 {Lee::Texto, u"sClieRout"},  {Lee::Texto, u"sDistDesc"},  {Lee::Texto, u"sProvDesc"},
                 {Lee::Texto, u"sDepaDesc"},  {Lee::Numero, u"iTipo"},     {Lee::Fijo, {}, 1}}};
  const FinPasada fin = dosPasadas(m, u"Cliente"_sql);
  if (fin == FinPasada::Bien && vinieron_)
    quitarSinLocal(u"Cliente"_sql, u"cClieCode"_sql, u" AND cSincroFlag <> 0"_sql);
  return fin;
}

FinPasada PasadasDeMaestros::tarjetas() {
  pantalla_.InsertaLinea(QStringLiteral("Sincronizando Tarjetas"));
  const QString ahora = FormatearFecha(p_.reloj.now(), p_.ses.psFORMATO_FECHA_SQL_SERVER_INS);
  const Maestro m{
      .columnas = u"* FROM Tarjeta"_sql,
      .orden = u"nTarjNumb, IdLocal"_sql,
      .inserta = {QStringLiteral("Se insertó Tarjeta de número: "),
                  QStringLiteral("No se pudo insertar Tarjeta de número: ")},
      .actualiza = {QStringLiteral("Se actualió Tarjeta de número: "),
                    QStringLiteral("No se pudo actualizar Tarjeta de número: ")},
      .barra = 5,
      .detras =
          [](const auto& f) {
            const Texto n = texto(f, u"nTarjNumb");
            return FormatearSQL(u"(nTarjNumb >= '$' AND (nTarjNumb > '$' OR IdLocal > $))"_sql,
                                {n, n, entero(f[u"IdLocal"])});
          },
      .codigo = [](const auto& f) { return LimpiarNulo(f[u"nTarjNumb"]); },
      .clave = [](const auto& f) { return claveDe(f, u"nTarjNumb"); },
      .insertar =
          [ahora](const auto& f) {
            return FormatearSQL(
                u" INSERT INTO Tarjeta (cClieCode, nTarjNumb, cTarjActi, dEmisDate, sUserDesc,dUltOper, IdLocal) "
                "VALUES "
                "($, '$', $, '$', '$', '$', $)"_sql,
                {numero(f, u"cClieCode"), texto(f, u"nTarjNumb"), numero(f, u"cTarjActi"), dia(f, u"dEmisDate"),
                 texto(f, u"sUserDesc"), Texto(ahora), entero(f[u"IdLocal"])});
          },
      .actualizar =
          [ahora](const auto& f) {
            return FormatearSQL(u" UPDATE Tarjeta SET cClieCode = $, cTarjActi = $, dEmisDate = '$', sUserDesc = '$', "
                                "dUltOper = '$' WHERE nTarjNumb = '$' AND IdLocal = $"_sql,
                                {numero(f, u"cClieCode"), numero(f, u"cTarjActi"), dia(f, u"dEmisDate"),
                                 texto(f, u"sUserDesc"), Texto(ahora), texto(f, u"nTarjNumb"), entero(f[u"IdLocal"])});
          }};
  const FinPasada fin = dosPasadas(m, u"Tarjeta"_sql);
  if (fin == FinPasada::Bien && vinieron_) quitarSinLocal(u"Tarjeta"_sql, u"nTarjNumb"_sql, u""_sql);
  return fin;
}

QString CodigoCentral(qint64 codigo) { return Rellenar(QString::number(codigo), 6, u'0'); }

FinPasada TraerMaestros(Puesto& p, FrmUpdt& pantalla, const QString& marca) {
  PasadasDeMaestros m(p, pantalla, marca);
  Surtido surtido;
  FinPasada fin = m.unidades();
  if (fin == FinPasada::Bien) fin = m.articulos(surtido);
  if (fin == FinPasada::Bien) fin = ActivarArticulos(p, pantalla, surtido);
  if (fin == FinPasada::Bien) fin = m.clientes();
  if (fin == FinPasada::Bien) fin = m.tarjetas();
  return fin;
}
