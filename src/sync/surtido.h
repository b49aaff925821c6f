#pragma once
// Where the store's articles and those of the central database are not alike: found by reading both once, so that a day
// without changes costs two reads and not one for each article.
#include <QString>
#include <vector>

struct Puesto;

struct Surtido {
  struct Precio {
    QString codigo;  // as it stands there
    qint64 producto;
    double precio;
  };
  // Codes that the steps of the activation have to look at: here on sale and not there, there out of sale, back there.
  std::vector<qint64> idos, fueraDeVenta, vueltos;
  std::vector<Precio> precios;  // on sale there at a price that is not the store's
};

// Reads both. False when one of them can't be read; the box has been shown.
[[nodiscard]] bool CompararSurtido(Puesto& p, Surtido& c);
