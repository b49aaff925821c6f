#pragma once
// The machine's ports and printers.
//
// A port's name is looked up in section [PUERTOS] of KEB.cfg (LPT1=/dev/usb/lp0): a device, an address on the network
// (tcp:192.168.1.50:9100), a queue of the system (cola:Ticketera), or a file to which the bytes are added. A name that
// stands not there is the device itself on Windows; elsewhere its bytes are added to puertos/<name> in the program
// folder, like paper on a roll.
//
// Printers are those of the operating system, then those of section [IMPRESORAS] (Ticketera=LPT1), then, when there is
// none, "Impresora PDF". What is printed through a printer that the operating system doesn't know goes to impresos/ in
// the program folder, one PDF and one text a document, numbered.
#include <QSet>

#include "platform/io/espera.h"
#include "platform/io/puertos.h"

// The operating system's printers and the making of a PDF, which need the toolkit.
class ImpresorasSistema {
 public:
  virtual ~ImpresorasSistema() = default;
  virtual QStringList nombres() = 0;
  // "" when the system names none.
  virtual QString porDefecto() = 0;
  virtual std::optional<QString> imprimir(const QString& impresora, const QString& letra, int tamano,
                                          const DocumentoImpreso& documento) = 0;
  virtual std::optional<QString> escribirPdf(const QString& archivo, const QString& letra, int tamano,
                                             const DocumentoImpreso& documento) = 0;
};

class PuertosSistema final : public Puertos {
 public:
  // `carpeta` is the program folder. `sistema` may be missing: then no printer of the operating system is listed and
  // a document in impresos/ is a text alone. It stays the caller's and outlives this object.
  // `aparatos` is where the machine's devices are.
  explicit PuertosSistema(const QString& carpeta, ImpresorasSistema* sistema = nullptr,
                          const QString& aparatos = QStringLiteral("/dev"));

  // Told while a printer makes the desk wait.
  AvisoEspera alEsperar;

  std::optional<QString> copiar(const QString& archivo, const QString& puerto) override;
  void enviarSinEsperar(const QString& archivo, const QString& puerto) override;
  QList<ImpresoraSistema> impresoras() override;
  QString impresoraPorDefecto() override;
  QStringList lugares() override;
  QString lugarDe(const QString& puerto) override;
  std::optional<QString> llevar(const QString& puerto, const QString& lugar) override;
  std::optional<QString> nombrar(const QString& impresora, const QString& puerto) override;
  std::optional<QString> imprimir(const QString& impresora, const QString& letra, int tamano,
                                  const DocumentoImpreso& documento) override;

 private:
  struct Destino;
  QString configuracion() const;
  Destino destinoDe(const QString& puerto) const;
  std::optional<QString> enviar(const Destino& d, const QByteArray& bytes);
  std::optional<QString> enCola(const QString& archivo, const QString& cola) const;
  std::optional<QString> imprimirEnCarpeta(const QString& impresora, const QString& letra, int tamano,
                                           const DocumentoImpreso& documento);

  QString carpeta_;
  ImpresorasSistema* sistema_;
  QString aparatos_;
  QSet<QString> calladas_;  // printers that did not answer when they were asked how they are
  int ultimoImpreso_ = -1;  // number of the last document in impresos/, -1 before the folder was looked through
};
