#include "voiding/texto_transaccion.h"

#include "documento/ticket.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"

namespace {

const QString kFin = QStringLiteral("\r\n");
const QString kMascara = QStringLiteral("###,###,##0.00");

QString conAsterisco(double valor, int ancho, QStringView mascara = kMascara) {
  return Derecha(Espacios(28) + u'*' + Formatear(valor, mascara), ancho);
}

struct Sumas {
  double total = 0, servicio = 0, cantidad = 0;
};

QString lineaArticulo(const LineaGuardada& l) {
  FormaLineas f;
  f.descripcion = 18;
  f.importe = 7;
  f.mascara = kMascara;
  f.entero = true;
  LineaDocumento aPrecioDeLista = l.linea;
  aPrecioDeLista.porcentaje = 0;
  return LineasArticulo(aPrecioDeLista, f) + kFin;
}

QString lineaDescuento(double porcentaje) {
  return Espacios(4) + Izquierda(QStringLiteral("%Dscto          "), 10) + u' ' +
         Derecha(Espacios(10) + u'*' + Formatear(porcentaje, u"###,##0.00"), 11) + kFin;
}

QString lineas(const DocumentoGuardado& t, const FormaTransaccion& forma, Sumas& s) {
  const bool orden = t.tipo == TipoOperacion::OC;
  QString texto = forma.titulo + kFin + Separador() + kFin;
  for (const LineaGuardada& l : t.lineas) {
    texto += lineaArticulo(l);
    if (l.linea.porcentaje != 0) texto += lineaDescuento(l.linea.porcentaje);
    const double valor = ValorDe(l.linea);
    s.total += valor;
    s.cantidad += l.linea.cantidad;
    if (!orden) s.servicio += valor * l.servicio / 100;
  }
  s.total = Redondear(s.total, 2);
  return texto;
}

QString totales(const DocumentoGuardado& t, const Sumas& s) {
  const QString rotulo = QStringLiteral("CASH/TL  ");
  switch (t.tipo) {
    case TipoOperacion::PADE:
    case TipoOperacion::PADV:
      return rotulo + (t.enDolares ? QStringLiteral("$  ") : QStringLiteral("S/.")) +
             conAsterisco(s.total, t.tipo == TipoOperacion::PADE ? 26 : 29);
    case TipoOperacion::OC:
      if (t.vuelto == 0) return rotulo + conAsterisco(s.total, 29);
      return QStringLiteral("SUB/TOTL ") + conAsterisco(s.total, 29) + kFin + QStringLiteral("EFECTIVO ") +
             conAsterisco(t.efectivo, 29) + kFin + QStringLiteral("VUELTO   ") + conAsterisco(t.vuelto, 29);
    default: return rotulo + conAsterisco(s.total, 29);
  }
}

}  // namespace

QString BloqueCabecera(Puesto& p) {
  (void)CargarCabeceraImpresion(p);  // a header that can't be read stays as it was
  return LineasCabecera(p.ses.psCabeceraImpresion);
}

QString CuerpoTransaccion(const DocumentoGuardado& t, const FormaTransaccion& forma, double& total) {
  Sumas s;
  QString texto;
  if (t.tipo == TipoOperacion::PADE || t.tipo == TipoOperacion::PADV) {
    s.total = t.enDolares ? t.montoDolares : t.montoSoles;
  } else {
    texto = lineas(t, forma, s);
  }
  if (Redondear(s.servicio, 2) != 0) {
    texto += QStringLiteral("  %SERVICIO") + Derecha(Espacios(14) + u'*' + Formatear(s.servicio, kMascara), 15) + kFin;
  }
  texto += Separador() + kFin + totales(t, s) + kFin + forma.item + conAsterisco(s.cantidad, 29, u"###,##0.00") + kFin +
           kFin;
  total = s.total;
  return texto;
}

QString BloqueDocumento(const DocumentoGuardado& t) {
  return Espacios(10) + QStringLiteral("Documento:") + NumeroImpreso(t.docSerie, t.docNumero, 7) + kFin;
}
