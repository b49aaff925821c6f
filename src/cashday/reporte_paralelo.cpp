#include "cashday/reporte_paralelo.h"

#include "cashday/lector.h"
#include "cashday/tipo_cambio.h"
#include "documento/clase.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "printing/canal.h"
#include "store/numeracion.h"

namespace {

// Those of the kind that the period holds.
constexpr LiteralSql kDelTipo = u" o.cOperTipo + 0 = $ {p}"_sql;
constexpr LiteralSql kVigentes = u" AND TRIM(o.cEstado) <> '0'"_sql;

// One of several keys of an article names its lines.
constexpr LiteralSql kLineas =
    u" SELECT o.cOperCode, d.nProdCant, d.nProdPrecUnit, d.nDscto, {valorp} AS TotalMonto,"
    " (SELECT MIN(c.sTeclDesc) FROM ConfiguracionTeclado c WHERE c.cProdCode = d.cProdCode) AS sTeclDesc"
    " FROM OperacionParalela o INNER JOIN OperacionParalelaProducto d ON d.cOperCode = o.cOperCode WHERE"_sql;
constexpr LiteralSql kDocumentos =
    u" SELECT o.cOperCode, o.nMontoSoles, o.nEfectivoSoles - o.nVueltoSoles AS nSoles,"
    " o.nEfectivoDolares - o.nVueltoDolares AS nDolares,"
    " (SELECT SUM(t.nMontoSoles + t.nProdPrecUnit) FROM Operacion t WHERE t.cOperCode = o.cOperCode"
    " AND t.cOperTipo = $ AND t.cDocTipo = o.cDocTipo AND t.cOperFlagAnula = 0) AS nTarjetas"
    " FROM OperacionParalela o WHERE"_sql;

struct Lectura {
  Puesto& p;
  LectorReporte lector;
  DatosReporteParalelo& d;
  double tipoCambio = 0;  // soles per dollar

