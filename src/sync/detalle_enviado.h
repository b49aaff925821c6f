#pragma once
// What the store remembers of the details (TDETALLEZ1) that its closings have written to the central database, so that
// a row's is written once, by the closing or by the synchronisation.
#include <QString>
#include <optional>
#include <vector>

#include "platform/sql/error_bd.h"

struct Puesto;

// A range of rows, the lower bounds exclusive.
struct RangoEnviado {
  qint64 ini = 0, fin = 0, iniP = 0, finP = 0;
  bool tieneOperacion(qint64 id) const { return id > ini && id <= fin; }
  bool tieneParalela(qint64 codigo) const { return codigo > iniP && codigo <= finP; }
};

// Notes that the detail under that head holds all rows from the watermarks up to now. False when the store refuses.
[[nodiscard]] bool AnotarDetalleEnviado(Puesto& p, const QString& idZ1);

// The ranges noted. False when they can't be read; the box has been shown.
[[nodiscard]] bool LeerDetallesEnviados(Puesto& p, std::vector<RangoEnviado>& rangos);

// The heads that this desk's closings have left as running (-1) in the central database, open: those that the store
// knows become finished ones, any other goes with its detail, since its closing has died before it was noted and its
// rows are sent anew. For a desk whose closing is over.
[[nodiscard]] std::optional<ErrorBD> AsentarCabecerasZ1(Puesto& p);
