#include "sale/busqueda.h"

#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr QStringView kImporte = u"0.00";

// The parts of a statement that reads one kind: rows and their count come from the same tables and conditions.
struct Consulta {
  QString columnas, desde, orden;
};

bool deClientes(const Busqueda& b) { return b.tipo == TipoBusqueda::Cliente; }

QString fechaCorta(const QVariant& v) { return FormatearFecha(v.toDateTime(), u"dd/mm/yyyy"); }

QString entero(const QVariant& v) { return TextoDe(Numero(v)); }

// Articles of the desk's own warehouse: no other can be sold here.
Consulta deArticulos(const Puesto& p, const QString& texto) {
  Consulta c;
  c.columnas = QStringLiteral(" cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, vDescProv,"
                              " cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo, sDescLinea");
  c.desde = QStringLiteral(" FROM Producto WHERE cProdEstd = 1 AND nActivo = 1 AND cAlmaCode = '%1'")
                .arg(ReemplazarComilla(p.ses.psAlmacen));
  if (!texto.isEmpty()) {
    c.desde += QStringLiteral(" AND (sProdDesc like '%") + texto + QStringLiteral("%' OR sProdDescCrta like '%") +
               texto + QStringLiteral("%' OR cCodCatalogo like '%") + texto +
               QStringLiteral("%' OR vDescProv like '%") + texto + QStringLiteral("%')");
  }
  c.orden = QStringLiteral(" ORDER BY sProdDesc, cProdCode");
  return c;
}

// Two branches instead of one OR over both tables: each reads the keys of one table through, which an index holds, and
// looks up the rest for what matches only; the first page ends the reading.
Consulta deClientela(const Puesto& p, const QString& texto) {
  const QString columnas =
      QStringLiteral(" c.nTarjNumb, a.cClieCode, a.sClieApel , a.sClieName , a.dNacmDate, c.IdLocal, "
                     " a.nPuntCant , a.nTickCant, a.dUltTDate");
  const QString vigentes = FormatearSQL(QStringLiteral(" c.cTarjActi = 1 AND c.dcadudate >= CONVERT(DATETIME,'$',120)"
                                                       " AND a.cClieCode = c.cClieCode AND a.IdLocal = c.IdLocal"),
                                        {FormatearFecha(p.reloj.now(), u"yyyy-mm-dd") + QStringLiteral(" 00:00:00")});
  if (texto.isEmpty()) return {columnas, QStringLiteral(" FROM Cliente a CROSS JOIN Tarjeta c WHERE") + vigentes, {}};
  const QString parecido = QStringLiteral(" LIKE '%") + texto + QStringLiteral("%'");
  const QString seleccion = QStringLiteral("SELECT") + columnas;
  return {QStringLiteral(" *"),
          QStringLiteral(" FROM (") + seleccion +
              QStringLiteral(" FROM Cliente k CROSS JOIN Cliente a CROSS JOIN Tarjeta c WHERE k.sClieApel") + parecido +
              QStringLiteral(" AND a.cClieCode = k.cClieCode AND a.IdLocal = k.IdLocal AND") + vigentes +
              QStringLiteral(" UNION ALL ") + seleccion +
              QStringLiteral(" FROM Tarjeta k CROSS JOIN Tarjeta c CROSS JOIN Cliente a WHERE k.nTarjNumb") + parecido +
              QStringLiteral(" AND c.nTarjNumb = k.nTarjNumb AND c.IdLocal = k.IdLocal AND") + vigentes +
              QStringLiteral(" AND NOT (ISNULL(a.sClieApel,'')") + parecido + QStringLiteral(")) x"),
          {}};
}

// A card that stands at several sites names its document's customer once.
Consulta deDocumentos(TipoBusqueda tipo, const QString& texto) {
  Consulta c;
  c.columnas = QStringLiteral(" *");
  c.desde = QStringLiteral(" FROM (SELECT b.cOperCode, b.nTarjNumb, b.nMoneda, b.nMontoDolares,"
                           " b.dOperFech, b.nMontoSoles, b.cOperTipo, b.sGlosa, b.cDocSerie, b.cDocCodigo,"
                           " (SELECT MIN(sClieApel + ' ' + sClieName) FROM CLIENTE inner join Tarjeta"
                           " ON Cliente.cClieCode = Tarjeta.cClieCode AND Cliente.IdLocal = Tarjeta.IdLocal"
                           " WHERE Tarjeta.nTarjNumb = b.nTarjNumb) as sName"
                           " FROM OperacionParalela b WHERE b.cEstado = '1' AND ") +
            QStringLiteral("b.cOperTipo IN (") +
            (tipo == TipoBusqueda::Liquidacion1 ? Codigos({TipoOperacion::NC})
                                                : Codigos({TipoOperacion::PADE, TipoOperacion::PADV})) +
            QStringLiteral(")) x");
  if (!texto.isEmpty()) {
    const QString parecido = QStringLiteral(" LIKE '%") + texto + QStringLiteral("%'");
    QStringList campos{QStringLiteral("sName"),
                       QStringLiteral("nTarjNumb"),
                       QStringLiteral("(cDocSerie + '-' + cstr(cDocCodigo))"),
                       QStringLiteral("cstr(cDocCodigo)"),
                       QStringLiteral("(cDocSerie)"),
                       QStringLiteral("sglosa")};
    if (EsNumerico(texto)) campos << QStringLiteral("cstr(cOperCode)");
    for (QString& campo : campos) campo += parecido;
    c.desde += QStringLiteral(" WHERE (") + campos.join(QStringLiteral(" OR ")) + QStringLiteral(" )");
  }
  c.orden = QStringLiteral(" ORDER BY cOperCode");
  return c;
}

