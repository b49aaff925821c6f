#include <QSet>

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/numero.h"
#include "sync/envio_interno.h"
#include "sync/updt.h"

namespace {

qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }
QString codigoDe(const Recordset::Fila& f) { return LimpiarNulo(f[u"cOperCode"]); }

const Palabras kPalabras{QStringLiteral("Se insertó en el Servidor la Operación de código: "),
                         QStringLiteral("No se pudo insertar en el Servidor la Operación de código: ")};

// So few that other desks do not wait long for the locks of their transaction, so many that two commits are little.
constexpr qsizetype kFilasPorLote = 1000;

// Every line of a document that the accounts have posted; money of a parallel document may share its code.
Sql marcaDeDocumento(const Recordset::Fila& f) {
  return FormatearSQL(u"UPDATE operacion SET cFlagSincronizacion = '1' WHERE cOperCode = $ AND cDocSerie = '$'"
                      " AND cProdCode <> 0"_sql,
                      {entero(f[u"cOperCode"]), Texto(LimpiarNulo(f[u"cDocSerie"]))});
}

}  // namespace

Envio::Error Envio::siguienteId(qint64& id) {
  Recordset rs;
  auto error = p_.poCnnCentral.consultar(
      FormatearSQL(u"SELECT ISNULL(MAX(cOperId),0) + 1 cOperId FROM operacion WHERE cCajaCodi='$'"_sql,
                   {Texto(p_.ses.psCaja)}),
      rs);
  id = entero(rs[0]);
  return error;
}

Envio::Error Envio::marcar(const Recordset::Fila& f) {
  const auto marca = [](qint64 codigo, qint64 id) {
    return FormatearSQL(u"UPDATE OPERACION SET cFlagSincronizacion = '1' WHERE cOperCOde = $ AND cOperId=$"_sql,
                        {codigo, id});
  };
  const qint64 codigo = entero(f[u"cOperCode"]), id = entero(f[u"cOperID"]);
  if (!marca_) marca_ = p_.poCnnLocal.repetir(marca(1, 1));
  if (!marca_) return p_.poCnnLocal.ejecutar(marca(codigo, id));
  return marca_->correr({CeldaBD(QByteArrayView("1")), CeldaBD(codigo), CeldaBD(id)});
}

FinFila Envio::operacion(const Recordset::Fila& f) {
  const QString codigo = codigoDe(f);
  const qint64 id = entero(f[u"cOperID"]);
  if (cotejar_ && cotejo_.tomar(Cotejo::claveDeOperacion(f))) {
    return {marcar(f) ? Suerte::Fallo : Suerte::Callada, codigo};
  }
  const DatosFilaCentral datos{p_.ses.psCaja,
                               cliente(LimpiarNulo(f[u"nTarjNumb"]), static_cast<int>(entero(f[u"IdLocal"]))), u"0"_qs};
  const auto acabar = [&](Suerte suerte) {
    deshacerAmbas();
    if (suerte == Suerte::Termina) cortado();
    return FinFila{suerte, codigo};
  };
  if (p_.poCnnCentral.iniciar()) return acabar(Suerte::Termina);
  p_.poCnnCentral.deUnaPieza(true);
  const auto posteados = contabilizados({f});
  if (!posteados) return acabar(Suerte::Termina);
  if (!posteados->isEmpty()) {
    yaExiste(f);
    if (p_.poCnnLocal.ejecutar(marcaDeDocumento(f))) return acabar(Suerte::Termina);
    (void)p_.poCnnCentral.confirmar();
    return acabar(Suerte::Callada);
  }
  qint64 alla = 0;
  if (siguienteId(alla)) return acabar(Suerte::Termina);
  if (!deUna_) deUna_ = std::make_unique<OperacionesCentral>(p_.poCnnCentral, true);
  if (deUna_->tomar(f, alla, datos)) {
    p_.registro.RegistrarErrorLog(QStringLiteral("No se pudo insertar la operacion de Codigo: ") + codigo);
    return acabar(Suerte::Callada);
  }
  if (p_.poCnnLocal.iniciar() || marcar(f)) return acabar(Suerte::Fallo);
  if (llevaDetalle(id)) {
    p_.poCnnCentral.deUnaPieza(false);
    (void)p_.poCnnCentral.ejecutar(kCabezaDetalleZ1 + DetalleZ1(f, f).tupla(p_.ses.psIdZ1, p_.ses.psCaja));
  }
  if (confirmarAmbas()) return acabar(Suerte::Fallo);
  return {Suerte::Hecha, codigo};
}

