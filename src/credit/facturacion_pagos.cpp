#include "credit/facturacion_pagos.h"

#include "credit/facturacion.h"
#include "credit/liquidacion_credito.h"
#include "credit/nota_consumo.h"
#include "credit/pagos.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

bool leerLista(Puesto& p, Conexion& central, LiteralSql sql, std::vector<Referencia>& lista) {
  Recordset rs;
  lista.clear();
  if (!p.poDBAdmin.EjecutarConsulta(central, sql, rs)) return false;
  for (const auto& f : rs) lista.push_back({LimpiarNulo(f[0]), LimpiarNulo(f[1])});
  return true;
}

bool leerLocales(Puesto& p, Conexion& central, ClienteDocumento& c) {
  Recordset rs;
  c.locales.clear();
  if (!p.poDBAdmin.EjecutarConsulta(central, u"SELECT idlocal,dsclocal FROM local"_sql, rs)) return false;
  for (const auto& f : rs) c.locales.push_back({static_cast<int>(AEntero(Numero(f[0]))), LimpiarNulo(f[1])});
  return true;
}

// One failure is told once, and the rest is left out.
bool leerReferencias(Puesto& p, Conexion& central, CajaFacturacionPagos& v) {
  Referencias& r = v.referencias;
  return leerLocales(p, central, v.factura) &&
         leerLista(p, central, u"select cCodTipoCredito,vDscTipoCredito from TipoCredito"_sql, r.creditos) &&
         leerLista(p, central, u"select cCodTipoPago,vDscTipoPago from tipoformapago order by vDscTipoPago"_sql,
                   r.formas) &&
         leerLista(p, central, u"select cCodBanco,vDscBanco from banco order by vDscBanco"_sql, r.bancos) &&
         leerLista(p, central, u"select cod_tar,descrip from tipo_tarjeta order by descrip"_sql, r.tarjetas);
}

}  // namespace

QString CodigoElegido(const std::vector<Referencia>& lista, int indice) {
  const auto i = static_cast<size_t>(indice);
  return indice < 0 || i >= lista.size() ? QString() : lista[i].codigo;
}

void InicioFacturacion(Puesto& p, CajaFacturacionPagos& v) {
  v = {};
  LimpiarFactura(p, v.factura);
  LimpiarPagos(p, v.pago);
  LimpiarNota(v.nota);
  LimpiarLiquidacion(v.liquidacion);
  const Ocupado ocupado(p.mensajes, QStringLiteral("Leyendo la base de datos central…"));
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, true)) return;
  if (leerReferencias(p, central, v)) (void)CerrarNotasLiquidadas(p, central);
  p.poDBAdmin.CerrarBD(central);
}

std::optional<QDate> FechaTecleada(const QString& texto) {
  const auto fecha = LeerFecha(Recortar(texto));
  return fecha ? std::optional(fecha->date()) : std::nullopt;
}

QString HoyTecleado(const Puesto& p) { return FormatearFecha(p.reloj.now(), u"dd/mm/yyyy"); }

void TotalesDeRejilla(const Puesto& p, RejillaLineas& l, QString& soles, QString& dolares) {
  const double total = TotalDeLineas(p, l);
  soles = Formatear(total, u"0.00");
  dolares = Formatear(p.ses.pnTipoCambio > 0 ? total / p.ses.pnTipoCambio : 0, u"0.00");
}

std::vector<LineaDocumento> LineasConArticulo(const Puesto& p, RejillaLineas& l) {
  const std::pair<size_t, QString> defectos[] = {{kCant, QStringLiteral("1.00")},
                                                 {kPrecio, QStringLiteral("0.00")},
                                                 {kSigno, QStringLiteral("0.00")},
                                                 {kPorc, QStringLiteral("0.00")},
                                                 {kPtos, QStringLiteral("0")}};
  std::vector<LineaDocumento> lineas;
  for (FilaVenta& f : l.filas) {
    if (Recortar(f[kCod]).isEmpty()) continue;
    for (const auto& [columna, defecto] : defectos) {
      if (Recortar(f[columna]).isEmpty()) f[columna] = defecto;
    }
    lineas.push_back(LineaDe(p, f));
    f[kItem] = QString::number(lineas.size());
  }
  return lineas;
}

bool AutorizarLineas(PantallasCredito& pantallas, const RejillaLineas& l, QString& supervisor) {
  supervisor.clear();
  bool conPorcentaje = false;
  for (const auto& f : l.filas) conPorcentaje = conPorcentaje || (!f[kCod].isEmpty() && LeerImporte(f[kPorc]) != 0);
  if (!conPorcentaje) return true;
  const auto nombre = pantallas.autorizar(QStringLiteral("Venta con descuento o recargo"));
  if (!nombre || Recortar(*nombre).isEmpty()) return false;
  supervisor = *nombre;
  return true;
}
