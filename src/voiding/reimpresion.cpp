#include "voiding/reimpresion.h"

#include "documento/clase.h"
#include "documento/ticket.h"
#include "foundation/puesto.h"
#include "foundation/version.h"
#include "loyalty/puntos.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "printing/canal.h"

namespace {

const QString kFin = QStringLiteral("\r\n");
const QString kMascara = QStringLiteral("###,###,##0.00");
const FormaTransaccion kForma{.titulo = QStringLiteral("Producto           Cant. Precio SubTot."),
                              .item = QStringLiteral("ITEM     ")};

struct SumasVenta {
  double total = 0, igv = 0, servicio = 0, cantidad = 0;
};

QString cliente(const Puesto& p, const DocumentoGuardado& t) {
  const QString raya(28, u'-');
  QString s;
  if (!t.ruc.isEmpty()) {
    s = QStringLiteral(" NOMBRE: ") + raya + kFin + Espacios(9) + raya + kFin + LineaRuc(t.ruc);
  }
  return s + QStringLiteral(" TICKET NRO: ") + NumeroConMarca(t.docSerie, t.docNumero, p.ses.psSerieImpresora) + kFin;
}

QString palabras(const PantallaTransaccion& v) {
  const DocumentoGuardado& t = *v.cargada;
  const QString palabra = PalabraDe(t.tipo);
  QString s = palabra.isEmpty() ? QString() : LineaCentrada(palabra);
  if (t.tipo == TipoOperacion::Liquidado || (!t.paralela && t.dolares > 0)) {
    s += LineaCentrada(PalabraDolares(v.tipoCambio));
  }
  return s;
}

// Tax and service of a line go to cents one by one, as the register shows them.
QString lineas(const Puesto& p, const DocumentoGuardado& t, SumasVenta& s) {
  FormaLineas f;
  f.descripcion = 18;
  f.importe = 7;
  f.mascara = kMascara;
  f.entero = true;
  QString texto = kForma.titulo + kFin + Separador() + kFin;
  for (const LineaGuardada& l : t.lineas) {
    const double valor = ValorDe(l.linea), servicio = l.servicio / 100;
    const double base = valor / (1 + p.ses.pnIGV + servicio);
    s.total += valor;
    s.cantidad += l.linea.cantidad;
    s.igv += Redondear(base * p.ses.pnIGV, 2);
    s.servicio += Redondear(base * servicio, 2);
    texto += LineasArticulo(l.linea, f) + kFin;
  }
  s.total = Redondear(s.total, 2);
  return texto + Separador() + kFin;
}

QString renglonTotal(const QString& rotulo, double valor) { return LineaTotal({rotulo, Formatear(valor, kMascara)}); }

QString totales(const Puesto& p, const DocumentoGuardado& t, const SumasVenta& s) {
  const bool voucher = t.tipo == TipoOperacion::Voucher;
  QString texto;
  if (t.tipo != TipoOperacion::Liquidado && t.ruc.isEmpty()) {
    texto = renglonTotal(voucher ? QStringLiteral(" VOUCHER") : QStringLiteral(" VALOR VTA."), s.total);
  } else if (t.tipo != TipoOperacion::Liquidado) {
    texto = renglonTotal(QStringLiteral(" VALOR VTA"), s.total - s.igv - s.servicio) +
            renglonTotal(QStringLiteral(" IGV"), s.igv);
    if (s.servicio != 0) {
      texto += renglonTotal(QStringLiteral(" SERVICIO") + p.ses.psPorcServ + QStringLiteral(" %"), s.servicio);
    }
    texto += renglonTotal(QStringLiteral(" TOTAL"), s.total);
  }
  texto += kFin + LineaTotal({QStringLiteral(" ITEM"), Formatear(s.cantidad, u"###,##0.00")});
  return voucher ? texto + QStringLiteral("VO-POSTN") + kFin : texto;
}

// The balance holds the points of this sale already; those of a voided one were taken back.
QString puntos(Puesto& p, const PantallaTransaccion& v, double importe) {
  const DocumentoGuardado& t = *v.cargada;
  const QString local = t.idLocal.isEmpty() ? v.idLocal : t.idLocal;
  if (t.anulada || local.isEmpty() || !GanaPuntos({t.docTipo, t.docSerie, 0}, t.tarjeta, importe)) return {};
  const QString saldo = SaldoPuntos(p, t.tarjeta, static_cast<int>(AEntero(Val(local))));
  const int ganados = CalcularPuntos(p, importe);
  if (ganados <= 0 || saldo == u"-1" || ganados + Val(saldo) < 0) return {};
  return LineasPuntos({ganados, Val(saldo)});
}

QString cierre(const DocumentoGuardado& t) {
  return FormatearFecha(t.fecha, u"(DDD) DD/MM/YYYY ") + FormatearFecha(t.fecha, u"hh:mm") + kFin + t.usuario +
         QStringLiteral(" Cj:") + t.caja + QStringLiteral("  T:") + t.turno + QStringLiteral("v") + Version();
}

QString textoVenta(Puesto& p, PantallaTransaccion& v) {
  const DocumentoGuardado& t = *v.cargada;
  SumasVenta s;
  const QString articulos = lineas(p, t, s);
  return BloqueCabecera(p) + cliente(p, t) + palabras(v) + articulos + totales(p, t, s) + puntos(p, v, s.total) +
         cierre(t) + LineaLema(p.ses.textosPapel.Lema);
}

}  // namespace

void MuestraReimpresion(Puesto& p, PantallaTransaccion& v) {
  const DocumentoGuardado& t = *v.cargada;
  v.txtTexto = t.paralela ? palabras(v) + CuerpoTransaccion(t, kForma, v.bloques.total) + BloqueDocumento(t) + cierre(t)
                          : textoVenta(p, v);
}

void Reimprimir(Puesto& p, PantallaTransaccion& v) {
  ImprimirDocumento(p, v.txtTexto, v.chkAlterno ? kImpresoraAlterna : kImpresoraPrincipal);
  v.accion = false;
}
