#include "cashday/reportes.h"

#include "cashday/cierre_z.h"
#include "cashday/cifras_paralelas.h"
#include "cashday/impuestos.h"
#include "cashday/papel_reporte.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

// What sets the papers of the two printers apart.
struct Hoja {
  NumeroImpresora impresora;
  QString tronco, troncoFecha;
  const ConsultasReporte& consultas;
  bool alterna() const { return impresora == kImpresoraAlterna; }
};

const Hoja kHoja{.impresora = kImpresoraPrincipal,
                 .tronco = QStringLiteral("RptXOZ"),
                 .troncoFecha = QStringLiteral("RptFecXOZ"),
                 .consultas = kConsultasX};
const Hoja kHoja1{.impresora = kImpresoraAlterna,
                  .tronco = QStringLiteral("RptX1OZ1"),
                  .troncoFecha = QStringLiteral("RptFecX1OZ1"),
                  .consultas = kConsultasX1};

// One report under way; an attempt begins with a new one.
struct Trabajo {
  Puesto& p;
  const Hoja& hoja;
  const PedidoReporte& pedido;
  std::optional<QDate> fecha;
  DatosReporte d{};
  bool impreso = false;
  QString error{};  // words of a failure that no box has told yet

  bool esZ() const { return pedido.letra == u"Z"; }
  const QDate* dia() const { return fecha ? &*fecha : nullptr; }
};

// The mark that a report was taken.
bool marcar(Trabajo& t) {
  Puesto& p = t.p;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u" SELECT MAX(cOperCode) AS maximo FROM Operacion"_sql, rs)) {
    return false;
  }
  return p.poDBAdmin.EjecutarSentencia(
      p.poCnnLocal,
      FormatearSQL(u"INSERT INTO OPERACION (cOperCode, cUserDesc, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi) "
                   "VALUES($, '$', '$', $, '$', '$')"_sql,
                   {AEntero(Numero(rs[u"maximo"])) + 1, Texto(p.ses.psUsuario),
                    Texto(FormatearFecha(t.d.momento, u"DD/MM/YYYY hh:mm")), t.pedido.nOperTipo, Texto(p.ses.psCaja),
                    Texto(p.ses.psTurno)}),
      true);
}

// The number and the running total; by date what the closings of that day stored.
void leerCodigo(Trabajo& t, LectorReporte& l) {
  BloqueZ& z = *t.d.z;
  if (!t.fecha) {
    z.contador = LeerContadorZ(l, t.hoja.impresora);
    return;
  }
  const Recordset rs =
      l.filas(FormatearSQL(u"SELECT IIF(ISNULL(MAX(CodigoRep)),1, MAX(CodigoRep)) as CodigoRepX   FROM CabeceraZ "
                           " WHERE FORMAT(Fecha, 'dd/mm/yyyy') = '$' "_sql,
                           {Texto(FormatearFecha(t.fecha->startOfDay(), u"dd/mm/yyyy"))}));
  z.codigoDelDia = rs.RecordCount() > 0 ? LimpiarNulo(rs[u"CodigoRepX"]) : QStringLiteral("000001");
}

QString leerCorrelativo(Trabajo& t, LectorReporte& l) {
  if (!t.fecha) return CorrelativoImpresion(t.p, t.hoja.impresora);
  const Recordset rs = l.filas(u"select max(o.copercode) as CodigoUltimo from operacion o where o.copertipo=10{f}"_sql);
  return LimpiarNulo(rs[u"CodigoUltimo"]);
}

// All figures, then the correlative: a report that can't be printed draws none.
bool leerTodo(Trabajo& t, const Periodo& periodo, Conexion& central) {
  Puesto& p = t.p;
  LectorReporte l(p, periodo, t.pedido.soloTurno ? CondicionTurno(p.ses.psTurno) : Sql());
  t.d.cifras = LeerCifras(p, l, t.hoja.consultas, t.dia());
  if (t.hoja.alterna()) t.d.paralelas = LeerParalelas(p, l, central, t.d.cifras);
  if (!l.bien() || !CargarCabeceraImpresion(p)) return false;
  t.d.cabecera = p.ses.psCabeceraImpresion;
  if (t.esZ()) t.d.z = LeerBloqueZ(l, t.hoja.impresora);
  if (!l.bien()) return false;
  t.d.impuestos = LeerImpuestos(p, l, t.hoja.impresora);
  if (!l.bien()) return false;
  if (t.esZ()) leerCodigo(t, l);
  if (!l.bien()) return false;
  t.d.correlativo = leerCorrelativo(t, l);
  return l.bien();
}

