#pragma once
// The demo shop: an invented farm shop with its restaurant. All rows in SQLite's own language.
#include <QDateTime>
#include <QStringList>

inline const QString kImpresoraTienda = QStringLiteral("Ticketera");
inline const QString kImpresoraAlternaTienda = QStringLiteral("Alterna");
// The two printers as a section of the settings file.
QString ImpresorasDeTienda();

// Day up to which the shop's store and its servers agree.
QDateTime FechaDeTienda();

// Store: catalogue, keys, users, rates, print header, kinds of card, customers as the pull brings them. Rates stand for
// the week round 24/11/2026 and round `ahora`, save for 25/11/2026, which has none.
QStringList TiendaDelPuesto(const QString& almacen, const QDateTime& ahora);
QStringList TiendaDelCentral(const QDateTime& ahora);
QStringList TiendaDelCliente(const QDateTime& ahora);

// One key of the register; article 0 leaves it free.
QString TeclaDelRegistro(int tecla, int articulo);
