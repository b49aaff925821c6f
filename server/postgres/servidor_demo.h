#pragma once
// A PostgreSQL of one's own in a folder, on loopback only and as a user without privileges: for trials and for tests.
#include <QString>
#include <QStringList>
#include <optional>

struct ServidorDemo {
  QString carpeta;
  QString clave;  // of the user kUsuarioDemo, which owns the server
  int puerto = 0;
  qint64 proceso = 0;

  // "postgres:USER:PASSWORD@127.0.0.1:PORT"
  QString palabras() const;
};

extern const QString kUsuarioDemo;

// Makes a server in the folder, which must be missing or empty, or takes the one that an earlier call made there, and
// starts it on a free port; it goes on when this program ends. One that runs already is left as it is. Gives Spanish
// words of a failure.
[[nodiscard]] std::optional<QString> ArrancarServidorDemo(const QString& carpeta, ServidorDemo& servidor);

// Stops the server of the folder by its own process number and waits for its end.
[[nodiscard]] std::optional<QString> PararServidorDemo(const QString& carpeta);

// The steps of the above, for who keeps the process himself. This one makes the server's files and chooses its port.
[[nodiscard]] std::optional<QString> PrepararServidorDemo(const QString& carpeta, ServidorDemo& servidor);
// Program and arguments of that server; `ajustes` are settings such as "fsync=off". `atado`: it ends with the process
// that starts it, however that one ends.
QStringList OrdenServidorDemo(const ServidorDemo& servidor, const QStringList& ajustes, bool atado);
// Waits until it answers; false when it ends or `espera_ms` have passed.
[[nodiscard]] bool EsperarServidorDemo(const ServidorDemo& servidor, int espera_ms);
