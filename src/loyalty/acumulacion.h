#pragma once
// The rows of Acumulacion_Punto, as the sale and the sending of the queue write them.
#include <QString>
#include <optional>
#include <vector>

#include "loyalty/puntos.h"

class Conexion;
class Sql;

struct Acumulacion {
  QString cliente;  // cClieCode
  int idLocal = 0;
  qint64 codigo = 0;  // cAcumCode, numbered per customer and site
  QString tarjeta;
  double importe = 0;
  int puntos = 0;
  QString usuario;
  ClavePuntos documento;
  QDateTime momento;  // of the document
};

// Whose a card is: the pair of code and site.
struct TitularTarjeta {
  QString cliente;
  int idLocal = 0;
};

// The holders of a card, by site; with a site, only that one's. False when the query fails, and then the box has been
// shown.
[[nodiscard]] bool LeerTitulares(Puesto& p, Conexion& cnn, const QString& tarjeta, int idLocal,
                                 std::vector<TitularTarjeta>& titulares);

// Kinds of customer by Cliente.iTipo: the only one that earns points.
constexpr int kClienteConPuntos = 1;

constexpr int kTipoDesconocido = -1;
constexpr int kSinCliente = -2;

// The kind of a customer, kTipoDesconocido when it isn't known, kSinCliente without such a customer. False when the
// query fails, and then the box has been shown.
[[nodiscard]] bool LeerTipoCliente(Puesto& p, Conexion& cnn, const QString& cliente, int idLocal, int& tipo);

// The number that the next row of the customer takes. False when the query fails, and then the box has been shown.
[[nodiscard]] bool SiguienteAcumulacion(Puesto& p, Conexion& cnn, const QString& cliente, int idLocal, qint64& codigo);

// The question whose field Codigo is the highest number of the customer's rows.
Sql UltimaAcumulacion(const QString& cliente, int idLocal);

// The condition on the rows that a document's points have in either database.
Sql DelDocumento(const ClavePuntos& documento);

// The statement that inserts the row. `fecha` is an expression of the connection's dialect; `enCola` marks a row that
// waits to be sent.
Sql FilaAcumulacion(const Acumulacion& a, const Sql& fecha, bool enCola);
