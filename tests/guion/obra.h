#pragma once
// Runs programs that play screenplays and gives all they wrote and left.
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <string>
#include <vector>

// Standard output, then a last line "[estado N]", "[señal]" when a signal ended it, or "[no acaba]" when it had to be
// stopped after a minute. Runs without a display of its own.
QString tocar(const QString& programa, const QStringList& argumentos, const QByteArray& entrada = {});

QString leerTexto(const QString& archivo);
// "" when equal, else the first line that differs, both ways.
std::string primeraDiferencia(const QString& esperado, const QString& escrito);

// The plays of a folder without their ".guion"; fails the run when one lacks its ".salida" or the other way round.
std::vector<QString> obrasDe(const QString& carpeta);

// This process's environment without a display of its own.
QProcessEnvironment entornoSinPantalla();
// The folder of the test program itself, and the service command beside it.
QString carpetaDePruebas();
QString programaAdmin();

// A demo desk in a folder that goes with it; a copy is a desk of its own.
class PuestoDeObra {
 public:
  PuestoDeObra();
  // On PostgreSQL, in the test program's own server, whose clock stands at `ahora` ("2026-11-25 21:00:00").
  explicit PuestoDeObra(const QString& ahora);
  PuestoDeObra(const PuestoDeObra& otro);
  PuestoDeObra& operator=(const PuestoDeObra&) = delete;

  QString ruta() const { return carpeta_.filePath(QStringLiteral("puesto")); }
  QString admin(const QStringList& palabras, const QByteArray& entrada = {}) const;
  // Plays a file, or lines; pictures go into the desk's folder.
  QString toca(const QString& guion, const QByteArray& lineas = {}) const;
  QString tocaLineas(const QByteArray& lineas) const { return toca(QStringLiteral("-"), lineas); }
  // The rows of a query as the console writes them: "[1,"a"],[2,"b"]". It goes to the store; with "central: " or
  // "cliente: " in front to that server.
  QString filas(const QString& sql) const;
  // What came out of a port.
  QString papel(const QString& puerto = QStringLiteral("LPT1")) const;
  // The lines of both printers and of all that went through a driver.
  QStringList renglones() const;
  // The numbers of the tickets on the paper, in their order.
  QStringList numeros() const;

 private:
  QTemporaryDir carpeta_;
};
