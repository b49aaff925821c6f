#include "credit/operacion_paralela_consulta.h"

#include "documento/clase.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

// The filters by the index of their list; nothing for "-->".
std::optional<TipoOperacion> tipoDe(int indice) {
  if (indice < 1 || indice > 5) return {};
  return static_cast<TipoOperacion>(Codigo(TipoOperacion::OC) + indice - 1);
}

std::optional<QString> estadoDe(int indice) {
  if (indice == 1 || indice == 2) return QString::number(indice);
  return indice == 3 ? std::optional(QStringLiteral("0")) : std::nullopt;
}

QString conMascara(const QVariant& v) { return Formatear(Numero(v), u"###,###,##0.00"); }

QString entero(const QVariant& v) { return TextoDe(Numero(v)); }

QString palabraDeEstado(const QString& estado) {
  if (estado == u"1") return QStringLiteral("VIGT");
  if (estado == u"2") return QStringLiteral("LIQU");
  return estado == u"0" ? QStringLiteral("ANUL") : QString();
}

FilaOperacionParalela filaOperacion(const Recordset::Fila& f) {
  FilaOperacionParalela r;
  r.cOperCode = AEntero(Numero(f[u"cOperCode"]));
  const TipoOperacion tipo = static_cast<TipoOperacion>(AEntero(Numero(f[u"cOperTipo"])));
  // A series that holds letters counts as 0.
  const QString serie = TextoDe(Val(u'0' + LimpiarNulo(f[u"cDocSerie"])));
  r.celdas = {QString::number(r.cOperCode),
              PalabraDe(tipo),
              FormatearFecha(f[u"dOperFech"].toDateTime(), u"dd/mm/yyyy hh:nn:ss"),
              LimpiarNulo(f[u"nTarjNumb"]),
              serie + u'-' + LimpiarNulo(f[u"cDocCodigo"]),
              LimpiarNulo(f[u"sGlosa"]),
              conMascara(f[u"nMontoSoles"]),
              conMascara(f[u"nEfectivoSoles"]),
              conMascara(f[u"nVueltoSoles"]),
              palabraDeEstado(LimpiarNulo(f[u"cEstado"])),
              LimpiarNulo(f[u"cCajaCodi"]),
              LimpiarNulo(f[u"cFlagSincronizacion"]),
              LimpiarNulo(f[u"cTurnoCodi"]),
              LimpiarNulo(f[u"cUserDesc"]),
              entero(f[u"cOperCodeRela"]),
              entero(f[u"cOperCodeAnul"])};
  return r;
}

QStringList filaProducto(const Recordset::Fila& f) {
  const QString canje = LimpiarNulo(f[u"cFlagCanje"]);
  return {LimpiarNulo(f[u"cAlmaCode"]),
          LimpiarNulo(f[u"cProdCode"]),
          LimpiarNulo(f[u"cCodCatalogo"]),
          LimpiarNulo(f[u"sProdDesc"]),
          LimpiarNulo(f[u"sProdDescCrta"]),
          conMascara(f[u"nProdCant"]),
          conMascara(f[u"nProdPrecUnit"]),
          conMascara(f[u"nDscto"]),
          conMascara(f[u"nServicio"]),
          canje == u"0"   ? QStringLiteral("NO")
          : canje == u"1" ? QStringLiteral("PTOS")
                          : QStringLiteral("VNTA"),
          LimpiarNulo(f[u"nPuntos"]),
          Numero(f[u"cFlagServicio"]) == 1 ? QStringLiteral("SI") : QStringLiteral("NO"),
          LimpiarNulo(f[u"vDscUndMd"]),
          Numero(f[u"cProdEstd"]) == 1 ? QStringLiteral("Activo") : QStringLiteral("Inactivo")};
}

}  // namespace

void InicioConsulta(const Puesto& p, OperacionParalelaConsulta& v) {
  const auto dia = [&p](int dias) { return FormatearFecha(p.reloj.today().addDays(dias).startOfDay(), u"dd/mm/yyyy"); };
  v = {0, 0, dia(-7), dia(0)};
}

