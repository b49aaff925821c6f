#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "sync/envio_interno.h"

namespace {

qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }
Texto texto(const Recordset::Fila& f, QStringView campo) { return Texto(LimpiarNulo(f[campo])); }

Sql deZ(const Recordset::Fila& f) {
  return FormatearSQL(u" WHERE IdZ=$ AND Caja='$'"_sql, {entero(f[u"IdZ"]), texto(f, u"Caja")});
}

// Whether two Z rows, of either database, close the same range.
bool mismoZ(const Recordset::Fila& a, const Recordset::Fila& b) {
  for (const QStringView campo : {u"cOperIdIni", u"cOperIdFin", u"cOperIdPIni", u"cOperIdPFin"}) {
    if (entero(a[campo]) != entero(b[campo])) return false;
  }
  return a[u"Fecha"].toDateTime().date() == b[u"Fecha"].toDateTime().date();
}

Sql filaCabecera(const Recordset::Fila& f) {
  return FormatearSQL(
      u"INSERT INTO CabeceraZ(IdZ,Caja,CantidadTotal,MontoTotal,Fecha,RangoTKBOL,RangoTKFAC,CodigoRep,cOperIdIni,"
      "cOperIdFin,cOperIdPIni,cOperIdPFin) VALUES ($,'$',$,$,$,'$','$','$',$,$,$,$)"_sql,
      {entero(f[u"IdZ"]), texto(f, u"Caja"), Numero(f[u"CantidadTotal"]), Numero(f[u"MontoTotal"]),
       MomentoCentral(f[u"Fecha"]), texto(f, u"RangoTKBOL"), texto(f, u"RangoTKFAC"), texto(f, u"CodigoRep"),
       entero(f[u"cOperIdIni"]), entero(f[u"cOperIdFin"]), entero(f[u"cOperIdPIni"]), entero(f[u"cOperIdPFin"])});
}

}  // namespace

// A Z of the centre under this number that closes another range is of a store that was lost: this one takes the next
// free number on both sides.
Envio::Error Envio::renumerar(const Recordset::Fila& f, qint64 nuevo) {
  std::vector<Sql> cambios;
  for (const LiteralSql tabla : {u"CabeceraZ"_sql, u"DetalleZ"_sql}) {
    cambios.push_back(FormatearSQL(u"UPDATE $ SET IdZ = $"_sql, {tabla, nuevo}) + deZ(f));
  }
  return EjecutarJuntas(p_.poCnnLocal, cambios);
}

Envio::Error Envio::unZ(const Recordset::Fila& f, std::vector<Sql>& alFinal) {
  Recordset alla, detalle;
  if (auto e = p_.poCnnCentral.consultar(u"Select * from CabeceraZ"_sql + deZ(f), alla)) return e;
  if (!alla.Eof()) {
    alFinal.push_back(
        FormatearSQL(u"UPDATE CabeceraZ SET obs='Ya existe registro' WHERE IdZ=$"_sql, {entero(f[u"IdZ"])}));
    return {};
  }
  if (auto e = p_.poCnnCentral.ejecutar(filaCabecera(f))) return e;
  if (auto e = p_.poCnnLocal.consultar(u"SELECT IdZ,Caja,nItem,CodProd,DscProd,Cantidad FROM DetalleZ"_sql + deZ(f) +
                                           u" AND bFlagSincro=0 ORDER BY IdZ,nItem"_sql,
                                       detalle)) {
    return e;
  }
  for (const auto& d : detalle) {
    if (auto e = p_.poCnnCentral.ejecutar(
            FormatearSQL(u"INSERT INTO DetalleZ(IdZ,Caja,nItem,CodProd,DscProd,Cantidad) VALUES ($,'$',$,$,'$',$)"_sql,
                         {entero(d[u"IdZ"]), texto(d, u"Caja"), entero(d[u"nItem"]), entero(d[u"CodProd"]),
                          texto(d, u"DscProd"), Numero(d[u"Cantidad"])}))) {
      return e;
    }
  }
  return {};
}

