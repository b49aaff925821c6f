#pragma once
// The commit of the full register: its data, the steps that read the screen, which come first, and those that give
// back to it, which come last. The steps between see data only; those stand in documento/, where other screens find
// them too.
#include "documento/commit_paralelo.h"
#include "sale/caja_full.h"

// The screen's own kind is left alone, so that a commit that failed can be asked again.
struct VentaFull : CommitParalelo {
  VentaFull(CajaRegistradoraFull& caja, PantallasVenta& otras, ClaseDocumento k) : v(caja), pantallas(otras) {
    clase = k;
  }

  CajaRegistradoraFull& v;
  PantallasVenta& pantallas;
  double igv = 0;             // sum of the lines' rounded texts
  EfectivoDocumento cobrado;  // as the cash fields hold it, also where a liquidation's figures are printed instead
  bool montoLegible = true;   // of an advance payment: both amounts are numbers
};

// Each gives false where the commit ends.
namespace pasos {

// First
[[nodiscard]] bool Recalcular(Puesto& p, VentaFull& c);
[[nodiscard]] bool FijarDocumento(Puesto& p, VentaFull& c);
// A line with a percentage needs its supervisor; a refusal ends the commit with nothing done.
[[nodiscard]] bool PedirSupervisor(Puesto& p, VentaFull& c);
// A sale or an order on which no cash was typed counts as paid exact.
[[nodiscard]] bool PagarExacto(Puesto& p, VentaFull& c);
// Copies lines, customer and amounts, and settles whether the sale has change.
[[nodiscard]] bool TomarVenta(Puesto& p, VentaFull& c);
[[nodiscard]] bool TomarOrden(Puesto& p, VentaFull& c);
[[nodiscard]] bool TomarNota(Puesto& p, VentaFull& c);
[[nodiscard]] bool TomarAdelanto(Puesto& p, VentaFull& c);
[[nodiscard]] bool TomarLiquidacion(Puesto& p, VentaFull& c);

// Last
[[nodiscard]] bool LimpiarPantalla(Puesto& p, VentaFull& c);
// The screen waits for the sale document of the liquidation that was just committed.
[[nodiscard]] bool PedirDocumento(Puesto& p, VentaFull& c);

}  // namespace pasos
