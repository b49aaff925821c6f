#pragma once
// An act over two databases, the store and one server: it ends whole or not at all, also when the desk dies or the
// server goes away in the middle, and it is never done twice.
//
// The half that is committed first carries a row of Diario_Acto with all that the other half still takes; the other
// half leaves a mark of the same name. Both rows go once both halves stand. What a death leaves is finished by the next
// opening of that server (TerminarActos), which looks for the mark first.
#include <QStringList>
#include <functional>
#include <vector>

#include "platform/sql/conexion.h"

struct Puesto;

enum class ServidorActo { Central, Cliente };

struct ActoDoble {
  enum Orden { LocalPrimero, ServidorPrimero };  // whose commit comes first

  // Names this one act among all of the desk, such as "puntos 01 001 123": while one of that name is unfinished no
  // other begins.
  QString nombre{};
  ServidorActo servidor = ServidorActo::Central;
  Orden orden = LocalPrimero;
  std::vector<Sql> enLocal,
      enServidor;  // each in the dialect of its database; they must not depend on a later state of it
  // Takes back the half that was committed first, should the other database refuse its own for good. Without it such an
  // act stays in Diario_Acto, refused, and is told; a first half without statements needs none.
  std::vector<Sql> deshacer;
  // LocalPrimero alone: with the server away the local half stands, and the other one waits for the server.
  bool puedeEsperar = false;
  // Runs inside both transactions before any of the statements, which it may still make, like the name: what it reads
  // there under a lock of its own holds till the commits. An error that it gives ends the act with nothing done. It
  // must show nothing, and may be called again: a server that broke a knot of locks with the act has undone all of it.
  std::function<std::optional<ErrorBD>(ActoDoble&)> preparar = {};
};

enum class FinActo {
  Entero,     // both halves stand
  Nada,       // neither does
  Pendiente,  // the first half stands; the other follows at the next opening of the server
  EnDuda      // the server went silent in its commit; its next opening tells, and then the act is whole or not at all
};

struct ResultadoActo {
  FinActo fin = FinActo::Nada;
  ErrorBD error;  // why it is not Entero
};

// Does the act, with the server's connection of the session, which is opened when it is closed. No transaction may be
// open on either. Shows nothing.
[[nodiscard]] ResultadoActo EjecutarActo(Puesto& p, const ActoDoble& acto);

// Finishes what earlier acts have left between the store and that server, open in `cnn`. True when nothing is left to
// do. An act that a database refuses for good is taken back, or left if it can't be; both are logged and told in a box.
[[nodiscard]] bool TerminarActos(Puesto& p, ServidorActo servidor, Conexion& cnn);

// At each opening of a database: TerminarActos, if it is a server that has not been looked at since something was left.
void MirarActos(Puesto& p, Conexion& cnn, const QString& cadena);

// Diario_Acto, the same in the store and in the servers: in the language of platform/sql/esquema.h, and as SQLite's
// statements.
QString esquemaDeActos();
QStringList tablasDeActos();
