#include "documento/ticket.h"

#include <algorithm>

#include "foundation/version.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

const QString kFin = QStringLiteral("\r\n");
constexpr int kAncho = 40;

QString alInicioDe(const QString& texto, int ancho) { return Izquierda(texto + Espacios(ancho), ancho); }
QString alFinalDe(const QString& texto, int ancho) { return Derecha(Espacios(ancho) + texto, ancho); }

QString cabecera(const DatosTicket& t) { return EsParalela(t.clase) ? QString() : LineasCabecera(t.cabecera); }

QString cliente(const DatosTicket& t) {
  const QString raya(28, u'_');
  QString s;
  if (!t.tarjeta.isEmpty()) s += kFin + QStringLiteral(" COD.TARJ.: ") + t.tarjeta + u' ';
  if (t.factura) {  // the name is filled in by hand
    return s + kFin + QStringLiteral(" NOMBRE: ") + raya + kFin + kFin + Espacios(9) + raya + kFin + kFin +
           LineaRuc(t.ruc);
  }
  if (!t.tarjeta.isEmpty()) return s + kFin + QStringLiteral(" NOMBRE: ") + t.nombre + kFin;
  const QString nombre = Recortar(t.nombre).toUpper();
  return nombre.isEmpty() ? s : s + kFin + QStringLiteral(" NOMBRE: ") + nombre + kFin;
}

QString numeroTicket(const DatosTicket& t) {
  return QStringLiteral(" TK NRO: ") + NumeroConMarca(t.serie, QString::number(t.numero), t.serieImpresora);
}

QString palabra(const DatosTicket& t) {
  QString p = DatosDe(t.clase).palabra.toString();
  if (p.isEmpty() && t.dolares) p = PalabraDolares(t.tipoCambio);
  return (p.isEmpty() ? QString() : LineaCentrada(p)) + kFin;
}

QString articulos(const std::vector<LineaDocumento>& lineas, const FormaLineas& forma) {
  QStringList s;
  for (const auto& l : lineas) s << LineasArticulo(l, forma);
  return s.join(kFin);
}

// Each note with the quantity of its last line behind it.
QString notas(const DatosTicket& t) {
  QString s;
  for (const auto& n : t.notas) {
    s += QStringLiteral("TX") + QString::number(n.tx) + kFin;
    if (n.lineas.empty()) continue;
    s += articulos(n.lineas, t.forma) + kFin + LineaTotal(Total(QStringLiteral(" AV./ITEM"), n.lineas.back().cantidad));
  }
  return s;
}

QString lineas(const DatosTicket& t) {
  if (!DatosDe(t.clase).llevaLineas) return {};
  return t.forma.titulo + kFin + Separador() + kFin + notas(t) + articulos(t.lineas, t.forma);
}

QString separadorTicket(const DatosTicket&) { return Separador(); }

QString totales(const DatosTicket& t) {
  QString s;
  for (const auto& r : t.totales) s += LineaTotal(r);
  return s;
}

QString cantidad(const DatosTicket& t) {
  double suma = 0;
  for (const auto& l : t.lineas) suma += l.cantidad;
  for (const auto& n : t.notas) {
    for (const auto& l : n.lineas) suma += l.cantidad;
  }
  if (suma <= 0) return {};
  return LineaTotal({QStringLiteral(" ITEM"), Formatear(suma, t.forma.mascaraItem)}) + kFin;
}

QString puntos(const DatosTicket& t) { return t.puntos ? LineasPuntos(*t.puntos) : QString(); }

QString momento(const DatosTicket& t) {
  return Espacios(9) + FormatearFecha(t.momento, t.sinHora ? u"(DDD) DD/MM/YYYY" : u"(DDD) DD/MM/YYYY hh:mm") + kFin;
}

QString supervisor(const DatosTicket& t) {
  return t.supervisor.isEmpty() ? QString() : QStringLiteral("       SUPERVISOR: ") + t.supervisor + kFin;
}

QString caja(const DatosTicket& t) {
  return Espacios(3) + Izquierda(t.usuario, 10) + QStringLiteral("  Cj:") + t.caja + t.forma.turno + t.turno +
         QStringLiteral(" v") + Version() + kFin;
}

