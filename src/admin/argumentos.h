#pragma once
#include <QHash>
#include <QStringList>
#include <optional>

// The words behind a subcommand: places first come, options by name.
struct Argumentos {
  QStringList lugares;
  QHash<QString, QString> opciones;  // "--caja" -> its value; a switch -> ""

  bool tiene(const QString& opcion) const { return opciones.contains(opcion); }
  QString valor(const QString& opcion, const QString& porDefecto) const { return opciones.value(opcion, porDefecto); }
};

// What a subcommand takes: the number of places, and its options by name.
struct FormaOrden {
  int lugaresMinimo = 0, lugaresMaximo = 0;
  QStringList conValor, interruptores;
};

// Takes `palabras` apart; "--x valor" and "--x=valor" are both understood, "-" alone is a place. Gives Spanish words of
// what is wrong: an unknown option, one told twice or without its value, too few or too many places.
std::optional<QString> LeerArgumentos(const QStringList& palabras, const FormaOrden& forma, Argumentos& a);
