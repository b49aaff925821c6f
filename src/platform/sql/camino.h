#pragma once
// The way of a statement on any engine: from its text to tokens, to its shape, to what is known of the shape, and the
// literals that are bound to it. An engine prepares what comes out and keeps that beside the shape's key.
#include "platform/sql/formas.h"

// A statement taken apart. The tokens look into `sql`.
struct SentenciaLeida {
  explicit SentenciaLeida(const QString& sql, Dialecto dialecto) : sql(sql), tokens(separar(this->sql, dialecto)) {}
  SentenciaLeida(const SentenciaLeida&) = delete;
  SentenciaLeida& operator=(const SentenciaLeida&) = delete;

  const QString sql;
  const std::vector<Token> tokens;
  QString forma;  // the shape's key, all literals aside
};

class Camino {
 public:
  Camino(Dialecto dialecto, const PalabrasMotor& palabras, std::shared_ptr<MemoriaDeFormas> memoria)
      : dialecto_(dialecto), palabras_(palabras), memoria_(std::move(memoria)) {}

  Dialecto dialecto() const { return dialecto_; }

  // Finds the statement's shape. An error for a text, name or comment without end, which no shape has.
  [[nodiscard]] std::optional<ErrorBD> reconocer(SentenciaLeida& s) const;

  // What the rewriting makes of the shape; null, with `error` filled, for a statement that must not run. `esquema`
  // numbers the state of the tables that the connection sees: what other connections have learnt counts while it is
  // the same. Below 0 nothing is taken from them or left to them.
  std::shared_ptr<const FormaEscrita> escribir(const SentenciaLeida& s, int esquema, const Catalogo& catalogo,
                                               std::optional<ErrorBD>& error);

  // The values of the bound literals, in their order, as the engine takes them: qint64, double or text.
  [[nodiscard]] std::optional<ErrorBD> valores(const FormaEscrita& forma, const SentenciaLeida& s,
                                               std::vector<QVariant>& valores) const;

  // The whole statement with its literals; as it came when it can't be rewritten.
  QString traducir(const QString& sql, const Catalogo& catalogo) const;

 private:
  Dialecto dialecto_;
  const PalabrasMotor& palabras_;
  std::shared_ptr<MemoriaDeFormas> memoria_;
};
