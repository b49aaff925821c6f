#include <iterator>

#include "cashday/libro_x1_hojas.h"
#include "foundation/db_admin.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "store/codigos.h"

namespace {

constexpr int kColumnaTitulo = 4;

// Voided sales keep their rows, marked; the mirror that voids them has negative quantities.
constexpr LiteralSql kVentas =
    u"SELECT o.cOperTipo, p.sProdDescCrta, p.nProdPrecUnit, o.nProdCant, o.cDocSerie, o.cDocCodigo, o.cDocTipo,"
    " o.cOpercodeAnula, {valor} AS TotalMonto, o.cEmisor FROM Operacion o LEFT OUTER JOIN Producto p"
    " ON o.cProdCode = p.cProdCode AND o.cAlmaCode = p.cAlmaCode"
    " WHERE o.cDocTipo in ('01', '02') AND o.cProdCode <> 0 {f} AND $ (o.cOperFlagAnula = 1 AND o.nProdCant > 0)"
    " ORDER BY o.cOperID"_sql;
constexpr LiteralSql kParalelas =
    u"SELECT o.cEstado, o.cOperTipo, o.cDocSerie, o.cDocCodigo, o.cDocTipo, o.cOperCodeAnul, d.nProdCant AS sProdCant,"
    " d.nProdPrecUnit AS Precio, d.nDscto, p.sProdDescCrta AS producto FROM (OperacionParalela o"
    " INNER JOIN OperacionParalelaProducto d ON d.cOperCode = o.cOperCode) LEFT JOIN Producto p"
    " ON d.cProdCode = p.cProdCode AND d.cAlmaCode = p.cAlmaCode"
    " WHERE o.cDocCodigo <> 0 AND o.cOperTipo + 0 in ({OC}, {NC}, {LIQPAD}) {p} ORDER BY o.cOperCode"_sql;
constexpr LiteralSql kAdelantos =
    u"SELECT o.cDocSerie, o.cDocCodigo, o.cOperCodeAnul, o.cOperTipo, o.cEstado, o.nTarjNumb, o.sGlosa, o.nMontoSoles"
    " FROM OperacionParalela o WHERE $ ORDER BY o.cOperCode"_sql;
constexpr LiteralSql kVigentes = u"o.cOperTipo + 0 in ({PADE}, {PADV}) AND TRIM(o.cEstado) = '1' {p}"_sql;
constexpr LiteralSql kLiquidadosDia =
    u"o.cOperTipo + 0 in ($) AND TRIM(o.cEstado) = '2' {p} AND o.cOperCodeAnul = 0"_sql;
// Those of earlier days that a document of this period settled.
constexpr LiteralSql kLiquidadosAntes =
    u"o.cOperTipo + 0 in ($) AND o.cOperFlagAbierto + 0 = 0 AND TRIM(o.cEstado) = '2' AND o.cOperCodeAnul = 0"
    " AND o.cOperCodeRela in (SELECT x.cOperCode FROM (SELECT o.cOperCode FROM OperacionParalela o"
    " WHERE 1 = 1 {p}) x)"_sql;
constexpr LiteralSql kAnulados = u"o.cOperCodeAnul <> 0 AND NOT o.cOperTipo + 0 in ({OC}, {NC}, {LIQPAD}) {p}"_sql;

int entero(const QVariant& v) { return static_cast<int>(AEntero(Numero(v))); }

// The first of several words whose condition holds.
struct Rotulo {
  bool vale;
  const char16_t* texto;
};
QString elegir(std::initializer_list<Rotulo> rotulos) {
  for (const Rotulo& r : rotulos)
    if (r.vale) return QString::fromUtf16(r.texto);
  return {};
}

TipoOperacion tipoDe(const Recordset::Fila& f) { return static_cast<TipoOperacion>(entero(f[u"cOperTipo"])); }

QString rotuloVenta(const Recordset::Fila& f, bool anulada) {
  const TipoOperacion t = tipoDe(f);
  const bool conVoucher = t == TipoOperacion::Liquidado && !LimpiarNulo(f[u"cEmisor"]).isEmpty();
  const bool espejo = Numero(f[u"cOpercodeAnula"]) != 0 && t != TipoOperacion::Liquidado;
  // clang-format off
  return elegir({{!anulada && espejo, u"ANULACION"},
                 {t == TipoOperacion::Efectivo, anulada ? u"VTA EN EFECTIVO Anulada" : u"VTA EN EFECTIVO"},
                 {t == TipoOperacion::Voucher, anulada ? u"VOUCHER Anulada " : u"VOUCHER"},
                 {conVoucher, anulada ? u"LIQUIDACION con voucher Anulada" : u"LIQUIDACION con voucher "},
                 {t == TipoOperacion::Liquidado, anulada ? u"LIQUIDACION  Anulada" : u"LIQUIDACION  "},
                 {t == TipoOperacion::Retiro, anulada ? u"PAGO Anulado" : u"PAGO"},
                 {true, anulada ? u"OTROS Anulados" : u"OTROS"}});
}

QString rotuloParalela(const Recordset::Fila& f) {
  const TipoOperacion t = tipoDe(f);
  const QString estado = LimpiarNulo(f[u"cEstado"]);
  const bool oc = t == TipoOperacion::OC, nc = t == TipoOperacion::NC;
  return elegir({{Numero(f[u"cOperCodeAnul"]) != 0, u"ANULACION"},
                 {oc && estado == u"0", u"O/C ANULADA"}, {oc, u"ORDEN DE CONSUMO"},
                 {nc && estado == u"0", u"NC ANULADA"}, {nc && estado == u"1", u"NC SIN LIQUIDAR "},
                 {nc && estado == u"2", u"NC LIQUIDADAS"}, {nc, u"NOTA CONSUMO"},
                 {true, u"OTROS"}});
}

QString rotuloAdelanto(const Recordset::Fila& f) {
  const TipoOperacion t = tipoDe(f);
  const bool pade = t == TipoOperacion::PADE;
  return elegir({{Numero(f[u"cOperCodeAnul"]) != 0, u"ANULACION"},
                 {pade, u"PADE "}, {t == TipoOperacion::PADV, u"PADV "}, {true, u"OTROS"}});
}

QString rotuloAnulado(const Recordset::Fila& f) {
  const TipoOperacion t = tipoDe(f);
  return elegir({{t == TipoOperacion::PADE, u"PADE ANULADO"}, {t == TipoOperacion::PADV, u"PADV   ANULADO"},
                 {true, u"OTROS"}});
  // clang-format on
}

QString numero(const Recordset::Fila& f, int cifras) { return Ceros(TextoDe(Numero(f[u"cDocCodigo"])), cifras); }

void filaVenta(HojaX1& h, const Recordset::Fila& f, bool anulada) {
  h.poner(1, LimpiarNulo(f[u"cDocTipo"]) == u"01" ? QStringLiteral("FAC") : QStringLiteral("BOL"));
  h.poner(2, LimpiarNulo(f[u"cDocSerie"]));
  h.poner(3, numero(f, 8));
  h.poner(4, LimpiarNulo(f[u"sProdDescCrta"]));
  h.poner(5, NumeroCelda{Numero(f[u"nProdCant"])});
  h.poner(6, ImporteCelda(Numero(f[u"nProdPrecUnit"])));
  h.poner(7, ImporteCelda(Numero(f[u"TotalMonto"])));
  h.poner(8, rotuloVenta(f, anulada));
}

void filaParalela(HojaX1& h, const Recordset::Fila& f) {
  const bool anulada = LimpiarNulo(f[u"cEstado"]) == u"0";
  const double cantidad = anulada ? 0 : Numero(f[u"sProdCant"]), neto = anulada ? 0 : PrecioNeto(f);
  h.poner(1, LimpiarNulo(f[u"cDocTipo"]) == u"11" ? QStringLiteral("NC") : QString());
  h.poner(2, LimpiarNulo(f[u"cDocSerie"]));
  h.poner(3, numero(f, 7));
  h.poner(4, LimpiarNulo(f[u"producto"]));
  h.poner(5, NumeroCelda{cantidad});
  h.poner(6, ImporteCelda(neto));
  h.poner(7, ImporteCelda(cantidad * neto));
  h.poner(8, rotuloParalela(f));
}

void filaAdelanto(HojaX1& h, const Recordset::Fila& f, const QString& rotulo) {
  h.poner(2, LimpiarNulo(f[u"cDocSerie"]));
  h.poner(3, numero(f, 7));
  h.poner(4, LimpiarNulo(f[u"sGlosa"]));
  h.poner(5, LimpiarNulo(f[u"nTarjNumb"]));
  h.poner(6, ImporteCelda(Numero(f[u"nMontoSoles"])));
  h.poner(8, rotulo);
}

void filaAnulado(HojaX1& h, const Recordset::Fila& f) {
  filaAdelanto(h, f, rotuloAnulado(f));
  h.poner(3, numero(f, 8));
  h.poner(5, QString());
}

// One section: its rows, and the empty row behind them.
template <class Pintar>
void seccion(HojaX1& h, const QString& nombre, const Sql& consulta, Pintar pintar) {
  if (const auto rs = h.leer(ConCodigos(consulta), nombre, kColumnaTitulo)) {
    for (const auto& f : *rs) {
      pintar(f);
      h.bajar();
    }
  }
  h.bajar();
}

const QStringList kCabezas{QStringLiteral("Tipo Doc."), QStringLiteral("Serie"),    QStringLiteral("Número"),
                           QStringLiteral("Articulo"),  QStringLiteral("Cantidad"), QStringLiteral("Precio Unit."),
                           QStringLiteral("Sub-Total"), QStringLiteral("Operación")};

void conCabezas(HojaX1& h, const QString& titulo) {
  h.poner(kColumnaTitulo, titulo);
  h.bajar();
  h.rotulos(kCabezas);
}

void seccionAdelantos(HojaX1& h) {
  bool cabeza = true;
  seccion(h, QStringLiteral("Pagos adelantados"), FormatearSQL(kAdelantos, {kVigentes}), [&](const auto& f) {
    if (std::exchange(cabeza, false)) {
      h.poner(2, LimpiarNulo(f[u"cDocSerie"]));
      h.poner(3, numero(f, 7));
      h.poner(4, QStringLiteral("Glosa"));
      h.poner(5, QStringLiteral("Tarjeta"));
      h.poner(6, QStringLiteral("Importe"));
      h.bajar();
    }
    filaAdelanto(h, f, rotuloAdelanto(f));
  });
}

void seccionLiquidados(HojaX1& h, TipoOperacion tipo, const Sql& condicion, const QString& rotulo) {
  const Sql deTipo = FormatearSQL(condicion, {Codigo(tipo)});
  seccion(h, rotulo, FormatearSQL(kAdelantos, {deTipo}), [&](const auto& f) { filaAdelanto(h, f, rotulo); });
}

}  // namespace