// The same rows in one transaction; what fails in it is taken row by row instead.
std::vector<FinFila> Envio::lote(const Filas& filas) {
  std::vector<bool> estaban;
  for (const auto& f : filas) estaban.push_back(cotejar_ && cotejo_.tomar(Cotejo::claveDeOperacion(f)));
  std::vector<FinFila> fines;
  const auto error = enviarLote(filas, fines, estaban);
  if (!error) return confirmarLote(fines);
  deshacerAmbas();
  for (size_t i = 0; i < filas.size(); ++i) {
    if (estaban[i]) cotejo_.devolver(Cotejo::claveDeOperacion(filas[i]));
  }
  return {};
}

// Whether the detail of this row is to be written here.
bool Envio::llevaDetalle(qint64 id) const {
  return cabecera_ &&
         std::none_of(conDetalle_.begin(), conDetalle_.end(), [id](const auto& r) { return r.tieneOperacion(id); });
}

Envio::Error Envio::enviarLote(const Filas& filas, std::vector<FinFila>& fines, const std::vector<bool>& estaban) {
  const ErrorBD deUnaEnUna{kErrorGeneral, 0, {}};
  if (auto e = p_.poCnnCentral.iniciar()) return e;
  p_.poCnnCentral.deUnaPieza(true);
  const auto posteados = contabilizados(filas);
  // A posted document is rare and has words of its own.
  if (!posteados) return deUnaEnUna;
  qint64 alla = 0;
  if (auto e = siguienteId(alla)) return e;
  if (!nuevas_) nuevas_ = std::make_unique<OperacionesCentral>(p_.poCnnCentral, false);
  nuevas_->dejar();
  DetallesZ1 detalles;
  for (size_t i = 0; i < filas.size(); ++i) {
    const Recordset::Fila& f = filas[i];
    if (estaban[i]) {
      fines.push_back({});
      continue;
    }
    if (!posteados->isEmpty() &&
        posteados->contains(claveDeDocumento(LimpiarNulo(f[u"cDocSerie"]), NumeroCentral(f[u"cDocCodigo"])))) {
      return deUnaEnUna;
    }
    const ClienteTarjeta suyo = cliente(LimpiarNulo(f[u"nTarjNumb"]), static_cast<int>(entero(f[u"IdLocal"])));
    if (auto e = nuevas_->tomar(f, alla++, {p_.ses.psCaja, suyo, u"0"_qs})) return e;
    if (llevaDetalle(entero(f[u"cOperID"]))) detalles.sumar(DetalleZ1(f, f));
    fines.push_back({Suerte::Hecha, codigoDe(f)});
  }
  if (auto e = nuevas_->terminar()) return e;
  if (auto e = InsertarTuplas(p_.poCnnCentral, kCabezaDetalleZ1, detalles.tuplas(p_.ses.psIdZ1, p_.ses.psCaja))) {
    return e;
  }
  if (auto e = p_.poCnnLocal.iniciar()) return e;
  for (const auto& f : filas) {
    if (auto e = marcar(f)) return e;
  }
  return {};
}

FinPasada Envio::operaciones() {
  // Unmarked rows of any range; marked ones of a pending range too, once there is something to compare.
  Sql cuales = u"cFlagSincronizacion = '0'"_sql;
  const Sql rangos = rangosPendientes(false, u"cOperID"_sql);
  if (cotejar_ && !rangos.vacia()) cuales = u"(cFlagSincronizacion = '0' OR "_sql + rangos + u")"_sql;
  return Recorrer(p_, pantalla_,
                  {.origen = p_.poCnnLocal,
                   .palabras = kPalabras,
                   .pagina =
                       [&](const Recordset::Fila* u) {
                         return FormatearSQL(
                             u" SELECT TOP $ * FROM Operacion WHERE cOperFlagAbierto = 0  AND cProdCode "
                             "<> 0  and coperid > $ and coperid <= $ AND $ ORDER BY cOperID"_sql,
                             {kFilasPorPagina, u ? entero((*u)[u"cOperID"]) : 0, fin_, cuales});
                       },
                   .fila = [this](const Recordset::Fila& f) { return operacion(f); },
                   .lote = [this](const Filas& filas) { return lote(filas); },
                   .filasPorLote = kFilasPorLote});
}
