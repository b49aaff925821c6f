#pragma once
// A new desk folder, ready for the till.
#include <QDateTime>
#include <QStringList>
#include <optional>

#include "servidores.h"

// How a server that is none of this machine's files is entered; what is blank stands in its name, or is the usual.
struct AccesoServidor {
  QString base, usuario, clave;
};

struct DatosPuesto {
  QString carpeta;
  QString caja = QStringLiteral("00001");
  QString almacen = QStringLiteral("01");
  QString servicio = QStringLiteral("10");  // percentage
  QString central = QStringLiteral("sqlite:central.db");
  QString cliente = QStringLiteral("sqlite:cliente.db");
  AccesoServidor accesoCentral, accesoCliente;
  QString usuario = QStringLiteral("SUPERVISOR");
  QString clave;      // of that user; must not be empty
  bool demo = false;  // fills the store, and servers that are made, with the demo shop
  QDateTime ahora;
};

// Makes KEB.cfg and TarvoPos.mdb in the folder, and the databases of the servers named that don't exist yet; those that
// do are left as they are, and a PostgreSQL server that is away is told in `hecho`, like one that got its database.
// The folder is made when missing. Gives Spanish words of a failure; then every file made by this call is gone again. A
// folder that holds a store or settings already is refused.
std::optional<QString> CrearPuesto(const DatosPuesto& d, QStringList* hecho = nullptr);

// The connection string of a server as the new desk will open it.
QString CadenaDelServidor(const DatosPuesto& d, BaseServidor base);

// What the caller should tell the person about these data, in Spanish; no failure.
QStringList AvisosDePuesto(const DatosPuesto& d);

// A password of eight characters that can't be misread, from the system's random source.
QString ClaveAlAzar();
