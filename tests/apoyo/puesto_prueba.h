#pragma once
// The desk of the tests: its own folder and store, a clock that stands still, a scripted person, ports that record.
#include <QHash>
#include <QTemporaryDir>
#include <deque>
#include <ostream>
#include <stdexcept>

#include "foundation/puesto.h"

// A text in a failed comparison reads as text.
inline void PrintTo(const QString& s, std::ostream* o) { *o << '"' << s.toStdString() << '"'; }

class RelojFijo final : public Reloj {
 public:
  QDateTime ahora{QDate(2026, 11, 24), QTime(10, 30, 15)};
  qint64 dormido_ms = 0;

  QDateTime now() const override { return ahora; }
  void dormir(int ms) override { dormido_ms += ms; }
  std::shared_ptr<void> cada(int, std::function<void()> f) override;
  // Calls every timer that is still held once.
  void vencer();

 private:
  std::vector<std::weak_ptr<std::function<void()>>> timers_;
};

// Answers from a script. A box that was not expected, and an expected one that stays away, fail the test.
class MensajesGuion final : public Mensajes {
 public:
  ~MensajesGuion() override;

  // The next box must hold `texto` somewhere; `respuesta` answers a question ("Sí", "No") or an input box.
  void espera(const QString& texto, const QString& respuesta = {});
  // Boxes are recorded only, and take `respuesta`, without one their default answer.
  void dejaPasar(const QString& respuesta = {}) {
    libre_ = true;
    respuesta_ = respuesta;
  }

  struct Caja {
    QString texto, titulo;
  };
  std::vector<Caja> vistas;

  void mostrar(const QString& texto, const QString& titulo, Icono icono) override;
  bool preguntar(const QString& texto, const QString& titulo, bool siPorDefecto) override;
  std::optional<QString> pedir(const QString& texto, const QString& titulo, const QString& porDefecto) override;

 private:
  struct Espera {
    QString texto, respuesta;
  };
  std::optional<QString> tomar(const QString& texto, const QString& titulo);
  std::deque<Espera> esperas_;
  bool libre_ = false;
  QString respuesta_;
};

class PuertosRegistro final : public Puertos {
 public:
  QHash<QString, QByteArray> papel;                       // port -> all bytes copied to it
  std::vector<std::pair<QString, QStringList>> impresos;  // driver prints: printer, texts
  QString fallo;                                          // not empty: every copy and print fails with these words
  QList<ImpresoraSistema> lista{{QStringLiteral("Ticketera"), QStringLiteral("LPT1")},
                                {QStringLiteral("Alterna"), QStringLiteral("LPT2")}};

  std::optional<QString> copiar(const QString& archivo, const QString& puerto) override;
  void enviarSinEsperar(const QString& archivo, const QString& puerto) override { copiar(archivo, puerto); }
  QList<ImpresoraSistema> impresoras() override { return lista; }
  QString impresoraPorDefecto() override { return lista.front().nombre; }
  QStringList llevados;  // "PORT=PLACE", "PRINTER:PORT", as they were asked for
  QString lugarDe(const QString& puerto) override { return lugares_.value(puerto); }
  std::optional<QString> llevar(const QString& puerto, const QString& lugar) override {
    llevados << puerto + u'=' + lugar;
    lugares_[puerto] = lugar;
    return {};
  }
  std::optional<QString> nombrar(const QString& impresora, const QString& puerto) override {
    llevados << impresora + u':' + puerto;
    for (auto& i : lista)
      if (i.nombre == impresora) i.puerto = puerto;
    return {};
  }
  std::optional<QString> imprimir(const QString& impresora, const QString& letra, int tamano,
                                  const DocumentoImpreso& textos) override;

 private:
  QHash<QString, QString> lugares_;
};

struct ProcesoTerminado : std::runtime_error {
  explicit ProcesoTerminado(int e) : std::runtime_error("the process ended"), estado(e) {}
  int estado;
};

class SalidaPrueba final : public Salida {
 public:
  [[noreturn]] void terminar(int estado) override { throw ProcesoTerminado(estado); }
};

// Puts a double between the desk and its engines.
using Envolver = std::function<std::unique_ptr<Motores>(Motores&)>;

// The parts of a desk that a Puesto only refers to; a base, so that they are there before it.
struct PartesPrueba {
  QTemporaryDir carpeta;
  std::unique_ptr<Motores> reales, envueltos;
  RelojFijo relojFijo;
  MensajesGuion guion;
  PuertosRegistro registroPuertos;
  SalidaPrueba salidaPrueba;

  explicit PartesPrueba(const Envolver& envolver);
  Motores& losMotores() { return envueltos ? *envueltos : *reales; }
};

class PuestoPrueba : private PartesPrueba, public Puesto {
 public:
  // An open store with all its tables, one row in Configuracion, Config_Documento and _Tmp1 as of a new desk 00001,
  // turn 01, IGV 18, service 10, rate 3.00, user CAJERO; embedded central and client databases with their tables.
  explicit PuestoPrueba(const Envolver& envolver = {});

  RelojFijo& elReloj() { return relojFijo; }
  MensajesGuion& persona() { return guion; }
  PuertosRegistro& papeles() { return registroPuertos; }
  QString ruta() const { return carpeta.path(); }

  // The rows of a query, cells joined by "|", one a line; "error: ..." when it fails.
  QString filas(Conexion& cnn, const QString& sql);
  QString filas(const QString& sql) { return filas(poCnnLocal, sql); }
  // Runs a statement that must succeed.
  void ejecuta(Conexion& cnn, const QString& sql);
  void ejecuta(const QString& sql) { ejecuta(poCnnLocal, sql); }
  // An article in warehouse 01, on sale, without points.
  void articulo(int codigo, const QString& corta, double precio, bool servicio = false, const QString& catalogo = {});
};
