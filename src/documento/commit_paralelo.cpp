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

bool EscribirCabeza(Puesto& p, CommitParalelo& c) { return GrabarParalela(p, c.o, c.paralela); }

bool EscribirLineas(Puesto& p, CommitParalelo& c) {
  for (const auto& linea : c.lineas) {
    if (!GrabarLineaParalela(p, c.o, linea, c.supervisor)) return false;
  }
  return true;
}

bool EscribirEfectivo(Puesto& p, CommitParalelo& c) {
  const EfectivoDocumento& e = c.paralela.efectivo;
  // The change of a liquidation leaves the drawer also when nothing came in.
  const bool devuelve = c.clase == ClaseDocumento::LIQPAD && e.vueltoSoles > 0;
  if (e.soles <= 0 && e.dolares <= 0 && !devuelve) return true;
  c.o.tipo = c.liquidacion                                      ? TipoOperacion::Liquidado
             : !c.tarjetas.empty() && e.soles == 0 && !devuelve ? TipoOperacion::Voucher
                                                                : TipoOperacion::Efectivo;
  c.o.liquidacion = c.liquidacion ? c.liquidacion->codigo : 0;
  return GrabarEfectivoParalelo(p, c.o, c.serieDinero, e);
}

bool EscribirTarjetas(Puesto& p, CommitParalelo& c) {
  if (c.tarjetas.empty()) return true;
  c.o.tipo = TipoOperacion::Voucher;
  const EfectivoDocumento& e = c.paralela.efectivo;
  return GrabarTarjetaParalela(p, c.o, c.serieDinero, c.total - e.soles + e.vueltoSoles);
}

bool Liquidar(Puesto& p, CommitParalelo& c) {
  if (!CerrarParalela(p, c.o.codigo)) return false;
  for (const qint64 codigo : c.liquidadas) {
    if (!CerrarParalela(p, codigo, c.enlazaLiquidadas ? c.o.codigo : 0)) return false;
  }
  return true;
}
