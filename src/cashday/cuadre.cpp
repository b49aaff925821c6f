#include "cashday/cuadre.h"

#include <cmath>
#include <optional>

#include "cashday/pantallas_principal.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "store/codigos.h"

namespace {

const QString kMascara = QStringLiteral("###,###,###,##0.00");
const QString kMascaraApertura = QStringLiteral("###,###,###,###,##0.00");
const QString kMascaraProducto = QStringLiteral("###,###,###,###0");

// The columns of the product list.
enum Columna { kCodigo, kCatalogo, kProducto, kIngreso, kInicial, kSalidas, kFinal, kFaltSob, kColumnas };

// The open operations; what each figure adds up over them, and the rows that it takes.
constexpr LiteralSql kAbiertas = u" FROM Operacion WHERE cOperFlagAbierto = 1 "_sql;

constexpr LiteralSql kPrecio = u" SELECT SUM(nProdPrecUnit) AS TOTAL"_sql;
constexpr LiteralSql kValor =
    u" SELECT SUM((nProdPrecUnit * nProdCant) +  ((nProdPrecUnit * nProdCant) * nDscto/100)) AS TOTAL"_sql;
constexpr LiteralSql kSolesConVuelto = u"SELECT SUM(nmontosoles +  nprodprecunit ) as TOTAL"_sql;
constexpr LiteralSql kSoles = u" SELECT SUM(nMontosoles) AS TOTAL"_sql;
constexpr LiteralSql kDolares = u" SELECT SUM(nMontoDolares - nVueltoDolares) AS TOTAL"_sql;

constexpr LiteralSql kPagos = u" AND cOperTipo = 5  AND cOperFlagAnula = 0 "_sql;
constexpr LiteralSql kVoucher = u" AND cOperTipo = 2 AND cOperFlagAnula = 0  AND cOpercodeAnula=0 "_sql;
constexpr LiteralSql kLiquidacion = u" AND cOperTipo = 2 and cDocTipo={dLIQPAD}  AND cOperFlagAnula = 0"_sql;
constexpr LiteralSql kConTarjeta = u" AND cOperTipo = 1 AND TRIM(cEmisor) <> ''  AND cOperFlagAnula = 0 "_sql;
// The tender rows of each side.
constexpr LiteralSql kRecibos = u" AND cOperTipo in (1, 3)  AND cDoctipo in ('01','02')  AND cOperFlaganula= 0 "_sql;
constexpr LiteralSql kRecibosZ1 =
    u" AND cOperTipo in (1)  AND cDoctipo in ('01','02', {dLIQPAD}, {dOC})  AND cOperFlaganula= 0 "_sql;
constexpr LiteralSql kSinArticulo = u" AND cProdCode = 0 "_sql;

bool consultar(Puesto& p, const Sql& sql, Recordset& rs) {
  return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, ConCodigos(sql), rs);
}

// A sum over open operations; nothing when there is nothing to add. False when the query failed.
bool sumar(Puesto& p, LiteralSql que, const Sql& cuales, std::optional<double>& total) {
  Recordset rs;
  if (!consultar(p, que + kAbiertas + cuales, rs)) return false;
  const QVariant v = rs[u"TOTAL"];
  total = v.isNull() ? std::nullopt : std::optional(Numero(v));
  return true;
}

QString mascara(double valor) { return Formatear(valor, kMascara); }
QString mascara(const std::optional<double>& total, const char* sinNada) {
  return total ? mascara(*total) : QString::fromLatin1(sinNada);
}

bool leerPagos(Puesto& p, LadoCuadre& c) {
  std::optional<double> total;
  if (!sumar(p, kPrecio, kPagos, total)) return false;
  c.txtPagos = mascara(total, "0.00");
  return true;
}