QString correlativo(const DatosTicket& t) { return QStringLiteral("         Correlativo: ") + t.correlativo; }

QString lemaTicket(const DatosTicket& t) { return EsParalela(t.clase) ? QString() : LineaLema(t.lema); }

}  // namespace

QString Separador() { return QString(39, u'-'); }

QString LineaCentrada(const QString& texto) {
  return Derecha(Espacios(60) + texto, (kAncho + static_cast<int>(texto.size())) / 2) + kFin;
}

QString LineasCabecera(const QStringList& cabecera) {
  QString s;
  for (const QString& linea : cabecera) {
    if (!Recortar(linea).isEmpty()) s += LineaCentrada(linea);
  }
  return s;
}

QString LineaRuc(const QString& ruc) { return QStringLiteral(" RUC Cliente: ") + Recortar(ruc) + kFin; }

QString NumeroImpreso(const QString& serie, const QString& numero, int digitos) {
  return serie + u'-' + Ceros(numero, digitos);
}

QString NumeroConMarca(const QString& serie, const QString& numero, const QString& marca) {
  return NumeroImpreso(serie, numero) + QStringLiteral(" NS:") + marca;
}

QString PalabraDolares(double tipoCambio) {
  return QStringLiteral("U$(TC: ") + Formatear(tipoCambio, u"###,##0.00") + QStringLiteral(")");
}

QString LineaLema(const QString& lema) { return kFin + kFin + Espacios(3) + lema; }

QString LineaTotal(const RenglonTotal& r) {
  if (r.llano) return r.etiqueta + r.valor + kFin;
  const int etiqueta = r.ancho ? 19 : 23, valor = r.ancho ? 19 : 15;
  return alInicioDe(r.etiqueta, etiqueta) + alFinalDe(r.valor, valor) + kFin;
}

RenglonTotal Total(const QString& etiqueta, double valor) { return {etiqueta, Formatear(valor, u"0.00")}; }

QString LineasArticulo(const LineaDocumento& linea, const FormaLineas& f) {
  const ImportesLinea i = ImportesDe(linea);
  const auto fila = [&f](const QString& a, const QString& b, const QString& c, const QString& d) {
    QString cifras;
    for (const auto& [texto, ancho] : {std::pair(b, f.cantidad), {c, f.precio}, {d, f.importe}}) {
      cifras += u' ' + alFinalDe(texto, f.entero ? std::max(ancho, static_cast<int>(texto.size())) : ancho);
    }
    const int ancho = f.descripcion + f.cantidad + f.precio + f.importe + 3;
    return alInicioDe(a, std::max(0, ancho - static_cast<int>(cifras.size()))) + cifras;
  };
  QString s = fila(linea.descripcion, QString::number(linea.cantidad), Formatear(i.precio, f.mascara),
                   Formatear(i.importe, f.mascara));
  if (linea.porcentaje < 0) {
    s += kFin + fila(QStringLiteral("*Dscto ") + TextoDe(-linea.porcentaje) + QStringLiteral(" %"), {}, {},
                     Formatear(i.descuento, f.mascara));
  }
  return s;
}

QString LineasPuntos(const PuntosTicket& p) {
  const QString acumulado = p.acumulado < 0 ? QStringLiteral("**") : TextoDe(p.acumulado);
  return QStringLiteral(" UD. ACUMULO: ") + QString::number(p.ganados) + QStringLiteral(" PUNTOS") + kFin +
         QStringLiteral(" TIENE ACUMULADO: ") + acumulado + QStringLiteral(" PUNTOS") + kFin + kFin;
}

QString TextoTicket(const DatosTicket& t) {
  QString texto;
  for (const auto item : {cabecera, cliente, numeroTicket, palabra, lineas, separadorTicket, totales, cantidad, puntos,
                          momento, supervisor, caja, correlativo, lemaTicket}) {
    const QString s = item(t);
    if (!s.isEmpty()) texto += kFin + s;
  }
  return texto;
}
