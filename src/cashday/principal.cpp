#include "cashday/principal.h"

#include "cashday/dia.h"
#include "cashday/pantallas_principal.h"
#include "cashday/tipo_cambio.h"
#include "foundation/acceso.h"
#include "foundation/estado_linea.h"
#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "loyalty/pendientes.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr int kBotonesDia[] = {2, 6, 8, 9, 11};
constexpr int kBotonesFecha[] = {15, 16, 17};
constexpr int kSegundosEntreRevisiones = 60;

bool turnoAbierto(const Puesto& p) { return !Recortar(p.ses.psTurno).isEmpty(); }

}  // namespace

Principal::Principal() {
  mantenimiento.fill(true);
  operaciones.fill(true);
  botones.fill(true);
  botonVisible.fill(true);
  for (int n : kBotonesFecha) botonVisible[static_cast<size_t>(n)] = false;
}

void ProcesoCaja(Principal& v, bool bApertura) {
  v.operaciones.fill(bApertura);
  v.mantenimiento.fill(bApertura);
  v.mantenimiento[kIniciarCaja] = !bApertura;
}

void HabilitarBotonesDia(Principal& v, bool habilitados) {
  for (int n : kBotonesDia) v.botones[static_cast<size_t>(n)] = habilitados;
}

void BloquearPorCierre(Principal& v) {
  v.cierreInterrumpido = true;
  v.botones.fill(false);
  v.botones[kBotonReporteZ] = true;
  v.mantenimiento.fill(false);
  v.operaciones.fill(false);
  v.operaciones[kReporteZ] = true;
  v.demasMenus = false;
}

void LiberarTrasCierre(Principal& v) {
  v.cierreInterrumpido = false;
  v.botones.fill(true);
  HabilitarBotonesDia(v, false);
  ProcesoCaja(v, false);
  v.demasMenus = true;
}

void CargarPrincipal(Puesto& p, Principal& v) {
  if (Val(p.ses.psPerfilUsuario) == kPerfilCajero) v.usuariosVisible = false;
  const bool abierto = turnoAbierto(p);
  HabilitarBotonesDia(v, abierto);
  ProcesoCaja(v, abierto);
  if (!abierto) {
    p.mensajes.mostrar(QStringLiteral("La caja se encuentra cerrada, debe aperturarla para empezar \r\n"
                                      "registrar operaciones."));
  }
  // The name that support works under.
  if (p.ses.psUsuario.toLower() == u"rovel" && p.ses.psPerfilUsuario == u"1") {
    for (int n : kBotonesFecha) v.botonVisible[static_cast<size_t>(n)] = true;
  }
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, QStringLiteral("select icierrecaja from configuracion"), rs)) {
    p.mensajes.mostrar(QString());
    return;
  }
  if (Numero(rs[u"icierrecaja"]) < 1) {
    if (abierto) CompletarApertura(p, v);
    return;
  }
  BloquearPorCierre(v);
  p.mensajes.mostrar(
      QStringLiteral("Se ha habilitado la Opcion Reporte Z, porque algunas operaciones no han concluido"));
}

DatosEstado EstadoPrincipal(Puesto& p) {
  DatosEstado d = EstadoDelPuesto(p);
  if (p.ses.pdTipoCambio != p.reloj.today()) d.tipoCambio.clear();
  Recordset rs;
  const bool pedido =
      d.tipoCambio.isEmpty() && p.poCnnLocal.abierta() && !p.poCnnLocal.consultar(ConsultaTipoCambio(p), rs);
  if (pedido && rs.RecordCount() == 1) d.tipoCambio = Formatear(Numero(rs[0]), u"###,##0.00");
  return d;
}

void PrepararOperacion(Puesto& p, Principal& v, PantallasPrincipal& pantallas) {
  v.bAcceso = false;
  if (p.ses.pnTipoCambio == 0) CapturaTipoCambio(p, pantallas);
}

bool AutorizarOperacion(Principal& v, PantallasPrincipal& pantallas, const QString& acto) {
  if (const auto nombre = pantallas.autorizar(acto)) {
    v.txtsupervisor = *nombre;
    v.bAcceso = true;
  }
  // A window that already held a name keeps its flag as it was.
  if (Recortar(v.txtsupervisor).isEmpty()) v.bAcceso = false;
  return v.bAcceso;
}

bool ExigirSupervisor(const Puesto& p, Principal& v, PantallasPrincipal& pantallas, const QString& acto) {
  if (Val(p.ses.psPerfilUsuario) == kPerfilSupervisor) return true;
  v.bAcceso = false;
  return AutorizarOperacion(v, pantallas, acto);
}

EstadoDia EstadoDelDia(const Puesto& p, const Principal& v) {
  const QString caja = QStringLiteral("CAJA ") + p.ses.psCaja + QStringLiteral(" · ");
  if (v.cierreInterrumpido) {
    return {
        EstadoDia::CierreInterrumpido, caja + QStringLiteral("CIERRE SIN TERMINAR"),
        QStringLiteral("El cierre de caja quedó a medias. Use Reporte Z para terminarlo desde el paso en que quedó.")};
  }
  if (!turnoAbierto(p)) {
    return {EstadoDia::Cerrada, caja + QStringLiteral("CERRADA"),
            QStringLiteral("Inicie la caja para empezar a registrar operaciones.")};
  }
  return {EstadoDia::Abierta, caja + QStringLiteral("ABIERTA · TURNO ") + Recortar(p.ses.psTurno), {}};
}

QString TituloPrincipal(const Puesto& p) {
  return QStringLiteral("Control de Caja Registradora - Hoy: ") + FormatearFecha(p.reloj.now(), u"dd/mm/yyyy");
}

void SincronizarDatos(Puesto& p, PantallasPrincipal& pantallas, bool diaAnterior) {
  const QString titulo = QStringLiteral("Seleccione");
  if (diaAnterior) {
    if (!p.mensajes.preguntar(QStringLiteral("Seguro de Sincronizar Datos del dia anterior?"), titulo)) return;
    p.ses.pbSincronizaMaestros = false;
  } else {
    p.ses.pbSincronizaMaestros =
        p.mensajes.preguntar(QStringLiteral("¿Desea Sincronizar también las tablas maestras?"), titulo);
  }
  p.ses.pbSincronizaCierre = false;
  const bool hay = pantallas.sincronizar(diaAnterior);
  p.ses.pbSincronizaMaestros = true;
  if (!hay) pantallas.noDisponible(QStringLiteral("Sincronizar Datos"));
}

void RevisarCliente(Puesto& p) {
  const QDateTime ahora = p.reloj.now();
  const auto& ultima = p.ses.pdUltimaSincronizacion;
  if (ultima.isValid() && ultima.secsTo(ahora) < kSegundosEntreRevisiones) return;
  p.ses.pdUltimaSincronizacion = ahora;
  // The short wait of a sale: a clerk who is about to press a key must not stand before a dead server.
  if (!ConectarCliente(p, false)) return;
  EnviarPendientesCliente(p);
  DesconectarCliente(p);
}
