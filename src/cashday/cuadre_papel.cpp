// The two papers of the cash count, 27 columns.
#include "cashday/cuadre.h"
#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "foundation/version.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"

namespace {

const QString kFin = QStringLiteral("\r\n");
constexpr int kAncho = 27, kMitad = 14, kImporte = 9;

QString centrada(const QString& texto, const QString& blancos) {
  return Derecha(blancos + texto, static_cast<int>(texto.size()) / 2 + kMitad);
}

// An amount that does not fit its column widens the line: cut on the left it would be another amount.
QString alFinal(const QString& texto) {
  const QString s = u'*' + texto;
  return texto.size() > kImporte ? s : Derecha(Espacios(kImporte) + s, kImporte);
}

// The lines from the first dash line on, without their ends.
QStringList lineasDe(const Cuadre& v, size_t lado, const QString& titulo) {
  using L = LadoCuadre;
  // clang-format off
  static const struct { const char* rotulo; QString L::*soles, L::*dolares; bool dolaresSoloZ1; } kRenglones[] = {
      {"   PAGOS", &L::txtPagos, nullptr, false},
      {" VOUCHER", &L::txtVoucher, &L::txtVoucherDolares, true},
      {"ENTREG. ", nullptr, nullptr, false},
      {"APERTURA", &L::txtapersoles, &L::txtaperdolares, false},
      {"    CASH", &L::txtCash, &L::txtCashDolares, false},
      {"CASH-DRW", &L::txtCashDRW, &L::txtCashDRWDolares, false},
      {"    CAJA", &L::txtCaja, &L::txtCajaDolares, false},
      {"FALT/SOB", &L::txtFALTSOB, &L::txtFALTSOBDolares, false},
  };
  // clang-format on
  const QString raya(kAncho, u'-');
  QStringList s{raya, centrada(titulo, Espacios(kAncho)), raya,
                QStringLiteral("CONCEPTO") + QStringLiteral("   SOLES  ") + QStringLiteral(" DOLARES ")};
  const LadoCuadre& c = v.lado[lado];
  for (const auto& r : kRenglones) {
    QString linea = QString::fromLatin1(r.rotulo) + alFinal(r.soles ? c.*r.soles : v.txtEntregado);
    if (r.dolares && (!r.dolaresSoloZ1 || lado == kLadoZ1)) linea += alFinal(c.*r.dolares);
    s << linea;
  }
  return s;
}

QString papel(Puesto& p, const QString& cabecera, const QStringList& lineas, int impresora) {
  return cabecera + Espacios(6) + FormatearFecha(p.reloj.now(), u"dd/mm/yyyy (ddd)") + kFin + lineas.join(kFin) + kFin +
         kFin + kFin + QStringLiteral("CAJA: ") + p.ses.psCaja + kFin + QStringLiteral("Versión ") + Version() + kFin +
         QStringLiteral("Correlativo: ") + CorrelativoImpresion(p, impresora);
}

std::optional<ErrorBD> guardarLineas(Puesto& p, const QStringList& lineas) {
  Recordset rs;
  if (const auto e = p.poCnnLocal.consultar(u" SELECT MAX(dCuadreID) AS TOTAL FROM CUADRE_CAJA"_sql, rs)) {
    return e;
  }
  const double id = Numero(rs[u"TOTAL"]) + 1;
  std::vector<Sql> sentencias;
  for (const QString& linea : lineas) {
    sentencias.push_back(FormatearSQL(
        u" INSERT INTO CUADRE_CAJA(dCuadreFecha, dCuadreID, dCuadreLinea, dCuadreDetalle) VALUES ('$', $, $, '$')"_sql,
        {Texto(FormatearFecha(p.reloj.now(), u"dd/mm/yyyy")), id, sentencias.size() + 1, Texto(linea)}));
  }
  return EjecutarJuntas(p.poCnnLocal, sentencias);
}

void imprimirZ1(Puesto& p, const Cuadre& v) {
  const QStringList lineas = lineasDe(v, kLadoZ1, p.ses.textosPapel.TituloCuadreZ1);
  if (const auto error = guardarLineas(p, lineas)) {
    p.mensajes.mostrar(QStringLiteral("No se pudo guardar el CUADRE CAJA Z1, por eso no se imprime: ") +
                       error->descripcion);
    return;
  }
  const QString texto = papel(p, {}, lineas, kImpresoraAlterna);
  if (p.ses.pnCortaPapelAlterna != 1) {
    ImprimirDocumento(p, texto, kImpresoraAlterna);
    return;
  }
  // The raw copy of this paper takes the main route, whatever printer is chosen.
  SeleccionarImpresora(p, p.ses.kPAR_IMPRESORA_ALTERNA);
  QString tronco = QStringLiteral("Cuadre1");
  ImprimirTextoPuerto(p, texto, kImpresoraPrincipal, tronco);
}

void imprimirPrincipal(Puesto& p, const Cuadre& v) {
  QString cabecera;
  if (CargarCabeceraImpresion(p)) {
    for (const QString& linea : p.ses.psCabeceraImpresion) {
      if (!Recortar(linea).isEmpty()) cabecera += centrada(linea, Espacios(kMitad)) + kFin;
    }
  }
  ImprimirDocumento(p, papel(p, cabecera, lineasDe(v, kLadoZ, p.ses.textosPapel.TituloCuadre), kImpresoraPrincipal),
                    kImpresoraPrincipal, QStringLiteral("Cuadre"));
}

}  // namespace

void Imprimir(Puesto& p, const Cuadre& v) {
  imprimirZ1(p, v);
  imprimirPrincipal(p, v);
}
