#include "sync/fila_central.h"

#include <algorithm>
#include <cmath>

#include "foundation/db_admin.h"
#include "platform/sql/va_entera.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sync/maestros.h"

const LiteralSql kCabezaOperacion =
    u" INSERT INTO Operacion (cOperID, cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, "
    "nProdPrecUnit, dOperFech, cOperTipo, cOperFlagAnula, cOperCodeAnula, cOperFlagAbierto, nMontoDolares, cCajacodi, "
    "cFlagSincronizacion, cTurnoCodi, nDscto, nServicio, cCodiCLie, vDescClie, cDocCodigo, cdocserie, cdoctipo, cruc, "
    "iTipoCliente, idlocal) VALUES "_sql;
const LiteralSql kCabezaParalela =
    u" INSERT INTO OperacionParalela (cCajaCodi, cOpercode , cOperTipo, dOperFech, nTarjNumb, nMoneda, nMontoSoles, "
    "nMontoDolares, nEfectivoSoles, nVueltoSoles, sGlosa, cEstado, cFlagSincronizacion, cTurnoCodi, cUserDesc, "
    "cOperCodeRela, cOperCodeAnul, cCodiCLie, vDescClie, iTipocliente, cdoccodigo, cdocserie, cdoctipo) VALUES "_sql;
const LiteralSql kCabezaLineaParalela =
    u" INSERT INTO OperacionParalelaProducto (cCajaCodi, cOpercode , cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, "
    "nDscto, nServicio, nitem, cSupervisor) VALUES "_sql;
const LiteralSql kCabezaDetalleZ1 =
    u"INSERT INTO TDETALLEZ1(nidZ1,cCajaCodi,dOperFech,cAlmaCode,cdocTipo,cProdCode,nProdCant,nMonto) VALUES "_sql;

namespace {

const LiteralSql kTuplaOperacion =
    u"($, $, '$', '$', '$', '$', $, $, CONVERT(DATETIME,'$',120), $, $, $, $, $, '$', '$', '$', $, $, '$', '$', '$', "
    "'$', '$', '$', $, $)"_sql;

// How a field of the store becomes one of the centre. `Dado` does not come from the row.
enum class Forma { Texto, Entero, EnteroONulo, Numero, Articulo, Documento, Momento, Dado };
struct Campo {
  Forma forma;
  QStringView nombre = {};
};
// One for each place of kTuplaOperacion.
constexpr Campo kOperacion[] = {{Forma::Dado},
                                {Forma::Entero, u"cOperCode"},
                                {Forma::Texto, u"cUserDesc"},
                                {Forma::Texto, u"nTarjNumb"},
                                {Forma::Texto, u"cAlmaCode"},
                                {Forma::Articulo, u"cProdCode"},
                                {Forma::Numero, u"nProdCant"},
                                {Forma::Numero, u"nProdPrecUnit"},
                                {Forma::Momento, u"dOperFech"},
                                {Forma::Entero, u"cOperTipo"},
                                {Forma::Entero, u"cOperFlagAnula"},
                                {Forma::Entero, u"cOperCodeAnula"},
                                {Forma::Entero, u"cOperFlagAbierto"},
                                {Forma::Numero, u"nMontoDolares"},
                                {Forma::Dado},
                                {Forma::Dado},
                                {Forma::Texto, u"cTurnoCodi"},
                                {Forma::Numero, u"nDscto"},
                                {Forma::Numero, u"nServicio"},
                                {Forma::Dado},
                                {Forma::Dado},
                                {Forma::Documento, u"cDocCodigo"},
                                {Forma::Texto, u"cDocSerie"},
                                {Forma::Texto, u"cDocTipo"},
                                {Forma::Texto, u"cRuc"},
                                {Forma::Dado},
                                {Forma::EnteroONulo, u"IdLocal"}};
constexpr size_t kCampos = std::size(kOperacion);

Texto texto(const Recordset::Fila& f, QStringView campo) { return Texto(LimpiarNulo(f[campo])); }
double numero(const Recordset::Fila& f, QStringView campo) { return Numero(f[campo]); }
qint64 entero(const Recordset::Fila& f, QStringView campo) { return AEntero(Numero(f[campo])); }
Texto articulo(const Recordset::Fila& f) { return Texto(CodigoCentral(entero(f, u"cProdCode"))); }

// The value that its text in a statement would give.
double comoLiteral(double n) {
  constexpr double kPartes = 1e4, kLlano = 1e11;  // four decimals come back from their text as they were
  if (std::fabs(n) < kLlano && std::round(n * kPartes) / kPartes == n) return n;
  return TextoDe(n).toDouble();
}

QVariant celda(Forma forma, const QVariant& v) {
  switch (forma) {
    case Forma::Texto: return LimpiarNulo(v);
    case Forma::Entero: return AEntero(Numero(v));
    case Forma::EnteroONulo: return v.isNull() ? QVariant() : QVariant(AEntero(Numero(v)));
    case Forma::Numero: return comoLiteral(Numero(v));
    case Forma::Articulo: return CodigoCentral(AEntero(Numero(v)));
    case Forma::Documento: return NumeroCentral(v);
    case Forma::Momento: return v.isNull() ? QVariant() : QVariant(FechaISO(v.toDateTime()));
    case Forma::Dado: break;
  }
  return {};
}

// The fields of a row in the order of its tuple; `leer` gives the row's own by their place.
template <class Leer>
std::vector<QVariant> celdasDe(qint64 id, const DatosFilaCentral& d, Leer leer) {
  const QVariant dados[] = {id, d.caja, d.bandera, d.cliente.codigo, d.cliente.nombre, qint64(d.cliente.tipo)};
  size_t dado = 0;
  std::vector<QVariant> celdas;
  celdas.reserve(kCampos);
  for (size_t i = 0; i < kCampos; ++i) {
    const Forma forma = kOperacion[i].forma;
    celdas.push_back(forma == Forma::Dado ? dados[dado++] : celda(forma, leer(i)));
  }
  return celdas;
}

Valor valorDeCelda(const QVariant& v) {
  switch (v.typeId()) {
    case QMetaType::UnknownType: return {};
    case QMetaType::LongLong: return v.toLongLong();
    case QMetaType::Double: return v.toDouble();
    default: return Texto(v.toString());
  }
}

Sql tuplaDe(const std::vector<QVariant>& celdas) {
  std::vector<Valor> valores;
  valores.reserve(celdas.size());
  for (const QVariant& v : celdas) valores.push_back(valorDeCelda(v));
  return FormatearSQL(kTuplaOperacion, valores);
}

// Rows whose every place has a value of its kind.
Sql muestra(int filas) {
  std::vector<QVariant> celdas;
  for (const Campo& c : kOperacion) {
    const bool esNumero = c.forma == Forma::Entero || c.forma == Forma::EnteroONulo || c.forma == Forma::Dado;
    celdas.push_back(esNumero                    ? QVariant(qint64(1))
                     : c.forma == Forma::Numero  ? QVariant(1.5)
                     : c.forma == Forma::Momento ? QVariant(QStringLiteral("2026-01-02 03:04:05"))
                                                 : QVariant(QStringLiteral("a")));
  }
  return kCabezaOperacion + UnirSql(std::vector<Sql>(static_cast<size_t>(filas), tuplaDe(celdas)), u", "_sql);
}

bool esLlana(const QVariant& v) {
  return v.typeId() != QMetaType::QString || VaEntera(*static_cast<const QString*>(v.constData()));
}

}  // namespace

