#include <QVBoxLayout>

#include "cashday/frm_principal.h"
#include "cashday/libro_x1.h"
#include "cashday/reporte_paralelo.h"
#include "cashday/reportes.h"
#include "foundation/acceso.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/ui/campo.h"
#include "platform/ui/indicios.h"
#include "platform/ui/teclas.h"

// Five reports have no place in the menus: a supervisor's keys, which he sees below the buttons.
void frmPrincipal::crearTeclas() {
  auto* teclas = new TablaTeclas(this);
  for (int n = kReporteOC; n <= kReporteLIQPAD; ++n) {
    const auto tecla = static_cast<Qt::Key>(Qt::Key_F1 + n - kReporteOC);
    const QString indicio = RotuloEntrada(EntradasOperaciones(), n).section(u' ', 1);
    teclas->agregar({Qt::CTRL | tecla, acto([this, n] { reporteParalelo(n); }), indicio});
  }
  if (Val(p_.ses.psPerfilUsuario) != kPerfilSupervisor) return;
  auto* indicios =
      nuevoTexto(QStringLiteral("Reportes: ") + teclas->indicios().join(Indicios::kEntre), QStringLiteral("suave"));
  indicios->setObjectName(QStringLiteral("lblIndicios"));
  indicios->setAlignment(Qt::AlignCenter);
  auto* columna = static_cast<QVBoxLayout*>(centralWidget()->layout());
  columna->insertWidget(columna->count() - 1, indicios);
}

void frmPrincipal::reporte(int n, ResultadoReporte (*imprimir)(Puesto&, const PedidoReporte&)) {
  const QString nombre = RotuloEntrada(EntradasOperaciones(), n);
  if (!AutorizarOperacion(v_, pantallas_, nombre)) return;
  const Ocupado ocupado(p_.mensajes, QStringLiteral("Haciendo el %1…").arg(nombre));
  v_.bReporteImpreso = imprimir(p_, PedidoX()).impreso || v_.bReporteImpreso;
}

void frmPrincipal::exportar() {
  const QString nombre = RotuloEntrada(EntradasOperaciones(), kReporteX1Excel);
  if (!AutorizarOperacion(v_, pantallas_, nombre)) return;
  const Ocupado ocupado(p_.mensajes, QStringLiteral("Haciendo el %1…").arg(nombre));
  ExportaX1aExcel(p_);
}

// The kinds and their entries stand in one order.
void frmPrincipal::reporteParalelo(int n) {
  // An entry that isn't seen counts as disabled, so the state of the day is asked.
  const Menus m = MenusDelDia(ClaseDelDia(p_, v_), v_.sincronizarDiaAnt, p_.ses);
  if (!m.operaciones[static_cast<size_t>(n)]) return;
  PrepararOperacion(p_, v_, pantallas_);
  if (!ExigirSupervisor(p_, v_, pantallas_, RotuloEntrada(EntradasOperaciones(), n))) return;
  const auto tipo = static_cast<TipoOperacion>(Codigo(TipoOperacion::OC) + n - kReporteOC);
  v_.bReporteImpreso = ReporteParalelo(p_, tipo) || v_.bReporteImpreso;
}

void frmPrincipal::reporteDeFecha(ResultadoReporte (*imprimir)(Puesto&, const QString&)) {
  v_.bReporteImpreso = imprimir(p_, QStringLiteral("Z")).impreso || v_.bReporteImpreso;
}
