#include "sale/buscador.h"

#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr QStringView kImporte = u"0.00";

// The parts of a statement that reads one kind: rows and their count come from the same tables and conditions.
struct Consulta {
  Sql columnas, desde, orden;
};

bool deClientes(const Busqueda& b) { return b.tipo == TipoBusqueda::Cliente; }

QString fechaCorta(const QVariant& v) { return FormatearFecha(v.toDateTime(), u"dd/mm/yyyy"); }

QString entero(const QVariant& v) { return TextoDe(Numero(v)); }

// The text anywhere in one of the fields; an empty one leaves nothing out.
Sql parecidoEnAlguno(const std::vector<Sql>& campos, const QString& texto) {
  std::vector<Sql> condiciones;
  condiciones.reserve(campos.size());
  for (const Sql& campo : campos) condiciones.push_back(campo + FormatearSQL(u" LIKE '%$%'"_sql, {Texto(texto)}));
  return u"("_sql + UnirSql(condiciones, u" OR "_sql) + u")"_sql;
}

// Articles of the desk's own warehouse: no other can be sold here.
Consulta deArticulos(const Puesto& p, const QString& texto) {
  Consulta c;
  c.columnas = u" cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, vDescProv,"
               " cFlagCanje, nPuntos, cFlagServicio, cCodCatalogo, sDescLinea"_sql;
  c.desde = FormatearSQL(u" FROM Producto WHERE cProdEstd = 1 AND nActivo = 1 AND cAlmaCode = '$'"_sql,
                         {Texto(p.ses.psAlmacen)});
  if (!texto.isEmpty()) {
    c.desde += u" AND "_sql +
               parecidoEnAlguno({u"sProdDesc"_sql, u"sProdDescCrta"_sql, u"cCodCatalogo"_sql, u"vDescProv"_sql}, texto);
  }
  c.orden = u" ORDER BY sProdDesc, cProdCode"_sql;
  return c;
}

// Two branches instead of one OR over both tables: each reads the keys of one table through, which an index holds, and
// looks up the rest for what matches only; the first page ends the reading.
Consulta deClientela(const Puesto& p, const QString& texto) {
  const Sql columnas = u" c.nTarjNumb, a.cClieCode, a.sClieApel , a.sClieName , a.dNacmDate, c.IdLocal, "
                       " a.nPuntCant , a.nTickCant, a.dUltTDate"_sql;
  const Sql vigentes =
      FormatearSQL(u" c.cTarjActi = 1 AND c.dcadudate >= CONVERT(DATETIME,'$',120)"
                   " AND a.cClieCode = c.cClieCode AND a.IdLocal = c.IdLocal"_sql,
                   {Texto(FormatearFecha(p.reloj.now(), u"yyyy-mm-dd") + QStringLiteral(" 00:00:00"))});
  if (texto.isEmpty()) return {columnas, u" FROM Cliente a CROSS JOIN Tarjeta c WHERE"_sql + vigentes, {}};
  const Sql parecido = FormatearSQL(u" LIKE '%$%'"_sql, {Texto(texto)});
  const Sql seleccion = u"SELECT"_sql + columnas;
  return {u" *"_sql,
          u" FROM ("_sql + seleccion +
              u" FROM Cliente k CROSS JOIN Cliente a CROSS JOIN Tarjeta c WHERE k.sClieApel"_sql + parecido +
              u" AND a.cClieCode = k.cClieCode AND a.IdLocal = k.IdLocal AND"_sql + vigentes + u" UNION ALL "_sql +
              seleccion + u" FROM Tarjeta k CROSS JOIN Tarjeta c CROSS JOIN Cliente a WHERE k.nTarjNumb"_sql +
              parecido + u" AND c.nTarjNumb = k.nTarjNumb AND c.IdLocal = k.IdLocal AND"_sql + vigentes +
              u" AND NOT (ISNULL(a.sClieApel,'')"_sql + parecido + u")) x"_sql,
          {}};
}

// A card that stands at several sites names its document's customer once.
Consulta deDocumentos(TipoBusqueda tipo, const QString& texto) {
  const Sql tipos = tipo == TipoBusqueda::Liquidacion1 ? Codigos({TipoOperacion::NC})
                                                       : Codigos({TipoOperacion::PADE, TipoOperacion::PADV});
  Consulta c;
  c.columnas = u" *"_sql;
  c.desde = FormatearSQL(u" FROM (SELECT b.cOperCode, b.nTarjNumb, b.nMoneda, b.nMontoDolares,"
                         " b.dOperFech, b.nMontoSoles, b.cOperTipo, b.sGlosa, b.cDocSerie, b.cDocCodigo,"
                         " (SELECT MIN(sClieApel + ' ' + sClieName) FROM CLIENTE inner join Tarjeta"
                         " ON Cliente.cClieCode = Tarjeta.cClieCode AND Cliente.IdLocal = Tarjeta.IdLocal"
                         " WHERE Tarjeta.nTarjNumb = b.nTarjNumb) as sName"
                         " FROM OperacionParalela b WHERE b.cEstado = '1' AND b.cOperTipo IN ($)) x"_sql,
                         {tipos});
  if (!texto.isEmpty()) {
    std::vector<Sql> campos{
        u"sName"_sql,       u"nTarjNumb"_sql, u"(cDocSerie + '-' + cstr(cDocCodigo))"_sql, u"cstr(cDocCodigo)"_sql,
        u"(cDocSerie)"_sql, u"sglosa"_sql};
    if (EsNumerico(texto)) campos.push_back(u"cstr(cOperCode)"_sql);
    c.desde += u" WHERE "_sql + parecidoEnAlguno(campos, texto);
  }
  c.orden = u" ORDER BY cOperCode"_sql;
  return c;
}

Consulta consultaDe(const Puesto& p, const Busqueda& b) {
  const QString texto = Recortar(b.txtBuscar);
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

FilaBusqueda filaHallada(TipoBusqueda tipo, const Recordset::Fila& r) {
  switch (tipo) {
    case TipoBusqueda::Producto: return filaArticulo(r);
    case TipoBusqueda::Cliente: return filaCliente(r);
    default: return filaDocumento(r);
  }
}

// Runs on the kind's own database, which a customer search opens for the one statement.
bool consultar(Puesto& p, Busqueda& b, const Sql& sql, Recordset& rs) {
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
  if (!consultar(p, b, u"SELECT COUNT(*) AS nFilas"_sql + consultaDe(p, b).desde, rs)) return b.nPagina;
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
    (void)LeerPagina(p, b);
    return;
  }
  if (!p.ses.pbClienteCaido && ConectarCliente(p, true)) DesconectarCliente(p);
  b.sinServidor = p.ses.pbClienteCaido;
  if (!Recortar(b.txtBuscar).isEmpty()) (void)LeerPagina(p, b);
}

bool LeerPagina(Puesto& p, Busqueda& b) {
  b.filas.clear();
  b.hayMas = false;
  const Consulta c = consultaDe(p, b);
  // One row more than the pages up to here hold tells whether there is another page.
  const Sql sql = FormatearSQL(u"SELECT TOP $"_sql, {b.nPagina * kFilasPorPagina + 1}) + c.columnas + c.desde + c.orden;
  Recordset rs;
  if (!consultar(p, b, sql, rs)) return false;
  int n = 0;
  for (const auto& r : rs) {
    if (++n <= (b.nPagina - 1) * kFilasPorPagina) continue;
    b.hayMas = n > b.nPagina * kFilasPorPagina;
    if (!b.hayMas) b.filas.push_back(filaHallada(b.tipo, r));
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
  (void)LeerPagina(p, b);
}