QString NumeroCentral(const QVariant& cDocCodigo) { return CodigoCentral(AEntero(Numero(cDocCodigo))); }

Sql MomentoCentral(const QVariant& momento) {
  return FormatearSQL(u"CONVERT(DATETIME,'$',120)"_sql,
                      {momento.isNull() ? Valor() : Texto(FechaISO(momento.toDateTime()))});
}

Sql TuplaOperacion(const Recordset::Fila& f, qint64 id, const DatosFilaCentral& d) {
  return tuplaDe(celdasDe(id, d, [&f](size_t i) { return f[kOperacion[i].nombre]; }));
}

Sql TuplaParalela(const Recordset::Fila& f, const DatosFilaCentral& d) {
  const QString tipo = LimpiarNulo(f[u"cDocTipo"]);
  return FormatearSQL(
      u"('$', $, $, $, '$', $, $, $, $, $, '$', '$', '$', '$', '$', $, $, '$', '$', $, '$', '$', '$')"_sql,
      {Texto(d.caja),
       entero(f, u"cOperCode"),
       entero(f, u"cOperTipo"),
       MomentoCentral(f[u"dOperFech"]),
       texto(f, u"nTarjNumb"),
       entero(f, u"nMoneda"),
       numero(f, u"nMontoSoles"),
       numero(f, u"nMontoDolares"),
       numero(f, u"nEfectivoSoles"),
       numero(f, u"nVueltoSoles"),
       texto(f, u"sGlosa"),
       texto(f, u"cEstado"),
       Texto(d.bandera),
       texto(f, u"cTurnoCodi"),
       texto(f, u"cUserDesc"),
       entero(f, u"cOperCodeRela"),
       entero(f, u"cOperCodeAnul"),
       Texto(d.cliente.codigo),
       Texto(d.cliente.nombre),
       d.cliente.tipo,
       Texto(NumeroCentral(f[u"cDocCodigo"])),
       texto(f, u"cDocSerie"),
       Texto(tipo.isEmpty() ? QStringLiteral("0") : tipo)});
}

// `nItem` is a column of the central copy alone; a store that has none gives 0.
Sql TuplaLineaParalela(const Recordset::Fila& f, const QString& caja) {
  return FormatearSQL(u"('$', $, '$', '$', $, $, $, $, $, '$')"_sql,
                      {Texto(caja), entero(f, u"cOperCode"), texto(f, u"cAlmaCode"), articulo(f),
                       numero(f, u"nProdCant"), numero(f, u"nProdPrecUnit"), numero(f, u"nDscto"),
                       numero(f, u"nServicio"), entero(f, u"nItem"), texto(f, u"cSupervisor")});
}

