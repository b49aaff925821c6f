#include "sale/lectura.h"

#include <algorithm>

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full_totales.h"
#include "sale/pantallas_venta.h"

namespace {

constexpr int kLargoTarjeta = 8, kLargoRUC = 11;
const QString kCantidad = QStringLiteral("txtCantidad"), kTarjeta = QStringLiteral("txtTarjeta");

bool soloDigitos(const QString& t) {
  return std::all_of(t.begin(), t.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString trasTarjeta(ResultadoTarjeta r, const ClienteDocumento& c, const QString& siHallada) {
  if (r == ResultadoTarjeta::NoExiste) return kTarjeta;
  return r == ResultadoTarjeta::VariosLocales && !c.locales.empty() ? QStringLiteral("dcbLocal") : siHallada;
}

QString tomarTarjeta(Puesto& p, ClienteDocumento& c, PantallasVenta& pantallas, const QString& numero,
                     const QString& siHallada) {
  c.txtTarjeta = numero;
  return trasTarjeta(BuscaTarjeta(p, c, pantallas), c, siHallada);
}

// The last line with an article; -1 for none.
int ultimaLinea(const RejillaLineas& l) {
  int n = static_cast<int>(l.filas.size()) - 1;
  while (n >= 0 && l.filas[static_cast<size_t>(n)][kCod].isEmpty()) --n;
  return n;
}

Foco enCantidad(int fila) { return {QStringLiteral("TDBGrid1"), fila, kCant}; }

}  // namespace

bool PuedeSerCodigo(const QString& leido, bool enRUC) {
  if (enRUC && leido.size() == kLargoRUC && soloDigitos(leido)) return false;
  return soloDigitos(leido) || !EsNumerico(leido);
}

std::optional<CodigoLeido> ReconocerCodigo(Puesto& p, const QString& leido) {
  const auto articulo = CodigoDeCatalogo(p, leido);
  if (!articulo) return {};
  if (!articulo->isEmpty()) return CodigoLeido{CodigoLeido::Articulo, *articulo};
  if (leido.size() == kLargoTarjeta && soloDigitos(leido) && HayTarjeta(p, leido)) {
    return CodigoLeido{CodigoLeido::Tarjeta, leido};
  }
  p.mensajes.mostrar(QStringLiteral("Articulo No Existe...!!!\nCódigo leído: ") + leido);
  return {};
}

Foco TomarCodigo(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas, const CodigoLeido& leido) {
  if (leido.clase == CodigoLeido::Tarjeta) {
    const QString campo = tomarTarjeta(p, v, pantallas, leido.codigo, QStringLiteral("TDBGrid1"));
    return campo == u"TDBGrid1" ? Foco{campo, static_cast<int>(v.rejilla.filas.size()) - 1} : Foco{campo};
  }
  if (!pantallaDe(v.nTipoVenta).llevaLineas || v.liquidacion || v.rejilla.bloqueada) {
    p.mensajes.mostrar(QStringLiteral("Las líneas de este documento no se cambian: el código leído no se agregó."));
    return {};
  }
  v.pestana = 0;
  const int ultima = ultimaLinea(v.rejilla);
  if (ultima >= 0) {
    const FilaVenta& f = v.rejilla.filas[static_cast<size_t>(ultima)];
    if (f[kCod] == leido.codigo) {
      QString cantidad = Formatear(LineaDe(p, f).cantidad + 1, u"0.00");
      (void)SalirCelda(p, v, ultima, kCant, cantidad);
      return enCantidad(ultima);
    }
  }
  const auto antes = v.rejilla.filas.size();
  const int fila = AgregarFila(v.rejilla);
  QString codigo = leido.codigo;
  if (SalirCelda(p, v, fila, kCod, codigo)) return enCantidad(fila);
  if (v.rejilla.filas.size() > antes) QuitarFila(v.rejilla, fila);
  return {};
}

TrasTeclaRapida TomarCodigo(Puesto& p, CajaRegistradora& v, PantallasVenta& pantallas, const CodigoLeido& leido) {
  if (leido.clase == CodigoLeido::Tarjeta) {
    return {false, tomarTarjeta(p, v, pantallas, leido.codigo, v.bVentaIniciada ? kCantidad : kTarjeta)};
  }
  if (!SalirCantidad(p, v)) return {false, kCantidad, true};  // what was typed for the line before it
  const int codigo = leido.codigo.toInt();
  if (!v.bVentaIniciada || v.lineas.back().cProdCode != codigo) {
    return {false, CapturaDatosProducto(p, v, codigo) ? kCantidad : QString()};
  }
  v.txtCantidad = QString::number(v.lineas.back().cantidad + 1);
  (void)SalirCantidad(p, v);
  return {false, kCantidad};
}
