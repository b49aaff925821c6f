#pragma once
// A desk that works against its floor: its twin on the engine's bare interface. The two take turns.
#include <benchmark/benchmark.h>

#include <functional>

#include "apoyo/puesto_prueba.h"
#include "breve.h"
#include "grabadora.h"

// Runs statements in the engine's language on a database.
void correrEn(const QString& archivo, const QString& sql);

// A history of `filas` rows of Operacion, six a ticket: five articles, 101 to 140, and their cash. Older days are
// closed and pushed; what stands behind `antiguas` is of the day under way.
QString sentenciasDeHistoria(qint64 antiguas, qint64 delDia = 0);

class Duelo {
 public:
  using Acto = std::function<void(Puesto&)>;

  // `base` gives folder, settings and clock, and its store is closed by this. With `conDisco` both flush at each
  // commit.
  Duelo(PuestoPrueba& base, bool conDisco);
  ~Duelo();

  Puesto& puesto() { return *p_; }

  // What one act is; `preparar`, statements of the store in the engine's language, runs before each, on both and
  // outside of the time. The act is run three times: once to warm up, twice for the tape of the floor, which runs it
  // twice too.
  void aprender(Acto acto, const QString& preparar = {});

  // What the floor does on a server beside the tape, which holds none of it, at each act.
  void conServidor(std::function<void()> f) { servidor_ = std::move(f); }

  // All turns of `estado`, with the medians of both and their quotient; an error when the two leave other rows in the
  // store, by these queries.
  void medir(benchmark::State& estado, const QStringList& consultas);

 private:
  std::vector<Evento> grabar();
  void abrirLocal();
  void nuestro() { acto_(*p_); }
  void pisar();
  bool iguales(const QStringList& consultas);

  PuestoPrueba& base_;
  bool conDisco_;
  QTemporaryDir gemela_;
  MotoresGrabados cinta_;
  PuertosGrabados puertos_;
  std::unique_ptr<Puesto> p_;
  std::unique_ptr<Piso> piso_;
  Acto acto_;
  std::function<void()> servidor_;
  QString preparar_;
};
