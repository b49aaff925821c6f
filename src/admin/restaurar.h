#pragma once
#include <QDateTime>
#include <QStringList>
#include <optional>
#include <utility>
#include <vector>

struct PedidoRestaurar {
  QString copia;    // a copy, or a folder of copies, whose newest one is taken
  QString carpeta;  // the desk's folder; made when missing
  QDateTime ahora;
  // The number of the last boleta or factura that the shop has on paper, when it is above those of the copy: the next
  // one follows it. 0 when not told.
  qint64 ultimoDocumento = 0;
  // The same of each series beside the sales, as its papers tell them: series and number.
  std::vector<std::pair<QString, qint64>> ultimosParalelos = {};
};

// Puts a copy of the whole desk into its folder. What stood there is set aside in respaldos/ and never lost; papers
// that are there, and embedded servers, stay as they are. Refused, with nothing changed, are a copy that is damaged,
// incomplete, of a newer program or of another desk, and a folder whose till is running. `dicho` gets what the person
// must know: what was done, how far the copy reaches, what the central database holds beyond it. Gives the words of a
// failure.
[[nodiscard]] std::optional<QString> RestaurarPuesto(const PedidoRestaurar& pedido, QStringList& dicho);
