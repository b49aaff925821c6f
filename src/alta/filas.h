#pragma once
// Rows of a new database as statements in SQLite's own language.
#include <QString>
#include <QVariant>

// A value as a literal: a text in quotes, a date as ISO text, a number without trailing zeros, NULL.
QString Literal(const QVariant& valor);

// "INSERT INTO tabla (columnas) VALUES (...)"; as many values as columns.
QString Insercion(const QString& tabla, const QString& columnas, const QVariantList& valores);
