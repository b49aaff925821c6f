#include "credit/cuenta_cliente.h"

#include <QUrl>

#include "documento/ticket.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"

namespace {

const QString kFin = QStringLiteral("\r\n");
// The positions that select the payments, and the names that the statement reads.
enum Posicion { kTipoDoc = 1, kSerie = 3, kNumero = 4 };

constexpr LiteralSql kPagos =
    u"select cSerieDocPago,NroDocPago,fechapago,FormaPagoDsc=(select vDscTipoPago from tipoformapago where"
    " cCodTipoPago=P.FormaPago), DocFormaPago= Case FormaPago when '02' then (select descrip from tipo_tarjeta where"
    " cod_tar=P.IdTarjeta) when '03' then P.NroCertificadoRetencion when '04' then (select vDscBanco from banco where"
    " cCodBanco= P.IdBanco) Else '' end, monto, moneda= Case moneda when 'N' then 'Soles' Else 'Dolares' End,"
    " P.IdTarjeta,P.IdBanco,P.NroCtaBancaria,P.NroOperacion,P.NroCertificadoRetencion,P.NroDepositoDetraccion,"
    "P.cClieCode,p.idLocal,P.FechaAnulacion from pagos P Where P.TipoDoc='$' and P.cSerieDoc='$' and P.NroDoc='$'"
    " order by P.NroItem"_sql;

QString dinero(double valor) { return Formatear(valor, u"###,###,##0.00"); }
QString dia(const QVariant& v) { return FormatearFecha(v.toDateTime(), u"dd/mm/yyyy"); }

QString simbolo(bool dolares) { return dolares ? QStringLiteral("US$ ") : QStringLiteral("S/. "); }

QString renglon(const QString& izquierda, const QString& derecha) {
  return izquierda + Derecha(Espacios(39) + derecha, 39 - static_cast<int>(izquierda.size())) + kFin;
}

QString centrado(const QString& texto) { return Espacios((39 - static_cast<int>(texto.size())) / 2) + texto + kFin; }

// One document with the payments that stand; what is left of it is added in its own currency.
QString bloqueDeCuenta(const Recordset::Fila& f, const Recordset& pagos, double& soles, double& dolares) {
  const bool enDolares = LimpiarNulo(f[u"Moneda"]) == u"DOLARES";
  const double total = Numero(f[enDolares ? u"Total Vta USD" : u"Total Vta"]);
  const double resto = Numero(f[enDolares ? u"M. Restante USD" : u"M. Restante"]);
  (enDolares ? dolares : soles) += resto;
  const QString palabra = LimpiarNulo(f[kTipoDoc]) == u"01" ? QStringLiteral("FADE ") : QStringLiteral("BADE ");
  QString t = renglon(palabra + LimpiarNulo(f[kSerie]) + u'-' + LimpiarNulo(f[kNumero]) + u' ' + dia(f[u"Fec Emision"]),
                      simbolo(enDolares) + dinero(total));
  for (const auto& x : pagos) {
    if (!x[u"FechaAnulacion"].isNull()) continue;
    const QString monto = simbolo(LimpiarNulo(x[u"moneda"]) == u"Dolares") + dinero(Numero(x[u"monto"]));
    t += renglon(QStringLiteral("  ") + LimpiarNulo(x[u"cSerieDocPago"]) + u'-' + LimpiarNulo(x[u"NroDocPago"]) + u' ' +
                     dia(x[u"fechapago"]),
                 monto);
  }
  return t + renglon(QStringLiteral("  Saldo"), simbolo(enDolares) + dinero(resto));
}

}  // namespace

void ConsultarCuenta(Puesto& p, ConsultaCtaCteCliente& v) {
  const QString tarjeta = Recortar(v.cliente.txtTarjeta), local = Recortar(v.cliente.txtLocal);
  const qint64 idLocal = AEntero(Val(local));
  if (!EsNumerico(tarjeta) || !EsNumerico(local) || (idLocal != 1 && idLocal != 2)) return;
  v.documentos = {};
  Conexion central;
  if (p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) {
    (void)p.poDBAdmin.EjecutarConsulta(
        central, FormatearSQL(u"usp_sel_CtaCtexCliente $, $"_sql, {AEntero(Val(tarjeta)), idLocal}), v.documentos);
    p.poDBAdmin.CerrarBD(central);
  }
  v.pagos.assign(static_cast<size_t>(v.documentos.RecordCount()), {});
  v.pagosLeidos.assign(v.pagos.size(), false);
}

