#include "cashday/informe.h"
#include "cashday/reporte_paralelo.h"
#include "documento/clase.h"
#include "platform/io/puertos.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr int kColumnas = 27;
constexpr int kHueco = 17;         // before the mark of an amount
constexpr int kAnchoImporte = 29;  // of what stands behind a label of 10
const QString kFin = QStringLiteral("\r\n");

class Parte {
 public:
  void linea(const QString& texto = {}) { texto_ += texto + kFin; }
  void regla(QChar c = u'=') { linea(QString(kColumnas, c)); }
  void titulo(const QString& texto) {
    regla();
    linea(texto);
    regla();
  }
  void importe(const QString& rotulo, double valor, QChar marca = u'*') {
    linea(rotulo + Derecha(Espacios(kHueco) + marca + Importe(valor), kAnchoImporte));
  }
  void cuenta(const QString& rotulo, qint64 cuantos) {
    linea(rotulo + Derecha(Espacios(8) + Cuenta(static_cast<double>(cuantos)), kAnchoImporte));
  }
  // The printer ends the last line itself.
  QString texto() const { return Izquierda(texto_, static_cast<int>(texto_.size() - kFin.size())); }

 private:
  QString texto_;
};

QString rotulo(const QString& texto) { return ALaIzquierda(texto, 10); }

void totales(Parte& p, const DatosReporteParalelo& d) {
  p.importe(rotulo(QStringLiteral("TOTAL")), d.unidades);
  p.importe(rotulo({}), d.monto);
  p.importe(rotulo(QStringLiteral("AV./ITEM")), d.unidades != 0 ? d.monto / d.unidades : 0);
}

QString encabezado(const DatosReporteParalelo& d, const QString& etiqueta) {
  Parte p;
  for (const QString& linea : d.cabecera)
    p.linea(Derecha(Espacios(14) + linea, static_cast<int>(linea.size()) / 2 + 14));
  p.linea();
  p.linea(Espacios(6) + FormatearFecha(d.momento, u"DD/MM/YYYY (DDD)"));
  p.titulo(etiqueta + QStringLiteral(" CHECK                10"));
  totales(p, d);
  p.regla();
  return p.texto();
}

QString detalle(const DatosReporteParalelo& d) {
  Parte p;
  for (const TransaccionParalela& t : d.transacciones) {
    p.regla(u'-');
    p.linea(QStringLiteral("TX") + QString::number(t.codigo));
    for (const LineaParalela& l : t.lineas) {
      p.importe(rotulo(l.nombre), l.precio, u'@');
      p.importe(rotulo(l.nombre), l.cantidad);
      p.importe(QStringLiteral("%Dscto    "), l.porcentaje);
    }
    p.importe(QStringLiteral("  AV./ITEM"), t.monto);
  }
  return p.texto();
}

void cobro(Parte& p, const QString& nombre, const CobroParalelo& c) {
  if (c.cuenta == 0) return;
  p.cuenta(nombre, c.cuenta);
  p.importe(rotulo({}), c.monto);
}

QString cierre(const DatosReporteParalelo& d, const QString& etiqueta) {
  Parte p;
  p.titulo(etiqueta + QStringLiteral(" CHECK                20"));
  totales(p, d);
  cobro(p, QStringLiteral("   CASH/TL"), d.efectivo);
  cobro(p, QStringLiteral("   TARJETA"), d.tarjetas);
  p.cuenta(QStringLiteral("  NET-TOTL"), d.cobrados);
  p.importe(rotulo({}), d.monto);
  if (d.cobrados != 0) p.importe(QStringLiteral("  AV./TRAN"), d.monto / static_cast<double>(d.cobrados));
  p.linea();
  p.linea(u' ' + Izquierda(d.usuario, 10) + u' ' + FormatearFecha(d.momento, u"hh:mm") + u' ' +
          Ceros(QString::number(d.numero), 6));
  p.linea(QStringLiteral("CAJA: ") + d.caja + QStringLiteral("   TURNO: ") + d.turno);
  return p.texto();
}

}  // namespace

DocumentoImpreso PapelReporteParalelo(const DatosReporteParalelo& d) {
  const QString etiqueta = PalabraDe(d.tipo), blanco = QStringLiteral(" ");
  return {encabezado(d, etiqueta), detalle(d), cierre(d, etiqueta), blanco, blanco};
}
