#include "cashday/principal.h"

#include "cashday/apertura.h"
#include "cashday/pantallas_principal.h"
#include "cashday/tipo_cambio.h"
#include "foundation/acceso.h"
#include "foundation/disco.h"
#include "foundation/estado_linea.h"
#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "loyalty/pendientes.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr int kSegundosEntreRevisiones = 60;

bool turnoAbierto(const Puesto& p) { return !Recortar(p.ses.psTurno).isEmpty(); }

}  // namespace

void CargarPrincipal(Puesto& p, Principal& v) {
  const bool abierto = turnoAbierto(p);
  if (!abierto) {
    p.mensajes.mostrar(QStringLiteral("La caja se encuentra cerrada, debe aperturarla para empezar \r\n"
                                      "registrar operaciones."));
  }
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"select icierrecaja from configuracion"_sql, rs)) {
    p.mensajes.mostrar(QString());
    return;
  }
  if (Numero(rs[u"icierrecaja"]) < 1) {
    if (abierto) v.sincronizarDiaAnt = CompletarApertura(p) || v.sincronizarDiaAnt;
    return;
  }
  v.cierreInterrumpido = true;
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

ClaseDia ClaseDelDia(const Puesto& p, const Principal& v) {
  if (v.cierreInterrumpido) return ClaseDia::CierreInterrumpido;
  return turnoAbierto(p) ? ClaseDia::Abierta : ClaseDia::Cerrada;
}

EstadoDia EstadoDelDia(const Puesto& p, const Principal& v) {
  EstadoDia e{.clase = ClaseDelDia(p, v), .titular = QStringLiteral("CAJA ") + p.ses.psCaja, .sentencia = {}};
  e.titular += QStringLiteral(" · ");
  switch (e.clase) {
    case ClaseDia::CierreInterrumpido:
      e.titular += QStringLiteral("CIERRE SIN TERMINAR");
      e.sentencia =
          QStringLiteral("El cierre de caja quedó a medias. Use Reporte Z para terminarlo desde el paso en que quedó.");
      break;
    case ClaseDia::Cerrada:
      e.titular += QStringLiteral("CERRADA");
      e.sentencia = QStringLiteral("Inicie la caja para empezar a registrar operaciones.");
      break;
    case ClaseDia::Abierta: e.titular += QStringLiteral("ABIERTA · TURNO ") + Recortar(p.ses.psTurno); break;
  }
  return e;
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

void RevisarEntreActos(Puesto& p, PantallasPrincipal& pantallas) {
  RevisarCliente(p);
  RevisarDisco(p);
  pantallas.contactarCentral();
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