void imprimirTrabajo(Trabajo& t) {
  ImprimirInforme(t.p, PapelDeReporte(t.d), t.hoja.impresora, t.fecha ? t.hoja.troncoFecha : t.hoja.tronco);
  const int ruta = t.hoja.alterna() ? t.p.ses.pnCortaPapelAlterna : t.p.ses.pnCortaPapel;
  t.impreso = ruta == 0 || ruta == 1;
}

// What a report of the day leaves behind its paper.
bool cerrar(Trabajo& t) {
  Puesto& p = t.p;
  if (!t.esZ()) {
    return p.poDBAdmin.EjecutarSentencia(
        p.poCnnLocal, FormatearSQL(u"UPDATE Configuracion SET cCodiTurno = '$'"_sql, {Texto(p.ses.psTurno)}), true);
  }
  const CierreZ c{.impresora = t.hoja.impresora, .iCierreCaja = t.pedido.iCierreCaja};
  if (!GrabarCierreZ(p, c, t.d, t.error)) return false;
  // Only now: a turn that still stands in the store is not over.
  if (!t.hoja.alterna()) p.ses.psTurno.clear();
  return true;
}

FinReporte intentar(Trabajo& t) {
  Puesto& p = t.p;
  SeleccionarImpresora(p, t.hoja.alterna() ? p.ses.kPAR_IMPRESORA_ALTERNA : p.ses.kPAR_IMPRESORA);
  t.d.letra = t.pedido.letra;
  t.d.momento = p.reloj.now();
  t.d.fecha = t.fecha;
  t.d.serieImpresora = p.ses.psSerieImpresora;
  t.d.usuario = p.ses.psUsuario;
  t.d.caja = p.ses.psCaja;
  t.d.turno = p.ses.psTurno;
  t.d.porcServ = p.ses.psPorcServ;
  Conexion central;
  Periodo periodo;
  if (t.fecha) {
    periodo = PeriodoDeFecha(*t.fecha);
    if (t.hoja.alterna()) (void)p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral);
  } else {
    if (!marcar(t)) return FinReporte::Fallo;
    // Without the central database there is no report of the day; asked first, so that no half of it is printed. A
    // session that began without it reports what the store knows.
    if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, !p.ses.bSinCentral) && !p.ses.bSinCentral) {
      return FinReporte::SinCentral;
    }
    if (!LeerPeriodo(p, periodo)) return FinReporte::Fallo;
  }
  if (!leerTodo(t, periodo, central)) return FinReporte::Fallo;
  imprimirTrabajo(t);
  return t.fecha || cerrar(t) ? FinReporte::Hecho : FinReporte::Fallo;
}

// The report, again after each failure as long as an attempt is left.
ResultadoReporte reportar(Puesto& p, const Hoja& hoja, const PedidoReporte& pedido, std::optional<QDate> fecha = {}) {
  ResultadoReporte r;
  for (int intento = 1;; ++intento) {
    Trabajo t{.p = p, .hoja = hoja, .pedido = pedido, .fecha = fecha};
    r.fin = intentar(t);
    r.impreso = r.impreso || t.impreso;
    if (r.fin != FinReporte::Fallo) return r;
    r.porque = t.error;
    if (intento >= pedido.intentos) break;
    p.mensajes.mostrar(t.error);
  }
  p.mensajes.mostrar(QStringLiteral("No fue posible imprimir reporte") + pedido.letra, QStringLiteral("Error"));
  return r;
}

ResultadoReporte reportarFecha(Puesto& p, const Hoja& hoja, const QString& letra) {
  const auto texto = p.mensajes.pedir(QStringLiteral("Ingrese una fecha"), QStringLiteral("Fecha de Reporte"),
                                      QStringLiteral("19/07/1979"));
  if (!texto) return {.fin = FinReporte::SinFecha};
  const auto fecha = LeerFecha(*texto);
  if (!fecha) {
    p.mensajes.mostrar(QStringLiteral("La fecha debe tener el formato dd/mm/yyyy"), Mensajes::kTitulo, Icono::Critico);
    return {.fin = FinReporte::SinFecha};
  }
  const Ocupado ocupado(p.mensajes, QStringLiteral("Haciendo el reporte del %1…").arg(*texto));
  return reportar(p, hoja, {.nOperTipo = 0, .letra = letra, .soloTurno = false}, fecha->date());
}

}  // namespace

ResultadoReporte ReportesEspeciales(Puesto& p, const PedidoReporte& pedido) { return reportar(p, kHoja, pedido); }

ResultadoReporte ReportesEspeciales1(Puesto& p, const PedidoReporte& pedido) { return reportar(p, kHoja1, pedido); }

ResultadoReporte ReportesEspecialesFecha(Puesto& p, const QString& letra) { return reportarFecha(p, kHoja, letra); }

ResultadoReporte ReportesEspeciales1Fecha(Puesto& p, const QString& letra) { return reportarFecha(p, kHoja1, letra); }
