#pragma once
// Records what an act of the desk asks of engines and ports, and plays it again on SQLite's bare interface: the floor.
#include <sqlite3.h>

#include <QHash>
#include <QStringList>
#include <memory>
#include <vector>

#include "platform/io/puertos.h"
#include "platform/sql/funciones_sqlite.h"
#include "platform/sql/motor.h"

struct Evento {
  enum Tipo { Abre, Cierra, Sentencia, Archivo } tipo;
  QString base;     // the database's file
  QString texto;    // the statement as it goes to the engine, or the bytes of a file that goes to a port
  QString archivo;  // that file
};

// Stands between a desk and its engines while `grabando` is on. What goes to a PostgreSQL server is not on the tape.
class MotoresGrabados final : public Motores {
 public:
  explicit MotoresGrabados(Motores& reales) : reales_(reales) {}
  std::unique_ptr<Motor> abrir(const QString& cadena, int espera_ms, ErrorBD& error) override;

  bool grabando = false;
  std::vector<Evento> eventos;

 private:
  Motores& reales_;
  QHash<QString, QString> bases_;  // the file by the connection string
};

// The ports of the tests, on the tape too.
class PuertosGrabados final : public Puertos {
 public:
  PuertosGrabados(Puertos& reales, MotoresGrabados& cinta) : reales_(reales), cinta_(cinta) {}
  std::optional<QString> copiar(const QString& archivo, const QString& puerto) override;
  void enviarSinEsperar(const QString& archivo, const QString& puerto) override { copiar(archivo, puerto); }
  QList<ImpresoraSistema> impresoras() override { return reales_.impresoras(); }
  QString impresoraPorDefecto() override { return reales_.impresoraPorDefecto(); }
  std::optional<QString> imprimir(const QString& i, const QString& l, int t, const DocumentoImpreso& d) override {
    return reales_.imprimir(i, l, t, d);
  }

 private:
  Puertos& reales_;
  MotoresGrabados& cinta_;
};

// A statement in which the figures that grow from act to act are bound; the rest is prepared as it is.
struct SentenciaPiso {
  QByteArray sql;
  std::vector<qint64> inicio, paso;  // value of each place at the first act, and what each one adds
};

// The same statements on the same tables in another folder, the local store's prepared once.
class Piso {
 public:
  // `primera` and `segunda` are two acts that follow each other; the floor begins with `primera`. Databases are the
  // files of those names in `carpeta`. `log` is what an act appends to the daily log, line by line.
  Piso(const std::vector<Evento>& primera, const std::vector<Evento>& segunda, const QString& carpeta,
       const QList<QByteArray>& log, bool conDisco);
  ~Piso();
  Piso(const Piso&) = delete;
  Piso& operator=(const Piso&) = delete;

  void acto();
  // Statements for the local store, outside of any act.
  void preparar(const QString& sql);

 private:
  struct Paso {
    Evento evento;
    SentenciaPiso sentencia;
    sqlite3_stmt* preparada = nullptr;
  };
  sqlite3* abrirBase(const QString& nombre);
  int compilar(sqlite3* base, const QByteArray& sql, unsigned opciones, sqlite3_stmt** sentencia);
  void correr(Paso& paso, sqlite3* base);
  void escribir(const Paso& paso);

  QString carpeta_;
  QList<QByteArray> log_;
  std::vector<Paso> pasos_;
  EntornoFunciones entorno_;
  sqlite3* local_ = nullptr;
  bool conDisco_;
  qint64 van_ = 0;
};
