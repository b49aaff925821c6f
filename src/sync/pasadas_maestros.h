#pragma once
// What the passes of the master data share, and how a table of them is pulled.
#include <QSet>

#include "foundation/puesto.h"
#include "sync/maestros.h"
#include "sync/surtido.h"

// A value of a row on its way into the store without the text of a statement: where it comes from and how it is read.
enum class Lee { Texto, Numero, Precio, Entero, Dia, Codigo, Bit, NoBit, Fijo };
struct CampoDirecto {
  Lee lee;
  QStringView nombre = {};
  QVariant fijo = {};  // a whole number or a text
};

// Rows of one page, each with its values bound to the statement that the first of them made ready.
class FilasDirectas {
 public:
  FilasDirectas(Conexion& cnn, LiteralSql plantilla, const std::vector<CampoDirecto>& campos);
  // False for a row that the statement itself has to try, and to fail.
  bool tomar(const Recordset::Fila& f);

 private:
  bool leer(const CeldaBD& de, size_t i);
  bool texto(const CeldaBD& de, size_t i);
  void guardar(const QString& texto, size_t i);

  const std::vector<CampoDirecto>& campos_;
  std::unique_ptr<Repetida> sentencia_;
  std::vector<int> columnas_;
  std::vector<CeldaBD> valores_;
  std::vector<QByteArray> textos_;  // of those that do not go on as the row holds them
};

// One table of the pull: what tells its rows apart and how a row is stored.
struct Maestro {
  LiteralSql columnas;  // and its table
  LiteralSql orden;
  Palabras inserta, actualiza;
  int barra;
  // The rows behind that one, as a range of the key: what OR leads apart is read and sorted anew for each page.
  std::function<Sql(const Recordset::Fila&)> detras;
  std::function<QString(const Recordset::Fila&)> codigo, clave;     // as the log names it; as it is told apart
  std::function<Sql(const Recordset::Fila&)> insertar, actualizar;  // empty for a row whose code is no number
  // The same INSERT for many rows, its values by their place; none when each goes by its statement.
  LiteralSql plantilla = u""_sql;
  std::vector<CampoDirecto> campos = {};
};

// A field as a value of a statement.
inline Texto TextoDeCampo(const Recordset::Fila& f, QStringView campo) { return Texto(LimpiarNulo(f[campo])); }
inline Valor NumeroDeCampo(const Recordset::Fila& f, QStringView campo) { return Numero(f[campo]); }

// A condition on the watermark, as often as it is named there; empty without one.
Sql ConMarca(const QString& marca, LiteralSql plantilla, int veces = 1);

class PasadasDeMaestros {
 public:
  PasadasDeMaestros(Puesto& p, FrmUpdt& pantalla, const QString& marca) : p_(p), pantalla_(pantalla), marca_(marca) {}

  FinPasada unidades();
  FinPasada articulos(Surtido& surtido);
  FinPasada clientes();
  FinPasada tarjetas();

 private:
  // New rows of `tabla`, then its changed ones.
  FinPasada dosPasadas(const Maestro& m, LiteralSql tabla);
  // Whether the newest row and change of `tabla` lie behind the watermark, `elMismoDia` or on its day: a pass
  // that can't have a row is left out. Both without a watermark. False when they can't be read.
  bool haySuyas(LiteralSql tabla, bool elMismoDia, bool& creadas, bool& cambiadas);
  FinPasada pasada(const Maestro& m, const Sql& donde, bool nuevas);
  FinPasada articulosNuevos(const Maestro& m);
  FinFila nueva(const Maestro& m, const Recordset::Fila& f);
  FinFila cambiada(const Maestro& m, const Recordset::Fila& f);
  // The batched way of new rows of `m`, each by `fila`.
  std::function<std::vector<FinFila>(const Filas&)> loteDeNuevas(const Maestro& m,
                                                                 std::function<FinFila(const Recordset::Fila&)> fila);
  std::optional<ErrorBD> ejecutar(const Sql& sql) { return p_.poCnnLocal.ejecutar(sql); }
  bool articuloExiste(qint64 codigo, bool& existe);
  Sql filaArticulo(const Recordset::Fila& f) const;
  Sql cambioArticulo(const Recordset::Fila& f) const;
  Maestro maestroArticulos();
  FinPasada precios(const Maestro& m, const Surtido& surtido);
  // Copies from before customers came with their site give way once all of the code's sites are here.
  void quitarSinLocal(LiteralSql tabla, LiteralSql clave, LiteralSql condicion);

  Puesto& p_;
  FrmUpdt& pantalla_;
  const QString marca_;
  bool vinieron_ = false;                    // rows of the table under way may have come
  std::unique_ptr<FilasDirectas> directas_;  // of the batch under way
  QSet<QString> tomadas_;  // new ones of this pass: what was made and changed on one day is taken once
};

// The number of an article's code of the central database; -1 for one that is none.
qint64 NumeroDeArticulo(const CeldaBD& codigo);
// That of a text of up to 15 figures and nothing else, -1 for others.
qint64 DeCifras(QByteArrayView t);

// The statement of a page; `donde` is the pass's own condition, " WHERE ..." or nothing.
Sql PaginaDeMaestro(const Maestro& m, const Sql& donde, const Recordset::Fila* ultima);