Consulta consultaDe(const Puesto& p, const Busqueda& b) {
  const QString texto = ReemplazarComilla(Recortar(b.txtBuscar));
  switch (b.tipo) {
    case TipoBusqueda::Producto: return deArticulos(p, texto);
    case TipoBusqueda::Cliente: return deClientela(p, texto);
    default: return deDocumentos(b.tipo, texto);
  }
}

FilaBusqueda filaArticulo(const Recordset::Fila& r) {
  const double puntos = Numero(r[u"nPuntos"]);
  FilaBusqueda f;
  f.codigo = Ceros(entero(r[u"cProdCode"]), 6);
  f.celdas = {entero(r[u"cProdCode"]),
              LimpiarNulo(r[u"cCodCatalogo"]),
              LimpiarNulo(r[u"sProdDesc"]),
              LimpiarNulo(r[u"sProdDescCrta"]),
              Formatear(Numero(r[u"nProdPrecUnit"]), kImporte),
              LimpiarNulo(r[u"sDescLinea"]),
              Numero(r[u"cProdEstd"]) == 1 ? QStringLiteral("Activo") : QStringLiteral("Inactivo"),
              puntos == 0                     ? QStringLiteral("NO")
              : Numero(r[u"cFlagCanje"]) == 1 ? QStringLiteral("PTOS")
                                              : QStringLiteral("VNTA"),
              TextoDe(puntos),
              Numero(r[u"cFlagServicio"]) == 1 ? QStringLiteral("SI") : QStringLiteral("NO"),
              LimpiarNulo(r[u"vDescProv"])};
  return f;
}

FilaBusqueda filaCliente(const Recordset::Fila& r) {
  FilaBusqueda f;
  f.codigo = LimpiarNulo(r[u"nTarjNumb"]);
  f.idLocal = static_cast<int>(AEntero(Numero(r[u"IdLocal"])));
  f.celdas = {f.codigo,
              QString::number(f.idLocal),
              Recortar(LimpiarNulo(r[u"sClieApel"]) + u' ' + LimpiarNulo(r[u"sClieName"])),
              fechaCorta(r[u"dNacmDate"]),
              entero(r[u"nPuntCant"]),
              entero(r[u"nTickCant"]),
              fechaCorta(r[u"dUltTDate"])};
  return f;
}

FilaBusqueda filaDocumento(const Recordset::Fila& r) {
  const bool dolares = Numero(r[u"nMoneda"]) == 2;
  const QString moneda = dolares ? QStringLiteral("US$") : QStringLiteral("S/.");
  const QString monto = Formatear(Numero(dolares ? r[u"nMontoDolares"] : r[u"nMontoSoles"]), kImporte);
  FilaBusqueda f;
  f.documento = {AEntero(Numero(r[u"cOperCode"])), moneda + u' ' + monto, LimpiarNulo(r[u"sGlosa"])};
  f.codigo = Rellenar(entero(r[u"cOperCode"]), 6, u'0');
  f.celdas = {entero(r[u"cOperCode"]),
              PalabraDe(static_cast<TipoOperacion>(AEntero(Numero(r[u"cOperTipo"])))),
              LimpiarNulo(r[u"nTarjNumb"]),
              LimpiarNulo(r[u"cDocSerie"]) + u'-' + entero(r[u"cDocCodigo"]),
              LimpiarNulo(r[u"sName"]) + QStringLiteral(" - ") + f.documento.glosa,
              f.documento.importe,
              fechaCorta(r[u"dOperFech"]),
              monto,
              moneda};
  return f;
}

FilaBusqueda filaDe(TipoBusqueda tipo, const Recordset::Fila& r) {
  switch (tipo) {
    case TipoBusqueda::Producto: return filaArticulo(r);
    case TipoBusqueda::Cliente: return filaCliente(r);
    default: return filaDocumento(r);
  }
}

// Runs on the kind's own database, which a customer search opens for the one statement.
bool consultar(Puesto& p, Busqueda& b, const QString& sql, Recordset& rs) {
  if (deClientes(b)) {
    b.sinServidor = !ConectarCliente(p, true);
    if (b.sinServidor) return false;
  }
  const bool leido = p.poDBAdmin.EjecutarConsulta(deClientes(b) ? p.poCnnCliente : p.poCnnLocal, sql, rs);
  if (deClientes(b)) DesconectarCliente(p);
  if (!leido) p.mensajes.mostrar(QStringLiteral("No se pudo recuperar los datos"));
  return leido;
}

