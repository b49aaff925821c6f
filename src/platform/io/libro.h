#pragma once
// A workbook as a grid of cells, and its file (.xlsx) for any spreadsheet program.
#include <QString>
#include <map>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

// An amount with two decimals, a whole number with so many digits, or any number as it is.
enum class FormatoNumero { Libre, Importe, SieteCifras };

struct NumeroCelda {
  double valor = 0;
  FormatoNumero formato = FormatoNumero::Libre;
  bool operator==(const NumeroCelda&) const = default;
};
using Celda = std::variant<QString, NumeroCelda>;

inline NumeroCelda ImporteCelda(double valor) { return {valor, FormatoNumero::Importe}; }

struct HojaLibro {
  QString nombre;                               // 31 characters at most
  std::vector<double> anchos;                   // of the columns from 1 on, in characters
  std::map<std::pair<int, int>, Celda> celdas;  // by row and column, from 1; one without text is not written
  // The page: upright, margins in inches (left and right 0.3, top and bottom 0.5, header and footer 0.1).
  QString encabezado, pie;  // in the codes of spreadsheets: "&R&6..." right, 6 points
  int filasRepetidas = 0;   // the first rows stand on every printed page

  void poner(int fila, int columna, Celda celda) { celdas[{fila, columna}] = std::move(celda); }
};

struct Libro {
  std::vector<HojaLibro> hojas;
};

// Writes the file; what stands there under that name is replaced. Gives the words of the failure, and then there is no
// half of a file.
[[nodiscard]] std::optional<QString> EscribirLibro(const Libro& libro, const QString& ruta);
