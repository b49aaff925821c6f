#pragma once
// The commit of the full register: its data, and the steps that need the screen. What doesn't need it stands in
// documento/commit_documento.h, where other screens find it too.
#include "documento/commit_documento.h"
#include "documento/filas_paralelas.h"
#include "sale/caja_full.h"

// The screen's own kind is left alone, so that a commit that failed can be asked again.
struct Venta : CommitDocumento {
  Venta(CajaRegistradoraFull& caja, PantallasVenta& otras, ClaseDocumento k) : v(caja), pantallas(otras) { clase = k; }

  CajaRegistradoraFull& v;
  PantallasVenta& pantallas;
  double igv = 0, servicio = 0;  // sums of the lines' rounded texts
  DatosParalela paralela;
  QString serieDinero;  // series of the row that the document's money leaves in Operacion
  double subtotal = 0;  // of the notes that a liquidation settles
};

// Steps of the sale (commit.cpp) and of the documents beside it (commit_paralelo.cpp). Each gives false where the commit
// ends.
namespace pasos {

bool Recalcular(Puesto& p, Venta& c);
bool FijarDocumento(Puesto& p, Venta& c);
// A line with a percentage needs its supervisor; a refusal ends the commit with nothing done.
bool Autorizar(Puesto& p, Venta& c);
// A sale or an order on which no cash was typed counts as paid exact.
bool PagarExacto(Puesto& p, Venta& c);
// Copies the grid, and settles whether the sale has change.
bool TomarLineas(Puesto& p, Venta& c);
bool LeerImportes(Puesto& p, Venta& c);
// Cash less change must be the total: told three times, then the commit goes on with what stands there.
bool Cuadrar(Puesto& p, Venta& c);
bool Limpiar(Puesto& p, Venta& c);

bool ExigirAdelanto(Puesto& p, Venta& c);
bool LeerAdelanto(Puesto& p, Venta& c);
bool LeerNotas(Puesto& p, Venta& c);
bool GuardarCifras(Puesto& p, Venta& c);  // of a liquidation, for the sale document that follows it
bool FijarParalela(Puesto& p, Venta& c);
bool RechazarRepetida(Puesto& p, Venta& c);
bool GrabarCabeza(Puesto& p, Venta& c);
bool GrabarLineas(Puesto& p, Venta& c);
bool GrabarEfectivo(Puesto& p, Venta& c);
bool GrabarTarjetas(Puesto& p, Venta& c);
bool Liquidar(Puesto& p, Venta& c);
bool PedirDocumento(Puesto& p, Venta& c);

}  // namespace pasos

// Cash and change as the screen holds them; `deLiquidacion`: the fields that a liquidation left. Negative change is 0.
EfectivoDocumento EfectivoDe(const CajaRegistradoraFull& v, bool deLiquidacion);
