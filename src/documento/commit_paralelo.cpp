#include "documento/commit_paralelo.h"

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

LineaDocumento lineaDeNota(const Recordset::Fila& f) {
  LineaDocumento l;
  l.cProdCode = static_cast<int>(AEntero(Numero(f[u"cProdCode"])));
  l.descripcion = LimpiarNulo(f[u"sProdDescCrta"]);
  l.cantidad = static_cast<int>(AEntero(Numero(f[u"nProdCant"])));
  l.precio = Numero(f[u"nProdPrecUnit"]);
  l.porcentaje = Numero(f[u"nDscto"]);
  return l;
}

// The keys of the quick register that an article is bound to stay out: two of them would count it twice.
Sql consultaNota(qint64 codigo) {
  return FormatearSQL(u" SELECT O.cOperCode, O.cProdCode, O.nProdCant, O.nProdPrecUnit, O.nDscto, P.sProdDescCrta"
                      " FROM OperacionParalelaProducto O INNER JOIN Producto P"
                      " ON O.cProdCode = P.cProdCode AND O.cAlmaCode = P.cAlmaCode"
                      " Where cOperCode = $"_sql,
                      {codigo});
}

}  // namespace

bool LeerConsumos(Puesto& p, CommitParalelo& c) {
  for (const qint64 codigo : c.consumos) {
    Recordset rs;
    if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, consultaNota(codigo), rs)) return false;
    NotaTicket nota{codigo, {}};
    for (const auto& f : rs) {
      nota.lineas.push_back(lineaDeNota(f));
      const ImportesLinea i = ImportesDe(nota.lineas.back());
      c.subtotal += i.importe + i.descuento;
    }
    c.notas.push_back(nota);
  }
  return true;
}

bool PrepararParalela(Puesto& p, CommitParalelo& c) {
  const DatosClase& datos = DatosDe(c.clase);
  c.o.tipo = datos.operacion;
  // The row of the money carries the series of the boletas.
  if (datos.dejaDinero && !SerieDeBoletas(p, c.serieDinero)) return false;
  CifrasParalela x;
  x.total = c.total;
  x.servicio = c.servicio;
  x.porcServ = p.ses.psPorcServ;
  x.efectivo = c.efectivo;
  x.voucher = c.tarjetas;
  x.liquidacion = c.liquidacion;
  x.moneda = c.paralela.moneda;
  x.montoSoles = c.paralela.montoSoles;
  x.montoDolares = c.paralela.montoDolares;
  x.subtotal = c.subtotal;
  x.adelanto = c.adelanto;
  x.etiquetaAdelanto = c.etiquetaAdelanto;
  c.totales = TotalesParalela(c.clase, x);
  return true;
}

bool RechazarRepetida(Puesto& p, CommitParalelo& c) {
  bool repetida = false;
  if (!EsRepetida(p, c.o, c.paralela, repetida)) return false;
  if (!repetida) return true;
  // The number goes back; any failure has shown its box.
  (void)GuardarUltimaOperacion(p, c.o.documento, c.o.codigo - 1, c.o.numero - 1);
  return false;
}

std::vector<Sql> EscribirUltima(Puesto& p, CommitParalelo& c) {
  return {SentenciaUltimaOperacion(p, c.o.documento, c.o.codigo, c.o.numero)};
}

std::vector<Sql> EscribirCabeza(Puesto& p, CommitParalelo& c) { return {SentenciaParalela(p, c.o, c.paralela)}; }

std::vector<Sql> EscribirLineas(Puesto& p, CommitParalelo& c) {
  std::vector<Sql> filas;
  for (const auto& linea : c.lineas) filas.push_back(SentenciaLineaParalela(p, c.o, linea, c.supervisor));
  return filas;
}

std::vector<Sql> EscribirEfectivo(Puesto& p, CommitParalelo& c) {
  const EfectivoDocumento& e = c.paralela.efectivo;
  // The change of a liquidation leaves the drawer also when nothing came in.
  const bool devuelve = c.clase == ClaseDocumento::LIQPAD && e.vueltoSoles > 0;
  if (e.soles <= 0 && e.dolares <= 0 && !devuelve) return {};
  c.o.tipo = c.liquidacion                                      ? TipoOperacion::Liquidado
             : !c.tarjetas.empty() && e.soles == 0 && !devuelve ? TipoOperacion::Voucher
                                                                : TipoOperacion::Efectivo;
  c.o.liquidacion = c.liquidacion ? c.liquidacion->codigo : 0;
  return {SentenciaEfectivoParalelo(p, c.o, c.serieDinero, e)};
}

std::vector<Sql> EscribirTarjetas(Puesto& p, CommitParalelo& c) {
  if (c.tarjetas.empty()) return {};
  c.o.tipo = TipoOperacion::Voucher;
  const EfectivoDocumento& e = c.paralela.efectivo;
  return {SentenciaTarjetaParalela(p, c.o, c.serieDinero, c.total - e.soles + e.vueltoSoles)};
}

std::vector<Sql> Liquidar(Puesto&, CommitParalelo& c) {
  std::vector<Sql> filas{SentenciaCerrarParalela(c.o.codigo)};
  for (const qint64 codigo : c.liquidadas) {
    filas.push_back(SentenciaCerrarParalela(codigo, c.enlazaLiquidadas ? c.o.codigo : 0));
  }
  return filas;
}
