#pragma once
// The codes that rows of the store carry. Statements take them from here, never as bare numbers.
#include <QString>
#include <array>
#include <initializer_list>

#include "platform/sql/sentencia.h"

// The kind of a row, cOperTipo. A void keeps the kind of what it voids.
enum class TipoOperacion {
  Ninguno = 0,
  Efectivo = 1,   // lines and cash of a sale
  Voucher = 2,    // a sale paid by cards, or the card part of a parallel document
  Liquidado = 3,  // lines and cash of the sale that closes a liquidation
  Retiro = 5,
  ReporteX = 10,
  ReporteZ = 11,
  OC = 20,
  NC = 21,
  PADE = 22,
  PADV = 23,
  LIQPAD = 24,
  ReporteParalelas = 30
};

// Parallel rows that are no document: what the repair of the numbers left, and the marks of reports.
inline constexpr std::initializer_list<TipoOperacion> kSinDocumento = {TipoOperacion::Ninguno,
                                                                       TipoOperacion::ReporteParalelas};

// The type of a document, cDocTipo: two digits as text.
enum class TipoDocumento { Factura = 1, Boleta = 2, OC = 10, NC = 11, PADE = 12, PADV = 13, LIQPAD = 14 };

inline constexpr std::array kTiposDocumento = {TipoDocumento::Factura, TipoDocumento::Boleta, TipoDocumento::OC,
                                               TipoDocumento::NC,      TipoDocumento::PADE,   TipoDocumento::PADV,
                                               TipoDocumento::LIQPAD};

// Boletas and facturas, which share one run of numbers; all others are parallel documents.
constexpr bool EsFiscal(TipoDocumento tipo) { return tipo <= TipoDocumento::Boleta; }

// As a row holds it.
constexpr int Codigo(TipoOperacion tipo) { return static_cast<int>(tipo); }
QString Codigo(TipoDocumento tipo);

// A statement with codes in the place of its marks: {OC}, {NC}, {PADE}, {PADV}, {LIQPAD} are kinds of rows, the same
// with a d in front, {dOC}, types of documents in their quotes.
Sql ConCodigos(const Sql& sql);

// sGlosa of a note that consumes a billing document, whose cCodVta then stands in cOperCodeRela, and of the receipt of
// a payment on one. Whole texts: what a cashier types in the register is another one.
inline const QString kGlosaConsumo = QStringLiteral("REF. SIST. LOGISTICA");
inline const QString kGlosaPago = QStringLiteral("PAGO REF. SIST. LOGISTICA");
inline bool EsVentaFutura(const QString& glosa) { return glosa == kGlosaConsumo || glosa == kGlosaPago; }
// " AND ..." that leaves those rows out.
Sql SinVentaFutura();

// The inside of an IN (...).
Sql Codigos(std::initializer_list<TipoOperacion> tipos);
Sql Codigos(std::initializer_list<TipoDocumento> tipos);
