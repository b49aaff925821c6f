#pragma once
// The cash count: what the store says of the drawer beside what the clerk counts.
#include <QStringList>
#include <array>
#include <vector>

struct Puesto;

// One set of figures, as shown. Soles, and dollars where the name says so. A figure that could not be read is blank.
struct LadoCuadre {
  QString txtPagos, txtVoucher, txtVoucherDolares, txtCash, txtCashDolares, txtapersoles, txtaperdolares;
  QString txtCashDRW, txtCashDRWDolares;                                              // what must lie in the drawer
  QString txtCaja = QStringLiteral("0.00"), txtCajaDolares = QStringLiteral("0.00");  // what was counted, as typed
  QString txtFALTSOB, txtFALTSOBDolares;                                              // the first less the second
};

// The article that is being worked on, and the way in which its numbers come from a row of the list and go back.
struct ProductoCuadre {
  QString txtProductosNombre;
  QString txtProductosID = QStringLiteral("0"), txtProductosII = txtProductosID, txtProductosT = txtProductosID,
          txtProductosIF = txtProductosID, txtProductosFS = txtProductosID;
};

constexpr size_t kLadoZ1 = 0, kLadoZ = 1;  // with the parallel documents, alternate printer; sales only, main printer

struct Cuadre {
  bool deCierre = false;  // a step of the closing; else the plain view
  std::array<LadoCuadre, 2> lado;
  QString txtEntregado;                   // nothing fills it
  std::vector<QStringList> lvwProductos;  // rows in the columns of the list
  ProductoCuadre producto;
};

// Before the screen opens, with ModoCuadre: fills the product tab. A list that can't be read stays empty, and a box has
// told so.
void Inicio(Puesto& p, Cuadre& v, int modo);

// The figures of both sides, over the operations of the open day. A query that fails shows its box and ends its side,
// whose fields keep what they had.
void CargarCuadre(Puesto& p, Cuadre& v);
[[nodiscard]] bool CuadreCaja(Puesto& p, LadoCuadre& c);
[[nodiscard]] bool CuadreCajaZ1(Puesto& p, LadoCuadre& c);

// The differences of both sides, from the texts; that of a count that is no number is blank.
void CuadreCajaTotal(Cuadre& v);

// What happens when a counted field is left: all of them are formatted, a blank one as 0, and the differences follow. A
// text that is no number stays as it is and gives its control's name; "" when there is none.
QString DejarCaja(Cuadre& v);

// Asked before a closing's count is accepted: which side's soles are off by more than ten. True when none is, or when
// the clerk says that the till is to be closed like that, which is what Enter presses.
[[nodiscard]] bool AceptarDiferencia(Puesto& p, const Cuadre& v);

// The product tab: a row is taken to the fields, the difference follows what is typed there, and the fields go back
// into the row.
void TomarProducto(Cuadre& v, int fila);
void CuadreProductosTotal(Cuadre& v);
void DevolverProducto(Cuadre& v, int fila);

// Stores the Z1 count in CUADRE_CAJA under a number of its own, all its lines or none, and prints it; then prints the
// main count. A count that could not be stored is not printed: one box has told why, and the main one is printed all
// the same.
void Imprimir(Puesto& p, const Cuadre& v);
