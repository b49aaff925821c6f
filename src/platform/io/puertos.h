#pragma once
// Ports and the system's printers.
#include <QList>
#include <QString>
#include <QStringList>
#include <initializer_list>
#include <optional>

struct ImpresoraSistema {
  QString nombre;  // DeviceName
  QString puerto;  // port text, such as "LPT1" or "COM1:"
};

// A part of a printed document: several lines, ended by CR LF or LF, in one letter.
struct ParteImpresa {
  ParteImpresa(const QString& t, int tamano = 0, bool gruesa = false) : texto(t), puntos(tamano), negrita(gruesa) {}

  QString texto;
  int puntos;  // 0: the document's size
  bool negrita;
};

// What is printed through a driver, part by part; each begins a line.
struct DocumentoImpreso {
  DocumentoImpreso() = default;
  DocumentoImpreso(std::initializer_list<ParteImpresa> p) : partes(p) {}
  DocumentoImpreso(const QStringList& textos) : partes(textos.begin(), textos.end()) {}

  QStringList textos() const;

  QList<ParteImpresa> partes;
};

class Puertos {
 public:
  virtual ~Puertos() = default;

  // Copies the bytes of `archivo` to a port ("LPT1", "COM1:", a network printer's path) or straight to one of
  // lugares(). Gives the words of the failure, nothing when it went well. What reaches a port that is a file is on the
  // disk when this returns. A printer that can be asked and says that it can't print gets nothing.
  virtual std::optional<QString> copiar(const QString& archivo, const QString& puerto) = 0;
  // The same, started and not awaited: its failure is known to nobody.
  virtual void enviarSinEsperar(const QString& archivo, const QString& puerto) = 0;

  // The system's printers in its order; never empty. `impresoraPorDefecto` is the name of its default printer.
  virtual QList<ImpresoraSistema> impresoras() = 0;
  virtual QString impresoraPorDefecto() = 0;

  // Where a ticket printer could be: the machine's devices, then its printers' queues as "cola:NAME". An address on the
  // network, "tcp:ADDRESS:9100", can't be found and has to be told.
  virtual QStringList lugares() { return {}; }
  // Where a port's bytes go, as the settings have it; "" for nowhere of its own.
  virtual QString lugarDe(const QString& /*puerto*/) { return {}; }
  // Sends a port's bytes there from now on; "" takes it back. Gives the words of a failure, and all is as before.
  virtual std::optional<QString> llevar(const QString& /*puerto*/, const QString& /*lugar*/) { return {}; }
  // Lists a printer of that name on that port from now on. Words of a failure as above.
  virtual std::optional<QString> nombrar(const QString& /*impresora*/, const QString& /*puerto*/) { return {}; }

  // Prints through the driver of that printer and ends the document. Font by name and size in points, the latter for
  // all parts without a size of their own. Gives the words of the failure, nothing when it went well.
  virtual std::optional<QString> imprimir(const QString& impresora, const QString& letra, int tamano,
                                          const DocumentoImpreso& documento) = 0;
};
