#pragma once
// The words of a statement. One tokeniser serves both dialects; it never fails: what it doesn't know is an operator
// of one character, and everything between two tokens (blanks, comments) stays where it is.
#include <QString>
#include <QStringView>
#include <vector>

enum class Dialecto { Jet, TSql };

enum class TipoToken {
  Nombre,        // a bare name or keyword
  NombreCitado,  // [name], `name`, in T-SQL also "name"
  Texto,         // 'text', N'text', in Jet also "text"
  Fecha,         // #date#, Jet only
  Numero,        // 12, 1.5, .5, 1e3
  Operador,      // one operator, one or two characters
  Fin            // behind the last token
};

struct Token {
  TipoToken tipo = TipoToken::Fin;
  qsizetype ini = 0;
  qsizetype largo = 0;
  QStringView texto;     // into the statement, which the caller keeps alive
  bool abierto = false;  // a quote, bracket or comment that never ends

  bool es(QStringView palabra) const {
    return tipo == TipoToken::Nombre && texto.compare(palabra, Qt::CaseInsensitive) == 0;
  }
  bool op(QStringView signo) const { return tipo == TipoToken::Operador && texto == signo; }
  bool nombre() const { return tipo == TipoToken::Nombre || tipo == TipoToken::NombreCitado; }
  bool literal() const { return tipo == TipoToken::Texto || tipo == TipoToken::Fecha || tipo == TipoToken::Numero; }
};

// The tokens of `sql`, closed by one of type Fin, which is open when a comment never ends.
std::vector<Token> separar(QStringView sql, Dialecto dialecto);

// What a literal or a name says without its quotes: 'O''Neil' gives O'Neil, [a b] gives a b, #1/2/2025# gives 1/2/2025.
QString contenido(const Token& token);
