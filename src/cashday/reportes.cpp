#include "cashday/reportes.h"

#include "foundation/puesto.h"

namespace {

bool falta(Puesto& p, const char* nombre) {
  p.mensajes.mostrar(QStringLiteral("El %1 todavía no está disponible en esta versión.").arg(QString::fromUtf8(nombre)));
  return false;
}

}  // namespace

bool ReportesEspeciales(Puesto& p, Principal&, const PedidoReporte&) { return falta(p, "reporte X / Z"); }
bool ReportesEspeciales1(Puesto& p, Principal&, const PedidoReporte&) { return falta(p, "reporte X-1 / Z1"); }
bool ReportesEspecialesFecha(Puesto& p, Principal&, const QString&) { return falta(p, "reporte Z por fecha"); }
bool ReportesEspeciales1Fecha(Puesto& p, Principal&, const QString&) { return falta(p, "reporte Z1 por fecha"); }
bool EnviarDetalleZ1(Puesto& p, int) { return falta(p, "detalle del Z1"); }
