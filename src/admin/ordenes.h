#pragma once
// The subcommands of tarvopos-admin. Each takes the words behind its own name, writes to standard output and standard
// error, and gives the exit code. A subcommand that shows windows makes its own application object.
#include <QStringList>

constexpr int kBien = 0;
constexpr int kFallo = 1;   // the work could not be done
constexpr int kMalUso = 2;  // the call was wrong; nothing was done

int ordenCrearPuesto(const QStringList& palabras);
int ordenCrearCentral(const QStringList& palabras);
int ordenCrearCliente(const QStringList& palabras);
int ordenServidorDemo(const QStringList& palabras);
int ordenRespaldo(const QStringList& palabras);
int ordenRestaurar(const QStringList& palabras);
int ordenAutoarranque(const QStringList& palabras);
int ordenVerificar(const QStringList& palabras);
int ordenActualizar(const QStringList& palabras);
int ordenSql(const QStringList& palabras);

// A line in UTF-8, with its line end, at once.
void Decir(const QString& linea);
void Quejarse(const QString& linea);