const Recordset& PagosDe(Puesto& p, ConsultaCtaCteCliente& v, int documento) {
  static const Recordset ninguno;
  if (documento < 0 || documento >= static_cast<int>(v.pagos.size())) return ninguno;
  const auto n = static_cast<size_t>(documento);
  Conexion central;
  if (!v.pagosLeidos[n] && p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) {
    const Recordset::Fila f(v.documentos, documento);
    v.pagosLeidos[n] = p.poDBAdmin.EjecutarConsulta(
        central,
        FormatearSQL(kPagos,
                     {Texto(LimpiarNulo(f[kTipoDoc])), Texto(LimpiarNulo(f[kSerie])), Texto(LimpiarNulo(f[kNumero]))}),
        v.pagos[n]);
    p.poDBAdmin.CerrarBD(central);
  }
  return v.pagos[n];
}

QString CeldaCuenta(const QVariant& valor) {
  if (valor.userType() == QMetaType::QDateTime) return dia(valor);
  // What the lists show of numbers are amounts; a server may give a round one as a whole number.
  const int tipo = valor.userType();
  if (tipo == QMetaType::Double || tipo == QMetaType::LongLong) return dinero(valor.toDouble());
  return LimpiarNulo(valor);
}

QString PapelCuenta(Puesto& p, ConsultaCtaCteCliente& v) {
  (void)CargarCabeceraImpresion(p);  // a header that can't be read stays as it was
  const QString raya = QString(39, u'-') + kFin;
  QString t = LineasCabecera(p.ses.psCabeceraImpresion) + kFin + centrado(QStringLiteral("ESTADO DE CUENTA")) +
              centrado(FormatearFecha(p.reloj.now(), u"dd/mm/yyyy hh:nn")) + raya + QStringLiteral("Cliente: ") +
              Izquierda(v.cliente.txtNombres, 30) + kFin + QStringLiteral("Tarjeta: ") + v.cliente.txtTarjeta +
              QStringLiteral("   Local: ") + v.cliente.txtLocal + kFin + raya;
  double soles = 0, dolares = 0;
  for (int n = 0; n < v.documentos.RecordCount(); ++n) {
    const Recordset& pagos = PagosDe(p, v, n);
    if (!v.pagosLeidos[static_cast<size_t>(n)]) return {};
    t += bloqueDeCuenta(Recordset::Fila(v.documentos, n), pagos, soles, dolares) + raya;
  }
  if (v.documentos.RecordCount() == 0) t += QStringLiteral("Sin documentos") + kFin + raya;
  return t + renglon(QStringLiteral("DEUDA EN SOLES"), simbolo(false) + dinero(soles)) +
         renglon(QStringLiteral("DEUDA EN DOLARES"), simbolo(true) + dinero(dolares));
}

void VerReporteCuenta(Puesto& p, ConsultaCtaCteCliente& v) {
  const QString papel = PapelCuenta(p, v);
  if (papel.isEmpty()) return;
  ImprimirDocumento(p, papel, kImpresoraAlterna, QStringLiteral("EstadoCuenta"));
  const QString pdf = p.rutas.enTemp(
      QStringLiteral("EstadoCuenta_%1_%2.pdf").arg(v.cliente.txtTarjeta, FormatearFecha(p.reloj.now(), u"ddmmyyyy")));
  const Letra letra;
  if (const auto fallo = p.puertos.guardarPdf(pdf, letra.nombre, letra.puntos, {papel})) {
    p.mensajes.mostrar(*fallo);
    return;
  }
  if (AbrirEnlace(p, QUrl::fromLocalFile(pdf).toString(QUrl::FullyEncoded))) return;
  p.mensajes.mostrar(QStringLiteral("El estado de cuenta quedó guardado en:\n%1").arg(pdf));
}