// The opening float, and what follows from it: the drawer, and nothing counted yet.
bool cerrarLado(Puesto& p, LadoCuadre& c) {
  Recordset rs;
  if (!consultar(p, u" SELECT  nImporApertSol, nImporApertDol  FROM Configuracion "_sql, rs)) return false;
  c.txtapersoles = Formatear(Numero(rs[u"nImporApertSol"]), kMascaraApertura);
  c.txtaperdolares = Formatear(Numero(rs[u"nImporApertDol"]), kMascaraApertura);
  c.txtCashDRW = mascara(LeerImporte(c.txtCash) + LeerImporte(c.txtapersoles) - LeerImporte(c.txtPagos));
  c.txtCashDRWDolares = mascara(LeerImporte(c.txtCashDolares) + LeerImporte(c.txtaperdolares));
  c.txtCaja = c.txtCajaDolares = mascara(0);
  c.txtFALTSOB = c.txtCashDRW;
  c.txtFALTSOBDolares = c.txtCashDRWDolares;
  return true;
}

// Soles and dollars of advance payments.
struct Adelantos {
  double soles = 0, dolares = 0;
};

// The active ones of a kind, their cash received. The payment of a billing document has its amount in both currencies.
bool adelantosActivos(Puesto& p, TipoOperacion tipo, Adelantos& suma) {
  Recordset rs;
  if (!consultar(
          p,
          FormatearSQL(u" SELECT Sum(IIF(sGlosa = '$' AND nMoneda = 2, 0, nEfectivosoles)) as PADS,"
                       " Sum(IIF(sGlosa = '$' AND nMoneda = 1, 0, nEfectivoDolares)) as PADD FROM "
                       "OperacionParalela  WHERE cOperTipo in ($) and cOperFlagAbierto=1 and cEstado in ('1') and "
                       "cOpercodeAnul=0"_sql,
                       {Texto(kGlosaPago), Texto(kGlosaPago), Codigo(tipo)}),
          rs))
    return false;
  suma = {Numero(rs[u"PADS"]), Numero(rs[u"PADD"])};
  return true;
}

// The liquidated ones, each in the currency that it was paid in.
bool adelantosLiquidados(Puesto& p, TipoOperacion tipo, Adelantos& suma) {
  Recordset rs;
  if (!consultar(
          p,
          FormatearSQL(u" SELECT nEfectivosoles as padliqs, nEfectivoDolares as padliqd, nMoneda FROM "
                       "OperacionParalela  WHERE cOperTipo in ($) and cOperFlagAbierto=1 and cEstado in ('2') and "
                       "cOperCodeAnul=0 "_sql,
                       {Codigo(tipo)}),
          rs))
    return false;
  for (const auto& fila : rs) {
    if (Numero(fila[u"nMoneda"]) == 2) suma.dolares += Numero(fila[u"padliqd"]);
    else suma.soles += Numero(fila[u"padliqs"]);
  }
  return true;
}

// Sales, and active orders and consumption notes, of the open day.
constexpr LiteralSql kProductos =
    u"SELECT cProdcode, sum(cantidad) as Cant ,  max(catalogo) as Catal, max(descripcion) as Descrip  FROM  "
    "( SELECT 1, CProdCode,  sum(cant) as Cantidad , max(catal) as Catalogo, max(Descrip) as Descripcion FROM "
    "(SELECT  d.cProdCode,  sum( d.nProdCant) as cant ,  max(p.cCodcatalogo)  as catal, max( p.sProdDesc)  as Descrip "
    "FROM  Operacion d, Producto p WHERE d.cProdcode = p.cProdcode And d.cAlmaCode = p.cAlmaCode And d.cProdcode <> 0 "
    "And d.cOperflagabierto = 1 And d.cOperFlaganula = 0 GROUP BY d.cProdCode  ) GROUP BY CPRODCODE  UNION  "
    "SELECT 2, d.cProdCode,  sum( d.nProdCant) as cantidad ,  max(p.cCodcatalogo)  as catalogo, max( p.sProdDesc)  as "
    "Descripcion FROM  OperacionParalelaProducto  d, OperacionParalela o,   Producto  p WHERE d.cOpercode = "
    "o.cOpercode AND d.cProdCode = p.cProdCode AND d.cAlmaCode = p.cAlmaCode AND d.cProdcode <> 0 AND "
    "o.cOperFlagAbierto = 1 AND o.cOperCodeanul = 0 AND o.cEstado= '1' AND o.cOpertipo in ({OC}, {NC}) GROUP BY "
    "d.cProdCode   ) GROUP BY  cProdcode  order by 3"_sql;

