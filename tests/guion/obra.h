#pragma once
// Runs a program that plays a screenplay and gives all it wrote.
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

// Standard output, then a last line "[estado N]", "[señal]" when a signal ended it, or "[no acaba]" when it had to be
// stopped after a minute. Runs without a display of its own.
QString tocar(const QString& programa, const QStringList& argumentos, const QByteArray& entrada = {});

QString leerTexto(const QString& archivo);
// "" when equal, else the first line that differs, both ways.
QString primeraDiferencia(const QString& esperado, const QString& escrito);

// The plays of a folder without their ".guion"; fails the run when one lacks its ".salida" or the other way round.
std::vector<QString> obrasDe(const QString& carpeta);

// The folder of the test program itself.
QString carpetaDePruebas();
