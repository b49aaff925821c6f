#pragma once
// The void of a note that consumes a billing document, here and at the centre in one act.
#include "voiding/documento_guardado.h"

// Voids the note: its rows here, its mark there, and the document has that much more to consume. False when the central
// database is away, the document was settled meanwhile, or a statement failed: the box has been shown and nothing of
// it stands, unless the box tells to look first.
[[nodiscard]] bool AnularConsumo(Puesto& p, const DocumentoGuardado& nota);
