#pragma once
// The rolls of a simulated desk.
#include <QString>
#include <vector>

struct TicketEnPapel {
  QString serie;
  qint64 numero = 0;
  qint64 lineas = 0;  // their sum, in cents
  bool fiscal() const { return serie.startsWith(u'0'); }
};

// In the order of each printer.
std::vector<TicketEnPapel> TicketsEnPapel(const QString& carpeta);
// What the last Z of the main printer tells as sold, in cents; -1 without one.
qint64 VendidoEnUltimoZ(const QString& carpeta);
