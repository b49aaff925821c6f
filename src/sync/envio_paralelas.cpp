#include <algorithm>

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/numero.h"
#include "sync/envio_interno.h"
#include "sync/updt.h"

namespace {

qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }
qint64 codigoDe(const Recordset::Fila& f) { return entero(f[u"cOperCode"]); }

const Palabras kPalabras{QStringLiteral("Se insertó en el Servidor la Operación Paralela de código: "),
                         QStringLiteral("No se pudo insertar en el Servidor la Operación Paralela de código: ")};

// A state that no document has: what was found there is looked at by estados().
constexpr LiteralSql kPorVer = u"'?'"_sql;

Sql codigosDe(const Filas& filas, const std::vector<bool>& menos) {
  std::vector<Sql> piezas;
  for (size_t i = 0; i < filas.size(); ++i) {
    if (!menos[i]) piezas.push_back(FormatearSQL(u"$"_sql, {codigoDe(filas[i])}));
  }
  return UnirSql(piezas, u", "_sql);
}

}  // namespace

// Nothing at the centre stops a second head of the same document, and the commit of a run whose wire was cut may still
// be on its way: each transaction that sends some holds this, and the next run waits for it before it looks.
Envio::Error Envio::bloquear() {
  return p_.poCnnCentral.ejecutar(FormatearSQL(u"dbo.spr_bloquear_serie 'envio-$'"_sql, {Texto(p_.ses.psCaja)}));
}

// The site stands in the money that shares the document's code and day; none is 0.
QString Envio::localDe(const Recordset::Fila& f) {
  const QDate dia = f[u"dOperFech"].toDateTime().date();
  Recordset rs;
  if (p_.poCnnLocal.consultar(
          FormatearSQL(u"select idlocal from operacion where cOperCode=$ and year(dOperFech)=$ and month(dOperFech)=$"
                       " and day(dOperFech)=$ and cDocTipo='$'"_sql,
                       {codigoDe(f), dia.year(), dia.month(), dia.day(), Texto(LimpiarNulo(f[u"cDocTipo"]))}),
          rs)) {
    return QStringLiteral("0");
  }
  return TextoDe(Numero(rs[0]));
}

Envio::Error Envio::marcarParalelas(const Filas& filas, const std::vector<bool>& estaban) {
  const std::vector<bool> ninguna(filas.size(), false);
  const Sql codigos = codigosDe(filas, ninguna);
  if (auto e = p_.poCnnLocal.ejecutar(
          u"UPDATE OPERACIONParalela SET cFlagSincronizacion = '1' WHERE cOpercode IN ("_sql + codigos + u")"_sql)) {
    return e;
  }
  if (auto e = p_.poCnnLocal.ejecutar(u"DELETE FROM ParalelaEnviada WHERE cOperCode IN ("_sql + codigos + u")"_sql)) {
    return e;
  }
  for (size_t i = 0; i < filas.size(); ++i) {
    const Recordset::Fila& f = filas[i];
    const Sql estado = FormatearSQL(u"'$'"_sql, {Texto(LimpiarNulo(f[u"cEstado"]))});
    if (auto e = p_.poCnnLocal.ejecutar(FormatearSQL(
            u"INSERT INTO ParalelaEnviada (cOperCode, cEstado, cOperCodeRela, cOperCodeAnul) VALUES ($, $, $, $)"_sql,
            {codigoDe(f), estaban[i] ? Valor(kPorVer) : Valor(estado), entero(f[u"cOperCodeRela"]),
             entero(f[u"cOperCodeAnul"])}))) {
      return e;
    }
  }
  return {};
}