void DetallarX1(HojaX1& h) {
  const auto ventas = [&h](const QString& nombre, bool anuladas) {
    seccion(h, nombre, FormatearSQL(kVentas, {anuladas ? Sql() : Sql(u"NOT"_sql)}),
            [&](const auto& f) { filaVenta(h, f, anuladas); });
  };
  conCabezas(h, QStringLiteral("Operaciones de Venta "));
  ventas(QStringLiteral("Operaciones de Venta"), false);
  conCabezas(h, QStringLiteral("Operaciones Paralelas "));
  seccion(h, QStringLiteral("Operaciones Paralelas"), kParalelas, [&](const auto& f) { filaParalela(h, f); });
  seccionAdelantos(h);
  seccionLiquidados(h, TipoOperacion::PADE, kLiquidadosDia, QStringLiteral("PADE LIQ Dia"));
  seccionLiquidados(h, TipoOperacion::PADE, kLiquidadosAntes, QStringLiteral("PADE LIQ Dias anteriores"));
  seccionLiquidados(h, TipoOperacion::PADV, kLiquidadosDia, QStringLiteral("PADV LIQ Dia"));
  seccionLiquidados(h, TipoOperacion::PADV, kLiquidadosAntes, QStringLiteral("PADV LIQ Dias anteriores"));
  ventas(QStringLiteral("Ventas anuladas"), true);
  seccion(h, QStringLiteral("Pagos adelantados anulados"), FormatearSQL(kAdelantos, {kAnulados}),
          [&](const auto& f) { filaAnulado(h, f); });
}