// A blank count is 0.
bool esCuenta(const QString& texto) { return EsNumerico(texto) || Recortar(texto).isEmpty(); }

QString mascaraProducto(double valor) { return Formatear(valor, kMascaraProducto); }

}  // namespace

void Inicio(Puesto& p, Cuadre& v, int modo) {
  v.deCierre = modo == kCuadreCierre;
  v.lvwProductos.clear();
  Recordset rs;
  if (!consultar(p, kProductos, rs)) return;
  for (const auto& fila : rs) {
    const double salidas = Numero(fila[u"Cant"]);
    QStringList c(kColumnas, QStringLiteral("0"));
    c[kCodigo] = LimpiarNulo(fila[u"cProdcode"]);
    c[kCatalogo] = LimpiarNulo(fila[u"Catal"]);
    c[kProducto] = LimpiarNulo(fila[u"Descrip"]);
    c[kSalidas] = mascaraProducto(salidas);
    c[kFinal] = mascaraProducto(-salidas);
    v.lvwProductos.push_back(c);
  }
}

void CargarCuadre(Puesto& p, Cuadre& v) {
  // A side that failed shows what it has; its box has told why.
  (void)CuadreCaja(p, v.lado[kLadoZ]);
  (void)CuadreCajaZ1(p, v.lado[kLadoZ1]);
  CuadreCajaTotal(v);
}

bool CuadreCaja(Puesto& p, LadoCuadre& c) {
  std::optional<double> total, descuento;
  if (!leerPagos(p, c)) return false;
  if (!sumar(p, kSoles, kConTarjeta, descuento)) return false;
  if (!sumar(p, kValor, kVoucher, total)) return false;
  c.txtVoucher = total ? mascara(*total - descuento.value_or(0)) : QStringLiteral("0.00");
  if (!sumar(p, kSolesConVuelto, kLiquidacion, total)) return false;
  c.txtVoucher = mascara(LeerImporte(c.txtVoucher) + total.value_or(0));
  if (!sumar(p, kDolares, kRecibos, total)) return false;
  c.txtCashDolares = mascara(total, "0");
  if (!sumar(p, kSolesConVuelto, kRecibos + kSinArticulo, total)) return false;
  c.txtCash = mascara(total, "0");
  return cerrarLado(p, c);
}

bool CuadreCajaZ1(Puesto& p, LadoCuadre& c) {
  std::optional<double> voucher, liquidacion, dolares, soles, descuento;
  if (!leerPagos(p, c) || !sumar(p, kValor, kVoucher, voucher) || !sumar(p, kSolesConVuelto, kLiquidacion, liquidacion))
    return false;
  c.txtVoucher = mascara(voucher.value_or(0) + liquidacion.value_or(0));
  Adelantos pade, padeLiq, padv, padvLiq;
  if (!sumar(p, kDolares, kRecibosZ1, dolares) || !sumar(p, kSolesConVuelto, kRecibosZ1 + kSinArticulo, soles) ||
      !adelantosActivos(p, TipoOperacion::PADE, pade) || !adelantosLiquidados(p, TipoOperacion::PADE, padeLiq) ||
      !adelantosActivos(p, TipoOperacion::PADV, padv) || !adelantosLiquidados(p, TipoOperacion::PADV, padvLiq) ||
      !sumar(p, kSolesConVuelto, kConTarjeta, descuento)) {
    return false;
  }
  c.txtVoucher = mascara(LeerImporte(c.txtVoucher) + padv.soles + padvLiq.soles - descuento.value_or(0));
  c.txtVoucherDolares = mascara(LeerImporte(c.txtVoucherDolares) + padv.dolares + padvLiq.dolares);
  c.txtCash = mascara(soles.value_or(0) + pade.soles + padeLiq.soles);
  c.txtCashDolares = mascara(dolares.value_or(0) + pade.dolares + padeLiq.dolares);
  return cerrarLado(p, c);
}