// The fiscal documents of each Z that has gone up whole are posted to the accounts, before it counts as sent; the last
// ones are looked at again, since a row that the centre refused may have gone up later. A posting that is refused does
// not hold the Z.
Envio::Error Envio::contabilizar() {
  Recordset cabeceras, rs;
  if (auto e = p_.poCnnLocal.consultar(u"SELECT Caja, cOperIdIni, cOperIdFin FROM CabeceraZ WHERE bFlagSincro = 0 OR "
                                       "IdZ > (SELECT MAX(IdZ) FROM CabeceraZ) - 8 ORDER BY IdZ"_sql,
                                       cabeceras)) {
    return e;
  }
  for (const auto& f : cabeceras) {
    if (auto e = p_.poCnnLocal.consultar(
            FormatearSQL(u"SELECT SUM(IIF(cFlagSincronizacion = '1', 0, 1)), MIN(dOperFech), MAX(dOperFech) FROM "
                         "Operacion WHERE cOperFlagAbierto = 0 AND cProdCode <> 0 AND cOperID > $ AND cOperID <= $"_sql,
                         {entero(f[u"cOperIdIni"]), entero(f[u"cOperIdFin"])}),
            rs)) {
      return e;
    }
    if (entero(rs[0]) > 0 || rs[1].isNull()) continue;
    if (const auto error = p_.poCnnCentral.ejecutar(FormatearSQL(
            u"INSERT INTO Cuentacte (cSerieDoc, cNroDoc, cCodCaja, cTipoDoc, dFecha, nMonto) SELECT o.cDocSerie, "
            "o.cDocCodigo, o.cCajaCodi, o.cDocTipo, MIN(o.dOperFech), SUM(o.nProdCant * o.nProdPrecUnit * (1 + "
            "o.nDscto "
            "/ 100)) FROM Operacion o WHERE o.cCajaCodi = '$' AND o.cDocTipo IN ('01','02') AND o.dOperFech >= $ AND "
            "o.dOperFech <= $ AND NOT EXISTS (SELECT 1 FROM Cuentacte c WHERE c.cSerieDoc = o.cDocSerie AND "
            "c.cNroDoc = "
            "o.cDocCodigo AND c.cCodCaja = o.cCajaCodi) GROUP BY o.cDocSerie, o.cDocCodigo, o.cCajaCodi, "
            "o.cDocTipo"_sql,
            {texto(f, u"Caja"), MomentoCentral(rs[1]), MomentoCentral(rs[2])}))) {
      if (error->numero != kErrorSentencia) return error;
      p_.registro.RegistrarErrorLog(QStringLiteral("Sincronizar - Cuentacte: ") + error->descripcion);
    }
  }
  return {};
}

bool Envio::enviarZ() {
  const Sql pendientes =
      u"SELECT IdZ,Caja,CantidadTotal,MontoTotal,Fecha,RangoTKBOL,RangoTKFAC,CodigoRep,cOperIdIni,cOperIdFin,"
      "cOperIdPIni,cOperIdPFin FROM CabeceraZ WHERE bFlagSincro=0"_sql;
  const auto fallo = [&](const ErrorBD& error) {
    p_.registro.RegistrarErrorLog(QStringLiteral("Sincronizar - CabeceraZ: ") + error.descripcion);
    return false;
  };
  Recordset rs, alla;
  if (!p_.poDBAdmin.EjecutarConsulta(p_.poCnnLocal, pendientes, rs)) return false;
  for (const auto& f : rs) {
    if (auto e = p_.poCnnCentral.consultar(u"Select * from CabeceraZ"_sql + deZ(f), alla)) return fallo(*e);
    if (alla.Eof() || mismoZ(f, *alla.begin())) continue;
    Recordset aqui, maximo;
    if (auto e = p_.poCnnLocal.consultar(u"SELECT MAX(IdZ) FROM CabeceraZ"_sql, aqui)) return fallo(*e);
    if (auto e = p_.poCnnCentral.consultar(
            FormatearSQL(u"SELECT MAX(IdZ) FROM CabeceraZ WHERE Caja='$'"_sql, {texto(f, u"Caja")}), maximo)) {
      return fallo(*e);
    }
    if (auto e = renumerar(f, std::max(entero(aqui[0]), entero(maximo[0])) + 1)) return fallo(*e);
  }
  if (!p_.poDBAdmin.EjecutarConsulta(p_.poCnnLocal, pendientes, rs)) return false;
  if (rs.Eof()) {
    if (!quedaban_) return true;
    const auto error = contabilizar();
    return error ? fallo(*error) : true;
  }
  std::vector<Sql> alFinal;
  if (const auto error = EnTransaccion(p_.poCnnCentral, [&]() -> Error {
        for (const auto& f : rs) {
          if (auto e = unZ(f, alFinal)) return e;
        }
        return {};
      })) {
    return fallo(*error);
  }
  if (const auto error = contabilizar()) return fallo(*error);
  alFinal.push_back(u"UPDATE CabeceraZ SET bFlagSincro=1 WHERE bFlagSincro=0"_sql);
  alFinal.push_back(u"UPDATE DetalleZ SET bFlagSincro=1 WHERE bFlagSincro=0"_sql);
  if (const auto error = EjecutarJuntas(p_.poCnnLocal, alFinal)) return fallo(*error);
  return true;
}
