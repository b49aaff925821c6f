#include "sale/caja_full.h"

#include <algorithm>

#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_adelanto.h"
#include "sale/caja_liquidacion.h"
#include "sale/caja_totales.h"
#include "sale/pantallas_venta.h"

namespace {

const QString kCero = QStringLiteral("0.00");

void olvidarCliente(CajaRegistradoraFull& v) {
  v.txtNombres.clear();
  v.tarjetaHallada.clear();
  ElegirLocal(v, 0);
}

// The sites don't change during a session, so one reading serves the screen's life.
void cargarLocales(Puesto& p, CajaRegistradoraFull& v) {
  if (!v.locales.empty() || p.ses.pbClienteCaido || !ConectarCliente(p, true)) return;
  Recordset rs;
  if (p.poDBAdmin.EjecutarConsulta(p.poCnnCliente, QStringLiteral("SELECT idlocal, dsclocal FROM local"), rs)) {
    for (const auto& f : rs) {
      v.locales.push_back({static_cast<int>(AEntero(Numero(f[u"idlocal"]))), LimpiarNulo(f[u"dsclocal"])});
    }
  }
  DesconectarCliente(p);
}

void vaciarVenta(Puesto& p, CajaRegistradoraFull& v) {
  v.lineas.assign(1, FilaVenta{});
  v.txtTarjeta.clear();
  v.txtRUC.clear();
  olvidarCliente(v);
  v.bAcceso = false;
  for (QString* campo : {&v.txtSoles, &v.txtDolares, &v.txtTotalPA, &v.txtTotalNC}) campo->clear();
  PonerTipo(v, kEfectivo);
  if (!v.bVoucherListo) {
    p.ses.poVoucher.clear();
    p.ses.poVoucherTotal = 0;
  }
}

bool esNegativo(const QString& campo) { return LeerImporte(campo) < 0; }

bool rucDeOnce(const QString& ruc) {
  return ruc.size() == 11 && std::all_of(ruc.begin(), ruc.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// A line without article blocks the sale; it gets the defaults that the cashier would have seen after a code.
std::optional<Foco> lineaSinArticulo(CajaRegistradoraFull& v) {
  for (size_t i = 0; i < v.lineas.size(); ++i) {
    FilaVenta& f = v.lineas[i];
    if (!Recortar(f[kCod]).isEmpty()) continue;
    f[kItem] = QString::number(i + 1);
    const std::pair<int, QString> defectos[] = {{kCant, QStringLiteral("1.00")}, {kPrecio, kCero}, {kSigno, kCero},
                                                {kSubTotal, kCero}, {kPorc, QStringLiteral("0")}};
    for (const auto& [columna, texto] : defectos) {
      if (f[static_cast<size_t>(columna)].isEmpty()) f[static_cast<size_t>(columna)] = texto;
    }
    return Foco{QStringLiteral("TDBGrid1"), static_cast<int>(i)};
  }
  return {};
}

}  // namespace

void Inicio(Puesto& p, CajaRegistradoraFull& v) {
  v.txtsupervisor.clear();
  for (auto& lista : v.lvwTX) lista.clear();
  for (QString& codigo : v.txtTXL) codigo.clear();
  p.ses.pbVoucher = false;
  v.tipos.clear();
  for (const auto& t : tiposDeVenta()) v.tipos.push_back(t.tipo);
  cargarLocales(p, v);
  v.localVisible = false;
  v.txtTC = Formatear(p.ses.pnTipoCambio, u"0.00");

  if (!v.bConservarLineas) vaciarVenta(p, v);

  v.txtCajero = p.ses.psUsuario;
  v.txtCaja = p.ses.psCaja;
  v.txtTurno = p.ses.psTurno;
  v.lblFecha = FormatearFecha(p.reloj.now(), u"dd/mm/yyyy");
  v.txtPagoAdelantado = v.txtPADEDolares = QStringLiteral("0");
  v.txtGlosa.clear();
  v.txtGlosa1.clear();

  LeerReglaPunto(p);
}

void PonerTipo(CajaRegistradoraFull& v, TipoVenta tipo) {
  v.nTipoVenta = tipo;
  v.efectivoTecleado = false;
  v.txtEfectivoSoles = v.txtEfectivoDolares = v.txtVueltoSoles = v.txtVueltoDolares = kCero;
  for (QString* campo : {&v.txtPADE, &v.txtimportepago, &v.txtGlosa1, &v.txtTX, &v.txtGlosa}) campo->clear();
  const PantallaTipo& pantalla = pantallaDe(tipo);
  v.pestana = qMax(0, pantalla.unicaPestana);
  if (!pantalla.rucEditable) v.txtRUC.clear();
}

void CambiarTipo(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas, TipoVenta tipo) {
  if (tipo == kAnular || tipo == kRecaudacion) {
    if (tipo == kAnular) pantallas.anular();
    else pantallas.retiro();
    tipo = v.tipos.front();
  }
  PonerTipo(v, tipo);
  if (tipo == kLIQPAD) TotalesTX(p, v);
  else SumarLineas(p, v);
}

void AjustarCliente(CajaRegistradoraFull& v) {
  const QString tarjeta = Recortar(v.txtTarjeta);
  const bool otra = tarjeta.isEmpty() || Ceros(tarjeta, 8) != v.tarjetaHallada;
  if (otra && !v.tarjetaHallada.isEmpty()) {
    olvidarCliente(v);
  } else {
    ElegirLocal(v, static_cast<int>(AEntero(Val(v.txtLocal))));
  }
}

void ElegirLocal(CajaRegistradoraFull& v, int id) {
  v.nIdLocal = id;
  v.txtLocal = id > 0 ? QString::number(id) : QString();
}

bool VentaVacia(const CajaRegistradoraFull& v) { return v.lineas.size() == 1 && v.lineas.front()[kCod].isEmpty(); }

ResultadoTarjeta BuscaTarjeta(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  const QString tecleada = Recortar(v.txtTarjeta);
  if (tecleada.isEmpty()) {
    v.txtTarjeta.clear();
    olvidarCliente(v);
    return ResultadoTarjeta::SinTarjeta;
  }
  v.txtTarjeta = Ceros(tecleada, 8);
  AjustarCliente(v);
  if (!ConectarCliente(p, true)) return ResultadoTarjeta::SinServidor;

  QString sql = FormatearSQL(
      QStringLiteral(" SELECT a.cClieCode, a.IdLocal, a.sClieApel, a.sClieName"
                     " FROM Cliente a INNER JOIN Tarjeta b"
                     " ON a.cClieCode = b.cClieCode AND a.IdLocal = b.IdLocal"
                     " WHERE b.cTarjActi = 1 AND b.dcadudate >= CONVERT(DATETIME,'$',120)"
                     "    AND nTarjNumb = '$'"),
      {FormatearFecha(p.reloj.now(), u"yyyy-mm-dd") + QStringLiteral(" 00:00:00"), ReemplazarComilla(v.txtTarjeta)});
  if (v.nIdLocal > 0) sql += FormatearSQL(QStringLiteral("    AND a.IdLocal = $ "), {v.nIdLocal});
  Recordset rs;
  const bool leido = p.poDBAdmin.EjecutarConsulta(p.poCnnCliente, sql, rs);
  DesconectarCliente(p);
  if (!leido) return ResultadoTarjeta::SinServidor;

  if (rs.Eof()) {
    v.txtTarjeta.clear();
    olvidarCliente(v);
    p.mensajes.mostrar(QStringLiteral("El Código de cliente no existe o la tarjeta se encuentra inactiva"));
    return ResultadoTarjeta::NoExiste;
  }
  v.tarjetaHallada = v.txtTarjeta;
  if (rs.RecordCount() > 1) {
    v.txtNombres.clear();
    v.localVisible = true;
    const auto elegida = pantallas.buscarCliente(v.txtTarjeta);
    const bool conLocal = elegida && elegida->idLocal > 0;
    return conLocal ? TomarCliente(p, v, pantallas, *elegida) : ResultadoTarjeta::VariosLocales;
  }
  v.txtNombres = LimpiarNulo(rs[u"sClieApel"]) + u' ' + LimpiarNulo(rs[u"sClieName"]);
  ElegirLocal(v, static_cast<int>(AEntero(Numero(rs[u"IdLocal"]))));
  return ResultadoTarjeta::Hallada;
}

ResultadoTarjeta TomarCliente(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas,
                              const TarjetaElegida& elegida) {
  v.tarjetaHallada.clear();
  v.txtTarjeta = elegida.tarjeta;
  ElegirLocal(v, elegida.idLocal);
  return BuscaTarjeta(p, v, pantallas);
}

std::optional<Foco> ValidaVenta(Puesto& p, CajaRegistradoraFull& v, PantallasVenta& pantallas) {
  const PantallaTipo& pantalla = pantallaDe(v.nTipoVenta);
  if (pantalla.panel == PanelTipo::DatosPago && v.txtPADE.isEmpty()) {
    BuscarAdelanto(v, pantallas);
    return Foco{QStringLiteral("txtPADE")};
  }
  if (v.pestana == 2 && v.lvwTX[1].empty()) {
    p.mensajes.mostrar(QStringLiteral("Debe seleccionar Nota de Consumo a Liquidar"));
    return Foco{QStringLiteral("txtTXL(1)")};
  }
  if (esNegativo(v.txtVueltoDolares) || (esNegativo(v.txtVueltoSoles) && !v.bLiquidando)) {
    p.mensajes.mostrar(QStringLiteral("No se puede registrar la operacion si el vuelto es negativo"));
    return Foco{QStringLiteral("txtEfectivoSoles")};
  }
  if (esNegativo(v.txtEfectivoSoles) || (esNegativo(v.txtEfectivoDolares) && !v.bLiquidando)) {
    p.mensajes.mostrar(QStringLiteral("No se puede registrar la operacion si el efectivo es negativo"));
    return Foco{QStringLiteral("txtEfectivoSoles")};
  }
  // Whatever tab is in front: a kind that sells lines never goes out without an article.
  if (pantalla.llevaLineas) {
    if (auto foco = lineaSinArticulo(v)) {
      v.pestana = 0;
      p.mensajes.mostrar(QStringLiteral("Debe registrar un artìculo."));
      return foco;
    }
  }
  const QString ruc = Recortar(v.txtRUC);
  if (!ruc.isEmpty() && !rucDeOnce(ruc)) {
    p.mensajes.mostrar(QStringLiteral("El RUC debe poseer 11 dígitos"));
    return Foco{QStringLiteral("txtRUC")};
  }
  return {};
}

void CancelarVenta(Puesto& p, CajaRegistradoraFull& v) {
  v.lineas.assign(1, FilaVenta{});
  v.bConservarLineas = false;
  Inicio(p, v);
}
