#include "credit/documentos_pendientes.h"

#include <numeric>

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

using C = ColumnaPendientes;

QString q(const char16_t* s) { return QString::fromUtf16(s); }

Sql consultaDe(PendientesDe para, DocCredito doc) {
  const std::vector<Valor> tipo{Texto(Codigo(doc))};
  switch (para) {
    case PendientesDe::Pago: return FormatearSQL(u"usp_sel_ListadoDocumentosPendientesPago '$'"_sql, tipo);
    case PendientesDe::Consumo: return FormatearSQL(u"usp_sel_ListadoDocumentosPendientesNC '$'"_sql, tipo);
    case PendientesDe::Liquidacion: break;
  }
  return FormatearSQL(u"Select cCodVta,v.TipoDoc, v.cSerieDoc,v.NroDoc,v.FechaEmision,Local=case v.IdLocal when 1 then"
                      " 'SUR' when 2 then 'NORTE' end, v.DscCliente,v.cClienteCode,v.IdLocal, Moneda= Case v.cCodMoneda"
                      " when 'N' then 'SOLES' when 'E' then 'DOLARES' end, v.TotVta,v.TotVtaUSD from venta01 v where"
                      " v.TipoDoc='$'  and  v.fechaanulacion is null and v.bLiquidado=0 "
                      "order by v.FechaEmision, v.cSerieDoc, v.NroDoc"_sql,
                      tipo);
}

// One row of the list by position.
struct FilaServidor {
  const DocumentosPendientes& d;
  Recordset::Fila f;

  FilaServidor(const DocumentosPendientes& lista, int fila) : d(lista), f(lista.rs, fila) {}
  QString texto(int n) const { return LimpiarNulo(f[n]); }
  double numero(int n) const { return Numero(f[n]); }
  qint64 entero(int n) const { return AEntero(numero(n)); }
  QString fecha(int n) const { return FormatearFecha(f[n].toDateTime(), u"dd/mm/yyyy"); }
};

}  // namespace

const ClasePendientes& ClaseDe(PendientesDe para) {
  // clang-format off
  static const ClasePendientes pago{q(u"frmDocumentosPendientesPago"), q(u"Docs Pendientes de Pago"), 5,
      {{1, q(u"Serie"), 0.06}, {2, q(u"Numero"), 0.085}, {3, q(u"Fec Emision"), 0.11, C::Fecha},
       {4, q(u"Local"), 0.065}, {5, q(u"Cliente"), 0.195}, {8, {}, 0.085}, {9, q(u"Total Vta"), 0.095, C::Importe},
       {10, q(u"Total Vta USD"), 0.095, C::Importe}, {11, q(u"M. Restante"), 0.095, C::Importe},
       {12, q(u"M. Restante USD"), 0.115, C::Importe}}};
  static const ClasePendientes consumo{q(u"frmDocumentosPendientesNC"), q(u"Seleccione Documento"), 8,
      {{2, q(u"Tipo Doc"), 0.08}, {3, q(u"Serie"), 0.06}, {4, q(u"Numero"), 0.08}, {7, q(u"Local"), 0.08},
       {8, q(u"Cliente"), 0.26}, {10, q(u"Total Vta"), 0.1, C::Importe}, {11, q(u"Total Vta USD"), 0.125, C::Importe},
       {13, q(u"Tipo Credito"), 0.105}, {14, q(u"Fec Emision"), 0.11, C::Fecha}}};
  static const ClasePendientes liquidacion{q(u"frmDocumentosPendientesLQ"), q(u"Docs Pendientes Liquidacion"), 6,
      {{2, q(u"Serie"), 0.06}, {3, q(u"Numero"), 0.09}, {4, q(u"Fec Emision"), 0.12, C::Fecha}, {5, q(u"Local"), 0.08},
       {6, q(u"Cliente"), 0.32}, {9, q(u"Moneda"), 0.09}, {10, q(u"Total Vta"), 0.11, C::Importe},
       {11, q(u"Total Vta USD"), 0.13, C::Importe}}};
  // clang-format on
  switch (para) {
    case PendientesDe::Pago: return pago;
    case PendientesDe::Consumo: return consumo;
    default: return liquidacion;
  }
}

DocumentosPendientes LeerPendientes(Puesto& p, PendientesDe para, DocCredito doc) {
  DocumentosPendientes d;
  d.para = para;
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) return d;
  (void)p.poDBAdmin.EjecutarConsulta(central, consultaDe(para, doc), d.rs);
  p.poDBAdmin.CerrarBD(central);
  return d;
}

std::vector<int> FiltrarPendientes(DocumentosPendientes& d, const QString& txtCliente) {
  const QString busca = NombreLlano(txtCliente);
  std::vector<int> filas(static_cast<size_t>(d.rs.RecordCount()));
  std::iota(filas.begin(), filas.end(), 0);
  if (busca.isEmpty()) return filas;
  if (d.nombres.empty()) {
    const int cliente = ClaseDe(d.para).cliente;
    d.nombres.reserve(filas.size());
    for (const auto& f : d.rs) d.nombres.push_back(NombreLlano(LimpiarNulo(f[cliente])));
  }
  std::erase_if(filas, [&](int n) { return !d.nombres[static_cast<size_t>(n)].contains(busca); });
  return filas;
}

QStringList CeldasPendientes(const DocumentosPendientes& d, int fila) {
  const FilaServidor f(d, fila);
  QStringList celdas;
  for (const ColumnaPendientes& c : ClaseDe(d.para).columnas) {
    celdas << (c.clase == C::Fecha     ? f.fecha(c.posicion)
               : c.clase == C::Importe ? Formatear(f.numero(c.posicion), u"0.00")
                                       : f.texto(c.posicion));
  }
  return celdas;
}

DocumentoPorPagar PorPagar(const DocumentosPendientes& d, int fila) {
  const FilaServidor f(d, fila);
  DocumentoPorPagar r;
  r.TipoDoc = f.texto(0);
  r.cSerieDoc = f.texto(1);
  r.NroDoc = f.texto(2);
  r.cliente = f.texto(5);
  r.codigoCliente = f.texto(6);
  r.idLocal = static_cast<int>(f.entero(7));
  r.moneda = f.texto(8);
  r.total = f.numero(9);
  r.totalUSD = f.numero(10);
  r.saldo = f.numero(11);
  r.saldoUSD = f.numero(12);
  return r;
}

DocumentoPorConsumir PorConsumir(const DocumentosPendientes& d, int fila) {
  const FilaServidor f(d, fila);
  DocumentoPorConsumir r;
  r.cCodVta = f.entero(0);
  r.TipoDoc = f.texto(2);
  r.cSerieDoc = f.texto(3);
  r.NroDoc = f.texto(4);
  r.codigoCliente = f.texto(5);
  r.local = f.texto(7);
  r.cliente = f.texto(8);
  r.total = f.numero(10);
  r.totalUSD = f.numero(11);
  r.tipoCredito = f.texto(13);
  r.fechaEmision = f.fecha(14);
  return r;
}

qint64 PorLiquidar(const DocumentosPendientes& d, int fila) { return FilaServidor(d, fila).entero(0); }

QString NombreLlano(const QString& nombre) {
  const QString partes = Recortar(nombre).normalized(QString::NormalizationForm_D).toUpper();
  QString llano;
  llano.reserve(partes.size());
  for (const QChar c : partes)
    if (c.category() != QChar::Mark_NonSpacing) llano += c;
  return llano;
}
