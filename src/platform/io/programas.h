#pragma once
// Other programs of the machine: those that the till starts, and the one that the system opens a link with.
#include <QString>
#include <QStringList>

class Programas {
 public:
  virtual ~Programas() = default;

  // Starts a program in `carpeta` and knows it from then on by its title. Its process id; 0 when it can't be started.
  virtual qint64 iniciar(const QString& titulo, const QString& programa, const QStringList& argumentos,
                         const QString& carpeta) = 0;
  // Waits until that process ends, however long. False when it is none of the running ones.
  virtual bool esperar(qint64 proceso) = 0;
  // Process id of the running program of that title; 0 when there is none.
  virtual qint64 buscar(const QString& titulo) const = 0;
  // Asks the program of that title to close, and ends it when it doesn't within three seconds. True when none is left.
  virtual bool cerrar(const QString& titulo) = 0;
  // Hands a link to the system. False when it has no program for it.
  virtual bool abrir(const QString& enlace) = 0;
};
