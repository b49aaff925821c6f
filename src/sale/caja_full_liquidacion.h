#pragma once
// The third tab of the full register: advance payments (list 0) weighed against consumption notes (list 1), and the
// sale document that a liquidation asks for.
#include <optional>

#include "sale/caja_full.h"

// A code as txtTXL shows it once it was left: six digits, "" for a blank.
QString CodigoTXL(const QString& texto);

// The lists' sums, their difference as the amount to pay, the cash fields empty and the change that this leaves.
void TotalesTX(const Puesto& p, CajaRegistradoraFull& v);

// Nothing is to be paid or given back: no cash can be typed.
[[nodiscard]] bool EfectivoFijo(const CajaRegistradoraFull& v);

// Puts the open document of txtTXL into its list; an advance payment brings the open notes that draw on it. Gives where
// to look when the text was refused with its box; a code that no open document has adds nothing.
std::optional<Foco> AgregarTX(Puesto& p, CajaRegistradoraFull& v, int lista);

// Takes a row out; an advance payment takes the notes that came with it along.
void EliminarTX(const Puesto& p, CajaRegistradoraFull& v, int lista, int fila);

// Takes out what has been voided since it was added, so that no liquidation brings it back.
void QuitarNoVigentes(Puesto& p, CajaRegistradoraFull& v);

// Loads the lines of the notes that the liquidation settled, at the prices of the list, and makes the screen
// wait for the sale document. Notes of an earlier, closed day bring no lines; without any line there is nothing to sell
// and the screen stays idle.
//   Returns  false when the store can't be read, and then the box has been shown.
[[nodiscard]] bool CargaLiquidacion(Puesto& p, CajaRegistradoraFull& v, const LiquidacionEnCurso& liquidacion);
