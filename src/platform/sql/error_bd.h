#pragma once
#include <QString>
#include <QtGlobal>

// What an engine reports of a failure: a number (0x80040E14 for a broken key, with native number -1605), the
// engine's own number, and the words shown to the user.
struct ErrorBD {
  qint64 numero = 0;
  int nativo = 0;
  QString descripcion;

  bool claveDuplicada() const { return numero == 0x80040E14 && nativo == -1605; }
  // A server has broken a knot of locks with this one: the same act again will do.
  bool repetible() const { return numero == 0x80004005 && nativo == 1205; }
};

constexpr qint64 kErrorSentencia = 0x80040E14;  // a statement that the engine refuses
constexpr qint64 kErrorGeneral = 0x80004005;    // anything else: no connection, disk, lock
constexpr int kNativoClaveDuplicada = -1605;
constexpr int kNativoNudo = 1205;
