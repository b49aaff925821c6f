#pragma once
// A static snapshot of a query: all rows read, the query finished. Cells are Null (an invalid QVariant), qint64,
// double, QString or QDateTime. Fields are found by name without regard to case.
#include <QString>
#include <QVariant>
#include <vector>

class Recordset {
 public:
  // One row; valid while its recordset lives and is not filled anew.
  class Fila {
   public:
    Fila(const Recordset& rs, qsizetype n) : rs_(&rs), n_(n) {}
    // The field of that name or place; Null when there is no such field.
    QVariant operator[](QStringView nombre) const { return rs_->celda(n_, rs_->columna(nombre)); }
    QVariant operator[](int columna) const { return rs_->celda(n_, columna); }
    int columna(QStringView nombre) const { return rs_->columna(nombre); }

   private:
    const Recordset* rs_;
    qsizetype n_;
  };
  class Iterador {
   public:
    Iterador(const Recordset& rs, qsizetype n) : rs_(&rs), n_(n) {}
    Fila operator*() const { return {*rs_, n_}; }
    Iterador& operator++() {
      ++n_;
      return *this;
    }
    bool operator==(const Iterador& o) const { return n_ == o.n_; }

   private:
    const Recordset* rs_;
    qsizetype n_;
  };

  qsizetype RecordCount() const { return static_cast<qsizetype>(filas_.size()); }
  bool Eof() const { return actual_ >= RecordCount(); }
  void MoveFirst() { actual_ = 0; }
  void MoveNext() {
    if (!Eof()) ++actual_;
  }

  // A field of the current row; Null behind the last row or when there is no such field.
  QVariant operator[](QStringView nombre) const { return celda(actual_, columna(nombre)); }
  QVariant operator[](int columna) const { return celda(actual_, columna); }

  Iterador begin() const { return {*this, 0}; }
  Iterador end() const { return {*this, RecordCount()}; }

  const QStringList& campos() const { return campos_; }
  // Place of the field, -1 when there is none. Of two fields with one name the first counts.
  int columna(QStringView nombre) const;

  // For engines: a new snapshot takes the place of what was held.
  void llenar(QStringList campos, std::vector<std::vector<QVariant>> filas);

 private:
  QVariant celda(qsizetype fila, int columna) const;

  QStringList campos_;
  std::vector<std::vector<QVariant>> filas_;
  qsizetype actual_ = 0;
};
