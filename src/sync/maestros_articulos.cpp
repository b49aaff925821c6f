#include <utility>

#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sync/pasadas_maestros.h"
#include "sync/updt.h"

namespace {

constexpr LiteralSql kArticulo =
    u"A.cCodartic, A.vDscartic, A.cCodCatal, A.vDscartCt, A.bSwActivo, A.bswensamb, A.bswCtrlStck, P.vRazSocPrv, "
    "cFlagCanje, nPtosxItem, nFlagServ, cUndSalida, "
    "Linea = (SELECT L.vDscLinea FROM LINEA L WHERE L.CCODLINEA = A.CCODLINEA), "
    "nCostoArt = ISNULL((SELECT nPrecioVtaNew FROM ArticuloPrecioVenta B"
    " WHERE B.cCodArtic = A.cCodArtic AND nNumItem = "
    " (SELECT MAX(nNumItem) FROM ArticuloPrecioVenta C"
    " WHERE C.cCodArtic = B.cCodArtic)),0),bFlagDetracc "
    " FROM Articulo A LEFT JOIN Proveedor P ON A.cCodProve = P.cCodProve"_sql;
constexpr LiteralSql kEnVenta = u"   AND bFlagVenta = 1   AND NOT bFlagDesc = 1"_sql;

constexpr LiteralSql kNuevoArticulo =
    u" INSERT INTO PRODUCTO (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, vDescProv, "
    "cFlagCanje, nPuntos, cFlagServicio, cUndSalida, cCodCatalogo, sDescLinea,cFlagDetracc, nActivo)"
    " VALUES ('$', $, '$', '$', $, $, '$', $, $, $, '$', '$', '$', $, 1)"_sql;

// Bits of the server, whichever way its engine gives them.
int bit(const Recordset::Fila& f, QStringView campo) { return Numero(f[campo]) != 0 ? 1 : 0; }

}  // namespace

qint64 DeCifras(QByteArrayView t) {
  constexpr qsizetype kCifras = 15;
  if (t.isEmpty() || t.size() > kCifras) return -1;
  qint64 n = 0;
  for (const char c : t) {
    if (c < '0' || c > '9') return -1;
    n = n * 10 + (c - '0');
  }
  return n;
}

qint64 NumeroDeArticulo(const CeldaBD& codigo) {
  if (const qint64 n = DeCifras(codigo.texto); n >= 0) return n;
  const QString t = LimpiarNulo(codigo);
  return EsNumerico(t) ? AEntero(Val(t)) : -1;
}

Sql PasadasDeMaestros::filaArticulo(const Recordset::Fila& f) const {
  return FormatearSQL(kNuevoArticulo,
                      {Texto(p_.ses.psAlmacen), NumeroDeArticulo(f.celda(u"cCodartic")), TextoDeCampo(f, u"vDscartic"),
                       TextoDeCampo(f, u"vDscartCt"), NumeroDeCampo(f, u"nCostoArt"), 1 - bit(f, u"bSwActivo"),
                       TextoDeCampo(f, u"vRazSocPrv"), NumeroDeCampo(f, u"cFlagCanje"), NumeroDeCampo(f, u"nPtosxItem"),
                       bit(f, u"nFlagServ"), TextoDeCampo(f, u"cUndSalida"), TextoDeCampo(f, u"cCodCatal"),
                       TextoDeCampo(f, u"Linea"), bit(f, u"bFlagDetracc")});
}

Sql PasadasDeMaestros::cambioArticulo(const Recordset::Fila& f) const {
  return FormatearSQL(
      u" UPDATE PRODUCTO SET sProdDesc = '$', sProdDescCrta = '$', nProdPrecUnit = $, cProdEstd = $, vDescProv = '$', "
      "cFlagCanje = $, nPuntos = $, cFlagServicio = $, cUndSalida = '$', cCodCatalogo = '$', sDescLinea = '$', "
      "cFlagDetracc=$, nActivo = 1 WHERE cProdCode = $"_sql,
      {TextoDeCampo(f, u"vDscartic"), TextoDeCampo(f, u"vDscartCt"), NumeroDeCampo(f, u"nCostoArt"),
       1 - bit(f, u"bSwActivo"), TextoDeCampo(f, u"vRazSocPrv"), NumeroDeCampo(f, u"cFlagCanje"),
       NumeroDeCampo(f, u"nPtosxItem"), bit(f, u"nFlagServ"), TextoDeCampo(f, u"cUndSalida"),
       TextoDeCampo(f, u"cCodCatal"), TextoDeCampo(f, u"Linea"), bit(f, u"bFlagDetracc"),
       NumeroDeArticulo(f.celda(u"cCodartic"))});
}

bool PasadasDeMaestros::articuloExiste(qint64 codigo, bool& existe) {
  Recordset rs;
  if (!p_.poDBAdmin.EjecutarConsulta(
          p_.poCnnLocal, FormatearSQL(u" SELECT cProdCode   FROM producto   WHERE cProdCode = $"_sql, {codigo}), rs)) {
    return false;
  }
  existe = !rs.Eof();
  return true;
}