bool BuscarOperaciones(Puesto& p, const OperacionParalelaConsulta& v, std::vector<FilaOperacionParalela>& filas,
                       QString& campoMal) {
  filas.clear();
  const auto desde = LeerFecha(v.DTDesde), hasta = LeerFecha(v.DTHasta);
  campoMal = !desde ? QStringLiteral("DTDesde") : !hasta ? QStringLiteral("DTHasta") : QString();
  if (!campoMal.isEmpty()) {
    p.mensajes.mostrar(QStringLiteral("La fecha debe tener el formato dd/mm/yyyy"));
    return false;
  }
  // Two bounds instead of a formatted date, and nothing else that an index knows: the days are what narrows most.
  Sql sql = FormatearSQL(u" SELECT * FROM OperacionParalela WHERE dOperFech >= $ AND dOperFech < $"
                         " AND cOperTipo + 0 <> $"_sql,
                         {desde->date(), hasta->date().addDays(1), Codigo(TipoOperacion::ReporteParalelas)});
  if (const auto tipo = tipoDe(v.cboTipoVenta)) sql += FormatearSQL(u" AND cOperTipo + 0 = $"_sql, {Codigo(*tipo)});
  if (const auto estado = estadoDe(v.cboEstado)) sql += FormatearSQL(u" AND TRIM(cEstado) = '$'"_sql, {Texto(*estado)});
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql + u" ORDER BY dOperFech, cOperCode"_sql, rs)) return false;
  filas.reserve(static_cast<size_t>(rs.RecordCount()));
  for (const auto& f : rs) filas.push_back(filaOperacion(f));
  return true;
}

std::vector<QStringList> LineasOperacion(Puesto& p, qint64 cOperCode) {
  std::vector<QStringList> filas;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u" SELECT OPP.cAlmaCode, OPP.cProdCode, P.cCodCatalogo, P.sProdDesc, P.sProdDescCrta,"
                       " OPP.nProdCant, OPP.nProdPrecUnit, OPP.nDscto, OPP.nServicio, P.cProdEstd,"
                       " P.cProdFlagFicha, P.cProdFichaCant, P.cProdFlagCanje, P.cProdFlagControl,"
                       " P.cFlagCanje, P.nPuntos, P.cFlagServicio, P.cUndSalida, UM.vDscUndMd"
                       " FROM (OperacionParalelaProducto OPP LEFT JOIN Producto P"
                       " ON (OPP.cProdCode = P.cProdCode) AND (OPP.cAlmaCode = P.cAlmaCode))"
                       " LEFT JOIN UnidadMedida UM ON P.cUndSalida = UM.cUndMedid WHERE OPP.cOperCode = $"_sql,
                       {cOperCode}),
          rs)) {
    return filas;
  }
  for (const auto& f : rs) filas.push_back(filaProducto(f));
  return filas;
}

const std::vector<ColumnaConsulta>& ColumnasOperacion() {
  using C = ColumnaConsulta;
  // clang-format off
  static const std::vector<C> columnas{
      {u"TX", 0.06, C::Numero}, {u"Tipo", 0.085}, {u"Fecha", 0.19, C::Fecha}, {u"Tarjeta", 0.1},
      {u"Documento", 0.115}, {u"Glosa", 0.195}, {u"(S/.)", 0.1, C::Numero}, {u"Efectivo", 0.1, C::Numero},
      {u"Vuelto", 0.09, C::Numero}, {u"Estado", 0.08}, {u"Caja", 0.065}, {u"Sinc.", 0.06}, {u"Turno", 0.07},
      {u"Usuario", 0.1}, {u"TXRelac.", 0.095, C::Numero}, {u"TXAnul.", 0.09, C::Numero}};
  // clang-format on
  return columnas;
}

const std::vector<ColumnaConsulta>& ColumnasProducto() {
  using C = ColumnaConsulta;
  // clang-format off
  static const std::vector<C> columnas{
      {u"Alm.", 0.06}, {u"Cod.", 0.06, C::Numero}, {u"Cod. Catalogo", 0.14}, {u"Descripción", 0.26},
      {u"Abrev.", 0.16}, {u"Cant.", 0.08, C::Numero}, {u"PUnit(S/.)", 0.105, C::Numero}, {u"Dscto(%)", 0.1, C::Numero},
      {u"Serv.(%)", 0.09, C::Numero}, {u"TipoCanje", 0.105}, {u"Puntos", 0.08, C::Numero}, {u"Servicio", 0.09},
      {u"UM", 0.09}, {u"Estado", 0.08}};
  // clang-format on
  return columnas;
}
