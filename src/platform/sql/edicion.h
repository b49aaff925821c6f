#pragma once
// A statement being rewritten: its tokens, what is put before, behind or in the place of each, and what becomes of
// its literals. Whatever no edit touches comes out byte for byte.
#include <QVariant>

#include "platform/sql/error_bd.h"
#include "platform/sql/palabras_motor.h"
#include "platform/sql/token.h"

// How a literal is read when it reaches the engine.
enum class Lectura {
  TalCual,
  SinFinales,     // a text whose last blanks don't count
  FechaDiaMes,    // a text beside a date: day/month/year
  NumeroEstricto  // a text beside a number
};

struct Literal {
  int token = 0;
  bool ligado = false;  // goes as a bound value, so that statements of one shape share one prepared statement
  Lectura lectura = Lectura::TalCual;
};

// What the engine gets for a literal, or why it can't be read.
struct ValorLiteral {
  QVariant valor;  // qint64, double or QString
  std::optional<ErrorBD> error;
};
ValorLiteral leerLiteral(const Token& token, Lectura lectura, Dialecto dialecto);

// The same for a value that stands in the place of a literal, which becomes what the engine gets.
[[nodiscard]] std::optional<ErrorBD> leerValor(QVariant& valor, Lectura lectura, Dialecto dialecto);

// A number text as qint64 or double; invalid for anything that is no number from end to end.
QVariant leerNumero(const QString& texto);

class Edicion {
 public:
  Edicion(QStringView sql, Dialecto dialecto, const PalabrasMotor& palabras);

  const std::vector<Token>& tokens() const { return tokens_; }
  const std::vector<Literal>& literales() const { return literales_; }
  // Has a text or a name without end: it goes to the engine as it is, which says so.
  bool incompleta() const { return incompleta_; }
  Dialecto dialecto() const { return dialecto_; }
  // Of the engine that it is written for.
  const PalabrasMotor& palabras() const { return palabras_; }

  // Of two texts before one token the later call stands further out, and so behind a token.
  void antes(int token, const QString& texto) { ediciones_[token].antes.prepend(texto); }
  void despues(int token, const QString& texto) { ediciones_[token].despues.append(texto); }
  void envolver(int ini, int fin, const QString& abre, const QString& cierra = QStringLiteral(")")) {
    antes(ini, abre);
    despues(fin - 1, cierra);
  }
  void reemplazar(int token, const QString& texto);
  void borrar(int token) { reemplazar(token, QString()); }
  // The tokens [ini, fin) come out behind the token `tras`, further on, and `cierra` behind them. Once a statement.
  void mover(int ini, int fin, int tras, const QString& cierra) { movidos_ = {ini, fin, tras, cierra}; }
  // Those tokens as they stand now, with their literals.
  QString trozo(int ini, int fin) const;
  // The literal at that token, null for another token.
  Literal* literal(int token);

  // The rewritten statement, with its literals in it or, bound ones, as parameters numbered in their order.
  QString texto(bool conLiterales) const;

 private:
  struct Cambio {
    QString antes, despues, nuevo;
    bool cambiado = false;
  };
  QString deToken(int i, bool conLiterales, int& parametro) const;

  struct Movidos {
    int ini = -1, fin = -1, tras = -1;
    QString cierra{};
  };

  QStringView sql_;
  Dialecto dialecto_;
  const PalabrasMotor& palabras_;
  Movidos movidos_;
  bool incompleta_ = false;
  std::vector<Token> tokens_;
  std::vector<Cambio> ediciones_;
  std::vector<Literal> literales_;
  std::vector<int> literalDe_;  // by token, -1 for none
};
