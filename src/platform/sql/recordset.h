#pragma once
// A static snapshot of a query: all rows read, the query finished. Cells are Null (an invalid QVariant), qint64,
// double, QString or QDateTime. Fields are found by name without regard to case.
#include <QByteArrayView>
#include <QString>
#include <QVariant>
#include <vector>

// A value as an engine holds it, of which no QVariant has been made. Its text is UTF-8 and somebody else's.
struct CeldaBD {
  enum class Tipo : quint8 { Nula, Entera, Real, Texto, Fecha };

  CeldaBD() = default;
  explicit CeldaBD(qint64 n) : tipo(Tipo::Entera), entera(n) {}
  explicit CeldaBD(double n) : tipo(Tipo::Real), real(n) {}
  explicit CeldaBD(QByteArrayView t) : tipo(Tipo::Texto), texto(t) {}
  static CeldaBD fecha(QDate d, QTime h);

  bool nula() const { return tipo == Tipo::Nula; }
  QVariant valor() const;

  Tipo tipo = Tipo::Nula;
  union {
    qint64 entera = 0;  // of a date its milliseconds, from the first Julian day on
    double real;
  };
  QByteArrayView texto;
};

class Recordset {
 public:
  // One row; valid while its recordset lives and is not filled anew.
  class Fila {
   public:
    Fila(const Recordset& rs, qsizetype n) : rs_(&rs), n_(n) {}
    // The field of that name or place; Null when there is no such field.
    QVariant operator[](QStringView nombre) const { return (*this)[rs_->columna(nombre)]; }
    QVariant operator[](int columna) const { return rs_->celda(n_, columna).valor(); }
    // The same as it lies there.
    CeldaBD celda(QStringView nombre) const { return celda(rs_->columna(nombre)); }
    CeldaBD celda(int columna) const { return rs_->celda(n_, columna); }
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

  qsizetype RecordCount() const { return campos_.isEmpty() ? 0 : cuantas() / campos_.size(); }
  bool Eof() const { return actual_ >= RecordCount(); }
  void MoveFirst() { actual_ = 0; }
  void MoveNext() {
    if (!Eof()) ++actual_;
  }

  // A field of the current row; Null behind the last row or when there is no such field.
  QVariant operator[](QStringView nombre) const { return celda(actual_, columna(nombre)).valor(); }
  QVariant operator[](int columna) const { return celda(actual_, columna).valor(); }

  Iterador begin() const { return {*this, 0}; }
  Iterador end() const { return {*this, RecordCount()}; }

  const QStringList& campos() const { return campos_; }
  // Place of the field, -1 when there is none. Of two fields with one name the first counts.
  int columna(QStringView nombre) const;

  // For engines: a new snapshot takes the place of what was held.
  void llenar(const QStringList& campos, const std::vector<std::vector<QVariant>>& filas);
  // The same by pieces: its fields, then its cells row by row, whose texts are copied.
  void nuevo(const QStringList& campos);
  void poner(const CeldaBD& c);
  // Its first rows and fields stay.
  void recortar(qsizetype filas, int columnas);

 private:
  friend class Fila;
  struct Guardada {
    CeldaBD::Tipo tipo;
    int largo;  // of a text, which begins at `n`
    union {
      qint64 n;
      double real;
    };
  };
  qsizetype cuantas() const { return static_cast<qsizetype>(celdas_.size()); }
  CeldaBD celda(qsizetype fila, int columna) const;

  QStringList campos_;
  std::vector<Guardada> celdas_;
  std::vector<char> textos_;
  qsizetype actual_ = 0;
};

inline void Recordset::poner(const CeldaBD& c) {
  Guardada g{c.tipo, 0, {0}};
  if (c.tipo == CeldaBD::Tipo::Texto) {
    g.largo = static_cast<int>(c.texto.size());
    g.n = static_cast<qint64>(textos_.size());
    textos_.insert(textos_.end(), c.texto.begin(), c.texto.end());
  } else if (c.tipo == CeldaBD::Tipo::Real) {
    g.real = c.real;
  } else {
    g.n = c.entera;
  }
  celdas_.push_back(g);
}

inline CeldaBD Recordset::celda(qsizetype fila, int columna) const {
  CeldaBD c;
  if (fila < 0 || columna < 0 || columna >= campos_.size()) return c;
  const qsizetype i = fila * campos_.size() + columna;
  if (i >= cuantas()) return c;
  const Guardada& g = celdas_[static_cast<size_t>(i)];
  c.tipo = g.tipo;
  if (g.tipo == CeldaBD::Tipo::Texto) c.texto = {textos_.data() + g.n, g.largo};
  else if (g.tipo == CeldaBD::Tipo::Real) c.real = g.real;
  else c.entera = g.n;
  return c;
}