Envio::Error Envio::enviarParalelas(const Filas& filas, const std::vector<bool>& estaban, bool& fatal) {
  Recordset lineas;
  std::vector<Sql> documentos;
  for (size_t i = 0; i < filas.size(); ++i) {
    if (estaban[i]) continue;
    const ClienteTarjeta c = cliente(LimpiarNulo(filas[i][u"nTarjNumb"]), localDe(filas[i]).toInt());
    documentos.push_back(TuplaParalela(filas[i], {p_.ses.psCaja, c, u"0"_qs}));
  }
  if (documentos.empty()) return {};
  if (auto e = InsertarTuplas(p_.poCnnCentral, kCabezaParalela, documentos)) return e;
  const Sql codigos = codigosDe(filas, estaban);
  if (auto e = p_.poCnnLocal.consultar(u" SELECT * FROM OperacionParalelaProducto WHERE cOperCode IN ("_sql + codigos +
                                           u") and cProdCode <> 0  ORDER BY cOperCode"_sql,
                                       lineas)) {
    return e;
  }
  if (lineas.Eof()) return {};
  if (auto e = p_.poCnnCentral.ejecutar(u"DELETE FROM operacionparalelaproducto WHERE cOperCOde IN ("_sql + codigos +
                                        FormatearSQL(u") AND cCajaCodi = '$'"_sql, {Texto(p_.ses.psCaja)}))) {
    fatal = true;
    return e;
  }
  std::vector<Sql> tuplas, detalles;
  for (const auto& l : lineas) {
    tuplas.push_back(TuplaLineaParalela(l, p_.ses.psCaja));
    const qint64 codigo = codigoDe(l);
    const bool tieneDetalle = std::any_of(conDetalle_.begin(), conDetalle_.end(),
                                          [codigo](const auto& r) { return r.tieneParalela(codigo); });
    const auto suyo =
        std::find_if(filas.begin(), filas.end(), [codigo](const auto& f) { return codigoDe(f) == codigo; });
    if (cabecera_ && !tieneDetalle) detalles.push_back(DetalleZ1(l, *suyo).tupla(p_.ses.psIdZ1, p_.ses.psCaja));
  }
  if (auto e = InsertarTuplas(p_.poCnnCentral, kCabezaLineaParalela, tuplas)) return e;
  if (InsertarTuplas(p_.poCnnCentral, kCabezaDetalleZ1, detalles)) {
    p_.registro.RegistrarErrorLog(QStringLiteral("Sincronizar - TDETALLEZ1 de la operacion Paralela de Codigo: ") +
                                  QString::number(codigoDe(filas[0])));
  }
  return {};
}

FinFila Envio::paralela(const Recordset::Fila& f) {
  const QString codigo = LimpiarNulo(f[u"cOperCode"]);
  const std::vector<bool> esta{cotejarP_ && cotejoP_.tomar(Cotejo::claveDeParalela(f))};
  const auto acabar = [&](Suerte suerte) {
    deshacerAmbas();
    if (suerte == Suerte::Termina) cortado();
    return FinFila{suerte, codigo};
  };
  if (p_.poCnnCentral.iniciar() || bloquear()) return acabar(Suerte::Termina);
  const auto posteados = contabilizados({f});
  if (!posteados) return acabar(Suerte::Termina);
  if (!posteados->isEmpty() && !esta[0]) {
    yaExiste(f);
    if (p_.poCnnLocal.iniciar() || marcarParalelas({f}, {false}) || confirmarAmbas()) return acabar(Suerte::Termina);
    return {Suerte::Callada, codigo};
  }
  bool fatal = false;
  if (enviarParalelas({f}, esta, fatal)) {
    p_.registro.RegistrarErrorLog(QStringLiteral("No se pudo insertar la operacion Paralela de Codigo: ") + codigo);
    return acabar(fatal ? Suerte::Termina : Suerte::Fallo);
  }
  if (p_.poCnnLocal.iniciar() || marcarParalelas({f}, esta) || confirmarAmbas()) return acabar(Suerte::Fallo);
  return {esta[0] ? Suerte::Callada : Suerte::Hecha, codigo};
}

std::vector<FinFila> Envio::loteParalelas(const Filas& filas) {
  std::vector<bool> estaban;
  for (const auto& f : filas) estaban.push_back(cotejarP_ && cotejoP_.tomar(Cotejo::claveDeParalela(f)));
  const auto enviado = [&] {
    bool fatal = false;
    if (p_.poCnnCentral.iniciar() || bloquear()) return false;
    const auto posteados = contabilizados(filas);
    if (!posteados || !posteados->isEmpty() || enviarParalelas(filas, estaban, fatal)) return false;
    return !p_.poCnnLocal.iniciar() && !marcarParalelas(filas, estaban);
  };
  if (!enviado()) {
    deshacerAmbas();
    for (size_t i = 0; i < filas.size(); ++i) {
      if (estaban[i]) cotejoP_.devolver(Cotejo::claveDeParalela(filas[i]));
    }
    return {};
  }
  std::vector<FinFila> fines;
  for (size_t i = 0; i < filas.size(); ++i) {
    fines.push_back({estaban[i] ? Suerte::Callada : Suerte::Hecha, LimpiarNulo(filas[i][u"cOperCode"])});
  }
  return confirmarLote(std::move(fines));
}

