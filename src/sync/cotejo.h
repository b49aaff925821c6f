#pragma once
// What the central database already holds of this desk, as a multiset of rows: what is found in it was sent before.
#include <QHash>

#include "platform/sql/conexion.h"

struct Puesto;

class Cotejo {
 public:
  // Its own kind of rows, "Operacion" or "OperacionParalela", from one moment to another. False when they can't be
  // read; the box has been shown.
  [[nodiscard]] bool leerOperaciones(Puesto& p, const QDateTime& desde, const QDateTime& hasta);
  [[nodiscard]] bool leerParalelas(Puesto& p, const QDateTime& desde, const QDateTime& hasta);

  // Whether such a row stands there; it is taken out then, and put back by `devolver`.
  bool tomar(const QString& clave);
  void devolver(const QString& clave) { ++cuantas_[clave]; }

  // What a row of either database is told by.
  static QString claveDeOperacion(const Recordset::Fila& f);
  static QString claveDeParalela(const Recordset::Fila& f);

 private:
  bool leer(Puesto& p, const Sql& cabeza, const QDateTime& desde, const QDateTime& hasta,
            QString (*clave)(const Recordset::Fila&));

  QHash<QString, int> cuantas_;
};
