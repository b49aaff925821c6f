#include "cashday/menus.h"

#include <algorithm>

#include "foundation/acceso.h"
#include "foundation/sesion.h"
#include "platform/text/numero.h"

namespace {

// clang-format off
constexpr EntradaNumerada kEntradasMantenimiento[] = {
    {kProductos, "&Productos", true},      {kTipoCambio, "&Tipo de Cambio"},
    {3, "-"},                              {kTeclado, "&Configuración del Teclado"},
    {kCabecera, "Cabecera de &Impresión"}, {6, "-"},
    {kImpresora, "Configuración Impresora"}, {kIniciarCaja, "Iniciar Caja"},
};

constexpr EntradaNumerada kEntradasOperaciones[] = {
    {kCambioTurno, "Cambio de Turno"},   {2, "-"},
    {kCajaRapida, "Caja Registradora"},  {kCajaFull, "Caja Registradora (Versión Full)"},
    {5, "-"},                            {kReporteX, "Reporte X"},
    {kCuadreCaja, "Cuadre de Caja", true}, {kReporteZ, "Reporte Z"},
    {9, "-", true},                      {kReporteOC, "Reporte O/C", true},
    {11, "Reporte N/C", true},           {12, "Reporte PADE", true},
    {13, "Reporte PADV", true},          {kReporteLIQPAD, "Reporte LIQPAD", true},
    {kConsultaOP, "Consulta OP"},                 {kReporteX1, "Reporte X-1"},
    {kReporteX1Excel, "Reporte X-1 formato  Excel"},
};

constexpr BotonBarra kBotonesBarra[] = {
    {kBotonProductos, "Productos", "productos"},   {kBotonTipoCambio, "Tipo Cambio", "tipo_cambio"},
    {kBotonTeclado, "Botones", "botones"},         {kBotonCabecera, "Cabecera", "cabecera"},
    {5, "-", ""},                                  {kBotonCaja, "Caja", "caja"},
    {7, "-", ""},                                  {kBotonCambioTurno, "Cambio Turno", "cambio_turno"},
    {kBotonReporteX, "Reporte X", "reporte_x"},    {10, "-", ""},
    {kBotonReporteZ, "Reporte Z", "reporte_z"},    {kBotonCuadre, "Cuadre Caja", "cuadre"},
    {13, "-", ""},                                 {kBotonSalir, "Salir", "salir"},
    {kBotonZFecha, "Z Fecha", "z_fecha"},          {kBotonZ1Fecha, "Z1 Fecha", "z1_fecha"},
    {kBotonSincronizar, "Sincronizar", "sincronizar"},
};
// clang-format on

constexpr int kBotonesDia[] = {kBotonTipoCambio, kBotonCaja, kBotonCambioTurno, kBotonReporteX, kBotonReporteZ};
constexpr int kBotonesFecha[] = {kBotonZFecha, kBotonZ1Fecha, kBotonSincronizar};

// The name that support works under.
bool esSoporte(const Sesion& ses) { return ses.psUsuario.toLower() == u"rovel" && ses.psPerfilUsuario == u"1"; }

}  // namespace

std::span<const EntradaNumerada> EntradasMantenimiento() { return kEntradasMantenimiento; }
std::span<const EntradaNumerada> EntradasOperaciones() { return kEntradasOperaciones; }
std::span<const BotonBarra> BotonesBarra() { return kBotonesBarra; }

QString RotuloEntrada(std::span<const EntradaNumerada> entradas, int n) {
  return QString::fromUtf8(entradas[static_cast<size_t>(n - 1)].rotulo).remove(u'&');
}

Menus MenusDelDia(ClaseDia clase, bool sincronizarDiaAnt, const Sesion& ses) {
  Menus m;
  m.botonVisible.fill(true);
  for (int n : kBotonesFecha) m.botonVisible[static_cast<size_t>(n)] = esSoporte(ses);
  m.usuariosVisible = Val(ses.psPerfilUsuario) != kPerfilCajero;
  if (clase == ClaseDia::CierreInterrumpido) {
    m.operaciones[kReporteZ] = m.botones[kBotonReporteZ] = true;
    m.demasMenus = false;
    return m;
  }
  const bool abierta = clase == ClaseDia::Abierta;
  m.botones.fill(true);
  for (int n : kBotonesDia) m.botones[static_cast<size_t>(n)] = abierta;
  m.operaciones.fill(abierta);
  m.mantenimiento.fill(abierta);
  m.mantenimiento[kIniciarCaja] = !abierta;
  m.sincronizarDiaAnt = sincronizarDiaAnt;
  return m;
}