void CuadreCajaTotal(Cuadre& v) {
  const auto numero = [](const QString& texto) { return Val(Formatear(LeerImporte(texto), u"###########0.00")); };
  const auto diferencia = [&](const QString& debe, const QString& contado) {
    return esCuenta(contado) ? mascara(numero(debe) - numero(contado)) : QString();
  };
  for (LadoCuadre& c : v.lado) {
    c.txtFALTSOB = diferencia(c.txtCashDRW, c.txtCaja);
    c.txtFALTSOBDolares = diferencia(c.txtCashDRWDolares, c.txtCajaDolares);
  }
}

QString DejarCaja(Cuadre& v) {
  // clang-format off
  const struct { const char* nombre; QString LadoCuadre::*texto; } campos[] = {
      {"txtCaja", &LadoCuadre::txtCaja}, {"txtCajaDolares", &LadoCuadre::txtCajaDolares}};
  QString mal;
  for (size_t n = 0; n < v.lado.size(); ++n) {
    for (const auto& campo : campos) {
      QString& texto = v.lado[n].*campo.texto;
      if (esCuenta(texto)) texto = mascara(LeerImporte(texto));
      else if (mal.isEmpty()) mal = QStringLiteral("%1(%2)").arg(QLatin1String(campo.nombre)).arg(n);
    }
  }
  // clang-format on
  CuadreCajaTotal(v);
  return mal;
}

bool AceptarDiferencia(Puesto& p, const Cuadre& v) {
  constexpr double kTolerada = 10;
  const std::pair<size_t, QString> lados[] = {{kLadoZ1, QStringLiteral("CUADRE CAJA Z1")},
                                              {kLadoZ, QStringLiteral("CUADRE CAJA")}};
  QString texto;
  for (const auto& [n, nombre] : lados) {
    const double falta = LeerImporte(v.lado[n].txtFALTSOB);
    if (std::fabs(falta) <= kTolerada) continue;
    texto += nombre + (falta > 0 ? QStringLiteral(": faltan S/. ") : QStringLiteral(": sobran S/. ")) +
             mascara(std::fabs(falta)) + u'\n';
  }
  if (texto.isEmpty()) return true;
  return p.mensajes.preguntar(QStringLiteral("La caja no cuadra.\n") + texto + QStringLiteral("¿Cerrar la caja así?"),
                              QStringLiteral("Cuadre del Día"));
}

void TomarProducto(Cuadre& v, int fila) {
  v.producto = {};
  if (fila < 0 || fila >= static_cast<int>(v.lvwProductos.size())) return;
  const QStringList& c = v.lvwProductos[static_cast<size_t>(fila)];
  v.producto = {.txtProductosNombre = c[kProducto],
                .txtProductosID = c[kIngreso],
                .txtProductosII = c[kInicial],
                .txtProductosT = c[kSalidas],
                .txtProductosIF = c[kFinal],
                .txtProductosFS = c[kFaltSob]};
}

void CuadreProductosTotal(Cuadre& v) {
  ProductoCuadre& q = v.producto;
  q.txtProductosFS = mascaraProducto(LeerImporte(q.txtProductosID) + LeerImporte(q.txtProductosII) -
                                     LeerImporte(q.txtProductosT) - LeerImporte(q.txtProductosIF));
}

void DevolverProducto(Cuadre& v, int fila) {
  if (fila < 0 || fila >= static_cast<int>(v.lvwProductos.size())) return;
  CuadreProductosTotal(v);
  ProductoCuadre& q = v.producto;
  QStringList& c = v.lvwProductos[static_cast<size_t>(fila)];
  for (QString* texto : {&q.txtProductosID, &q.txtProductosII, &q.txtProductosIF}) {
    *texto = mascaraProducto(LeerImporte(*texto));
  }
  c[kIngreso] = q.txtProductosID;
  c[kInicial] = q.txtProductosII;
  c[kFinal] = q.txtProductosIF;
  c[kFaltSob] = q.txtProductosFS;
}