Maestro PasadasDeMaestros::maestroArticulos() {
  const auto codigo = [](const Recordset::Fila& f) { return LimpiarNulo(f.celda(u"cCodartic")); };
  const auto siEsNumero = [](const Recordset::Fila& f, const Sql& sql) {
    return NumeroDeArticulo(f.celda(u"cCodartic")) < 0 ? Sql() : sql;
  };
  return {
      .columnas = kArticulo,
      .orden = u"A.cCodartic"_sql,
      .inserta = {QStringLiteral("Se insertó Artículo de código: "),
                  QStringLiteral("No se pudo insertar Artículo de código: ")},
      .actualiza = {QStringLiteral("Se actualizó Artículo de código: "),
                    QStringLiteral("No se pudo actualizar Artículo de código: ")},
      .barra = 10,
      .detras = [](const auto& f) { return FormatearSQL(u"A.cCodartic > '$'"_sql, {TextoDeCampo(f, u"cCodartic")}); },
      .codigo = codigo,
      .clave = codigo,
      .insertar = [this, siEsNumero](const auto& f) { return siEsNumero(f, filaArticulo(f)); },
      .actualizar = [this, siEsNumero](const auto& f) { return siEsNumero(f, cambioArticulo(f)); },
      .plantilla = kNuevoArticulo,
      .campos = {{Lee::Fijo, {}, LimpiarNulo(p_.ses.psAlmacen)},
                 {Lee::Codigo, u"cCodartic"},
                 {Lee::Texto, u"vDscartic"},
                 {Lee::Texto, u"vDscartCt"},
                 {Lee::Precio, u"nCostoArt"},
                 {Lee::NoBit, u"bSwActivo"},
                 {Lee::Texto, u"vRazSocPrv"},
                 {Lee::Numero, u"cFlagCanje"},
                 {Lee::Numero, u"nPtosxItem"},
                 {Lee::Bit, u"nFlagServ"},
                 {Lee::Texto, u"cUndSalida"},
                 {Lee::Texto, u"cCodCatal"},
                 {Lee::Texto, u"Linea"},
                 {Lee::Bit, u"bFlagDetracc"},
                 {Lee::Fijo, {}, 1}}};
}

// What the store has already is skipped without a line, whatever warehouse it stands in.
FinPasada PasadasDeMaestros::articulosNuevos(const Maestro& m) {
  QSet<qint64> hay;
  bool leidos = false;
  const auto nuevo = [&](const Recordset::Fila& f) -> FinFila {
    const qint64 n = NumeroDeArticulo(f.celda(u"cCodartic"));
    bool existe = leidos && hay.contains(n);
    if (!leidos && n >= 0 && !articuloExiste(n, existe)) return {Suerte::Termina, {}, nullptr};
    return existe ? FinFila{} : nueva(m, f);
  };
  const auto enLote = loteDeNuevas(m, nuevo);
  const Sql desde =
      ConMarca(marca_,
               u" AND ((convert(datetime,convert(varchar,A.dFechCrea,103),103) >= convert(datetime,CONVERT(varchar, "
               "'$',103),103)) or (convert(datetime,convert(varchar,A.dFechModi,103),103) >= "
               "convert(datetime,CONVERT(varchar, '$',103),103)))"_sql,
               2);
  const Sql donde = u" WHERE 1=1 "_sql + kEnVenta + desde;
  return Recorrer(p_, pantalla_,
                  {.origen = p_.poCnnCentral,
                   .palabras = m.inserta,
                   .barra = m.barra,
                   .sePuedeDetener = true,
                   .pagina = [&](const Recordset::Fila* ultima) { return PaginaDeMaestro(m, donde, ultima); },
                   .entera = u" SELECT "_sql + m.columnas + donde,
                   .fila = nuevo,
                   .lote =
                       [&](const Filas& filas) {
                         Recordset rs;
                         if (!leidos && !p_.poCnnLocal.consultar(u"SELECT cProdCode FROM producto"_sql, rs)) {
                           for (const auto& f : rs) hay.insert(AEntero(Numero(f[0])));
                           leidos = true;
                         }
                         return enLote(filas);
                       },
                   .filasPorLote = kFilasPorPagina});
}

FinPasada PasadasDeMaestros::articulos(Surtido& surtido) {
  pantalla_.InsertaLinea(QStringLiteral("Sincronizando Articulos"));
  tomadas_.clear();
  Maestro m = maestroArticulos();
  bool creadas = true, cambiadas = true;
  if (!haySuyas(u"Articulo"_sql, true, creadas, cambiadas)) return FinPasada::Mal;
  FinPasada fin = FinPasada::Bien;
  if (creadas || cambiadas) fin = articulosNuevos(m);
  else pantalla_.AumentaBarra(m.barra);
  if (fin != FinPasada::Bien) return fin;
  const int barra = std::exchange(m.barra, 0);
  if (!marca_.isEmpty() && cambiadas) {
    fin =
        pasada(m,
               ConMarca(marca_,
                        u" WHERE convert(datetime,convert(varchar,A.dFechModi,103),103) >= convert(datetime,'$',103)"
                        " AND convert(datetime,convert(varchar,A.dFechCrea,103),103) <= convert(datetime,'$',103)"_sql,
                        2) +
                   kEnVenta,
               false);
  }
  if (fin == FinPasada::Bien && !CompararSurtido(p_, surtido)) fin = FinPasada::Mal;
  if (fin == FinPasada::Bien && !marca_.isEmpty()) fin = precios(m, surtido);
  if (fin == FinPasada::Bien) pantalla_.AumentaBarra(barra);
  return fin;
}

// A price may have moved without its article: an article whose price differs is taken as changed.
FinPasada PasadasDeMaestros::precios(const Maestro& m, const Surtido& surtido) {
  for (const Surtido::Precio& uno : surtido.precios) {
    if (tomadas_.contains(uno.codigo)) continue;
    if (pantalla_.detener()) return FinPasada::Detenida;
    const auto error = ejecutar(
        FormatearSQL(u" UPDATE PRODUCTO SET nProdPrecUnit = $ WHERE cProdCode = $"_sql, {uno.precio, uno.producto}));
    pantalla_.InsertaLinea((error ? m.actualiza.mal : m.actualiza.bien) + uno.codigo);
  }
  return FinPasada::Bien;
}
