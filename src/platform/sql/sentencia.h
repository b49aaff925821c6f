#pragma once
// Statements and what may stand in them. A piece of SQL comes from the source text, from other pieces and from values;
// a text comes in as a value only, by its own name, and is escaped for the database that the statement goes to:
//
//   FormatearSQL(u"SELECT sProdDesc FROM Producto WHERE cProdCode = $ AND cAlmaCode = '$'"_sql, {3, Texto(almacen)})
#include <QDateTime>
#include <QString>
#include <concepts>
#include <type_traits>
#include <vector>

#include "platform/sql/token.h"

// A piece that stands in the source, u"..."_sql. One whose quotes don't close does not compile.
class LiteralSql {
 public:
  constexpr QStringView texto() const { return texto_; }

 private:
  friend consteval LiteralSql operator""_sql(const char16_t* texto, size_t largo);
  constexpr explicit LiteralSql(QStringView texto) : texto_(texto) {}

  QStringView texto_;
};

consteval LiteralSql operator""_sql(const char16_t* texto, size_t largo) {
  bool dentro = false;
  for (size_t i = 0; i < largo; ++i) dentro ^= texto[i] == u'\'';
  if (dentro) throw "a text of this piece never ends";
  return LiteralSql(QStringView(texto, static_cast<qsizetype>(largo)));
}

// A piece of SQL, whole in its texts. Empty until something is put in.
class Sql {
 public:
  Sql() = default;
  Sql(LiteralSql literal) : texto_(QString::fromRawData(literal.texto().constData(), literal.texto().size())) {}
  // As it stands: for statements that a person or a file gives to the console, to plays and tests, and for those that
  // the program itself has kept. Nowhere else.
  static Sql crudo(const QString& sql);

  bool vacia() const { return texto_.isEmpty(); }
  // The statement as a database of that dialect reads it.
  QString texto(Dialecto dialecto) const;
  // The piece with `pieza` in the place of each `marca` of its source texts; what came in as a value is left alone.
  Sql con(LiteralSql marca, const Sql& pieza) const;

  Sql& operator+=(const Sql& otra);

 private:
  friend class Valor;
  friend Sql FormatearSQL(const Sql& plantilla, const std::vector<class Valor>& valores);

  QString texto_;         // what only the dialect can tell, and what is no place or mark, by characters of its own
  bool marcado_ = false;  // whether any of them is there
};

Sql operator+(Sql a, const Sql& b);
// The pieces one behind the other, `entre` between them.
Sql UnirSql(const std::vector<Sql>& piezas, const Sql& entre);

// A text on its way into a statement.
struct Texto {
  explicit Texto(const QString& texto) : texto(texto) {}
  QString texto;
};

// A text that stands for a number, such as a code that was typed: bare where it is one (sign, digits, one point). Where
// it is none the statement is an error to every database.
struct Cifras {
  explicit Cifras(const QString& texto) : texto(texto) {}
  QString texto;
};

// A text that names a column or a table, such as the key of a setting: bare where it is a plain name. Any other is an
// error to every database.
struct NombreSql {
  explicit NombreSql(const QString& texto) : texto(texto) {}
  QString texto;
};

// What takes a place in a template.
class Valor {
 public:
  Valor() = default;  // Null
  Valor(const Texto& texto);
  Valor(const Cifras& cifras);
  Valor(const NombreSql& nombre);
  template <class T>
  requires(std::integral<T> || (std::is_enum_v<T> && std::is_convertible_v<T, int>)) Valor(T numero)
      : Valor(suelto(QString::number(static_cast<qint64>(numero)))) {}
  Valor(double numero);             // without a mask, as TextoDe
  Valor(const QDateTime& momento);  // a text, "dd/mm/yyyy hh:mm:ss"; Null for none
  Valor(QDate dia);                 // a literal of the Jet dialect, #mm/dd/yyyy#
  Valor(const Sql& pieza);          // column names, conditions, other statements
  Valor(LiteralSql pieza) : Valor(Sql(pieza)) {}
  Valor(const QString&) = delete;  // say Texto or Cifras
  Valor(QStringView) = delete;
  Valor(const char*) = delete;
  Valor(const char16_t*) = delete;

 private:
  friend Sql FormatearSQL(const Sql& plantilla, const std::vector<Valor>& valores);
  enum class Clase { Nulo, Texto, Suelto };
  static Valor suelto(const QString& texto);
  static Valor desconocido(const QString& texto);
  void poner(Sql& sale, bool entreComillas) const;

  Clase clase_ = Clase::Nulo;
  Sql pieza_;  // of a text: without quotes of its own
};

// The statement made of `plantilla`: each "$" of its source texts takes the next value, trimmed of blanks. A text
// between quotes stands as it is, any other place gives it quotes of its own. A Null takes the template's own wrapping
// away ("'$'", "CONVERT(DATETIME,'$')") and stands as a bare Null. Numbers come without a mask, true as 1. With too few
// values the statement is an error to every database.
Sql FormatearSQL(const Sql& plantilla, const std::vector<Valor>& valores);