int contarPaginas(Puesto& p, Busqueda& b) {
  Recordset rs;
  if (!consultar(p, b, QStringLiteral("SELECT COUNT(*) AS nFilas") + consultaDe(p, b).desde, rs)) return b.nPagina;
  const qint64 filas = AEntero(Numero(rs[u"nFilas"]));
  return static_cast<int>(qMax<qint64>(1, (filas + kFilasPorPagina - 1) / kFilasPorPagina));
}

}  // namespace

const ClaseBusqueda& ClaseDe(TipoBusqueda tipo) {
  using S = std::vector<ColumnaBusqueda>;
  static const ClaseBusqueda articulos{QStringLiteral("Listado de Articulos"),
                                       S{{QStringLiteral("Cod."), 0.07, true},
                                         {QStringLiteral("Cod. Catálogo"), 0.15},
                                         {QStringLiteral("Descripción"), 0.28},
                                         {QStringLiteral("Descripción Corta"), 0.19},
                                         {QStringLiteral("Precio Unitario"), 0.16, true},
                                         {QStringLiteral("Linea"), 0.14},
                                         {QStringLiteral("Estado"), 0.09},
                                         {QStringLiteral("Canje"), 0.08},
                                         {QStringLiteral("Puntos"), 0.09, true},
                                         {QStringLiteral("(%)Serv"), 0.1},
                                         {QStringLiteral("Proveedor"), 0.25}}};
  static const ClaseBusqueda clientes{QStringLiteral("Listado de Clientes"),
                                      S{{QStringLiteral("Tarjeta"), 0.12},
                                        {QStringLiteral("Id Local"), 0.1, true},
                                        {QStringLiteral("Cliente"), 0.25},
                                        {QStringLiteral("Fecha Nacimiento"), 0.18},
                                        {QStringLiteral("Puntos"), 0.09, true},
                                        {QStringLiteral("Tickets"), 0.09, true},
                                        {QStringLiteral("Ult.Transacción"), 0.17}}};
  const auto documentos = [](const QString& titulo) {
    return ClaseBusqueda{titulo, S{{QStringLiteral("Operacion"), 0.12, true},
                                   {QStringLiteral("Tipo Venta"), 0.12},
                                   {QStringLiteral("Nº Tarjeta"), 0.12},
                                   {QStringLiteral("Documento"), 0.13},
                                   {QStringLiteral("Cliente - Glosa"), 0.27},
                                   {QStringLiteral("Monto"), 0.12, true},
                                   {QStringLiteral("Fecha"), 0.12},
                                   {QStringLiteral("MontoVal"), 0, true},
                                   {QStringLiteral("Moneda"), 0}}};
  };
  static const ClaseBusqueda adelantos = documentos(QStringLiteral("Seleccione Pago Adelantado"));
  static const ClaseBusqueda liquidacion = documentos(QStringLiteral("Liquidación"));
  switch (tipo) {
    case TipoBusqueda::Producto: return articulos;
    case TipoBusqueda::Cliente: return clientes;
    case TipoBusqueda::PagoAdelantado: return adelantos;
    default: return liquidacion;
  }
}

void InicioBusqueda(Puesto& p, Busqueda& b) {
  if (!deClientes(b)) {
    LeerPagina(p, b);
    return;
  }
  if (!p.ses.pbClienteCaido && ConectarCliente(p, true)) DesconectarCliente(p);
  b.sinServidor = p.ses.pbClienteCaido;
  if (!Recortar(b.txtBuscar).isEmpty()) LeerPagina(p, b);
}

bool LeerPagina(Puesto& p, Busqueda& b) {
  b.filas.clear();
  b.hayMas = false;
  const Consulta c = consultaDe(p, b);
  // One row more than the pages up to here hold tells whether there is another page.
  const QString sql =
      QStringLiteral("SELECT TOP %1").arg(b.nPagina * kFilasPorPagina + 1) + c.columnas + c.desde + c.orden;
  Recordset rs;
  if (!consultar(p, b, sql, rs)) return false;
  int n = 0;
  for (const auto& r : rs) {
    if (++n <= (b.nPagina - 1) * kFilasPorPagina) continue;
    b.hayMas = n > b.nPagina * kFilasPorPagina;
    if (!b.hayMas) b.filas.push_back(filaDe(b.tipo, r));
  }
  return true;
}

bool PuedePaginar(const Busqueda& b, Paginado a) {
  return a == Paginado::Primera || a == Paginado::Anterior ? b.nPagina > 1 : b.hayMas;
}

void Paginar(Puesto& p, Busqueda& b, Paginado a) {
  if (!PuedePaginar(b, a)) return;
  switch (a) {
    case Paginado::Primera: b.nPagina = 1; break;
    case Paginado::Anterior: --b.nPagina; break;
    case Paginado::Siguiente: ++b.nPagina; break;
    case Paginado::Ultima: b.nPagina = contarPaginas(p, b); break;
  }
  LeerPagina(p, b);
}
