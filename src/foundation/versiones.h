#pragma once
// The version of a database's tables, kept in its file (PRAGMA user_version), and the steps from each version to the
// next. A new one is a new step at the end of a list, and the same change in the tables of an empty database; a test
// holds the two against each other.
#include <QDateTime>
#include <QStringList>
#include <optional>
#include <vector>

#include "platform/sql/conexion.h"

// The n-th entry makes version n + 1 of version n, in SQLite's own language.
using PasosDeVersion = std::vector<QStringList>;

// The statement that gives an empty database the newest version.
QString sentenciaDeVersion(const PasosDeVersion& pasos);

// 0 for a database from before there were versions.
[[nodiscard]] std::optional<ErrorBD> LeerVersion(Conexion& cnn, int& version);

enum class FinActualizacion {
  AlDia,
  Actualizada,
  MasNueva,  // than this program
  Fallo      // the database is as it was
};

struct Actualizacion {
  FinActualizacion fin = FinActualizacion::AlDia;
  QString palabras;  // what the person should read: "" when it was up to date already
};

// Brings the open database up to date, all steps in one transaction, after a dated copy of `archivo`, its file, in the
// folder "respaldos" beside it. Other programs may have the file open.
[[nodiscard]] Actualizacion ActualizarBase(Conexion& cnn, const QString& archivo, const PasosDeVersion& pasos,
                                           const QDateTime& ahora);