  Recordset leer(const Sql& consulta) {
    return lector.filas(consulta + FormatearSQL(kDelTipo + kVigentes, {Codigo(d.tipo)}) + u" ORDER BY o.cOperCode"_sql);
  }
};

bool llevaLineas(TipoOperacion tipo) { return tipo == TipoOperacion::OC || tipo == TipoOperacion::NC; }

void leerTipoCambio(Lectura& l) {
  const Recordset rs = l.lector.filas(ConsultaTipoCambio(l.p));
  if (!l.lector.bien()) return;
  if (rs.RecordCount() == 1) l.tipoCambio = Numero(rs[0]);
  else l.p.mensajes.mostrar(QStringLiteral("Para registrar ventas en dólares debe registrar el tipo de cambio"));
}

void agregar(DatosReporteParalelo& d, qint64 codigo, const LineaParalela& linea, double valor) {
  if (d.transacciones.empty() || d.transacciones.back().codigo != codigo) d.transacciones.push_back({codigo, {}, 0});
  TransaccionParalela& t = d.transacciones.back();
  t.lineas.push_back(linea);
  t.monto += valor;
  d.unidades += linea.cantidad;
  d.monto += valor;
}

void leerLineas(Lectura& l) {
  const Recordset rs = l.leer(kLineas);
  for (const auto& f : rs) {
    const QString tecla = LimpiarNulo(f[u"sTeclDesc"]);
    agregar(l.d, AEntero(Numero(f[u"cOperCode"])),
            {tecla.isEmpty() ? QStringLiteral("---") : tecla, Numero(f[u"nProdPrecUnit"]), Numero(f[u"nProdCant"]),
             Numero(f[u"nDscto"])},
            Numero(f[u"TotalMonto"]));
  }
}

void contar(CobroParalelo& c, double importe) {
  if (Redondear(importe, 2) == 0) return;
  c.cuenta += importe < 0 ? -1 : 1;
  c.monto += importe;
}

// What a document took. An advance payment keeps the amount in both currencies, so its total tells it; a card leaves a
// row of its own only where cash stands beside it.
void contarCobro(Lectura& l, const Recordset::Fila& f) {
  double efectivo = Numero(f[u"nSoles"]) + Numero(f[u"nDolares"]) * l.tipoCambio, tarjetas = Numero(f[u"nTarjetas"]);
  if (l.d.tipo == TipoOperacion::PADE) efectivo = Numero(f[u"nMontoSoles"]);
  if (l.d.tipo == TipoOperacion::PADV) {
    efectivo = 0;
    tarjetas = Numero(f[u"nMontoSoles"]);
  }
  contar(l.d.efectivo, efectivo);
  contar(l.d.tarjetas, tarjetas);
  CobroParalelo todo;
  contar(todo, efectivo + tarjetas);
  l.d.cobrados += todo.cuenta;
}

bool leerDocumentos(Puesto& p, DatosReporteParalelo& d) {
  Periodo periodo;
  if (!LeerPeriodo(p, periodo)) return false;
  Lectura l{p, LectorReporte(p, periodo, {}), d};
  leerTipoCambio(l);
  if (llevaLineas(d.tipo)) leerLineas(l);
  const Recordset rs = l.leer(FormatearSQL(kDocumentos, {Codigo(TipoOperacion::Voucher)}));
  for (const auto& f : rs) {
    const double monto = Numero(f[u"nMontoSoles"]);
    if (!llevaLineas(d.tipo)) {
      agregar(d, AEntero(Numero(f[u"cOperCode"])), {PalabraDe(d.tipo), monto, 1, 0}, monto);
    }
    contarCobro(l, f);
  }
  return l.lector.bien();
}

// Voided ones count here: their paper went out.
bool hayDocumentos(Puesto& p, TipoOperacion tipo) {
  Periodo periodo;
  if (!LeerPeriodo(p, periodo)) return false;
  LectorReporte l(p, periodo, {});
  const double cuantos = l.numero(u" SELECT count(*) AS TOTAL FROM OperacionParalela o  WHERE"_sql +
                                  FormatearSQL(kDelTipo, {Codigo(tipo)}));
  if (l.bien() && cuantos < 1) p.mensajes.mostrar(QStringLiteral("Debe registrar operaciones."));
  return l.bien() && cuantos >= 1;
}

bool marcar(Puesto& p, DatosReporteParalelo& d) {
  return CodigoOperacion(p, true, d.numero) &&
         p.poDBAdmin.EjecutarSentencia(
             p.poCnnLocal,
             FormatearSQL(u"INSERT INTO OPERACIONPARALELA (cOperCode, cOperTipo, dOperFech, sGlosa, cEstado, cCajaCodi,"
                          " cFlagSincronizacion, cTurnoCodi, cUserDesc) VALUES ($, $, '$', '$', '1', '$', '0', '$',"
                          " '$')"_sql,
                          {d.numero, Codigo(TipoOperacion::ReporteParalelas),
                           Texto(FormatearFecha(d.momento, u"DD/MM/YYYY hh:mm")), Texto(PalabraDe(d.tipo)),
                           Texto(d.caja), Texto(d.turno), Texto(d.usuario)}),
             true);
}

}  // namespace

bool ReporteParalelo(Puesto& p, TipoOperacion nTipo) {
  SeleccionarImpresora(p, p.ses.kPAR_IMPRESORA);
  SeleccionarImpresora(p, p.ses.kPAR_IMPRESORA_ALTERNA);
  if (!hayDocumentos(p, nTipo)) return false;
  DatosReporteParalelo d;
  d.tipo = nTipo;
  d.momento = p.reloj.now();
  d.usuario = p.ses.psUsuario;
  d.caja = p.ses.psCaja;
  d.turno = p.ses.psTurno;
  if (!marcar(p, d) || !leerDocumentos(p, d) || !CargarCabeceraImpresion(p)) return false;
  d.cabecera = p.ses.psCabeceraImpresion;
  ImprimirPorControlador(p, PapelReporteParalelo(d));
  return true;
}