FinPasada Envio::paralelas() {
  Sql cuales = ParalelaPorEnviar();
  const Sql rangos = rangosPendientes(true, u"cOperCode"_sql);
  if (cotejarP_ && !rangos.vacia()) cuales = FormatearSQL(u"($ OR $)"_sql, {cuales, rangos});
  // What the repair of the numbers has left came from there.
  return Recorrer(
      p_, pantalla_,
      {.origen = p_.poCnnLocal,
       .palabras = kPalabras,
       .pagina =
           [&](const Recordset::Fila* u) {
             return FormatearSQL(
                 u" SELECT TOP $ * FROM OperacionParalela WHERE cOperFlagAbierto= 0  AND cOperCodeAnul = 0 "
                 " AND cOperCode > $ AND cOperCode <= $ AND NOT cOperTipo IN ($) AND $ AND NOT cOperCode in "
                 " (Select cOperCodeAnul from operacionParalela )  ORDER BY cOpercode"_sql,
                 {kFilasPorPagina, u ? codigoDe(*u) : 0, finP_, Codigos(kSinDocumento), cuales});
           },
       .fila = [this](const Recordset::Fila& f) { return paralela(f); },
       .lote = [this](const Filas& filas) { return loteParalelas(filas); }});
}

// One that the centre does not hold after all is sent anew by the next run.
Envio::Error Envio::cambiarEstado(const Recordset::Fila& f) {
  qint64 filas = 0;
  if (auto e = p_.poCnnCentral.ejecutar(
          FormatearSQL(u"UPDATE OperacionParalela SET cEstado = '$', cOperCodeRela = $, cOperCodeAnul = $, "
                       "cFlagSincronizacion = '0' WHERE cCajaCodi = '$' AND cOperCode = $ AND cDocCodigo = '$'"_sql,
                       {Texto(LimpiarNulo(f[u"cEstado"])), entero(f[u"cOperCodeRela"]), entero(f[u"cOperCodeAnul"]),
                        Texto(p_.ses.psCaja), codigoDe(f), Texto(NumeroCentral(f[u"cDocCodigo"]))}),
          &filas)) {
    return e;
  }
  if (filas == 0) {
    return EjecutarTodas(
        p_.poCnnLocal, {FormatearSQL(u"DELETE FROM ParalelaEnviada WHERE cOperCode = $"_sql, {codigoDe(f)}),
                        FormatearSQL(u"UPDATE OperacionParalela SET cFlagSincronizacion = '0' WHERE cOperCode = $"_sql,
                                     {codigoDe(f)})});
  }
  return p_.poCnnLocal.ejecutar(FormatearSQL(
      u"UPDATE ParalelaEnviada SET cEstado = '$', cOperCodeRela = $, cOperCodeAnul = $ WHERE cOperCode = $"_sql,
      {Texto(LimpiarNulo(f[u"cEstado"])), entero(f[u"cOperCodeRela"]), entero(f[u"cOperCodeAnul"]), codigoDe(f)}));
}

// Documents that were sent and have been settled, tied or voided since.
FinPasada Envio::estados() {
  Recordset rs;
  if (!p_.poDBAdmin.EjecutarConsulta(
          p_.poCnnLocal,
          u"SELECT o.cOperCode, o.cEstado, o.cOperCodeRela, o.cOperCodeAnul, o.cDocCodigo FROM OperacionParalela o "
          "INNER "
          "JOIN ParalelaEnviada e ON e.cOperCode = o.cOperCode WHERE o.cFlagSincronizacion = '1' AND (o.cEstado <> "
          "e.cEstado OR o.cOperCodeRela <> e.cOperCodeRela OR o.cOperCodeAnul <> e.cOperCodeAnul) ORDER BY "
          "o.cOperCode"_sql,
          rs)) {
    return FinPasada::Mal;
  }
  for (const auto& f : rs) {
    const auto cambiado = [&] {
      return !p_.poCnnCentral.iniciar() && !p_.poCnnLocal.iniciar() && !cambiarEstado(f) && !confirmarAmbas();
    };
    const QString codigo = LimpiarNulo(f[u"cOperCode"]);
    if (cambiado()) {
      pantalla_.InsertaLinea(QStringLiteral("Se actualizó en el Servidor la Operación Paralela de código: ") + codigo);
      continue;
    }
    deshacerAmbas();
    pantalla_.InsertaLinea(QStringLiteral("No se pudo actualizar en el Servidor la Operación Paralela de código: ") +
                           codigo);
  }
  return FinPasada::Bien;
}
