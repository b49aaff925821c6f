#pragma once
// The parallel documents of the store by kind, state and dates, with their lines: the screen "Operaciones Paralelas"
// without its window. Reads only.
#include <QString>
#include <QStringList>
#include <vector>

struct Puesto;

struct OperacionParalelaConsulta {
  int cboTipoVenta = 0;      // 0 "-->", then O/C, N/C, PADE, PADV, LIQPAD
  int cboEstado = 0;         // 0 "-->", 1 "Vigente", 2 "Liquidado", 3 "Anulado"
  QString DTDesde, DTHasta;  // "dd/mm/yyyy"
};

// The last seven days, of every kind and state.
void InicioConsulta(const Puesto& p, OperacionParalelaConsulta& v);

struct FilaOperacionParalela {
  qint64 cOperCode = 0;
  QStringList celdas;  // in the order of ColumnasOperacion
};

// Reads the documents, both days included, by date and code. False when a date is none, which its box has told, or the
// store can't be read; `campoMal` names the field of a wrong date.
[[nodiscard]] bool BuscarOperaciones(Puesto& p, const OperacionParalelaConsulta& v,
                                     std::vector<FilaOperacionParalela>& filas, QString& campoMal);

// The lines of a document, in the order of ColumnasProducto. What can't be read has been told by its box.
std::vector<QStringList> LineasOperacion(Puesto& p, qint64 cOperCode);

struct ColumnaConsulta {
  const char16_t* titulo;
  double fraccion;
  enum Clase { Texto, Fecha, Numero } clase = Texto;
};
const std::vector<ColumnaConsulta>& ColumnasOperacion();
const std::vector<ColumnaConsulta>& ColumnasProducto();