DetalleZ1::DetalleZ1(const Recordset::Fila& linea, const Recordset::Fila& documento)
    : momento(documento[u"dOperFech"].toDateTime()),
      almacen(LimpiarNulo(linea[u"cAlmaCode"])),
      tipo(LimpiarNulo(documento[u"cDocTipo"])),
      articulo(entero(linea, u"cProdCode")),
      cantidad(numero(linea, u"nProdCant")) {
  const double bruto = cantidad * numero(linea, u"nProdPrecUnit");
  monto = bruto + bruto * numero(linea, u"nDscto") / 100;
}

Sql DetalleZ1::tupla(const QString& idZ1, const QString& caja) const {
  return FormatearSQL(u"($,'$',$,'$','$','$',$,$)"_sql,
                      {Cifras(idZ1), Texto(caja), MomentoCentral(momento.isValid() ? QVariant(momento) : QVariant()),
                       Texto(almacen), Texto(tipo), Texto(CodigoCentral(articulo)), cantidad, monto});
}

void DetallesZ1::sumar(const DetalleZ1& d) {
  constexpr double kPartes = 1e6;
  const double monto = std::round(d.monto * kPartes) / kPartes;
  const Clave clave{{d.articulo, d.momento.date().toJulianDay()}, {d.tipo, d.almacen}};
  const auto i = cual_.constFind(clave);
  if (i == cual_.constEnd()) {
    cual_.insert(clave, filas_.size());
    filas_.push_back(d);
    filas_.back().monto = monto;
    return;
  }
  filas_[*i].cantidad += d.cantidad;
  filas_[*i].monto += monto;
}

std::vector<Sql> DetallesZ1::tuplas(const QString& idZ1, const QString& caja) const {
  std::vector<Sql> todas;
  for (const DetalleZ1& d : filas_) todas.push_back(d.tupla(idZ1, caja));
  return todas;
}

std::optional<ErrorBD> InsertarTuplas(Conexion& central, LiteralSql cabeza, const std::vector<Sql>& tuplas) {
  constexpr size_t kPorSentencia = 20;
  for (size_t i = 0; i < tuplas.size(); i += kPorSentencia) {
    const std::vector<Sql> unas(
        tuplas.begin() + static_cast<std::ptrdiff_t>(i),
        tuplas.begin() + static_cast<std::ptrdiff_t>(std::min(i + kPorSentencia, tuplas.size())));
    if (auto e = central.ejecutar(cabeza + UnirSql(unas, u", "_sql))) return e;
  }
  return {};
}

OperacionesCentral::OperacionesCentral(Conexion& central, bool deUnaEnUna)
    : central_(central),
      deUnaEnUna_(deUnaEnUna),
      porVez_(deUnaEnUna ? 1 : central.filasPorSentencia()),
      sentencia_(central.repetir(muestra(porVez_))) {}

std::optional<ErrorBD> OperacionesCentral::tomar(const Recordset::Fila& f, qint64 id, const DatosFilaCentral& d) {
  if (columnas_.empty()) {
    for (const Campo& c : kOperacion) columnas_.push_back(c.nombre.isEmpty() ? -1 : f.columna(c.nombre));
  }
  auto celdas = celdasDe(id, d, [&](size_t i) { return f[columnas_[i]]; });
  if (!sentencia_ || !std::all_of(celdas.begin(), celdas.end(), esLlana)) {
    if (deUnaEnUna_) return central_.ejecutar(kCabezaOperacion + tuplaDe(celdas));
    tuplas_.push_back(tuplaDe(celdas));
    return {};
  }
  pendientes_.push_back(std::move(celdas));
  return pendientes_.size() < static_cast<size_t>(porVez_) ? std::nullopt : correr();
}

std::optional<ErrorBD> OperacionesCentral::correr() {
  valores_.clear();
  textos_.clear();
  for (const auto& fila : std::exchange(pendientes_, {})) {
    for (const QVariant& v : fila) {
      switch (v.typeId()) {
        case QMetaType::UnknownType: valores_.emplace_back(); break;
        case QMetaType::LongLong: valores_.emplace_back(v.toLongLong()); break;
        case QMetaType::Double: valores_.emplace_back(v.toDouble()); break;
        default: valores_.emplace_back(QByteArrayView(textos_.emplace_back(v.toString().toUtf8())));
      }
    }
  }
  return sentencia_->correr(valores_);
}

std::optional<ErrorBD> OperacionesCentral::terminar() {
  for (const auto& fila : std::exchange(pendientes_, {})) tuplas_.push_back(tuplaDe(fila));
  return InsertarTuplas(central_, kCabezaOperacion, std::exchange(tuplas_, {}));
}

void OperacionesCentral::dejar() {
  pendientes_.clear();
  tuplas_.clear();
}
